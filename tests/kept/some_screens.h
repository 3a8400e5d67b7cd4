// Screens to keep.
#pragma once
#include <string>

#include "kept/kept_screen.h"

namespace zirvo::test {

/// Two layers, a load and a point as a user leaves them in the middle of the work: valid, bad and empty cells, a box
/// open over one.
inline KeptScreen SomeScreen(const std::string& mark = "5000") {
    KeptScreen screen;
    screen.Screen = "Form3";
    screen.Units = 3;
    screen.Japanese = true;
    screen.When = 1795300200000;
    screen.Counts = {2, 1, 1};
    screen.Names = {"道路.eva", "Untitled.bre", ""};
    screen.Tables = {{.Columns = 4, .Cells = {mark, "0.35", "1x5", "", "50", " ", "\"\\\n\t", ""}},
                     {.Columns = 6, .Cells = {"49", "15", "0", "0", "0", "0"}},
                     {.Columns = 4, .Cells = {"", "", "", "1E400"}}};
    screen.Open = {.Table = 2, .Row = 0, .Column = 1, .Text = "12."};
    return screen;
}

/// Another screen of the program.
inline KeptScreen OtherScreen() {
    KeptScreen screen = SomeScreen();
    screen.Screen = "Form5";
    return screen;
}

/// The cell by which SomeScreen tells its screens apart.
inline const std::string& MarkOf(const KeptScreen& screen) {
    return screen.Tables.at(0).Cells.at(0);
}

/// For those who take any screen that is offered.
inline bool FitsAll(const KeptScreen& /*screen*/) {
    return true;
}

}  // namespace zirvo::test
