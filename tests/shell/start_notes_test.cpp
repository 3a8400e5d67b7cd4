// The notes of the first screen, in both languages.
#include "shell/start_notes.h"

#include <gtest/gtest.h>

#include <string>

#include "base/utf8.h"

namespace zirvo {
namespace {

void ExpectWords(forms::Language language, std::initializer_list<const char*> words) {
    const std::string notes = StartNotes(language);
    EXPECT_TRUE(IsValidUtf8(notes));
    for (const char* word : words) {
        EXPECT_NE(notes.find(word), std::string::npos) << word;
    }
}

TEST(StartNotes, TellInEnglishWhatTheSystemComputesAndItsLimits) {
    ExpectWords(forms::Language::English,
                {"engineers", "roads and runways", "multi-layered linear elastic", "vertical loads (wheel loads)",
                 "horizontal loads (braking loads)", "circular areas", "slip", "shear spring", "superposition",
                 "stresses, strains and deflections", "any point", "100 loads", "100 pavement layers",
                 "10000 points of interest"});
}

TEST(StartNotes, TellTheSameInJapanese) {
    ExpectWords(forms::Language::Japanese,
                {"技術者", "道路や滑走路", "多層線形弾性体", "鉛直荷重（輪荷重）", "水平荷重（制動荷重）", "円形",
                 "すべり", "せん断ばね", "重ね合わせ", "応力、ひずみ、たわみ", "任意の点", "載荷点 100 点", "層 100 層",
                 "着目点 10000 点"});
}

TEST(StartNotes, EndWithTheTwoLinesOnRights) {
    for (const auto language : {forms::Language::Japanese, forms::Language::English}) {
        EXPECT_TRUE(StartNotes(language).ends_with("\n\nCopyright (c) 2026 the ZIRVO developers\nMIT License"));
    }
}

}  // namespace
}  // namespace zirvo
