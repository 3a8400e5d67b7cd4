// Which cell a failed rule speaks of.
#include "pavement/first_bad_cell.h"

#include <gtest/gtest.h>

#include "pavement/support.h"

namespace zirvo {
namespace {

using test::ExampleTexts;

/// The first bad cell of the rule that refuses the data.
std::optional<BadCell> BadCellOf(const PavementTexts& texts) {
    return FirstBadCell(texts, ValidateData(texts));
}

TEST(FirstBadCell, IsNoneOfDataThatPassesAndOfRulesThatAreNotAboutCells) {
    PavementTexts texts = ExampleTexts();
    EXPECT_EQ(BadCellOf(texts), std::nullopt);
    texts.PointCount = " 0";
    EXPECT_EQ(BadCellOf(texts), std::nullopt);
    texts = ExampleTexts();
    texts.ResultFileName = "";
    EXPECT_EQ(BadCellOf(texts), std::nullopt);
}

TEST(FirstBadCell, IsTheFirstOfItsRowsAndInThatTheFirstColumn) {
    PavementTexts texts = ExampleTexts();
    texts.Layers[1] = {"35000", "0.6", "0", "0"};
    texts.Layers[2][0] = "";
    EXPECT_EQ(BadCellOf(texts), (BadCell{0, 1, 2}));
    texts.Layers[1] = {"35000", "0.35", "5", ""};
    EXPECT_EQ(BadCellOf(texts), (BadCell{0, 1, 4}));
    texts.Layers[1][3] = "0";
    EXPECT_EQ(BadCellOf(texts), (BadCell{0, 2, 1}));
}

TEST(FirstBadCell, OfALoadWithoutForceIsItsVerticalForce) {
    PavementTexts texts = ExampleTexts();
    texts.Loads[1] = {"0", "15", "0", "0", "0", "0"};
    EXPECT_EQ(BadCellOf(texts), (BadCell{1, 1, 1}));
    texts.Loads[1] = {"49", "15", "0", "0", "0", ""};
    EXPECT_EQ(BadCellOf(texts), (BadCell{1, 1, 6}));
}

TEST(FirstBadCell, OfAPointOutsideItsLayerIsTheDepthOrTheNumberOfALayerThatIsNot) {
    PavementTexts texts = ExampleTexts();  // layer 1 is 5 cm thick
    texts.PointCount = " 3";
    texts.Points = {{}, {"1", "0", "0", "5"}, {"2", "0", "0", "4"}, {"3", "0", "0", "4"}};
    EXPECT_EQ(BadCellOf(texts), (BadCell{2, 2, 4}));
    texts.Points[2][3] = "6";
    EXPECT_EQ(BadCellOf(texts), (BadCell{2, 3, 1}));
    texts.Points[1][3] = "-1";
    EXPECT_EQ(BadCellOf(texts), (BadCell{2, 1, 4}));
    texts.Points[1][2] = "";
    EXPECT_EQ(BadCellOf(texts), (BadCell{2, 1, 3}));
}

}  // namespace
}  // namespace zirvo
