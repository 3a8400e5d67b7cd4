// Reads the part of SVG that the program's own drawings are made of. Caller: Drawing.
#pragma once
#include <QBrush>
#include <QByteArray>
#include <QHash>
#include <QPen>
#include <QRectF>
#include <QString>
#include <QStringView>
#include <QXmlStreamReader>
#include <utility>
#include <vector>

#include "qt/drawing.h"

namespace zirvo {

class DrawingReader {
public:
    explicit DrawingReader(const QByteArray& svg) : xml_(svg) {}

    /// False if the drawing holds anything that is not known here.
    bool Read();
    QString Complaint() const;
    QRectF ViewBox() const { return viewBox_; }
    std::vector<Drawing::Shape> TakeShapes() { return std::move(shapes_); }

private:
    /// Attributes by their names: an element's own, and behind them those of the groups around it.
    using Attributes = QHash<QString, QString>;

    QXmlStreamReader xml_;
    QRectF viewBox_;
    QHash<QString, QGradient> gradients_;
    std::vector<Drawing::Shape> shapes_;

    void ReadGroup(const Attributes& inherited);
    void ReadDefinitions();
    void ReadGradient();
    void ReadShape(const Attributes& inherited);
    Attributes OwnAttributes(const Attributes& inherited);
    QPainterPath PathOf(QStringView element, const Attributes& attributes);
    QPainterPath PolygonOf(const QString& points, bool closed);
    QPainterPath PathOfCommands(const QString& commands);
    QBrush FillOf(const Attributes& attributes);
    QPen StrokeOf(const Attributes& attributes);
    QColor ColorOf(const QString& text, const QString& opacity);
    double NumberOf(const Attributes& attributes, const char* name, double missing = 0);
    std::vector<double> NumbersOf(const QString& text);
    void Refuse(const QString& what);
};

}  // namespace zirvo
