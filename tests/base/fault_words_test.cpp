// What a fault was about, told in both languages: every row of the table, and what is left out where nothing is known.
#include "base/fault_words.h"

#include <gtest/gtest.h>

#include <array>

#include "base/utf8.h"

namespace zirvo {
namespace {

constexpr auto Ja = FaultLanguage::Japanese;
constexpr auto En = FaultLanguage::English;

std::string Told(int number, FaultMatter matter, const std::string& name, FaultLanguage language,
                 const std::string& reason = {}) {
    return FaultExplanation(RuntimeFault(number, {matter, name, reason}), language);
}

TEST(FaultWords, AFaultAboutNothingHasNone) {
    EXPECT_EQ(FaultExplanation(RuntimeFault(fault::Overflow), Ja), "");
    EXPECT_EQ(FaultExplanation(RuntimeFault(fault::Overflow), En), "");
    EXPECT_EQ(FaultExplanation(RuntimeFault(20001, "User selected cancel."), En), "");
}

TEST(FaultWords, NameTheFileAndWhatIsWrongWithIt) {
    EXPECT_EQ(Told(53, FaultMatter::File, "/w/a.eva", En), "File: /w/a.eva\nThis file does not exist.");
    EXPECT_EQ(Told(53, FaultMatter::File, "/w/a.eva", Ja), "ファイル: /w/a.eva\nこのファイルはありません。");
    EXPECT_EQ(Told(76, FaultMatter::Folder, "/w", En), "Folder: /w\nThis folder does not exist.");
    EXPECT_EQ(Told(76, FaultMatter::Folder, "/w", Ja), "フォルダ: /w\nこのフォルダはありません。");
    EXPECT_EQ(Told(53, FaultMatter::Report, "/w/a.san", En), "File: /w/a.san\nThe solver has not written this file.");
}

TEST(FaultWords, AProgramIsMissingOrCannotBeStarted) {
    EXPECT_EQ(Told(53, FaultMatter::Program, "/p/S.EXE", En),
              "Program: /p/S.EXE\nThis program is missing or cannot be started. Please unpack ZIRVO again.");
    EXPECT_EQ(Told(53, FaultMatter::Program, "/p/S.EXE", Ja),
              "プログラム: /p/S.EXE\nこのプログラムがないか、起動できません。ZIRVOを展開し直してください。");
    for (const int number : {70, 75, 57, 52}) {
        EXPECT_EQ(Told(number, FaultMatter::Program, "/p/S.EXE", En),
                  "Program: /p/S.EXE\nThis program could not be started. Please check its permissions.");
    }
}

TEST(FaultWords, UnreadableSettingsMayBeDeleted) {
    for (const int number : {5, 6, 13, 62}) {
        EXPECT_NE(Told(number, FaultMatter::Settings, "/p/s.ini", En).find("Please delete this file"),
                  std::string::npos);
        EXPECT_NE(Told(number, FaultMatter::Settings, "/p/s.ini", Ja).find("このファイルを削除すると"),
                  std::string::npos);
    }
    EXPECT_EQ(Told(57, FaultMatter::Settings, "/p/s.ini", En), "File: /p/s.ini\nThe drive reports an error.");
}

TEST(FaultWords, MattersWithoutAFileAreSentencesOfTheirOwn) {
    EXPECT_EQ(Told(13, FaultMatter::LayerCell, "7", En),
              "The LAYER cell of point of interest 7 does not hold a number.");
    EXPECT_EQ(Told(13, FaultMatter::LayerCell, "7", Ja), "着目点 7 の層番号に数値が入力されていません。");
    EXPECT_EQ(Told(6, FaultMatter::LineCount, "99999", En), "The number of contour lines is too large: 99999");
    EXPECT_EQ(Told(6, FaultMatter::LineCount, "99999", Ja), "コンターの線の数が大きすぎます: 99999");
    EXPECT_EQ(Told(6, FaultMatter::LoadPositions, "", En),
              "The loads lie so far out that no grid of points can be made. Please check their X, Y and radius.");
    EXPECT_EQ(Told(6, FaultMatter::LoadPositions, "", Ja),
              "載荷点が遠すぎるため、着目点の格子を作れません。X座標、Y座標、半径をご確認ください。");
    EXPECT_EQ(Told(6, FaultMatter::Thicknesses, "", En),
              "The layers are so thick that no grid of points can be made. Please check their thicknesses.");
    EXPECT_EQ(Told(6, FaultMatter::Thicknesses, "", Ja),
              "層が厚すぎるため、着目点の格子を作れません。層厚をご確認ください。");
}

// Every number that a file can raise has a line behind its name, in polite Japanese, which ends its sentences.
TEST(FaultWords, EveryNumberOfAFileSaysWhatIsWrong) {
    for (const FaultMatter matter :
         {FaultMatter::File, FaultMatter::Folder, FaultMatter::Program, FaultMatter::Settings, FaultMatter::Report}) {
        for (const int number : {5, 6, 9, 13, 52, 53, 55, 57, 58, 61, 62, 70, 75, 76}) {
            const std::string english = Told(number, matter, "/a", En);
            const std::string japanese = Told(number, matter, "/a", Ja);
            ASSERT_NE(english.find('\n'), std::string::npos) << number;
            ASSERT_NE(japanese.find('\n'), std::string::npos) << number;
            EXPECT_TRUE(english.ends_with(".")) << english;
            EXPECT_TRUE(japanese.ends_with("ん。") || japanese.ends_with("す。") || japanese.ends_with("た。") ||
                        japanese.ends_with("さい。"))
                << japanese;
            EXPECT_EQ(CharacterCount(english.substr(0, english.find('\n'))), english.find('\n')) << "plain English";
        }
    }
}

TEST(FaultWords, TheReasonStandsInTheSolversOwnWords) {
    EXPECT_EQ(
        Told(53, FaultMatter::Report, "/w/a.san", En, "REASON: Disk full\nEND"),
        "File: /w/a.san\nThe solver has not written this file.\nThe solver's report says:\nREASON: Disk full\nEND");
    EXPECT_EQ(Told(62, FaultMatter::File, "/w/a.bre", Ja, "理由: x"),
              "ファイル: /w/a.bre\nファイルが途中で終わっています。\nソルバーの報告:\n理由: x");
}

TEST(FaultWords, TheEndAndTheDataAreToldInBothLanguages) {
    EXPECT_EQ(ProgramEnds(En), "The program ends now.");
    EXPECT_EQ(ProgramEnds(Ja), "プログラムを終了します。");
    EXPECT_EQ(TypedDataKept(En, true), "What you typed is kept.");
    EXPECT_EQ(TypedDataKept(En, false), "What you typed could not be kept.");
    EXPECT_EQ(TypedDataKept(Ja, true), "入力した内容は残してあります。");
    EXPECT_EQ(TypedDataKept(Ja, false), "入力した内容は残せませんでした。");
}

}  // namespace
}  // namespace zirvo
