// The version screen: name, version, rights and history of the program. Opened from the first screen, beside which it
// stands, and loaded anew each time.
#pragma once
#include "forms/application.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"

namespace zirvo {

class Form7 : public forms::Form {
public:
    static constexpr const char* FormName = "Form7";
    explicit Form7(forms::Application& application);

    forms::Label Label1{*this, "Label1"};    ///< name of the program
    forms::Label Label4{*this, "Label4"};    ///< "Version"
    forms::Label Label7{*this, "Label7"};    ///< its number
    forms::Label Label5{*this, "Label5"};    ///< "Home Page"
    forms::Label Label8{*this, "Label8"};    ///< its address
    forms::Label Label6{*this, "Label6"};    ///< "E-mail"
    forms::Label Label9{*this, "Label9"};    ///< its address
    forms::Label Label2{*this, "Label2"};    ///< rights
    forms::Label Label3{*this, "Label3"};    ///< licence
    forms::Label Label10{*this, "Label10"};  ///< heading of the history
    forms::TextBox Text1{*this, "Text1"};    ///< the history
    forms::CommandButton Command1{*this, "Command1"};

    void Form_Load() override;
    void Command1_Click();

private:
    void Arrange();
    void SetFixedLabels();
};

}  // namespace zirvo
