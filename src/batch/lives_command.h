// `zirvo-batch lives`: fatigue and rutting lives from the strains at given points. Callers: the command line, main.
#pragma once
#include <string>
#include <vector>

#include "batch/console.h"
#include "design/lives.h"
#include "solver/io/unit_systems.h"

namespace CLI {
class App;
}

namespace zirvo::batch {

/// One transfer function at some points of the file.
struct LifeAtPoints {
    design::TransferFunction Function;
    std::vector<int> Points;  ///< 1-based
};

struct LivesRequest {
    bool List = false;
    std::string File;
    solver::UnitSystem Units = solver::UnitSystem::KgfToKgf;
    std::vector<LifeAtPoints> Lives;
    double MixFactor = 1;
    std::string AxleFile;        ///< table of axle loads; empty for the loads of the file alone
    bool KeepsPressure = false;  ///< an axle of another load has other radii, else other pressures
    std::string CsvFile;         ///< standard output if empty
};

/// The options that `lives` has.
class LivesOptions {
public:
    void AddTo(CLI::App& command);

    /// Why the options do not go together; empty if they do.
    std::string Contradiction() const;

    LivesRequest Read() const;

private:
    bool list_ = false;
    std::string file_;
    std::string units_;
    std::vector<std::string> lives_;
    std::string mixFactor_, airVoids_, binder_;
    std::string axleFile_;
    std::string keep_ = "radius";
    std::string csvFile_;
};

/// Solves the file as `solve` does and prints a row for each function at each of its points, for each axle load where
/// there is a table of them, with the sum of the damage behind it.
ExitCode RunLives(const LivesRequest& request, Console& console);

}  // namespace zirvo::batch
