// What a study has done: what was committed is there for the next run, and a file that holds nothing goes.
#include "study/memory.h"

#include <gtest/gtest.h>

#include "study/row_workers.h"
#include "study/study_folder.h"
#include "study/tables.h"

namespace zirvo::study {
namespace {

std::string Table() {
    return Head() + "table = \"t.csv\"\n" + Keeps();
}

/// Six rows of which the second is no pavement.
Study SixRows(const StudyFolder& folder) {
    folder.Put("t.csv", "layer 1 modulus\n5000\n-1\n4000\n3000\n2000\n1000\n");
    return folder.StudyOf(Table());
}

TEST(MemoryOfAStudy, WhatWasCommittedIsThereAndWhatWasNotIsDoneAgain) {
    const StudyFolder folder;
    const Study study = SixRows(folder);
    const RowRange all{0, study.Rows};
    {
        Memory first(study, folder.Path("m.sqlite"), all);
        first.Add({.Range = {0, 3}, .Numbers = {1, 5000, 0.5, 3, 4000, 0.25}, .Lines = "", .Bad = {{1, {-1}, "no"}}});
        first.Commit();
        first.Add({.Range = {3, 4}, .Numbers = {4, 3000, 0.125}, .Lines = "", .Bad = {}});
    }
    Memory second(study, folder.Path("m.sqlite"), all);
    EXPECT_FALSE(second.Finished());
    EXPECT_EQ(second.DoneRows(), 3U);
    second.Earlier([](Block& block) {
        EXPECT_EQ(block.Range, (RowRange{0, 3}));
        EXPECT_EQ(block.Numbers, (std::vector<double>{1, 5000, 0.5, 3, 4000, 0.25}));
    });
    second.Add({.Range = {3, 5}, .Numbers = {4, 3000, 0.125}, .Lines = "", .Bad = {{4, {2000}, "neither"}}});
    std::vector<std::string> reasons;
    second.EachBad([&](const BadRow& bad) { reasons.push_back(std::to_string(bad.Row) + " " + bad.Reason); });
    EXPECT_EQ(reasons, (std::vector<std::string>{"1 no", "4 neither"}));
}

TEST(MemoryOfAStudy, AFileThatHoldsNothingGoes) {
    const StudyFolder folder;
    const Study study = SixRows(folder);
    { const Memory memory(study, folder.Path("m.sqlite"), {0, study.Rows}); }
    EXPECT_FALSE(folder.Has("m.sqlite"));
}

TEST(MemoryOfAStudy, AGapInItIsTold) {
    const StudyFolder folder;
    const Study study = SixRows(folder);
    {
        Memory memory(study, folder.Path("m.sqlite"), {0, study.Rows});
        memory.Add({.Range = {0, 2}, .Numbers = {}, .Lines = "", .Bad = {}});
        memory.Commit();
    }
    {
        Database database(folder.Path("m.sqlite"), Database::Mode::ReadWrite);
        database.Execute("UPDATE done SET first=2");
    }
    try {
        const Memory memory(study, folder.Path("m.sqlite"), {0, study.Rows});
        FAIL() << "a gap was passed over";
    } catch (const FileError& error) {
        EXPECT_NE(error.Text().find("m.sqlite: is damaged"), std::string::npos) << error.Text();
    }
}

TEST(RowWorkers, BlocksComeInTheOrderOfTheRowsAndLeaveNothingOut) {
    const StudyFolder folder;
    const Study study =
        folder.StudyOf(Head() + "[[vary]]\nwhat = \"layer 1 thickness\"\nfrom = 5\nto = 30\ncount = 400\n" + Keeps());
    RowWorkers workers(study, {100, 400}, 3);
    std::uint64_t next = 100;
    while (next < 400) {
        for (const Block& block : workers.Take(RowWorkers::Clock::now() + std::chrono::seconds(60))) {
            EXPECT_EQ(block.Range.First, next);
            ASSERT_EQ(block.Numbers.size(), block.Range.Count() * NumbersOfRow(study));
            EXPECT_EQ(block.Numbers[0], static_cast<double>(next + 1));
            EXPECT_EQ(block.Lines.substr(0, block.Lines.find(',')), std::to_string(next + 1));
            next = block.Range.Last;
        }
    }
    EXPECT_EQ(next, 400U);
}

}  // namespace
}  // namespace zirvo::study
