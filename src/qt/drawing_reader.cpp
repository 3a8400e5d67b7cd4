// The reader of drawings, see drawing_reader.h.
#include "qt/drawing_reader.h"

#include <QPainterPath>
#include <QRegularExpression>
#include <QSet>
#include <QTransform>

namespace zirvo {
namespace {

/// What an element may say; "d" and the like count for the elements that need them.
const QSet<QString>& KnownAttributes() {
    static const QSet<QString> known{"cx",
                                     "cy",
                                     "d",
                                     "fill",
                                     "fill-opacity",
                                     "height",
                                     "id",
                                     "points",
                                     "r",
                                     "rx",
                                     "ry",
                                     "stroke",
                                     "stroke-dasharray",
                                     "stroke-linecap",
                                     "stroke-linejoin",
                                     "stroke-opacity",
                                     "stroke-width",
                                     "transform",
                                     "width",
                                     "x",
                                     "x1",
                                     "x2",
                                     "y",
                                     "y1",
                                     "y2",
                                     "viewBox",
                                     "version",
                                     "baseProfile",
                                     "gradientUnits",
                                     "offset",
                                     "stop-color"};
    return known;
}

/// Those that an element takes from the groups around it.
const QSet<QString>& Inherited() {
    static const QSet<QString> inherited{"fill",           "fill-opacity",    "stroke",         "stroke-dasharray",
                                         "stroke-linecap", "stroke-linejoin", "stroke-opacity", "stroke-width"};
    return inherited;
}

}  // namespace

bool DrawingReader::Read() {
    if (xml_.readNextStartElement() && xml_.name() == u"svg") {
        const Attributes attributes = OwnAttributes({});
        const std::vector<double> box = NumbersOf(attributes.value("viewBox"));
        if (box.size() == 4 && box[2] > 0 && box[3] > 0) {
            viewBox_ = QRectF(box[0], box[1], box[2], box[3]);
            ReadGroup({});
        } else {
            Refuse("a drawing without its viewBox");
        }
    } else if (!xml_.hasError()) {
        Refuse("no drawing");
    }
    return !xml_.hasError();
}

QString DrawingReader::Complaint() const {
    return QStringLiteral("line %1: %2").arg(xml_.lineNumber()).arg(xml_.errorString());
}

void DrawingReader::Refuse(const QString& what) {
    if (!xml_.hasError()) {
        xml_.raiseError(what);
    }
}

DrawingReader::Attributes DrawingReader::OwnAttributes(const Attributes& inherited) {
    Attributes all = inherited;
    for (const QXmlStreamAttribute& attribute : xml_.attributes()) {
        const QString name = attribute.qualifiedName().toString();
        if (!KnownAttributes().contains(name)) {
            Refuse("attribute " + name);
        }
        all.insert(name, attribute.value().toString());
    }
    return all;
}

void DrawingReader::ReadGroup(const Attributes& inherited) {
    while (xml_.readNextStartElement()) {
        if (xml_.name() == u"g") {
            Attributes attributes = OwnAttributes(inherited);
            for (const QString& name : attributes.keys()) {
                if (!Inherited().contains(name)) {
                    Refuse("attribute " + name + " of a group");
                }
            }
            ReadGroup(attributes);
        } else if (xml_.name() == u"defs") {
            ReadDefinitions();
        } else if (xml_.name() == u"title") {
            xml_.skipCurrentElement();
        } else {
            ReadShape(inherited);
        }
    }
}

void DrawingReader::ReadDefinitions() {
    while (xml_.readNextStartElement()) {
        if (xml_.name() == u"linearGradient" || xml_.name() == u"radialGradient") {
            ReadGradient();
        } else {
            Refuse("element " + xml_.name().toString());
        }
    }
}

void DrawingReader::ReadGradient() {
    const bool linear = xml_.name() == u"linearGradient";
    const Attributes attributes = OwnAttributes({});
    if (attributes.value("gradientUnits") != "userSpaceOnUse") {
        Refuse("a gradient in units of its shape");
    }
    const auto number = [&](const char* name) { return NumberOf(attributes, name); };
    QGradient gradient = linear ? QGradient(QLinearGradient(number("x1"), number("y1"), number("x2"), number("y2")))
                                : QGradient(QRadialGradient(number("cx"), number("cy"), number("r")));
    while (xml_.readNextStartElement()) {
        if (xml_.name() != u"stop") {
            Refuse("element " + xml_.name().toString());
            return;
        }
        const Attributes stop = OwnAttributes({});
        gradient.setColorAt(NumberOf(stop, "offset"), ColorOf(stop.value("stop-color"), {}));
        xml_.skipCurrentElement();
    }
    gradients_.insert(attributes.value("id"), gradient);
}

void DrawingReader::ReadShape(const Attributes& inherited) {
    const Attributes attributes = OwnAttributes(inherited);
    QPainterPath path = PathOf(xml_.name(), attributes);
    if (const QString text = attributes.value("transform"); !text.isEmpty()) {
        static const QRegularExpression translate("^translate\\(([^)]*)\\)$");
        const std::vector<double> by = NumbersOf(translate.match(text).captured(1));
        if (by.size() == 2) {
            path.translate(by[0], by[1]);
        } else {
            Refuse("transform " + text);
        }
    }
    shapes_.push_back({path, FillOf(attributes), StrokeOf(attributes)});
    if (!xml_.hasError()) {
        xml_.skipCurrentElement();
    }
}

QPainterPath DrawingReader::PathOf(QStringView element, const Attributes& attributes) {
    QPainterPath path;
    const auto number = [&](const char* name) { return NumberOf(attributes, name); };
    if (element == u"rect") {
        path.addRect(number("x"), number("y"), number("width"), number("height"));
    } else if (element == u"circle") {
        path.addEllipse(QPointF(number("cx"), number("cy")), number("r"), number("r"));
    } else if (element == u"ellipse") {
        path.addEllipse(QPointF(number("cx"), number("cy")), number("rx"), number("ry"));
    } else if (element == u"line") {
        path.moveTo(number("x1"), number("y1"));
        path.lineTo(number("x2"), number("y2"));
    } else if (element == u"polygon" || element == u"polyline") {
        path = PolygonOf(attributes.value("points"), element == u"polygon");
    } else if (element == u"path") {
        path = PathOfCommands(attributes.value("d"));
    } else {
        Refuse("element " + element.toString());
    }
    path.setFillRule(Qt::WindingFill);
    return path;
}

QPainterPath DrawingReader::PolygonOf(const QString& points, bool closed) {
    const std::vector<double> numbers = NumbersOf(points);
    if (numbers.size() < 4 || numbers.size() % 2 != 0) {
        Refuse("points " + points);
        return {};
    }
    QPainterPath path(QPointF(numbers[0], numbers[1]));
    for (std::size_t n = 2; n < numbers.size(); n += 2) {
        path.lineTo(numbers[n], numbers[n + 1]);
    }
    if (closed) {
        path.closeSubpath();
    }
    return path;
}

QPainterPath DrawingReader::PathOfCommands(const QString& commands) {
    static const QRegularExpression oneCommand("([A-Za-z])([^A-Za-z]*)");
    QPainterPath path;
    for (auto found = oneCommand.globalMatch(commands); found.hasNext() && !xml_.hasError();) {
        const QRegularExpressionMatch match = found.next();
        const QChar command = match.captured(1).at(0);
        const std::vector<double> n = NumbersOf(match.captured(2));
        if (command == 'M' && n.size() == 2) {
            path.moveTo(n[0], n[1]);
        } else if (command == 'L' && n.size() == 2) {
            path.lineTo(n[0], n[1]);
        } else if (command == 'H' && n.size() == 1) {
            path.lineTo(n[0], path.currentPosition().y());
        } else if (command == 'V' && n.size() == 1) {
            path.lineTo(path.currentPosition().x(), n[0]);
        } else if (command == 'C' && !n.empty() && n.size() % 6 == 0) {
            for (std::size_t at = 0; at < n.size(); at += 6) {
                path.cubicTo(n[at], n[at + 1], n[at + 2], n[at + 3], n[at + 4], n[at + 5]);
            }
        } else if (command == 'Z' && n.empty()) {
            path.closeSubpath();
        } else {
            Refuse("path command " + match.captured(0));
        }
    }
    return path;
}

QBrush DrawingReader::FillOf(const Attributes& attributes) {
    static const QRegularExpression byName("^url\\(#(.*)\\)$");
    const QString fill = attributes.value("fill", "#000000");
    if (fill == "none") {
        return Qt::NoBrush;
    }
    if (const QRegularExpressionMatch match = byName.match(fill); match.hasMatch()) {
        const auto gradient = gradients_.constFind(match.captured(1));
        if (gradient == gradients_.constEnd() || attributes.contains("fill-opacity")) {
            Refuse("fill " + fill);
            return Qt::NoBrush;
        }
        return {*gradient};
    }
    return {ColorOf(fill, attributes.value("fill-opacity"))};
}

QPen DrawingReader::StrokeOf(const Attributes& attributes) {
    const QString stroke = attributes.value("stroke", "none");
    if (stroke == "none") {
        return Qt::NoPen;
    }
    QPen pen(ColorOf(stroke, attributes.value("stroke-opacity")));
    const double width = NumberOf(attributes, "stroke-width", 1);
    pen.setWidthF(width);
    const QString cap = attributes.value("stroke-linecap", "butt");
    const QString join = attributes.value("stroke-linejoin", "miter");
    if ((cap != "butt" && cap != "round") || (join != "miter" && join != "round")) {
        Refuse("stroke-linecap " + cap + ", stroke-linejoin " + join);
    }
    pen.setCapStyle(cap == "round" ? Qt::RoundCap : Qt::FlatCap);
    pen.setJoinStyle(join == "round" ? Qt::RoundJoin : Qt::SvgMiterJoin);
    pen.setMiterLimit(4);  // as the format has it
    QList<double> dashes;
    for (const double dash : NumbersOf(attributes.value("stroke-dasharray"))) {
        dashes.append(dash / width);  // a pen counts in its own width
    }
    if (!dashes.isEmpty()) {
        pen.setDashPattern(dashes);
    }
    return pen;
}

QColor DrawingReader::ColorOf(const QString& text, const QString& opacity) {
    static const QRegularExpression sixDigits("^#[0-9a-fA-F]{6}$");
    QColor color(text);
    if (!sixDigits.match(text).hasMatch()) {
        Refuse("colour " + text);
    }
    if (!opacity.isEmpty()) {
        const std::vector<double> share = NumbersOf(opacity);
        if (share.size() == 1 && share[0] >= 0 && share[0] <= 1) {
            color.setAlphaF(static_cast<float>(share[0]));
        } else {
            Refuse("opacity " + opacity);
        }
    }
    return color;
}

double DrawingReader::NumberOf(const Attributes& attributes, const char* name, double missing) {
    const QString text = attributes.value(QLatin1String(name));
    if (text.isEmpty()) {
        return missing;
    }
    const std::vector<double> numbers = NumbersOf(text);
    if (numbers.size() != 1) {
        Refuse(QLatin1String(name) + QStringLiteral(" ") + text);
        return missing;
    }
    return numbers[0];
}

std::vector<double> DrawingReader::NumbersOf(const QString& text) {
    static const QRegularExpression between("[\\s,]+");
    std::vector<double> numbers;
    for (const QString& part : text.split(between, Qt::SkipEmptyParts)) {
        bool isNumber = false;
        numbers.push_back(part.toDouble(&isNumber));
        if (!isNumber) {
            Refuse("number " + part);
        }
    }
    return numbers;
}

}  // namespace zirvo
