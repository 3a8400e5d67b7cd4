// What the real programs do for a user, each thing with its files: for the tests that let it fail and that kill it.
#pragma once
#include <map>
#include <string>
#include <vector>

namespace zirvo::test {

using WorkFiles = std::map<std::string, std::string>;

/// In a result before the work is done.
inline constexpr const char* OldBytes = "old\r\n";

struct Work {
    std::string Program = "zirvo-batch";
    std::vector<std::string> Line;
    WorkFiles Input;                        ///< stays as it is
    std::vector<std::string> Results;       ///< lie there from an earlier run
    std::vector<std::string> Memories{};    ///< what the next run goes on from, whatever state it is left in
    std::vector<std::string> LineBehind{};  ///< what is run when the work is done, if anything
    std::vector<std::string> FinalFiles{};  ///< what is then there besides, the same bytes however often it failed
    bool SolverReports = false;             ///< the results are a solver's: a failure is said in them
    int CallsApart = 1;                     ///< every call fails in turn, or every third one and so on
    int TroublesOfEach = 5;                 ///< so many of the five ways to fail at each call, other ones at the next

    /// As the system knows a running program.
    std::string ProcessName() const { return Program.substr(0, 15); }
};

Work AnalyzeWork();
Work SolveWork();
Work CheckWork();
Work CheckMapWork();
Work GearWork();
Work LivesWork();
Work StudyWork();
Work AnalysisSolverWork();
Work SectionSolverWork();
/// What draws: only where there is Qt.
Work MapWork();
Work ChartWork();

/// The part of a study, and the joining of its two parts. They need the parts, which zirvo-batch makes first.
Work PartWork();
Work MergeWork();

}  // namespace zirvo::test
