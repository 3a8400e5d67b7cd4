// `zirvo-batch analyze`, see analyze_command.h.
//
// Moves the current folder of the process to that of the file, since a solver run names its files without a folder.
#include "batch/analyze_command.h"

#include <array>
#include <fstream>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "analysis/solver_run.h"
#include "batch/input_file.h"
#include "batch/solver_signs.h"
#include "pavement/data_findings.h"
#include "pavement/pavement_rules.h"
#include "pavement/solver_process.h"
#include "platform/clock.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/process.h"
#include "solver/io/report_names.h"
#include "solver/io/solver_input.h"
#include "text/catalogue.h"
#include "text/file_helpers.h"

namespace zirvo::batch {
namespace {

using solver::InputError;
using solver::Word;

constexpr Int16 MessageInputMissing = 172;
constexpr Int16 MessageUncompleted = 173;

/// At a folder in which another run is under way [ms].
constexpr int BetweenLooks = 20;

/// Where a run stands, to tell what a fault was about.
enum class Stage { ControlFile, Solver, Reports };

class Analysis {
public:
    Analysis(const AnalyzeRequest& request, Console& console)
        : request_(request), console_(console), name_(FileNameOf(request.File)), folder_(FolderOf(request.File)) {}

    ExitCode Run();

private:
    const AnalyzeRequest& request_;
    Console& console_;
    std::string name_;    // of the input, without a folder
    std::string folder_;  // as the user wrote it; empty for the current one
    std::string resultName_;
    std::string principalName_;
    Stage stage_ = Stage::ControlFile;

    bool EnterFolder();
    bool TakeNames();
    bool Refuse(const InputError& error);
    SolverRunResult RunTheSolver();
    ExitCode Finish(SolverRunResult result);
    std::string FaultReason(const RuntimeFault& caught) const;
    bool HasResults(const std::string& report);
    std::string PathOf(const std::string& name) const { return folder_.empty() ? name : JoinPath(folder_, name); }
};

bool Analysis::Refuse(const InputError& error) {
    console_.Complain("", solver::OneLine(solver::Language::English, request_.File, error));
    return false;
}

bool Analysis::EnterFolder() {
    try {
        if (!folder_.empty()) {
            ChangeFolder(folder_);
        }
        return true;
    } catch (const RuntimeFault& caught) {
        console_.Complain(request_.File, "the folder cannot be entered: " + FaultText(caught));
        return false;
    }
}

/// The names of the reports are read as the solver reads them, so that both mean the same files, and judged as the
/// import and the solver do: what passes both is never a file of another kind.
bool Analysis::TakeNames() {
    std::ifstream file;
    InputError error = OpenInputFile(name_, file);
    if (error.Reason != Word::None) {
        return Refuse(error);
    }
    std::vector<std::string> names;
    error = solver::InputReader(file, solver::AnalysisFormat).ReadNames(names);
    if (error.Reason == Word::None) {
        error = solver::JudgeReportNames(names, name_);
    }
    if (error.Reason != Word::None) {
        return Refuse(error);
    }
    resultName_ = names.at(0);
    principalName_ = names.at(1);
    const std::array rules{std::pair{&resultName_, ".bre"}, std::pair{&principalName_, ".san"}};
    for (const auto& [name, extension] : rules) {
        const Refusal refusal = JudgeReportName(*name, extension);
        if (refusal != Refusal::None) {
            console_.Complain(request_.File,
                              "report name " + *name + ": " + std::string(ReasonOf(refusal)) + ", not " + extension);
            return false;
        }
    }
    return true;
}

SolverRunResult Analysis::RunTheSolver() {
    const SolverRunRequest run{.InputFileName = name_,
                               .ResultFileName = resultName_,
                               .PrincipalFileName = principalName_,
                               .Language = LanguageNumberOf(request_.LanguageBase),
                               .Units = request_.Units,
                               .ProgramFolder = ProgramFolder()};
    SolverRunCallbacks callbacks;
    callbacks.PaintComputing = [this] {
        console_.Progress(request_.File + ": " + std::string(GetMessage(request_.LanguageBase, MessageComputing)));
    };
    callbacks.HandleObtained = [this] { stage_ = Stage::Solver; };
    callbacks.HideComputing = [this] {
        stage_ = Stage::Reports;
        console_.Progress(request_.File + ": finishing the reports");
    };
    callbacks.FolderBusy = [this, told = false]() mutable {
        if (!told) {
            console_.Note(request_.File, "another zirvo computes in this folder; waiting for its end");
            told = true;
        }
        Pause(BetweenLooks);
        return true;
    };
    return RunSolver(run, *MakeProcessService(), callbacks);
}

std::string Analysis::FaultReason(const RuntimeFault& caught) const {
    std::string about;
    if (stage_ == Stage::ControlFile && caught.Number() == fault::BadFileName) {
        about = "this name cannot be told to the solver";
    } else if (stage_ == Stage::ControlFile && caught.About().Matter == FaultMatter::Program) {
        const std::string& solver = caught.About().Name;
        about = solver + (FileExists(solver) ? " cannot be started" : " is missing");
    } else if (stage_ == Stage::ControlFile) {
        about = std::string(ControlFileName) + " cannot be written";
    } else if (caught.Number() == fault::FileAlreadyExists) {
        about = PathOf(StampTemporaryName) + " is left over from an interrupted run";
    } else if (caught.About().Matter == FaultMatter::Report) {
        about = "the solver left no report: " + PathOf(FileNameOf(caught.About().Name));
    } else {
        about = "the reports cannot be finished: " + caught.About().Name;
    }
    return FaultText(caught) + " (" + about + ")";
}

/// False if the report is one of a failure; then the reason is told.
bool Analysis::HasResults(const std::string& report) {
    const std::string bytes = ReadFileBytes(report);
    if (bytes.find(MarkerLine) != std::string::npos) {
        return true;
    }
    // The same reader finds the same fault in the input, and tells it in English.
    std::ifstream file;
    InputError error = OpenInputFile(name_, file);
    if (error.Reason == Word::None) {
        const std::variant<solver::SolverInput, InputError> read = solver::ReadSolverInput(file);
        error = std::holds_alternative<InputError>(read) ? std::get<InputError>(read) : error;
    }
    if (error.Reason != Word::None) {
        return Refuse(error);
    }
    console_.Complain(request_.File, "the solver gave no results; " + PathOf(report) + " says:");
    console_.Complain("", DecodeText(bytes));
    return false;
}

ExitCode Analysis::Finish(SolverRunResult result) {
    if (result != SolverRunResult::Finished) {
        const Int16 message = result == SolverRunResult::InputMissing ? MessageInputMissing : MessageUncompleted;
        console_.Complain(request_.File, GetMessage(EnglishBase, message));
        return ExitCode::BadInput;
    }
    std::string names;
    for (const std::string& report : {principalName_, resultName_}) {
        names.append(PathOf(report)).append("\n").append(PathOf(CommaCopyName(report))).append("\n");
    }
    const bool results = HasResults(resultName_) && HasResults(principalName_);
    const ExitCode output = console_.Output(names);
    return results ? output : ExitCode::BadInput;
}

ExitCode Analysis::Run() {
    if (!EnterFolder() || !TakeNames()) {
        return ExitCode::BadInput;
    }
    try {
        return Finish(RunTheSolver());
    } catch (const RuntimeFault& caught) {
        console_.Complain(request_.File, FaultReason(caught));
        return ExitCode::BadInput;
    }
}

}  // namespace

ExitCode RunAnalyze(const AnalyzeRequest& request, Console& console) {
    return Analysis(request, console).Run();
}

}  // namespace zirvo::batch
