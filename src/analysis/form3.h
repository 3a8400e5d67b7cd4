// The data screen of a numerical analysis: new data or an import, the counts, the three grids, DATA OK!, SAVE DATA,
// ANALYZE. Its controls are the store of the data: every operation reads their texts again. Form4 takes the names of
// the reports and the count of points from here, and gives parts of the screen back on its way back.
#pragma once
#include <memory>
#include <string>

#include "analysis/solver_run.h"
#include "forms/application.h"
#include "forms/ms_flex_grid.h"
#include "grid/cls_flex_grid_edit.h"
#include "pavement/pavement_rules.h"
#include "platform/process.h"

namespace zirvo {

class Form3 : public forms::Form {
public:
    static constexpr const char* FormName = "Form3";

    /// @param processes      starts the solver
    /// @param programFolder  holds the solver and the help
    Form3(forms::Application& application, ProcessService& processes, std::string programFolder);

    forms::Label Label1{*this, "Label1"};
    forms::Frame Frame1{*this, "Frame1"};
    forms::OptionButton Option1{*this, "Option1", &Frame1};     ///< NEW DATA
    forms::OptionButton Option2{*this, "Option2", &Frame1};     ///< IMPORT FROM FILE
    forms::CommandButton Command1{*this, "Command1", &Frame1};  ///< OPEN FILE
    forms::Frame Frame2{*this, "Frame2"};
    forms::Label Label2{*this, "Label2", &Frame2};
    forms::Label Label3{*this, "Label3", &Frame2};
    forms::Label Label4{*this, "Label4", &Frame2};
    forms::Label Label7{*this, "Label7", &Frame2};  ///< LayerCount
    forms::Label Label8{*this, "Label8", &Frame2};  ///< LoadCount
    forms::Label Label9{*this, "Label9", &Frame2};  ///< PointCount
    forms::VScrollBar VScroll1{*this, "VScroll1", &Frame2};
    forms::VScrollBar VScroll2{*this, "VScroll2", &Frame2};
    forms::VScrollBar VScroll3{*this, "VScroll3", &Frame2};
    forms::Frame Frame3{*this, "Frame3"};
    forms::MSFlexGrid MSFlexGrid1{*this, "MSFlexGrid1", &Frame3};  ///< layers
    forms::Frame Frame4{*this, "Frame4"};
    forms::MSFlexGrid MSFlexGrid2{*this, "MSFlexGrid2", &Frame4};  ///< loads
    forms::Frame Frame5{*this, "Frame5"};
    forms::MSFlexGrid MSFlexGrid3{*this, "MSFlexGrid3", &Frame5};  ///< points
    forms::Frame Frame6{*this, "Frame6"};
    forms::Label Label5{*this, "Label5", &Frame6};
    forms::TextBox Text7{*this, "Text7", &Frame6};  ///< InputFileName
    forms::Label Label6{*this, "Label6", &Frame6};
    forms::TextBox Text8{*this, "Text8", &Frame6};  ///< ResultFileName
    forms::Label Label10{*this, "Label10", &Frame6};
    forms::TextBox Text1{*this, "Text1", &Frame6};     ///< PrincipalFileName
    forms::CommandButton Command3{*this, "Command3"};  ///< PREVIOUS
    forms::CommandButton Command4{*this, "Command4"};  ///< CLEAR FORM
    forms::CommandButton Command5{*this, "Command5"};  ///< DATA OK!
    forms::CommandButton Command6{*this, "Command6"};  ///< SAVE DATA
    forms::CommandButton Command7{*this, "Command7"};  ///< ANALYZE
    forms::CommandButton Command8{*this, "Command8"};  ///< HELP
    forms::CommandButton Command9{*this, "Command9"};  ///< QUIT
    forms::TextBox Text9{*this, "Text9"};              ///< the note while the solver runs

    void Form_Load() override;
    void Option1_Click();
    void Option2_Click();
    void Command1_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void Command8_Click();
    void Command9_Click();
    void VScroll1_Change();
    void VScroll2_Change();
    void VScroll3_Change();
    void Label7_Change();
    void Label8_Change();
    void Label9_Change();
    void MSFlexGrid1_GotFocus();
    void MSFlexGrid1_LostFocus();
    void MSFlexGrid2_GotFocus();
    void MSFlexGrid2_LostFocus();
    void MSFlexGrid3_GotFocus();
    void MSFlexGrid3_LostFocus();

    /// The groups that every state enables and disables together.
    void EnableBoxes(bool enabled);
    void EnableScrollBars(bool enabled);
    void EnableGrids(bool enabled);

    /// The editor of the grid that got the focus last; none before the first focus.
    const std::shared_ptr<clsFlexGridEdit>& Editor() const { return editor_; }

protected:
    /// The run itself. A report that is lost behind its stamp can only be told by a test that stands in here.
    virtual SolverRunResult RunAnalysis(const SolverRunRequest& request, const SolverRunCallbacks& callbacks);

private:
    void LayOut();
    void LayOutData();
    void LayOutGrids();
    void LayOutFilesAndButtons();
    void BindEvents();
    void SetCaptions();

    std::string Words(Int16 k) const;
    UnitSystem Units() const;
    std::string WorkFolder() const;

    void ZeroCounts();
    void ZeroScrollBars();
    void NameBoxes(const std::string& input, const std::string& results, const std::string& principals);
    void SetColumnHeadings();
    void ClearColumnHeadings();
    void EditIn(forms::MSFlexGrid& grid);
    PavementTexts TextsFromControls() const;

    void ImportFile();
    void ShowModel(const PavementModel& model);

    forms::Answer Box(Int16 k, forms::Icon picture, forms::Buttons choice = forms::Buttons::Ok);
    void StopWith(Int16 k);
    void ShowNote();
    void HideNote();

    ProcessService& processes_;
    std::string programFolder_;
    Int16 languageBase_ = 0;
    std::shared_ptr<clsFlexGridEdit> editor_;
};

}  // namespace zirvo
