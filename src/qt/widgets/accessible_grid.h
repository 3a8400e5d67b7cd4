// The grid as assistive tools read it: a table with row and column headings, of which each cell tells its place, its
// headings and its text. Caller: the toolkit, by the factory that the grid's binding puts up.
#pragma once
#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>

#include "qt/widgets/grid_binding.h"

namespace zirvo::widgets {

/// Puts up the factory that makes the interfaces of grids; once is enough.
void ServeAccessibleGrids();

/// Rows and columns are those of the model, headings among them. A cell's interface is made when it is asked for, so
/// that ten thousand rows cost nothing before.
class AccessibleGrid final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit AccessibleGrid(GridWidget& widget);
    ~AccessibleGrid() override;

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int columnCount() const override;
    int rowCount() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    QList<QAccessibleInterface*> selectedCells() const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int column) const override;
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int column) override;
    bool unselectRow(int row) override;
    bool unselectColumn(int column) override;
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    GridWidget& Shown() const;

    mutable QHash<int, QAccessible::Id> cells_;  ///< by row * columns + column
};

/// A cell, or a heading.
class AccessibleCell final : public QAccessibleInterface,
                             public QAccessibleTableCellInterface,
                             public QAccessibleActionInterface {
public:
    AccessibleCell(GridWidget& widget, int row, int col);

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* child) const override;
    /// The name of a data cell is its headings, "LAYER 1, MODULUS(MPa)"; its value the text that it holds.
    QString text(QAccessible::Text what) const override;
    void setText(QAccessible::Text what, const QString& text) override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override;
    int columnIndex() const override { return col_; }
    int rowIndex() const override { return row_; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

    /// The one action: to make a data cell the current one, as a click does.
    QStringList actionNames() const override;
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString& action) const override;

private:
    bool IsHeading() const;

    QPointer<GridWidget> widget_;
    int row_;
    int col_;
};

}  // namespace zirvo::widgets
