// A small screen of two counted tables, with the choice, the box and the button that replace its data: the shape of the
// data screens.
#pragma once
#include <memory>
#include <string>

#include "forms/application.h"
#include "forms/screen_helpers.h"
#include "forms/scripted_desktop.h"
#include "grid/edit_history.h"
#include "grid/grid_sizing.h"

namespace zirvo::test {

class CountedScreen : public forms::Form {
public:
    static constexpr const char* FormName = "CountedScreen";

    explicit CountedScreen(forms::Application& application) : Form(application, FormName) {
        BindTable(Count1, Bar1, Grid1);
        BindTable(Count2, Bar2, Grid2);
        Bar1.Min = 100;
        Bar2.Min = 10000;
        New.Click = [this] {
            ++Clicks;
            Count1.Caption = "0";
            Count2.Caption = "0";
            Name.Text = "Untitled";
            Go.Enabled = true;
        };
        Go.Enabled = false;
        Fix.Click = [this] {
            Grid1.Enabled = false;
            Grid2.Enabled = false;
        };
        Count1.Caption = "0";
        Count2.Caption = "0";
    }

    forms::OptionButton Old{*this, "Old"};
    forms::OptionButton New{*this, "New"};
    forms::Label Count1{*this, "Count1"};
    forms::Label Count2{*this, "Count2"};
    forms::VScrollBar Bar1{*this, "Bar1"};
    forms::VScrollBar Bar2{*this, "Bar2"};
    forms::MSFlexGrid Grid1{*this, "Grid1"};
    forms::MSFlexGrid Grid2{*this, "Grid2"};
    forms::TextBox Name{*this, "Name"};
    forms::CommandButton Go{*this, "Go"};
    forms::CommandButton Fix{*this, "Fix"};
    EditHistory History{*this, {{Count1, Bar1, Grid1}, {Count2, Bar2, Grid2}}};
    int Clicks = 0;
    int Changes = 0;  ///< of both bars

private:
    void BindTable(forms::Label& count, forms::VScrollBar& bar, forms::MSFlexGrid& grid) {
        grid.Cols = 5;
        grid.Move(0, 0, 6000, 3000);
        bar.Max = 0;
        bar.Change = [this, &bar, &count] {
            ++Changes;
            count.Caption = " " + std::to_string(bar.Value);
        };
        count.Change = [&grid, &count] { FollowCount(grid, static_cast<Int16>(std::stoi(count.Caption)), "ROW"); };
    }
};

struct CountedWorld {
    forms::ScriptedDesktop Desktop;
    forms::Application App{Desktop};
    CountedScreen* Screen = nullptr;

    CountedWorld() {
        App.Register(CountedScreen::FormName,
                     [](forms::Application& app) { return std::make_unique<CountedScreen>(app); });
        App.Dispatch([this] {
            Screen = &App.Get<CountedScreen>();
            Screen->Show();
        });
        Screen->History.Forget();
        Screen->Changes = 0;
    }
    void Write(forms::MSFlexGrid& grid, int row, int col, const std::string& text) {
        App.Dispatch([&] { grid.SetTextMatrix(row, col, text); });
    }
    /// All that a user sees of a table, for comparisons: caption, bar, headings and cells.
    static std::string Seen(const forms::Label& count, const forms::VScrollBar& bar, const forms::MSFlexGrid& grid) {
        std::string seen = count.Caption.Get() + "|" + std::to_string(bar.Value);
        for (int row = 1; row < grid.Rows; ++row) {
            seen += "\n";
            for (int col = 0; col < grid.Cols; ++col) {
                seen += grid.TextMatrix(row, col) + ";";
            }
        }
        return seen;
    }
    std::string Seen() const {
        return Seen(Screen->Count1, Screen->Bar1, Screen->Grid1) + "\n" +
               Seen(Screen->Count2, Screen->Bar2, Screen->Grid2) + "\n" + Screen->Name.Text.Get() +
               (Screen->New.Value ? " new" : "") + (Screen->Old.Value ? " old" : "") +
               (Screen->Go.Enabled ? " go" : "");
    }
};

}  // namespace zirvo::test
