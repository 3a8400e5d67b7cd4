// The grid as an assistive tool reads it.
#include "qt/widgets/accessible_grid.h"

#include "qt/widgets/shown_form.h"

namespace zirvo::widgets {
namespace {

class ReadGrid : public ShownForm {
protected:
    ReadGrid() {
        Model().SetTextMatrix(0, 1, "MODULUS(MPa)");
        Model().SetTextMatrix(0, 2, "POISSON RATIO");
        Model().SetTextMatrix(2, 0, "LAYER 2");
        Model().SetTextMatrix(2, 1, "5000");
        Form().Text1.UserFocus();
    }
    GridWidget& Shown() { return static_cast<GridWidget&>(Find("MSFlexGrid1")); }
    forms::MSFlexGrid& Model() { return Form().MSFlexGrid1; }
    QAccessibleInterface& Table() { return *QAccessible::queryAccessibleInterface(&Shown()); }
    QAccessibleInterface& Cell(int row, int col) { return *Table().tableInterface()->cellAt(row, col); }
};

TEST_F(ReadGrid, IsATableWithRowsColumnsAndHeadings) {
    EXPECT_EQ(Table().role(), QAccessible::Table);
    EXPECT_FALSE(Table().text(QAccessible::Name).isEmpty());
    ASSERT_NE(Table().tableInterface(), nullptr);
    EXPECT_EQ(Table().tableInterface()->rowCount(), 4);
    EXPECT_EQ(Table().tableInterface()->columnCount(), 5);
    EXPECT_EQ(Table().tableInterface()->columnDescription(1), "MODULUS(MPa)");
    EXPECT_EQ(Table().tableInterface()->rowDescription(2), "LAYER 2");
    EXPECT_EQ(Table().childCount(), 20);
    EXPECT_EQ(Table().tableInterface()->cellAt(4, 0), nullptr);
    EXPECT_EQ(Table().child(-1), nullptr);
}

TEST_F(ReadGrid, ACellTellsItsNamePlaceTextAndHeadings) {
    QAccessibleInterface& cell = Cell(2, 1);
    EXPECT_EQ(cell.role(), QAccessible::Cell);
    EXPECT_EQ(cell.text(QAccessible::Name), "LAYER 2, MODULUS(MPa)");
    EXPECT_EQ(cell.text(QAccessible::Value), "5000");
    QAccessibleTableCellInterface* place = cell.tableCellInterface();
    ASSERT_NE(place, nullptr);
    EXPECT_EQ(place->rowIndex(), 2);
    EXPECT_EQ(place->columnIndex(), 1);
    ASSERT_EQ(place->columnHeaderCells().size(), 1);
    EXPECT_EQ(place->columnHeaderCells().front()->text(QAccessible::Name), "MODULUS(MPa)");
    EXPECT_EQ(place->columnHeaderCells().front()->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(place->rowHeaderCells().front()->text(QAccessible::Name), "LAYER 2");
    EXPECT_EQ(place->rowHeaderCells().front()->role(), QAccessible::RowHeader);
    EXPECT_EQ(place->table(), &Table());
    EXPECT_EQ(cell.parent(), &Table());
    EXPECT_EQ(Table().indexOfChild(&cell), 11);
    EXPECT_EQ(Table().child(11), &cell);
    EXPECT_EQ(cell.rect().size(), Shown().CellRect(2, 1).size());
    EXPECT_EQ(Table().childAt(cell.rect().center().x(), cell.rect().center().y()), &cell);
}

TEST_F(ReadGrid, TheCurrentCellHasTheFocusOfTheGrid) {
    EXPECT_FALSE(Cell(1, 1).state().focused);
    Model().UserFocus();
    Strike(Qt::Key_Down);
    EXPECT_TRUE(Cell(2, 1).state().focused);
    EXPECT_TRUE(Cell(2, 1).state().selected);
    EXPECT_FALSE(Cell(1, 1).state().focused);
    EXPECT_EQ(Table().focusChild(), &Cell(2, 1));
    EXPECT_EQ(Table().tableInterface()->selectedCells(), QList<QAccessibleInterface*>{&Cell(2, 1)});
}

TEST_F(ReadGrid, AToolMakesACellTheCurrentOne) {
    Cell(3, 2).actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(Model().Row.Get(), 3);
    EXPECT_EQ(Model().Col.Get(), 2);
    EXPECT_TRUE(Model().HasFocus());
    EXPECT_TRUE(Cell(0, 1).actionInterface()->actionNames().isEmpty());
}

TEST_F(ReadGrid, ADisabledOneIsToldSoAndStillRead) {
    Model().Enabled = false;
    EXPECT_TRUE(Table().state().disabled);
    EXPECT_TRUE(Cell(2, 1).state().disabled);
    EXPECT_EQ(Cell(2, 1).text(QAccessible::Value), "5000");
}

TEST_F(ReadGrid, ACellThatHasGoneAnswersNoMore) {
    QAccessibleInterface& cell = Cell(3, 1);
    EXPECT_TRUE(cell.isValid());
    Model().Rows = 3;
    EXPECT_FALSE(cell.isValid());
    EXPECT_EQ(cell.text(QAccessible::Value), "");
    EXPECT_EQ(Table().tableInterface()->rowCount(), 3);
    Model().Rows = 4;
    EXPECT_TRUE(Cell(3, 1).isValid());
}

TEST_F(ReadGrid, OfAFormThatIsGoingAnswersWithNothing) {
    QAccessibleInterface& table = Table();
    QAccessibleInterface& cell = Cell(2, 1);
    const QPoint middle = cell.rect().center();
    Shown().LetGo();
    EXPECT_FALSE(cell.isValid());
    EXPECT_FALSE(cell.tableCellInterface()->isSelected());
    EXPECT_TRUE(cell.rect().isNull());
    EXPECT_EQ(table.childAt(middle.x(), middle.y()), nullptr);
    EXPECT_EQ(table.focusChild(), nullptr);
    EXPECT_EQ(table.childCount(), 0);
}

TEST_F(ReadGrid, TellsWhereTheCurrentCellGoesAndWhatItHolds) {
    Model().UserFocus();
    EXPECT_EQ(Table().role(), QAccessible::Table);  // a tool that has asked once hears from then on
    std::vector<std::pair<int, QString>> heard;
    Shown().ToAssistance = [&heard](QAccessibleEvent* event) {
        QAccessibleInterface* told = event->accessibleInterface();
        heard.emplace_back(event->type(), told == nullptr ? QString() : told->text(QAccessible::Name));
    };
    Strike(Qt::Key_Down);
    Model().SetTextMatrix(2, 1, "7");
    Model().Rows = 9;
    const auto has = [&heard](int type, const char* name) {
        return std::find(heard.begin(), heard.end(), std::pair(type, QString(name))) != heard.end();
    };
    EXPECT_TRUE(has(QAccessible::Focus, "LAYER 2, MODULUS(MPa)"));
    EXPECT_TRUE(has(QAccessible::ValueChanged, "LAYER 2, MODULUS(MPa)"));
    EXPECT_TRUE(std::any_of(heard.begin(), heard.end(),
                            [](const auto& one) { return one.first == QAccessible::TableModelChanged; }));
}

}  // namespace
}  // namespace zirvo::widgets
