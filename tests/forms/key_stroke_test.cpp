// Tests of the strokes that a keyboard makes.
#include "forms/key_stroke.h"

#include <gtest/gtest.h>

namespace zirvo::forms {
namespace {

TEST(KeyStroke, LettersHaveTheCodeOfTheirUpperCase) {
    EXPECT_EQ(StrokeOf(U'x').Code, 'X');
    EXPECT_EQ(StrokeOf(U'x').Character, U'x');
    EXPECT_FALSE(StrokeOf(U'x').Shift);
    EXPECT_EQ(StrokeOf(U'X').Code, 'X');
    EXPECT_TRUE(StrokeOf(U'X').Shift);
    EXPECT_EQ(StrokeOf(U'5').Code, '5');
}

TEST(KeyStroke, AnotherCharacterHasNoCodeThatARuleNames) {
    // "." is 46 as a character, and 46 as a key is Delete; "%" to "(" are the arrows.
    EXPECT_NE(StrokeOf(U'.').Code, key::Delete);
    EXPECT_NE(StrokeOf(U'%').Code, key::Left);
    EXPECT_EQ(StrokeOf(U'.').Character, U'.');
    EXPECT_EQ(StrokeOf(U'あ').Character, U'あ');
}

TEST(KeyStroke, NamedKeysMakeACharacterOnlyWhereTheyHaveOne) {
    for (const int code : {key::Backspace, key::Enter, key::Escape, key::Space}) {
        EXPECT_EQ(StrokeOfKey(code).Character, static_cast<char32_t>(code));
        EXPECT_EQ(StrokeOf(static_cast<char32_t>(code)).Code, code);
    }
    for (const int code :
         {key::Tab, key::Delete, key::Left, key::Home, key::End, key::PageUp, key::PageDown, key::F4}) {
        EXPECT_EQ(StrokeOfKey(code).Character, 0U);
    }
    EXPECT_EQ(StrokeOf(U'\t').Code, key::Tab);
    EXPECT_EQ(StrokeOf(U'\t').Character, 0U);
    EXPECT_TRUE(StrokeOfKey(key::Tab, true).Shift);
}

}  // namespace
}  // namespace zirvo::forms
