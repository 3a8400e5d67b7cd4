#include "graphics/map_starts.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "pavement/graphics_example.h"

namespace zirvo::test {

int FaultOf(const Screens& screens) {
    if (!screens.Desktop.EndStatus || screens.Desktop.Boxes.empty()) {
        return 0;
    }
    EXPECT_EQ(screens.Desktop.EndStatus, 1);
    int number = 0;
    EXPECT_EQ(std::sscanf(screens.Desktop.Boxes.back().Text.c_str(), "Run-time error '%d':", &number), 1);
    return number;
}

GraphicsInputData ThreeLayers() {
    GraphicsInputData data = ExampleData();
    data.LayerCount = 3;
    data.Layers[2] = {3000, 0.35, 10, 0};
    data.Layers[3] = {1000, 0.4, 0, 0};
    return data;
}

GraphicsInputData RoundedTop() {
    GraphicsInputData data = ExampleData();
    data.Layers[1].Thickness = 5.004;
    return data;
}

GraphicsInputData ManyLoads() {
    return LoadsSideBySide(100);
}

GraphicsInputData LoadsSideBySide(Int16 count) {
    GraphicsInputData data = ExampleData();
    data.LoadCount = count;
    for (int i = 1; i <= count; ++i) {
        data.Loads[i] = {5000, 1, 3.0 * i, 3.0 * i, 0, 0};
    }
    return data;
}

std::string EnabledButtons(const Form6& form) {
    return test::NamesOf(
        form, [](const forms::Control& control) { return control.Enabled && control.Name().starts_with("Command"); });
}

}  // namespace zirvo::test
