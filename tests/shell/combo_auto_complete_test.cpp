// Type-ahead of a combo box.
#include "shell/combo_auto_complete.h"

#include <gtest/gtest.h>

#include <string>

#include "base/fault_of.h"
#include "forms/application.h"
#include "forms/scripted_desktop.h"

namespace zirvo {
namespace {

class ComboForm : public forms::Form {
public:
    static constexpr const char* FormName = "Form6";
    explicit ComboForm(forms::Application& application) : Form(application, FormName) {}
    forms::ComboBox Combo1{*this, "Combo1"};
};

class AutoComplete : public testing::Test {
protected:
    AutoComplete() {
        App.Register("Form6", [](forms::Application& a) { return std::make_unique<ComboForm>(a); });
        for (const char* entry : {"EPSx", "EPSz", "εｘ", "epsy"}) {
            Combo().AddItem(entry);
        }
        Combo().Click = [this] { ++Clicks; };
    }
    forms::ComboBox& Combo() { return App.Get<ComboForm>().Combo1; }

    /// The box with this text and selection, and then the key; gives the key code that is left.
    int Press(const std::string& text, int selStart, int selLength, int key, int searchStart = 1) {
        Combo().Text = text;
        Combo().SelStart = selStart;
        Combo().SelLength = selLength;
        Clicks = 0;
        ComboAutoComplete(Combo(), key, searchStart);
        return key;
    }

    forms::ScriptedDesktop Desktop;
    forms::Application App{Desktop};
    int Clicks = 0;
};

TEST_F(AutoComplete, FirstEntryThatBeginsAsTypedBecomesCurrentAndItsRestIsSelected) {
    EXPECT_EQ(Press("", 0, 0, 'E'), 0);
    EXPECT_EQ(Combo().ListIndex, 0);
    EXPECT_EQ(Combo().Text, "EPSx");
    EXPECT_EQ(Combo().SelStart, 1);
    EXPECT_GE(Combo().SelLength, 3);
    EXPECT_EQ(Clicks, 1);
}

TEST_F(AutoComplete, TypingOnReplacesTheSelectedRest) {
    EXPECT_EQ(Press("EPSx", 3, 9999, 'z'), 0);
    EXPECT_EQ(Combo().ListIndex, 1);
    EXPECT_EQ(Combo().Text, "EPSz");
    EXPECT_EQ(Combo().SelStart, 4);
}

TEST_F(AutoComplete, ComparesAsTyped) {
    EXPECT_EQ(Press("", 0, 0, 'e'), 0);
    EXPECT_EQ(Combo().ListIndex, 3);
    Press("", 0, 0, 'x');
    EXPECT_EQ(Combo().ListIndex, -1) << "x stands in an entry, but not at its start";
}

TEST_F(AutoComplete, TextThatNoEntryBeginsWithStandsAsItIs) {
    EXPECT_EQ(Press("EPS", 3, 0, 'q'), 0);
    EXPECT_EQ(Combo().ListIndex, -1);
    EXPECT_EQ(Combo().Text, "EPSq");
    EXPECT_EQ(Combo().SelStart, 4);
    EXPECT_EQ(Clicks, 0);
}

// The typed length is that of the built text, so the caret goes behind the whole of it.
TEST_F(AutoComplete, CharacterInTheMiddleKeepsWhatStandsBehindTheSelection) {
    EXPECT_EQ(Press("EXXx", 1, 2, 'P'), 0);
    EXPECT_EQ(Combo().Text, "EPx");
    EXPECT_EQ(Combo().SelStart, 3);
    EXPECT_EQ(Press("Ex", 1, 0, 'P'), 0);
    EXPECT_EQ(Combo().Text, "EPx");
    EXPECT_EQ(Press("ESx", 1, 0, 'P'), 0);
    EXPECT_EQ(Combo().ListIndex, 0);
    EXPECT_EQ(Combo().SelStart, 4);
}

TEST_F(AutoComplete, CountsCharactersAndNotBytes) {
    EXPECT_EQ(Press("εx", 1, 1, U'ｘ'), 0);
    EXPECT_EQ(Combo().ListIndex, 2);
    EXPECT_EQ(Combo().SelStart, 2);
}

TEST_F(AutoComplete, KeysBelow33DoNothing) {
    for (const int key : {-1, 0, 1, 8, 9, 13, 27, 32}) {
        EXPECT_EQ(Press("EPSx", 1, 2, key), key);
        EXPECT_EQ(Combo().Text, "EPSx");
        EXPECT_EQ(Combo().SelStart, 1);
        EXPECT_EQ(Combo().SelLength, 2);
        EXPECT_EQ(Clicks, 0);
    }
    EXPECT_EQ(Press("", 0, 0, 33), 0);
    EXPECT_EQ(Combo().Text, "!");
}

// Deliberate: what is found from the second character on is not at the first.
TEST_F(AutoComplete, SearchThatStartsBehindTheFirstCharacterNeverFits) {
    for (const int start : {2, 3, 100}) {
        EXPECT_EQ(Press("", 0, 0, 'E', start), 0);
        EXPECT_EQ(Combo().Text, "E");
        EXPECT_EQ(Combo().ListIndex, -1);
    }
}

TEST_F(AutoComplete, SearchThatStartsBeforeTheFirstCharacterIsFault5) {
    EXPECT_EQ(FaultOf([&] { Press("", 0, 0, 'E', 0); }), 5);
    EXPECT_EQ(FaultOf([&] { Press("", 0, 0, ' ', 0); }), 0) << "a key that does nothing does not search";
}

TEST_F(AutoComplete, SelectionBeyondTheTextIsItsEnd) {
    EXPECT_EQ(Press("EPS", 3, 9999, 'z'), 0);
    EXPECT_EQ(Combo().Text, "EPSz");
}

TEST_F(AutoComplete, SameEntryAgainRaisesNothing) {
    Combo().ListIndex = 0;
    Clicks = 0;
    int key = 'P';
    Combo().SelStart = 1;
    Combo().SelLength = 9999;
    ComboAutoComplete(Combo(), key, 1);
    EXPECT_EQ(Combo().ListIndex, 0);
    EXPECT_EQ(Clicks, 0);
}

}  // namespace
}  // namespace zirvo
