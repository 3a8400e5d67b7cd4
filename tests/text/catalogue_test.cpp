// The catalogue: numbers, blanks, and that every text can stand in a file.
#include "text/catalogue.h"

#include <gtest/gtest.h>

#include <string>

#include "base/fault_of.h"
#include "base/utf8.h"
#include "platform/code_page.h"

namespace zirvo {
namespace {

std::string Japanese(Int16 k) {
    return std::string(GetMessage(JapaneseBase, k));
}
std::string English(Int16 k) {
    return std::string(GetMessage(EnglishBase, k));
}

TEST(ChooseLanguageBase, JapaneseGoesBeforeEnglishAndNeitherIsZero) {
    EXPECT_EQ(ChooseLanguageBase(true, false), 100);
    EXPECT_EQ(ChooseLanguageBase(true, true), 100);
    EXPECT_EQ(ChooseLanguageBase(false, true), 273);
    EXPECT_EQ(ChooseLanguageBase(false, false), 0);
}

TEST(GetMessage, EveryNumberHasATextInBothLanguages) {
    int texts = 0;
    for (Int16 k = LowestMessage; k <= HighestMessage; ++k) {
        texts += Japanese(k).empty() ? 0 : 1;
        texts += English(k).empty() ? 0 : 1;
    }
    EXPECT_EQ(texts, 346);
}

TEST(GetMessage, EntriesGoFrom101To446) {
    // The sum of base and number is the entry, so any base reaches any entry.
    EXPECT_EQ(GetMessage(1, 100), Japanese(1));
    EXPECT_EQ(GetMessage(1, 272), Japanese(173));
    EXPECT_EQ(GetMessage(1, 273), English(1));
    EXPECT_EQ(GetMessage(1, 445), English(173));
    EXPECT_EQ(GetMessage(1, 99), "");
    EXPECT_EQ(GetMessage(1, 446), "");
    EXPECT_EQ(GetMessage(EnglishBase, 174), "");
    EXPECT_EQ(GetMessage(JapaneseBase, 0), "");
    EXPECT_EQ(GetMessage(JapaneseBase, -200), "");
    EXPECT_EQ(GetMessage(-32768, 1), "");
}

TEST(GetMessage, LanguageBaseZeroFindsNoText) {
    for (Int16 k = LowestMessage; k <= HighestMessage; ++k) {
        EXPECT_EQ(GetMessage(0, k), "") << k;
    }
}

TEST(GetMessage, SumBeyond16BitsOverflows) {
    EXPECT_EQ(FaultOf([] { GetMessage(32767, 1); }), 6);
}

TEST(GetMessage, FirstAndLastTextsStandUnderTheirNumbers) {
    EXPECT_EQ(English(1), "QUIT");
    EXPECT_EQ(Japanese(1), "終　了");
    EXPECT_EQ(English(173), "ANALYSIS UNCOMPLETED");
    EXPECT_EQ(Japanese(173), "解析が失敗しました！");
    EXPECT_EQ(English(57), "ANALYSIS STOPPED - CHECK INPUT DATA");
    EXPECT_EQ(English(100), "1. Output Component");
    EXPECT_EQ(Japanese(55), "入力フィアルを選んで下さい");  // the word for "file" is spelt so
}

TEST(GetMessage, SameWordsStandUnderEachPlaceOfUse) {
    for (const Int16 k : {Int16{11}, Int16{36}, Int16{79}, Int16{120}}) {
        EXPECT_EQ(English(k), "QUIT");
        EXPECT_EQ(Japanese(k), "終　了");
    }
}

TEST(GetMessage, TextsKeepTheBlanksAtTheirEnds) {
    EXPECT_EQ(Japanese(72),
              "鉛直荷重(kgf)      半径(cm)       X-座標(cm)      Y-座標(cm)     水平荷重(kgf)   X-軸との角度(deg) ");
    EXPECT_EQ(Japanese(73),
              "鉛直荷重(kN)       半径(cm)       X-座標(cm)      Y-座標(cm)     水平荷重(kN)    X-軸との角度(deg)");
    EXPECT_EQ(English(125), "POINTS SHOULD NOT BE EXCEEDED ");
    EXPECT_EQ(Japanese(125), "点以下にﾃﾞｰﾀを減らしてください。");
    EXPECT_EQ(Japanese(70).substr(0, 1), " ");
    EXPECT_EQ(English(70), " MODULUS(MPa)　      　　   MU  　      THICKNESS(cm)　  SLIP RATE");
}

TEST(GetMessage, OnlyThreeNumbersHaveABlankAtAnEnd) {
    for (Int16 k = LowestMessage; k <= HighestMessage; ++k) {
        for (const std::string& text : {Japanese(k), English(k)}) {
            const bool blank = text.front() == ' ' || text.back() == ' ';
            const bool expected = k == 70 || (k == 72 && text == Japanese(72)) || (k == 125 && text == English(125));
            EXPECT_EQ(blank, expected) << k << ": [" << text << "]";
        }
    }
}

TEST(GetMessage, UnitChoicesHaveTheirOwnBars) {
    EXPECT_EQ(Japanese(7), "入力：　kgf, kgf/cm2, cm  ｜ 出力：　kgf/cm2, cm");  // full-width bar U+FF5C
    EXPECT_EQ(Japanese(8), "入力：　kgf, kgf/cm2, cm  ｜ 出力：　MPa, cm");
    EXPECT_EQ(Japanese(9), "入力：　kN, MPa, cm　　　 　|  出力：　MPa, cm");  // plain bar
    EXPECT_EQ(English(7), "INPUT: kgf, kgf/cm2, cm　| OUTPUT: kgf/cm2, cm");
    EXPECT_EQ(English(8), "INPUT: kgf, kgf/cm2, cm　| OUTPUT: MPa, cm");
    EXPECT_EQ(English(9), "INPUT: kN, MPa, cm        | OUTPUT: MPa, cm");
}

TEST(GetMessage, FiltersOfDialogsAreDescriptionBarPattern) {
    EXPECT_EQ(English(126), "BITMAP FILE(*.bmp)|*.bmp");
    EXPECT_EQ(Japanese(126), "ﾋﾞｯﾄﾏｯﾌﾟﾌｧｲﾙ(*.bmp)|*.bmp");
    EXPECT_EQ(English(121), "DATA FILE(*.out,*.csv)|*.out;*.csv");
}

TEST(GetMessage, OddSpellingsStayAsTheyStand) {
    EXPECT_EQ(Japanese(123), "解析値の表示（ON） -> 解析点の表示（ON)　及び　凡例の表示（OFF)");  // mixed parentheses
    EXPECT_EQ(Japanese(122), "- ZIRVO Ver2.2 -");
    EXPECT_EQ(English(122), "- ZIRVO Ver2.2 -");
    EXPECT_EQ(Japanese(83), "εｘ");
    EXPECT_EQ(Japanese(84), "εz");
}

// Bytes of Windows-31J: 8140 is the ideographic space, which the English headings hold too.
TEST(GetMessage, HeadingsOfFilesHaveTheirColumnsInBytes) {
    EXPECT_EQ(EncodeText(English(67)), "LAYERS  \x81\x40LOADS     POINTS");
    EXPECT_EQ(EncodeText(Japanese(67)),
              "\x91\x77\x90\x94\x81\x40\x81\x40\x8D\xDA\x89\xD7\x93\x5F\x90\x94\x81\x40\x81\x40\x92\x85\x96\xDA\x93\x5F"
              "\x90\x94");
    // 16 characters, 2 + 3 + 4 + 3 of blanks, "MU", 2 + 7, 13, 2 + 3, 9: two bytes for each ideographic space.
    EXPECT_EQ(EncodeText(English(69)),
              "MODULUS(kgf/cm2)\x81\x40   \x81\x40\x81\x40   MU\x81\x40       THICKNESS(cm)\x81\x40   SLIP RATE");
    EXPECT_EQ(EncodeText(English(74)), "LAYER NO.   X-AXIS(cm)   Y-AXIS(cm)   Z-AXIS(cm)");
}

TEST(GetMessage, EveryTextSurvivesCodePage932) {
    for (Int16 k = LowestMessage; k <= HighestMessage; ++k) {
        for (const std::string& text : {Japanese(k), English(k)}) {
            EXPECT_TRUE(IsValidUtf8(text)) << k;
            EXPECT_EQ(DecodeText(EncodeText(text)), text) << k;
            EXPECT_EQ(EncodeText(text).find('?') != std::string::npos, text.find('?') != std::string::npos) << k;
        }
    }
}

}  // namespace
}  // namespace zirvo
