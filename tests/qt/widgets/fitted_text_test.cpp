// Captions and the boxes that they must fit into, frames of open cells, and texts in another size.
#include <QCheckBox>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "qt/widgets/fitted_font.h"
#include "qt/widgets/form_window.h"
#include "qt/widgets/screen_fonts.h"
#include "qt/widgets/shown_form.h"

namespace zirvo::widgets {
namespace {

QFont Told() {
    return ScreenFont({});
}

TEST(FittedFont, StaysAsToldWhereTheTextFits) {
    const QString text = QStringLiteral("START ANALYSIS");
    const int width = QFontMetrics(Told()).horizontalAdvance(text);
    EXPECT_EQ(FontThatFits(Told(), {.Text = text, .Room = {width, 20}}), Told());
    EXPECT_EQ(FontThatFits(Told(), {.Text = QString(), .Room = {1, 1}}), Told());
}

TEST(FittedFont, IsNarrowerWhereTheTextDoesNotFitAndNoNarrowerThanItMust) {
    for (const QString& text : {QStringLiteral("START ANALYSIS"), QStringLiteral("着目点での解析結果を表示する")}) {
        const int width = QFontMetrics(Told()).horizontalAdvance(text);
        for (int room = width - 1; room > width * 6 / 10; room -= 7) {
            const QFont font = FontThatFits(Told(), {.Text = text, .Room = {room, 20}});
            EXPECT_EQ(font.pixelSize(), Told().pixelSize());
            EXPECT_LE(QFontMetrics(font).horizontalAdvance(text), room);
            QFont wider = font;
            wider.setStretch(font.stretch() + 1);
            EXPECT_GT(QFontMetrics(wider).horizontalAdvance(text), room) << text.toStdString() << " in " << room;
        }
    }
}

TEST(FittedFont, IsSmallerWhereHalfTheWidthIsStillTooMuch) {
    const QString text = QStringLiteral("ANALYTICAL POINTS AND THEIR RESULTS");
    const QFont font = FontThatFits(Told(), {.Text = text, .Room = {80, 20}});
    EXPECT_LT(font.pixelSize(), Told().pixelSize());
    EXPECT_LE(QFontMetrics(font).horizontalAdvance(text), 80);
}

TEST(FittedFont, LetsAWrappedTextHaveAsManyLinesAsItsBoxHasRoomFor) {
    const QString text = QStringLiteral("one two three four five six seven eight nine ten");
    const int line = QFontMetrics(Told()).lineSpacing();
    const int half = QFontMetrics(Told()).horizontalAdvance(text) * 2 / 3;
    EXPECT_EQ(FontThatFits(Told(), {.Text = text, .Room = {half, 2 * line}, .Wrapped = true}), Told());
    const QFont font = FontThatFits(Told(), {.Text = text, .Room = {half, line}, .Wrapped = true});
    EXPECT_LE(QFontMetrics(font).boundingRect(QRect(0, 0, half, 1000), Qt::TextWordWrap, text).height(), line + 1);
}

TEST(FittedFont, GrowsNoHigherThanItsBox) {
    EXPECT_EQ(ScaledFont(Told(), 1, 5), Told()) << "as told, whatever the box";
    EXPECT_EQ(ScaledFont(Told(), 2, 100).pixelSize(), 24);
    EXPECT_LE(QFontMetrics(ScaledFont(Told(), 3, 20)).height(), 20);
    EXPECT_EQ(ScaledFont(Told(), 2, 5), Told()) << "no lower than it was";
}

TEST(FittedFont, LargerLettersGiveWayRatherThanBecomeNarrow) {
    const QString text = QStringLiteral("START ANALYSIS");
    const QFont large = ScaledFont(Told(), 2, 100);
    const int told = QFontMetrics(Told()).horizontalAdvance(text);
    EXPECT_EQ(LargestFontThatFits(Told(), large, {.Text = text, .Room = {3 * told, 100}}), large);
    const QFont between = LargestFontThatFits(Told(), large, {.Text = text, .Room = {told * 3 / 2, 100}});
    EXPECT_GT(between.pixelSize(), Told().pixelSize());
    EXPECT_LT(between.pixelSize(), large.pixelSize());
    EXPECT_GE(between.stretch(), 85);
    EXPECT_LE(QFontMetrics(between).horizontalAdvance(text), told * 3 / 2);
    EXPECT_EQ(LargestFontThatFits(Told(), Told(), {.Text = text, .Room = {told - 20, 100}}),
              FontThatFits(Told(), {.Text = text, .Room = {told - 20, 100}}));
}

class FittedTexts : public ShownForm {
protected:
    static int AdvanceIn(const QWidget& widget, const QString& text) {
        return widget.fontMetrics().horizontalAdvance(text);
    }
};

TEST_F(FittedTexts, CaptionsTooLongForTheirBoxesAreCondensedAndComeBackWhenTheyFit) {
    const std::string words = "the value of the strain in the direction of traffic";
    Form().Command1.Caption = words;
    Form().Option1.Caption = words;
    Form().Check1(0).Caption = words;
    Form().Label1.Caption = words;
    const QString shown = QString::fromStdString(words);
    for (const char* name : {"Command1", "Option1", "Check1(0)"}) {
        const QWidget& widget = Find(name);
        EXPECT_LE(AdvanceIn(widget, shown), widget.width()) << name;
        EXPECT_NE(widget.font(), Told()) << name;
    }
    const QLabel& label = Find<QLabel>("Label1");
    EXPECT_LE(label.heightForWidth(label.width()), label.height() + label.fontMetrics().height() / 4);
    Form().Command1.Caption = "QUIT";
    EXPECT_EQ(Find("Command1").font(), Told());
}

TEST_F(FittedTexts, ALabelOfOneLineStandsInTheMiddleOfItsBoxOneOfSeveralAtItsTop) {
    EXPECT_TRUE(Find<QLabel>("Label1").alignment().testFlag(Qt::AlignVCenter));
    Form().Label1.Height = 900;
    Form().Label1.Caption = "one two three four five six seven eight";
    EXPECT_TRUE(Find<QLabel>("Label1").alignment().testFlag(Qt::AlignTop));
}

TEST_F(FittedTexts, TheBoxOverACellHasAFrameInTheColourOfWhatIsChosen) {
    Form().Text1.BorderStyle = 0;
    QWidget& box = Find("Text1");
    const QImage image = box.grab().toImage();
    const QColor frame = box.palette().color(QPalette::Active, QPalette::Highlight);
    const QPoint middle = image.rect().center();
    for (const QPoint at : {QPoint(middle.x(), 0), QPoint(middle.x(), image.height() - 1), QPoint(0, middle.y()),
                            QPoint(image.width() - 1, middle.y())}) {
        EXPECT_EQ(image.pixelColor(at), frame) << at.x() << "," << at.y();
    }
    EXPECT_NE(image.pixelColor(2, 2), frame);
}

TEST_F(FittedTexts, ALargeTitleOfAFrameEndsAboveWhatStandsInIt) {
    auto& window = dynamic_cast<FormWindow&>(Window());
    window.SetTextScale(2);
    EXPECT_GT(Find("Frame1").fontMetrics().height(), 16);
    window.SetTextScale(1);
    Form().Option1.Top = 240;  // 16 pixels: less than a line in the doubled size
    window.SetTextScale(2);
    EXPECT_GT(Find("Frame1").font().pixelSize(), Told().pixelSize());
    EXPECT_LE(Find("Frame1").fontMetrics().height(), 16);
    window.SetTextScale(1);
    EXPECT_EQ(Find("Frame1").font(), Told());
}

TEST_F(FittedTexts, AllTextsGrowAsFarAsTheirBoxesLetThem) {
    auto& window = dynamic_cast<FormWindow&>(Window());
    window.SetTextScale(2);
    EXPECT_EQ(Find("Text9").font().pixelSize(), 24) << "a page scrolls";
    EXPECT_LE(Find("Text1").fontMetrics().height(), 20);
    EXPECT_GT(Find("Text1").font().pixelSize(), 12);
    EXPECT_GT(Find("Command1").font().pixelSize(), 15);
    EXPECT_LE(AdvanceIn(Find("Command1"), "NEXT & ON"), Find("Command1").width());
    window.SetTextScale(1);
    for (const char* name : {"Text9", "Text1", "Command1", "Label1", "Frame1", "Check1(0)"}) {
        EXPECT_EQ(Find(name).font(), Told()) << name;
    }
    EXPECT_EQ(Form().Log, Events{});
}

}  // namespace
}  // namespace zirvo::widgets
