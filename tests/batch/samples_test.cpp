// The samples: bytes as the program writes them, and the values that their README promises.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

#include "batch/work_folder.h"
#include "pavement/analysis_input.h"
#include "pavement/graphics_input.h"
#include "text/catalogue.h"

namespace zirvo::test {
namespace {

/// The bytes that the program writes for the model in the units and language whose headings the file has; empty if no
/// headings fit.
std::string WrittenAgain(const PavementModel& model, const std::string& bytes) {
    for (const UnitSystem units : {UnitSystem::KgfToKgf, UnitSystem::KnToMPa}) {  // 1 and 2 have the same headings
        for (const Int16 language : {JapaneseBase, EnglishBase}) {
            std::string written = WriteAnalysisInput(model, units, language);
            if (written == bytes) {
                return written;
            }
        }
    }
    return "";
}

TEST(Samples, AreByteForByteWhatTheProgramWrites) {
    for (const std::string& name : SampleNames()) {
        const std::string bytes = SampleBytes(name);
        std::istringstream stream(bytes);
        const AnalysisInputResult read = ReadAnalysisInput(stream);
        ASSERT_TRUE(read.Passed()) << name << ": " << FindingText(read.Failure().First);
        EXPECT_EQ(WrittenAgain(*read, bytes), bytes) << name;
        // The reports are named after the file, so that two samples in one folder keep apart.
        const std::string stem = name.substr(0, name.find('.'));
        EXPECT_EQ(read->ResultFileName, stem + ".bre");
        EXPECT_EQ(read->PrincipalFileName, stem + ".san");
    }
}

/// The bytes of a graphics input file written again, as above.
std::string WrittenAgain(const GraphicsInputData& data, const std::string& bytes) {
    for (const UnitSystem units : {UnitSystem::KgfToKgf, UnitSystem::KnToMPa}) {
        for (const Int16 language : {JapaneseBase, EnglishBase}) {
            std::string written = WriteGraphicsInput(data, units, language);
            if (written == bytes) {
                return written;
            }
        }
    }
    return "";
}

TEST(Samples, HaveTheirPavementForTheGraphicsToo) {
    for (const std::string& name : SampleNames()) {
        std::istringstream analysis(SampleBytes(name));
        const AnalysisInputResult read = ReadAnalysisInput(analysis);
        ASSERT_TRUE(read.Passed()) << name;
        const std::string bytes = SampleBytes(name.substr(0, name.find('.')) + ".ven");
        std::istringstream stream(bytes);
        const GraphicsInputResult graphics = ReadGraphicsInput(stream);
        ASSERT_TRUE(graphics.Passed()) << name << ": " << FindingText(graphics.Failure().First);
        EXPECT_EQ(WrittenAgain(*graphics, bytes), bytes) << name;
        GraphicsInputData same;
        same.LayerCount = read->LayerCount;
        same.LoadCount = read->LoadCount;
        same.Layers = read->Layers;
        same.Loads = read->Loads;
        EXPECT_EQ(*graphics, same) << name;
    }
}

/// One row of the README's table of values.
struct Expected {
    std::string File, Units, Layer;
    double X = 0, Y = 0, Z = 0;
    std::string Component, Value;
};

std::vector<Expected> ExpectedValues() {
    std::ifstream readme(ZIRVO_SAMPLES "/README.md");
    std::vector<Expected> rows;
    for (std::string line; std::getline(readme, line);) {
        std::istringstream cells(line);
        std::string bar;
        Expected row;
        if (line.rfind("| `", 0) == 0 && cells >> bar >> row.File >> bar >> row.Units >> bar >> row.Layer >> bar >>
                                             row.X >> bar >> row.Y >> bar >> row.Z >> bar >> row.Component >> bar >>
                                             row.Value) {
            row.File = row.File.substr(1, row.File.size() - 2);
            rows.push_back(row);
        }
    }
    return rows;
}

/// Half a unit in the last digit of a number like "-1.2346E-01".
double RoundingOf(const std::string& text) {
    return 0.5 * std::pow(10, std::atoi(text.substr(text.find('E') + 1).c_str()) - 4);
}

/// The value that zirvo-batch solves, from the row of the point and the column of the component.
double SolvedValue(const std::vector<std::string>& lines, const Expected& wanted) {
    const std::vector<std::string> heading = FieldsOf(lines.at(0));
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::vector<std::string> fields = FieldsOf(lines[i]);
        if (fields.at(0) == wanted.Layer && std::stod(fields.at(1)) == wanted.X &&
            std::stod(fields.at(2)) == wanted.Y && std::stod(fields.at(3)) == wanted.Z) {
            for (std::size_t c = 4; c < heading.size(); ++c) {
                if (heading[c] == wanted.Component) {
                    return std::stod(fields.at(c));
                }
            }
        }
    }
    return std::nan("");
}

TEST(Samples, HaveTheValuesThatTheirReadmePromises) {
    const WorkFolder folder;
    std::map<std::string, std::vector<std::string>> solved;
    std::map<std::string, int> checked;
    for (const Expected& row : ExpectedValues()) {
        if (solved.count(row.File) == 0) {
            folder.PutSample(row.File);
            solved[row.File] = LinesOf(folder.Batch({"solve", row.File, "--units", row.Units}).Out);
        }
        EXPECT_NEAR(SolvedValue(solved[row.File], row), std::stod(row.Value), 1.001 * RoundingOf(row.Value))
            << row.File << " layer " << row.Layer << " " << row.X << " " << row.Y << " " << row.Z << " "
            << row.Component;
        ++checked[row.File];
    }
    for (const std::string& name : SampleNames()) {
        EXPECT_GE(checked[name], 4) << name;
    }
}

TEST(Samples, AreAtLeastSixAndAllPassTheRules) {
    EXPECT_GE(SampleNames().size(), 6U);
    for (const std::string& name : SampleNames()) {
        std::istringstream stream(SampleBytes(name));
        EXPECT_TRUE(CheckAnalysisInput(stream).empty()) << name;
    }
}

}  // namespace
}  // namespace zirvo::test
