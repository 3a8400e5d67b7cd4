// What can be asked of zirvo-batch. Caller: main.
#pragma once
#include <string>
#include <variant>
#include <vector>

#include "base/int16.h"
#include "batch/console.h"
#include "batch/gear_command.h"
#include "batch/lives_command.h"
#include "batch/map_options.h"
#include "batch/study_command.h"
#include "pavement/pavement_model.h"
#include "solver/io/unit_systems.h"

namespace zirvo::batch {

/// All values at full precision, in this process.
struct SolveRequest {
    std::string File;
    solver::UnitSystem Units = solver::UnitSystem::KgfToKgf;
    std::string CsvFile;     ///< standard output if empty
    int Threads = 0;         ///< 0: as many as the machine has
    bool Estimates = false;  ///< three more columns
};

/// What the ANALYZE button does.
struct AnalyzeRequest {
    std::string File;
    zirvo::UnitSystem Units = zirvo::UnitSystem::None;
    Int16 LanguageBase = 0;
};

/// The rules of the data.
struct CheckRequest {
    std::string File;
    bool Graphics = false;  ///< a graphics input file, else one of an analysis
};

/// The command line told no work: it was wrong, or asked for help, and that has been answered.
struct NothingToDo {
    ExitCode Code = ExitCode::Done;
};

using Request = std::variant<NothingToDo, SolveRequest, AnalyzeRequest, MapRequest, CheckRequest, GearRequest,
                             LivesRequest, StudyRequest>;

/// Reads the command line; tells the console to be quiet where that is asked for, answers --help and --version, and
/// says what is wrong with a command line that is wrong.
/// @param arguments  without the program's name
Request ReadCommandLine(const std::vector<std::string>& arguments, Console& console);

}  // namespace zirvo::batch
