// The version screen, see form7.h.
#include "shell/form7.h"

#include "shell/form1.h"
#include "shell/layout.h"
#include "shell/start_notes.h"
#include "shell/update_history.h"
#include "text/version_stamp.h"

namespace zirvo {

Form7::Form7(forms::Application& application) : Form(application, FormName) {
    Command1.Click = [this] { Command1_Click(); };
    const auto closeByEscape = [this](int& keyCode) {
        if (keyCode == forms::key::Escape) {
            Command1_Click();
        }
    };
    Text1.KeyDown = closeByEscape;
    Command1.KeyDown = closeByEscape;
    Arrange();
}

void Form7::Arrange() {
    Centered = true;
    Width = Pixels(700);
    Height = Pixels(480);
    Label1.Move(Pixels(20), Pixels(18), Pixels(660), Pixels(28));
    Label1.Font = forms::FontSpec{.Name = {}, .Size = 14, .Bold = true};
    const auto row = [](forms::Label& name, forms::Label& value, double top) {
        name.Move(Pixels(20), top, Pixels(90), Pixels(20));
        value.Move(Pixels(114), top, Pixels(566), Pixels(20));
    };
    row(Label4, Label7, Pixels(56));
    row(Label5, Label8, Pixels(78));
    row(Label6, Label9, Pixels(100));
    Label2.Move(Pixels(20), Pixels(130), Pixels(660), Pixels(20));
    Label3.Move(Pixels(20), Pixels(150), Pixels(660), Pixels(20));
    Label10.Move(Pixels(20), Pixels(182), Pixels(660), Pixels(20));
    Label10.Font = forms::FontSpec{.Name = {}, .Bold = true};
    Text1.Move(Pixels(20), Pixels(204), Pixels(660), Pixels(212));
    Text1.MultiLine = true;
    Text1.Locked = true;
    Command1.Move(Pixels(570), Pixels(430), Pixels(110), Pixels(32));
    Command1.Default = true;  // Enter closes the screen, as Esc does, also while the history is being read
}

void Form7::Form_Load() {
    Caption = "";
    TrimSystemMenu(*this);
    SetFixedLabels();
    const Form1& first = App().Get<Form1>();
    if (first.Option1.Value) {
        ViewLanguage = forms::Language::Japanese;
        Text1.Text = UpdateHistory(ViewLanguage);
        Caption = "ZIRVO のﾊﾞｰｼﾞｮﾝ情報";
        Label10.Caption = "更新履歴";
    } else if (first.Option2.Value) {
        Text1.Text = UpdateHistory(forms::Language::English);
        Caption = "Version Information for ZIRVO";
        Label10.Caption = "UPDATE HISTORY";
    }
}

void Form7::SetFixedLabels() {
    Label1.Caption = "ZIRVO for Windows";
    Label4.Caption = "Version";
    Label7.Caption = MakeVersionStamp(0);
    Label5.Caption = "Home Page";
    Label8.Caption = "see README.md";
    Label6.Caption = "E-mail";
    Label9.Caption = "see README.md";
    Label2.Caption = RightsLine;
    Label3.Caption = LicenseLine;
    Command1.Caption = "OK";
}

void Form7::Command1_Click() {
    Unload();
}

}  // namespace zirvo
