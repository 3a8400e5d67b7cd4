// The language screen, see form1.h.
#include "shell/form1.h"

#include <string>

#include "shell/layout.h"
#include "shell/start_notes.h"
#include "text/catalogue.h"
#include "text/version_stamp.h"

namespace zirvo {

Form1::Form1(forms::Application& application) : Form(application, FormName) {
    Option1.Click = [this] { Option1_Click(); };
    Option2.Click = [this] { Option2_Click(); };
    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    Command3.Click = [this] { Command3_Click(); };
    Arrange();
}

void Form1::Arrange() {
    Centered = true;
    Width = Pixels(640);
    Height = Pixels(420);
    // At the start: the picture, and the choice below it.
    Picture1.Move(Pixels(20), Pixels(20), Pixels(600), Pixels(300));
    Frame3.Move(Pixels(20), Pixels(334), Pixels(600), Pixels(66));
    Option1.Move(Pixels(24), Pixels(28), Pixels(250), Pixels(24));
    Option2.Move(Pixels(310), Pixels(28), Pixels(250), Pixels(24));
    // Behind the choice: the notes, and the buttons below them.
    Picture2.Move(Pixels(20), Pixels(20), Pixels(600), Pixels(330));
    Picture3.Move(Pixels(20), Pixels(20), Pixels(600), Pixels(330));
    Command3.Move(Pixels(20), Pixels(368), Pixels(150), Pixels(32));
    Command1.Move(Pixels(366), Pixels(368), Pixels(120), Pixels(32));
    Command2.Move(Pixels(500), Pixels(368), Pixels(120), Pixels(32));

    Frame3.Caption = "Preferred Language";
    Option1.Caption = "Japanese";
    Option2.Caption = "English";
    Picture1.Picture = "pavement";
    for (forms::PictureBox* notes : {&Picture2, &Picture3}) {
        notes->BackColor = forms::White;
        notes->Font = forms::FontSpec{.Name = {}, .Size = 10.5};
    }
    Picture2.Text = StartNotes(forms::Language::English);
    Picture3.Text = StartNotes(forms::Language::Japanese);
}

void Form1::Form_Load() {
    Caption = MakeVersionStamp(2);
    TrimSystemMenu(*this);
    Option1.Value = false;
    Option2.Value = false;
    Command1.Visible = false;
    Command1.Enabled = false;
    Command2.Visible = false;
    Command2.Enabled = false;
    Command3.Visible = false;
    Picture1.Visible = true;
    Picture2.Visible = false;
    Picture3.Visible = false;
}

void Form1::Option1_Click() {  // Japanese
    ShowChoice(JapaneseBase, Picture3);
}

void Form1::Option2_Click() {  // English
    ShowChoice(EnglishBase, Picture2);
}

void Form1::ShowChoice(Int16 languageBase, forms::PictureBox& notes) {
    Command1.Visible = true;
    Command1.Enabled = true;
    Command2.Visible = true;
    Command2.Enabled = true;
    Command1.Caption = std::string(GetMessage(languageBase, 1));
    Command2.Caption = std::string(GetMessage(languageBase, 2));
    Picture1.Visible = false;
    Picture2.Visible = &notes == &Picture2;
    Picture3.Visible = &notes == &Picture3;
    Frame3.Visible = false;  // the choice stands until the program ends
    Command3.Visible = true;
    Command3.Caption = std::string(GetMessage(languageBase, 155));
    Command2.SetFocus();
    LanguageBase = languageBase;
    App().Speak(languageBase == JapaneseBase ? forms::Language::Japanese : forms::Language::English);
}

void Form1::Command1_Click() {  // QUIT
    App().End();
}

void Form1::Command2_Click() {  // NEXT
    Hide();
    App().Show("Form2");
}

void Form1::Command3_Click() {  // VERSION INFO
    App().Show("Form7");
}

}  // namespace zirvo
