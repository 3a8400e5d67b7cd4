// Captions of the real program on the smallest screen: what does not fit in its told size is drawn narrower, and none
// is cut off.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <vector>

#include "desktop/desktop_session.h"

namespace zirvo::window_tests {
namespace {

namespace fs = std::filesystem;

/// For each column of pixels, whether anything is written in it: a pixel that differs from its ground, which is paler
/// or darker by no more than the shade of a button.
std::vector<bool> InkOf(const QImage& picture) {
    std::vector<bool> ink;
    for (int x = 0; x < picture.width(); ++x) {
        int lightest = 0;
        int darkest = 255;
        for (int y = 0; y < picture.height(); ++y) {
            const int grey = qGray(picture.pixel(x, y));
            lightest = std::max(lightest, grey);
            darkest = std::min(darkest, grey);
        }
        constexpr int shade = 40;
        ink.push_back(lightest - darkest > shade);
    }
    return ink;
}

/// Groups of columns with ink, of which a gap of two or more empty ones makes another.
int GroupsOf(const std::vector<bool>& ink) {
    int groups = 0;
    std::size_t empty = 2;
    for (const bool column : ink) {
        groups += column && empty >= 2 ? 1 : 0;
        empty = column ? 0 : empty + 1;
    }
    return groups;
}

class Captions : public testing::TestWithParam<forms::Language> {
protected:
    void GoTo(const char* form, int objective) {
        session_.StartAt(objective, GetParam());
        session_.WaitForWindow(form);
    }
    /// The caption of a control: its picture without the edge of a button.
    std::vector<bool> Ink(const char* form, const std::string& control, int edge = 2) {
        return InkOf(session_.Picture(form, control)
                         .copy(session_.Picture(form, control).rect().adjusted(edge, edge, -edge, -edge)));
    }
    /// Something is written there, and nothing of it reaches an edge, where it would have been cut.
    void ExpectWhole(const char* form, const std::string& control, int edge = 2) {
        const std::vector<bool> ink = Ink(form, control, edge);
        ASSERT_GT(ink.size(), 10U);
        EXPECT_TRUE(std::find(ink.begin(), ink.end(), true) != ink.end()) << form << " " << control;
        EXPECT_FALSE(ink.front()) << form << " " << control;
        EXPECT_FALSE(ink.back()) << form << " " << control;
    }

    DesktopSession session_{QSize(800, 600)};
};

TEST_P(Captions, OfTheAnalysisDataAreWhole) {
    GoTo("Form3", 1);
    for (const char* button :
         {"Command1", "Command3", "Command4", "Command5", "Command6", "Command7", "Command8", "Command9"}) {
        ExpectWhole("Form3", button);
    }
    for (const char* words : {"Label2", "Label3", "Label4"}) {
        ExpectWhole("Form3", words, 0);
    }
    EXPECT_FALSE(Ink("Form3", "Option2", 0).back());  // the other has the focus, and a frame of it
    if (GetParam() == forms::Language::Japanese) {
        // Four characters with ideographic spaces between them: 7 times 12 pixels as told.
        EXPECT_LT(session_.Picture("Form3", "Label4").width(), 7 * 12);
        EXPECT_EQ(GroupsOf(Ink("Form3", "Label3", 0)), 4);
        EXPECT_EQ(GroupsOf(Ink("Form3", "Label4", 0)), 4);
    }
}

TEST_P(Captions, OfTheMapAreWholeInAnySize) {
    fs::copy(fs::path(ZIRVO_SAMPLES) / "road.ven", session_.WorkFolder());
    GoTo("Form5", 2);
    session_.Click("Form5", "Option2");
    session_.Click("Form5", "Command1");
    session_.GivePath("FileDialog", "road.ven");
    session_.AnswerBox(1);
    session_.WaitForWindow("Form5");
    session_.Key("Return");
    session_.WaitForWindow("Form6");
    session_.Key("Down");
    session_.Click("Form6", "Option4");
    session_.WaitForWindow("Form6");
    for (const int larger : {0, 1, 2, 3}) {
        if (larger > 0) {
            session_.Key("ctrl+plus");
            session_.WaitForWindow("Form6");
        }
        for (const char* button :
             {"Command2", "Command3", "Command5", "Command6", "Command7", "Command8", "Command9", "Command10"}) {
            ExpectWhole("Form6", button);
        }
        for (const char* words : {"Label14", "Label15", "Label16", "Label19", "Label22"}) {
            const std::vector<bool> ink = Ink("Form6", words, 0);
            EXPECT_FALSE(ink.back()) << words << larger;  // they begin at their left edge
        }
        for (int i = 0; i < 5; ++i) {
            const std::string item = "Check1(" + std::to_string(i) + ")";
            EXPECT_FALSE(Ink("Form6", item, 0).back()) << item << larger;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, Captions, testing::Values(forms::Language::Japanese, forms::Language::English),
                         [](const auto& chosen) {
                             return chosen.param == forms::Language::Japanese ? "Japanese" : "English";
                         });

}  // namespace
}  // namespace zirvo::window_tests
