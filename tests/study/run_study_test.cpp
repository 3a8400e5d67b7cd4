// Runs of a study within one process: the same bytes on any number of threads and parts, and files that do not fit.
#include "study/run_study.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/file_lock.h"
#include "platform/folders.h"
#include "solver_io/restrictions.h"
#include "study/memory.h"
#include "study/results.h"
#include "study/study_folder.h"

namespace zirvo::study {
namespace {

std::string Grid() {
    return Head() +
           "[[vary]]\nwhat = \"layer 1 thickness\"\nfrom = 5\nto = 30\ncount = 10\n"
           "[[vary]]\nwhat = \"layer 3 modulus\"\nfrom = 20\nto = 120\ncount = 15\n" +
           Keeps() + "[[keep]]\nlife = \"ai-rutting\"\npoint = 5\n";
}

RunOutcome RunAll(const Study& study, const RunOptions& options) {
    const auto outcome = RunStudy(study, options);
    EXPECT_EQ(outcome.index(), 0U) << std::get<FileError>(outcome).Text();
    return outcome.index() == 0 ? std::get<RunOutcome>(outcome) : RunOutcome();
}

std::string ToldOf(const std::variant<RunOutcome, FileError>& outcome, const StudyFolder& folder) {
    return outcome.index() == 0 ? "passes" : std::get<FileError>(outcome).Text().substr(folder.Path().size() + 1);
}

TEST(RunOfAStudy, GivesTheSameBytesOnAnyNumberOfThreadsAndWhenRunAgain) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Grid());
    EXPECT_EQ(RunAll(study, {folder.Path("a"), 1}).Rows, 150U);
    EXPECT_EQ(RunAll(study, {folder.Path("b"), 3}).Earlier, 0U);
    EXPECT_EQ(folder.Get("a.csv"), folder.Get("b.csv"));
    EXPECT_TRUE(folder.Get("a.sqlite") == folder.Get("b.sqlite"));
    EXPECT_GT(folder.Get("a.sqlite").size(), 4096U);
    const std::string csv = folder.Get("a.csv");
    const std::string sqlite = folder.Get("a.sqlite");
    EXPECT_EQ(RunAll(study, {folder.Path("a"), 1}).Earlier, 150U);
    EXPECT_EQ(folder.Get("a.csv"), csv);
    EXPECT_TRUE(folder.Get("a.sqlite") == sqlite);
    EXPECT_FALSE(folder.Has("a_bad.csv"));
    EXPECT_FALSE(folder.Has("a.sqlite-wal"));
}

TEST(RunOfAStudy, RowsStandInTheirOrderUnderTheirNames) {
    const StudyFolder folder;
    RunAll(folder.StudyOf(Grid()), {folder.Path("a"), 2});
    const std::string csv = folder.Get("a.csv");
    EXPECT_EQ(csv.substr(0, csv.find('\n')), "row,layer 1 thickness,layer 3 modulus,EPSx 2,ai-rutting 5");
    EXPECT_NE(csv.find("\n1,5,20,"), std::string::npos);
    EXPECT_NE(csv.find("\n16,7.777777777777778,20,"), std::string::npos);
    EXPECT_NE(csv.find("\n150,30,120,"), std::string::npos);
}

TEST(RunOfAStudy, PartsJoinToTheBytesOfTheWhole) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Grid());
    RunAll(study, {folder.Path("whole"), 1});
    for (const int part : {3, 1, 4, 2}) {
        const RunOutcome outcome = RunAll(study, {folder.Path("p"), 1, part, 4});
        EXPECT_EQ(outcome.Rows, part <= 2 ? 38U : 37U);
        EXPECT_EQ(outcome.Results, folder.Path("p.part-" + std::to_string(part) + "-of-4.sqlite"));
    }
    EXPECT_EQ(ToldOf(MergeParts(study, {folder.Path("p")}), folder), "passes");
    EXPECT_EQ(folder.Get("p.csv"), folder.Get("whole.csv"));
    EXPECT_TRUE(folder.Get("p.sqlite") == folder.Get("whole.sqlite"));
}

TEST(RunOfAStudy, PartsThatAreMissingUnfinishedOrOfAnotherStudyAreNamed) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Grid());
    for (const char* stranger : {"p.part-1-of-1E99.sqlite", "p.part-1-of-0.sqlite", "p.part-1-of-two.sqlite"}) {
        folder.Put(stranger, "");
    }
    EXPECT_EQ(ToldOf(MergeParts(study, {folder.Path("p")}), folder),
              "p.part-1-of-N.sqlite: there is no such file: run the parts first");
    RunAll(study, {folder.Path("p"), 1, 1, 2});
    EXPECT_EQ(ToldOf(MergeParts(study, {folder.Path("p")}), folder),
              "p.part-2-of-2.sqlite: there is no such file: run this part first");
    EXPECT_FALSE(folder.Has("p.part-2-of-2.sqlite"));
    {
        Memory unfinished(study, folder.Path("p.part-2-of-2.sqlite"), RangeOf(study.Rows, 2, 2));
        Block block{.Range = {75, 80}, .Numbers = {}, .Lines = "", .Bad = {}};
        for (std::uint64_t row = block.Range.First; row < block.Range.Last; ++row) {
            block.Bad.push_back({row, {5, 20}, "no"});
        }
        unfinished.Add(block);
        unfinished.Commit();
    }
    EXPECT_EQ(ToldOf(MergeParts(study, {folder.Path("p")}), folder),
              "p.part-2-of-2.sqlite: has 5 of its 75 rows: run this part to its end first");
    const Study other = folder.StudyOf(Grid() + "# other\n");
    EXPECT_NE(ToldOf(MergeParts(other, {folder.Path("q")}), folder).find("there is no such file"), std::string::npos);
    RunAll(study, {folder.Path("p"), 1, 2, 2});
    RunAll(study, {folder.Path("p"), 1, 1, 3});
    EXPECT_NE(ToldOf(MergeParts(study, {folder.Path("p")}), folder).find("parts of different numbers N"),
              std::string::npos);
}

TEST(RunOfAStudy, ResultsOfAnotherStudyAreLeftAsTheyAre) {
    const StudyFolder folder;
    RunAll(folder.StudyOf(Grid()), {folder.Path("a"), 1});
    const std::string before = folder.Get("a.csv");
    const Study other = folder.StudyOf(Grid() + "# other\n");
    EXPECT_NE(
        ToldOf(RunStudy(other, {folder.Path("a"), 1}), folder).find("a.sqlite: holds the results of another study"),
        std::string::npos);
    EXPECT_EQ(folder.Get("a.csv"), before);
    folder.Put("b.sqlite",
               "this is a letter to my aunt, and no database at all, though it is quite long for one.........."
               "...................................................................................");
    EXPECT_NE(ToldOf(RunStudy(other, {folder.Path("b"), 1}), folder).find("b.sqlite: is no results file"),
              std::string::npos);
    EXPECT_EQ(folder.Get("b.sqlite").substr(0, 16), "this is a letter");
}

// The file of another program was taken for an empty memory, and replaced by the results.
TEST(RunOfAStudy, ADatabaseOfSomethingElseIsLeftAsItIs) {
    const StudyFolder folder;
    {
        Database other(folder.Path("a.sqlite"), Database::Mode::ReadWrite);
        other.Execute("CREATE TABLE addresses(name, street); INSERT INTO addresses VALUES('aunt', 'Main Street')");
    }
    const std::string before = folder.Get("a.sqlite");
    EXPECT_EQ(ToldOf(RunStudy(folder.StudyOf(Grid()), {folder.Path("a"), 1}), folder),
              "a.sqlite: is a database of something else; move it away or choose --output");
    EXPECT_TRUE(folder.Get("a.sqlite") == before);
    EXPECT_FALSE(folder.Has("a.csv"));
}

// Rows that had gone from a memory were missing in the results, and nothing was said.
TEST(RunOfAStudy, RowsThatAreMissingInWhatWasMadeEarlierAreTold) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Grid());
    for (int part = 1; part <= 2; ++part) {
        RunAll(study, {folder.Path("p"), 1, part, 2});
    }
    {
        Database database(folder.Path("p.part-2-of-2.sqlite"), Database::Mode::ReadWrite);
        database.Execute("DELETE FROM results WHERE row=100");
    }
    EXPECT_NE(ToldOf(MergeParts(study, {folder.Path("p")}), folder).find("p.sqlite: would have another number of rows"),
              std::string::npos);
    EXPECT_FALSE(folder.Has("p.csv"));
    EXPECT_FALSE(folder.Has("p.sqlite.new"));
}

TEST(RunOfAStudy, ASecondRunOfTheSameStudyIsRefused) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Grid());
    const Memory first(study, folder.Path("a.sqlite"), {0, study.Rows});
    EXPECT_EQ(ToldOf(RunStudy(study, {folder.Path("a"), 1}), folder),
              "a.sqlite: another run of this study works on it");
}

// SQLite's own lock ends with the memory, and the tables are written behind it.
TEST(RunOfAStudy, ASecondRunIsRefusedUntilTheTablesOfTheFirstAreWritten) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Grid());
    bool held = false;
    auto lock = FileLock::OfAnyFile(folder.Path("a.sqlite.lock"), held);
    ASSERT_NE(lock, nullptr);
    EXPECT_EQ(ToldOf(RunStudy(study, {folder.Path("a"), 1}), folder),
              "a.sqlite: another run of this study works on it");
    EXPECT_FALSE(folder.Has("a.sqlite"));
    lock.reset();  // as that of a program that was killed, whose file stays
    EXPECT_EQ(ToldOf(RunStudy(study, {folder.Path("a"), 1}), folder), "passes");
    EXPECT_FALSE(folder.Has("a.sqlite.lock"));
}

// A part that was asked for was made, without a byte.
TEST(RunOfAStudy, APartThatIsMissingIsNotMadeByTheJoining) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Grid());
    RunAll(study, {folder.Path("p"), 1, 1, 2});
    EXPECT_EQ(ToldOf(MergeParts(study, {folder.Path("p")}), folder),
              "p.part-2-of-2.sqlite: there is no such file: run this part first");
    EXPECT_FALSE(folder.Has("p.part-2-of-2.sqlite"));
}

// It was the file of the whole that the user was told to move away.
TEST(RunOfAStudy, OfAPartThatIsBrokenOrWorkedOnThePartIsNamed) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Grid());
    for (const int part : {1, 2}) {
        RunAll(study, {folder.Path("p"), 1, part, 2});
    }
    const std::string whole = folder.Get("p.part-2-of-2.sqlite");
    folder.Put("p.part-2-of-2.sqlite", std::string(whole.size(), 'x'));
    EXPECT_EQ(ToldOf(MergeParts(study, {folder.Path("p")}), folder).substr(0, 42),
              "p.part-2-of-2.sqlite: is no results file: ");
    // The marks stand in the first pages and are read before the rows.
    ASSERT_GE(whole.size(), 3U * 4096);
    folder.Put("p.part-2-of-2.sqlite", whole.substr(0, whole.size() - 4096) + std::string(4096, 'x'));
    EXPECT_EQ(ToldOf(MergeParts(study, {folder.Path("p")}), folder).substr(0, 22), "p.part-2-of-2.sqlite: ");
    folder.Put("p.part-2-of-2.sqlite", whole);
    {
        const Memory working(study, folder.Path("p.part-2-of-2.sqlite"), RangeOf(study.Rows, 2, 2));
        EXPECT_EQ(ToldOf(MergeParts(study, {folder.Path("p")}), folder),
                  "p.part-2-of-2.sqlite: another run of this study works on it");
    }
    EXPECT_EQ(ToldOf(MergeParts(study, {folder.Path("p")}), folder), "passes");
}

// What is carried to another machine is one file.
TEST(RunOfAStudy, APartThatIsDoneIsWholeByItself) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Grid());
    RunAll(study, {folder.Path("p"), 1, 1, 2});
    EXPECT_FALSE(folder.Has("p.part-1-of-2.sqlite-wal"));
    folder.Put("q.part-1-of-2.sqlite", folder.Get("p.part-1-of-2.sqlite"));
    EXPECT_EQ(RunAll(study, {folder.Path("q"), 1, 1, 2}).Earlier, 75U);
}

// Results that were links became files beside what they had led to.
TEST(RunOfAStudy, ResultsThatAreLinksAreFollowedAndKeepTheirRights) {
    namespace fs = std::filesystem;
    constexpr fs::perms owner = fs::perms::owner_read | fs::perms::owner_write;
    const StudyFolder folder;
    const Study study = folder.StudyOf(Grid());
    fs::create_directory(folder.Path("far"));
    for (const char* end : {".csv", ".sqlite"}) {
        fs::create_symlink(std::string("far/b") + end, folder.Path(std::string("a") + end));
    }
    for (int run = 0; run < 2; ++run) {
        RunAll(study, {folder.Path("a"), 1});
        for (const std::string end : {".csv", ".sqlite"}) {
            EXPECT_TRUE(fs::is_symlink(folder.Path("a" + end))) << end;
            const std::string file = folder.Path("far/b" + end);
            EXPECT_TRUE(run == 0 || fs::status(file).permissions() == owner) << end;
            fs::permissions(file, owner);
        }
    }
    EXPECT_EQ(NamesIn(folder.Path("far")), (std::vector<std::string>{"b.csv", "b.sqlite"}));
}

// A table that was protected was replaced all the same.
TEST(RunOfAStudy, ATableThatMayNotBeWrittenIsToldAndLeft) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Grid());
    folder.Put("a.csv", "old");
    chmod(folder.Path("a.csv").c_str(), 0444);
    const solver::test::AsOrdinaryUser user;
    EXPECT_EQ(ToldOf(RunStudy(study, {folder.Path("a"), 1}), folder),
              "a.csv: cannot be written: Path/File access error; the results are kept: start the study again");
    EXPECT_EQ(folder.Get("a.csv"), "old");
    EXPECT_FALSE(folder.Has("a.csv.new"));
}

// SQLite takes the first for an address.
TEST(RunOfAStudy, ANameIsNothingButAName) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Grid());
    const std::string before = std::filesystem::current_path().string();
    std::filesystem::current_path(folder.Path());
    for (const std::string name : {"file:a?mode=memory&x=", ":memory:"}) {
        RunAll(study, {name, 1});
        EXPECT_GT(folder.Get(name + ".sqlite").size(), 4096U) << name;
        EXPECT_GT(folder.Get(name + ".csv").size(), 4096U) << name;
    }
    std::filesystem::current_path(before);
}

TEST(RunOfAStudy, BadRowsAreKeptApartAndStopNothing) {
    const StudyFolder folder;
    folder.Put("t.csv", "layer 1 modulus\n5000\n-1\n4000\nx\n");
    const Study study = folder.StudyOf(Head() + "table = \"t.csv\"\n" + Keeps());
    const RunOutcome outcome = RunAll(study, {folder.Path("a"), 1});
    EXPECT_EQ(outcome.Bad, 2U);
    EXPECT_EQ(outcome.BadFile, folder.Path("a_bad.csv"));
    EXPECT_EQ(folder.Get("a_bad.csv"),
              "row,layer 1 modulus,reason\n2,-1,\"layer 1, Modulus -1: is not above 0\"\n"
              "4,nan,\"layer 1, Modulus nan: is no finite number\"\n");
    const std::string csv = folder.Get("a.csv");
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 3);
    EXPECT_NE(csv.find("\n3,4000,"), std::string::npos);
}

TEST(RunOfAStudy, ColumnsOfTheResultsAreReadBack) {
    const StudyFolder folder;
    RunAll(folder.StudyOf(Grid()), {folder.Path("a"), 1});
    const auto columns = ReadColumns(folder.Path("a.sqlite"), {"layer 3 modulus", "EPSx 2"});
    ASSERT_EQ(columns.size(), 2U);
    ASSERT_EQ(columns[0].size(), 150U);
    EXPECT_EQ(columns[0][0], 20);
    EXPECT_EQ(columns[0][14], 120);
}

TEST(RunOfAStudy, PartsAreAsLongAsOneAnotherAndLeaveNothingOut) {
    for (const std::uint64_t rows : {1U, 7U, 1000U, 1001U}) {
        std::uint64_t next = 0;
        for (int part = 1; part <= 4; ++part) {
            const RowRange range = RangeOf(rows, part, 4);
            EXPECT_EQ(range.First, next);
            EXPECT_LE(range.Count(), rows / 4 + 1);
            next = range.Last;
        }
        EXPECT_EQ(next, rows);
    }
}

}  // namespace
}  // namespace zirvo::study
