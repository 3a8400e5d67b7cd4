// Undoing and kept data together: what Ctrl+Z takes back goes on being kept, and what was taken back is neither lost
// nor offered once it stands in a file of the user's.
#include <gtest/gtest.h>

#include "analysis/kept_programs.h"

namespace zirvo::test {
namespace {

using forms::Answer;
using forms::StrokeOfControl;
using forms::Type;

class Form3KeptAndUndone : public KeptPrograms {
protected:
    static void Undo(Program& program) { program.Form().Strike(StrokeOfControl('Z')); }
    static void Redo(Program& program) { program.Form().Strike(StrokeOfControl('Y')); }
    static std::string Modulus(Program& program) {
        return program.Form().MSFlexGrid1.HasDataRows() ? program.Form().MSFlexGrid1.TextMatrix(1, 1) : "";
    }
    static void TypeModulus(Program& program, const char* text) {
        program.Form().MSFlexGrid1.UserFocus();
        program.Form().MSFlexGrid1.UserClickCell(1, 1);
        Type(program.Form(), text);
        Type(program.Form(), "\t");
    }
    static void Save(Program& program) {
        program.Form().Command5.UserClick();
        program.Form().Command6.UserClick();
        program.Store.Wait();
    }
    /// What the next program would be offered: the modulus of its first layer; "" for nothing.
    std::string Offered() const {
        KeptFolder next(Folder);
        const auto offer = next.Newest("Form3", [](const KeptScreen&) { return true; });
        return !offer ? "" : offer->Data.Tables[0].Rows() == 0 ? "no layer" : offer->Data.Tables[0].At(0, 0);
    }
};

TEST_F(Form3KeptAndUndone, YesIsOneStepWhichIsTakenBackAndBroughtAgain) {
    TypeAndCrash();
    auto program = Start({Answer::Yes});
    Form3& form = program->Form();
    EXPECT_EQ(form.History().UndoSteps(), 1U);
    Undo(*program);
    EXPECT_EQ(form.Label7.Caption, "0");
    EXPECT_EQ(form.Label9.Caption, "0");
    EXPECT_EQ(form.Text7.Text, "");
    EXPECT_TRUE(form.Option1.Enabled && form.Option2.Enabled);
    EXPECT_FALSE(form.Command5.Enabled || form.Text7.Enabled || form.VScroll1.Enabled);
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(0, 1), "");
    EXPECT_EQ(forms::FocusOf(form), "Command8");  // the next behind DATA OK! that can be used
    Undo(*program);
    EXPECT_EQ(form.Label7.Caption, "0");
    Redo(*program);
    EXPECT_EQ(Modulus(*program), "1000");
    EXPECT_EQ(form.MSFlexGrid3.TextMatrix(1, 4), "5");
    EXPECT_TRUE(form.Command5.Enabled && form.Text7.Enabled && form.VScroll1.Enabled);
    EXPECT_FALSE(form.Option1.Enabled || form.Option2.Enabled);
    EXPECT_TRUE(program->Screens.Desktop.Boxes.empty());
    Save(*program);
    EXPECT_TRUE(program->Screens.Folder.Has("Untitled.eva"));
    program.reset();
    EXPECT_EQ(Offered(), "");
}

TEST_F(Form3KeptAndUndone, WhatWasTakenBackBehindYesIsStillKept) {
    TypeAndCrash();
    {
        const auto program = Start({Answer::Yes});
        Undo(*program);
        program->LetTimePass();
    }
    EXPECT_EQ(Offered(), "1000");
    {
        const auto program = Start({Answer::Yes});
        Undo(*program);
        program->Screens.TypeNewData();
        TypeModulus(*program, "2000");
        program->LetTimePass();
        EXPECT_EQ(Modulus(*program), "2000");
        Save(*program);
    }
    EXPECT_EQ(Offered(), "1000");  // the last but one now
}

TEST_F(Form3KeptAndUndone, ACellTypedBehindYesIsTakenBackBeforeTheFilling) {
    TypeAndCrash();
    const auto program = Start({Answer::Yes});
    TypeModulus(*program, "3000");
    Undo(*program);
    EXPECT_EQ(Modulus(*program), "1000");
    Undo(*program);
    EXPECT_EQ(Modulus(*program), "");
    Redo(*program);
    Redo(*program);
    EXPECT_EQ(Modulus(*program), "3000");
}

TEST_F(Form3KeptAndUndone, ASlipOnClearFormCostsNothingAndIsNotOfferedBehindSaveData) {
    {
        const auto program = Start();
        program->Screens.TypeNewData();
        program->LetTimePass();
        program->Form().Command4.UserClick();
        Undo(*program);
        EXPECT_EQ(Modulus(*program), "1000");
        program->LetTimePass();
        TypeModulus(*program, "2000");
        program->LetTimePass();
        Save(*program);
        program->Form().Command9.UserClick();
    }
    EXPECT_FALSE(Start()->IsAsked());
}

TEST_F(Form3KeptAndUndone, WhatIsTypedRightBehindTheUndoneSlipIsTheSameDataToo) {
    {
        const auto program = Start();
        program->Screens.TypeNewData();
        program->Form().Command4.UserClick();
        Undo(*program);
        TypeModulus(*program, "2000");
        program->LetTimePass();
        Save(*program);
    }
    EXPECT_EQ(Offered(), "");
}

TEST_F(Form3KeptAndUndone, ASlipOnClearFormLeavesWhatWasDeclinedAlone) {
    TypeAndCrash();
    {
        const auto program = Start({Answer::No});
        program->Screens.TypeNewData();
        TypeModulus(*program, "2000");
        program->Form().Command4.UserClick();
        Undo(*program);
        program->LetTimePass();
        EXPECT_EQ(Modulus(*program), "2000");
    }
    EXPECT_EQ(Offered(), "2000");
    {
        const auto program = Start({Answer::Yes});
        Save(*program);
    }
    EXPECT_EQ(Offered(), "1000");
}

TEST_F(Form3KeptAndUndone, WhatFollowsARedoneClearFormLeavesTheDataBeforeItKept) {
    {
        const auto program = Start();
        program->Screens.TypeNewData();
        program->Form().Command4.UserClick();
        Undo(*program);
        Redo(*program);
        EXPECT_EQ(program->Form().Label7.Caption, " 0");
        program->Screens.TypeNewData();
        TypeModulus(*program, "2000");
        program->LetTimePass();
        Save(*program);
    }
    EXPECT_EQ(Offered(), "1000");
}

TEST_F(Form3KeptAndUndone, AnImportThatComesBackUnchangedIsNotOffered) {
    {
        const auto program = Start();
        program->Screens.ImportAndAnswer(Answer::Yes);
        program->Form().Command4.UserClick();
        Undo(*program);
        program->LetTimePass();
        EXPECT_NE(Modulus(*program), "");
    }
    EXPECT_EQ(Offered(), "");
    {
        const auto program = Start();
        program->Screens.ImportAndAnswer(Answer::Yes);
        program->Form().Command4.UserClick();
        Undo(*program);
        TypeModulus(*program, "7");
        program->LetTimePass();
    }
    EXPECT_EQ(Offered(), "7");
}

TEST_F(Form3KeptAndUndone, DataThatAnUndoneImportBringsBackAreKept) {
    {
        const auto program = Start();
        program->Screens.TypeNewData();
        program->Screens.ImportAndAnswer(Answer::Yes);
        program->LetTimePass();
        Undo(*program);
        EXPECT_EQ(Modulus(*program), "");
        EXPECT_TRUE(program->Form().Command1.Enabled);  // the choice of the file once more
        Undo(*program);
        EXPECT_EQ(Modulus(*program), "1000");
        program->LetTimePass();
    }
    EXPECT_EQ(Offered(), "1000");
}

// IMPORT waits for its file, and nothing stands on the screen: Ctrl+Z takes the choice itself back, with all that it
// has emptied and locked, and never a row of the data before it alone.
TEST_F(Form3KeptAndUndone, WhereImportWaitsForItsFileTheChoiceItselfIsTakenBack) {
    const auto program = Start();
    Form3& form = program->Form();
    form.Option1.UserClick();
    form.VScroll1.UserRelease(2);
    form.VScroll1.UserRelease(0);
    form.Text7.UserEdited("road", 4, 0);
    form.Option2.UserClick();
    EXPECT_EQ(form.Text7.Text, "");
    Undo(*program);
    EXPECT_TRUE(form.Option1.Value);
    EXPECT_FALSE(form.Option2.Value || form.Command1.Enabled);
    EXPECT_EQ(form.Label7.Caption, " 0");
    EXPECT_EQ(form.Text7.Text, "road");
    EXPECT_TRUE(form.VScroll1.Enabled && form.Command5.Enabled);
    Redo(*program);
    EXPECT_TRUE(form.Option2.Value && form.Command1.Enabled);
    EXPECT_FALSE(form.VScroll1.Enabled || form.Command5.Enabled);
    EXPECT_EQ(form.Label7.Caption, "0");
    Redo(*program);  // nothing more
    EXPECT_FALSE(form.MSFlexGrid1.HasDataRows());
    Undo(*program);
    Undo(*program);
    EXPECT_EQ(form.Label7.Caption, " 2");
}

TEST_F(Form3KeptAndUndone, RowsThatWereUndoneDoNotComeBackWhereImportWaits) {
    const auto program = Start();
    Form3& form = program->Form();
    form.Option1.UserClick();
    form.VScroll1.UserRelease(2);
    Undo(*program);
    form.Option2.UserClick();
    Redo(*program);
    EXPECT_EQ(form.Label7.Caption, "0");
    EXPECT_TRUE(form.Command1.Enabled);
    program->Screens.ImportAndAnswer(Answer::Yes);
    EXPECT_NE(Modulus(*program), "");
}

TEST_F(Form3KeptAndUndone, AFailedImportIsTakenBackToWhatStoodBefore) {
    auto program = Start();
    program->Screens.TypeNewData();
    program->Screens.Import("no such data\r\n", "bad.eva");
    Undo(*program);
    while (program->Form().Option2.Value && program->Form().History().UndoSteps() > 0) {
        Undo(*program);
    }
    EXPECT_EQ(Modulus(*program), "1000");
    EXPECT_TRUE(program->Form().Command5.Enabled);
    program->LetTimePass();
    Save(*program);
    program.reset();
    EXPECT_EQ(Offered(), "");
}

}  // namespace
}  // namespace zirvo::test
