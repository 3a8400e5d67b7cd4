// The solver programs on the files of a folder: the first bytes choose the program, the control file and what else lies
// there; the rest is the control file or the input.
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "platform/code_page.h"
#include "solver/io/control_file.h"
#include "solver/io/solver_input.h"
#include "solver/io/solver_run.h"
#include "solver/solve.h"
#include "support/byte_source.h"
#include "support/fuzzing.h"
#include "support/work_folder.h"

namespace zirvo::fuzz {
namespace {

using solver::ExitCode;

constexpr const char* InputName = "in.eva";
constexpr const char* UsersFile = "mine.txt";

/// Results that no pavement has, but that a solver might come to.
solver::Solution MadeUp(const solver::Problem& problem, unsigned choice) {
    solver::Solution solution;
    const double infinite = std::numeric_limits<double>::infinity();
    for (std::size_t p = 0; p < problem.Points.size(); ++p) {
        solver::PointResult result;
        for (std::size_t c = 0; c < solver::ComponentCount; ++c) {
            result.Values[c] = (static_cast<double>(c) - 7.0) * 1.2345e-3;
        }
        result.OnLoadEdge = choice % 2 != 0;
        switch (choice % 8) {
            case 1:
                result.Values[p % 15] = infinite;
                break;
            case 2:
                result.Values[p % 15] = std::numeric_limits<double>::quiet_NaN();
                break;
            case 3:
                result.Values.fill(1e99);
                break;
            case 4:
                result.Values.fill(-1e-300);
                break;
            case 5:
                result.Values.fill(0);
                result.Estimates = {infinite, 1e-3, 0};
                break;
            default:
                break;
        }
        solution.Points.push_back(result);
        solution.LargestEstimate = std::max(solution.LargestEstimate, result.Estimates[0]);
    }
    return solution;
}

std::string StandardControl(bool english, int units, std::string_view name) {
    return "Language\r\n " + std::string(english ? "2" : "1") + " \r\n\r\nUnits\r\n " + std::to_string(units) +
           " \r\n\r\nInput FileName\r\n" + std::string(name) + "\r\n";
}

/// The names of the reports that the input gives; none where it is not that far.
std::vector<std::string> ReportNames(const std::string& input, bool section) {
    std::istringstream stream(input);
    solver::InputReader reader(stream, section ? solver::SectionFormat : solver::AnalysisFormat);
    std::vector<std::string> names;
    reader.ReadNames(names);
    return names;
}

/// The name of the input, where the control file is one.
std::optional<std::string> InputNameIn(const std::string& control) {
    std::istringstream stream(control);
    const auto read = solver::ReadControlFile(stream);
    const auto* file = std::get_if<solver::ControlFile>(&read);
    return file == nullptr ? std::nullopt : std::optional(file->InputName);
}

struct Folder {
    std::string Control;
    std::string Input;
    bool Section = false;
};

void RequireAsTold(ExitCode code, const std::string& messages, const Folder& before) {
    const std::map<std::string, std::string> after = AllFiles();
    Require(after.contains(solver::ControlFileName) && after.at(solver::ControlFileName) == before.Control,
            "the control file stays as it is");
    Require(after.contains(InputName) && after.at(InputName) == before.Input, "the input stays as it is");
    const std::size_t lines = static_cast<std::size_t>(std::count(messages.begin(), messages.end(), '\n'));
    Require((code == ExitCode::Solved) == messages.empty(), "what is wrong is said, and nothing else");
    Require(code != ExitCode::NoControlFile || lines == 1, "an unusable control file is told in one line");

    const std::optional<std::string> input = InputNameIn(before.Control);
    Require((code == ExitCode::NoControlFile) == !input.has_value(), "exit code 2 means the control file");
    const std::vector<std::string> names =
        input == InputName ? ReportNames(before.Input, before.Section) : std::vector<std::string>();
    for (const auto& [name, bytes] : after) {
        const bool ours = name == solver::ControlFileName || name == InputName;
        const bool report = std::find(names.begin(), names.end(), name) != names.end();
        Require(ours || report || name == UsersFile, "no other file is left behind");
        Require(report || name != UsersFile || bytes == "mine", "a file that is no report stays as it is");
    }
    if (code == ExitCode::Solved) {
        Require(input == InputName && names.size() == (before.Section ? 1U : 2U), "only an input is solved");
        for (const std::string& name : names) {
            Require(after.contains(name) && after.at(name).size() > 200, "each report that the input names is there");
            Require(after.at(name).find("\n") != std::string::npos, "and has lines");
        }
    }
}

}  // namespace

/// The readers take nothing of it. The theory, which the programs do in a hundredth of a second, is many times as slow
/// under the sanitizers.
const int LongestRun = 10;

void RunInput(std::string_view bytes) {
    EmptyWorkFolder();
    ByteSource source(bytes);
    Folder folder;
    folder.Section = source.Flag();
    const int controlKind = source.Between(0, 3);
    const unsigned answer = source.Byte();
    const bool english = source.Flag();
    const int units = source.Between(1, 3);
    switch (controlKind) {
        case 0:
            folder.Control = StandardControl(english, units, source.Text(source.Below(30)));
            break;
        case 1:
            folder.Control = source.Text(source.Below(120));
            break;
        default:
            folder.Control = StandardControl(english, units, InputName);
            break;
    }
    folder.Input = source.Rest();
    PutFile(solver::ControlFileName, folder.Control);
    PutFile(InputName, folder.Input);
    PutFile(UsersFile, "mine");

    std::ostringstream messages;
    const solver::SolveFunction solve = [&](const solver::Problem& problem, const solver::SolveOptions& options) {
        return answer < 128 ? solver::Solve(problem, options) : MadeUp(problem, answer);
    };
    const ExitCode code = folder.Section ? solver::RunSection(solve, messages) : solver::RunAnalysis(solve, messages);
    RequireAsTold(code, messages.str(), folder);
}

}  // namespace zirvo::fuzz
