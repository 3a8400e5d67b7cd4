// Blocks of cells as spreadsheets write them, and which texts keys can make.
#include "grid/cell_block.h"

#include <gtest/gtest.h>

#include "grid/cell_text.h"

namespace zirvo {
namespace {

TEST(CellBlock, IsReadWithEveryLineEndAndWithoutTheLastOne) {
    const CellBlock block{{"1", "2"}, {"3", "4"}};
    for (const char* text : {"1\t2\n3\t4", "1\t2\r\n3\t4\r\n", "1\t2\r3\t4\r", "1\t2\n3\t4\n"}) {
        EXPECT_EQ(ReadCellBlock(text), block) << text;
    }
    EXPECT_EQ(ReadCellBlock(""), CellBlock{});
    EXPECT_EQ(ReadCellBlock("5"), CellBlock{{"5"}});
}

TEST(CellBlock, KeepsEmptyCellsAndRows) {
    EXPECT_EQ(ReadCellBlock("1\t\t3\n\n\t5"), (CellBlock{{"1", "", "3"}, {""}, {"", "5"}}));
}

TEST(CellBlock, ReadsQuotesAsSpreadsheetsWriteThem) {
    EXPECT_EQ(ReadCellBlock("\"1\"\t\"a\tb\"\n\"c\nd\"\t\"say \"\"x\"\"\""),
              (CellBlock{{"1", "a\tb"}, {"c\nd", "say \"x\""}}));
    EXPECT_EQ(ReadCellBlock("\"\"\t2"), (CellBlock{{"", "2"}}));
}

TEST(CellBlock, AQuoteWithoutItsEndStandsForItself) {
    EXPECT_EQ(ReadCellBlock("\"1\t2\n3"), (CellBlock{{"\"1", "2"}, {"3"}}));
    EXPECT_EQ(ReadCellBlock("\"1\"x\t2"), (CellBlock{{"\"1\"x", "2"}}));
    EXPECT_EQ(ReadCellBlock("5\""), (CellBlock{{"5\""}}));
}

TEST(CellBlock, ReadsBackWhatItWrites) {
    const CellBlock block{{"", "MODULUS(MPa)"}, {"LAYER 1", "a\tb", "\"", "c\r\nd"}, {"5"}};
    EXPECT_EQ(ReadCellBlock(WriteCellBlock(block)), block);
    EXPECT_EQ(WriteCellBlock({{"1", "2"}, {"3"}}), "1\t2\n3");
}

TEST(CellText, IsWhatTheKeysLetThrough) {
    for (const char* text : {"", "12.5", "-1.5E+03", "1d2", "5x0"}) {
        EXPECT_EQ(CanBeTypedInCell(std::string_view(text)), std::string_view(text).find('x') == std::string::npos)
            << text;
    }
    EXPECT_FALSE(CanBeTypedInCell(std::string_view(" 5")));
    EXPECT_FALSE(CanBeTypedInCell(std::string_view("1,000")));
    EXPECT_FALSE(CanBeTypedInCell(std::string_view("5\x7f")));
    EXPECT_TRUE(CanBeTypedInCell(std::string_view("５")));  // full width, as an input method makes it
}

}  // namespace
}  // namespace zirvo
