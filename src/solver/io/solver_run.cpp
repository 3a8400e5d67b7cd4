// The runs of the two solvers, which differ in their input format and their reports. Called by their mains.
//
// Steps           1. "Initial_File". Without it there is no language and no name: exit code 2.
//                 2. The names of the reports. One that must not be used ends the run, with nothing touched.
//                 3. Old reports are deleted, so that none is ever taken for a new one.
//                 4. The rest of the input, the solution, the reports, each written whole.
// From step 3 on every failure is said in the reports themselves: the program that waits finds them in any case.
#include "solver/io/solver_run.h"

#include <array>
#include <exception>
#include <fstream>
#include <new>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "base/runtime_fault.h"
#include "platform/files.h"
#include "platform/open_file.h"
#include "solver/io/control_file.h"
#include "solver/io/report_names.h"
#include "solver/io/reports.h"
#include "solver/io/section_report.h"
#include "solver/io/solver_input.h"

namespace zirvo::solver {
namespace {

/// One report of a path, in the order of the names in its input.
struct ReportKind {
    Word Title;
    std::string (*Write)(const ReportData&);
};

/// What the two paths differ in.
struct Path {
    const InputFormat& Format;
    InputError (*Finish)(ReportData&);
    std::span<const ReportKind> Reports;
};

constexpr std::array AnalysisReports{ReportKind{Word::TitleResults, ResultReport},
                                     ReportKind{Word::TitlePrincipal, PrincipalReport}};
constexpr Path AnalysisPath{AnalysisFormat, FinishResults, AnalysisReports};

constexpr std::array SectionReports{ReportKind{Word::TitleSection, SectionReport}};
constexpr Path SectionPath{SectionFormat, FinishSection, SectionReports};

InputError WithReason(Word reason, std::vector<std::string> arguments = {}) {
    InputError error;
    error.Reason = reason;
    error.Arguments = std::move(arguments);
    return error;
}

/// Opens a plain file; why it cannot be read, or None.
Word OpenForReading(const std::string& name, std::ifstream& file) {
    if (const Word reason = ReasonAgainstReading(name); reason != Word::None) {
        return reason;
    }
    return OpenStream(name, file) ? Word::None : Word::FileUnreadable;
}

class Run {
public:
    Run(const Path& path, const SolveFunction& solve, std::ostream& messages)
        : path_(path), solve_(solve), messages_(messages) {}

    ExitCode Execute();

    /// For what is thrown and no input can be blamed for.
    ExitCode Failed(const InputError& error) { return Fail(data_.InputName, error); }

private:
    const Path& path_;
    const SolveFunction& solve_;
    std::ostream& messages_;
    ReportData data_;
    std::vector<std::string> reports_;  // names that may be written: the results first

    bool ReadControl();
    InputError ReadInput();
    InputError DeleteOldReports();
    ExitCode Fail(const std::string& file, const InputError& error);
    bool WriteReport(std::size_t index, const std::string& bytes);
    void Tell(const std::string& file, const InputError& error);
};

void Run::Tell(const std::string& file, const InputError& error) {
    messages_ << OneLine(data_.Words, file, error) << std::endl;
}

bool Run::ReadControl() {
    std::ifstream file;
    const Word unreadable = OpenForReading(ControlFileName, file);
    if (unreadable != Word::None) {
        Tell(ControlFileName, WithReason(unreadable));
        return false;
    }
    const std::variant<ControlFile, InputError> control = ReadControlFile(file);
    if (const auto* error = std::get_if<InputError>(&control)) {
        Tell(ControlFileName, *error);
        return false;
    }
    const auto& read = std::get<ControlFile>(control);
    data_.Words = read.Words;
    data_.Units = read.Units;
    data_.InputName = read.InputName;
    return true;
}

InputError Run::DeleteOldReports() {
    InputError failure;
    for (std::size_t i = 0; i < reports_.size(); ++i) {
        try {
            if (AttributesOf(reports_[i]).ReadOnly) {
                throw RuntimeFault(fault::PathAccess);
            }
            RemoveFile(reports_[i]);
        } catch (const RuntimeFault& caught) {
            if (caught.Number() != fault::FileNotFound && failure.Reason == Word::None) {
                // A name that the system takes for none, by its length or its letters, is no matter of rights.
                failure = WithReason(caught.Number() == fault::BadFileName ? Word::NameUnusable : Word::NotWritable);
                failure.Value = i == 0 ? Word::ResultName : Word::PrincipalName;
                failure.Text = reports_[i];
            }
        }
    }
    return failure;
}

/// Everything up to the complete input.
InputError Run::ReadInput() {
    const std::string& name = data_.InputName;
    std::ifstream file;
    const Word unreadable = OpenForReading(name, file);
    if (unreadable != Word::None) {
        return WithReason(unreadable);
    }
    InputReader reader(file, path_.Format);
    std::vector<std::string>& names = data_.Input.ReportNames;
    InputError error = reader.ReadNames(names);
    InputError unusable = JudgeReportNames(names, name);
    if (unusable.Reason != Word::None) {
        return unusable;
    }
    reports_ = names;
    const InputError kept = DeleteOldReports();
    if (error.Reason == Word::None) {
        error = kept;
    }
    return error.Reason == Word::None ? reader.ReadProblem(data_.Input) : error;
}

bool Run::WriteReport(std::size_t index, const std::string& bytes) {
    try {
        WriteWholeFile(reports_[index], bytes, Flush::ToSystem);
        return true;
    } catch (const RuntimeFault& caught) {
        const InputError error = WithReason(Word::NotWritten, {caught.what()});
        Tell(reports_[index], error);
        // A few lines may find room where a whole report did not.
        try {
            WriteWholeFile(reports_[index],
                           ErrorReport(data_.Words, path_.Reports[index].Title, reports_[index], error),
                           Flush::ToSystem);
        } catch (const RuntimeFault&) {  // it has been told above
        }
        return false;
    }
}

ExitCode Run::Fail(const std::string& file, const InputError& error) {
    Tell(file, error);
    for (std::size_t i = 0; i < reports_.size(); ++i) {
        WriteReport(i, ErrorReport(data_.Words, path_.Reports[i].Title, file, error));
    }
    return ExitCode::BadInput;
}

ExitCode Run::Execute() {
    if (!ReadControl()) {
        return ExitCode::NoControlFile;
    }
    InputError error = ReadInput();
    if (error.Reason != Word::None) {
        return Fail(data_.InputName, error);
    }
    data_.Results = solve_(ToConsistentUnits(data_.Input.Typed, data_.Units), SolveOptions{});
    error = path_.Finish(data_);
    if (error.Reason != Word::None) {
        return Fail(data_.InputName, error);
    }
    bool written = true;
    for (std::size_t i = 0; i < reports_.size(); ++i) {
        if (i > 0 && written && IsSameFile(reports_[0], reports_[i])) {
            // Two names that this file system takes for one: now that a file is there it shows.
            return Fail(data_.InputName, WithReason(Word::NamesEqual));
        }
        written = WriteReport(i, path_.Reports[i].Write(data_)) && written;
    }
    return written ? ExitCode::Solved : ExitCode::BadInput;
}

/// One line for the one failure that leaves nothing to do; a stream that throws is none of our business any more.
ExitCode Guarded(Run& run, const InputError& error) {
    try {
        return run.Failed(error);
    } catch (...) {
        return ExitCode::BadInput;
    }
}

ExitCode RunPath(const Path& path, const SolveFunction& solve, std::ostream& messages) noexcept {
    Run run(path, solve, messages);
    try {
        return run.Execute();
    } catch (const std::bad_alloc&) {
        return Guarded(run, WithReason(Word::OutOfMemory));
    } catch (const std::exception& failure) {
        return Guarded(run, WithReason(Word::InternalFault, {failure.what()}));
    } catch (...) {
        return Guarded(run, WithReason(Word::InternalFault, {"?"}));
    }
}

}  // namespace

ExitCode RunAnalysis(const SolveFunction& solve, std::ostream& messages) noexcept {
    return RunPath(AnalysisPath, solve, messages);
}

ExitCode RunSection(const SolveFunction& solve, std::ostream& messages) noexcept {
    return RunPath(SectionPath, solve, messages);
}

}  // namespace zirvo::solver
