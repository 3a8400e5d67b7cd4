// Inputs that the solver refuses, each with the row and the value that it names.
#include <gtest/gtest.h>

#include <sstream>

#include "solver/io/solver_input.h"
#include "solver_io/support.h"

namespace zirvo::solver {
namespace {

using namespace test;

TEST(RefusedInput, ACountOutsideItsLimitsIsNamed) {
    const std::string counts = "Untitled.eva: counts (line 6): ";
    EXPECT_EQ(RefusedInEnglish(ExampleWith(6, "  0         1          1")),
              counts + "number of layers 0: must be 1 to 100");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(6, " -1         1          1")),
              counts + "number of layers -1: must be 1 to 100");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(6, "101         1          1")),
              counts + "number of layers 101: must be 1 to 100");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(6, "  2         0          1")),
              counts + "number of loads 0: must be 1 to 100");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(6, "  2     40000          1")),
              counts + "number of loads 40000: must be 1 to 100");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(6, "  2         1          0")),
              counts + "number of points 0: must be 1 to 10000");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(6, "  2         1      10001")),
              counts + "number of points 10001: must be 1 to 10000");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(6, "  2         1 3000000000")),
              counts + "number of points 3000000000: must be 1 to 10000");
    // Ten digits fill the columns of the loads and touch the layers: cut, and still refused.
    EXPECT_EQ(RefusedInEnglish(ExampleWith(6, "  23000000000          1")),
              counts + "number of loads 3000000000: must be 1 to 100");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(6, "2.0 1 1")), counts + "number of layers 2.0: is not a whole number");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(6, "2 one 1")), counts + "number of loads one: is not a whole number");
}

TEST(RefusedInput, AValueOfALayerOutsideItsLimitsIsNamed) {
    const std::string layer = "Untitled.eva: layer 1 (line 10): ";
    EXPECT_EQ(RefusedInEnglish(ExampleWith(10, "0 0.35 5 0")), layer + "modulus 0: must be above 0");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(10, "-35000 0.35 5 0")), layer + "modulus -35000: must be above 0");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(10, "35000 0 5 0")), layer + "Poisson ratio 0: must be above 0");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(10, "35000 0.51 5 0")), layer + "Poisson ratio 0.51: must be at most 0.5");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(10, "35000 0.35 0 0")), layer + "thickness 0: must be above 0");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(10, "35000 0.35 5 -0.1")), layer + "slip rate -0.1: must be 0 to 0.99");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(10, "35000 0.35 5 0.990001")),
              layer + "slip rate 0.990001: must be 0 to 0.99");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(11, "1000 0.6")),
              "Untitled.eva: layer 2 (line 11): Poisson ratio 0.6: must be at most 0.5");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(10, "35000 abc 5 0")), layer + "Poisson ratio abc: is not a number");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(10, "nan 0.35 5 0")), layer + "modulus nan: is not a number");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(10, "35000,,5,0")), layer + "Poisson ratio: is not a number");
}

TEST(RefusedInput, ALoadWithoutRadiusOrForceIsNamed) {
    const std::string load = "Untitled.eva: load 1 (line 15): ";
    EXPECT_EQ(RefusedInEnglish(ExampleWith(15, "49 0 0 0 0 0")), load + "radius 0: must be above 0");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(15, "49 -15 0 0 0 0")), load + "radius -15: must be above 0");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(15, "0 15 0 0 0 0")), load + "vertical and horizontal load are both 0");
}

TEST(RefusedInput, APointOutsideItsLayerIsNamed) {
    const std::string point = "Untitled.eva: point of interest 1 (line 19): ";
    EXPECT_EQ(RefusedInEnglish(ExampleWith(19, "3 0 0 5")), point + "layer number 3: must be 0 to 2");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(19, "-1 0 0 5")), point + "layer number -1: must be 0 to 2");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(19, "40000 0 0 5")), point + "layer number 40000: must be 0 to 2");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(19, "1.0 0 0 5")), point + "layer number 1.0: is not a whole number");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(19, "1 0 0 5.0101")),
              point + "Z 5.0101: lies below layer 1 (its bottom is at 5 cm)");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(19, "2 0 0 4.9899")),
              point + "Z 4.9899: lies above layer 2 (its top is at 5 cm)");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(19, "0 0 0 -0.0101")),
              point + "Z -0.0101: lies above layer 1 (its top is at 0 cm)");
}

// "-1.0E+100" has nine characters, the column of a coordinate holds eight and a blank.
TEST(RefusedInput, ACoordinateThatNoColumnHoldsIsNamed) {
    const std::string point = "Untitled.eva: point of interest 1 (line 19): ";
    EXPECT_EQ(RefusedInEnglish(ExampleWith(19, "1 -1E100 0 5")),
              point + "X -1E+100: is too large for its column in the report");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(19, "1 0 -1E300 5")),
              point + "Y -1E+300: is too large for its column in the report");
    EXPECT_EQ(Accepted(ExampleWith(19, "1 1E100 -1E99 5")).Typed.Points[0].X, 1e100);
}

TEST(RefusedInput, NumbersThatTouchInATooLongLineAreNamed) {
    const std::string third = "0.333333333333333";
    EXPECT_EQ(RefusedInEnglish(ExampleWith(19, Padded("1", 5) + Padded("-31.67", 16) + third + Padded("5", 13))),
              "Untitled.eva: point of interest 1 (line 19): X -31.670.333333333333333: is not a number");
    EXPECT_EQ(
        RefusedInEnglish(ExampleWith(19, Padded("1", 5) + Padded("5", 16) + third + Padded("5", 13))),
        "Untitled.eva: point of interest 1 (line 19): X 50.333333333333333: numbers touch and the line is too long "
        "to be cut at its columns");
    // The next row would lend its modulus as a slip rate.
    EXPECT_EQ(RefusedInEnglish(ExampleWith(10, Padded("35000", 13) + Padded("0.35", 17) + Padded("5", 17) + third)),
              "Untitled.eva: layer 1 (line 10): thickness 50.333333333333333: numbers touch and the line is too long "
              "to be cut at its columns");
}

TEST(RefusedInput, AShortFileIsNamedWithTheRowThatIsMissing) {
    EXPECT_EQ(RefusedInEnglish(""), "Untitled.eva: heading (line 1): the file ends too early");
    const std::string text = Example();
    EXPECT_EQ(
        RefusedInEnglish(text.substr(0, text.find("Untitled.san"))),
        "Untitled.eva: output file names (line 3): name of the file of principal values: the file ends too early");
    EXPECT_EQ(RefusedInEnglish(text.substr(0, text.find("         1000"))),
              "Untitled.eva: layer 2 (line 11): modulus: the file ends too early");
    EXPECT_EQ(RefusedInEnglish(text.substr(0, text.find("LOAD POINT"))),
              "Untitled.eva: heading (line 13): the file ends too early");
    EXPECT_EQ(RefusedInEnglish(ExampleWith(6, "  2         1          2")),
              "Untitled.eva: point of interest 2 (line 20): layer number: the file ends too early");
}

TEST(RefusedInput, AFileCutAtAnyByteIsRefusedOrHasLostNothingThatCounts) {
    const std::string text = Example();
    const std::size_t lastNumber = text.rfind('5');
    for (std::size_t length = 0; length < text.size(); ++length) {
        const std::string cut = text.substr(0, length);
        if (length > lastNumber) {
            EXPECT_EQ(Accepted(cut).Typed.Points[0].Z, 5) << length;
        } else {
            const Word reason = Refused(cut).Reason;  // "0." of the last layer's "0.4" is a Poisson ratio of 0
            EXPECT_TRUE(reason == Word::EndsEarly || reason == Word::MustBeAbove) << length;
        }
    }
}

TEST(RefusedInput, AnyByteMayBeRubbishWithoutACrash) {
    const std::string text = Example();
    for (std::size_t place = 0; place < text.size(); ++place) {
        for (const char byte : {'\0', '\xFF', ',', '"', '-', '\r'}) {
            std::string broken = text;
            broken[place] = byte;
            std::istringstream stream(broken);
            const std::variant<SolverInput, InputError> read = ReadSolverInput(stream);
            if (const auto* error = std::get_if<InputError>(&read)) {
                EXPECT_NE(error->Reason, Word::None) << place;
            }
        }
    }
}

TEST(RefusedInput, ANulByteInANumberIsNoNumber) {
    EXPECT_EQ(RefusedInEnglish(ExampleWith(11, std::string("10\0 0.4", 7))),
              "Untitled.eva: layer 2 (line 11): modulus 10?: is not a number");
}

TEST(RefusedInput, ACommaInAHeadingShiftsTheReadByOneField) {
    EXPECT_EQ(RefusedInEnglish(ExampleWith(5, "LAYERS, LOADS")),
              "Untitled.eva: counts (line 5): number of layers LOADS: is not a whole number");
}

TEST(RefusedInput, ACommaBehindTheLastNumberOfARowBringsInAnEmptyTextField) {
    // Behind the loads three text fields follow: the empty one takes the place of the empty line.
    EXPECT_EQ(RefusedInEnglish(ExampleWith(15, "49 15 0 0 0 0,")),
              "Untitled.eva: point of interest 1 (line 18): layer number LAYER: is not a whole number");
    // Between two rows of numbers it does no harm.
    EXPECT_EQ(Accepted(ExampleWith(10, "35000 0.35 5 0,")).Typed.Layers[1].Modulus, 1000);
}

TEST(RefusedInput, MessagesComeInJapaneseToo) {
    EXPECT_EQ(OneLine(Language::Japanese, "Untitled.eva", Refused(ExampleWith(10, "35000 0.6 5 0"))),
              "Untitled.eva: 層 1 (10行目): ポアソン比 0.6: 0.5以下でなければなりません");
    EXPECT_EQ(OneLine(Language::Japanese, "Untitled.eva", Refused(ExampleWith(19, "1 0 0 7"))),
              "Untitled.eva: 着目点 1 (19行目): Z座標 7: 第1層より下にあります (層の下面は5cm)");
}

TEST(RefusedInput, ALongOrOddValueIsShownShortened) {
    const std::string message = RefusedInEnglish(ExampleWith(10, std::string(5000, 'x') + " 0.35 5 0"));
    EXPECT_EQ(message, "Untitled.eva: layer 1 (line 10): modulus " + std::string(60, 'x') + "...: is not a number");
}

}  // namespace
}  // namespace zirvo::solver
