// The initial settings, see form2.h.
#include "shell/form2.h"

#include <array>
#include <optional>
#include <utility>

#include "dialogs/common_dialog.h"
#include "shell/layout.h"
#include "shell/screen_language.h"
#include "shell/settings.h"
#include "text/catalogue.h"
#include "text/version_stamp.h"

namespace zirvo {
namespace {

/// Number, from 1, of the option button that is set; 0 where none is.
template <class... Option>
Int16 NumberOfSet(const Option&... options) {
    Int16 number = 0;
    Int16 set = 0;
    ((++number, set = options.Value ? number : set), ...);
    return set;
}

}  // namespace

Form2::Form2(forms::Application& application, std::string programFolder, std::string settingsFolder)
    : Form(application, FormName),
      programFolder_(std::move(programFolder)),
      settingsFolder_(settingsFolder.empty() ? programFolder_ : std::move(settingsFolder)) {
    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    Command3.Click = [this] { Command3_Click(); };
    Command4.Click = [this] { Command4_Click(); };
    for (forms::OptionButton* unit : {&Option1, &Option2, &Option3}) {
        unit->Click = [this] { Unit_Click(); };
    }
    for (forms::OptionButton* objective : {&Option4, &Option5}) {
        objective->Click = [this] { Objective_Click(); };
    }
    Arrange();
}

void Form2::Arrange() {
    Centered = true;
    Width = Pixels(560);
    Height = Pixels(416);
    Label1.Move(Pixels(20), Pixels(14), Pixels(520), Pixels(26));
    Label1.Align = forms::Alignment::Center;
    Label1.Font = forms::FontSpec{.Name = {}, .Size = 13, .Bold = true};
    Frame1.Move(Pixels(20), Pixels(46), Pixels(520), Pixels(86));
    Label2.Move(Pixels(16), Pixels(26), Pixels(374), Pixels(46));  // three lines of a long path
    Label2.BackColor = forms::White;
    Command1.Move(Pixels(404), Pixels(33), Pixels(100), Pixels(32));
    Frame2.Move(Pixels(20), Pixels(142), Pixels(520), Pixels(114));
    Option1.Move(Pixels(16), Pixels(26), Pixels(488), Pixels(24));
    Option2.Move(Pixels(16), Pixels(53), Pixels(488), Pixels(24));
    Option3.Move(Pixels(16), Pixels(80), Pixels(488), Pixels(24));
    Frame3.Move(Pixels(20), Pixels(266), Pixels(520), Pixels(66));
    Option4.Move(Pixels(16), Pixels(28), Pixels(230), Pixels(24));
    Option5.Move(Pixels(274), Pixels(28), Pixels(230), Pixels(24));
    Command2.Move(Pixels(20), Pixels(362), Pixels(110), Pixels(34));
    Command3.Move(Pixels(306), Pixels(362), Pixels(110), Pixels(34));
    Command4.Move(Pixels(430), Pixels(362), Pixels(110), Pixels(34));
}

void Form2::Form_Load() {
    Caption = MakeVersionStamp(2);
    TrimSystemMenu(*this);
    languageBase_ = LanguageBaseOf(App());
    RestoreOrClear();
    if (!startFolder_.empty() && IsGoodFolder(startFolder_)) {
        TakeFolder(startFolder_);
    }
    SetCaptions();
}

void Form2::RestoreOrClear() {
    const std::optional<Settings> settings = LoadSettings(settingsFolder_);
    if (!settings || !IsGoodFolder(settings->WorkFolder)) {
        StartEmpty();
        return;
    }
    Label2.Caption = settings->WorkFolder;
    const std::array units{&Option1, &Option2, &Option3};
    if (settings->UnitSystem >= 1 && settings->UnitSystem <= 3) {
        units[static_cast<std::size_t>(settings->UnitSystem - 1)]->Value = true;
    }
    if (settings->Objective == 1) {
        Option4.Value = true;
    } else if (settings->Objective == 2) {
        Option5.Value = true;
    }
    Command4.Enabled = true;
    Command1.Enabled = true;
}

void Form2::StartEmpty() {
    for (forms::OptionButton* option : {&Option1, &Option2, &Option3, &Option4, &Option5}) {
        option->Enabled = false;
    }
    for (forms::OptionButton* option : {&Option1, &Option2, &Option3, &Option4, &Option5}) {
        option->Value = false;
    }
    Label2.Caption = "";
    Command4.Enabled = false;
    Command1.Enabled = true;
}

void Form2::SetCaptions() {
    const auto message = [this](Int16 k) { return std::string(GetMessage(languageBase_, k)); };
    Label1.Caption = message(3);
    Frame1.Caption = message(4);
    Command1.Caption = message(5);
    Frame2.Caption = message(6);
    Option1.Caption = message(7);
    Option2.Caption = message(8);
    Option3.Caption = message(9);
    Frame3.Caption = message(165);
    Option4.Caption = message(160);
    Option5.Caption = message(161);
    Command2.Caption = message(10);
    Command3.Caption = message(11);
    Command4.Caption = message(12);
}

Int16 Form2::UnitSystem() const {
    return NumberOfSet(Option1, Option2, Option3);
}

Int16 Form2::Objective() const {
    return NumberOfSet(Option4, Option5);
}

void Form2::Command1_Click() {  // SEARCH
    const std::optional<std::string> folder = ChooseFolderDialog(*this, std::string(GetMessage(languageBase_, 13)),
                                                                 Label2.Caption, LanguageOf(languageBase_));
    TakeFolder(folder.value_or(Label2.Caption));
}

void Form2::TakeFolder(const std::string& folder) {
    Label2.Caption = folder;
    if (!Label2.Caption.Get().empty()) {
        Option1.Enabled = true;
        Option2.Enabled = true;
        Option3.Enabled = true;
    }
}

void Form2::Unit_Click() {
    Option4.Enabled = true;
    Option5.Enabled = true;
}

void Form2::Objective_Click() {
    Show();  // also within the load, since no control of a hidden form takes the focus
    Command4.Enabled = true;
    Command4.SetFocus();
}

void Form2::Command2_Click() {  // HELP
    OpenHelp(*this, programFolder_);
}

void Form2::Command3_Click() {  // QUIT
    App().End();
}

void Form2::Command4_Click() {  // NEXT
    const Int16 objective = Objective();
    WorkFolder = Label2.Caption;
    SaveSettings(WorkFolder, UnitSystem(), objective, settingsFolder_);
    if (objective == 0) {
        return;  // no screen would come, so this one stays
    }
    Hide();
    App().Show(objective == 1 ? "Form3" : "Form5");
}

}  // namespace zirvo
