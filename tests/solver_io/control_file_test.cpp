// "Initial_File" and what makes it unusable.
#include "solver/io/control_file.h"

#include <gtest/gtest.h>

#include <sstream>

#include "solver_io/support.h"

namespace zirvo::solver {
namespace {

std::vector<std::string> ControlLines() {
    return {"LANGUAGE PREFERENCE", " 2 ",         "", "INPUT/OUTPUT UNITS OF MEASUREMENT", " 3 ", "",
            "INPUT FILENAME",      "Untitled.eva"};
}

std::variant<ControlFile, InputError> Read(const std::string& text) {
    std::istringstream stream(text);
    return ReadControlFile(stream);
}

ControlFile Usable(const std::string& text) {
    const auto read = Read(text);
    EXPECT_TRUE(std::holds_alternative<ControlFile>(read));
    return std::holds_alternative<ControlFile>(read) ? std::get<ControlFile>(read) : ControlFile{};
}

std::string Unusable(std::size_t line, const std::string& text) {
    std::vector<std::string> lines = ControlLines();
    lines[line - 1] = text;
    const auto read = Read(test::Lines(lines));
    if (!std::holds_alternative<InputError>(read)) {
        return "usable";
    }
    return OneLine(Language::English, "Initial_File", std::get<InputError>(read));
}

TEST(ReadControlFile, TheEightLinesAreLanguageUnitsAndName) {
    const ControlFile control = Usable(test::Lines(ControlLines()));
    EXPECT_EQ(control.Words, Language::English);
    EXPECT_EQ(control.Units, UnitSystem::KnToMpa);
    EXPECT_EQ(control.InputName, "Untitled.eva");
}

TEST(ReadControlFile, TheWordsOfTheHeadingsAndTheLineEndsDoNotMatter) {
    const ControlFile control = Usable("\n1\n\nx, y\n1\n\nInput FileName\nZIRVO_SV.EVA");
    EXPECT_EQ(control.Words, Language::Japanese);
    EXPECT_EQ(control.Units, UnitSystem::KgfToKgf);
    EXPECT_EQ(control.InputName, "ZIRVO_SV.EVA");
}

TEST(ReadControlFile, TheNameIsAWholeLineInEitherEncoding) {
    std::vector<std::string> lines = ControlLines();
    for (const auto& [bytes, name] : {std::pair("a, b.eva", "a, b.eva"), std::pair("\x93\xB9\x98\x48.eva", "道路.eva"),
                                      std::pair("Straße.eva", "Straße.eva")}) {
        lines[7] = bytes;
        EXPECT_EQ(Usable(test::Lines(lines)).InputName, name);
    }
}

TEST(ReadControlFile, WhatCannotBeUsedIsNamedWithItsLine) {
    EXPECT_EQ(Unusable(2, " 3 "), "Initial_File: line 2: language number 3: must be 1 to 2");
    EXPECT_EQ(Unusable(2, "one"), "Initial_File: line 2: language number one: must be 1 to 2");
    EXPECT_EQ(Unusable(2, ""), "Initial_File: line 2: language number: must be 1 to 2");
    EXPECT_EQ(Unusable(2, "1 2"), "Initial_File: line 2: language number 1 2: must be 1 to 2");
    EXPECT_EQ(Unusable(5, " 0 "), "Initial_File: line 5: unit system 0: must be 1 to 3");
    EXPECT_EQ(Unusable(5, " 4 "), "Initial_File: line 5: unit system 4: must be 1 to 3");
    EXPECT_EQ(Unusable(8, ""), "Initial_File: line 8: name of the input file: is empty");
    EXPECT_EQ(Unusable(8, std::string("a\0b", 3)),
              "Initial_File: line 8: name of the input file a?b: cannot be the name of a file");
    EXPECT_EQ(Unusable(2, std::string(2 << 20, ' ')), "Initial_File: line 2: the text is too long");
}

TEST(ReadControlFile, AFileCutAtAnyByteBeforeTheNameIsUnusable) {
    const std::string text = test::Lines(ControlLines());
    const std::size_t name = text.find("Untitled");
    for (std::size_t length = 0; length <= name; ++length) {
        EXPECT_TRUE(std::holds_alternative<InputError>(Read(text.substr(0, length)))) << length;
    }
}

}  // namespace
}  // namespace zirvo::solver
