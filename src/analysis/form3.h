// The data screen of a numerical analysis: new data or an import, the counts, the three grids, DATA OK!, SAVE DATA,
// ANALYZE. Its controls are the store of the data: every operation reads their texts again. Form4 takes the names of
// the reports and the count of points from here, and gives parts of the screen back on its way back.
#pragma once
#include <string>

#include "analysis/solver_run.h"
#include "platform/process.h"
#include "shell/data_screen.h"

namespace zirvo {

class Form3 : public DataScreen {
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
    void Option1_Click() override;
    void Option2_Click() override;
    void Command5_Click() override;
    void Command7_Click() override;

protected:
    /// The run itself. A report that is lost behind its stamp can only be told by a test that stands in here.
    virtual SolverRunResult RunAnalysis(const SolverRunRequest& request, const SolverRunCallbacks& callbacks);

    void SetCaptions() override;
    void ImportFile() override;
    std::string FileBytes() const override;

private:
    void LayOut();
    void LayOutData();
    void LayOutGrids();
    void LayOutFilesAndButtons();
    PavementTexts TextsFromControls() const;
    void ShowModel(const PavementModel& model);
    void ShowNote();
    void HideNote();

    ProcessService& processes_;
};

}  // namespace zirvo
