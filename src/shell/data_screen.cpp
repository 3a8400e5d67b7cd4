// What the two data screens share, see data_screen.h.
#include "shell/data_screen.h"

#include "shell/layout.h"
#include "text/number_text.h"

namespace zirvo {

void FillRow(forms::MSFlexGrid& grid, int row, std::initializer_list<double> values) {
    int col = 1;
    for (const double value : values) {
        grid.SetTextMatrix(row, col++, FormatNumberText(value));
    }
}

void PlaceCount(double left, double top, double barHeight, int highest, forms::Label& name, forms::Label& value,
                forms::VScrollBar& bar) {
    constexpr double width = CountColumnWidth;
    Place(name, left, top, width, 16);
    Place(value, left + 7, top + 18, width - 14, 18);
    Place(bar, left + 25, top + 40, 24, barHeight);
    name.Align = forms::Alignment::Center;
    value.Align = forms::Alignment::Center;
    value.BackColor = 0xFFFFFF;
    bar.Max = 0;
    bar.Min = highest;  // the minimum stands at the top: the value grows upwards
    bar.Enabled = false;
}

void PlaceButtonRow(const std::array<forms::CommandButton*, 7>& buttons) {
    double left = 8;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        Place(*buttons[i], left, 527, 102, 30);
        left += i == 4 ? 114 : 110;
    }
}

}  // namespace zirvo
