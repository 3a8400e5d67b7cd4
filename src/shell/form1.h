// The first screen: the user chooses the language. Its option buttons are the store of the choice, so it stays loaded,
// hidden, until the program ends.
#pragma once
#include "base/int16.h"
#include "forms/application.h"
#include "forms/simple_controls.h"

namespace zirvo {

class Form1 : public forms::Form {
public:
    static constexpr const char* FormName = "Form1";
    explicit Form1(forms::Application& application);

    forms::Frame Frame3{*this, "Frame3"};
    forms::OptionButton Option1{*this, "Option1", &Frame3};  ///< Japanese
    forms::OptionButton Option2{*this, "Option2", &Frame3};  ///< English
    forms::PictureBox Picture1{*this, "Picture1"};           ///< what shows at the start
    forms::PictureBox Picture2{*this, "Picture2"};           ///< notes in English
    forms::PictureBox Picture3{*this, "Picture3"};           ///< notes in Japanese
    forms::CommandButton Command1{*this, "Command1"};        ///< QUIT
    forms::CommandButton Command2{*this, "Command2"};        ///< NEXT
    forms::CommandButton Command3{*this, "Command3"};        ///< VERSION INFO

    /// The language base of the program: 0 until a language is chosen, then 100 (Japanese) or 273 (English). Screens
    /// work out their own from the option buttons.
    Int16 LanguageBase = 0;

    void Form_Load() override;
    void Option1_Click();
    void Option2_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

private:
    void Arrange();
    void ShowChoice(Int16 languageBase, forms::PictureBox& notes);
};

}  // namespace zirvo
