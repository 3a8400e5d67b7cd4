// Tests of the editing of a text by strokes, counted in characters and not in bytes.
#include "forms/text_edit.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "base/utf8.h"

namespace zirvo::forms {
namespace {

/// The text with "|" at the caret, or at both ends of the selection.
std::string Shown(const EditedText& edited) {
    std::u32string shown = edited.Characters;
    if (edited.Length > 0) {
        shown.insert(edited.Start + edited.Length, U"|");
    }
    shown.insert(edited.Start, U"|");
    return FromCharacters(shown);
}

std::string After(std::string_view text, int start, int length, const KeyStroke& stroke) {
    EditedText edited(text, start, length);
    edited.Apply(stroke);
    return Shown(edited);
}

TEST(EditedText, ACharacterGoesInAtTheCaretAndReplacesASelection) {
    EXPECT_EQ(After("12", 1, 0, StrokeOf(U'x')), "1x|2");
    EXPECT_EQ(After("123", 0, 2, StrokeOf(U'x')), "x|3");
    EXPECT_EQ(After("層層", 1, 0, StrokeOf(U'あ')), "層あ|層");
}

TEST(EditedText, BackspaceAndDeleteTakeOneCharacterOrTheSelection) {
    EXPECT_EQ(After("層あx", 2, 0, StrokeOfKey(key::Backspace)), "層|x");
    EXPECT_EQ(After("層あx", 1, 0, StrokeOfKey(key::Delete)), "層|x");
    EXPECT_EQ(After("層あx", 0, 2, StrokeOfKey(key::Backspace)), "|x");
    EXPECT_EQ(After("層あx", 0, 2, StrokeOfKey(key::Delete)), "|x");
    EXPECT_EQ(After("x", 0, 0, StrokeOfKey(key::Backspace)), "|x");
    EXPECT_EQ(After("x", 1, 0, StrokeOfKey(key::Delete)), "x|");
}

TEST(EditedText, ArrowsHomeAndEndMoveTheCaret) {
    EXPECT_EQ(After("abc", 1, 0, StrokeOfKey(key::Left)), "|abc");
    EXPECT_EQ(After("abc", 0, 0, StrokeOfKey(key::Left)), "|abc");
    EXPECT_EQ(After("abc", 1, 0, StrokeOfKey(key::Right)), "ab|c");
    EXPECT_EQ(After("abc", 3, 0, StrokeOfKey(key::Right)), "abc|");
    EXPECT_EQ(After("abc", 1, 2, StrokeOfKey(key::Left)), "a|bc");
    EXPECT_EQ(After("abc", 0, 2, StrokeOfKey(key::Right)), "ab|c");
    EXPECT_EQ(After("abc", 2, 0, StrokeOfKey(key::Home)), "|abc");
    EXPECT_EQ(After("abc", 0, 1, StrokeOfKey(key::End)), "abc|");
}

TEST(EditedText, OtherStrokesDoNothing) {
    for (const int code : {key::Enter, key::Escape, key::Tab, key::Up, key::PageDown, key::F1}) {
        EXPECT_EQ(After("abc", 0, 2, StrokeOfKey(code)), "|ab|c");
    }
    EXPECT_EQ(After("abc", 0, 2, {.Code = 'C', .Character = 3, .Control = true}), "|ab|c");
    EXPECT_EQ(After("abc", 0, 2, {.Code = 127, .Character = 127}), "|ab|c");
}

TEST(EditedText, ASelectionBeyondTheTextEndsWithIt) {
    EXPECT_EQ(Shown(EditedText("abc", 1, 9999)), "a|bc|");
    EXPECT_EQ(Shown(EditedText("abc", 7, 1)), "abc|");
    EXPECT_EQ(Shown(EditedText("abc", -1, -1)), "|abc");
}

TEST(CheckedSelection, IsCutAtTheEndAndRefusedBelowZero) {
    EXPECT_EQ(CheckedSelStart("層あ", 5), 2);
    EXPECT_EQ(CheckedSelLength("層あx", 1, 9999), 2);
    EXPECT_EQ(FaultOf([] { CheckedSelStart("abc", -1); }), fault::InvalidCall);
    EXPECT_EQ(FaultOf([] { CheckedSelLength("abc", 0, -1); }), fault::InvalidCall);
}

}  // namespace
}  // namespace zirvo::forms
