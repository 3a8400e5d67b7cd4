// What a solver says in a report without results, and that a report of results is never taken for one.
#include "pavement/report_reason.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "pavement/support.h"

namespace zirvo {
namespace {

using test::PutFile;

class ReasonOfReport : public testing::Test {
protected:
    test::WorkFolder Folder;

    static std::string Reason(const std::string& bytes) {
        PutFile("a.bre", bytes);
        return ReasonInReport("a.bre");
    }
};

TEST_F(ReasonOfReport, IsItsLinesWithoutBlanksAndStamp) {
    EXPECT_EQ(Reason("   <ZIRVO Ver2.3>\r\n   TITLE\r\n\r\n   FILE: a.eva\r\n\t REASON: x \r\n"),
              "TITLE\nFILE: a.eva\nREASON: x");
    EXPECT_EQ(Reason("one\ntwo\rthree"), "one\ntwo\nthree");
}

// 理由 is 97 9D 97 52 in code page 932.
TEST_F(ReasonOfReport, IsReadInTheCodePageOfTheReports) {
    EXPECT_EQ(Reason("   \x97\x9D\x97\x52: x\r\n"), "理由: x");
}

TEST_F(ReasonOfReport, AReportOfResultsHasNone) {
    EXPECT_EQ(Reason("   TITLE\r\n\r\n   =====\r\n   1 2 3\r\n"), "");
    EXPECT_EQ(Reason("   TITLE\r\n" + std::string(20000, 'x')), "") << "too long for a note";
}

TEST_F(ReasonOfReport, WhatCannotBeReadHasNone) {
    EXPECT_EQ(ReasonInReport("none.bre"), "");
    std::filesystem::create_directory("folder");
    EXPECT_EQ(ReasonInReport("folder"), "");
    EXPECT_EQ(Reason(""), "");
    EXPECT_EQ(Reason("\r\n   \r\n"), "");
}

TEST_F(ReasonOfReport, IsNoLongerThanABoxCanShow) {
    std::string many;
    for (int i = 0; i < 50; ++i) {
        many += "line\r\n";
    }
    const std::string reason = Reason(many);
    EXPECT_EQ(std::count(reason.begin(), reason.end(), '\n'), MostReasonLines - 1);
    EXPECT_EQ(Reason(std::string(300, 'w')), std::string(100, 'w') + "...");
    EXPECT_EQ(Reason(std::string("a\0b\x01", 4)), "a?b?");
}

}  // namespace
}  // namespace zirvo
