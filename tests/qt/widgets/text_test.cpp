// Text boxes as widgets: keys, selection, clipboard, input methods, pages to read.
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTimer>

#include "qt/widgets/shown_form.h"

namespace zirvo::widgets {
namespace {

class Text : public ShownForm {
protected:
    Text() {
        Form().Text1.SetFocus();
        Form().Log.clear();
    }
    QLineEdit& Line() { return Find<QLineEdit>("Text1"); }
    forms::TextBox& Box() { return Form().Text1; }
};

TEST_F(Text, TypingGoesThroughTheEventsIntoTheModel) {
    Type("5x");
    EXPECT_EQ(Box().Text.Get(), "5x");
    EXPECT_EQ(Line().text(), "5x");
    EXPECT_EQ(Box().SelStart.Get(), 2);
    EXPECT_EQ(Form().Log, (Events{"Text1 KeyDown 53", "Text1 KeyPress 53", "Text1 Change", "Text1 KeyDown 88",
                                  "Text1 KeyPress 120", "Text1 Change"}));
}

TEST_F(Text, AKeyThatAHandlerDropsTypesNothing) {
    Box().KeyPress = [](int& code) { code = 0; };
    Type("5");
    EXPECT_EQ(Line().text(), "");
    EXPECT_EQ(Box().Text.Get(), "");
}

TEST_F(Text, AKeyThatAHandlerChangesTypesWhatItWasChangedTo) {
    Box().KeyPress = [](int& code) { code = '7'; };
    Type("5");
    EXPECT_EQ(Line().text(), "7");
}

TEST_F(Text, PeriodAndDeleteAreToldApart) {
    Type("1.");
    EXPECT_EQ(Box().Text.Get(), "1.");
    EXPECT_EQ(Form().Log.at(3), "Text1 KeyDown 190");
    EXPECT_EQ(Form().Log.at(4), "Text1 KeyPress 46");
    Form().Log.clear();
    Strike(Qt::Key_Home);
    Strike(Qt::Key_Delete);
    EXPECT_EQ(Box().Text.Get(), ".");
    EXPECT_EQ(Form().Log, (Events{"Text1 KeyDown 36", "Text1 KeyDown 46", "Text1 Change"}));
}

// Qt hands a stroke that a line makes nothing of on to the widgets around it.
TEST_F(Text, AStrokeThatTheLineMakesNothingOfCountsOnce) {
    Type("5");
    Form().Log.clear();
    Strike(Qt::Key_Down);
    Strike(Qt::Key_PageUp);
    Strike(Qt::Key_F5);
    EXPECT_EQ(Form().Log, (Events{"Text1 KeyDown 40", "Text1 KeyDown 33", "Text1 KeyDown 116"}));
    EXPECT_EQ(Line().text(), "5");
    EXPECT_EQ(QtFocus(), "Text1");
}

TEST_F(Text, AStrokeCountsOnceAlsoInABoxWithinAFrame) {
    forms::TextBox& box = Form().Controls.Add("Text7", &Form().Frame1);
    box.Move(150, 1050, 1500, 300);
    box.Visible = true;
    box.SetFocus();
    int strokes = 0;
    box.KeyDown = [&strokes](int& code) {
        EXPECT_EQ(code, forms::key::Down);
        ++strokes;
    };
    Strike(Qt::Key_Down);
    EXPECT_EQ(strokes, 1);
}

TEST_F(Text, BackspaceSelectionAndCaretWorkAsInAnyLine) {
    Type("12345");
    Strike(Qt::Key_Backspace);
    Strike(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(Box().SelStart.Get(), 3);
    EXPECT_EQ(Box().SelLength.Get(), 1);
    Type("9");
    EXPECT_EQ(Box().Text.Get(), "1239");
    Strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Box().Text.Get(), "1234");
}

TEST_F(Text, WhatTheProgramWritesShowsWithTheCaretAtTheStart) {
    Type("12");
    Form().Log.clear();
    Box().Text = "abc";
    EXPECT_EQ(Line().text(), "abc");
    EXPECT_EQ(Line().cursorPosition(), 0);
    EXPECT_EQ(Form().Log, Events{"Text1 Change"});
    Box().SelStart = 1;
    Box().SelLength = 2;
    EXPECT_EQ(Line().selectedText(), "bc");
    EXPECT_EQ(Form().Log, Events{"Text1 Change"});
}

TEST_F(Text, SelectionsCountCharactersNotUtf16) {
    Box().Text =
        "\xF0\xA0\x80\x8B"
        "あb";  // the first lies outside the first plane
    Box().SelStart = 1;
    Box().SelLength = 1;
    EXPECT_EQ(Line().selectedText(), QString::fromUtf8("あ"));
    Strike(Qt::Key_End);
    EXPECT_EQ(Box().SelStart.Get(), 3);
}

TEST_F(Text, TheSelectionSurvivesTheLossOfTheFocus) {
    Type("1234");
    Strike(Qt::Key_Left, Qt::ShiftModifier);
    Form().Command1.SetFocus();
    EXPECT_EQ(Box().SelStart.Get(), 3);
    EXPECT_EQ(Box().SelLength.Get(), 1);
    EXPECT_EQ(Line().selectedText(), "4");
}

TEST_F(Text, PasteTakesTheFirstLineUnfiltered) {
    Box().KeyPress = [](int& code) {
        if (code > 32) {
            code = 0;
        }
    };
    QGuiApplication::clipboard()->setText("abc\ndef");
    Strike(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Box().Text.Get(), "abc");
    EXPECT_EQ(Line().text(), "abc");
}

TEST_F(Text, PasteFromTheMenuTakesTheFirstLineToo) {
    QGuiApplication::clipboard()->setText("abc\ndef");
    bool pasted = false;
    QTimer::singleShot(0, &Line(), [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions()) {
            if (action->text().startsWith(QLineEdit::tr("&Paste"))) {
                action->trigger();
                pasted = true;
            }
        }
        menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, Line().mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&Line(), &event);
    EXPECT_TRUE(pasted);
    EXPECT_EQ(Line().text(), "abc");
}

TEST_F(Text, TheMiddleButtonPastesNothing) {
    QGuiApplication::clipboard()->setText("abc", QClipboard::Selection);
    QGuiApplication::clipboard()->setText("abc");
    QTest::mouseClick(Window().windowHandle(), Qt::MiddleButton, {}, Line().mapTo(&Window(), QPoint(5, 5)));
    EXPECT_EQ(Line().text(), "");
}

TEST_F(Text, AClickSetsTheCaretAndTheFocus) {
    Box().Text = "12345678901234567890";
    Form().Command1.SetFocus();
    Form().Log.clear();
    ClickAt(Line(), {Line().width() - 5, 8});
    EXPECT_GT(Box().SelStart.Get(), 5);
    EXPECT_EQ(Form().Log, (Events{"Command1 LostFocus", "Text1 GotFocus"}));
}

TEST_F(Text, AnInputMethodTypesItsCharactersThroughTheEvents) {
    QInputMethodEvent composing("にほ", {});
    QCoreApplication::sendEvent(&Line(), &composing);
    EXPECT_EQ(Box().Text.Get(), "");  // nothing is decided
    EXPECT_EQ(Form().Log, Events{});
    QInputMethodEvent decided;
    decided.setCommitString("日本");
    QCoreApplication::sendEvent(&Line(), &decided);
    EXPECT_EQ(Box().Text.Get(), "日本");
    EXPECT_EQ(Line().text(), QString::fromUtf8("日本"));
    EXPECT_EQ(std::count(Form().Log.begin(), Form().Log.end(), "Text1 KeyPress 26085"), 1);  // 日, U+65E5
}

TEST_F(Text, AnInputMethodIsFilteredLikeKeys) {
    Box().KeyPress = [](int& code) {
        if (code < 128 && (code < '0' || code > '9')) {
            code = 0;
        }
    };
    QInputMethodEvent decided;
    decided.setCommitString("a1");
    QCoreApplication::sendEvent(&Line(), &decided);
    EXPECT_EQ(Box().Text.Get(), "1");
}

TEST_F(Text, ADisabledOrLockedBoxTakesNothing) {
    Box().Locked = true;
    Type("5");
    EXPECT_EQ(Box().Text.Get(), "");
    EXPECT_EQ(Line().text(), "");
    Box().Locked = false;
    Box().Enabled = false;
    Type("5");
    EXPECT_EQ(Box().Text.Get(), "");
}

TEST_F(Text, ABoxWithoutBorderIsFlat) {
    EXPECT_TRUE(Line().hasFrame());
    Box().BorderStyle = 0;
    EXPECT_FALSE(Line().hasFrame());
}

TEST_F(Text, ABoxThatIsDisabledForAMomentWithinAHandlerTypesOn) {
    application_.Dispatch([this] {
        Box().Enabled = false;
        Box().Enabled = true;
    });
    EXPECT_TRUE(Box().HasFocus());
    EXPECT_EQ(QtFocus(), "Text1");
    Type("5");
    EXPECT_EQ(Line().text(), "5");
}

TEST_F(Text, ATextFieldIsCalledByTheLabelBesideIt) {
    Form().Hide();
    Form().Show();
    EXPECT_EQ(Line().accessibleName(), "R&D value");
    EXPECT_EQ(Find("VScroll1").accessibleName(), "VScroll1");  // nothing stands beside it
}

class Page : public ShownForm {
protected:
    QPlainTextEdit& Shown() { return Find<QPlainTextEdit>("Text9"); }
};

TEST_F(Page, ShowsLinesUnwrappedWithBothBars) {
    Form().Text9.Text = "   ===\r\n" + std::string(300, 'x') + "\r\nlast";
    EXPECT_EQ(Shown().blockCount(), 3);
    EXPECT_EQ(Shown().lineWrapMode(), QPlainTextEdit::NoWrap);
    EXPECT_EQ(Shown().verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    EXPECT_EQ(Shown().horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    EXPECT_TRUE(Shown().isReadOnly());
}

TEST_F(Page, IsReadByKeysAndWheelButNotWritten) {
    std::string text;
    for (int i = 0; i < 200; ++i) {
        text += "line " + std::to_string(i) + "\r\n";
    }
    Form().Text9.Text = text;
    Form().Text9.SetFocus();
    Strike(Qt::Key_PageDown);
    EXPECT_GT(Shown().verticalScrollBar()->value(), 0);
    Type("x");
    EXPECT_EQ(Form().Text9.Text.Get(), text);
    const int before = Shown().verticalScrollBar()->value();
    QWheelEvent wheel({5, 5}, Shown().mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Shown().viewport(), &wheel);
    EXPECT_GT(Shown().verticalScrollBar()->value(), before);
}

TEST_F(Page, AStrokeAtItsEndCountsOnce) {
    Form().Text9.SetFocus();
    Form().Log.clear();
    Strike(Qt::Key_PageDown);
    Strike(Qt::Key_Down);
    EXPECT_EQ(Form().Log, (Events{"Text9 KeyDown 34", "Text9 KeyDown 40"}));
}

TEST_F(Page, ItsTextIsSelectedAndCopied) {
    Form().Text9.Text = "abc";
    Form().Text9.SetFocus();
    Strike(Qt::Key_A, Qt::ControlModifier);
    Strike(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "abc");
}

TEST_F(Page, KeepsItsPlaceWhenAnotherPropertyChanges) {
    std::string text;
    for (int i = 0; i < 200; ++i) {
        text += "line\r\n";
    }
    Form().Text9.Text = text;
    Shown().verticalScrollBar()->setValue(50);
    Form().Text9.Enabled = false;
    Form().Text9.Enabled = true;
    EXPECT_EQ(Shown().verticalScrollBar()->value(), 50);
}

TEST_F(Page, UsesTheFixedPitchFontsByNameWithStandIns) {
    Form().Text9.Font = forms::FontSpec{.Name = "Courier", .Size = 10};
    EXPECT_TRUE(QFontInfo(Shown().font()).fixedPitch());
    EXPECT_EQ(Shown().font().pixelSize(), 13);  // 10 points at 96 to the inch
    Form().Text9.Font = forms::FontSpec{.Name = "ＭＳ ゴシック", .Size = 10};
    const QFontMetricsF metrics(Shown().font());
    EXPECT_EQ(metrics.horizontalAdvance(QString::fromUtf8("層")), 2 * metrics.horizontalAdvance("x"));
    EXPECT_EQ(metrics.horizontalAdvance(QString::fromUtf8("層層")), metrics.horizontalAdvance("-1.5"));
}

}  // namespace
}  // namespace zirvo::widgets
