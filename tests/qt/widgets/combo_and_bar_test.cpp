// Combo boxes and scroll bars as widgets.
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>

#include "qt/widgets/shown_form.h"

namespace zirvo::widgets {
namespace {

void TurnWheel(QWidget& widget, int eighths) {
    QWheelEvent wheel({5, 5}, widget.mapToGlobal(QPointF(5, 5)), {}, {0, eighths}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &wheel);
}

class Combo : public ShownForm {
protected:
    Combo() {
        Form().Combo1.SetFocus();
        Form().Log.clear();
    }
    QComboBox& Shown() { return Find<QComboBox>("Combo1"); }
    forms::ComboBox& Model() { return Form().Combo1; }
    void OpenList() {
        ClickAt(Shown(), {Shown().width() - 6, Shown().height() / 2});
        ASSERT_TRUE(Shown().view()->isVisible());
    }
    void StrikeList(Qt::Key key) { QTest::keyClick(Shown().view(), key); }
    int Clicks() { return static_cast<int>(std::count(Form().Log.begin(), Form().Log.end(), "Combo1 Click")); }
};

TEST_F(Combo, ShowsEntriesAndText) {
    EXPECT_EQ(Shown().count(), 2);
    Model().ListIndex = 1;
    EXPECT_EQ(Shown().currentText(), "EPSz");
    Model().Text = "other";
    EXPECT_EQ(Shown().currentText(), "other");
    EXPECT_EQ(Shown().currentIndex(), -1);
    EXPECT_EQ(Clicks(), 1);  // of the write of the index
}

TEST_F(Combo, ArrowsWithTheListClosedAreAChoice) {
    Strike(Qt::Key_Down);
    EXPECT_EQ(Model().ListIndex.Get(), 0);
    EXPECT_EQ(Shown().currentText(), "EPSx");
    Strike(Qt::Key_Down);
    EXPECT_EQ(Model().ListIndex.Get(), 1);
    EXPECT_EQ(Clicks(), 2);
}

TEST_F(Combo, AStrokeThatItsLineMakesNothingOfCountsOnce) {
    Strike(Qt::Key_F5);
    Strike(Qt::Key_PageDown);  // Qt's own choice of the next entry
    EXPECT_EQ(Form().Log, (Events{"Combo1 KeyDown 116", "Combo1 KeyDown 34", "Combo1 Click"}));
    EXPECT_EQ(Model().ListIndex.Get(), 0);
}

TEST_F(Combo, AClickInTheListIsAChoiceAlsoOfTheSameEntry) {
    Model().ListIndex = 0;
    Form().Log.clear();
    OpenList();
    EXPECT_TRUE(Model().ListOpen.Get());
    QAbstractItemView& list = *Shown().view();
    QTest::qWait(QApplication::doubleClickInterval() +
                 50);  // Qt takes an early release for the end of the opening click
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(0, 0)).center());
    EXPECT_FALSE(Model().ListOpen.Get());
    EXPECT_EQ(Clicks(), 1);
    EXPECT_EQ(Model().Text.Get(), "EPSx");
}

TEST_F(Combo, ArrowsInTheOpenListChooseNothingAndEnterDoesThatAlone) {
    Form().Command1.Default = true;
    OpenList();
    Form().Log.clear();
    StrikeList(Qt::Key_Down);
    StrikeList(Qt::Key_Down);
    EXPECT_EQ(Model().ListIndex.Get(), -1);
    StrikeList(Qt::Key_Return);
    EXPECT_EQ(Model().ListIndex.Get(), 1);
    EXPECT_EQ(Clicks(), 1);
    EXPECT_FALSE(Model().ListOpen.Get());
    EXPECT_EQ(std::count(Form().Log.begin(), Form().Log.end(), "Command1 Click"), 0);
    EXPECT_EQ(std::count(Form().Log.begin(), Form().Log.end(), "Combo1 KeyPress 13"), 0);
}

TEST_F(Combo, EscapeClosesTheListWithoutAChoice) {
    OpenList();
    StrikeList(Qt::Key_Down);
    StrikeList(Qt::Key_Escape);
    EXPECT_FALSE(Shown().view()->isVisible());
    EXPECT_FALSE(Model().ListOpen.Get());
    EXPECT_EQ(Clicks(), 0);
}

TEST_F(Combo, AnOpenListTakesNoFocusFromTheBox) {
    OpenList();
    EXPECT_TRUE(Model().HasFocus());
    EXPECT_EQ(std::count(Form().Log.begin(), Form().Log.end(), "Combo1 LostFocus"), 0);
    StrikeList(Qt::Key_Escape);
    EXPECT_EQ(Form().Log, (Events{"Combo1 KeyDown 27", "Combo1 KeyPress 27"}));
}

TEST_F(Combo, TypingGoesIntoItsTextAlsoWhileTheListIsOpen) {
    Type("E");
    EXPECT_EQ(Model().Text.Get(), "E");
    OpenList();
    StrikeList(Qt::Key_P);
    EXPECT_EQ(Model().Text.Get(), "Ep");
}

TEST_F(Combo, AKeyPressThatCompletesTheTextSelectsTheRest) {
    Model().KeyPress = [this](int& code) {
        if (code == 'E') {
            Model().ListIndex = 0;
            Model().SelStart = 1;
            Model().SelLength = 3;
            code = 0;
        }
    };
    QTest::keyClick(Window().windowHandle(), 'E');
    EXPECT_EQ(Shown().lineEdit()->text(), "EPSx");
    EXPECT_EQ(Shown().lineEdit()->selectedText(), "PSx");
}

TEST_F(Combo, ATextThatIsAnEntryIsNoChoiceWhenTheBoxIsLeft) {
    Type("EPSx");
    EXPECT_EQ(Model().ListIndex.Get(), -1);
    Form().Log.clear();
    Strike(Qt::Key_Tab);
    EXPECT_EQ(Clicks(), 0);
}

TEST_F(Combo, TheWheelDoesNothing) {
    Model().ListIndex = 0;
    TurnWheel(Shown(), -120);
    TurnWheel(*Shown().lineEdit(), -120);
    EXPECT_EQ(Model().ListIndex.Get(), 0);
    EXPECT_EQ(Shown().currentIndex(), 0);
}

class Bar : public ShownForm {
protected:
    QScrollBar& Shown() { return Find<QScrollBar>("VScroll1"); }
    forms::VScrollBar& Model() { return Form().VScroll1; }
    QRect Part(QStyle::SubControl part) {
        QStyleOptionSlider option;
        option.initFrom(&Shown());
        option.orientation = Qt::Vertical;
        option.minimum = Shown().minimum();
        option.maximum = Shown().maximum();
        option.sliderPosition = Shown().sliderPosition();
        option.sliderValue = Shown().value();
        option.singleStep = Shown().singleStep();
        option.pageStep = Shown().pageStep();
        option.upsideDown = Shown().invertedAppearance();
        option.subControls = QStyle::SC_All;
        return Shown().style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &Shown());
    }
};

TEST_F(Bar, GrowsUpwardsWhereItsMinimumIsTheLarger) {
    EXPECT_EQ(Shown().value(), Shown().maximum());  // 0 stands at the bottom
    Model().Value = 100;
    EXPECT_EQ(Shown().value(), 0);
}

TEST_F(Bar, AnArrowIsOneStepAndTakesTheFocus) {
    Form().Text1.SetFocus();
    Form().Log.clear();
    ClickAt(Shown(), Part(QStyle::SC_ScrollBarSubLine).center());
    EXPECT_EQ(Model().Value.Get(), 1);
    EXPECT_EQ(Form().Log, (Events{"Text1 LostFocus", "VScroll1 GotFocus", "VScroll1 Change"}));
    ClickAt(Shown(), Part(QStyle::SC_ScrollBarAddLine).center());
    EXPECT_EQ(Model().Value.Get(), 0);
    ClickAt(Shown(), Part(QStyle::SC_ScrollBarAddLine).center());
    EXPECT_EQ(Model().Value.Get(), 0);
}

TEST_F(Bar, AnArrowThatIsHeldRepeatsItsStep) {
    const QPoint arrow = Shown().mapTo(&Window(), Part(QStyle::SC_ScrollBarSubLine).center());
    QTest::mousePress(Window().windowHandle(), Qt::LeftButton, {}, arrow);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Model().Value >= 3; }, 5000));
    QTest::mouseRelease(Window().windowHandle(), Qt::LeftButton, {}, arrow);
}

TEST_F(Bar, AClickBesideTheThumbIsOneStepToo) {
    Model().Value = 50;
    ClickAt(Shown(), Part(QStyle::SC_ScrollBarSubPage).center());
    EXPECT_EQ(Model().Value.Get(), 51);
}

TEST_F(Bar, TheThumbCountsWhenItIsReleased) {
    const QPoint thumb = Shown().mapTo(&Window(), Part(QStyle::SC_ScrollBarSlider).center());
    QWindow* window = Window().windowHandle();
    QTest::mousePress(window, Qt::LeftButton, {}, thumb);
    Form().Log.clear();
    QTest::mouseMove(window, thumb - QPoint(0, 4));
    QTest::mouseMove(window, thumb - QPoint(0, 8));
    EXPECT_EQ(Model().Value.Get(), 0);
    EXPECT_EQ(Form().Log, Events{});
    QTest::mouseRelease(window, Qt::LeftButton, {}, thumb - QPoint(0, 8));
    EXPECT_GT(Model().Value.Get(), 0);
    EXPECT_EQ(Form().Log, Events{"VScroll1 Change"});
}

TEST_F(Bar, TheWheelDoesNothing) {
    TurnWheel(Shown(), 120);
    EXPECT_EQ(Model().Value.Get(), 0);
    EXPECT_EQ(Shown().value(), Shown().maximum());
}

TEST_F(Bar, KeysCountOneStepEach) {
    Model().SetFocus();
    Strike(Qt::Key_Up);
    Strike(Qt::Key_PageUp);
    EXPECT_EQ(Model().Value.Get(), 2);
    Strike(Qt::Key_Down);
    EXPECT_EQ(Model().Value.Get(), 1);
}

TEST_F(Bar, ABubbleShowsTheNumberWhileTheThumbIsDragged) {
    Model().Value = 50;
    const QPoint thumb = Shown().mapTo(&Window(), Part(QStyle::SC_ScrollBarSlider).center());
    QWindow* window = Window().windowHandle();
    EXPECT_EQ(Window().findChild<QLabel*>("VScroll1Bubble"), nullptr);
    QTest::mousePress(window, Qt::LeftButton, {}, thumb);
    QTest::mouseMove(window, thumb - QPoint(0, 4));
    QTest::mouseMove(window, thumb - QPoint(0, 8));
    auto& bubble = Find<QLabel>("VScroll1Bubble");
    EXPECT_TRUE(bubble.isVisible());
    const int shown = bubble.text().toInt();
    EXPECT_GT(shown, 50);
    EXPECT_EQ(Model().Value.Get(), 50);
    EXPECT_LE(bubble.geometry().right(), Shown().mapTo(&Window(), QPoint()).x());  // the bar stays in sight
    QTest::mouseRelease(window, Qt::LeftButton, {}, thumb - QPoint(0, 8));
    EXPECT_EQ(Model().Value.Get(), shown);
    EXPECT_FALSE(bubble.isVisible());
}

TEST_F(Bar, TypedDigitsStandInTheBubbleUntilEnterSetsThem) {
    Model().SetFocus();
    Form().Log.clear();
    Type("42");
    EXPECT_EQ(Find<QLabel>("VScroll1Bubble").text(), "42");
    EXPECT_EQ(Model().Value.Get(), 0);
    Strike(Qt::Key_Return);
    EXPECT_EQ(Model().Value.Get(), 42);
    EXPECT_FALSE(Find<QLabel>("VScroll1Bubble").isVisible());
    EXPECT_EQ(std::count(Form().Log.begin(), Form().Log.end(), "VScroll1 Change"), 1);
    Type("101");
    Strike(Qt::Key_Return);
    EXPECT_EQ(Find<QLabel>("VScroll1Bubble").text(), "101 > 100");
    EXPECT_EQ(Model().Value.Get(), 42);
    Form().Text1.UserFocus();
    EXPECT_FALSE(Find<QLabel>("VScroll1Bubble").isVisible());
}

TEST_F(Bar, AHeldArrowGoesFasterBehindASecond) {
    Model().Min = 10000;
    const QPoint arrow = Shown().mapTo(&Window(), Part(QStyle::SC_ScrollBarSubLine).center());
    QTest::mousePress(Window().windowHandle(), Qt::LeftButton, {}, arrow);
    // Step by step it would take 50 s at a repetition each 50 ms.
    EXPECT_TRUE(QTest::qWaitFor([this] { return Model().Value >= 1000; }, 20000));
    QTest::mouseRelease(Window().windowHandle(), Qt::LeftButton, {}, arrow);
    EXPECT_TRUE(Model().IsHeld());
    ClickAt(Shown(), Part(QStyle::SC_ScrollBarAddLine).center());
    EXPECT_FALSE(Model().IsHeld());
}

TEST_F(Bar, AHandlerThatMovesItBackIsWhatTheWidgetShows) {
    Model().Change = [this] { Model().Value = 0; };
    ClickAt(Shown(), Part(QStyle::SC_ScrollBarSubLine).center());
    EXPECT_EQ(Model().Value.Get(), 0);
    EXPECT_EQ(Shown().value(), Shown().maximum());
    EXPECT_EQ(Shown().sliderPosition(), Shown().maximum());
}

}  // namespace
}  // namespace zirvo::widgets
