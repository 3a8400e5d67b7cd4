// Command buttons, option buttons, check boxes, labels and frames as widgets.
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "qt/widgets/shown_form.h"

namespace zirvo::widgets {
namespace {

using Buttons = ShownForm;

TEST_F(Buttons, ShowTheirCaptionsWithoutMarksOfTheirOwn) {
    EXPECT_EQ(Find<QPushButton>("Command1").text(), "NEXT && ON");  // shown as one "&"
    EXPECT_EQ(Find("Command1").accessibleName(), "NEXT & ON");
    EXPECT_EQ(Find<QRadioButton>("Option1").text(), "kN && MPa");
    EXPECT_EQ(Find<QLabel>("Label1").text(), "R&D value");
    EXPECT_EQ(Find<QLabel>("Label1").textFormat(), Qt::PlainText);
    EXPECT_EQ(Find("Frame1").accessibleName(), "1. Units & more");
}

TEST_F(Buttons, AClickTakesTheFocusWithItsEventsAndThenClicks) {
    Form().Text1.SetFocus();
    Form().Log.clear();
    Click("Command1");
    EXPECT_EQ(Form().Log, (Events{"Text1 LostFocus", "Command1 GotFocus", "Command1 Click"}));
    EXPECT_EQ(QtFocus(), "Command1");
}

TEST_F(Buttons, APressThatIsReleasedElsewhereIsNoClick) {
    QWidget& button = Find("Command1");
    QWindow* window = Window().windowHandle();
    QTest::mousePress(window, Qt::LeftButton, {}, button.mapTo(&Window(), QPoint(10, 10)));
    QTest::mouseMove(window, QPoint(5, 5));
    QTest::mouseRelease(window, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_TRUE(Form().Command1.HasFocus());
    EXPECT_EQ(std::count(Form().Log.begin(), Form().Log.end(), "Command1 Click"), 0);
}

TEST_F(Buttons, ADisabledButtonDoesNothingByMouseOrKey) {
    Form().Command1.SetFocus();
    Form().Command1.Enabled = false;
    Form().Log.clear();
    Click("Command1");
    EXPECT_EQ(Form().Log, Events{});
    EXPECT_FALSE(Find("Command1").isEnabled());
}

TEST_F(Buttons, AHiddenButtonIsGoneFromTheScreen) {
    Form().Command1.Visible = false;
    EXPECT_FALSE(Find("Command1").isVisible());
    Form().Command1.Visible = true;
    EXPECT_TRUE(Find("Command1").isVisible());
}

TEST_F(Buttons, TheDefaultButtonIsMarkedAndEnterPressesItWhereverTheFocusIs) {
    Form().Command2.Default = true;
    EXPECT_TRUE(Find<QPushButton>("Command2").isDefault());
    Form().Text1.SetFocus();
    Form().Log.clear();
    Strike(Qt::Key_Return);
    EXPECT_EQ(Form().Log, Events{"Command2 Click"});
    EXPECT_EQ(QtFocus(), "Text1");
    Form().Command1.Default = true;
    EXPECT_FALSE(Find<QPushButton>("Command2").isDefault());
}

TEST_F(Buttons, SpacePressesTheFocusedButtonOnce) {
    Form().Command1.SetFocus();
    Form().Log.clear();
    Strike(Qt::Key_Space);
    EXPECT_EQ(std::count(Form().Log.begin(), Form().Log.end(), "Command1 Click"), 1);
}

TEST_F(Buttons, AnOptionThatIsSetIsClickedAgainAndStaysSet) {
    Click("Option1");
    EXPECT_TRUE(Form().Option1.Value);
    EXPECT_TRUE(Find<QRadioButton>("Option1").isChecked());
    Form().Log.clear();
    Click("Option1");
    EXPECT_EQ(Form().Log, Events{"Option1 Click"});
    EXPECT_TRUE(Find<QRadioButton>("Option1").isChecked());
}

TEST_F(Buttons, ClearingAnOptionByTheProgramLeavesNoneChecked) {
    Click("Option2");
    Form().Option2.Value = false;
    EXPECT_FALSE(Find<QRadioButton>("Option1").isChecked());
    EXPECT_FALSE(Find<QRadioButton>("Option2").isChecked());
}

TEST_F(Buttons, ArrowsSetTheNeighbourInAGroup) {
    Click("Option1");
    Strike(Qt::Key_Down);
    EXPECT_TRUE(Form().Option2.Value);
    EXPECT_TRUE(Find<QRadioButton>("Option2").isChecked());
    EXPECT_FALSE(Find<QRadioButton>("Option1").isChecked());
    EXPECT_EQ(QtFocus(), "Option2");
}

TEST_F(Buttons, ACheckBoxFollowsItsModelAndItsClicksGoIntoIt) {
    Click("Check1(1)");
    EXPECT_TRUE(Form().Check1(1).Value);
    EXPECT_TRUE(Find<QCheckBox>("Check1(1)").isChecked());
    Form().Log.clear();
    Form().Check1(1).Value = false;
    EXPECT_FALSE(Find<QCheckBox>("Check1(1)").isChecked());
    EXPECT_EQ(Form().Log, Events{"Check1(1) Click"});  // the program's write, once
}

TEST_F(Buttons, SpaceOnACheckBoxTurnsItOnce) {
    Form().Check1(0).SetFocus();
    Strike(Qt::Key_Space);
    EXPECT_TRUE(Form().Check1(0).Value);
    EXPECT_TRUE(Find<QCheckBox>("Check1(0)").isChecked());
}

TEST_F(Buttons, AHandlerThatRefusesTheTickIsWhatTheWidgetShows) {
    Form().Check1(2).Click = [this] { Form().Check1(2).Value = false; };
    Click("Check1(2)");
    EXPECT_FALSE(Find<QCheckBox>("Check1(2)").isChecked());
}

TEST_F(Buttons, ALabelFollowsCaptionColourAndAlignment) {
    Form().Label1.Caption = " 3";
    Form().Label1.ForeColor = 0xFFFFFF;
    Form().Label1.Align = forms::Alignment::Right;
    const auto& label = Find<QLabel>("Label1");
    EXPECT_EQ(label.text(), " 3");
    EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(Qt::white));
    EXPECT_TRUE(label.alignment().testFlag(Qt::AlignRight));
}

TEST_F(Buttons, ALongPathInALabelThatLooksLikeAFieldIsWrappedAndWholeBesideTheMouse) {
    const auto& label = Find<QLabel>("Label1");
    Form().Label1.BackColor = 0xFFFFFF;
    Form().Label1.Caption = "/a/b";
    EXPECT_EQ(label.text(), "/a/b");
    EXPECT_EQ(label.toolTip(), "");
    const std::string path = "/home/road/a_folder_name_without_a_blank/another_one";
    Form().Label1.Caption = path;
    EXPECT_EQ(label.toolTip().toStdString(), path);
    EXPECT_EQ(label.text().remove(QChar(0x200B)).toStdString(), path);
    EXPECT_EQ(label.text().count(QChar(0x200B)), 4);  // one behind each separator
    EXPECT_EQ(Form().Label1.Caption, path.c_str());
    Form().Label1.Caption = "C:\\data\\a_folder_name_without_a_blank\\x";
    EXPECT_EQ(label.text().count(QChar(0x200B)), 3);
}

TEST_F(Buttons, StandWhereTheirTwipsSayWithinTheirContainer) {
    EXPECT_EQ(Find("Command1").geometry(), QRect(250, 300, 100, 30));
    EXPECT_EQ(Find("Option1").parentWidget()->objectName(), "Frame1");
    EXPECT_EQ(Find("Option1").geometry(), QRect(10, 20, 160, 20));  // from the outer corner of the frame
    Form().Command1.Move(15, 30, 1500, 450);
    EXPECT_EQ(Find("Command1").geometry(), QRect(1, 2, 100, 30));
}

TEST_F(Buttons, ADisabledFrameDisablesWhatStandsInIt) {
    Form().Frame1.Enabled = false;
    Form().Log.clear();
    Click("Option1");
    EXPECT_EQ(Form().Log, Events{});
    EXPECT_FALSE(Find("Option1").isEnabled());
}

}  // namespace
}  // namespace zirvo::widgets
