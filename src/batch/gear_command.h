// `zirvo-batch gear`: standard axles and aircraft gears as load lines. Callers: the command line, main.
#pragma once
#include <string>

#include "base/int16.h"
#include "batch/console.h"
#include "design/gears.h"

namespace CLI {
class App;
}

namespace zirvo::batch {

struct GearRequest {
    bool List = false;
    std::string Name;     ///< of the catalogue; empty where wheels come from a file
    std::string OwnFile;  ///< wheels of one's own
    design::GearFit Fit;
    solver::UnitSystem Units = solver::UnitSystem::KnToMpa;
    std::string Into;    ///< file whose loads are replaced; empty for lines on standard output
    std::string Output;  ///< file that takes the whole
    Int16 LanguageBase = 0;
};

/// The options that `gear` has.
class GearOptions {
public:
    void AddTo(CLI::App& command);

    /// Why the options do not go together; empty if they do.
    std::string Contradiction() const;

    GearRequest Read() const;

private:
    bool list_ = false;
    std::string name_;
    std::string ownFile_;
    std::string units_;
    std::string load_, pressure_, radius_;
    std::string spacing_, axleSpacing_, track_;
    std::string at_ = "0,0";
    std::string angle_ = "0";
    std::string into_;
    std::string output_;
    std::string language_ = "en";
};

/// Prints the catalogue, or the load lines of a gear byte for byte as ".eva" and ".ven" have them, or writes a file
/// with these loads in place of its own. The input is judged as `check` does; the output is written whole or not at
/// all.
ExitCode RunGear(const GearRequest& request, Console& console);

}  // namespace zirvo::batch
