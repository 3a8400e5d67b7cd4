// Columns to comma text, the fitted constants above all.
#include "text/csv_line.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace zirvo {
namespace {

/// n blanks between two texts.
std::string Gap(std::string_view before, std::size_t n, std::string_view after) {
    std::string text(before);
    text.append(n, ' ');
    text.append(after);
    return text;
}

std::string Convert(const std::string& line) {
    return ConvertToCsvLine(line, ' ', ',');
}

TEST(ConvertToCsvLine, GapsBetweenValuesBecomeOneCommaAndLeadingOnesNothing) {
    EXPECT_EQ(Convert("  1   2"), "1,2");
    EXPECT_EQ(Convert("1 2 3"), "1,2,3");
    EXPECT_EQ(Convert("1"), "1");
}

TEST(ConvertToCsvLine, GapOfOneToTwelveBlanksIsOneComma) {
    for (std::size_t n = 1; n <= 12; ++n) {
        EXPECT_EQ(Convert(Gap("A", n, "B")), "A,B") << n;
    }
}

TEST(ConvertToCsvLine, GapOfThirteenBlanksIsAnEmptyFieldAndEveryTwelveMoreAddOne) {
    EXPECT_EQ(Convert(Gap("A", 13, "B")), "A,,B");
    EXPECT_EQ(Convert(Gap("A", 24, "B")), "A,,B");
    EXPECT_EQ(Convert(Gap("A", 25, "B")), "A,,,B");
    EXPECT_EQ(Convert(Gap("A", 36, "B")), "A,,,B");
    EXPECT_EQ(Convert(Gap("A", 37, "B")), "A,,,,B");
}

TEST(ConvertToCsvLine, ExactlyEightLeadingBlanksAreAnEmptyFirstField) {
    EXPECT_EQ(Convert(Gap("", 8, "X")), ",X");
    for (const unsigned n : {1U, 2U, 7U, 9U, 10U, 12U}) {
        EXPECT_EQ(Convert(Gap("", n, "X")), "X") << n;
    }
}

// Deliberate: the count of leading blanks is taken back where a gap is found too long, so that it can reach 7 again.
TEST(ConvertToCsvLine, TwentyLeadingBlanksMeetTheRuleOfEightAgain) {
    EXPECT_EQ(Convert(Gap("", 13, "X")), ",X");    // one long gap: of its two commas the first is dropped
    EXPECT_EQ(Convert(Gap("", 19, "X")), ",X");    // the same
    EXPECT_EQ(Convert(Gap("", 20, "X")), ",,X");   // a long gap, and 7 pairs more
    EXPECT_EQ(Convert(Gap("", 21, "X")), ",X");    // 8 pairs more are no such case
    EXPECT_EQ(Convert(Gap("", 25, "X")), ",,X");   // two long gaps
    EXPECT_EQ(Convert(Gap("", 32, "X")), ",,,X");  // two long gaps, and 7 pairs more
}

TEST(ConvertToCsvLine, TrailingGapGivesNoCommaUnlessItIsLong) {
    EXPECT_EQ(Convert("A "), "A");
    EXPECT_EQ(Convert(Gap("A", 12, "")), "A");
    EXPECT_EQ(Convert(Gap("A", 13, "")), "A,");
    EXPECT_EQ(Convert(Gap("A", 24, "")), "A,");
    EXPECT_EQ(Convert(Gap("A", 25, "")), "A,,");
}

TEST(ConvertToCsvLine, OnlyOneCharacterIsDroppedAtEachEnd) {
    EXPECT_EQ(Convert(",,A,,"), ",A,");  // commas of the line itself count too
    EXPECT_EQ(Convert(","), "");
    EXPECT_EQ(Convert(",,"), "");
    EXPECT_EQ(Convert(" , "), ",");
}

TEST(ConvertToCsvLine, EmptyAndBlankLinesAreEmpty) {
    EXPECT_EQ(Convert(""), "");
    EXPECT_EQ(Convert(" "), "");
    EXPECT_EQ(Convert("  "), "");
    EXPECT_EQ(Convert(Gap("", 8, "")), "");  // the rule of eight asks for a text behind the blanks
    EXPECT_EQ(Convert(Gap("", 12, "")), "");
    EXPECT_EQ(Convert(Gap("", 13, "")), "");  // two commas, of which each end takes one
    EXPECT_EQ(Convert(Gap("", 25, "")), ",");
}

TEST(ConvertToCsvLine, StampLineIsSplitAtItsBlank) {
    EXPECT_EQ(Convert("   <ZIRVO Ver2.3>"), "<ZIRVO,Ver2.3>");
}

TEST(ConvertToCsvLine, SameReplacementKeepsTheDelimiter) {
    EXPECT_EQ(ConvertToCsvLine("  1   2 ", ' ', ' '), "1 2");
    EXPECT_EQ(ConvertToCsvLine("1;;2", ';', '\t'), "1\t2");
}

TEST(ConvertToCsvLine, OtherBytesStayAsTheyAre) {
    EXPECT_EQ(Convert(" 層番号　 X\t1"), "層番号　,X\t1");  // an ideographic space and a tab are no delimiters
    EXPECT_EQ(Convert("\x91\x77\x94\xD4 \x83\x5C\xFF"), "\x91\x77\x94\xD4,\x83\x5C\xFF");
    EXPECT_EQ(Convert(std::string("a\0 b", 4)), std::string("a\0,b", 4));
}

}  // namespace
}  // namespace zirvo
