// The two-language table.
#include "solver/io/words.h"

#include <gtest/gtest.h>

#include "base/utf8.h"
#include "platform/code_page.h"

namespace zirvo::solver {
namespace {

TEST(Words, EveryTextStandsInBothLanguagesAndInTheCodePage) {
    for (int i = 1; i < static_cast<int>(Word::WordCount); ++i) {
        for (const Language language : {Language::Japanese, Language::English}) {
            const std::string text(TextOf(language, static_cast<Word>(i)));
            EXPECT_FALSE(text.empty()) << i;
            EXPECT_EQ(DecodeText(EncodeText(text)), text) << i;
            EXPECT_EQ(text.find(','), std::string::npos) << text;
            EXPECT_EQ(text.find("  "), std::string::npos) << text;
        }
        const std::string english(TextOf(Language::English, static_cast<Word>(i)));
        EXPECT_EQ(CharacterCount(english), english.size()) << english;
    }
    EXPECT_EQ(TextOf(Language::English, Word::None), "");
}

TEST(Words, BothLanguagesHaveTheSamePlaces) {
    for (int i = 1; i < static_cast<int>(Word::WordCount); ++i) {
        const std::string_view english = TextOf(Language::English, static_cast<Word>(i));
        const std::string_view japanese = TextOf(Language::Japanese, static_cast<Word>(i));
        for (const char* place : {"%1", "%2", "%3"}) {
            EXPECT_EQ(english.find(place) == std::string_view::npos, japanese.find(place) == std::string_view::npos)
                << english;
        }
    }
}

TEST(FillIn, ReplacesThePlacesOnceAndLeavesTheArgumentsAlone) {
    EXPECT_EQ(FillIn("%2 and %1", {"a%2", "b"}), "b and a%2");
    EXPECT_EQ(FillIn("100 % of %3|", {"a"}), "100 % of |");
}

TEST(PrintableText, HasNoCommaNoRunOfBlanksAndNoControlCharacter) {
    EXPECT_EQ(PrintableText("a,  b\t \tc.eva"), "a; b c.eva");
    EXPECT_EQ(PrintableText("  a  "), " a ");
    EXPECT_EQ(PrintableText(std::string("a\0\x1B\x7Fz", 5)), "a???z");
    EXPECT_EQ(PrintableText("道　路,表.eva"), "道　路;表.eva");
}

TEST(PrintableText, IsCutByCharacters) {
    EXPECT_EQ(PrintableText("道路道路", 3), "道路道...");
    EXPECT_EQ(PrintableText("道路道", 3), "道路道");
}

}  // namespace
}  // namespace zirvo::solver
