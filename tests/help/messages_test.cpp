// What the manual says of messages, captions, faults and limits is what the program has.
#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>

#include "base/fault_words.h"
#include "base/runtime_fault.h"
#include "contour/display_rules.h"
#include "graphics/point_grid.h"
#include "graphics/section.h"
#include "help/manual.h"
#include "pavement/pavement_rules.h"
#include "text/catalogue.h"
#include "text/number_text.h"

namespace zirvo::test {
namespace {

class ManualFacts : public testing::TestWithParam<Int16> {
protected:
    const Manual& Pages() const { return ManualOf(GetParam()); }
    bool Says(const std::string& text) const { return Pages().Page.Text().find(text) != std::string::npos; }
};

TEST_P(ManualFacts, EveryMessageOfABoxIsExplained) {
    const std::string explained = Pages().Page.TextBetween("boxes", "faults");
    for (const Int16 k : std::initializer_list<Int16>{56,  57,  58,  59,  60,  61,  62,  63,  64,  65,  81,
                                                      123, 124, 125, 127, 128, 129, 169, 170, 171, 172, 173}) {
        const std::string message = Message(Pages(), k);
        EXPECT_NE(explained.find(message), std::string::npos) << k << " " << message;
    }
    EXPECT_TRUE(Says(std::string(SecondLayerQuestionTitle)));
}

TEST_P(ManualFacts, EveryCaptionThatAUserMeetsIsNamed) {
    for (const Int16 k : std::initializer_list<Int16>{
             1,   2,   4,   5,   6,   10,  14,  16,  17,  18,  20,  21,  22,  26,  27,  28,  29,
             30,  31,  32,  33,  34,  39,  40,  41,  44,  45,  46,  47,  50,  51,  80,  83,  84,
             86,  98,  102, 103, 104, 107, 108, 110, 111, 112, 113, 114, 115, 116, 118, 119, 136,
             137, 138, 144, 145, 155, 158, 159, 160, 161, 162, 164, 165, 167, 168}) {
        EXPECT_TRUE(Says(Message(Pages(), k))) << k << " " << Message(Pages(), k);
    }
}

TEST_P(ManualFacts, EveryRunTimeErrorIsListedWithItsWords) {
    std::vector<int> listed;
    for (const TableRow& row : Pages().Page.TableBehind("faults")) {
        ASSERT_EQ(row.size(), 4U);
        listed.push_back(std::stoi(row[0]));
        EXPECT_EQ(row[1], FaultDescription(listed.back()));
    }
    std::vector<int> known;
    for (int number = 1; number < 100; ++number) {
        if (FaultDescription(number) != FaultDescription(0)) {  // the words of a number that is none
            known.push_back(number);
        }
    }
    EXPECT_EQ(listed, known);
}

TEST_P(ManualFacts, TheBoxOfAnErrorIsTheOneThatTheProgramShows) {
    const RuntimeFault caught(fault::FileNotFound, {FaultMatter::Program, "/home/road/zirvo/ZIRVO_SV12.EXE", ""});
    const FaultLanguage language = GetParam() == JapaneseBase ? FaultLanguage::Japanese : FaultLanguage::English;
    const std::string box = "Run-time error '53':" + std::string(caught.what()) + FaultExplanation(caught, language) +
                            std::string(ProgramEnds(language));
    const std::string text = WithoutBlanks(Pages().Page.TextBetween("faults", "refused"));
    EXPECT_NE(text.find(WithoutBlanks(box)), std::string::npos) << box;
}

TEST_P(ManualFacts, LimitsAreThoseOfTheProgram) {
    const std::vector<TableRow> rows = Pages().Page.TableBehind("limits");
    const std::vector<double> highest{MaximumLayers,
                                      MaximumLoads,
                                      MaximumPoints,
                                      PointLimit,
                                      HighestPoissonRatio,
                                      HighestSlipRate,
                                      std::numeric_limits<Int16>::max()};
    ASSERT_EQ(rows.size(), highest.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i][2], FormatNumberText(highest[i])) << rows[i][0];
    }
    EXPECT_EQ(rows.back()[1], std::to_string(LeastContourLineCount));
}

TEST_P(ManualFacts, ReachOfAMapIsThatOfTheProgram) {
    const std::string text = WithoutBlanks(Pages().Page.TextBetween("mapextent", "maplook"));
    for (const double length : {GridMargin, MinKeyGap, OnlyLayerHeight}) {
        EXPECT_NE(text.find(FormatNumberText(length) + "cm"), std::string::npos) << length;
    }
    EXPECT_NE(text.find(std::to_string(PointLimit)), std::string::npos);
    // One load: 4 gaps between its key positions and the margins.
    const int positions = 4 * SubDivisionsX + 1;
    EXPECT_EQ(SubDivisionsX, 6);
    EXPECT_EQ(SubDivisionsY, 6);
    const bool japanese = GetParam() == JapaneseBase;
    EXPECT_NE(text.find(japanese ? "6等分" : "6equalparts"), std::string::npos);
    EXPECT_NE(text.find(std::to_string(positions) + (japanese ? "×" : "by") + std::to_string(positions)),
              std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Languages, ManualFacts, testing::Values(JapaneseBase, EnglishBase));

}  // namespace
}  // namespace zirvo::test
