// The history of changes, in both languages.
#include "shell/update_history.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/utf8.h"

namespace zirvo {
namespace {

std::vector<std::string> LinesOf(std::string text) {
    std::vector<std::string> lines;
    for (std::size_t end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n")) {
        lines.push_back(text.substr(0, end));
        text.erase(0, end + 2);
    }
    EXPECT_EQ(text, "") << "every line is ended";
    return lines;
}

bool IsHeading(const std::string& line) {
    return line.starts_with("[ Ver");
}

std::vector<std::string> Headings(forms::Language language) {
    std::vector<std::string> headings;
    for (const std::string& line : LinesOf(UpdateHistory(language))) {
        if (IsHeading(line)) {
            headings.push_back(line);
        }
    }
    return headings;
}

/// Number of lines under each heading.
std::vector<int> LinesOfVersions(forms::Language language) {
    std::vector<int> counts;
    for (const std::string& line : LinesOf(UpdateHistory(language))) {
        if (IsHeading(line)) {
            counts.push_back(0);
        } else if (!line.empty()) {
            ++counts.back();
        }
    }
    return counts;
}

TEST(UpdateHistory, IsTheEnglishTextToTheByte) {
    EXPECT_EQ(UpdateHistory(forms::Language::English),
              "[ Ver2.2 -> Ver2.3 ]\r\n"
              "・Added Previous and Help buttons on the Graphics window\r\n"
              "・File extension for input file in graphics only -> *.ven\r\n"
              "・File extension for in/output file -> Fixed\r\n"
              "・In/Output file: Slip coefficient in the comment line -> changed to slip rate\r\n"
              "・Input file: Load in the comment line -> changed to vert. load\r\n"
              "\r\n"
              "[ Ver2.1 -> Ver2.2 ]\r\n"
              "・Modification of layout of the window for initial setting (analysis only)\r\n"
              "・Introduction of default file extensions for input and output files\r\n"
              "  - Input file (*.eva)\r\n"
              "  - Output file (*.bre)\r\n"
              "  - Principal stresses & strains (*.san)\r\n"
              "・Addition of a line with software name and version number in all output files\r\n"
              "・Others - minor adjustments\r\n"
              "\r\n"
              "[ Ver2.0 -> Ver2.1 ]\r\n"
              "・Correction of output error when different loads(vertical and horizontal) are separately considered as "
              "multiple loads\r\n"
              "\r\n"
              "[ Ver1.2 -> Ver2.0 ]\r\n"
              "・Improvement of computational accuracy near surface\r\n"
              "・Improvement of GUI\r\n"
              "・Possibility to change value in [Max./Min. values] frame located in the graphics page\r\n"
              "\r\n"
              "[ Ver1.1 -> Ver1.2 ]\r\n"
              "・Incorrect layer number identification at the boundary due \r\n"
              "  to inexact floating point arithmetic in many computers    -> modified data precision\r\n"
              "\r\n"
              "[ Ver1.0 -> Ver1.1 ]\r\n"
              "・Added button for ZIRVO - Version Info\r\n"
              "・Can not properly name file for principal values -> corrected\r\n"
              "・Incorrect data values saved in input file -> modify and corrected data format\r\n"
              "・Program does not start when user specified folder does not exist anymore -> corrected\r\n");
}

TEST(UpdateHistory, HasTheSameVersionsInBothLanguagesNewestFirst) {
    const std::vector<std::string> versions{"[ Ver2.2 -> Ver2.3 ]", "[ Ver2.1 -> Ver2.2 ]", "[ Ver2.0 -> Ver2.1 ]",
                                            "[ Ver1.2 -> Ver2.0 ]", "[ Ver1.1 -> Ver1.2 ]", "[ Ver1.0 -> Ver1.1 ]"};
    EXPECT_EQ(Headings(forms::Language::English), versions);
    EXPECT_EQ(Headings(forms::Language::Japanese), versions);
}

// Ver2.3 has one line more: that the file extensions cannot be changed.
TEST(UpdateHistory, HasTheSameLinesInJapaneseAndOneMore) {
    EXPECT_EQ(LinesOfVersions(forms::Language::English), (std::vector{5, 7, 1, 3, 2, 4}));
    EXPECT_EQ(LinesOfVersions(forms::Language::Japanese), (std::vector{6, 7, 1, 3, 2, 4}));
    EXPECT_NE(UpdateHistory(forms::Language::Japanese).find("・入力・出力ﾌｧｲﾙの拡張子は変更できません\r\n"),
              std::string::npos);
}

TEST(UpdateHistory, EveryLineIsAHeadingABulletASubItemOrABlankLine) {
    for (const auto language : {forms::Language::Japanese, forms::Language::English}) {
        const std::string text = UpdateHistory(language);
        EXPECT_TRUE(IsValidUtf8(text));
        for (const std::string& line : LinesOf(text)) {
            EXPECT_TRUE(line.empty() || IsHeading(line) || line.starts_with("・") || line.starts_with("  ")) << line;
        }
    }
}

}  // namespace
}  // namespace zirvo
