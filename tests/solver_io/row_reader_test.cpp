// Rows of numbers: by fields, over several lines, and cut at the columns.
#include "solver/io/row_reader.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <sstream>

#include "solver_io/support.h"

namespace zirvo::solver {
namespace {

using test::Padded;
using Status = RowReader::Status;

constexpr std::array<std::size_t, 4> LayerWidths{13, 17, 17, 16};
constexpr std::array<std::size_t, 2> LastLayerWidths{13, 17};
constexpr std::array<std::size_t, 4> PointWidths{5, 16, 13, 13};

/// The fields of one row, "|" between them; "<end>", "<long>" or "<touch FIELD>" where it stops.
std::string Row(RowReader& reader, std::span<const std::size_t> widths) {
    std::string row;
    reader.BeginRow(widths);
    for (std::size_t i = 0; i < widths.size(); ++i) {
        std::string_view field;
        const Status status = reader.NextField(field);
        row += i > 0 ? "|" : "";
        if (status != Status::Read) {
            return row + (status == Status::End       ? "<end>"
                          : status == Status::TooLong ? "<long>"
                                                      : "<touch " + std::string(field) + ">");
        }
        row += field;
    }
    return row;
}

std::string RowOf(const std::string& text, std::span<const std::size_t> widths) {
    std::istringstream stream(text);
    RowReader reader(stream);
    return Row(reader, widths);
}

TEST(RowReader, ARowOfTheWriterIsReadByFields) {
    EXPECT_EQ(RowOf("        35000             0.35                5               0\r\n", LayerWidths),
              "35000|0.35|5|0");
}

TEST(RowReader, ARowMayGoOnOverSeveralLinesWithAnyLineEnd) {
    EXPECT_EQ(RowOf("35000\r\n0.35\n\n5\r0\r\n", LayerWidths), "35000|0.35|5|0");
    EXPECT_EQ(RowOf("35000,0.35\t,5\r\r,\n", LayerWidths), "35000|0.35|5|");  // a comma alone ends an empty field
}

TEST(RowReader, ANumberAtTheVeryEndOfTheFileIsComplete) {
    EXPECT_EQ(RowOf("1 2 3 4", PointWidths), "1|2|3|4");
    EXPECT_EQ(RowOf("1 2 3 ", PointWidths), "1|2|3|<end>");
}

// 5 + 8 blanks and "35000" fill 13 columns, "0.333333333333333" its 17.
TEST(RowReader, NumbersThatTouchInARowOfFullLengthAreCutAtTheColumns) {
    const std::string touching = Padded("35000", 13) + "0.333333333333333";
    EXPECT_EQ(RowOf(touching + "\r\n", LastLayerWidths), "35000|0.333333333333333");
    EXPECT_EQ(RowOf(touching, LastLayerWidths), "35000|0.333333333333333");
    EXPECT_EQ(RowOf(touching + Padded("5", 17) + Padded("0", 16) + "\r\n", LayerWidths), "35000|0.333333333333333|5|0");
}

TEST(RowReader, RowsBehindACutRowAreReadAsUsual) {
    const std::string touching = Padded("35000", 13) + "0.333333333333333";
    for (const std::string end : {"\r\n", "\n", "\r"}) {
        std::string text;
        for (const std::string& row : {touching, touching, std::string("  1000   0.4"), std::string("7")}) {
            text += row;
            text += end;
        }
        std::istringstream stream(text);
        RowReader reader(stream);
        EXPECT_EQ(Row(reader, LastLayerWidths), "35000|0.333333333333333");
        EXPECT_EQ(reader.Line(), 1);
        EXPECT_EQ(Row(reader, LastLayerWidths), "35000|0.333333333333333");
        EXPECT_EQ(reader.Line(), 2);
        EXPECT_EQ(Row(reader, LastLayerWidths), "1000|0.4");
        EXPECT_EQ(reader.Line(), 3);
        EXPECT_EQ(Row(reader, LastLayerWidths), "7|<end>");
    }
}

TEST(RowReader, ACutRowBehindBlankLinesKeepsItsColumns) {
    const std::string touching = Padded("35000", 13) + "0.333333333333333\r\n";
    EXPECT_EQ(RowOf("\r\n   \r\n" + touching, LastLayerWidths), "35000|0.333333333333333");
    EXPECT_EQ(RowOf(std::string(200, ' ') + "\r\n" + touching, LastLayerWidths), "35000|0.333333333333333");
}

TEST(RowReader, ACutRowBehindACommaAtTheEndOfALineIsCutToo) {
    std::istringstream stream("1 2,\r\n" + Padded("35000", 13) + "0.333333333333333\r\n");
    RowReader reader(stream);
    EXPECT_EQ(Row(reader, LastLayerWidths), "1|2");
    EXPECT_EQ(Row(reader, LastLayerWidths), "35000|0.333333333333333");
}

TEST(RowReader, ALineOfAnotherLengthIsNotCut) {
    EXPECT_EQ(RowOf(Padded("35000", 12) + "0.333333333333333\r\n0.4\r\n", LastLayerWidths),
              "350000.333333333333333|0.4");
}

TEST(RowReader, ALineOfFullLengthIsNotCutWhereAPieceIsNoNumber) {
    // Two of four numbers, the rest of the columns blank: the row goes on below.
    const std::string half = Padded("35000", 13) + "  0.35" + std::string(63 - 19, ' ');
    ASSERT_EQ(half.size(), 63U);
    EXPECT_EQ(RowOf(half + "\r\n5 0\r\n", LayerWidths), "35000|0.35|5|0");
}

TEST(RowReader, ALineWithEnoughFieldsIsNeverCut) {
    // Exactly 30 columns, but the second number begins in the columns of the first.
    const std::string line = "  1 12345678901234567890123456";
    ASSERT_EQ(line.size(), 30U);
    EXPECT_EQ(RowOf(line + "\r\n", LastLayerWidths), "1|12345678901234567890123456");
}

// A value longer than its columns touches its neighbour and makes the line longer than a full row.
TEST(RowReader, TouchingNumbersInATooLongLineAreLeftToTheNumberRules) {
    const std::string line = Padded("1", 5) + Padded("-31.67", 16) + "0.333333333333333" + Padded("5", 13) + "\r\n";
    EXPECT_EQ(RowOf(line, PointWidths), "1|-31.670.333333333333333|5|<touch -31.670.333333333333333>");
}

// "5" and "0.333333333333333" read as the number 50.333333333333333: only the length of the line gives it away.
TEST(RowReader, TouchingNumbersInATooLongLineThatReadAsOneNumberAreFound) {
    const std::string line = Padded("1", 5) + Padded("5", 16) + "0.333333333333333" + Padded("5", 13) + "\r\n";
    const std::string next = Padded("1", 5) + Padded("0", 16) + Padded("0", 13) + Padded("5", 13) + "\r\n";
    std::istringstream stream(line + next);
    RowReader reader(stream);
    EXPECT_EQ(Row(reader, PointWidths), "1|50.333333333333333|5|<touch 50.333333333333333>");
    EXPECT_EQ(reader.TouchingField(), 1U);
    EXPECT_EQ(reader.Line(), 1);
    EXPECT_EQ(RowOf(line, PointWidths), "1|50.333333333333333|5|<touch 50.333333333333333>")
        << "at the end of the file";
}

TEST(RowReader, ALongLineOfShortNumbersMayGoOnBelow) {
    EXPECT_EQ(RowOf("1" + std::string(100, ' ') + "2.5\r\n3\r\n4\r\n", PointWidths), "1|2.5|3|4");
}

TEST(RowReader, NumbersOfSeveralRowsMayStandOnOneLine) {
    std::istringstream stream("1 2 3 4 5 6 7 8\r\n");
    RowReader reader(stream);
    EXPECT_EQ(Row(reader, PointWidths), "1|2|3|4");
    EXPECT_EQ(Row(reader, PointWidths), "5|6|7|8");
    EXPECT_EQ(reader.Line(), 1);
}

TEST(RowReader, TextFieldsEndAtCommasAndLineEndsAndQuotesHideCommas) {
    std::istringstream stream("a b,\"c, d\" e\r\n\"f\r\n\r\n  g  \r\n1 2\r\n");
    RowReader reader(stream);
    for (int i = 0; i < 5; ++i) {  // a b | c, d | f | empty | g
        EXPECT_EQ(reader.SkipTextField(), Status::Read);
    }
    EXPECT_EQ(reader.Line(), 4);
    EXPECT_EQ(Row(reader, LastLayerWidths), "1|2");
    EXPECT_EQ(reader.SkipTextField(), Status::End);
}

TEST(RowReader, WhatIsLeftOfALineBehindARowIsATextField) {
    std::istringstream stream("1 2 rest\r\n\r\n3 4\r\n");
    RowReader reader(stream);
    EXPECT_EQ(Row(reader, LastLayerWidths), "1|2");
    EXPECT_EQ(reader.SkipTextField(), Status::Read);
    EXPECT_EQ(reader.SkipTextField(), Status::Read);
    EXPECT_EQ(Row(reader, LastLayerWidths), "3|4");
}

TEST(RowReader, NameLinesAreTakenWhole) {
    std::istringstream stream("  a, \"b\".bre \r\n\rlast");
    RowReader reader(stream);
    std::string name;
    EXPECT_EQ(reader.ReadNameLine(name), Status::Read);
    EXPECT_EQ(name, "  a, \"b\".bre ");
    EXPECT_EQ(reader.ReadNameLine(name), Status::Read);
    EXPECT_EQ(name, "");
    EXPECT_EQ(reader.ReadNameLine(name), Status::End) << "half a name is no name";
}

TEST(RowReader, AFieldOrANameOfMegabytesIsTooLong) {
    const std::string digits(LongestField + 1, '1');
    EXPECT_EQ(RowOf(digits, LastLayerWidths), "<long>");
    std::istringstream stream(digits + "\r\n");
    RowReader reader(stream);
    std::string name;
    EXPECT_EQ(reader.ReadNameLine(name), Status::TooLong);
}

TEST(ReadNumber, TakesTheFormsOfFilesAndNothingElse) {
    double value = -1;
    for (const auto& [text, expected] :
         {std::pair("0.35", 0.35), std::pair("-7", -7.0), std::pair("+1.5", 1.5), std::pair(".5", 0.5),
          std::pair("5.", 5.0), std::pair("1.5D3", 1500.0), std::pair("2e-3", 0.002), std::pair("-.25d+1", -2.5)}) {
        EXPECT_TRUE(ReadNumber(text, value)) << text;
        EXPECT_EQ(value, expected) << text;
    }
    for (const char* text : {"", ".", "-", "+", "1E", "1E+", "inf", "nan", "-inf", "0x10", "1,5", "1 2", "1.2.3", "12a",
                             "-31.670.333333333333333"}) {
        EXPECT_FALSE(ReadNumber(text, value)) << text;
    }
}

TEST(ReadNumber, BeyondADoubleIsTheLargestAndZeroHasNoSign) {
    double value = -1;
    EXPECT_TRUE(ReadNumber("1E400", value));
    EXPECT_EQ(value, std::numeric_limits<double>::max());
    EXPECT_TRUE(ReadNumber("-" + std::string(400, '9'), value));
    EXPECT_EQ(value, -std::numeric_limits<double>::max());
    EXPECT_TRUE(ReadNumber("1E-400", value));
    EXPECT_EQ(value, 0);
    EXPECT_TRUE(ReadNumber("-0.0", value));
    EXPECT_FALSE(std::signbit(value));
}

TEST(ReadInteger, TakesASignAndDigitsOnly) {
    long long value = 0;
    EXPECT_TRUE(ReadInteger("3000000000", value));
    EXPECT_EQ(value, 3000000000LL);
    EXPECT_TRUE(ReadInteger("-1", value));
    EXPECT_EQ(value, -1);
    EXPECT_TRUE(ReadInteger("+12", value));
    EXPECT_EQ(value, 12);
    EXPECT_TRUE(ReadInteger("99999999999999999999999999", value));
    EXPECT_EQ(value, std::numeric_limits<long long>::max());
    for (const char* text : {"", "-", "1.0", "1E2", "1a", "0x1"}) {
        EXPECT_FALSE(ReadInteger(text, value)) << text;
    }
}

}  // namespace
}  // namespace zirvo::solver
