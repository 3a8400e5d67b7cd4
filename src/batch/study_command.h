// `zirvo-batch study`: thousands of pavements from one, on all cores or in parts. Callers: the command line, main.
#pragma once
#include <string>
#include <vector>

#include "batch/console.h"

namespace CLI {
class App;
}

namespace zirvo::batch {

/// A chart of the results; no chart where Picture is empty.
struct PlotRequest {
    std::string Picture;  ///< .svg or .png
    std::string X;        ///< a column; empty for a histogram
    std::string Y;        ///< a column, or that of the histogram
    std::string Lines;    ///< a column with a line for each of its values; empty for one line
    std::vector<std::pair<std::string, double>> Where;  ///< only rows with these values
    bool LogX = false;
    bool LogY = false;
    int Bins = 0;  ///< of a histogram; 0: as many as fit the count
    int PixelsWide = 800;
    int PixelsHigh = 560;
};

struct StudyRequest {
    std::string File;
    std::string Output;  ///< without its end; beside the study, by its name, if empty
    int Threads = 0;
    int Part = 0;  ///< 1 to Parts; 0: the whole
    int Parts = 0;
    bool Merge = false;
    PlotRequest Plot;
};

/// The options that `study` has.
class StudyOptions {
public:
    void AddTo(CLI::App& command);

    /// Why the options do not go together; empty if they do.
    std::string Contradiction() const;

    StudyRequest Read() const;

private:
    std::string file_;
    std::string output_;
    std::string threads_;
    std::string part_;
    bool merge_ = false;
    std::string picture_;
    std::string x_, y_, histogram_, lines_;
    std::vector<std::string> where_;
    std::string log_;
    std::string bins_;
    std::string size_ = "800x560";
};

/// Runs the study, goes on with it, or joins its parts; then draws what is asked for. The results are those of any
/// other run of the same study, byte for byte. Bad rows are kept apart and told; they are no failure.
ExitCode RunStudy(const StudyRequest& request, Console& console);

}  // namespace zirvo::batch
