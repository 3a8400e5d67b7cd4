// Inputs that the solver takes, and what it makes of them.
#include "solver/io/solver_input.h"

#include <gtest/gtest.h>

#include <sstream>
#include <streambuf>

#include "platform/peak_memory.h"
#include "solver_io/support.h"

namespace zirvo::solver {
namespace {

using namespace test;
using zirvo::test::PeakMemory;

TEST(ReadSolverInput, TheExampleIsReadAsItWasTyped) {
    const SolverInput input = Accepted(Example());
    EXPECT_EQ(input.ReportNames, (std::vector<std::string>{"Untitled.bre", "Untitled.san"}));
    ASSERT_EQ(input.Typed.Layers.size(), 2U);
    EXPECT_EQ(input.Typed.Layers[0].Modulus, 35000);
    EXPECT_EQ(input.Typed.Layers[0].PoissonRatio, 0.35);
    EXPECT_EQ(input.Typed.Layers[0].Thickness, 5);
    EXPECT_EQ(input.Typed.Layers[0].SlipRate, 0);
    EXPECT_EQ(input.Typed.Layers[1].Modulus, 1000);
    EXPECT_EQ(input.Typed.Layers[1].PoissonRatio, 0.4);
    ASSERT_EQ(input.Typed.Loads.size(), 1U);
    EXPECT_EQ(input.Typed.Loads[0].Vertical, 49);
    EXPECT_EQ(input.Typed.Loads[0].Radius, 15);
    ASSERT_EQ(input.Typed.Points.size(), 1U);
    EXPECT_EQ(input.Typed.Points[0].Layer, 1);
    EXPECT_EQ(input.Typed.Points[0].Z, 5);
    EXPECT_EQ(input.MovedPoints, 0);
}

TEST(ReadSolverInput, AllSixValuesOfALoadArriveInTheirPlaces) {
    const Load load = Accepted(ExampleWith(15, "-1 2 3 -4 5 -6")).Typed.Loads[0];
    EXPECT_EQ(load.Vertical, -1);
    EXPECT_EQ(load.Radius, 2);
    EXPECT_EQ(load.X, 3);
    EXPECT_EQ(load.Y, -4);
    EXPECT_EQ(load.Horizontal, 5);
    EXPECT_EQ(load.Angle, -6);
}

TEST(ReadSolverInput, NamesAreWholeLinesInEitherEncoding) {
    EXPECT_EQ(Accepted(ExampleWith(2, " a, b \"c\".bre ")).ReportNames[0], " a, b \"c\".bre ");
    EXPECT_EQ(Accepted(ExampleWith(2, "\x95\x5C.bre")).ReportNames[0], "表.bre");    // code page 932, second byte 0x5C
    EXPECT_EQ(Accepted(ExampleWith(3, "Straße.san")).ReportNames[1], "Straße.san");  // UTF-8: the code page lacks it
}

TEST(ReadSolverInput, HeadingsMaySayAnythingInOneField) {
    const std::string heading = "\x91\x77\x90\x94\x81\x40 \"x\" \t \x80\xFF";
    for (const std::size_t line : {1U, 4U, 5U, 7U, 8U, 9U, 12U, 13U, 14U, 16U, 17U, 18U}) {
        EXPECT_EQ(Accepted(ExampleWith(line, heading)).Typed.Points.size(), 1U) << line;
        EXPECT_EQ(Accepted(ExampleWith(line, "\"a, b\" c")).Typed.Points.size(), 1U) << line;
        EXPECT_EQ(Accepted(ExampleWith(line, "")).Typed.Points.size(), 1U) << line;
    }
}

TEST(ReadSolverInput, TheNamesAreTheSecondAndThirdLineWhateverTheFirstHolds) {
    for (const std::string first : {"OUTPUT, precious.txt", ",,", "\"a, b", "\"a\", b"}) {
        EXPECT_EQ(Accepted(ExampleWith(1, first)).ReportNames,
                  (std::vector<std::string>{"Untitled.bre", "Untitled.san"}));
    }
}

TEST(ReadSolverInput, AnyLineEndServes) {
    for (const std::string end : {"\n", "\r"}) {
        std::string text;
        for (const std::string& line : SplitLines(Example())) {
            text += line + end;
        }
        EXPECT_EQ(Accepted(text).Typed.Points[0].Z, 5);
    }
}

TEST(ReadSolverInput, TheLastLineNeedsNoEndAndWhatStandsBehindItDoesNotMatter) {
    std::string text = Example();
    EXPECT_EQ(Accepted(text.substr(0, text.size() - 2)).Typed.Points[0].Z, 5);
    EXPECT_EQ(Accepted(text + "rubbish,\r\n1 2 3").Typed.Points.size(), 1U);
}

TEST(ReadSolverInput, ARowOverSeveralLinesReadsAsIfItStoodOnOne) {
    EXPECT_EQ(Accepted(ExampleWith(10, "35000\r\n0.35,5\r\n  0")).Typed.Layers[0].Thickness, 5);
}

TEST(ReadSolverInput, NumbersThatTouchAreCutInEveryKindOfRow) {
    const std::string third = "0.333333333333333";  // 17 columns
    const std::string layer = Padded("35000", 13) + third + Padded("5", 17) + Padded("0", 16);
    EXPECT_EQ(Accepted(ExampleWith(10, layer)).Typed.Layers[0].PoissonRatio, 0.333333333333333);
    EXPECT_EQ(Accepted(ExampleWith(11, Padded("35000", 13) + third)).Typed.Layers[1].PoissonRatio, 0.333333333333333);

    const std::string load = Padded("49", 10) + "12.33333333333333" + "-12.3333333333333" + Padded("0", 16) +
                             Padded("0", 15) + Padded("30", 19);
    const Load read = Accepted(ExampleWith(15, load)).Typed.Loads[0];
    EXPECT_EQ(read.Vertical, 49);
    EXPECT_EQ(read.Radius, 12.33333333333333);
    EXPECT_EQ(read.X, -12.3333333333333);
    EXPECT_EQ(read.Angle, 30);

    const std::string point = Padded("1", 5) + "-12.333333333333" + Padded("0", 13) + Padded("5", 13);
    EXPECT_EQ(Accepted(ExampleWith(19, point)).Typed.Points[0].X, -12.333333333333);
}

TEST(ReadSolverInput, OneLayerHasTwoNumbers) {
    std::string text = ExampleWith(6, "  1         1          1");
    const std::string first = "        35000             0.35                5               0\r\n";
    text.erase(text.find(first), first.size());
    const SolverInput input = Accepted(text);
    ASSERT_EQ(input.Typed.Layers.size(), 1U);
    EXPECT_EQ(input.Typed.Layers[0].Modulus, 1000);
}

TEST(ReadSolverInput, LimitsThemselvesAreAllowed) {
    const Layer layer = Accepted(ExampleWith(10, "1E-300 0.5 5 0.99")).Typed.Layers[0];
    EXPECT_EQ(layer.PoissonRatio, 0.5);
    EXPECT_EQ(layer.SlipRate, 0.99);
    EXPECT_EQ(Accepted(ExampleWith(15, "0 15 0 0 -10 720")).Typed.Loads[0].Horizontal, -10);
    EXPECT_EQ(Accepted(ExampleWith(15, "-5 15 0 0 0 0")).Typed.Loads[0].Vertical, -5);
}

TEST(ReadSolverInput, LayerNumberZeroIsTheFirstLayer) {
    EXPECT_EQ(Accepted(ExampleWith(19, "0 0 0 0")).Typed.Points[0].Layer, 1);
    EXPECT_EQ(Accepted(ExampleWith(19, "0 0 0 2.5")).Typed.Points[0].Z, 2.5);
}

TEST(ReadSolverInput, APointOnAnInterfaceBelongsToTheLayerItNames) {
    EXPECT_EQ(Accepted(ExampleWith(19, "1 0 0 5")).Typed.Points[0].Layer, 1);
    EXPECT_EQ(Accepted(ExampleWith(19, "2 0 0 5")).Typed.Points[0].Layer, 2);
    EXPECT_EQ(Accepted(ExampleWith(19, "2 0 0 1E7")).Typed.Points[0].Z, 1e7);
}

// The first layer of the example is 5 cm thick.
TEST(ReadSolverInput, ADepthOutsideItsLayerByAtMostAHundredthIsTakenOnTheBoundary) {
    for (const char* row : {"1 0 0 5.01", "1 0 0 5.0000001", "2 0 0 4.99", "2 0 0 4.995"}) {
        const SolverInput input = Accepted(ExampleWith(19, row));
        EXPECT_EQ(input.Typed.Points[0].Z, 5) << row;
        EXPECT_EQ(input.MovedPoints, 1) << row;
    }
    for (const char* row : {"1 0 0 -0.01", "0 0 0 -0.005"}) {
        const SolverInput input = Accepted(ExampleWith(19, row));
        EXPECT_EQ(input.Typed.Points[0].Z, 0) << row;
        EXPECT_EQ(input.MovedPoints, 1) << row;
    }
    // What the sum of thicknesses rounds by is not told as a move.
    const SolverInput rounded = Accepted(ExampleWith(19, "1 0 0 5.00000000005"));
    EXPECT_EQ(rounded.Typed.Points[0].Z, 5);
    EXPECT_EQ(rounded.MovedPoints, 0);
}

TEST(ReadSolverInput, TheLimitsOfTheCountsAreRead) {
    std::vector<std::string> lines = SplitLines(Example());
    lines[5] = "100       100      10000";
    lines.insert(lines.begin() + 9, 98, lines[9]);
    lines.insert(lines.begin() + 112, 99, lines[112]);
    lines.insert(lines.end(), 9999, lines.back());
    ASSERT_EQ(lines.size(), 100U + 100U + 10000U + 15U);
    const SolverInput input = Accepted(Lines(lines));
    EXPECT_EQ(input.Typed.Layers.size(), 100U);
    EXPECT_EQ(input.Typed.Loads.size(), 100U);
    EXPECT_EQ(input.Typed.Points.size(), 10000U);
}

/// A text, then so many blanks, then another text, made up as it is read.
class BlankStream : public std::streambuf {
public:
    BlankStream(std::string before, std::size_t blanks, std::string after)
        : before_(std::move(before)), blanks_(blanks), after_(std::move(after)) {}

protected:
    int_type underflow() override {
        if (!before_.empty()) {
            block_ = std::exchange(before_, {});
        } else if (blanks_ > 0) {
            block_.assign(std::min<std::size_t>(blanks_, 4096), ' ');
            blanks_ -= block_.size();
        } else if (!after_.empty()) {
            block_ = std::exchange(after_, {});
        } else {
            return traits_type::eof();
        }
        setg(block_.data(), block_.data(), block_.data() + block_.size());
        return traits_type::to_int_type(block_.front());
    }

private:
    std::string before_;
    std::size_t blanks_;
    std::string after_;
    std::string block_;
};

constexpr std::size_t ManyBlanks = std::size_t{64} << 20;

TEST(ReadSolverInput, SixtyFourMegabytesOfBlanksInARowOrAHeadingTakeNoMemory) {
    // Before a number of a layer, in a heading, before the first number of a row.
    for (const std::string cut : {"  0.35", "LOAD POINT", "        49"}) {
        const std::string text = Example();
        const std::size_t place = text.find(cut);
        BlankStream buffer(text.substr(0, place), ManyBlanks, text.substr(place));
        std::istream stream(&buffer);
        const long before = PeakMemory();
        const std::variant<SolverInput, InputError> read = ReadSolverInput(stream);
        EXPECT_LT(PeakMemory() - before, 16 << 10) << cut;
        ASSERT_TRUE(std::holds_alternative<SolverInput>(read)) << cut;
        EXPECT_EQ(std::get<SolverInput>(read).Typed.Layers[0].PoissonRatio, 0.35);
    }
}

TEST(ReadSolverInput, NothingButBlanksEndsInAnError) {
    BlankStream buffer("", ManyBlanks, "");
    std::istream stream(&buffer);
    const std::variant<SolverInput, InputError> read = ReadSolverInput(stream);
    ASSERT_TRUE(std::holds_alternative<InputError>(read));
    EXPECT_EQ(std::get<InputError>(read).Reason, Word::EndsEarly);
}

TEST(ReadSolverInput, ANameOfBlanksWithoutEndIsTooLong) {
    BlankStream buffer("heading\r\n", ManyBlanks, "\r\n");
    std::istream stream(&buffer);
    const std::variant<SolverInput, InputError> read = ReadSolverInput(stream);
    ASSERT_TRUE(std::holds_alternative<InputError>(read));
    EXPECT_EQ(OneLine(Language::English, "x", std::get<InputError>(read)),
              "x: output file names (line 2): name of the result file: the text is too long");
}

}  // namespace
}  // namespace zirvo::solver
