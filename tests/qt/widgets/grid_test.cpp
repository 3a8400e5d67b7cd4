// The grid as a widget: what it paints where, and what the user does to it.
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QScrollBar>

#include "grid/cls_flex_grid_edit.h"
#include "qt/widgets/grid_binding.h"
#include "qt/widgets/shown_form.h"

namespace zirvo::widgets {
namespace {

class Grid : public ShownForm {
protected:
    GridWidget& Shown() { return static_cast<GridWidget&>(Find("MSFlexGrid1")); }
    forms::MSFlexGrid& Model() { return Form().MSFlexGrid1; }
    /// 4500 by 1800 twips are 300 by 120 pixels; a row has 17, a column that nobody has set 64.
    static QPoint InCell(int row, int col) { return {1 + 64 * col + 30, 1 + 17 * row + 8}; }
    QColor ColourAt(QPoint at) { return Shown().grab().toImage().pixelColor(at); }
    QColor Palette(QPalette::ColorRole role) { return Shown().palette().color(QPalette::Active, role); }
    void Fill(int rows) {
        Model().Rows = rows + 1;
        for (int row = 1; row <= rows; ++row) {
            Model().SetTextMatrix(row, 0, "POINT " + std::to_string(row));
        }
    }
};

TEST_F(Grid, CellsLieWhereTheModelSaysToThePixel) {
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            EXPECT_EQ(Shown().CellRect(row, col), QRect(1 + 64 * col, 1 + 17 * row, 64, 17)) << row << " " << col;
        }
    }
}

TEST_F(Grid, AScaledGridHasNoGapsBetweenItsCells) {
    Model().Move(3750.4, 600.7, 4500, 1800);
    for (int col = 0; col < 3; ++col) {
        Model().SetColWidth(col, 1003.3);
        EXPECT_EQ(Shown().CellRect(1, col).right() + 1, Shown().CellRect(1, col + 1).left());
    }
    EXPECT_EQ(Shown().CellRect(1, 1).bottom() + 1, Shown().CellRect(2, 1).top());
}

TEST_F(Grid, TheEditorsBoxLiesExactlyOverItsCellAndInFrontOfTheGrid) {
    Model().Move(3750.4, 600.7, 4500.9, 1800.3);
    Model().SetColWidth(1, 1003.3);
    Model().Row = 2;
    Model().Col = 2;
    application_.Dispatch([this] {
        forms::TextBox& box = Form().Controls.Add("tbFgEdit1", nullptr);
        box.BorderStyle = 0;
        box.Move(Model().Left + Model().CellLeft(), Model().Top + Model().CellTop(), Model().CellWidth(),
                 Model().CellHeight());
        box.Visible = true;
        box.ZOrder();
        box.SetFocus();
    });
    QWidget& box = Find("tbFgEdit1");
    EXPECT_EQ(box.geometry(), Shown().CellRect(2, 2).translated(Shown().pos()));
    EXPECT_EQ(Window().childAt(box.geometry().center()), &box);
    EXPECT_EQ(QtFocus(), "tbFgEdit1");
    Type("5");
    EXPECT_EQ(dynamic_cast<forms::TextBox&>(*Form().Controls.Find("tbFgEdit1")).Text.Get(), "5");
    application_.Dispatch([this] { Form().Controls.Remove("tbFgEdit1"); });
    Settle();
    EXPECT_EQ(Window().findChild<QWidget*>("tbFgEdit1"), nullptr);
}

TEST_F(Grid, AnEditorMayBeReplacedInsideItsOwnKeyHandler) {
    application_.Dispatch([this] {
        forms::TextBox& box = Form().Controls.Add("tbFgEdit1", nullptr);
        box.Move(3750, 600, 960, 255);
        box.Visible = true;
        box.SetFocus();
        box.KeyDown = [this](int&) {
            Form().Controls.Remove("tbFgEdit1");
            Form().Controls.Add("tbFgEdit11", nullptr).Visible = true;
        };
    });
    Type("5");
    Settle();
    EXPECT_EQ(Window().findChild<QWidget*>("tbFgEdit1"), nullptr);
    EXPECT_NE(Window().findChild<QWidget*>("tbFgEdit11"), nullptr);
}

TEST_F(Grid, AClickMakesACellCurrentAndTakesTheFocus) {
    Form().Text1.SetFocus();
    Form().Log.clear();
    ClickAt(Shown(), InCell(2, 3));
    EXPECT_EQ(Model().Row.Get(), 2);
    EXPECT_EQ(Model().Col.Get(), 3);
    EXPECT_EQ(Form().Log,
              (Events{"Text1 LostFocus", "MSFlexGrid1 GotFocus", "MSFlexGrid1 LeaveCell", "MSFlexGrid1 EnterCell"}));
}

TEST_F(Grid, AClickOnAHeadingOrBesideTheCellsTakesTheFocusOnly) {
    ClickAt(Shown(), InCell(0, 2));
    EXPECT_TRUE(Model().HasFocus());
    EXPECT_EQ(Model().Row.Get(), 1);
    EXPECT_EQ(Model().Col.Get(), 1);
    Form().Text1.SetFocus();
    ClickAt(Shown(), {100, 90});
    EXPECT_TRUE(Model().HasFocus());
    EXPECT_EQ(Model().Row.Get(), 1);
}

TEST_F(Grid, ADoubleClickIsOneClickAndOneDoubleClick) {
    const QPoint at = Shown().mapTo(&Window(), InCell(1, 2));
    QTest::mouseDClick(Window().windowHandle(), Qt::LeftButton, {}, at);
    EXPECT_EQ(std::count(Form().Log.begin(), Form().Log.end(), "MSFlexGrid1 DblClick"), 1);
    EXPECT_EQ(std::count(Form().Log.begin(), Form().Log.end(), "MSFlexGrid1 EnterCell"), 1);
}

TEST_F(Grid, KeysMoveTheCurrentCell) {
    Model().SetFocus();
    Strike(Qt::Key_Down);
    Strike(Qt::Key_Right);
    EXPECT_EQ(Model().Row.Get(), 2);
    EXPECT_EQ(Model().Col.Get(), 2);
}

TEST_F(Grid, AStrokeInTheBoxOfACellGoesOnByOneCell) {
    const auto editor = std::make_shared<clsFlexGridEdit>();
    editor->FlexGridControl(Model());
    Model().SetFocus();
    Type("5");
    Strike(Qt::Key_Down);
    EXPECT_EQ(Model().Row.Get(), 2);
    Type("6");
    Strike(Qt::Key_Up);
    EXPECT_EQ(Model().Row.Get(), 1);
    Strike(Qt::Key_Return);
    EXPECT_EQ(Model().Col.Get(), 2);
    EXPECT_EQ(Model().TextMatrix(1, 1), "5");
    EXPECT_EQ(Model().TextMatrix(2, 1), "6");
    EXPECT_EQ(QtFocus().toStdString(), editor->BoxName());
}

TEST_F(Grid, TheWheelScrollsThreeRowsANotch) {
    Fill(100);
    QWheelEvent wheel({5, 5}, Shown().mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Shown(), &wheel);
    EXPECT_EQ(Model().TopRow.Get(), 4);
    EXPECT_EQ(Shown().Vertical().value(), 4);
}

TEST_F(Grid, ADisabledOneScrollsByWheelAndBarsAndRaisesNothing) {
    Fill(100);
    Model().Enabled = false;
    Form().Log.clear();
    const QPointF inside(100, 40);
    QWheelEvent wheel(inside, Shown().mapToGlobal(inside), {}, {0, -240}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Window().windowHandle(),
                                &wheel);  // on its way through Qt, which skips what is disabled
    QCoreApplication::sendEvent(&Shown(), &wheel);
    const int turned = Model().TopRow;
    EXPECT_GE(turned, 7);
    QScrollBar& bar = Shown().Vertical();
    ClickAt(bar, {bar.width() / 2, bar.height() - 12});  // below the thumb: the next page
    EXPECT_GT(Model().TopRow.Get(), turned);
    bar.setValue(bar.maximum());
    EXPECT_TRUE(Model().RowIsVisible(100));
    Shown().Horizontal().setValue(2);
    EXPECT_EQ(Model().LeftCol.Get(), 2);
    EXPECT_EQ(Form().Log, Events{});
    EXPECT_FALSE(Model().HasFocus());
}

TEST_F(Grid, AMarkedCellHasAFrameAndAGroundOfItsOwn) {
    Model().MarkCell(2, 2);
    const QRect cell = Shown().CellRect(2, 2);
    const QColor ground = ColourAt(cell.center());
    EXPECT_NE(ground, Palette(QPalette::Base));
    const QColor frame = ColourAt(cell.topLeft());
    EXPECT_NE(frame, ground);
    EXPECT_EQ(ColourAt(cell.topLeft() + QPoint(1, 1)), frame);  // two pixels
    Model().Unmark();
    EXPECT_EQ(ColourAt(cell.center()), Palette(QPalette::Base));
}

TEST_F(Grid, ASelectedTableIsFilledWholeWhileItHasTheFocus) {
    Model().SetFocus();
    Model().AllSelected = true;
    EXPECT_EQ(ColourAt(InCell(0, 2)), Palette(QPalette::Highlight));
    EXPECT_EQ(ColourAt(InCell(3, 3)), Palette(QPalette::Highlight));
    Form().Text1.SetFocus();
    EXPECT_EQ(ColourAt(InCell(3, 3)), Palette(QPalette::Base));
}

TEST_F(Grid, ItsBarsStandWhereTheModelLeavesRoomAndScrollIt) {
    EXPECT_FALSE(Shown().Vertical().isVisible());
    EXPECT_TRUE(Shown().Horizontal().isVisible());  // five columns of 64 in 298
    Fill(100);
    EXPECT_TRUE(Shown().Vertical().isVisible());
    EXPECT_EQ(Shown().Vertical().geometry(), QRect(283, 1, 16, 102));
    EXPECT_EQ(Shown().Horizontal().geometry(), QRect(1, 103, 282, 16));
    Shown().Vertical().setValue(50);
    EXPECT_EQ(Model().TopRow.Get(), 50);
    Model().TopRow = 20;
    EXPECT_EQ(Shown().Vertical().value(), 20);
    Shown().Horizontal().setValue(2);
    EXPECT_EQ(Model().LeftCol.Get(), 2);
}

TEST_F(Grid, TheScrollPositionStaysWhenCellsAndRowsChange) {
    Fill(100);
    Model().TopRow = 40;
    Model().SetTextMatrix(41, 1, "7");
    Model().Rows = 90;
    EXPECT_EQ(Model().TopRow.Get(), 40);
    EXPECT_EQ(Shown().Vertical().value(), 40);
    ClickAt(Shown(), InCell(1, 1));
    EXPECT_EQ(Model().Row.Get(), 40);
}

TEST_F(Grid, TheCurrentCellIsFilledWhereTheMarkingIsOn) {
    Model().Row = 2;
    Model().Col = 2;
    EXPECT_EQ(ColourAt(InCell(2, 2)), Palette(QPalette::Highlight));
    Model().Highlight = forms::HighlightKind::Never;
    EXPECT_EQ(ColourAt(InCell(2, 2)), Palette(QPalette::Base));
}

TEST_F(Grid, TheFocusedGridHasAThinFrameRoundItsCurrentCell) {
    Model().Highlight = forms::HighlightKind::Never;
    const QPoint corner = Shown().CellRect(1, 1).topLeft();
    EXPECT_EQ(ColourAt(corner), Palette(QPalette::Base));
    Model().SetFocus();
    EXPECT_EQ(ColourAt(corner), Palette(QPalette::Highlight));
    EXPECT_EQ(ColourAt(corner + QPoint(1, 1)), Palette(QPalette::Base));  // thin, and nothing filled
    Form().Text1.SetFocus();
    EXPECT_EQ(ColourAt(corner), Palette(QPalette::Base));
}

TEST_F(Grid, HeadingsLookDifferentAndADisabledGridIsGrey) {
    EXPECT_EQ(ColourAt(InCell(0, 2)), Palette(QPalette::Button));
    EXPECT_EQ(ColourAt(InCell(2, 0)), Palette(QPalette::Button));
    const QImage enabled = Shown().grab().toImage();
    Model().Enabled = false;
    EXPECT_NE(Shown().grab().toImage(), enabled);
    Form().Log.clear();
    ClickAt(Shown(), InCell(2, 2));
    EXPECT_EQ(Form().Log, Events{});
}

TEST_F(Grid, ATextThatIsTooWideStaysInItsCell) {
    Model().SetTextMatrix(2, 2, "");
    const QImage before = Shown().grab().toImage();
    Model().SetTextMatrix(2, 2, "123456789012345678901234567890");
    const QImage after = Shown().grab().toImage();
    const QRect cell = Shown().CellRect(2, 2);
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x) {
            if (!cell.contains(x, y)) {
                ASSERT_EQ(after.pixel(x, y), before.pixel(x, y)) << x << " " << y;
            }
        }
    }
    EXPECT_NE(after.copy(cell), before.copy(cell));
}

TEST_F(Grid, AnInputMethodReachesTheKeyEventsOfTheCell) {
    Model().SetFocus();
    Form().Log.clear();
    QInputMethodEvent decided;
    decided.setCommitString("５");  // U+FF15
    QCoreApplication::sendEvent(&Shown(), &decided);
    EXPECT_EQ(std::count(Form().Log.begin(), Form().Log.end(), "MSFlexGrid1 KeyPress 65301"), 1);
}

TEST_F(Grid, TellsItsCurrentCellToAScreenReader) {
    Model().SetTextMatrix(0, 1, "MODULUS");
    Model().SetTextMatrix(1, 0, "LAYER 1");
    Model().Row = 2;
    Model().Row = 1;
    EXPECT_EQ(Shown().accessibleDescription(), "LAYER 1, MODULUS: 12.5");
    Model().SetTextMatrix(1, 1, "13");
    EXPECT_EQ(Shown().accessibleDescription(), "LAYER 1, MODULUS: 13");
}

TEST_F(Grid, TenThousandRowsArePaintedAsFastAsTen) {
    Fill(10000);
    Model().SetColWidth(0, 1800);
    Model().TopRow = 9000;
    EXPECT_TRUE(Model().RowIsVisible(9000));
    const QImage shown = Shown().grab().toImage();
    EXPECT_NE(shown.copy(Shown().CellRect(9000, 0)), shown.copy(Shown().CellRect(9001, 0)));
    QElapsedTimer timer;
    timer.start();
    constexpr int times = 100;
    for (int i = 0; i < times; ++i) {
        Shown().repaint();
    }
    // Measured: under 1 ms each. A paint that went through all rows would take hundreds of them.
    EXPECT_LT(timer.elapsed(), 20 * times);
}

}  // namespace
}  // namespace zirvo::widgets
