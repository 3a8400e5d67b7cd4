// The SVG file of a map, see svg_sink.h.
#include "qt/svg_sink.h"

#include <QBuffer>
#include <QByteArray>
#include <QStringList>

namespace zirvo {
namespace {

constexpr double MillimetresPerPixel = 25.4 / 96;

/// Up to `digits` digits behind the point, without noughts at the end.
QString NumberText(double value, int digits = 3) {
    QString text = QString::number(value, 'f', digits);
    while (text.endsWith('0')) {
        text.chop(1);
    }
    if (text.endsWith('.')) {
        text.chop(1);
    }
    return text == "-0" ? QStringLiteral("0") : text;
}

/// Moves and lines; a map has no curves.
QString PathText(const QPainterPath& path) {
    QString text;
    for (int n = 0; n < path.elementCount(); ++n) {
        const QPainterPath::Element element = path.elementAt(n);
        text += (element.isMoveTo() ? 'M' : 'L') + NumberText(element.x) + ' ' + NumberText(element.y);
    }
    return text;
}

/// The text without what no XML file may hold: control characters, halves of pairs.
QString WritableText(const QString& text) {
    QString writable;
    for (const char32_t point : text.toUcs4()) {
        const bool isControl = point < 0x20 && point != '\t' && point != '\n' && point != '\r';
        const bool isHalf = point >= 0xD800 && point <= 0xDFFF;
        writable += isControl || isHalf || point == 0xFFFE || point == 0xFFFF ? QStringLiteral("?")
                                                                              : QString::fromUcs4(&point, 1);
    }
    return writable;
}

/// The families of a font, those that are more than a word in quotes, and at last what any viewer has.
QString FamiliesText(const QFont& font) {
    QStringList names;
    for (const QString& family : font.families()) {
        names.append(family.contains(' ') ? '\'' + family + '\'' : family);
    }
    names.append(QStringLiteral("sans-serif"));
    return names.join(QStringLiteral(", "));
}

}  // namespace

SvgSink::SvgSink(QIODevice& out, const QSize& pixels, const QString& title) : xml_(&out) {
    xml_.setAutoFormatting(true);
    xml_.setAutoFormattingIndent(1);
    xml_.writeStartDocument();
    xml_.writeStartElement(QStringLiteral("svg"));
    xml_.writeDefaultNamespace(QStringLiteral("http://www.w3.org/2000/svg"));
    xml_.writeNamespace(QStringLiteral("http://www.w3.org/1999/xlink"), QStringLiteral("xlink"));
    Attribute("version", QStringLiteral("1.1"));
    Attribute("width", NumberText(pixels.width() * MillimetresPerPixel, 4) + "mm");
    Attribute("height", NumberText(pixels.height() * MillimetresPerPixel, 4) + "mm");
    Attribute("viewBox", QStringLiteral("0 0 %1 %2").arg(pixels.width()).arg(pixels.height()));
    xml_.writeTextElement(QStringLiteral("title"), WritableText(title));
}

SvgSink::~SvgSink() {
    xml_.writeEndDocument();
}

void SvgSink::Attribute(const char* name, const QString& value) {
    xml_.writeAttribute(QLatin1String(name), value);
}

void SvgSink::Attribute(const char* name, double value) {
    Attribute(name, NumberText(value));
}

void SvgSink::Background(const QSize& pixels, const QColor& color) {
    xml_.writeEmptyElement(QStringLiteral("rect"));
    Attribute("width", pixels.width());
    Attribute("height", pixels.height());
    Attribute("fill", color.name());
}

void SvgSink::Image(const QPoint& topLeft, const QImage& image) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    xml_.writeEmptyElement(QStringLiteral("image"));
    Attribute("x", topLeft.x());
    Attribute("y", topLeft.y());
    Attribute("width", image.width());
    Attribute("height", image.height());
    Attribute("preserveAspectRatio", QStringLiteral("none"));
    Attribute("image-rendering", QStringLiteral("optimizeSpeed"));  // squares, not a blur, when it is enlarged
    Attribute("xlink:href", "data:image/png;base64," + QString::fromLatin1(png.toBase64()));
}

void SvgSink::Stroke(const QPainterPath& path, const QColor& color, int width, Corners corners) {
    xml_.writeEmptyElement(QStringLiteral("path"));
    Attribute("fill", QStringLiteral("none"));
    Attribute("stroke", color.name());
    Attribute("stroke-width", width);
    Attribute("stroke-linecap", QStringLiteral("round"));
    Attribute("stroke-linejoin", corners == Corners::Round ? QStringLiteral("round") : QStringLiteral("miter"));
    Attribute("d", PathText(path));
}

void SvgSink::Text(const QPointF& baseline, const QString& text, const QFont& font, double advance,
                   const QColor& color) {
    if (text.isEmpty()) {
        return;
    }
    xml_.writeStartElement(QStringLiteral("text"));
    Attribute("x", baseline.x());
    Attribute("y", baseline.y());
    Attribute("fill", color.name());
    Attribute("font-family", FamiliesText(font));
    Attribute("font-size", font.pixelSize());
    if (font.bold()) {
        Attribute("font-weight", QStringLiteral("bold"));
    }
    if (font.italic()) {
        Attribute("font-style", QStringLiteral("italic"));
    }
    Attribute("textLength", advance);  // so that it keeps its place where another font has to stand in
    Attribute("xml:space", QStringLiteral("preserve"));
    xml_.writeCharacters(WritableText(text));
    xml_.writeEndElement();
}

}  // namespace zirvo
