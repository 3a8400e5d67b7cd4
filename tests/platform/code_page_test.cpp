// Code page 932 both ways, and names inside files.
#include "platform/code_page.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/code_page_bytes.h"

namespace zirvo {
namespace {

TEST(CodePage, AsciiIsItself) {
    for (char c = 0; c >= 0 && c < 127; ++c) {
        const std::string text(1, c);
        EXPECT_EQ(EncodeText(text), text);
        EXPECT_EQ(DecodeText(text), text);
    }
    EXPECT_EQ(EncodeText("\\~\x7F"), "\\~\x7F");
    EXPECT_EQ(DecodeText("\\~\x7F"), "\\~\x7F");
}

// Rows of the published table of Windows-31J, among them those that other tables of Shift-JIS have otherwise.
TEST(CodePage, CharactersThatTablesOfShiftJisDisputeAreThoseOfWindows) {
    const std::vector<std::pair<std::string, std::string>> rows{
        {"　", "\x81\x40"},                            // ideographic space
        {"―", "\x81\x5C"},                             // U+2015, not U+2014
        {"～", "\x81\x60"},                            // U+FF5E, not U+301C
        {"∥", "\x81\x61"},                             // U+2225, not U+2016
        {"｜", "\x81\x62"},                            // U+FF5C
        {"－", "\x81\x7C"},                            // U+FF0D, not U+2212
        {"￠", "\x81\x91"},                            // U+FFE0, not U+00A2
        {"￡", "\x81\x92"},                            // U+FFE1, not U+00A3
        {"￢", "\x81\xCA"},                            // U+FFE2, not U+00AC
        {"\\", "\x5C"},                                // not a yen sign
        {"～\\", "\x81\x60\x5C"}, {"ソ", "\x83\x5C"},  // its second byte is a backslash
        {"表", "\x95\x5C"},       {"ﾌﾟ", "\xCC\xDF"}, {"｡", "\xA1"},      {"ε", "\x83\xC3"},  {"層", "\x91\x77"},
        {"①", "\x87\x40"},        {"Ⅰ", "\x87\x54"},  {"№", "\x87\x82"},  {"㈱", "\x87\x8A"}, {"纊", "\xFA\x5C"},
        {"ⅰ", "\xFA\x40"},        {"￤", "\xFA\x55"}, {"髙", "\xFB\xFC"}, {"黑", "\xFC\x4B"},
    };
    for (const auto& [text, bytes] : rows) {
        EXPECT_EQ(EncodeText(text), bytes) << text;
        EXPECT_EQ(DecodeText(bytes), text) << text;
    }
}

TEST(CodePage, DuplicateCodesAreReadButNotWritten) {
    const std::vector<std::pair<std::string, std::string>> rows{
        {"\xED\x40", "纊"}, {"\xEE\xEF", "ⅰ"},  {"\xEE\xFA", "￤"},                     // NEC selected: written as FAxx
        {"\xEE\xF9", "￢"}, {"\xFA\x54", "￢"},                                         // written as 81CA
        {"\xFA\x4A", "Ⅰ"},  {"\xFA\x58", "㈱"}, {"\xFA\x59", "№"},  {"\xFA\x5A", "℡"},  // written as 87xx
        {"\x87\x90", "≒"},  {"\x87\x9A", "∵"},  {"\xFA\x5B", "∵"},  {"\x87\x9C", "∪"},  // written as 81xx
    };
    for (const auto& [bytes, text] : rows) {
        EXPECT_EQ(DecodeText(bytes), text);
        EXPECT_NE(EncodeText(text), bytes) << text;
        EXPECT_EQ(DecodeText(EncodeText(text)), text);
    }
}

// Of the 9604 pairs (6879 of JIS X 0208, 83 of NEC row 13, 374 NEC selected, 388 of IBM, 1880 of users) 398 are
// duplicates, a number that is published with the list of them.
TEST(CodePage, AllPairsComeBackButThePublishedDuplicates) {
    int pairs = 0;
    int duplicates = 0;
    for (unsigned lead = 0x81; lead <= 0xFC; ++lead) {
        if (lead >= 0xA0 && lead <= 0xDF) {
            continue;
        }
        for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
            const std::string bytes = Pair(lead, trail);
            const std::string text = DecodeText(bytes);
            if (trail == 0x7F || text == Bad) {
                continue;
            }
            ++pairs;
            duplicates += EncodeText(text) != bytes ? 1 : 0;
            EXPECT_EQ(DecodeText(EncodeText(text)), text);
        }
    }
    EXPECT_EQ(pairs, 9604);
    EXPECT_EQ(duplicates, 398);
}

TEST(CodePage, CharactersThatItLacksBecomeOneQuestionMarkEachWithoutBestFit) {
    for (const char* text : {"ß", "é", "¥", "‾",  "—",  "〜",     "‖",      "−",      "¢",      "£",         "¬",
                             "¦", "©", "²", "한", "𠮷", "\u0080", "\u00A0", "\uF8F0", "\uFFFD", "\U0010FFFF"}) {
        EXPECT_EQ(EncodeText(text), "?") << text;
    }
    EXPECT_EQ(EncodeText("Straße 層"), "Stra?e \x91\x77");
}

TEST(CodePage, MalformedUtf8BecomesAQuestionMarkForEachByte) {
    EXPECT_EQ(EncodeText("a\xFF\xFE,b"), "a??,b");
    EXPECT_EQ(EncodeText("\xE5\xB1"), "??");
}

TEST(CodePage, SingleBytesThatItLacksBecomeReplacementCharacters) {
    for (const char* bytes : {"\x80", "\xA0", "\xFD", "\xFE", "\xFF"}) {
        EXPECT_EQ(DecodeText(bytes), Bad);
    }
    EXPECT_EQ(DecodeText("a\x80\xA0z"), "a" + Bad + Bad + "z");
}

TEST(CodePage, APairThatItLacksIsOneReplacementCharacter) {
    EXPECT_EQ(DecodeText("\x81\xAD."), Bad + ".");  // a gap of row 2
    EXPECT_EQ(DecodeText("\x85\x40."), Bad + ".");  // row 9 is empty
    EXPECT_EQ(DecodeText("\xFC\x4C."), Bad + ".");  // behind the last character of IBM
}

TEST(CodePage, ALeadByteSwallowsNoByteThatCannotFollowIt) {
    for (const char c : {'\r', '\n', ',', ' ', '"', '9', '\x7F', '\xFD', '\xFF'}) {
        const std::string next(1, c);
        EXPECT_EQ(DecodeText("\x81" + next), Bad + DecodeText(next));
        EXPECT_EQ(DecodeText("\xE0" + next + "a"), Bad + DecodeText(next) + "a");
    }
    EXPECT_EQ(DecodeText("\x91"), Bad);
    EXPECT_EQ(DecodeText("\x91\x77\x91"), "層" + Bad);
    EXPECT_EQ(DecodeText(std::string("\x81\0", 2)), Bad + std::string(1, '\0'));
}

TEST(CodePage, EveryPairOfBytesDecodesWithoutFailure) {
    for (unsigned first = 0; first <= 0xFF; ++first) {
        for (unsigned second = 0; second <= 0xFF; ++second) {
            const std::string text = DecodeText(Pair(first, second));
            EXPECT_FALSE(text.empty());
        }
    }
}

TEST(Names, NameThatTheCodePageHoldsIsWrittenInIt) {
    EXPECT_EQ(EncodeName("舗装.eva"), "\x95\xDC\x91\x95.eva");
    EXPECT_EQ(DecodeName("\x95\xDC\x91\x95.eva"), "舗装.eva");
    EXPECT_EQ(EncodeName("road 1.eva"), "road 1.eva");
    EXPECT_EQ(DecodeName("road 1.eva"), "road 1.eva");
    EXPECT_EQ(EncodeName(""), "");
    EXPECT_EQ(DecodeName(""), "");
}

TEST(Names, NameThatTheCodePageLacksIsWrittenAsUtf8AndReadAsThat) {
    for (const char* name : {"Straße.eva", "/home/é/舗装", "한국", "𠮷野", "C:\\Müller\\表"}) {
        EXPECT_EQ(EncodeName(name), name);
        EXPECT_EQ(DecodeName(name), name);
    }
}

TEST(Names, Utf8BytesThatTheCodePageCouldHoldAreReadAsCodePage) {
    // "舗" is E8 88 97 in UTF-8, and the code page holds "舗": so the bytes are the pair E888 and a cut-off lead byte.
    EXPECT_EQ(DecodeName("\xE8\x88\x97"), DecodeText("\xE8\x88\x97"));
}

// The price of names that the code page lacks: half-width marks whose bytes look like one of its missing letters.
TEST(Names, BytesOfTheCodePageThatAreUtf8OfAMissingCharacterAreReadAsUtf8) {
    EXPECT_EQ(EncodeName("ﾃｽ.eva"), "\xC3\xBD.eva");
    EXPECT_EQ(DecodeName("\xC3\xBD.eva"), "ý.eva");
    EXPECT_EQ(DecodeName(EncodeName("ﾃｽﾄ.eva")), "ﾃｽﾄ.eva");  // three of them are no UTF-8
}

TEST(Names, BytesThatAreNoUtf8AreReadAsCodePage) {
    EXPECT_EQ(DecodeName("Stra\xDF"
                         "e"),
              "Straﾟe");  // Latin-1's sharp s is a half-width mark here
}

}  // namespace
}  // namespace zirvo
