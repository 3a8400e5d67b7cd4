// What the tests of the solver's input and reports share: inputs as the front end writes them, results made by hand,
// and a folder of their own.
#pragma once
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/temporary_folder.h"
#include "solver/io/reports.h"
#include "solver/io/solver_input.h"

namespace zirvo::solver::test {

/// The lines joined by CR LF, with one behind the last.
std::string Lines(const std::vector<std::string>& lines);

/// The lines of a text, without their CR LF.
std::vector<std::string> SplitLines(std::string_view text);

/// The lines of the worked example of the file format: two layers, one load, one point, English, unit system 3.
std::vector<std::string> ExampleLines();
std::string Example();

/// The example with one line (1-based) replaced.
std::string ExampleWith(std::size_t line, const std::string& text);

/// The text right-justified in the columns.
std::string Padded(std::string_view text, std::size_t columns);

/// The input that the text holds; an exception, which fails the test, where it is refused.
SolverInput Accepted(const std::string& text);

/// What is wrong with the text; an exception where nothing is.
InputError Refused(const std::string& text);

/// "Untitled.eva: ..." in English.
std::string RefusedInEnglish(const std::string& text);

/// The example with results made by hand, brought into the units of the output.
ReportData HandMadeData(Language language, UnitSystem units);

/// A new folder that is the current one while the object lives, and is removed with all in it.
class OwnFolder : private TemporaryFolder {
public:
    OwnFolder();
    ~OwnFolder();
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    using TemporaryFolder::Path;

private:
    std::filesystem::path before_;
};

void WriteBytes(const std::string& path, std::string_view bytes);
std::string ReadBytes(const std::string& path);

/// Compares with tests/data/reports/NAME; a difference is written beside it as NAME.new.
void ExpectGolden(const std::string& name, const std::string& bytes);

/// The word by which the system's interpreter of commands starts a program of the build.
std::string ProgramWord(const std::string& name);

#ifdef _WIN32
inline const std::string OnNullDevice = " <NUL >NUL 2>NUL";
#else
inline const std::string OnNullDevice = " </dev/null >/dev/null 2>/dev/null";
#endif

/// The exit code of a line for the system's interpreter of commands; -1 if a signal ended it.
int ExitCodeOf(const std::string& command);

inline constexpr std::array Languages{Language::Japanese, Language::English};
inline constexpr std::array AllUnits{UnitSystem::KgfToKgf, UnitSystem::KgfToMpa, UnitSystem::KnToMpa};

}  // namespace zirvo::solver::test
