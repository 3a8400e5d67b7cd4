// `zirvo-batch study`, see study_command.h.
#include "batch/study_command.h"

#include <array>
#include <cmath>
#include <utility>

#include "batch/study_chart.h"
#include "solver/io/report_names.h"
#include "study/run_study.h"

namespace zirvo::batch {
namespace {

std::string RowsText(std::uint64_t rows) {
    return std::to_string(rows) + (rows == 1 ? " row" : " rows");
}

/// "2 h 5 min", "3 min", "12 s".
std::string TimeText(double seconds) {
    constexpr double Minute = 60;
    constexpr double Hour = 3600;
    const auto whole = [](double x) { return std::to_string(static_cast<long long>(x)); };
    if (seconds >= Hour) {
        return whole(seconds / Hour) + " h " + whole(std::fmod(seconds, Hour) / Minute) + " min";
    }
    return seconds >= 2 * Minute ? whole(seconds / Minute) + " min" : whole(std::ceil(seconds)) + " s";
}

void TellOutcome(const StudyRequest& request, const study::RunOutcome& outcome, Console& console) {
    std::string text = RowsText(outcome.Rows);
    if (outcome.Earlier > 0 && !request.Merge) {
        text += ", " + std::to_string(outcome.Earlier) + " of them done by earlier runs";
    }
    console.Note(request.File, text + ": " + outcome.Results);
    if (outcome.Bad > 0) {
        console.Note(request.File, RowsText(outcome.Bad) + " cannot be solved, with the reasons in " + outcome.BadFile);
    }
}

/// Why a file of this run would take the place of one that the study is read from; empty if none would.
std::string ReasonAgainstFiles(const StudyRequest& request, const study::Study& study) {
    const std::string table = request.Output + ".csv";
    const std::string bad = request.Output + "_bad.csv";
    const std::string memory = study::MemoryPath(request.Output, request.Part, request.Parts);
    // With what lies beside them until they are whole.
    const std::array outputs{
        std::pair{"--output", table},
        std::pair{"--output", table + ".new"},
        std::pair{"--output", bad},
        std::pair{"--output", bad + ".new"},
        std::pair{"--output", memory},
        std::pair{"--output", memory + ".new"},
        std::pair{"--output", memory + ".lock"},
        std::pair{"--output", memory + "-wal"},
        std::pair{"--output", memory + "-journal"},
        std::pair{"--plot", request.Plot.Picture},
    };
    for (const auto& [option, output] : outputs) {
        for (const std::string& input : {study.File, study.BaseFile, study.TableFile}) {
            if (!input.empty() && !output.empty() && solver::IsSameFile(output, input)) {
                return std::string(option) + ": " + input + " is an input of the study, and would be lost";
            }
        }
    }
    return "";
}

}  // namespace

ExitCode RunStudy(const StudyRequest& request, Console& console) {
    const auto read = study::ReadStudy(request.File);
    if (const auto* error = std::get_if<study::FileError>(&read)) {
        console.Complain("", error->Text());
        return ExitCode::BadInput;
    }
    const auto& study = std::get<study::Study>(read);
    for (const std::string& reason : {ReasonAgainstFiles(request, study), ReasonAgainstChart(study, request.Plot)}) {
        if (!reason.empty()) {
            console.Complain("", reason);
            return ExitCode::WrongUsage;
        }
    }
    study::RunOptions options{request.Output, request.Threads, request.Part, request.Parts};
    options.Tell = [&](const study::Progress& progress) {
        console.Progress(request.File + ": " + std::to_string(progress.Done) + " of " + RowsText(progress.Rows) + ", " +
                         std::to_string(static_cast<long long>(progress.RowsPerSecond)) + " a second, " +
                         TimeText(progress.SecondsLeft) + " left");
    };
    const auto outcome = request.Merge ? study::MergeParts(study, options) : study::RunStudy(study, options);
    if (const auto* error = std::get_if<study::FileError>(&outcome)) {
        console.Complain("", error->Text());
        return ExitCode::BadInput;
    }
    TellOutcome(request, std::get<study::RunOutcome>(outcome), console);
    return request.Plot.Picture.empty() ? ExitCode::Done
                                        : DrawStudyChart(study, request.Output + ".sqlite", request.Plot, console);
}

}  // namespace zirvo::batch
