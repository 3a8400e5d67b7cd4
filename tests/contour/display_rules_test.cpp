// What may be shown together, which keys pass, how many lines there are at least.
#include "contour/display_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace zirvo {
namespace {

DisplayItems Items(bool fill, bool lines, bool legend, bool points, bool results) {
    return {fill, lines, legend, points, results};
}

TEST(JudgeDisplayItems, ResultsBringTheirPointsAndDropTheLegend) {
    const DisplayItems settled = Items(true, false, false, true, true);
    EXPECT_EQ(JudgeDisplayItems(Items(true, false, true, false, true)), (DisplayRuling{settled, true, true, false}));
    EXPECT_EQ(JudgeDisplayItems(Items(true, false, false, false, true)), (DisplayRuling{settled, true, true, false}));
    // LEGEND ticked afterwards, with RESULTS still on.
    EXPECT_EQ(JudgeDisplayItems(Items(true, false, true, true, true)), (DisplayRuling{settled, true, true, false}));
}

TEST(JudgeDisplayItems, ItsAnswerNeedsNoSecondCorrection) {
    for (int bits = 0; bits < 32; ++bits) {
        const auto first = JudgeDisplayItems(
            Items((bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0, (bits & 16) != 0));
        const auto second = JudgeDisplayItems(first.Items);
        EXPECT_FALSE(second.ItemsCorrected) << bits;
        EXPECT_EQ(second.Items, first.Items) << bits;
    }
}

TEST(JudgeDisplayItems, TheFillAloneDoesNotEnableDrawingAgain) {
    EXPECT_FALSE(JudgeDisplayItems(Items(true, false, false, false, false)).RedrawEnabled);
    EXPECT_TRUE(JudgeDisplayItems(Items(false, true, false, false, false)).RedrawEnabled);
    EXPECT_TRUE(JudgeDisplayItems(Items(false, false, true, false, false)).RedrawEnabled);
    EXPECT_TRUE(JudgeDisplayItems(Items(false, false, false, true, false)).RedrawEnabled);
    EXPECT_TRUE(JudgeDisplayItems(Items(false, false, false, true, true)).RedrawEnabled);
}

TEST(JudgeDisplayItems, ThePanelOpensOnlyForLines) {
    EXPECT_TRUE(JudgeDisplayItems(Items(false, true, false, false, false)).PanelEnabled);
    EXPECT_FALSE(JudgeDisplayItems(Items(true, false, true, true, false)).PanelEnabled);
}

std::string Typed(const std::string& keys) {
    std::string text;
    for (const char key : keys) {
        if (ValueRangeKeyPasses(key)) {
            text += key;
        }
    }
    return text;
}

TEST(ValueRangeKeyPasses, NumbersPassAndCommasAreLost) {
    EXPECT_EQ(Typed("1.5e-3"), "1.5e-3");
    EXPECT_EQ(Typed("1,5"), "15");
    EXPECT_EQ(Typed("+ 2D4 d E"), "+ 2D4 d E");
    EXPECT_EQ(Typed("\t\r\x1b"), "");
    EXPECT_EQ(Typed("!\"#$%&'()*/:;<=>?@ABC"), "");
    EXPECT_EQ(Typed("FGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcfghijklmnopqrstuvwxyz{|}~\x7f"), "");
    EXPECT_EQ(Typed("\b"), "\b");
    EXPECT_TRUE(ValueRangeKeyPasses(128));
    EXPECT_TRUE(ValueRangeKeyPasses(0x3042));
}

TEST(AllowedContourLineCount, IsFiveAtLeastAndHasNoMost) {
    EXPECT_EQ(AllowedContourLineCount(3), 5);
    EXPECT_EQ(AllowedContourLineCount(-1), 5);
    EXPECT_EQ(AllowedContourLineCount(5), 5);
    EXPECT_EQ(AllowedContourLineCount(500), 500);
}

}  // namespace
}  // namespace zirvo
