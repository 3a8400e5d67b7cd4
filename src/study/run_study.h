// All rows of a study, or a part of them: on all cores, going on where an earlier run stopped. Caller: `zirvo-batch
// study`.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <variant>

#include "study/block.h"
#include "study/study.h"

namespace zirvo::study {

/// How far a run is.
struct Progress {
    std::uint64_t Done = 0;  ///< rows, those of earlier runs among them
    std::uint64_t Rows = 0;  ///< of this run as a whole
    double RowsPerSecond = 0;
    double SecondsLeft = 0;
};

struct RunOptions {
    std::string Output;  ///< names of the files without their ends
    int Threads = 0;     ///< 0: as many as the machine has
    int Part = 0;        ///< 1 to Parts; 0: the whole study
    int Parts = 0;
    std::function<void(const Progress&)> Tell{};  ///< a few times a second
};

struct RunOutcome {
    std::uint64_t Rows = 0;     ///< of this run as a whole
    std::uint64_t Earlier = 0;  ///< done by earlier runs
    std::uint64_t Bad = 0;      ///< known for a whole study only
    std::string Results;        ///< the file with the results; of a part the memory
    std::string BadFile;        ///< empty where no row is bad
};

/// Rows of a part: parts are as long as one another, but for one row.
RowRange RangeOf(std::uint64_t rows, int part, int parts);

/// The file that holds the results of a study, or of a part of it, and before its end what is done of them:
/// OUTPUT.sqlite, OUTPUT.part-I-of-N.sqlite. While it is made others lie beside it, whose names begin with its own.
std::string MemoryPath(const std::string& output, int part, int parts);

/// Runs the study to its end: OUTPUT.sqlite, OUTPUT.csv and, for bad rows, OUTPUT_bad.csv; of a part only
/// OUTPUT.part-I-of-N.sqlite. The same study gives the same bytes, however often it was stopped and on how many
/// threads.
std::variant<RunOutcome, FileError> RunStudy(const Study& study, const RunOptions& options);

/// Joins the parts of a study, all of which must be whole, to the files that RunStudy gives. @param options  its Part
/// and Parts are not looked at: the files in the folder tell how many there are
std::variant<RunOutcome, FileError> MergeParts(const Study& study, const RunOptions& options);

}  // namespace zirvo::study
