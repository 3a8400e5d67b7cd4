// The data screen of the graphics path: layers and loads are typed or imported, checked, saved, and taken on to the map
// screen. Its controls are the only store of the data; Form6 reads them at the moment of use.
#pragma once
#include <string>

#include "pavement/graphics_input.h"
#include "platform/files.h"
#include "shell/data_screen.h"

namespace zirvo {

class Form5 : public DataScreen {
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

    void Command5_Click() override;
    void Command7_Click() override;

    /// The pavement of the controls, each cell by the number that it begins with; of the last layer modulus and Poisson
    /// ratio only. Fault 9 where a count passes 100.
    GraphicsInputData ModelFromControls() const;

protected:
    void SetCaptions() override;
    void ImportFile() override;
    std::string FileBytes() const override;

private:
    void LayOut();
};

}  // namespace zirvo
