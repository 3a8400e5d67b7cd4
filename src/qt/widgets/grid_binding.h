// The grid: drawn by the model's own numbers, and only as far as it is in sight, so that 10000 rows cost no more than
// ten.
#pragma once
#include <QAccessible>
#include <QPainter>
#include <QScrollBar>
#include <QWidget>
#include <functional>

#include "forms/ms_flex_grid.h"
#include "qt/widgets/control_binding.h"

namespace zirvo::widgets {

class GridWidget final : public QWidget {
public:
    GridWidget(forms::MSFlexGrid& grid, QWidget& parent);

    /// Places and ranges of the bars, and everything painted anew.
    void ShowAll();
    /// The cell is painted anew if it is in sight.
    void ShowCell(int row, int col);

    /// Pixels of a cell from the corner of the grid, where it is or would be.
    QRect CellRect(int row, int col) const;

    /// The cell at a point of the widget; row or column -1 outside of all cells.
    forms::MSFlexGrid::Cell CellUnder(const QPointF& position) const;
    /// What it shows; nullptr once the control is going.
    const forms::MSFlexGrid* Model() const { return gone_ ? nullptr : &grid_; }
    void LetGo() { gone_ = true; }
    /// Whether an assistive tool has asked for it, and wants to hear what changes.
    bool IsRead() const { return read_ || QAccessible::isActive(); }
    void BeginToRead() { read_ = true; }
    /// Where its news for assistive tools go.
    std::function<void(QAccessibleEvent* event)> ToAssistance = &QAccessible::updateAccessibility;

    QScrollBar& Vertical() { return vertical_; }
    QScrollBar& Horizontal() { return horizontal_; }
    std::function<void(int row, int col)> CellPressed;
    std::function<void(int row, int col)> CellDoubleClicked;
    std::function<void(int topRow, int leftCol)> ScrolledTo;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int RightEdge(int col) const;
    int BottomEdge(int row) const;
    QRect Area() const;
    template <class Visit>
    void EachInSight(int count, int fixed, int first, Visit visit) const;
    void PaintRow(QPainter& painter, int row, const QRect& dirty) const;
    void PaintCell(QPainter& painter, int row, int col, const QRect& cell) const;
    QColor Ground(bool heading, bool filled, bool marked) const;
    QPalette::ColorGroup Colours() const;

    forms::MSFlexGrid& grid_;
    bool gone_ = false;
    bool read_ = false;
    QScrollBar vertical_;
    QScrollBar horizontal_;
    int wheelTurned_ = 0;  ///< eighths of a degree that make no whole notch yet
};

class GridBinding final : public ControlBinding {
public:
    GridBinding(forms::MSFlexGrid& grid, QWidget& parent);
    bool TakesWheel() const override { return true; }
    bool ScrollsDisabled() const override { return true; }
    /// A click on a cell gives the focus itself.
    bool TakesFocusOnPress() const override { return false; }
    bool Commit(const QString& text) override;

protected:
    void ShowState() override;
    forms::ControlView& View() override { return view_; }

private:
    QString CurrentCellInWords() const;
    void TellAssistance(QAccessible::Event event);
    void TellRowsToAssistance();
    void Retiring() override { shown_.LetGo(); }

    class Follower final : public forms::GridView {
    public:
        explicit Follower(GridBinding& binding) : binding_(binding) {}
        void Refresh() override { binding_.Refresh(); }
        void CellChanged(int row, int col) override;
        void RowsChanged() override;
        void Scrolled() override;
        void CurrentCellMoved() override;

    private:
        GridBinding& binding_;
    };

    forms::MSFlexGrid& grid_;
    GridWidget& shown_;
    Follower view_{*this};
};

}  // namespace zirvo::widgets
