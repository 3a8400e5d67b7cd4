// The grid and its acts, see grid_binding.h; how it is painted stands in grid_widget.cpp.
#include "qt/widgets/grid_binding.h"
#include "forms/form.h"
#include "forms/text_box.h"
#include "qt/widgets/accessible_grid.h"

namespace zirvo::widgets {

GridBinding::GridBinding(forms::MSFlexGrid& grid, QWidget& parent)
    : ControlBinding(grid, *new GridWidget(grid, parent)), grid_(grid), shown_(static_cast<GridWidget&>(Widget())) {
    ServeAccessibleGrids();
    shown_.setAttribute(Qt::WA_InputMethodEnabled);
    shown_.CellPressed = [this](int row, int col) {
        Act([&] {
            if (row < 0 || col < 0) {
                grid_.UserFocus();
            } else {
                grid_.UserClickCell(row, col);
            }
        });
    };
    shown_.CellDoubleClicked = [this](int row, int col) {
        Act([&] {
            if (row >= 0 && col >= 0) {
                grid_.UserDoubleClickCell(row, col);
            }
        });
    };
    shown_.ScrolledTo = [this](int topRow, int leftCol) { Act([&] { grid_.UserScrollTo(topRow, leftCol); }); };
    connect(&shown_.Vertical(), &QScrollBar::valueChanged, this,
            [this](int value) { Act([&] { grid_.UserScrollTo(value, grid_.LeftCol); }); });
    connect(&shown_.Horizontal(), &QScrollBar::valueChanged, this,
            [this](int value) { Act([&] { grid_.UserScrollTo(grid_.TopRow, value); }); });
}

bool GridBinding::Commit(const QString& text) {
    // The first character opens the editor of the cell, and what follows goes on in its box.
    forms::Form& form = grid_.Parent();
    for (const uint character : text.toUcs4()) {
        if (!MayAct()) {
            break;
        }
        if (auto* box = dynamic_cast<forms::TextBox*>(form.ActiveControl())) {
            box->Type(QString::fromUcs4(reinterpret_cast<const char32_t*>(&character), 1).toStdString());
        } else {
            form.UserKey(forms::StrokeOf(static_cast<char32_t>(character)));
        }
    }
    return true;
}

void GridBinding::ShowState() {
    shown_.ShowAll();
    shown_.setAccessibleDescription(CurrentCellInWords());
}

/// Tells of the current cell, where someone listens.
void GridBinding::TellAssistance(QAccessible::Event event) {
    QAccessibleInterface* table = shown_.IsRead() ? QAccessible::queryAccessibleInterface(&shown_) : nullptr;
    if (table == nullptr || grid_.Row < grid_.FixedRows || grid_.Col < grid_.FixedCols) {
        return;
    }
    if (event == QAccessible::ValueChanged) {
        QAccessibleInterface* cell = table->tableInterface()->cellAt(grid_.Row, grid_.Col);
        QAccessibleValueChangeEvent changed(cell, cell->text(QAccessible::Value));
        shown_.ToAssistance(&changed);
    } else if (shown_.hasFocus()) {
        QAccessibleEvent moved(&shown_, event);
        moved.setChild(grid_.Row * grid_.Cols + grid_.Col);
        shown_.ToAssistance(&moved);
    }
}

void GridBinding::TellRowsToAssistance() {
    if (shown_.IsRead()) {
        QAccessibleTableModelChangeEvent changed(&shown_, QAccessibleTableModelChangeEvent::ModelReset);
        shown_.ToAssistance(&changed);
    }
}

/// What a screen reader says of the grid: the headings of the current cell, and its text.
QString GridBinding::CurrentCellInWords() const {
    const int row = grid_.Row;
    const int col = grid_.Col;
    if (row < grid_.FixedRows || col < grid_.FixedCols || grid_.FixedRows < 1 || grid_.FixedCols < 1) {
        return {};
    }
    return QStringLiteral("%1, %2: %3")
        .arg(ToQt(grid_.TextMatrix(row, 0)), ToQt(grid_.TextMatrix(0, col)), ToQt(grid_.TextMatrix(row, col)));
}

void GridBinding::Follower::CellChanged(int row, int col) {
    binding_.shown_.ShowCell(row, col);
    if (row == binding_.grid_.Row.Get() && col == binding_.grid_.Col.Get()) {
        binding_.shown_.setAccessibleDescription(binding_.CurrentCellInWords());
        binding_.TellAssistance(QAccessible::ValueChanged);
    }
}

void GridBinding::Follower::RowsChanged() {
    binding_.Refresh();
    binding_.TellRowsToAssistance();
}

void GridBinding::Follower::Scrolled() {
    binding_.Refresh();
}

void GridBinding::Follower::CurrentCellMoved() {
    binding_.Refresh();
    binding_.TellAssistance(QAccessible::Focus);
}

}  // namespace zirvo::widgets
