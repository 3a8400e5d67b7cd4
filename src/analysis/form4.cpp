// The handlers of the result viewer, see form4.h.
#include "analysis/form4.h"

#include "analysis/form3.h"
#include "analysis/report_view.h"
#include "platform/code_page.h"
#include "platform/fault_subject.h"
#include "platform/files.h"
#include "shell/form1.h"
#include "shell/form2.h"
#include "shell/layout.h"
#include "shell/screen_language.h"
#include "text/catalogue.h"
#include "text/file_helpers.h"
#include "text/version_stamp.h"

namespace zirvo {
namespace {

/// The reports are laid out in columns, so both fonts have characters of one width.
constexpr double ReportFontSize = 10;

}  // namespace

Form4::Form4(forms::Application& application) : Form(application, FormName) {
    LayOut();
    Option1.Click = [this] { Option1_Click(); };
    Option2.Click = [this] { Option2_Click(); };
    Option3.Click = [this] { Option3_Click(); };
    Option4.Click = [this] { Option4_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    Command3.Click = [this] { Command3_Click(); };
}

// In pixels of the design, of which 782 by 567 are seen: the choices on top, the report over the whole width, the
// buttons below.
void Form4::LayOut() {
    Left = 210;
    Top = 300;
    Width = 11730;
    Height = 8505;
    Place(Frame1, 8, 6, 379, 52);
    Place(Option3, 12, 22, 150, 22);
    Place(Option4, 180, 22, 190, 22);
    Place(Frame2, 395, 6, 379, 52);
    Place(Option1, 12, 22, 150, 22);
    Place(Option2, 180, 22, 190, 22);
    Place(txtContents, 8, 66, 766, 453);
    txtContents.MultiLine = true;
    txtContents.Locked = true;
    Place(Command2, 562, 527, 102, 30);
    Place(Command3, 672, 527, 102, 30);
}

void Form4::Form_Load() {
    Caption = MakeVersionStamp(2);
    TrimSystemMenu(*this);
    languageBase_ = LanguageBaseOf(App());
    ViewLanguage = LanguageOf(languageBase_);
    SetFont();
    SetCaptions();
    Option3.Value = true;  // counts as a click, and shows the whole report
    Option1.Value = true;
    ScaleToScreen(*this);
}

void Form4::SetFont() {
    const Form1& language = App().Get<Form1>();
    if (language.Option1.Value) {
        txtContents.Font = {.Name = "ＭＳ ゴシック", .Size = ReportFontSize};
    } else if (language.Option2.Value) {
        txtContents.Font = {.Name = "Courier", .Size = ReportFontSize};
    }
}

void Form4::SetCaptions() {
    const auto set = [this](auto& control, Int16 k) { control.Caption = std::string(GetMessage(languageBase_, k)); };
    set(Frame1, 28);
    set(Frame2, 29);
    set(Option3, 158);
    set(Option4, 159);
    set(Option1, 167);
    set(Option2, 168);
    set(Command2, 78);
    set(Command3, 79);
}

std::string Form4::ReportPath() const {
    const Form3& data = App().Get<Form3>();
    std::string name;
    if (Option3.Value) {
        name = data.Text8.Text;
    } else if (Option4.Value) {
        name = data.Text1.Text;
    }
    return JoinPath(App().Get<Form2>().Label2.Caption.Get(), name);
}

void Form4::Option1_Click() {  // VIEW ALL
    PageName = FileNameOf(ReportPath());
    txtContents.Enabled = true;
    txtContents.Text = ReadWholeFile(ReportPath());
}

// A report that cannot be read or has more rows than there are points is a fault here, unlike the whole view.
void Form4::Option2_Click() {  // VIEW IN SUB-DIVISIONS
    const Int16 pointCount = CountOf(App().Get<Form3>().Label9.Caption.Get());
    const std::string report = DecodeText(ReadFileBytes(ReportPath()));
    txtContents.Text = Naming(FaultMatter::File, ReportPath(), [&] {
        return SplitResultView(SplitLines(report), pointCount, languageBase_ == JapaneseBase);
    });
}

void Form4::Option3_Click() {  // RESULTS
    Option2.Value = false;
    Option2.Enabled = true;
    Option1_Click();
    Option1.Value = true;
}

void Form4::Option4_Click() {  // PRINC. VAL.: can only be seen whole
    Option2.Value = false;
    Option2.Enabled = false;
    Option1_Click();
    Option1.Value = true;
}

void Form4::Command2_Click() {  // PREVIOUS
    const forms::Answer answer = World().Show({.Text = std::string(GetMessage(languageBase_, 81)),
                                               .Title = MakeVersionStamp(3),
                                               .Choice = forms::Buttons::YesNo,
                                               .Words = LanguageOf(languageBase_)});
    Form3& data = App().Get<Form3>();
    if (answer == forms::Answer::Yes) {
        data.ReturnToEditing();
    } else {
        data.ReturnAsItWas();
        data.Command7.Enabled = true;
    }
    data.Show();
    Unload();
}

void Form4::Command3_Click() {  // QUIT
    App().End();
}

}  // namespace zirvo
