// The language screen, state by state.
#include "shell/form1.h"

#include "shell/screens.h"
#include "shell/start_notes.h"

namespace zirvo {
namespace {

using forms::Language;
using Names = std::vector<std::string>;

TEST_F(Screens, Form1StartsWithThePictureAndTheLanguagesAlone) {
    Form1& form = Start();
    EXPECT_EQ(form.Caption, "- ZIRVO Ver2.3 -");
    EXPECT_EQ(UsableControls(form), (Names{"Option1", "Option2"}));
    EXPECT_EQ(ControlsInSight(form), (Names{"Frame3", "Option1", "Option2", "Picture1"}));
    EXPECT_EQ(form.Frame3.Caption, "Preferred Language");
    EXPECT_EQ(form.Option1.Caption, "Japanese");
    EXPECT_EQ(form.Option2.Caption, "English");
    EXPECT_EQ(form.Picture1.Picture, "pavement");
    EXPECT_FALSE(form.Option1.Value);
    EXPECT_FALSE(form.Option2.Value);
    EXPECT_FALSE(form.Command1.Enabled);
    EXPECT_FALSE(form.Command2.Enabled);
    EXPECT_EQ(form.LanguageBase, 0);
    EXPECT_EQ(Desktop.Log, (Names{"show Form1"}));
    ExpectTidyLayout(form);
}

TEST_F(Screens, Form1InJapaneseShowsTheNotesAndTheButtons) {
    Form1& form = StartIn(Language::Japanese);
    EXPECT_EQ(form.LanguageBase, 100);
    EXPECT_EQ(ControlsInSight(form), (Names{"Picture3", "Command1", "Command2", "Command3"}));
    EXPECT_EQ(UsableControls(form), (Names{"Command1", "Command2", "Command3"}));
    EXPECT_EQ(form.Command1.Caption, "終　了");
    EXPECT_EQ(form.Command2.Caption, "次　へ");
    EXPECT_EQ(form.Command3.Caption, "ﾊﾞｰｼﾞｮﾝ情報");
    EXPECT_EQ(form.Picture3.Text, StartNotes(Language::Japanese));
    EXPECT_EQ(forms::FocusOf(form), "Command2");
    EXPECT_TRUE(form.Option1.Value);
    EXPECT_FALSE(form.Option2.Value);
    ExpectTidyLayout(form);
}

TEST_F(Screens, Form1InEnglishShowsTheNotesAndTheButtons) {
    Form1& form = StartIn(Language::English);
    EXPECT_EQ(form.LanguageBase, 273);
    EXPECT_EQ(ControlsInSight(form), (Names{"Picture2", "Command1", "Command2", "Command3"}));
    EXPECT_EQ(UsableControls(form), (Names{"Command1", "Command2", "Command3"}));
    EXPECT_EQ(form.Command1.Caption, "QUIT");
    EXPECT_EQ(form.Command2.Caption, "NEXT");
    EXPECT_EQ(form.Command3.Caption, "VERSION INFO");
    EXPECT_EQ(form.Picture2.Text, StartNotes(Language::English));
    EXPECT_EQ(forms::FocusOf(form), "Command2");
    EXPECT_FALSE(form.Option1.Value);
    EXPECT_TRUE(form.Option2.Value);
    ExpectTidyLayout(form);
}

TEST_F(Screens, LanguageOnceChosenCannotBeChanged) {
    Form1& form = StartIn(Language::English);
    form.Option1.UserClick();
    EXPECT_FALSE(form.Option1.Value);
    EXPECT_TRUE(form.Option2.Value);
    EXPECT_EQ(form.LanguageBase, 273);
}

// A program may set the other option: the screen must follow as if it had been the first.
TEST_F(Screens, EachOptionOfForm1HidesWhatTheOtherShows) {
    Form1& form = StartIn(Language::English);
    form.Option1.Value = true;
    EXPECT_EQ(ControlsInSight(form), (Names{"Picture3", "Command1", "Command2", "Command3"}));
    EXPECT_EQ(form.LanguageBase, 100);
    form.Option2.Value = true;
    EXPECT_EQ(ControlsInSight(form), (Names{"Picture2", "Command1", "Command2", "Command3"}));
    EXPECT_EQ(form.LanguageBase, 273);
}

TEST_F(Screens, FrameCannotCloseForm1InAnyState) {
    Form1& form = Start();
    for (int state = 0; state < 2; ++state) {
        EXPECT_FALSE(form.HasCloseEntry);
        form.UserClose();
        form.HasCloseEntry = true;  // even if a window manager offers an entry
        form.UserClose();
        form.HasCloseEntry = false;
        EXPECT_TRUE(form.IsVisible());
        EXPECT_FALSE(App.HasEnded());
        if (state == 0) {
            form.Option2.UserClick();
        }
    }
    EXPECT_EQ(App.Find("Form1"), &form);
}

TEST_F(Screens, QuitOfForm1EndsTheProgramAtOnce) {
    StartIn(Language::English).Command1.UserClick();
    EXPECT_EQ(Desktop.EndStatus, 0);
    EXPECT_EQ(Desktop.Log, (Names{"show Form1", "end 0"}));  // nothing is unloaded
    EXPECT_TRUE(Desktop.Boxes.empty());                      // nothing asked
}

TEST_F(Screens, NextOfForm1LeadsToForm2AndKeepsTheChoice) {
    Form1& form = StartIn(Language::Japanese);
    form.Command2.UserClick();
    EXPECT_EQ(Desktop.Log, (Names{"show Form1", "hide Form1", "show Form2"}));
    EXPECT_EQ(App.Find("Form1"), &form);
    EXPECT_FALSE(form.IsVisible());
    EXPECT_TRUE(form.Option1.Value);
    EXPECT_EQ(form.LanguageBase, 100);
}

TEST_F(Screens, VersionInfoOpensForm7BesideForm1) {
    Form1& form = StartIn(Language::English);
    form.Command3.UserClick();
    EXPECT_EQ(Desktop.Log, (Names{"show Form1", "show Form7"}));
    EXPECT_TRUE(form.IsVisible());
}

TEST_F(Screens, KeyboardAloneChoosesJapaneseWithSpace) {
    Form1& form = Start();
    EXPECT_EQ(forms::FocusOf(form), "Option1");
    forms::Type(form, " ");
    EXPECT_EQ(form.LanguageBase, 100);
    EXPECT_EQ(forms::FocusOf(form), "Command2");
}

TEST_F(Screens, KeyboardAloneChoosesEnglishWithAnArrow) {
    Form1& form = Start();
    forms::Press(form, forms::key::Down);
    EXPECT_EQ(form.LanguageBase, 273);
    EXPECT_EQ(forms::FocusOf(form), "Command2");
}

TEST_F(Screens, TabOfForm1GoesThroughTheButtonsAndRound) {
    Form1& form = StartIn(Language::English);
    Names seen;
    for (int i = 0; i < 3; ++i) {
        forms::Type(form, "\t");
        seen.push_back(forms::FocusOf(form));
    }
    EXPECT_EQ(seen, (Names{"Command3", "Command1", "Command2"}));
}

TEST_F(Screens, KeyboardAloneTakesTheChainThroughForm7AndForm2) {
    Form1& form = Start();
    forms::Press(form, forms::key::Down);  // English
    forms::Type(form, "\t\r");             // VERSION INFO
    Form7& version = App.Get<Form7>();
    EXPECT_TRUE(version.IsVisible());
    forms::Type(version, "\r");
    EXPECT_EQ(App.Find("Form7"), nullptr);
    EXPECT_EQ(forms::FocusOf(form), "Command3");
    forms::Type(form, "\t\t\r");  // QUIT, NEXT
    EXPECT_FALSE(form.IsVisible());
    EXPECT_TRUE(App.Get<Form2>().IsVisible());
}

}  // namespace
}  // namespace zirvo
