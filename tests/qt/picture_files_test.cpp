// The bytes of picture files: well formed, the picture that was drawn, the same every time.
#include "qt/picture_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QBuffer>
#include <QPainter>
#include <QPainterPath>
#include <QXmlStreamReader>
#include <cstdlib>
#include <map>

#include "base/fault_of.h"
#include "contour/draw_contour_map.h"
#include "platform/in_child.h"
#include "platform/temporary_folder.h"
#include "qt/image_surface.h"

namespace zirvo {
namespace {

constexpr int Wide = 150;
constexpr int High = 130;
const std::string Title = "EPSx  Section: X-Y  Z=0cm  Layer#=1  <ZIRVO Ver2.3> & more";

/// A small map with fill, lines, legend and everything else.
void DrawSmallMap(PlotSurface& surface) {
    ContourMap map;
    map.Field.Values = ValueMatrix(21, 21);
    for (int n = 1; n <= 21; ++n) {
        map.Field.FineAxis1.push_back(n);
        map.Field.FineAxis2.push_back(n);
    }
    for (int j = 1; j <= 21; ++j) {
        for (int i = 1; i <= 21; ++i) {
            map.Field.Values.At(i, j) = i * j;
        }
    }
    map.Extent = {1, 21, 1, 21};
    map.ValueMin = 1;
    map.ValueMax = 441;
    MapView view;
    view.Items.ContourLines = true;
    view.ContourLineCount = 5;
    view.Plot = GeometryOfPixels(Wide, High);
    view.Title = Title;
    DrawContourMap(surface, map, view);
}

QImage SmallMap() {
    ImageSurface surface(Wide, High);
    DrawSmallMap(surface);
    return surface.Image();
}

/// The little-endian number at a place.
unsigned NumberAt(const std::string& bytes, std::size_t place, int length) {
    unsigned number = 0;
    for (int n = length - 1; n >= 0; --n) {
        number = number << 8 | static_cast<unsigned char>(bytes.at(place + static_cast<std::size_t>(n)));
    }
    return number;
}

// 150 pixels of 3 bytes are 450 bytes, 452 with the filling to whole words.
TEST(PictureFiles, ABitmapHas24BitsAndThePixelsFromTheBottomUp) {
    const QImage image = SmallMap();
    const std::string bytes = BitmapBytes(image);
    ASSERT_EQ(bytes.size(), 54U + 452U * High);
    EXPECT_EQ(bytes.substr(0, 2), "BM");
    EXPECT_EQ(NumberAt(bytes, 2, 4), bytes.size());
    EXPECT_EQ(NumberAt(bytes, 10, 4), 54U) << "where the pixels begin";
    EXPECT_EQ(NumberAt(bytes, 14, 4), 40U) << "length of the header";
    EXPECT_EQ(NumberAt(bytes, 18, 4), unsigned{Wide});
    EXPECT_EQ(NumberAt(bytes, 22, 4), unsigned{High});
    EXPECT_EQ(NumberAt(bytes, 26, 2), 1U) << "planes";
    EXPECT_EQ(NumberAt(bytes, 28, 2), 24U) << "bits";
    EXPECT_EQ(NumberAt(bytes, 30, 4), 0U) << "not compressed";
    EXPECT_EQ(NumberAt(bytes, 38, 4), 3780U) << "dots per metre: 96 to the inch";
    for (const auto& [column, row] : {std::pair{75, 60}, {0, 0}, {Wide - 1, High - 1}, {60, 52}}) {
        const auto place = static_cast<std::size_t>(54 + 452 * (High - 1 - row) + 3 * column);
        EXPECT_EQ(NumberAt(bytes, place, 3), image.pixel(column, row) & RGB_MASK) << column << ' ' << row;
    }
}

TEST(PictureFiles, BitmapAndPngReadBackAsTheImage) {
    const QImage image = SmallMap();
    for (const std::string& bytes : {BitmapBytes(image), PngBytes(image)}) {
        const QImage read = QImage::fromData(QByteArray::fromStdString(bytes));
        EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), image);
        EXPECT_EQ(read.dotsPerMeterX(), 3780);
    }
}

TEST(PictureFiles, TheSameDrawingGivesTheSameBytes) {
    EXPECT_EQ(PngBytes(SmallMap()), PngBytes(SmallMap()));
    EXPECT_EQ(BitmapBytes(SmallMap()), BitmapBytes(SmallMap()));
    EXPECT_EQ(SvgBytes(Wide, High, Title, DrawSmallMap), SvgBytes(Wide, High, Title, DrawSmallMap));
    const std::string pdf = PdfBytes(Wide, High, Title, DrawSmallMap);
    EXPECT_EQ(pdf, PdfBytes(Wide, High, Title, DrawSmallMap));
    EXPECT_EQ(pdf.find("(D:"), std::string::npos) << "a date changes from second to second";
}

/// How often each element stands in a document; empty with a test failure if it is not well formed.
std::map<std::string, int> ElementsOf(const std::string& svg, std::string& texts) {
    std::map<std::string, int> elements;
    QXmlStreamReader reader(QByteArray::fromStdString(svg));
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement) {
            ++elements[reader.name().toString().toStdString()];
        } else if (reader.isCharacters()) {
            texts += reader.text().toString().toStdString();
        }
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return elements;
}

TEST(PictureFiles, AnSvgHasTheFillAsOneImageAndLinesAndTextsAsVectors) {
    std::string texts;
    std::map<std::string, int> elements = ElementsOf(SvgBytes(Wide, High, Title, DrawSmallMap), texts);
    EXPECT_EQ(elements["svg"], 1);
    EXPECT_EQ(elements["image"], 1);
    // Five numbers and three pairs of ticks on each axis, the title, three numbers of the legend.
    EXPECT_EQ(elements["text"], 2 * (5 + 6) + 1 + 3);
    EXPECT_GT(elements["path"], 1) << "contour lines and the bar of the legend";
    EXPECT_NE(texts.find(Title), std::string::npos);
    EXPECT_NE(texts.find("4.41E2"), std::string::npos);
    // Without the fill there is no image, and lines alone have one path a colour: five levels, the bar apart.
    elements =
        ElementsOf(SvgBytes(Wide, High, Title, [](PlotSurface& surface) { surface.Line(1, 1, 2, 2, {}); }), texts);
    EXPECT_EQ(elements["image"], 0);
    EXPECT_EQ(elements["path"], 1);
}

/// Mean difference of two images of one size, over pixels and channels [0 to 255].
double MeanDifference(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int row = 0; row < a.height(); ++row) {
        for (int column = 0; column < a.width(); ++column) {
            const QRgb p = a.pixel(column, row);
            const QRgb q = b.pixel(column, row);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
        }
    }
    return sum / (3.0 * a.width() * a.height());
}

/// Draws the four elements of which an SVG of a map is made, as a viewer would.
QImage Shown(const std::string& svg) {
    QImage image(Wide, High, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QXmlStreamReader reader(QByteArray::fromStdString(svg));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const QXmlStreamAttributes attributes = reader.attributes();
        const auto number = [&](const char* name) { return attributes.value(QLatin1String(name)).toDouble(); };
        const auto word = [&](const char* name) { return attributes.value(QLatin1String(name)).toString(); };
        if (reader.name() == u"rect") {
            painter.fillRect(QRectF(0, 0, number("width"), number("height")), QColor(word("fill")));
        } else if (reader.name() == u"image") {
            QImage fill;
            EXPECT_TRUE(fill.loadFromData(QByteArray::fromBase64(word("xlink:href").section(',', 1).toLatin1())));
            EXPECT_EQ(fill.size(), QSize(static_cast<int>(number("width")), static_cast<int>(number("height"))));
            painter.drawImage(QPointF(number("x"), number("y")), fill);
        } else if (reader.name() == u"path") {
            QPainterPath path;
            for (const QString& step : word("d").replace("M", "|M").replace("L", "|L").split('|', Qt::SkipEmptyParts)) {
                const QStringList at = step.mid(1).split(' ');
                const QPointF point(at.value(0).toDouble(), at.value(1).toDouble());
                step.startsWith('M') ? path.moveTo(point) : path.lineTo(point);
            }
            painter.setPen(QPen(QColor(word("stroke")), number("stroke-width"), Qt::SolidLine, Qt::RoundCap));
            painter.drawPath(path);
        } else if (reader.name() == u"text") {
            QFont font;
            font.setFamilies(word("font-family").remove('\'').split(", "));
            font.setPixelSize(static_cast<int>(number("font-size")));
            font.setBold(word("font-weight") == "bold");
            font.setHintingPreference(QFont::PreferNoHinting);
            font.setKerning(false);
            painter.setPen(QColor(word("fill")));
            painter.setFont(font);
            const QPointF place(number("x"), number("y"));
            const QString text = reader.readElementText();
            EXPECT_NEAR(QFontMetricsF(font).horizontalAdvance(text), number("textLength"), 0.001) << text.toStdString();
            painter.drawText(place, text);
        }
    }
    return image;
}

TEST(PictureFiles, AnSvgShowsThePictureOfTheScreen) {
    const std::string svg = SvgBytes(Wide, High, Title, DrawSmallMap);
    EXPECT_NE(svg.find("viewBox=\"0 0 150 130\""), std::string::npos);
    EXPECT_NE(svg.find("width=\"39.6875mm\""), std::string::npos) << "150 / 96 inches";
    const QImage shown = Shown(svg);
    // What differs are the rims of lines and letters; upside down nearly everything does.
    EXPECT_LT(MeanDifference(shown, SmallMap()), 12);
    EXPECT_GT(MeanDifference(shown.mirrored(), SmallMap()), 25);
}

TEST(PictureFiles, AnSvgHoldsNoCharacterThatItsReadersRefuse) {
    std::string texts;
    const std::string svg =
        SvgBytes(Wide, High, "a\x01<b>&\"\x1f", [](PlotSurface& surface) { surface.Print("\x02層"); });
    EXPECT_EQ(ElementsOf(svg, texts)["text"], 1);
    EXPECT_NE(texts.find("a?<b>&\"?"), std::string::npos);
    EXPECT_NE(texts.find("?層"), std::string::npos);
}

// By hand: three digits behind the point at most, no noughts at the end, one path for lines of one colour.
TEST(PictureFiles, AnSvgIsTheSameToTheByteWhereverItIsWritten) {
    const std::string svg = SvgBytes(300, 150, "t", [](PlotSurface& surface) {
        surface.Scale(0, 0, 3, 3);
        surface.Line(0, 0, 1, 1, {255, 0, 0});
        surface.Line(1, 1, 2, 0.3333333F, {255, 0, 0});
        surface.Box(1, 1, 2, 2, {0, 0, 255});
    });
    EXPECT_EQ(svg, R"(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" version="1.1" width="79.375mm" height="39.6875mm" viewBox="0 0 300 150">
 <title>t</title>
 <path fill="none" stroke="#ff0000" stroke-width="1" stroke-linecap="round" stroke-linejoin="round" d="M0 0L100 50L200 16.667"/>
 <path fill="none" stroke="#0000ff" stroke-width="1" stroke-linecap="round" stroke-linejoin="miter" d="M100 50L200 50L200 100L100 100L100 50"/>
</svg>
)");
}

/// Every object of a PDF stands where its table of offsets says.
void ExpectOffsetsHold(const std::string& pdf) {
    const std::size_t start = pdf.rfind("startxref");
    ASSERT_NE(start, std::string::npos);
    const std::size_t table = std::stoul(pdf.substr(start + 10));
    ASSERT_EQ(pdf.substr(table, 4), "xref");
    const std::size_t countLine = pdf.find('\n', table) + 1;
    const int count = std::stoi(pdf.substr(pdf.find(' ', countLine) + 1));
    ASSERT_GT(count, 5);
    const std::size_t rows = pdf.find('\n', countLine) + 1;
    for (int n = 1; n < count; ++n) {
        const std::string row = pdf.substr(rows + 20 * static_cast<std::size_t>(n), 20);
        if (row[17] == 'n') {
            const std::string head = std::to_string(n) + " 0 obj";
            EXPECT_EQ(pdf.substr(std::stoul(row), head.size()), head);
        }
    }
}

TEST(PictureFiles, APdfIsOneWholePageOfThePicturesSize) {
    const std::string pdf = PdfBytes(Wide, High, Title, DrawSmallMap);
    EXPECT_EQ(pdf.rfind("%PDF-1.", 0), 0U);
    EXPECT_EQ(pdf.substr(pdf.size() - 6), "%%EOF\n");
    EXPECT_NE(pdf.find("/Count 1"), std::string::npos);
    // 150 and 130 pixels are 112.5 and 97.5 points; a page is whole points long.
    EXPECT_NE(pdf.find("/MediaBox [0 0 113"), std::string::npos);
    std::size_t images = 0;
    for (std::size_t at = pdf.find("/Subtype /Image"); at != std::string::npos;
         at = pdf.find("/Subtype /Image", at + 1)) {
        ++images;
    }
    EXPECT_EQ(images, 1U);
    EXPECT_EQ(pdf.find("/DCTDecode"), std::string::npos) << "the fill keeps its colours";
    EXPECT_NE(pdf.find("LiberationSans"), std::string::npos) << "texts are texts";
    ExpectOffsetsHold(pdf);
}

TEST(SaveBitmap, ReplacesAFileWholeOrLeavesItAlone) {
    const TemporaryFolder folder;
    const QImage image = SmallMap();
    const std::string path = folder.Put("map.bmp", "earlier");
    SaveBitmap(image, path);
    EXPECT_EQ(folder.Get("map.bmp"), BitmapBytes(image));
    EXPECT_EQ(FaultOf([&] { SaveBitmap(image, folder.Path("none/map.bmp")); }), 76);
    EXPECT_EQ(FaultOf([&] { SaveBitmap(image, folder.Path()); }), 75);
    folder.Put("map.bmp", "earlier");
    EXPECT_EQ(FaultWithFilesLimitedTo(1000, [&] { SaveBitmap(image, path); }), 61);
    chmod(folder.Path().c_str(), 0555);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { SaveBitmap(image, folder.Path("new.bmp")); }), 75);
    chmod(folder.Path().c_str(), 0777);
    EXPECT_EQ(folder.Get("map.bmp"), "earlier");
    EXPECT_EQ(folder.Entries(), 1U);
}

}  // namespace
}  // namespace zirvo
