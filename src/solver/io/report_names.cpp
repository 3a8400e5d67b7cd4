// Judging the names of reports. Called by the solver run.
#include "solver/io/report_names.h"

#include <array>
#include <filesystem>
#include <system_error>

#include "platform/ask_again.h"
#include "platform/files.h"
#include "solver/io/control_file.h"

namespace zirvo::solver {
namespace {

std::filesystem::path PathOf(const std::string& name) {
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
}

/// What stands there; file_type::none where it cannot be known.
std::filesystem::file_type TypeOf(const std::string& name, std::error_code& error) {
    return AskAgain([&](std::error_code& code) { return std::filesystem::status(PathOf(name), code).type(); }, error);
}

Word JudgeName(const std::string& name, const std::string& inputName) {
    std::error_code ignored;
    if (name.empty()) {
        return Word::NameEmpty;
    }
    if (name.find('\0') != std::string::npos) {
        return Word::NameUnusable;
    }
    if (FileNameOf(name) != name) {
        return Word::NameHasFolder;
    }
    if (name == "." || name == ".." || TypeOf(name, ignored) == std::filesystem::file_type::directory) {
        return Word::NameIsFolder;
    }
    if (IsSameFile(name, inputName) || IsSameFile(name, ControlFileName)) {
        return Word::NameIsWorkFile;
    }
    return Word::None;
}

}  // namespace

bool IsSameFile(const std::string& a, const std::string& b) {
    std::error_code missing;
    const auto same = [&](std::error_code& error) { return std::filesystem::equivalent(PathOf(a), PathOf(b), error); };
    return a == b || (AskAgain(same, missing) && !missing);
}

Word ReasonAgainstReading(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_type type = TypeOf(path, error);
    // Nothing can be there under what the system takes for no name.
    const bool noName = error == std::errc::filename_too_long || error == std::errc::invalid_argument;
    if (type == std::filesystem::file_type::not_found || noName) {
        return Word::FileMissing;
    }
    return type == std::filesystem::file_type::regular ? Word::None : Word::FileUnreadable;
}

InputError JudgeReportNames(std::span<const std::string> names, const std::string& inputName) {
    constexpr std::array Values{Word::ResultName, Word::PrincipalName};
    InputError error;
    for (std::size_t i = 0; i < names.size() && error.Reason == Word::None; ++i) {
        error.Reason = JudgeName(names[i], inputName);
        if (error.Reason == Word::None && i > 0 && IsSameFile(names[i], names[0])) {
            error.Reason = Word::NamesEqual;
        }
        if (error.Reason != Word::None) {
            error.Row = Word::RowNames;
            error.Line = static_cast<long long>(i) + 2;
            error.Value = Values[i];
            error.Text = names[i];
        }
    }
    return error;
}

}  // namespace zirvo::solver
