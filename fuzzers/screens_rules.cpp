// The rules of the screens, see screens_rules.h: those of every form first, then the tables of each.
#include "screens_rules.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>

#include "base/utf8.h"
#include "pavement/pavement_rules.h"
#include "support/fuzzing.h"

namespace zirvo::fuzz {
namespace {

using forms::Control;
using forms::Form;

std::string NameOf(const Form& form, const Control& control) {
    return form.Name() + "." + control.Name();
}

// Every form ----------------------------------------------------------------------------------------------------------

void RequireFocus(const Form& form) {
    const Control* active = form.ActiveControl();
    if (active == nullptr) {
        Require(form.NextTabStop(nullptr, false) == nullptr, form.Name() + " holds no focus only where none can be");
        return;
    }
    Require(form.Controls.Contains(*active) && !active->IsGone(), form.Name() + ": the focus is on a control");
    Require(active->TakesFocus() && active->IsUsable(), NameOf(form, *active) + ": the focus is on a usable control");
}

void RequireText(const std::string& name, const std::string& text, int start, int length) {
    Require(IsValidUtf8(text), name + " holds UTF-8");
    Require(start >= 0 && length >= 0 && start <= static_cast<int>(CharacterCount(text)),
            name + ": the caret stands in the text");
}

void RequireGrid(const std::string& name, const forms::MSFlexGrid& grid) {
    Require(grid.Row >= 0 && grid.Row < grid.Rows && grid.Col >= 0 && grid.Col < grid.Cols,
            name + ": the current cell is one of the grid");
    Require(grid.TopRow >= grid.FixedRows && grid.LeftCol >= grid.FixedCols, name + " shows data under its headings");
    Require(grid.TopRow <= std::max<int>(grid.LastTopRow(), grid.FixedRows), name + " is not scrolled beyond its end");
    const forms::MSFlexGrid::Cell marked = grid.MarkedCell();
    Require(marked.Row < grid.Rows && marked.Col < grid.Cols, name + ": the marked cell is one of the grid");
}

void RequireValues(const Form& form) {
    for (const Control* control : form.Controls) {
        const std::string name = NameOf(form, *control);
        if (const auto* box = dynamic_cast<const forms::TextBox*>(control)) {
            RequireText(name, box->Text, box->SelStart, box->SelLength);
        } else if (const auto* combo = dynamic_cast<const forms::ComboBox*>(control)) {
            RequireText(name, combo->Text, combo->SelStart, combo->SelLength);
            Require(combo->ListIndex >= -1 && combo->ListIndex < combo->ListCount(), name + ": an entry or none");
        } else if (const auto* bar = dynamic_cast<const forms::VScrollBar*>(control)) {
            Require(bar->Value >= std::min<int>(bar->Min, bar->Max) && bar->Value <= std::max<int>(bar->Min, bar->Max),
                    name + ": the value lies between its ends");
        } else if (const auto* grid = dynamic_cast<const forms::MSFlexGrid*>(control)) {
            RequireGrid(name, *grid);
        }
    }
}

/// Of the controls that come at run time there is at most the one box of the editor in service.
void RequireNothingLeftBehind(const Form& form) {
    int boxes = 0;
    for (const Control* control : form.Controls) {
        boxes += control->Name().starts_with("tbFgEdit") ? 1 : 0;
        Require(!control->IsGone(), NameOf(form, *control) + " is gone and still there");
    }
    Require(boxes <= 1, form.Name() + " has one editor at most");
}

void RequireOneOfEachGroup(const Form& form) {
    for (const Control* control : form.Controls) {
        const auto* option = dynamic_cast<const forms::OptionButton*>(control);
        if (option == nullptr || !option->Value) {
            continue;
        }
        for (const Control* other : form.Controls) {
            const auto* fellow = dynamic_cast<const forms::OptionButton*>(other);
            Require(
                fellow == nullptr || fellow == option || fellow->Container() != option->Container() || !fellow->Value,
                NameOf(form, *control) + " is the only one of its group");
        }
    }
}

// The tables of the screens -------------------------------------------------------------------------------------------

/// 'x' or '.' where all agree, '#' where they do not.
template <class... Controls>
char Enabled(const Controls&... controls) {
    const int count = (static_cast<int>(controls.Enabled.Get()) + ...);
    return count == 0 ? '.' : count == static_cast<int>(sizeof...(controls)) ? 'x' : '#';
}

void RequireForm1(const Form1& form) {
    const bool chosen = form.Option1.Value || form.Option2.Value;
    Require(chosen == (form.LanguageBase != 0), "Form1: a choice is a language");
    Require(form.Command1.IsUsable() == chosen && form.Command2.IsUsable() == chosen &&
                form.Command3.IsUsable() == chosen && form.Frame3.Visible == !chosen,
            "Form1: the buttons come with the choice, which goes");
}

void RequireForm2(const Form2& form) {
    Require(form.Command1.Enabled && form.Command2.Enabled && form.Command3.Enabled,
            "Form2: SEARCH, HELP and QUIT are always there");
    Require(Enabled(form.Option1, form.Option2, form.Option3) != '#' && Enabled(form.Option4, form.Option5) != '#',
            "Form2: the options of a group are enabled together");
    Require(!form.Command4.Enabled || !form.Label2.Caption.Get().empty(), "Form2: NEXT needs a folder");
}

void RequireForm4(const Form4& form) {
    Require(form.Option3.Value != form.Option4.Value && form.Option1.Value != form.Option2.Value,
            "Form4: one report in one view");
    Require(form.Option2.Enabled == form.Option3.Value, "Form4: only the results can be divided");
    Require(form.Command2.Enabled && form.Command3.Enabled, "Form4: the ways out are there");
}

/// What is enabled on a data screen: both options, OPEN FILE, PREVIOUS, CLEAR FORM, DATA OK!, SAVE DATA, the way on,
/// the boxes, the bars. Whether the grids are depends on the counts that have changed, where the table has "?".
struct DataState {
    const char* Enabled;
    char Grids;
};
constexpr std::array DataStates{
    DataState{"x.x......", '?'},  // empty
    DataState{"x.xxx..xx", '?'},  // new data
    DataState{"xxxx.....", '?'},  // a file is to be chosen
    DataState{"..xxx..xx", '?'},  // imported data that can be changed
    DataState{"..xx..x..", '.'},  // imported as they are, or saved
    DataState{"..xx.x...", '.'},  // checked
    DataState{"..xxx....", '.'},  // overwriting was refused
    DataState{"..xx.....", '.'},  // behind a run that left no report
};

void RequireDataState(const std::string& name, const std::string& enabled, char grids) {
    const auto found = std::find_if(DataStates.begin(), DataStates.end(), [&](const DataState& state) {
        return enabled == state.Enabled && (state.Grids == '?' || state.Grids == grids);
    });
    Require(found != DataStates.end(), name + " is in a state of its table, not in " + enabled + grids);
}

void RequireCount(const std::string& name, const forms::Label& count, const forms::VScrollBar& bar,
                  const forms::MSFlexGrid& grid) {
    const int rows = CountOf(count.Caption.Get());
    Require(grid.Rows == rows + 1, name + " has as many rows as its count says");
    Require(rows == 0 || bar.Value == rows, name + ": the bar stands at the count");
}

void RequireForm3(const Form3& form) {
    RequireDataState(
        "Form3",
        {Enabled(form.Option1, form.Option2), Enabled(form.Command1), Enabled(form.Command3), Enabled(form.Command4),
         Enabled(form.Command5), Enabled(form.Command6), Enabled(form.Command7),
         Enabled(form.Text7, form.Text8, form.Text1), Enabled(form.VScroll1, form.VScroll2, form.VScroll3)},
        Enabled(form.MSFlexGrid1, form.MSFlexGrid2, form.MSFlexGrid3));
    Require(form.Command8.Enabled && form.Command9.Enabled && !form.Text9.Visible,
            "Form3: HELP and QUIT are there, and no note, while nothing runs");
    RequireCount("Form3.layers", form.Label7, form.VScroll1, form.MSFlexGrid1);
    RequireCount("Form3.loads", form.Label8, form.VScroll2, form.MSFlexGrid2);
    RequireCount("Form3.points", form.Label9, form.VScroll3, form.MSFlexGrid3);
}

void RequireForm5(const Form5& form) {
    RequireDataState("Form5",
                     {Enabled(form.Option1, form.Option2), Enabled(form.Command1), Enabled(form.Command3),
                      Enabled(form.Command4), Enabled(form.Command5), Enabled(form.Command6), Enabled(form.Command7),
                      Enabled(form.Text3), Enabled(form.VScroll1, form.VScroll2)},
                     Enabled(form.MSFlexGrid1, form.MSFlexGrid2));
    Require(form.Command8.Enabled && form.Command9.Enabled, "Form5: HELP and QUIT are always there");
    RequireCount("Form5.layers", form.Label4, form.VScroll1, form.MSFlexGrid1);
    RequireCount("Form5.loads", form.Label5, form.VScroll2, form.MSFlexGrid2);
}

void RequireForm6(const Form6& form) {
    Require(!form.Option5.Enabled && Enabled(form.Option3, form.Option4) != '#',
            "Form6: two sections are offered together, the third never");
    Require(form.Command1.Visible != form.Command10.Visible, "Form6: one start button is seen");
    Require(form.Text1.Visible == form.Option3.Value && form.Label1.Visible == form.Option3.Value &&
                form.Text2.Visible == form.Option4.Value && form.Label2.Visible == form.Option4.Value,
            "Form6: the position belongs to the section");
    const char items = Enabled(form.Check1(0), form.Check1(1), form.Check1(2), form.Check1(3), form.Check1(4));
    Require(items != '#' && (items == 'x') == form.DataReady, "Form6: the display items come with a map");
    Require(form.Text3.Enabled == form.DataReady && form.Text4.Enabled == form.DataReady &&
                form.Command7.Enabled == form.DataReady,
            "Form6: range and SAVE PICTURE come with a map");
    Require(form.DataReady || !form.Command5.Enabled, "Form6: RE-DRAW needs a map");
    Require(!form.Check1(4).Value || (form.Check1(3).Value && !form.Check1(2).Value),
            "Form6: results stand with their points and without the legend");
    Require(form.Frame4.Visible == form.ContourPanelOpen && !form.Label24.Visible,
            "Form6: the panel is open or not, and nothing runs");
    Require(form.Command2.Enabled || form.Command9.Enabled, "Form6: there is a way out");
}

/// Files are written under a temporary name, which is gone behind the act.
void RequireNoTemporary(const std::string& folder) {
    std::error_code gone;
    for (const auto& entry : std::filesystem::directory_iterator(folder, gone)) {
        const std::string name = entry.path().filename().string();
        Require(!name.starts_with(".zirvo-"), "no temporary file is left behind");
    }
}

template <class Screen>
void RequireIfLoaded(ScreensProgram& program, void (*rules)(const Screen&)) {
    if (const Screen* form = program.Loaded<Screen>()) {
        rules(*form);
    }
}

}  // namespace

void RequireRules(ScreensProgram& program) {
    RequireNoTemporary(program.Folders.Work);
    RequireNoTemporary(program.Folders.Program);
    if (program.App.HasEnded()) {
        Require(program.Desktop.EndStatus.has_value(), "a program that has ended has told so");
        Require((*program.Desktop.EndStatus == 1) == program.Desktop.FaultShown,
                "a fault ends the program with status 1, and nothing else does");
        return;
    }
    Require(!program.Desktop.FaultShown, "a fault ends the program");
    int visible = 0;
    for (const char* name : ScreensProgram::FormNames) {
        const Form* form = program.App.Find(name);
        if (form == nullptr) {
            continue;
        }
        RequireValues(*form);
        RequireNothingLeftBehind(*form);
        RequireOneOfEachGroup(*form);
        if (form->IsVisible()) {
            RequireFocus(*form);
            visible += form->Name() == Form7::FormName ? 0 : 1;
        }
    }
    Require(visible == 1, "one screen stands before the user");
    RequireIfLoaded(program, RequireForm1);
    RequireIfLoaded(program, RequireForm2);
    RequireIfLoaded(program, RequireForm3);
    RequireIfLoaded(program, RequireForm4);
    RequireIfLoaded(program, RequireForm5);
    RequireIfLoaded(program, RequireForm6);
}

}  // namespace zirvo::fuzz
