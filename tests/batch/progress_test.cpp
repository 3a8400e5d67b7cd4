// Progress is for a person at a terminal, and for nobody else.
#include <gtest/gtest.h>

#include "batch/work_folder.h"

namespace zirvo::test {
namespace {

class Progress : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(Progress, ShowsOnATerminalAndVanishesAtTheEnd) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    const Outcome outcome = folder.Batch(GetParam(), {.ErrorsOnTerminal = true});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_NE(outcome.Err.find("road.eva"), std::string::npos);
    const std::string erase = "\r\x1b[K";
    ASSERT_GE(outcome.Err.size(), erase.size());
    EXPECT_EQ(outcome.Err.substr(outcome.Err.size() - erase.size()), erase);
    EXPECT_EQ(outcome.Out, folder.Batch(GetParam()).Out);
}

TEST_P(Progress, IsStilledByQuietAndAbsentWithoutATerminal) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    std::vector<std::string> quiet = GetParam();
    quiet.push_back("--quiet");
    EXPECT_EQ(folder.Batch(quiet, {.ErrorsOnTerminal = true}).Err, "");
    EXPECT_EQ(folder.Batch(GetParam()).Err, "");
}

INSTANTIATE_TEST_SUITE_P(Commands, Progress,
                         testing::Values(std::vector<std::string>{"solve", "road.eva", "--units", "3"},
                                         std::vector<std::string>{"check", "road.eva"},
                                         std::vector<std::string>{"analyze", "road.eva", "--units", "3", "--language",
                                                                  "en"}));

TEST(Quiet, DoesNotStillErrors) {
    const WorkFolder folder;
    EXPECT_NE(folder.Batch({"check", "none.eva", "--quiet"}).Err, "");
}

}  // namespace
}  // namespace zirvo::test
