// The form of the manual: pages that Qt's rich text and browsers can show, with nothing that leads nowhere, and two
// languages that say the same in the same places.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>

#include "help/manual.h"
#include "platform/files.h"
#include "text/catalogue.h"

namespace zirvo::test {
namespace {

/// A reader should not wait for a picture, and the help window is no wider.
constexpr std::uint64_t LargestPicture = 60000;
constexpr int WidestPicture = 760;

class ManualForm : public testing::TestWithParam<Int16> {
protected:
    const Manual& Pages() const { return ManualOf(GetParam()); }
};

TEST_P(ManualForm, PageIsWellFormed) {
    for (const std::string& fault : Pages().Page.Faults()) {
        ADD_FAILURE() << Pages().Name << " " << fault;
    }
}

TEST_P(ManualForm, EveryLinkLeadsToAnAnchorOrAFile) {
    const std::vector<std::string> anchors = Pages().Page.Values("a", "name");
    const std::set<std::string> known(anchors.begin(), anchors.end());
    EXPECT_EQ(known.size(), anchors.size()) << "an anchor stands twice";
    for (const std::string& link : Pages().Page.Values("a", "href")) {
        if (link[0] == '#') {
            EXPECT_EQ(known.count(link.substr(1)), 1U) << link;
        } else {
            EXPECT_TRUE(std::filesystem::exists(std::string(ZIRVO_BIN "/") + link)) << link;
        }
    }
}

/// The width that stands in a PNG's head, at bytes 16 to 19.
int WidthOfPng(const std::string& path) {
    const std::string bytes = ReadFileBytes(path);
    int width = 0;
    for (std::size_t i = 16; i < 20 && i < bytes.size(); ++i) {
        width = width * 256 + static_cast<unsigned char>(bytes[i]);
    }
    return bytes.substr(1, 3) == "PNG" ? width : 0;
}

TEST_P(ManualForm, EveryPictureIsThereAndFits) {
    for (const std::string& picture : Pages().Page.Values("img", "src")) {
        const std::string path = std::string(ZIRVO_BIN "/") + picture;
        ASSERT_TRUE(std::filesystem::exists(path)) << picture;
        EXPECT_LT(FileLength(path), LargestPicture) << picture;
        EXPECT_GT(WidthOfPng(path), 0) << picture;
        EXPECT_LE(WidthOfPng(path), WidestPicture) << picture;
    }
    EXPECT_EQ(Pages().Page.Values("img", "alt").size(), Pages().Page.Values("img", "src").size())
        << "a picture without words";
}

TEST_P(ManualForm, ReaderMeetsNoInternalName) {
    const std::regex internal(
        "(Form|Command|Option|MSFlexGrid|VScroll|Label|Text|Check|Picture|Image|Combo|Frame)[0-9]");
    std::smatch found;
    const std::string text = Pages().Page.Text();
    EXPECT_FALSE(std::regex_search(text, found, internal)) << found.str();
}

INSTANTIATE_TEST_SUITE_P(Languages, ManualForm, testing::Values(JapaneseBase, EnglishBase));

TEST(Manuals, HaveTheSameHeadingsInTheSameOrder) {
    EXPECT_EQ(ManualOf(JapaneseBase).Page.HeadingKinds(), ManualOf(EnglishBase).Page.HeadingKinds());
}

TEST(Manuals, HaveTheSameAnchorsInTheSameOrder) {
    EXPECT_EQ(ManualOf(JapaneseBase).Page.Values("a", "name"), ManualOf(EnglishBase).Page.Values("a", "name"));
}

TEST(Manuals, HaveTablesOfTheSameShape) {
    for (const std::string& anchor : ManualOf(EnglishBase).Page.Values("a", "name")) {
        const auto rowsOf = [&anchor](Int16 base) {
            std::vector<std::size_t> cells;
            for (const TableRow& row : ManualOf(base).Page.TableBehind(anchor)) {
                cells.push_back(row.size());
            }
            return cells;
        };
        EXPECT_EQ(rowsOf(JapaneseBase), rowsOf(EnglishBase)) << anchor;
    }
}

TEST(Manuals, ShowAsManyPictures) {
    EXPECT_EQ(ManualOf(JapaneseBase).Page.Values("img", "src").size(),
              ManualOf(EnglishBase).Page.Values("img", "src").size());
}

TEST(Manuals, LieBesideTheProgramsAsTheyWereWritten) {
    for (const char* name : {"/ZIRVO1.html", "/ZIRVO2.html"}) {
        EXPECT_EQ(ReadFileBytes(std::string(ZIRVO_BIN) + name), ReadFileBytes(std::string(ZIRVO_HELP) + name)) << name;
    }
}

}  // namespace
}  // namespace zirvo::test
