// `zirvo-batch solve`: the rows, the units, and bad input as the solver reads it.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <numbers>

#include "batch/film.h"
#include "batch/work_folder.h"

namespace zirvo::test {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* Heading = "layer,x,y,z,U,V,W,SIGx,SIGy,SIGz,TAUxy,TAUyz,TAUzx,EPSx,EPSy,EPSz,GAMxy,GAMyz,GAMzx";
constexpr std::size_t FirstValue = 4;
constexpr std::size_t FirstStress = 7;
constexpr std::size_t FirstStrain = 13;
constexpr std::size_t RowLength = 19;
constexpr double MpaPerKgf = 0.0980665;

std::vector<double> NumbersOf(const std::string& line) {
    std::vector<double> numbers;
    for (const std::string& field : FieldsOf(line)) {
        numbers.push_back(std::stod(field));
    }
    return numbers;
}

class Solve : public testing::Test {
protected:
    WorkFolder Folder;
    const std::string Road = SampleBytes("road.eva");

    Solve() { Folder.Put("road.eva", Road); }

    Outcome Run(const std::string& bytes) {
        Folder.Put("road.eva", bytes);
        return Folder.Batch({"solve", "road.eva", "--units", "3"});
    }
    Lines Rows(const std::string& units) {
        const Outcome outcome = Folder.Batch({"solve", "road.eva", "--units", units});
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        return LinesOf(outcome.Out);
    }
    void ExpectRefused(const std::string& bytes, const std::string& message) {
        const Outcome outcome = Run(bytes);
        EXPECT_EQ(outcome.Code, 1);
        EXPECT_EQ(outcome.Out, "");
        EXPECT_EQ(outcome.Err, message + "\n");
    }
};

TEST_F(Solve, GivesAHeadingRowAndOneRowForEachPoint) {
    const Lines lines = Rows("3");
    ASSERT_EQ(lines.size(), 13U);
    EXPECT_EQ(lines[0], Heading);
    EXPECT_EQ(lines[2].rfind("1,0,0,15,", 0), 0U) << lines[2];
    for (std::size_t i = 1; i < lines.size(); ++i) {
        EXPECT_EQ(FieldsOf(lines[i]).size(), RowLength);
    }
}

TEST_F(Solve, WritesEachValueWithSeventeenDigitsAndNoNegativeZero) {
    for (const std::string& line : Rows("3")) {
        if (line == Heading) {
            continue;
        }
        const Lines fields = FieldsOf(line);
        for (std::size_t c = FirstValue; c < fields.size(); ++c) {
            const std::size_t sign = fields[c].front() == '-' ? 1 : 0;
            EXPECT_EQ(fields[c].find('.'), sign + 1) << fields[c];
            EXPECT_EQ(fields[c].find('e'), sign + 18) << fields[c];
            EXPECT_FALSE(sign == 1 && std::stod(fields[c]) == 0) << fields[c];
        }
    }
}

// The contact pressure: 49 kN / (pi (15 cm)^2), 1 kN/cm2 being 10 MPa.
TEST_F(Solve, SurfaceStressUnderTheLoadIsTheContactPressure) {
    EXPECT_NEAR(NumbersOf(Rows("3")[1])[9], -49 * 10 / (std::numbers::pi * 15 * 15), 1e-12);
}

TEST_F(Solve, SystemsOneAndTwoDifferInTheUnitOfStressAlone) {
    const Lines kgf = Rows("1");
    const Lines mpa = Rows("2");
    ASSERT_EQ(kgf.size(), mpa.size());
    for (std::size_t i = 1; i < kgf.size(); ++i) {
        const std::vector<double> a = NumbersOf(kgf[i]);
        const std::vector<double> b = NumbersOf(mpa[i]);
        for (std::size_t c = FirstValue; c < RowLength; ++c) {
            const double factor = c >= FirstStress && c < FirstStrain ? MpaPerKgf : 1;
            EXPECT_NEAR(a[c] * factor, b[c], 1e-12 * std::abs(b[c])) << i << " " << c;
        }
    }
}

// 1 kN over MPa is 10 cm2, 1 kgf over kgf/cm2 is 1 cm2: the same numbers give ten times the displacement.
TEST_F(Solve, SystemThreeTakesKilonewtonAndMegapascal) {
    const double kn = NumbersOf(Rows("3")[1])[6];
    const double kgf = NumbersOf(Rows("1")[1])[6];
    EXPECT_NEAR(kn, 10 * kgf, 1e-9 * kn);
}

TEST_F(Solve, BoundsAreThreeMoreColumnsBelowThePromise) {
    const Lines plain = Rows("3");
    const Lines more = LinesOf(Folder.Batch({"solve", "road.eva", "--units", "3", "--estimates"}).Out);
    ASSERT_EQ(more.size(), plain.size());
    EXPECT_EQ(more[0], std::string(Heading) + ",ESTdisplacement,ESTstress,ESTstrain");
    for (std::size_t i = 1; i < more.size(); ++i) {
        EXPECT_EQ(more[i].rfind(plain[i] + ",", 0), 0U);
        const std::vector<double> numbers = NumbersOf(more[i]);
        ASSERT_EQ(numbers.size(), RowLength + 3);
        for (std::size_t c = RowLength; c < numbers.size(); ++c) {
            EXPECT_GE(numbers[c], 0);
            EXPECT_LE(numbers[c], 1e-9);
        }
    }
}

TEST_F(Solve, TheNumberOfThreadsChangesNothing) {
    const WorkFolder folder;
    folder.PutSample("motorway.eva");
    const Lines line{"solve", "motorway.eva", "--units", "3", "--threads"};
    const auto rows = [&](const char* threads) {
        Lines arguments = line;
        arguments.emplace_back(threads);
        return LinesOf(folder.Batch(arguments).Out);
    };
    const Lines one = rows("1");
    const Lines five = rows("5");
    ASSERT_EQ(one.size(), 41U);
    ASSERT_EQ(one.size(), five.size());
    for (std::size_t i = 1; i < one.size(); ++i) {
        const std::vector<double> a = NumbersOf(one[i]);
        const std::vector<double> b = NumbersOf(five[i]);
        for (const std::size_t group : {FirstValue, FirstStress, FirstStrain}) {
            const std::size_t end = group == FirstValue ? FirstStress : group + 6;
            double largest = 0;
            for (std::size_t c = group; c < end; ++c) {
                largest = std::max(largest, std::abs(a[c]));
            }
            for (std::size_t c = group; c < end; ++c) {
                EXPECT_NEAR(a[c], b[c], 1e-9 * largest) << i << " " << c;
            }
        }
    }
}

TEST_F(Solve, CsvHoldsTheBytesOfStandardOutputAndReplacesAnOldFile) {
    const std::string rows = Folder.Batch({"solve", "road.eva", "--units", "3"}).Out;
    Folder.Put("結果.csv", "old");
    const Outcome outcome = Folder.Batch({"solve", "road.eva", "--units", "3", "--csv", "結果.csv"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Out, "");
    EXPECT_EQ(outcome.Err, "");
    EXPECT_EQ(Folder.Get("結果.csv"), rows);
    EXPECT_EQ(Folder.Names(), (Lines{"road.eva", "結果.csv"}));  // no temporary file, no report
}

TEST_F(Solve, ACsvThatCannotBeWrittenIsNamedAndTheOldOneStays) {
    const WorkFolder programs;  // of everybody, since the build may lie in a folder that only its owner may enter
    std::filesystem::copy_file(ZIRVO_BIN "/zirvo-batch", programs.Path("zirvo-batch"));
    const auto messageOf = [&](const char* csv) {
        const Outcome outcome = Folder.Batch({"solve", "road.eva", "--units", "3", "--csv", csv},
                                             {.Program = programs.Path("zirvo-batch"), .OrdinaryUser = true});
        EXPECT_EQ(outcome.Code, 1);
        EXPECT_EQ(outcome.Out, "");
        return outcome.Err;
    };
    EXPECT_EQ(messageOf("/dev/full"), "/dev/full: cannot be written: Run-time error '61': Disk full\n");
    EXPECT_EQ(messageOf("none/a.csv"), "none/a.csv: cannot be written: Run-time error '76': Path not found\n");
    EXPECT_EQ(messageOf("."), ".: cannot be written: Run-time error '75': Path/File access error\n");
    Folder.Put("kept.csv", "old");
    chmod(Folder.Path("kept.csv").c_str(), 0444);
    EXPECT_EQ(messageOf("kept.csv"), "kept.csv: cannot be written: Run-time error '75': Path/File access error\n");
    EXPECT_EQ(Folder.Get("kept.csv"), "old");
    EXPECT_EQ(Folder.Names(), (Lines{"kept.csv", "road.eva"}));
}

TEST_F(Solve, ReadsInputsThatTheSolverMends) {
    // Two numbers that touch in a line of full length are cut at the columns: 13 for the modulus, 17 for the ratio.
    const std::string bytes = With(Road, "           50              0.4", "           500.400000000000000");
    const Outcome outcome = Run(bytes);
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(outcome.Out, Run(Road).Out);
}

TEST_F(Solve, APointJustOutsideItsLayerIsTakenOnTheBoundaryWithANote) {
    // A hundredth of a centimetre is let through.
    const std::string bytes = With(Road, "    1               0            0           15",
                                   "    1               0            0       15.005");
    const Outcome outcome = Run(bytes);
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_NE(outcome.Err.find("road.eva: 1 point just"), std::string::npos) << outcome.Err;
    EXPECT_EQ(LinesOf(outcome.Out)[2].rfind("1,0,0,15,", 0), 0U);
    EXPECT_EQ(Folder.Batch({"solve", "road.eva", "--units", "3", "--quiet"}).Err, "");
}

TEST_F(Solve, BadInputIsToldWithFileRowLineValueAndReason) {
    ExpectRefused(With(Road, "0.35", "0.75"), "road.eva: layer 1 (line 10): Poisson ratio 0.75: must be at most 0.5");
    ExpectRefused(Road.substr(0, Road.find("300")), "road.eva: layer 2 (line 11): modulus: the file ends too early");
    const Outcome points = Run(With(Road, "        12\r\n", "     10001\r\n"));
    EXPECT_EQ(points.Code, 1);
    EXPECT_NE(points.Err.find("10001"), std::string::npos) << points.Err;
}

TEST_F(Solve, FilesThatCannotBeReadAreNamed) {
    EXPECT_EQ(Folder.Batch({"solve", "none.eva", "--units", "3"}).Err, "none.eva: the file does not exist\n");
    EXPECT_EQ(Folder.Batch({"solve", ".", "--units", "3"}).Err, ".: the file cannot be read\n");
}

TEST_F(Solve, APipeInPlaceOfAFileIsNamedAndNotWaitedFor) {
    ASSERT_EQ(mkfifo(Folder.Path("pipe.eva").c_str(), 0666), 0);  // nobody ever writes to it: no hang
    EXPECT_EQ(Folder.Batch({"solve", "pipe.eva", "--units", "3"}).Err, "pipe.eva: the file cannot be read\n");
}

TEST_F(Solve, AFileCutAtAnyPlaceEitherReadsOrIsRefused) {
    for (std::size_t length = 0; length < Road.size(); length += 53) {
        const Outcome outcome = Run(Road.substr(0, length));
        EXPECT_EQ(outcome.Code, 1) << length;
        EXPECT_EQ(outcome.Err.rfind("road.eva: ", 0), 0U) << outcome.Err;
    }
}

TEST_F(Solve, TellsOfMovedPointsAndOfBoundsAboveThePromise) {
    const Outcome outcome = Run(Film);
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(LinesOf(outcome.Out).size(), 2U);
    EXPECT_EQ(outcome.Err,
              "road.eva: 1 point just outside its layer was taken on its boundary\n"
              "road.eva: 1 point has a bound of the relative error above 1E-9; --estimates tells which\n");
}

}  // namespace
}  // namespace zirvo::test
