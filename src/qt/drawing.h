// Drawings that come with the program (of a pavement, of the planes of a section): shapes without words, sharp at every
// size and on every density of screen. Callers: the pictures of the screens, the icons.
#pragma once
#include <QBrush>
#include <QByteArray>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <QString>
#include <vector>

namespace zirvo {

class Drawing {
public:
    /// Reads the part of SVG that pictures/README.md names. Whatever is beyond it is refused as a whole: the drawing is
    /// empty then, and Complaint tells the line and what was met there.
    explicit Drawing(const QByteArray& svg);

    bool IsEmpty() const { return shapes_.empty(); }
    const QString& Complaint() const { return complaint_; }
    /// What of the drawing's own coordinates is shown.
    QRectF ViewBox() const { return viewBox_; }

    /// Paints the drawing as large as it fits, in the middle of the place.
    void Paint(QPainter& painter, const QRectF& place) const;

    /// One shape: filled, then stroked.
    struct Shape {
        QPainterPath Path;
        QBrush Fill;
        QPen Stroke;
    };

private:
    QRectF viewBox_;
    std::vector<Shape> shapes_;
    QString complaint_;
};

}  // namespace zirvo
