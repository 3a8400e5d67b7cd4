// The two reports of an analysis as text, whole or as five narrow tables. Loaded anew behind each run of the data
// screen; every click reads the file again, so that what the file says now is what is shown.
#pragma once
#include <string>

#include "base/int16.h"
#include "forms/application.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"

namespace zirvo {

class Form4 : public forms::Form {
public:
    static constexpr const char* FormName = "Form4";
    explicit Form4(forms::Application& application);

    forms::Frame Frame1{*this, "Frame1"};
    forms::Frame Frame2{*this, "Frame2"};
    forms::OptionButton Option3{*this, "Option3", &Frame1};  ///< RESULTS: the ".bre"
    forms::OptionButton Option4{*this, "Option4", &Frame1};  ///< PRINC. VAL.: the ".san"
    forms::OptionButton Option1{*this, "Option1", &Frame2};  ///< VIEW ALL
    forms::OptionButton Option2{*this, "Option2", &Frame2};  ///< VIEW IN SUB-DIVISIONS
    forms::TextBox txtContents{*this, "txtContents"};
    forms::CommandButton Command2{*this, "Command2"};  ///< PREVIOUS
    forms::CommandButton Command3{*this, "Command3"};  ///< QUIT

    void Form_Load() override;
    void Option1_Click();
    void Option2_Click();
    void Option3_Click();
    void Option4_Click();
    void Command2_Click();
    void Command3_Click();

private:
    void LayOut();
    void SetFont();
    void SetCaptions();
    std::string ReportPath() const;

    Int16 languageBase_ = 0;
};

}  // namespace zirvo
