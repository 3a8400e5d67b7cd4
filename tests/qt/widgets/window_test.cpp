// Windows, focus, what happens while a handler runs, pictures.
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <cmath>

#include "qt/widgets/program_icon.h"
#include "qt/widgets/shown_form.h"

namespace zirvo::widgets {
namespace {

using Windows = ShownForm;

TEST_F(Windows, HaveTheFormsNameTitleAndFixedSizeInTheMiddleOfTheScreen) {
    EXPECT_EQ(Window().objectName(), "Form9");
    EXPECT_EQ(Window().windowRole(), "Form9");
    EXPECT_EQ(Window().windowTitle(), "ZIRVO");
    EXPECT_EQ(Window().size(), QSize(600, 480));
    EXPECT_EQ(Window().minimumSize(), Window().maximumSize());
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_EQ(Window().geometry().center(), screen.center());
    Form().Caption = "- ZIRVO Ver2.3 -";
    EXPECT_EQ(Window().windowTitle(), "- ZIRVO Ver2.3 -");
}

TEST_F(Windows, ATrimmedFrameHasNoCloseEntryAndARequestIsRefusedWithoutAQuestion) {
    EXPECT_FALSE(Window().windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_FALSE(Window().close());
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(Form().Log, Events{});
}

TEST_F(Windows, AFrameWithACloseEntryAsksTheForm) {
    Form().HasCloseEntry = true;
    EXPECT_TRUE(Window().windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_TRUE(Window().isVisible());
    Form().Cancel = true;
    Window().close();
    EXPECT_EQ(Form().Log, Events{"QueryUnload menu"});
    EXPECT_TRUE(Window().isVisible());
    Form().Cancel = false;
    Window().close();
    EXPECT_EQ(application_.Find("Form9"), nullptr);
}

TEST_F(Windows, AFormMayUnloadItselfInItsOwnButton) {
    Form().Command1.Click = [this] { Form().Unload(); };
    Click("Command1");
    EXPECT_EQ(application_.Find("Form9"), nullptr);
    Settle();
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        EXPECT_NE(widget->objectName(), "Form9");
    }
    application_.Show("Form9");  // loaded anew
    EXPECT_TRUE(Window().isVisible());
}

TEST_F(Windows, AHiddenFormKeepsItsWindowAndItsFocus) {
    Form().Combo1.SetFocus();
    Form().Hide();
    EXPECT_FALSE(Window().isVisible());
    Form().Show();
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(Window().focusWidget(), &Find("Combo1"));  // has the keys as soon as the window has them
}

TEST_F(Windows, TabGoesThroughTheTabStopsInTheOrderOfTheControls) {
    Form().Option1.SetFocus();
    QStringList stops;
    for (int i = 0; i < 6; ++i) {
        stops.append(QtFocus());
        Strike(Qt::Key_Tab);
    }
    EXPECT_EQ(stops.join(' '), "Option1 Text1 Combo1 Check1(0) Check1(1) Check1(2)");
    Strike(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QtFocus(), "Check1(2)");
}

TEST_F(Windows, QtMovesNoFocusWhenTheOneThatHasItIsDisabledWithinAHandler) {
    Form().Command1.SetFocus();
    Form().Log.clear();
    application_.Dispatch([this] {
        Form().Command1.Enabled = false;
        Form().Command1.Enabled = true;
        EXPECT_TRUE(Form().Command1.HasFocus());
    });
    EXPECT_EQ(Form().Log, Events{});
    EXPECT_EQ(QtFocus(), "Command1");
}

TEST_F(Windows, AControlThatIsHiddenHandsTheFocusOnByTheModelsRule) {
    Form().Text1.SetFocus();
    Form().Log.clear();
    application_.Dispatch([this] { Form().Text1.Visible = false; });
    EXPECT_EQ(QtFocus(), "Combo1");
    EXPECT_EQ(Form().Log, (Events{"Text1 LostFocus", "Combo1 GotFocus"}));
}

TEST_F(Windows, AnotherWindowInFrontChangesNoFocusAndRaisesNothing) {
    Form().Text1.SetFocus();
    Form().Log.clear();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(Form().Text1.HasFocus());
    Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    EXPECT_EQ(QtFocus(), "Text1");
    EXPECT_EQ(Form().Log, Events{});
}

TEST_F(Windows, WithoutAnyTabStopKeysStillReachTheDefaultButton) {
    for (forms::Control* control : Form().Controls) {
        control->TabStop = false;
    }
    Form().Text1.SetFocus();
    Form().Text1.Enabled = false;
    application_.Dispatch([] {});
    ASSERT_EQ(Form().ActiveControl(), nullptr);
    Form().Command2.Default = true;
    Form().Log.clear();
    Strike(Qt::Key_Return);
    EXPECT_EQ(Form().Log, Events{"Command2 Click"});
}

TEST_F(Windows, WhatTheUserDoesWhileAHandlerRunsComesToNothing) {
    Form().Command1.Click = [this] {
        Form().Log.clear();
        Type("x");
        Strike(Qt::Key_Tab);
        Click("Command2");
        Click("Check1(0)");
        Window().close();
    };
    Click("Command1");
    EXPECT_EQ(Form().Log, Events{});
    EXPECT_TRUE(Form().Command1.HasFocus());
    EXPECT_FALSE(Form().Check1(0).Value);
    EXPECT_FALSE(Find<QAbstractButton>("Check1(0)").isChecked());
}

TEST_F(Windows, InputThatWaitedBehindALongHandlerIsThrownAway) {
    Form().Text1.SetFocus();
    Form().Command1.Click = [this] {
        // As the display brings them while nobody listens.
        QCoreApplication::postEvent(Window().windowHandle(), new QKeyEvent(QEvent::KeyPress, Qt::Key_5, {}, "5"));
        QCoreApplication::postEvent(&Find("Text1"), new QKeyEvent(QEvent::KeyPress, Qt::Key_6, {}, "6"));
        desktop_.DiscardInput();
    };
    application_.Dispatch([this] { Form().Command1.Press(); });
    Settle();
    EXPECT_EQ(Form().Text1.Text.Get(), "");
    Type("7");
    EXPECT_EQ(Form().Text1.Text.Get(), "7");
}

TEST_F(Windows, PaintNowShowsWhatHasChangedBeforeItReturns) {
    class Watcher : public QObject {
    public:
        int Paints = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            Paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } watcher;
    Find("Text9").installEventFilter(&watcher);
    Find("Label1").installEventFilter(&watcher);
    application_.Dispatch([&] {
        Form().Label1.Caption = "COMPUTING NOW...";
        const int before = watcher.Paints;
        desktop_.PaintNow(Form());
        EXPECT_GT(watcher.Paints, before);
    });
}

TEST_F(Windows, ScreenAndTextsAreMeasuredInTwips) {
    const forms::ScreenSize screen = desktop_.Screen();
    const QSize pixels = QGuiApplication::primaryScreen()->size();
    EXPECT_EQ(screen.Width, pixels.width() * 15.0);
    EXPECT_EQ(screen.Height, pixels.height() * 15.0);
    EXPECT_EQ(screen.TwipsPerPixel, 15.0);
    const forms::FontSpec font;
    const float one = desktop_.TextWidth(font, "LAYER 1");
    EXPECT_GT(one, 0.0F);
    EXPECT_EQ(std::fmod(one, 15.0F), 0.0F);
    EXPECT_GT(desktop_.TextWidth(font, "LAYER 10"), one);
    EXPECT_EQ(desktop_.TextWidth(font, "LAYER 1\nx"), one);
    EXPECT_EQ(desktop_.TextWidth(font, ""), 0.0F);
    EXPECT_EQ(desktop_.TextHeight(font, "a\nb"), 2 * desktop_.TextHeight(font, "a"));
}

TEST_F(Windows, TheFontOfTheScreensIsNinePoints) {
    EXPECT_EQ(Find("Label1").font().pixelSize(), 12);
    EXPECT_EQ(Find("Label1").font().families().constFirst(), "Liberation Sans");
    Form().Font = forms::FontSpec{.Name = {}, .Size = 10};
    Form().Label1.Caption = "anew";
    EXPECT_EQ(Find("Label1").font().pixelSize(), 13);
}

using Pictures = ShownForm;

TEST_F(Pictures, ADrawingIsShownByItsName) {
    const QImage drawn = Find("Image1").grab().toImage();
    Form().Image1.Picture = "no such drawing";
    EXPECT_NE(Find("Image1").grab().toImage(), drawn);
    Form().Image1.Picture = "plane_xy";
    EXPECT_EQ(Find("Image1").grab().toImage(), drawn);
}

TEST_F(Pictures, ATextStandsWrappedInAPicture) {
    const QImage empty = Find("Picture1").grab().toImage();
    Form().Picture1.Text = "a note that is longer than its picture is wide";
    EXPECT_NE(Find("Picture1").grab().toImage(), empty);
    EXPECT_EQ(Find("Picture1").accessibleDescription(), "a note that is longer than its picture is wide");
}

TEST_F(Pictures, AMousePressTellsButtonAndPixel) {
    QWidget& picture = Find("Picture1");
    ClickAt(picture, {7, 9});
    QTest::mouseClick(Window().windowHandle(), Qt::RightButton, {}, picture.mapTo(&Window(), QPoint(1, 2)));
    EXPECT_EQ(Form().Log, (Events{"Picture1 MouseDown 1 7 9", "Picture1 MouseDown 2 1 2"}));
}

TEST_F(Pictures, AMapStaysWhenItIsCoveredAndIsSavedWith24Bits) {
    const std::unique_ptr<MapPicture> map = desktop_.MapPictureMaker()(Form().Picture1);
    EXPECT_EQ(map->Geometry().Width, 1500);
    map->Surface().Scale(0, 0, 100, 100);
    map->Surface().FilledBox(0, 0, 49, 49, Color{255, 0, 0});
    map->Present();
    EXPECT_EQ(Find("Picture1").grab().toImage().pixelColor(10, 10), QColor(255, 0, 0));
    EXPECT_EQ(Find("Picture1").grab().toImage().pixelColor(90, 90), QColor(0, 0, 0));
    Form().Hide();
    Form().Show();
    EXPECT_EQ(Find("Picture1").grab().toImage().pixelColor(10, 10), QColor(255, 0, 0));

    const QTemporaryDir folder;
    const QString file = folder.filePath("map.bmp");
    map->SaveBitmap(file.toStdString());
    const QImage saved(file);
    EXPECT_EQ(saved.size(), QSize(100, 100));
    EXPECT_EQ(saved.pixelColor(10, 10), QColor(255, 0, 0));
    QFile bytes(file);
    ASSERT_TRUE(bytes.open(QIODevice::ReadOnly));
    EXPECT_EQ(bytes.readAll().at(28), 24);  // bits a pixel stand at byte 28 of a bitmap
}

TEST_F(Pictures, AMapMadeBeforeTheWindowIsShownByIt) {
    Form().Unload();
    Settle();
    auto& form = application_.Get<EveryKind>();
    const std::unique_ptr<MapPicture> map = desktop_.MapPictureMaker()(form.Picture1);
    form.Show();
    EXPECT_EQ(Find("Picture1").size(), QSize(100, 100));
    EXPECT_EQ(Find("Picture1").grab().toImage().pixelColor(50, 50), QColor(0, 0, 0));
}

TEST(Icon, IsThereInEverySizeThatADesktopAsksFor) {
    const QIcon icon = ProgramIcon();
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        const QImage image = icon.pixmap(QSize(size, size), 1.0).toImage();
        EXPECT_EQ(image.size(), QSize(size, size));
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << "beside the wheel nothing is painted";
        EXPECT_GT(image.pixelColor(size / 2, size / 2).red(), 150) << "the strain under the wheel";
        EXPECT_EQ(image.pixelColor(1, size - 1).alpha(), 255);
    }
}

}  // namespace
}  // namespace zirvo::widgets
