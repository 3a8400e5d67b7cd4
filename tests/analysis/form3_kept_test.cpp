// Nothing typed on the data screen goes with the program: what is kept when, what is offered at the next start, and
// what the answers do. What undoing does to it stands in form3_kept_undo_test.cpp.
#include <gtest/gtest.h>

#include "analysis/kept_programs.h"
#include "base/fault_words.h"
#include "platform/clock.h"
#include "shell/kept_data.h"
#include "text/version_stamp.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::FocusOf;
using forms::Press;
using forms::Type;
using test::AnalysisScreens;
using test::Answers;
using test::ExampleFile;
using test::Program;
namespace key = forms::key;

class Form3Kept : public test::KeptPrograms {};

TEST_F(Form3Kept, WhatWasTypedIsOfferedAndFilledInAfterACrash) {
    TypeAndCrash();
    const auto program = Start({Answer::Yes});
    ASSERT_EQ(program->Asked().size(), 1U);
    EXPECT_EQ(program->Asked()[0].Choice, forms::Buttons::YesNo);
    EXPECT_EQ(program->Asked()[0].Title, MakeVersionStamp(3));
    Form3& form = program->Form();
    EXPECT_EQ(form.Label7.Caption, " 1");
    EXPECT_EQ(form.Label9.Caption, " 1");
    EXPECT_EQ(form.VScroll2.Value, 1);
    EXPECT_EQ(form.Text7.Text, "Untitled.eva");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 1), "1000");
    EXPECT_EQ(form.MSFlexGrid2.TextMatrix(1, 2), "15");
    EXPECT_EQ(form.MSFlexGrid3.TextMatrix(1, 4), "5");
    EXPECT_EQ(form.MSFlexGrid3.TextMatrix(1, 0), "POINT 1");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(0, 1), program->Screens.Words(38));
}

TEST_F(Form3Kept, YesLeadsToTheStateOfAnImportThatIsUpdated) {
    TypeAndCrash();
    const auto restored = Start({Answer::Yes});
    AnalysisScreens imported;
    imported.ImportAndAnswer(Answer::Yes);
    for (const forms::Control* control : restored->Form().Controls) {
        const forms::Control* other = imported.Data().Controls.Find(control->Name(), control->Index());
        ASSERT_NE(other, nullptr) << control->Name();
        EXPECT_EQ(control->Enabled.Get(), other->Enabled.Get()) << control->Name();
        EXPECT_EQ(control->Visible.Get(), other->Visible.Get()) << control->Name();
    }
    EXPECT_EQ(FocusOf(restored->Form()), FocusOf(imported.Data()));
}

TEST_F(Form3Kept, WhatIsFilledInIsCheckedSavedAndAnalyzedInTheFolderOfTheUsersFiles) {
    TypeAndCrash();
    const auto program = Start({Answer::Yes});
    program->Form().Command5.UserClick();
    program->Form().Command6.UserClick();
    EXPECT_TRUE(program->Screens.Folder.Has("Untitled.eva"));
    EXPECT_EQ(FocusOf(program->Form()), "Command7");
    EXPECT_TRUE(program->Screens.Desktop.Boxes.empty());
}

TEST_F(Form3Kept, BadCellsAndTheTextOfTheOpenCellComeBackAsTheyWere) {
    {
        const auto program = Start();
        Form3& form = program->Form();
        program->Screens.TypeNewData();
        form.Text8.UserEdited("a,b", 3, 0);
        form.MSFlexGrid1.UserClickCell(1, 1);
        Type(form, "-\r");
        form.MSFlexGrid1.UserClickCell(1, 2);
        Type(form, "0.4");
        EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 2), "0.35");
        program->LetTimePass();
    }
    const auto program = Start({Answer::Yes});
    EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 1), "-");
    EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 2), "0.4");
    EXPECT_EQ(program->Form().Text8.Text, "a,b");
}

TEST_F(Form3Kept, AnEmptiedBoxOverACellLeavesWhatTheCellHas) {
    {
        const auto program = Start();
        program->Screens.TypeNewData();
        program->Form().MSFlexGrid1.UserFocus();
        program->Form().MSFlexGrid1.UserClickCell(1, 2);
        Type(program->Form(), "7\b");
        program->LetTimePass();
    }
    const auto program = Start({Answer::Yes});
    EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 2), "0.35");
}

TEST_F(Form3Kept, TheFirstChangeSetsTheClockAndLaterOnesDoNotPutItOff) {
    const auto program = Start();
    program->LetTimePass();
    program->Screens.TypeNewData();
    ASSERT_EQ(program->Screens.Desktop.Waiting.size(), 1U);
    EXPECT_LE(program->Screens.Desktop.Waiting[0].Milliseconds, 2000);
    program->LetTimePass();
    EXPECT_TRUE(program->Screens.Desktop.Waiting.empty());
    program->Form().MSFlexGrid1.UserFocus();
    Type(program->Form(), "2");
    EXPECT_EQ(program->Screens.Desktop.Waiting.size(), 1U);
}

TEST_F(Form3Kept, AFreshScreenIsNothingToKeep) {
    {
        const auto program = Start();
        program->LetTimePass();
        program->Form().Option1.UserClick();
        program->LetTimePass();
        program->Form().Option2.UserClick();
        program->LetTimePass();
        program->Form().Command4.UserClick();
        program->LetTimePass();
        program->Form().Command3.UserClick();
        program->Store.Wait();
    }
    EXPECT_FALSE(Home.Has("kept"));
}

TEST_F(Form3Kept, ATypedNameAloneIsSomethingToKeep) {
    {
        const auto program = Start();
        program->Form().Option1.UserClick();
        program->Form().Text7.UserEdited("road", 4, 0);
        program->LetTimePass();
    }
    const auto program = Start({Answer::Yes});
    EXPECT_EQ(program->Form().Text7.Text, "road");
}

TEST_F(Form3Kept, ARunTimeErrorKeepsTheDataBeforeItsBox) {
    {
        const auto program = Start();
        program->Form().Option1.UserClick();
        program->Form().VScroll3.UserFocus();
        for (forms::VScrollBar* bar :
             {&program->Form().VScroll1, &program->Form().VScroll2, &program->Form().VScroll3}) {
            bar->UserFocus();
            Press(program->Form(), key::Up);
        }
        program->Form().MSFlexGrid1.UserFocus();
        Type(program->Form(), "1000\r0.35\t");
        program->Form().MSFlexGrid2.UserFocus();
        Type(program->Form(), "49\r15\r0\r0\r0\r0\t");
        program->Screens.App.KeepTypedData = [&] { return program->Store.IsKept(); };
        bool keptAtTheBox = false;
        program->Screens.Desktop.OnBox = [&](const forms::Message& box) {
            EXPECT_EQ(box.Text.substr(0, 20), "Run-time error '13':");
            EXPECT_NE(box.Text.find(TypedDataKept(FaultLanguage::English, true)), std::string::npos);
            for (const auto& file : std::filesystem::recursive_directory_iterator(Folder)) {
                keptAtTheBox = keptAtTheBox || file.path().filename() == "Form3.json";
            }
        };
        program->Form().Command5.UserClick();  // the point has no layer
        EXPECT_EQ(program->Screens.Desktop.EndStatus, 1);
        EXPECT_TRUE(keptAtTheBox);
    }
    const auto program = Start({Answer::Yes});
    EXPECT_EQ(program->Form().MSFlexGrid2.TextMatrix(1, 1), "49");
    EXPECT_EQ(program->Form().MSFlexGrid3.TextMatrix(1, 1), "");
}

TEST_F(Form3Kept, QuitKeepsTheDataAtOnce) {
    {
        const auto program = Start();
        program->Screens.TypeNewData();
        program->Form().Command9.UserClick();
        EXPECT_EQ(program->Screens.Desktop.EndStatus, 0);
    }
    EXPECT_TRUE(Start({Answer::No})->IsAsked());
}

TEST_F(Form3Kept, PreviousKeepsTheDataAndNextOffersThem) {
    const auto program = Start();
    program->Screens.TypeNewData();
    program->Form().Command3.UserClick();
    program->Screens.Desktop.Answers = {Answer::Yes};
    program->Screens.App.Show("Form3");
    ASSERT_EQ(program->Screens.Desktop.Boxes.size(), 1U);
    EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 1), "1000");
}

TEST_F(Form3Kept, ClearFormAndNewDataAndImportKeepWhatStoodThere) {
    for (const char* name : {"Command4", "Option1", "Option2"}) {
        const auto program = Start();
        program->Screens.TypeNewData();
        forms::Control* control = program->Form().Controls.Find(name);
        if (auto* button = dynamic_cast<forms::CommandButton*>(control)) {
            button->UserClick();
        } else {
            dynamic_cast<forms::OptionButton&>(*control).UserClick();
        }
        program->LetTimePass();  // what stands there now takes no room
        program->Form().Command3.UserClick();
        program->Screens.Desktop.Answers = {Answer::Yes};
        program->Screens.App.Show("Form3");
        EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 1), "1000") << name;
        program->Screens.Desktop.Answers = {Answer::Yes};
        program->Form().Command5.UserClick();
        program->Form().Command6.UserClick();
    }
}

TEST_F(Form3Kept, OtherDataLeaveTheEarlierOnesAsTheLastButOne) {
    const auto program = Start();
    program->Screens.TypeNewData();
    program->Form().Command4.UserClick();
    program->Screens.TypeNewData();
    program->Form().MSFlexGrid1.UserFocus();
    program->Form().MSFlexGrid1.UserClickCell(1, 1);
    Type(program->Form(), "2000\r");
    program->Form().Command3.UserClick();
    program->Screens.Desktop.Answers = {Answer::Yes};
    program->Screens.App.Show("Form3");
    EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 1), "2000");
    program->Form().Command5.UserClick();
    program->Form().Command6.UserClick();
    program->Form().Command3.UserClick();
    program->Screens.Desktop.Answers = {Answer::Yes};
    program->Screens.App.Show("Form3");
    EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 1), "1000");
}

TEST_F(Form3Kept, WhatSaveDataHasWrittenIsNotOffered) {
    {
        const auto program = Start();
        program->Screens.TypeNewData();
        program->LetTimePass();
        program->Form().Command5.UserClick();
        program->Form().Command6.UserClick();
        program->LetTimePass();
        program->Form().Command9.UserClick();
    }
    EXPECT_FALSE(IsSomethingKept());
}

TEST_F(Form3Kept, WhatIsChangedBehindSaveDataIsOffered) {
    {
        const auto program = Start();
        program->Screens.TypeNewData();
        program->Form().Command5.UserClick();
        program->Form().Command6.UserClick();
        program->Screens.App.Dispatch([&] { program->Form().ReturnToEditing(); });  // back from the reports
        program->LetTimePass();
        EXPECT_FALSE(IsSomethingKept());
        program->Form().MSFlexGrid1.UserFocus();
        program->Form().MSFlexGrid1.UserClickCell(1, 1);
        Type(program->Form(), "2000\r");
        program->LetTimePass();
    }
    const auto program = Start({Answer::Yes});
    EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 1), "2000");
}

TEST_F(Form3Kept, AFailedSaveKeepsTheData) {
    {
        const auto program = Start();
        program->Screens.TypeNewData();
        program->Form().Command5.UserClick();
        std::filesystem::create_directory(program->Screens.Folder.Path("gone"));
        ChangeFolder(program->Screens.Folder.Path("gone"));
        std::filesystem::remove(program->Screens.Folder.Path("gone"));
        program->Form().Command6.UserClick();
        EXPECT_EQ(program->Screens.Desktop.EndStatus, 1);
        ChangeFolder(program->Screens.Folder.Path());
    }
    const auto program = Start({Answer::Yes});
    EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 1), "1000");
}

TEST_F(Form3Kept, AnImportIsNotOfferedBeforeItIsChanged) {
    {
        const auto program = Start();
        program->Screens.ImportAndAnswer(Answer::Yes);
        program->LetTimePass();
        program->Form().Command9.UserClick();
    }
    EXPECT_FALSE(IsSomethingKept());
    {
        const auto program = Start();
        program->Screens.ImportAndAnswer(Answer::Yes);
        program->Form().MSFlexGrid1.UserFocus();
        Type(program->Form(), "7");
        program->LetTimePass();
    }
    const auto program = Start({Answer::Yes});
    EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 1), "7");
    EXPECT_EQ(program->Form().Text7.Text, "Untitled.eva");
}

TEST_F(Form3Kept, NoLeavesAFreshScreenAndIsAskedOnceMore) {
    TypeAndCrash();
    {
        const auto program = Start({Answer::No});
        EXPECT_EQ(program->Form().Label7.Caption, "0");
        EXPECT_TRUE(program->Form().Option1.Enabled);
        EXPECT_FALSE(program->Form().Command5.Enabled);
        EXPECT_EQ(FocusOf(program->Form()), "Option1");
    }
    {
        const auto program = Start({Answer::Yes});
        ASSERT_TRUE(program->IsAsked());
        EXPECT_NE(program->Asked()[0].Text.find("No now deletes them"), std::string::npos);
        EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 1), "1000");
    }
}

TEST_F(Form3Kept, NothingIsAskedBehindTheSecondNo) {
    TypeAndCrash();
    EXPECT_TRUE(Start({Answer::No})->IsAsked());
    EXPECT_TRUE(Start({Answer::No})->IsAsked());
    EXPECT_FALSE(Start()->IsAsked());
}

TEST_F(Form3Kept, WhatWasTakenIsOfferedAgainUntilItIsSaved) {
    TypeAndCrash();
    EXPECT_TRUE(Start({Answer::Yes})->IsAsked());
    const auto program = Start({Answer::Yes});
    EXPECT_TRUE(program->IsAsked());
    program->Form().Command5.UserClick();
    program->Form().Command6.UserClick();
    program->Store.Wait();
    EXPECT_FALSE(IsSomethingKept());
}

TEST_F(Form3Kept, ASecondProgramIsNotOfferedWhatTheFirstHas) {
    const auto first = Start();
    first->Screens.TypeNewData();
    first->LetTimePass();
    const auto second = Start();
    EXPECT_FALSE(second->IsAsked());
    second->Screens.TypeNewData();
    second->LetTimePass();
    std::size_t files = 0;
    for (const auto& file : std::filesystem::recursive_directory_iterator(Folder)) {
        files += file.path().filename() == "Form3.json" ? 1U : 0U;
    }
    EXPECT_EQ(files, 2U);
}

TEST_F(Form3Kept, AFolderThatIsGoneLeavesTheDataWhereTheyAre) {
    TypeAndCrash();
    {
        const auto program = Start({Answer::No});
        program->Form().Command3.UserClick();
        program->Screens.App.Dispatch([&] { program->Screens.App.Get<Form2>().Label2.Caption = Home.Path("gone"); });
        program->Screens.Desktop.Answers = {Answer::Yes};
        program->Screens.App.Show("Form3");
        EXPECT_EQ(program->Screens.Desktop.EndStatus, 1);
        EXPECT_EQ(program->Screens.Desktop.Boxes.back().Text.substr(0, 20), "Run-time error '76':");
    }
    EXPECT_TRUE(IsSomethingKept());
}

TEST_F(Form3Kept, WhatNoScreenCanHaveIsNotOffered) {
    TypeAndCrash();
    KeptScreen kept;
    {
        KeptFolder folder(Folder);
        kept = folder.Newest("Form3", [](const KeptScreen&) { return true; })->Data;
    }
    std::filesystem::remove_all(Folder);
    const std::vector<std::function<void(KeptScreen&)>> changes{
        [](KeptScreen& screen) {  // a layer more than the bar can set
            screen.Counts[0] = 101;
            screen.Tables[0].Cells.resize(404);
        },
        [](KeptScreen& screen) { screen.Counts[1] = 2; },  // with one row
        [](KeptScreen& screen) { screen.Names.pop_back(); },
        [](KeptScreen& screen) { screen.Tables.pop_back(); },
        [](KeptScreen& screen) {
            screen.Tables[2] = {.Columns = 2, .Cells = {"1", "2"}};
        },
        [](KeptScreen& screen) { screen.Units = 4; },
        [](KeptScreen& screen) { screen.Screen = "Form5"; }};
    for (const auto& change : changes) {
        KeptScreen strange = kept;
        change(strange);
        {
            KeptFolder folder(Folder);
            ASSERT_TRUE(folder.Write(strange));
        }
        EXPECT_FALSE(Start()->IsAsked());
    }
}

TEST_F(Form3Kept, AStateFolderThatCannotBeMadeDisturbsNothing) {
    const std::string file = Home.Put("file", "x");
    Program program(file + "/kept");
    program.Screens.TypeNewData();
    program.LetTimePass();
    program.Form().Command5.UserClick();
    program.Form().Command6.UserClick();
    EXPECT_TRUE(program.Screens.Desktop.Boxes.empty());
    EXPECT_TRUE(program.Screens.Folder.Has("Untitled.eva"));
    program.Form().Command9.UserClick();
    EXPECT_EQ(program.Screens.Desktop.EndStatus, 0);
}

TEST_F(Form3Kept, TheQuestionIsAskedInTheLanguageOfTheScreen) {
    TypeAndCrash();
    const auto program = Start({Answer::No}, JapaneseBase);
    ASSERT_TRUE(program->IsAsked());
    EXPECT_EQ(program->Asked()[0].Words, forms::Language::Japanese);
    EXPECT_NE(program->Asked()[0].Text.find("画面に読み込みますか"), std::string::npos);
}

TEST_F(Form3Kept, AnEmptyLanguageOfTheUserTakesTheDataOfAnother) {
    TypeAndCrash();
    const auto program = Start({Answer::Yes}, JapaneseBase);
    EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 1), "1000");
    EXPECT_EQ(program->Form().MSFlexGrid1.TextMatrix(1, 0), program->Screens.Words(52) + " 1");
}

KeptScreen Typed() {
    KeptScreen kept;
    kept.Units = 3;
    kept.When = 1795300200000;
    kept.Counts = {2, 1, 10000};
    kept.Names = {"road.eva", "road.bre", "road.san"};
    return kept;
}

TEST(KeptQuestion, TellsWhenWhatAndWhatNoDoes) {
    const std::string when = LocalTimeText(Typed().When);
    EXPECT_EQ(KeptQuestion(Typed(), false, 3, EnglishBase),
              "Data of " + when +
                  " were kept and never saved:\n\nLAYERS 2, LOADS 1, POINTS 10000\nroad.eva\nkN, MPa, cm\n\n"
                  "Put them on the screen?\n(No keeps them, and they are offered once more.)");
    EXPECT_EQ(KeptQuestion(Typed(), true, 3, JapaneseBase),
              when +
                  " のデータが、保存されないまま残っています。\n\n層数 2, 載荷点数 1, 着目点数 10000\n"
                  "road.eva\nkN, MPa, cm\n\nこのデータを画面に読み込みますか？\n"
                  "（一度「いいえ」を選んだデータです。もう一度「いいえ」を選ぶと削除されます。）");
}

TEST(KeptQuestion, SaysThatNoNumberIsConvertedWhereTheUnitsAreOthers) {
    const std::string warning = "The screen is now set to kgf, kgf/cm2, cm; no number is converted.";
    EXPECT_NE(KeptQuestion(Typed(), false, 1, EnglishBase).find(warning), std::string::npos);
    EXPECT_NE(KeptQuestion(Typed(), false, 2, JapaneseBase).find("現在の画面の単位は kgf, kgf/cm2, cm です"),
              std::string::npos);
    KeptScreen kgf = Typed();
    kgf.Units = 1;
    EXPECT_EQ(KeptQuestion(kgf, false, 2, EnglishBase).find("converted"), std::string::npos);  // MPa out, the same in
    kgf.Units = 0;
    EXPECT_EQ(KeptQuestion(kgf, false, 3, EnglishBase).find("converted"), std::string::npos);
}

}  // namespace
}  // namespace zirvo
