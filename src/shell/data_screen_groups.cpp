// What both data screens do with their controls in groups: enable, empty, head and fill them, see data_screen.h.
#include <array>
#include <span>

#include "grid/grid_sizing.h"
#include "shell/data_screen.h"
#include "text/number_text.h"

namespace zirvo {

void DataScreen::EnableBoxes(bool enabled) {
    for (const FileNameBox& name : its_->FileNames) {
        name.Box.Enabled = enabled;
    }
}

void DataScreen::EnableBars(bool enabled) {
    for (const DataTable& table : its_->Tables) {
        table.Bar.Enabled = enabled;
    }
}

void DataScreen::EnableGrids(bool enabled) {
    for (const DataTable& table : its_->Tables) {
        table.Grid.Enabled = enabled;
    }
}

/// All that follows the choice where the data come from.
void DataScreen::DisableSteps() {
    for (forms::CommandButton* step :
         {&its_->Command1, &its_->Command4, &its_->Command5, &its_->Command6, &its_->Command7}) {
        step->Enabled = false;
    }
}

/// That choice itself: the data are there.
void DataScreen::DisableSource() {
    its_->Option1.Enabled = false;
    its_->Option2.Enabled = false;
    its_->Command1.Enabled = false;
}

void DataScreen::ZeroCounts() {
    for (const DataTable& table : its_->Tables) {
        table.Count.Caption = "0";
    }
}

void DataScreen::ZeroBars() {
    for (const DataTable& table : its_->Tables) {
        table.Bar.Value = 0;
    }
}

void DataScreen::ClearFileNames() {
    for (const FileNameBox& name : its_->FileNames) {
        name.Box.Text = "";
    }
}

void DataScreen::SetHeadings() {
    const auto layers = LayerHeadings(Units());
    const auto loads = LoadHeadings(Units());
    const auto points = PointHeadings();
    const std::array<std::span<const Int16>, 3> headings{layers, loads, points};
    for (std::size_t i = 0; i < its_->Tables.size(); ++i) {
        forms::MSFlexGrid& grid = its_->Tables[i].Grid;
        grid.Row = 0;
        int col = 1;
        for (const Int16 k : headings.at(i)) {
            grid.SetTextMatrix(0, col++, k == 0 ? "" : Words(k));  // 0: no unit system, neither of a pair
        }
        CA_AutosizeCols(grid);
    }
}

void DataScreen::ClearHeadings() {
    for (const DataTable& table : its_->Tables) {
        table.Grid.Row = 0;
        for (int col = 1; col < table.Grid.Cols; ++col) {
            table.Grid.SetTextMatrix(0, col, "");
        }
    }
}

void DataScreen::ShowLoadedPavement(const LoadedPavement& data) {
    const DataTable& layers = its_->Tables.at(0);
    const DataTable& loads = its_->Tables.at(1);
    layers.Count.Caption = CaptionInteger(data.LayerCount);  // gives its grid the rows
    loads.Count.Caption = CaptionInteger(data.LoadCount);
    layers.Bar.Value = data.LayerCount;
    loads.Bar.Value = data.LoadCount;
    for (int i = 1; i < data.LayerCount; ++i) {
        const PavementLayer& layer = data.Layers[i];
        FillRow(layers.Grid, i, {layer.Modulus, layer.PoissonRatio, layer.Thickness, layer.SlipRate});
    }
    const PavementLayer& subgrade = data.Layers[data.LayerCount];
    FillRow(layers.Grid, data.LayerCount, {subgrade.Modulus, subgrade.PoissonRatio});
    for (int i = 1; i <= data.LoadCount; ++i) {
        const SurfaceLoad& load = data.Loads[i];
        FillRow(loads.Grid, i,
                {load.VerticalLoad, load.Radius, load.LoadX, load.LoadY, load.HorizontalLoad, load.AngleFromX});
    }
}

}  // namespace zirvo
