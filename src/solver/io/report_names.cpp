// Judging the names of reports. Called by the solver run.
#include "solver/io/report_names.h"

#include <array>
#include <filesystem>
#include <system_error>

#include "platform/files.h"
#include "solver/io/control_file.h"

namespace zirvo::solver {
namespace {

std::filesystem::path PathOf(const std::string& name) {
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
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
    if (name == "." || name == ".." || std::filesystem::is_directory(PathOf(name), ignored)) {
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
    return a == b || (std::filesystem::equivalent(PathOf(a), PathOf(b), missing) && !missing);
}

bool IsPlainFile(const std::string& path) {
    std::error_code missing;
    return std::filesystem::is_regular_file(PathOf(path), missing);
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
