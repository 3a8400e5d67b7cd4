// The data screen of the graphics path: layers and loads are typed or imported, checked, saved, and taken on to the map
// screen. Its controls are the only store of the data; Form6 reads them at the moment of use.
#pragma once
#include <memory>
#include <optional>
#include <string>

#include "forms/application.h"
#include "forms/form.h"
#include "forms/ms_flex_grid.h"
#include "grid/cls_flex_grid_edit.h"
#include "pavement/graphics_input.h"
#include "platform/files.h"

namespace zirvo {

class Form5 : public forms::Form {
public:
    static constexpr const char* FormName = "Form5";

    /// @param programFolder  holds the help
    explicit Form5(forms::Application& application, std::string programFolder = ProgramFolder());

    forms::Label Label1{*this, "Label1"};

    forms::Frame Frame1{*this, "Frame1"};  // where the data come from
    forms::OptionButton Option1{*this, "Option1", &Frame1};
    forms::OptionButton Option2{*this, "Option2", &Frame1};
    forms::CommandButton Command1{*this, "Command1", &Frame1};

    forms::Frame Frame2{*this, "Frame2"};  // the counts
    forms::Label Label2{*this, "Label2", &Frame2};
    forms::Label Label4{*this, "Label4", &Frame2};
    forms::VScrollBar VScroll1{*this, "VScroll1", &Frame2};
    forms::Label Label3{*this, "Label3", &Frame2};
    forms::Label Label5{*this, "Label5", &Frame2};
    forms::VScrollBar VScroll2{*this, "VScroll2", &Frame2};

    forms::Frame Frame3{*this, "Frame3"};  // layers
    forms::MSFlexGrid MSFlexGrid1{*this, "MSFlexGrid1", &Frame3};
    forms::Frame Frame4{*this, "Frame4"};  // loads
    forms::MSFlexGrid MSFlexGrid2{*this, "MSFlexGrid2", &Frame4};
    forms::Frame Frame5{*this, "Frame5"};  // the name of the file
    forms::TextBox Text3{*this, "Text3", &Frame5};

    forms::CommandButton Command3{*this, "Command3"};  // PREVIOUS
    forms::CommandButton Command4{*this, "Command4"};  // CLEAR FORM
    forms::CommandButton Command5{*this, "Command5"};  // DATA OK!
    forms::CommandButton Command6{*this, "Command6"};  // SAVE DATA
    forms::CommandButton Command7{*this, "Command7"};  // TO GRAPHICS
    forms::CommandButton Command8{*this, "Command8"};  // HELP
    forms::CommandButton Command9{*this, "Command9"};  // QUIT

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
    void Label4_Change();
    void Label5_Change();
    void VScroll1_Change();
    void VScroll2_Change();
    void MSFlexGrid1_GotFocus();
    void MSFlexGrid1_LostFocus();
    void MSFlexGrid2_GotFocus();
    void MSFlexGrid2_LostFocus();

    /// The pavement of the controls, each cell by the number that it begins with; of the last layer modulus and Poisson
    /// ratio only. Fault 9 where a count passes 100.
    GraphicsInputData ModelFromControls() const;

    /// What the map screen does to this one on the way back, after "UPDATE INPUT DATA?".
    void ReturnToEditing();
    void ReturnAsItWas();

    /// Own copy of the language base, taken on load.
    Int16 LanguageBase = 0;

private:
    void BindEvents();
    void LayOut();
    void SetCaptions();
    void DisableSteps();
    void DisableSource();
    void ClearCounts();
    void ClearHeadings();
    void SetHeadings();
    void ImportFile();
    bool TakeFile(const std::string& name);
    void FillGrids(const GraphicsInputData& data);
    void ChooseViewOnly();
    void ChooseUpdate();
    std::optional<Int16> FailedRule() const;
    UnitSystem Units() const;
    void EnableGrids(bool enabled);
    void EnableBars(bool enabled);
    void EditGrid(forms::MSFlexGrid& grid);

    std::string Words(Int16 k) const;
    forms::Answer Tell(Int16 k, forms::Icon icon, forms::Buttons choice = forms::Buttons::Ok) const;
    void TellRefused(Int16 k) const;

    std::string programFolder_;
    std::shared_ptr<clsFlexGridEdit> editor_;  ///< of the grid that has the focus, or had it last
};

}  // namespace zirvo
