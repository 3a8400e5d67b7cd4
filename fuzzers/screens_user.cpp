// The acts of a random user, see screens_user.h.
#include "screens_user.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "base/utf8.h"
#include "support/fuzzing.h"
#include "support/work_folder.h"

namespace zirvo::fuzz {
namespace {

using forms::Control;
using forms::Form;
namespace key = forms::key;

/// What the keys of this user write.
constexpr std::u32string_view Letters =
    U"0123456789.-+eEdD ,\t\r\b\x1b"
    U"ax_/\\:\"\nあｱß~ÿ";

constexpr std::array NamedKeys{key::Backspace, key::Tab,    key::Enter, key::Escape, key::Space, key::PageUp,
                               key::PageDown,  key::End,    key::Home,  key::Left,   key::Up,    key::Right,
                               key::Down,      key::Delete, key::F1,    key::F4,     key::Shift, key::Control};

/// Files that are put, replaced and removed under the screens' feet.
constexpr std::array FileNames{"road.eva",     "road.ven",     "Untitled.eva", "Untitled.ven",
                               "Untitled.bre", "Untitled.san", "ZIRVO_SV.TMP", "ZIRVO_SV.EVA",
                               "ZIRVO_SV.BRE", "ZIRVO_SV.CSV", "Initial_File", "picture.svg"};

std::string SampleBytes(const std::string& name) {
    std::ifstream file(std::string(ZIRVO_SAMPLES) + "/" + name, std::ios::binary);
    Require(file.is_open(), "the samples are there");
    return {std::istreambuf_iterator<char>(file), {}};
}

const std::string& SampleFile(std::size_t choice) {
    static const std::array files{SampleBytes("road.eva"), SampleBytes("road.ven"), SampleBytes("braking.eva"),
                                  SampleBytes("braking.ven")};
    return files[choice % files.size()];
}

}  // namespace

/// The form in front of the user: one that is on the screen.
Form* RandomUser::Screen() {
    std::vector<Form*> shown;
    for (const char* name : ScreensProgram::FormNames) {
        Form* form = program_.App.Find(name);
        if (form != nullptr && form->IsVisible()) {
            shown.push_back(form);
        }
    }
    return shown.empty() ? nullptr : shown.size() == 1 ? shown.front() : shown[source_.Below(shown.size())];
}

std::string RandomUser::SomeText() {
    std::u32string text;
    for (std::size_t left = source_.Below(12); left > 0; --left) {
        text += Letters[source_.Below(Letters.size())];
    }
    return FromCharacters(text);
}

void RandomUser::Act() {
    program_.Desktop.Questions = 0;
    Form* form = Screen();
    const std::uint8_t act = source_.Byte();
    if (act % 16 >= 12) {
        switch (act % 16) {
            case 12:
                program_.Desktop.RunWaiting();
                break;
            case 13:
                program_.Desktop.Clipboard = source_.Flag() ? SomeText() : SomeText() + "\t" + SomeText() + "\r\n1\t2";
                break;
            default:
                ChangeFiles();
                break;
        }
        return;
    }
    if (form == nullptr) {
        return;
    }
    switch (act % 16) {
        case 0:
        case 1:
        case 2:
            ClickSomething(*form, true);
            break;
        case 3:
            ClickSomething(*form, false);
            break;
        case 4:
        case 5:
            Strike(*form);
            break;
        case 6:
        case 7:
            TypeSomething(*form);
            break;
        case 8:
            Edit(*form);
            break;
        case 9:
            Drop(*form);
            break;
        case 10:
            form->UserClose();
            break;
        default: {
            constexpr std::array scales{1.0, 1.5, 0.5, 3.0};
            const double scale = scales[source_.Below(scales.size())];
            program_.App.Dispatch([form, scale] {
                form->TextSizesChanged();
                for (Control* control : form->Controls) {
                    if (auto* grid = dynamic_cast<forms::MSFlexGrid*>(control)) {
                        grid->UserScaleCells(scale);
                    }
                }
            });
            break;
        }
    }
}

void RandomUser::ClickSomething(Form& form, bool usableOnly) {
    std::vector<Control*> controls;
    for (Control* control : form.Controls) {
        const bool picture = dynamic_cast<forms::PictureBox*>(control) != nullptr;
        if (!usableOnly || (control->IsUsable() && (control->TakesFocus() || picture))) {
            controls.push_back(control);
        }
    }
    if (!controls.empty()) {
        ClickOn(*controls[source_.Below(controls.size())]);
    }
}

void RandomUser::ClickOn(Control& control) {
    if (auto* button = dynamic_cast<forms::CommandButton*>(&control)) {
        button->UserClick();
    } else if (auto* option = dynamic_cast<forms::OptionButton*>(&control)) {
        option->UserClick();
    } else if (auto* check = dynamic_cast<forms::CheckBox*>(&control)) {
        check->UserClick();
    } else if (auto* bar = dynamic_cast<forms::VScrollBar*>(&control)) {
        ClickOnBar(*bar);
    } else if (auto* grid = dynamic_cast<forms::MSFlexGrid*>(&control)) {
        ClickInGrid(*grid);
    } else if (auto* picture = dynamic_cast<forms::PictureBox*>(&control)) {
        const int mouseButton = source_.Between(1, 2);
        const int x = source_.Between(-5, 600);
        picture->UserMouseDown(mouseButton, x, source_.Between(-5, 600));
    } else if (auto* combo = dynamic_cast<forms::ComboBox*>(&control)) {
        if (combo->ListCount() > 0 && combo->IsUsable()) {
            combo->UserChoose(static_cast<int>(source_.Below(static_cast<std::size_t>(combo->ListCount()))));
        }
    } else if (control.TakesFocus()) {
        control.UserFocus();
    }
}

void RandomUser::ClickInGrid(forms::MSFlexGrid& grid) {
    const std::uint8_t kind = source_.Byte();
    const int row = static_cast<int>(source_.Below(static_cast<std::size_t>(grid.Rows)));
    const int col = static_cast<int>(source_.Below(static_cast<std::size_t>(grid.Cols)));
    switch (kind % 4) {
        case 0:
            grid.UserScrollTo(row, col);
            break;
        case 1:
            grid.UserClickCell(row, col);
            grid.UserDoubleClickCell(row, col);
            break;
        default:
            grid.UserClickCell(row, col);
            break;
    }
}

void RandomUser::ClickOnBar(forms::VScrollBar& bar) {
    const std::uint8_t kind = source_.Byte();
    const int held = kind >= 128 ? kind * 20 : 0;
    switch (kind % 4) {
        case 0:
            bar.UserStepToMax(held);
            break;
        case 1:
            bar.UserRelease(source_.Between(0, 12));
            break;
        default:
            bar.UserStepToMin(held);
            break;
    }
}

void RandomUser::Strike(Form& form) {
    const std::uint8_t kind = source_.Byte();
    if (kind < 128) {
        form.Strike(forms::StrokeOfKey(NamedKeys[kind % NamedKeys.size()], kind >= 96));
    } else if (kind < 192) {
        constexpr std::string_view letters = "CVAZYXM";
        form.Strike(forms::StrokeOfControl(letters[kind % letters.size()]));
    } else {
        forms::KeyStroke stroke = forms::StrokeOf(Letters[source_.Below(Letters.size())]);
        stroke.Alt = kind % 8 == 0;
        stroke.HeldFor = kind % 4 == 1 ? 700 : 0;
        form.Strike(stroke);
    }
}

/// Characters one by one, as long as the form is there to get them.
void RandomUser::TypeSomething(Form& form) {
    const std::string name = form.Name();
    for (const char32_t character : ToCharacters(SomeText())) {
        if (program_.App.Find(name) != &form || program_.App.HasEnded()) {
            return;
        }
        form.Strike(forms::StrokeOf(character));
    }
}

/// What the view's own editing hands in: a text, a caret, a choice of text, a paste.
void RandomUser::Edit(Form& form) {
    Control* active = form.ActiveControl();
    const std::uint8_t kind = source_.Byte();
    const std::string text = SomeText();
    const int size = static_cast<int>(CharacterCount(text));
    if (auto* box = dynamic_cast<forms::TextBox*>(active)) {
        switch (kind % 3) {
            case 0:
                box->UserEdited(text, size, 0);
                break;
            case 1:
                box->Paste(text);
                break;
            default:
                box->UserSelected(0, static_cast<int>(CharacterCount(box->Text.Get())));
                break;
        }
    } else if (auto* combo = dynamic_cast<forms::ComboBox*>(active)) {
        if (kind % 3 == 0) {
            combo->UserEdited(text, size, 0);
        } else {
            combo->ListOpen = kind % 3 == 1;
        }
    }
}

void RandomUser::Drop(Form& form) {
    const std::string path =
        (source_.Flag() ? folders_.Work : folders_.Other) + "/" + FileNames[source_.Below(FileNames.size())];
    if (form.TakesFile(path)) {
        form.UserDrop(path);
    }
}

void RandomUser::ChangeFiles() {
    const std::uint8_t kind = source_.Byte();
    const std::string& folder = kind >= 224 ? folders_.Other : folders_.Work;
    const std::string path = folder + "/" + FileNames[source_.Below(FileNames.size())];
    std::error_code ignored;
    switch (kind % 8) {
        case 0:
            std::filesystem::remove_all(path, ignored);
            break;
        case 1:
            std::filesystem::remove_all(path, ignored);
            std::filesystem::create_directory(path, ignored);
            break;
        case 2:
            PutFile(path, source_.Text(source_.Below(100)));
            break;
        case 3:
            if (kind < 8) {
                PutFile(folders_.Program + "/zirvo_sv.ini", source_.Text(source_.Below(60)));
            } else if (kind < 16) {
                std::filesystem::remove_all(folders_.Work, ignored);
            } else {
                PutFile(path, "");
            }
            break;
        default:
            PutFile(path, SampleFile(source_.Byte()));
            break;
    }
}

}  // namespace zirvo::fuzz
