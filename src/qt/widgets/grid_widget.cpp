// How the grid is painted and where its cells are, see grid_binding.h.
#include <QApplication>
#include <QMouseEvent>
#include <QStyle>
#include <QWheelEvent>
#include <algorithm>

#include "qt/widgets/grid_binding.h"
#include "qt/widgets/pixels.h"

namespace zirvo::widgets {
namespace {

// Pixels between the edge of a cell and its text. A column is as wide as its heading and a "J", which is 6 pixels.
constexpr int TextMargin = 2;

// The cell that a rule has refused: a frame of two pixels, and a ground that is seen from afar.
constexpr QRgb MarkedGround = qRgb(0xFF, 0xDD, 0xDD);
constexpr QRgb MarkedFrame = qRgb(0xC0, 0x00, 0x00);

}  // namespace

GridWidget::GridWidget(forms::MSFlexGrid& grid, QWidget& parent)
    : QWidget(&parent), grid_(grid), vertical_(Qt::Vertical, this), horizontal_(Qt::Horizontal, this) {
    for (QScrollBar* bar : {&vertical_, &horizontal_}) {
        bar->setFocusPolicy(Qt::NoFocus);
        bar->setContextMenuPolicy(Qt::NoContextMenu);
        bar->hide();
    }
}

QRect GridWidget::CellRect(int row, int col) const {
    const int originX = PixelEdge(grid_.Left);
    const int originY = PixelEdge(grid_.Top);
    return PixelRect(grid_.Left + grid_.ColLeft(col), grid_.Top + grid_.RowTop(row), grid_.ColWidth(col),
                     grid_.RowHeight)
        .translated(-originX, -originY);
}

QRect GridWidget::Area() const {
    return PixelRect(grid_.Border, grid_.Border, grid_.AreaWidth(), grid_.AreaHeight());
}

void GridWidget::ShowAll() {
    const QRect area = Area();
    const int thickness = PixelEdge(grid_.BarThickness);
    vertical_.setVisible(grid_.HasVerticalBar());
    vertical_.setGeometry(area.right() + 1, area.top(), thickness, area.height());
    vertical_.setRange(grid_.FixedRows, std::max(grid_.FixedRows.Get(), grid_.LastTopRow()));
    vertical_.setPageStep(std::max(1, static_cast<int>(grid_.AreaHeight() / grid_.RowHeight) - grid_.FixedRows));
    vertical_.setValue(grid_.TopRow);
    horizontal_.setVisible(grid_.HasHorizontalBar());
    horizontal_.setGeometry(area.left(), area.bottom() + 1, area.width(), thickness);
    horizontal_.setRange(grid_.FixedCols, std::max(grid_.FixedCols.Get(), grid_.LastLeftCol()));
    horizontal_.setPageStep(1);
    horizontal_.setValue(grid_.LeftCol);
    update();
}

void GridWidget::ShowCell(int row, int col) {
    const bool rowMayBeInSight = row < grid_.FixedRows || row >= grid_.TopRow;
    if (rowMayBeInSight) {
        const QRect cell = CellRect(row, col);
        if (cell.intersects(rect())) {
            update(cell);
        }
    }
}

template <class Visit>
void GridWidget::EachInSight(int count, int fixed, int first, Visit visit) const {
    for (int i = 0; i < std::min(fixed, count); ++i) {
        if (!visit(i)) {
            return;
        }
    }
    for (int i = std::max(fixed, first); i < count; ++i) {
        if (!visit(i)) {
            return;
        }
    }
}

void GridWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Active, QPalette::Dark).lighter(130));
    const QRect area = Area();
    painter.setClipRect(area);
    const QRect dirty = event->rect();
    EachInSight(grid_.Rows, grid_.FixedRows, grid_.TopRow, [&](int row) {
        const QRect first = CellRect(row, 0);
        if (first.top() > area.bottom()) {
            return false;
        }
        if (first.bottom() >= dirty.top() && first.top() <= dirty.bottom()) {
            PaintRow(painter, row, dirty);
        }
        return true;
    });
    painter.setClipping(false);
    painter.setPen(palette().color(Colours(), QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void GridWidget::PaintRow(QPainter& painter, int row, const QRect& dirty) const {
    EachInSight(grid_.Cols, grid_.FixedCols, grid_.LeftCol, [&](int col) {
        const QRect cell = CellRect(row, col);
        if (cell.left() > Area().right()) {
            return false;
        }
        if (cell.intersects(dirty)) {
            PaintCell(painter, row, col, cell);
        }
        return true;
    });
}

/// The widget itself stays enabled, so that it scrolls.
QPalette::ColorGroup GridWidget::Colours() const {
    return grid_.Enabled ? QPalette::Active : QPalette::Disabled;
}

QColor GridWidget::Ground(bool heading, bool filled, bool marked) const {
    if (marked) {
        return MarkedGround;
    }
    return palette().color(Colours(), filled ? QPalette::Highlight : heading ? QPalette::Button : QPalette::Base);
}

void GridWidget::PaintCell(QPainter& painter, int row, int col, const QRect& cell) const {
    const QPalette::ColorGroup group = Colours();
    const bool heading = row < grid_.FixedRows || col < grid_.FixedCols;
    const bool current = row == grid_.Row.Get() && col == grid_.Col.Get();
    const bool marked = row == grid_.MarkedCell().Row && col == grid_.MarkedCell().Col;
    const bool selected = grid_.AllSelected && hasFocus();
    const bool filled =
        !marked && (selected || (current && !heading && grid_.Highlight.Get() == forms::HighlightKind::Always));
    painter.fillRect(cell, Ground(heading, filled, marked));
    painter.setPen(palette().color(group, heading ? QPalette::Dark : QPalette::Mid));
    painter.drawLine(cell.topRight(), cell.bottomRight());
    painter.drawLine(cell.bottomLeft(), cell.bottomRight());
    const std::string& text = grid_.TextMatrix(row, col);
    if (!text.empty()) {
        const QRect inside = cell.adjusted(TextMargin, 0, -TextMargin, -1);
        painter.setPen(palette().color(group, filled    ? QPalette::HighlightedText
                                              : heading ? QPalette::ButtonText
                                                        : QPalette::Text));
        const QString shown = fontMetrics().elidedText(ToQt(text), Qt::ElideRight, inside.width());
        painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
    }
    if (marked) {
        painter.setPen(MarkedFrame);
        painter.drawRect(cell.adjusted(0, 0, -2, -2));
        painter.drawRect(cell.adjusted(1, 1, -3, -3));
    } else if (current && hasFocus()) {
        painter.setPen(palette().color(QPalette::Active, filled ? QPalette::Base : QPalette::Highlight));
        painter.drawRect(cell.adjusted(0, 0, -2, -2));
    }
}

forms::MSFlexGrid::Cell GridWidget::CellUnder(const QPointF& position) const {
    // By the pixels that are painted: a cell that ends between two pixels must not answer for its neighbour.
    const QPoint at = position.toPoint();
    forms::MSFlexGrid::Cell found;
    if (!Area().contains(at)) {
        return found;
    }
    EachInSight(grid_.Rows, grid_.FixedRows, grid_.TopRow, [&](int row) {
        const QRect cell = CellRect(row, 0);
        if (at.y() >= cell.top() && at.y() <= cell.bottom()) {
            found.Row = row;
        }
        return found.Row < 0 && cell.top() <= at.y();
    });
    EachInSight(grid_.Cols, grid_.FixedCols, grid_.LeftCol, [&](int col) {
        const QRect cell = CellRect(0, col);
        if (at.x() >= cell.left() && at.x() <= cell.right()) {
            found.Col = col;
        }
        return found.Col < 0 && cell.left() <= at.x();
    });
    return found;
}

void GridWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && CellPressed) {
        const forms::MSFlexGrid::Cell cell = CellUnder(event->position());
        CellPressed(cell.Row, cell.Col);
    }
}

void GridWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && CellDoubleClicked) {
        const forms::MSFlexGrid::Cell cell = CellUnder(event->position());
        CellDoubleClicked(cell.Row, cell.Col);
    }
}

void GridWidget::wheelEvent(QWheelEvent* event) {
    event->accept();
    constexpr int notch = 120;  // eighths of a degree
    wheelTurned_ += event->angleDelta().y();
    const int notches = wheelTurned_ / notch;
    wheelTurned_ -= notches * notch;
    if (notches != 0 && ScrolledTo) {
        const int rows = grid_.TopRow - notches * QApplication::wheelScrollLines();
        const int last = std::max(grid_.FixedRows.Get(), grid_.LastTopRow());
        ScrolledTo(std::clamp(rows, grid_.FixedRows.Get(), last), grid_.LeftCol);
    }
}

void GridWidget::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void GridWidget::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

void GridWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    update();
}

}  // namespace zirvo::widgets
