// Characters of UTF-8 text, the malformed forms above all.
#include "base/utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zirvo {
namespace {

// Each of the malformed forms that the Unicode standard (table 3-7) names.
const std::vector<std::string> Malformed{
    "\x80",              // a trail byte alone
    "\xC0\xAF",          // overlong "/"
    "\xC1\xBF",          // overlong U+007F
    "\xC3",              // cut off
    "\xE0\x9F\xBF",      // overlong U+07FF
    "\xE3\x81",          // cut off
    "\xED\xA0\x80",      // surrogate U+D800
    "\xED\xBF\xBF",      // surrogate U+DFFF
    "\xF0\x8F\xBF\xBF",  // overlong U+FFFF
    "\xF4\x90\x80\x80",  // U+110000
    "\xF5\x80\x80\x80",  // beyond every code point
    "\xFF",
};

TEST(Utf8, FirstAndLastCharacterOfEachLengthAreValid) {
    for (const char* text : {"\x01", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                             "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(IsValidUtf8(text));
        EXPECT_EQ(CharacterCount(text), 1U);
        EXPECT_EQ(FromCharacters(ToCharacters(text)), text);
    }
    EXPECT_TRUE(IsValidUtf8(""));
    EXPECT_TRUE(IsValidUtf8(std::string_view("\0", 1)));
}

TEST(Utf8, MalformedBytesAreNotValidAndEachCountsAsOneCharacter) {
    for (const std::string& bytes : Malformed) {
        EXPECT_FALSE(IsValidUtf8(bytes));
        EXPECT_FALSE(IsValidUtf8("a" + bytes + "b"));
        EXPECT_EQ(CharacterCount(bytes), bytes.size());
        EXPECT_EQ(ToCharacters(bytes), std::u32string(bytes.size(), U'\uFFFD'));
    }
}

TEST(Utf8, TextBehindAMalformedByteIsReadAnew) {
    EXPECT_EQ(ToCharacters("\xE3\x81\xE5\xB1\xA4"), U"\uFFFD\uFFFD層");
    EXPECT_EQ(ToCharacters("\xC3,"), U"\uFFFD,");
}

TEST(Utf8, CountsCharactersAndNotBytes) {
    EXPECT_EQ(CharacterCount(""), 0U);
    EXPECT_EQ(CharacterCount("層数 3"), 4U);
    EXPECT_EQ(CharacterCount("ﾌﾟ"), 2U);
    EXPECT_EQ(CharacterCount("𠮷"), 1U);
}

TEST(Utf8, SlicesByCharactersAndStopsAtTheEnd) {
    EXPECT_EQ(CharacterSlice("層数 　載荷", 1, 3), "数 　");
    EXPECT_EQ(CharacterSlice("層数", 0, 5), "層数");
    EXPECT_EQ(CharacterSlice("層数", 1, std::string::npos), "数");
    EXPECT_EQ(CharacterSlice("層数", 2, 1), "");
    EXPECT_EQ(CharacterSlice("層数", 7, 1), "");
    EXPECT_EQ(CharacterSlice("abc", 1, 0), "");
    EXPECT_EQ(CharacterSlice("", 0, 1), "");
}

TEST(Utf8, WhatIsNoCodePointIsWrittenAsReplacement) {
    const std::u32string none{0xD800, 0xDFFF, 0x110000, 0xFFFFFFFF};
    EXPECT_EQ(FromCharacters(none), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Utf8, EveryCodePointSurvivesWritingAndReading) {
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        if (c >= 0xD800 && c <= 0xDFFF) {
            continue;
        }
        const std::string text = FromCharacters(std::u32string(1, c));
        ASSERT_TRUE(IsValidUtf8(text)) << static_cast<unsigned>(c);
        ASSERT_EQ(ToCharacters(text), std::u32string(1, c)) << static_cast<unsigned>(c);
    }
}

}  // namespace
}  // namespace zirvo
