// Tables of numbers: what is a row, what is passed over, what is refused and where.
#include "design/number_table.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zirvo::design {
namespace {

NumberTable Read(std::string_view bytes, BadCells badCells = BadCells::Refuse) {
    const auto read = ReadNumberTable(bytes, "t.csv", badCells);
    EXPECT_EQ(read.index(), 0U) << std::get<FileError>(read).Text();
    return std::get<NumberTable>(read);
}

std::string Told(std::string_view bytes) {
    const auto read = ReadNumberTable(bytes, "t.csv", BadCells::Refuse);
    return read.index() == 1 ? std::get<FileError>(read).Text() : "passes";
}

TEST(NumberTables, CommentsEmptyLinesBlanksAndBothLineEndsArePassedOver) {
    const NumberTable table = Read("\xEF\xBB\xBF# head\r\n\r\n a , layer 1 modulus \r\n1, 2\n\n#x\n 3E2 ,-4.5");
    EXPECT_EQ(table.Columns, (std::vector<std::string>{"a", "layer 1 modulus"}));
    EXPECT_EQ(table.Numbers, (std::vector<double>{1, 2, 300, -4.5}));
    EXPECT_EQ(table.Lines, (std::vector<long long>{4, 7}));
    EXPECT_EQ(table.Find("layer 1 modulus"), 1U);
    EXPECT_EQ(table.Find("b"), std::nullopt);
}

TEST(NumberTables, WhatIsWrongIsToldWithItsLine) {
    EXPECT_EQ(Told("a,a\n"), "t.csv:1: two columns are named a");
    EXPECT_EQ(Told("a,,b\n"), "t.csv:1: heading 2 is empty");
    EXPECT_EQ(Told("a,b\n1,2,3\n"), "t.csv:2: 3 numbers beneath 2 headings");
    EXPECT_EQ(Told("a,b\n1,\n"), "t.csv:2: b \"\": is no number");
    EXPECT_EQ(Told("# nothing\n"), "t.csv: is empty: a row of headings and rows of numbers are expected");
}

TEST(NumberTables, ABadCellCanLoseItsRowAlone) {
    const NumberTable table = Read("a,b\n1,two\n3,4\n", BadCells::AreNaN);
    EXPECT_EQ(table.Rows(), 2U);
    EXPECT_TRUE(std::isnan(table.At(0, 1)));
    EXPECT_EQ(table.At(1, 1), 4);
}

}  // namespace
}  // namespace zirvo::design
