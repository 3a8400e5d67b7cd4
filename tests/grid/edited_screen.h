// A small screen with a grid in a frame, a box and a button, on which the editor is tried: with an editor bound by
// hand, or with one that comes with each focus of the grid, as the data screens have it.
#pragma once
#include <memory>
#include <string>

#include "forms/application.h"
#include "forms/ms_flex_grid.h"
#include "forms/screen_helpers.h"
#include "forms/scripted_desktop.h"
#include "grid/cls_flex_grid_edit.h"

namespace zirvo::test {

class EditedScreen : public forms::Form {
public:
    static constexpr const char* FormName = "EditedScreen";

    explicit EditedScreen(forms::Application& application) : Form(application, FormName) {
        Width = 9000;
        Height = 6000;
        Frame1.Move(150, 300, 6000, 3000);
        Grid.Move(300, 450, 5000, 1500);
        Grid.Rows = 4;
        Grid.Cols = 4;
        Grid.FixedRows = 1;
        Grid.FixedCols = 1;
        for (int row = 1; row < 4; ++row) {
            for (int col = 1; col < 4; ++col) {
                Grid.SetTextMatrix(row, col, CellName(row, col));
            }
        }
        Grid.Row = 1;
        Grid.Col = 1;
    }

    /// What stands in a cell at first: "110", "120", ... "330".
    static std::string CellName(int row, int col) { return std::to_string(row) + std::to_string(col) + "0"; }

    forms::CommandButton Before{*this, "Before"};
    forms::Frame Frame1{*this, "Frame1"};
    forms::MSFlexGrid Grid{*this, "Grid", &Frame1};
    forms::TextBox Other{*this, "Other"};
    forms::CommandButton Button{*this, "Button"};
    forms::ControlArray<forms::CheckBox> Check{*this, "Check", 2};
    std::shared_ptr<clsFlexGridEdit> Editor;

    /// From now on each focus of the grid brings a new editor.
    void EditOnFocus() {
        Grid.GotFocus = [this] {
            Editor = std::make_shared<clsFlexGridEdit>();
            Editor->FlexGridControl(Grid);
        };
    }
};

/// The application with that screen on show.
struct EditedWorld {
    forms::ScriptedDesktop Desktop;
    forms::Application App{Desktop};
    EditedScreen* Screen = nullptr;

    EditedWorld() {
        App.Register(EditedScreen::FormName,
                     [](forms::Application& app) { return std::make_unique<EditedScreen>(app); });
        App.Dispatch([this] {
            Screen = &App.Get<EditedScreen>();
            Screen->Show();
        });
    }
};

}  // namespace zirvo::test
