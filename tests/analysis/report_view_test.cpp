// The rebuilt view of a report.
#include "analysis/report_view.h"

#include <gtest/gtest.h>

#include <chrono>

#include "base/fault_of.h"
#include "pavement/support.h"

namespace zirvo {
namespace {

using LineViews = std::vector<std::string_view>;

/// A table line whose columns are filled with a letter each: 30 of 'a', then five times 36 of 'b' to 'f'.
std::string TableLine(const char* letters = "abcdef") {
    std::string line(30, letters[0]);
    for (int c = 1; c < 6; ++c) {
        line += std::string(36, letters[c]);
    }
    return line;
}

std::string Times(int count, const std::string& text) {
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

std::string Column(int width, char letter) {
    return std::string(static_cast<std::size_t>(width), letter);
}

TEST(SplitLines, EndsLinesAtEveryKindOfLineEnd) {
    EXPECT_EQ(SplitLines("a\r\nb\nc\rd"), (LineViews{"a", "b", "c", "d"}));
    EXPECT_EQ(SplitLines("a\r\n\r\nb\n\nc\r\rd"), (LineViews{"a", "", "b", "", "c", "", "d"}));
    EXPECT_EQ(SplitLines("a\n\rb"), (LineViews{"a", "", "b"}));
}

TEST(SplitLines, ALineEndAtTheEndBeginsNoLine) {
    EXPECT_EQ(SplitLines("a\r\n"), (LineViews{"a"}));
    EXPECT_EQ(SplitLines("a\r"), (LineViews{"a"}));
    EXPECT_EQ(SplitLines("\r\n"), (LineViews{""}));
    EXPECT_EQ(SplitLines(""), LineViews{});
    EXPECT_EQ(SplitLines("a"), (LineViews{"a"}));
}

TEST(SplitResultView, RebuildsTheTableOfOnePointAsFiveOfThreeLines) {
    const std::string first = TableLine("ABCDEF");
    const std::string second = TableLine("GHIJKL");
    const std::string point = TableLine("abcdef");
    const LineViews report{
        "   <ZIRVO Ver2.3>", "head", "   ======", "   1 point", "   ====", first, second, point, "   ===", "the tail"};
    const std::string expected =
        "   <ZIRVO Ver2.3>\r\nhead\r\n   ======\r\n   1 point\r\n"
        "\r\n   ====\r\n\r\n" +
        Column(30, 'A') + Column(36, 'B') + "\r\n" + Column(30, 'G') + Column(36, 'H') + "\r\n" + Column(30, 'a') +
        Column(36, 'b') + "\r\n\r\n" +  //
        Column(30, 'A') + Column(36, 'C') + "\r\n" + Column(30, 'G') + Column(36, 'I') + "\r\n" + Column(30, 'a') +
        Column(36, 'c') + "\r\n\r\n" +  //
        Column(30, 'A') + Column(36, 'D') + "\r\n" + Column(30, 'G') + Column(36, 'J') + "\r\n" + Column(30, 'a') +
        Column(36, 'd') + "\r\n\r\n" +  //
        Column(30, 'A') + Column(36, 'E') + "\r\n" + Column(30, 'G') + Column(36, 'K') + "\r\n" + Column(30, 'a') +
        Column(36, 'e') + "\r\n\r\n" +  //
        Column(30, 'A') + Column(36, 'F') + "\r\n" + Column(30, 'G') + Column(36, 'L') + "\r\n" + Column(30, 'a') +
        Column(36, 'f') + "\r\n\r\n";
    EXPECT_EQ(SplitResultView(report, 1, false), expected);
}

/// The five tables of a report without head, whose table holds `line` alone.
std::string TablesOf(const std::string& line, Int16 points, bool japanese) {
    const LineViews report{"   ===", "   ===", line};
    const std::string view = SplitResultView(report, points, japanese);
    const std::string head = "   ===\r\n\r\n   ===\r\n\r\n";
    EXPECT_EQ(view.substr(0, head.size()), head);
    return view.substr(head.size());
}

TEST(SplitResultView, TheFirstTableLineIsNarrowerInJapanese) {
    const std::string japanese = std::string(30, 'a') + std::string(36, 'b') + std::string(33, 'c') +
                                 std::string(33, 'd') + std::string(33, 'e') + std::string(33, 'f');
    const std::string wide = TableLine();
    const std::string head = "   ===\r\n\r\n   ===\r\n\r\n";
    const auto table = [](char letter, int width) {
        return Column(30, 'a') + Column(width, letter) + "\r\n" + Column(30, 'a') + Column(36, letter) + "\r\n\r\n";
    };
    const LineViews report{"   ===", "   ===", japanese, wide};
    EXPECT_EQ(SplitResultView(report, 0, true),
              head + table('b', 36) + table('c', 33) + table('d', 33) + table('e', 33) + table('f', 33));
    // In English the narrow line is cut like the others, so its third column takes three characters of its fourth.
    const std::string english = SplitResultView(report, 0, false);
    EXPECT_NE(english.find(Column(30, 'a') + Column(33, 'c') + "ddd\r\n"), std::string::npos);
}

TEST(SplitResultView, WidthsCountCharactersAndNotBytes) {
    // Three double-width characters in each of the last four groups, as the Japanese heading has them: 9 bytes each.
    const std::string line = std::string(30, 'a') + std::string(36, 'b') + "応　力" + std::string(30, 'c') + "応　力" +
                             std::string(30, 'd') + "ひずみ" + std::string(30, 'e') + "ひずみ" + std::string(30, 'f');
    const std::string tables = TablesOf(line, -1, true);
    EXPECT_EQ(tables, Column(30, 'a') + Column(36, 'b') + "\r\n\r\n" + Column(30, 'a') + "応　力" + Column(30, 'c') +
                          "\r\n\r\n" + Column(30, 'a') + "応　力" + Column(30, 'd') + "\r\n\r\n" + Column(30, 'a') +
                          "ひずみ" + Column(30, 'e') + "\r\n\r\n" + Column(30, 'a') + "ひずみ" + Column(30, 'f') +
                          "\r\n\r\n");
}

TEST(SplitResultView, AShortLineGivesShortAndEmptyCells) {
    EXPECT_EQ(TablesOf(std::string(30, 'a') + "bb", -1, false),
              Column(30, 'a') + "bb\r\n\r\n" + Times(4, Column(30, 'a') + "\r\n\r\n"));
    EXPECT_EQ(TablesOf("a", -1, false), Times(5, "a\r\n\r\n"));
    EXPECT_EQ(TablesOf("", -1, false), Times(5, "\r\n\r\n"));
}

TEST(SplitResultView, WhatStandsBeyondTheColumnsIsDropped) {
    EXPECT_EQ(TablesOf(TableLine() + "beyond", -1, false), TablesOf(TableLine(), -1, false));
}

TEST(SplitResultView, ATableOfFewerLinesEndsInEmptyOnes) {
    EXPECT_EQ(TablesOf("a", 2, false), Times(5, "a\r\n\r\n\r\n\r\n\r\n"));
}

TEST(SplitResultView, ALineMoreThanThePointsAndTwoIsFaultNine) {
    const LineViews full{"   ===", "   ===", "1", "2", "3"};
    EXPECT_EQ(FaultOf([&] { SplitResultView(full, 1, false); }), 0);
    const LineViews more{"   ===", "   ===", "1", "2", "3", "4"};
    EXPECT_EQ(FaultOf([&] { SplitResultView(more, 1, false); }), 9);
    // Behind the third marker nothing is counted.
    const LineViews tail{"   ===", "   ===", "1", "2", "3", "   ===", "4", "5"};
    EXPECT_EQ(FaultOf([&] { SplitResultView(tail, 1, false); }), 0);
    // An empty line of the table is a line of it.
    const LineViews empty{"   ===", "   ===", "1", "2", "3", ""};
    EXPECT_EQ(FaultOf([&] { SplitResultView(empty, 1, false); }), 9);
}

TEST(SplitResultView, ACountThatLeavesSixteenBitsOrTheBoundsIsAFault) {
    EXPECT_EQ(FaultOf([] { SplitResultView({}, 32766, false); }), 6);
    EXPECT_EQ(FaultOf([] { SplitResultView({}, 32765, false); }), 0);
    EXPECT_EQ(FaultOf([] { SplitResultView({}, -2, false); }), 0);
    EXPECT_EQ(FaultOf([] { SplitResultView({}, -3, false); }), 9);
}

TEST(SplitResultView, OnlySixExactCharactersAreAMarker) {
    std::string copied;
    LineViews report;
    for (const char* line : {"  ===", " ===", "    ===", "   ==", "\t===", "   = ==", "   <ZIRVO Ver2.3>"}) {
        // Three times, since the second marker would be the first to show.
        report.insert(report.end(), 3, line);
        copied += Times(3, std::string(line) + "\r\n");
    }
    EXPECT_EQ(SplitResultView(report, -2, false), copied + Times(5, "\r\n"));
    const LineViews longer{"   ====", "   ===x", "table"};
    EXPECT_EQ(SplitResultView(longer, -1, false), "   ====\r\n\r\n   ===x\r\n\r\n" + Times(5, "table\r\n\r\n"));
}

TEST(SplitResultView, WithFewerThanTwoMarkersTheWholeFileIsFollowedByFiveBlankTables) {
    const LineViews none{"a", "b"};
    EXPECT_EQ(SplitResultView(none, 1, false), "a\r\nb\r\n" + Times(5, "\r\n\r\n\r\n\r\n"));
    const LineViews one{"a", "   ===", "b"};
    EXPECT_EQ(SplitResultView(one, 1, true), "a\r\n   ===\r\nb\r\n" + Times(5, "\r\n\r\n\r\n\r\n"));
    EXPECT_EQ(SplitResultView({}, 0, true), Times(5, "\r\n\r\n\r\n"));
}

TEST(SplitResultView, TheThirdMarkerAndEverythingBehindItVanish) {
    const LineViews report{"   ===", "   ===", "x", "   ===", "y", "   ===", "z"};
    EXPECT_EQ(SplitResultView(report, -1, false), "   ===\r\n\r\n   ===\r\n\r\n" + Times(5, "x\r\n\r\n"));
}

TEST(SplitResultView, TenThousandPointsAreRebuiltWholly) {
    std::vector<std::string> rows(10002, TableLine());
    rows[10001] = TableLine("uvwxyz");
    LineViews report{"   ===", "   ==="};
    report.insert(report.end(), rows.begin(), rows.end());
    const std::string view = SplitResultView(report, 10000, false);
    // Two marker lines with 6 and 8 bytes of line ends and text, then 5 tables of 10002 lines of 66 + 2 bytes and an
    // end.
    EXPECT_EQ(view.size(), 8U + 12U + 5U * (10002U * 68U + 2U));
    EXPECT_EQ(view.substr(view.size() - 70), Column(30, 'u') + Column(36, 'z') + "\r\n\r\n");
}

}  // namespace
}  // namespace zirvo
