// The grid for assistive tools, see accessible_grid.h.
#include "qt/widgets/accessible_grid.h"

namespace zirvo::widgets {
namespace {

QAccessibleInterface* MakeInterface(const QString& className, QObject* object) {
    Q_UNUSED(className)
    auto* grid = dynamic_cast<GridWidget*>(object);
    return grid == nullptr ? nullptr : new AccessibleGrid(*grid);
}

QString CellText(const forms::MSFlexGrid& grid, int row, int col) {
    return ToQt(grid.TextMatrix(row, col));
}

}  // namespace

void ServeAccessibleGrids() {
    static const bool served = [] {
        QAccessible::installFactory(MakeInterface);
        return true;
    }();
    Q_UNUSED(served)
}

// The table ---------------------------------------------------------------------------------------------------------

AccessibleGrid::AccessibleGrid(GridWidget& widget) : QAccessibleWidget(&widget, QAccessible::Table) {
    widget.BeginToRead();
}

AccessibleGrid::~AccessibleGrid() {
    for (const QAccessible::Id cell : std::as_const(cells_)) {
        QAccessible::deleteAccessibleInterface(cell);
    }
}

GridWidget& AccessibleGrid::Shown() const {
    return static_cast<GridWidget&>(*widget());
}

void* AccessibleGrid::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface) {
        return static_cast<QAccessibleTableInterface*>(this);
    }
    return QAccessibleWidget::interface_cast(type);
}

/// The widget stays enabled where the grid is not, since it scrolls.
QAccessible::State AccessibleGrid::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    const forms::MSFlexGrid* grid = Shown().Model();
    state.disabled = grid == nullptr || !grid->Enabled;
    state.focusable = !state.disabled;
    return state;
}

int AccessibleGrid::rowCount() const {
    const forms::MSFlexGrid* grid = Shown().Model();
    return grid == nullptr ? 0 : grid->Rows.Get();
}

int AccessibleGrid::columnCount() const {
    const forms::MSFlexGrid* grid = Shown().Model();
    return grid == nullptr ? 0 : grid->Cols.Get();
}

int AccessibleGrid::childCount() const {
    return rowCount() * columnCount();
}

QAccessibleInterface* AccessibleGrid::cellAt(int row, int column) const {
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount()) {
        return nullptr;
    }
    const int index = row * columnCount() + column;
    if (const auto known = cells_.constFind(index); known != cells_.cend()) {
        return QAccessible::accessibleInterface(*known);
    }
    auto* cell = new AccessibleCell(Shown(), row, column);
    cells_.insert(index, QAccessible::registerAccessibleInterface(cell));
    return cell;
}

QAccessibleInterface* AccessibleGrid::child(int index) const {
    const int columns = columnCount();
    return index < 0 || columns == 0 ? nullptr : cellAt(index / columns, index % columns);
}

QAccessibleInterface* AccessibleGrid::childAt(int x, int y) const {
    if (Shown().Model() == nullptr) {
        return nullptr;
    }
    const forms::MSFlexGrid::Cell cell = Shown().CellUnder(Shown().mapFromGlobal(QPointF(x, y)));
    return cellAt(cell.Row, cell.Col);
}

QAccessibleInterface* AccessibleGrid::focusChild() const {
    const forms::MSFlexGrid* grid = Shown().Model();
    return grid == nullptr || !Shown().hasFocus() ? nullptr : cellAt(grid->Row, grid->Col);
}

int AccessibleGrid::indexOfChild(const QAccessibleInterface* child) const {
    const auto* cell = dynamic_cast<const AccessibleCell*>(child);
    return cell == nullptr ? -1 : cell->rowIndex() * columnCount() + cell->columnIndex();
}

QString AccessibleGrid::columnDescription(int column) const {
    return column < 0 || column >= columnCount() || rowCount() == 0 ? QString() : CellText(*Shown().Model(), 0, column);
}

QString AccessibleGrid::rowDescription(int row) const {
    return row < 0 || row >= rowCount() || columnCount() == 0 ? QString() : CellText(*Shown().Model(), row, 0);
}

/// The current cell; all of the data where the whole table is selected is told by the state of each.
QList<QAccessibleInterface*> AccessibleGrid::selectedCells() const {
    const forms::MSFlexGrid* grid = Shown().Model();
    if (grid == nullptr || !grid->HasDataRows()) {
        return {};
    }
    return {cellAt(grid->Row, grid->Col)};
}

bool AccessibleGrid::isColumnSelected(int column) const {
    Q_UNUSED(column)
    return Shown().Model() != nullptr && Shown().Model()->AllSelected;
}

bool AccessibleGrid::isRowSelected(int row) const {
    Q_UNUSED(row)
    return Shown().Model() != nullptr && Shown().Model()->AllSelected;
}

// Whole rows and columns cannot be selected by themselves.
bool AccessibleGrid::selectRow(int row) {
    Q_UNUSED(row)
    return false;
}

bool AccessibleGrid::selectColumn(int column) {
    Q_UNUSED(column)
    return false;
}

bool AccessibleGrid::unselectRow(int row) {
    Q_UNUSED(row)
    return false;
}

bool AccessibleGrid::unselectColumn(int column) {
    Q_UNUSED(column)
    return false;
}

/// Rows have come or gone: the cells that went must not answer any more.
void AccessibleGrid::modelChange(QAccessibleTableModelChangeEvent* event) {
    Q_UNUSED(event)
    const int count = childCount();
    for (auto cell = cells_.begin(); cell != cells_.end();) {
        if (cell.key() >= count) {
            QAccessible::deleteAccessibleInterface(cell.value());
            cell = cells_.erase(cell);
        } else {
            ++cell;
        }
    }
}

// A cell ------------------------------------------------------------------------------------------------------------

AccessibleCell::AccessibleCell(GridWidget& widget, int row, int col) : widget_(&widget), row_(row), col_(col) {}

bool AccessibleCell::isValid() const {
    const forms::MSFlexGrid* grid = widget_.isNull() ? nullptr : widget_->Model();
    return grid != nullptr && row_ < grid->Rows && col_ < grid->Cols;
}

QAccessibleInterface* AccessibleCell::childAt(int x, int y) const {
    Q_UNUSED(x)
    Q_UNUSED(y)
    return nullptr;
}

QAccessibleInterface* AccessibleCell::parent() const {
    return QAccessible::queryAccessibleInterface(widget_);
}

QAccessibleInterface* AccessibleCell::child(int index) const {
    Q_UNUSED(index)
    return nullptr;
}

int AccessibleCell::indexOfChild(const QAccessibleInterface* child) const {
    Q_UNUSED(child)
    return -1;
}

bool AccessibleCell::IsHeading() const {
    const forms::MSFlexGrid& grid = *widget_->Model();
    return row_ < grid.FixedRows || col_ < grid.FixedCols;
}

QString AccessibleCell::text(QAccessible::Text what) const {
    if (!isValid()) {
        return {};
    }
    const forms::MSFlexGrid& grid = *widget_->Model();
    const QString own = CellText(grid, row_, col_);
    if (what == QAccessible::Value) {
        return IsHeading() ? QString() : own;
    }
    if (what != QAccessible::Name) {
        return {};
    }
    return IsHeading() ? own : CellText(grid, row_, 0) + QStringLiteral(", ") + CellText(grid, 0, col_);
}

void AccessibleCell::setText(QAccessible::Text what, const QString& text) {
    Q_UNUSED(what)
    Q_UNUSED(text)  // cells are written by their editor alone
}

QRect AccessibleCell::rect() const {
    if (!isValid()) {
        return {};
    }
    const QRect cell = widget_->CellRect(row_, col_);
    return {widget_->mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::Role AccessibleCell::role() const {
    if (!isValid() || !IsHeading()) {
        return QAccessible::Cell;
    }
    return row_ < widget_->Model()->FixedRows ? QAccessible::ColumnHeader : QAccessible::RowHeader;
}

QAccessible::State AccessibleCell::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const forms::MSFlexGrid& grid = *widget_->Model();
    const bool current = row_ == grid.Row.Get() && col_ == grid.Col.Get();
    state.disabled = !grid.Enabled;
    state.focusable = !IsHeading() && grid.Enabled;
    state.selectable = !IsHeading();
    state.selected = isSelected();
    state.active = current;
    state.focused = current && widget_->hasFocus();
    state.readOnly = IsHeading();
    state.editable = !IsHeading() && grid.Enabled;
    state.offscreen = !widget_->rect().intersects(widget_->CellRect(row_, col_));
    return state;
}

void* AccessibleCell::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableCellInterface) {
        return static_cast<QAccessibleTableCellInterface*>(this);
    }
    if (type == QAccessible::ActionInterface) {
        return static_cast<QAccessibleActionInterface*>(this);
    }
    return nullptr;
}

bool AccessibleCell::isSelected() const {
    if (!isValid()) {
        return false;
    }
    const forms::MSFlexGrid& grid = *widget_->Model();
    return !IsHeading() && (grid.AllSelected || (row_ == grid.Row.Get() && col_ == grid.Col.Get()));
}

QList<QAccessibleInterface*> AccessibleCell::columnHeaderCells() const {
    QAccessibleInterface* table = parent();
    return table == nullptr || !isValid() || IsHeading()
               ? QList<QAccessibleInterface*>()
               : QList<QAccessibleInterface*>{table->tableInterface()->cellAt(0, col_)};
}

QList<QAccessibleInterface*> AccessibleCell::rowHeaderCells() const {
    QAccessibleInterface* table = parent();
    return table == nullptr || !isValid() || IsHeading()
               ? QList<QAccessibleInterface*>()
               : QList<QAccessibleInterface*>{table->tableInterface()->cellAt(row_, 0)};
}

QStringList AccessibleCell::actionNames() const {
    return isValid() && !IsHeading() ? QStringList{setFocusAction()} : QStringList();
}

void AccessibleCell::doAction(const QString& action) {
    if (isValid() && !IsHeading() && action == setFocusAction() && widget_->CellPressed) {
        widget_->CellPressed(row_, col_);
    }
}

QStringList AccessibleCell::keyBindingsForAction(const QString& action) const {
    Q_UNUSED(action)
    return {};
}

}  // namespace zirvo::widgets
