// The command line, see command_line.h.
#include "batch/command_line.h"

#include <algorithm>
#include <sstream>

#include <CLI/CLI.hpp>

#include "batch/option_texts.h"
#include "solver/io/report_names.h"
#include "text/catalogue.h"
#include "text/file_helpers.h"
#include "text/version_stamp.h"

namespace zirvo::batch {
namespace {

constexpr const char* GraphicsExtension = ".ven";
constexpr const char* FileHelp = "Analysis input file (.eva)";
constexpr const char* UnitsHelp =
    "Units: 1 kgf, kgf/cm2, cm in and kgf/cm2, cm out; 2 the same in and MPa, cm out; 3 kN, MPa, cm in and MPa, cm out";

std::string JudgeInputExtension(const std::string& file) {
    return HasExtension(file, GraphicsExtension) || HasExtension(file, ".eva")
               ? ""
               : file + " is neither an analysis input file (.eva) nor a graphics input file (.ven)";
}

/// What the rules of a name inside the file cannot protect: the solver run writes work files and reports beside the
/// input, and only an input with its own extension is never one of them.
std::string JudgeExtension(const std::string& file) {
    return HasExtension(file, ".eva") ? ""
                                      : file + " is no analysis input file (.eva), the only kind that can be analysed";
}

std::string JudgeGraphicsExtension(const std::string& file) {
    return HasExtension(file, GraphicsExtension)
               ? ""
               : file + " is no graphics input file (.ven), the only kind that a map is drawn from";
}

/// The command line as CLI11 fills it in.
class Parser {
public:
    Parser();
    Request Read(const std::vector<std::string>& arguments, Console& console);

private:
    CLI::App app_;
    CLI::App* solve_;
    CLI::App* analyze_;
    CLI::App* map_;
    CLI::App* check_;
    CLI::App* gear_;
    CLI::App* lives_;
    CLI::App* study_;
    bool quiet_ = false;
    std::string file_;
    std::string units_;
    std::string language_;
    std::string threads_;
    SolveRequest solveRequest_;
    MapOptions mapOptions_;
    GearOptions gearOptions_;
    LivesOptions livesOptions_;
    StudyOptions studyOptions_;

    CLI::App* AddCommand(const char* name, const char* description, bool takesFile = true);
    void AddCommonFlags(CLI::App& app);
    void AddUnits(CLI::App& app);
    void AddLanguage(CLI::App& app, const char* description);
    std::string ReasonAgainstCommand(const std::vector<std::string>& arguments) const;
    Request MapRequestOf(Console& console) const;
    Request RequestOf(Console& console);
};

Parser::Parser()
    : app_("Structural analysis of layered pavements without a screen", "zirvo-batch"),
      solve_(AddCommand("solve", "Print all results at full precision")),
      analyze_(AddCommand("analyze", "Write reports and comma copies beside the file, as the ANALYZE button does")),
      map_(AddCommand("map", "Draw the strains of a section as a contour map")),
      check_(AddCommand("check", "Name every row and value that breaks a rule")),
      gear_(AddCommand("gear", "Standard axles and aircraft gears as load lines", false)),
      lives_(AddCommand("lives", "Fatigue and rutting lives from the strains at points", false)),
      study_(AddCommand("study", "Thousands of pavements from one: what varies, what is kept, a chart of it", false)) {
    AddCommonFlags(app_);
    app_.require_subcommand(1);
    app_.footer("Exit codes: 0 done, 1 bad input, 2 wrong usage, 130 interrupted (143 by a request to end).");

    AddUnits(*solve_);
    solve_->add_option("--csv", solveRequest_.CsvFile, "File for the results, in place of standard output")
        ->type_name("OUT.csv");
    solve_->add_option("--threads", threads_, "Number of threads; all that the machine has if not given")
        ->check(JudgeThreads)
        ->type_name("N");
    solve_->add_flag("--estimates", solveRequest_.Estimates,
                     "Add three columns: bounds of the relative errors of displacements, stresses, strains");

    AddUnits(*analyze_);
    AddLanguage(*analyze_, "Language of the reports");
    analyze_->get_option("FILE")->check(JudgeExtension);

    AddUnits(*map_);
    AddLanguage(*map_, "Language of the work files and of what is told; the map looks the same");
    mapOptions_.AddTo(*map_);
    map_->get_option("FILE")->check(JudgeGraphicsExtension)->description("Graphics input file (.ven)");

    check_->get_option("FILE")
        ->check(JudgeInputExtension)
        ->description("Analysis (.eva) or graphics (.ven) input file");

    gearOptions_.AddTo(*gear_);
    livesOptions_.AddTo(*lives_);
    studyOptions_.AddTo(*study_);
}

CLI::App* Parser::AddCommand(const char* name, const char* description, bool takesFile) {
    CLI::App* command = app_.add_subcommand(name, description);
    AddCommonFlags(*command);
    if (takesFile) {
        command->add_option("FILE", file_, FileHelp)->required()->type_name("");
    }
    return command;
}

void Parser::AddCommonFlags(CLI::App& app) {
    app.allow_windows_style_options(false);  // "/data/road.ven" is a file
    app.set_help_flag("-h,--help", "Print this help");
    app.set_version_flag("--version", "zirvo-batch " + MakeVersionStamp(0), "Print the version");
    app.add_flag("--quiet", quiet_, "No progress and no notes on standard error");
}

void Parser::AddUnits(CLI::App& app) {
    app.add_option("--units", units_, UnitsHelp)
        ->required()
        ->check(CLI::IsMember({"1", "2", "3"}).description(""))
        ->type_name("1|2|3");
}

void Parser::AddLanguage(CLI::App& app, const char* description) {
    app.add_option("--language", language_, description)
        ->required()
        ->check(CLI::IsMember({"ja", "en"}).description(""))
        ->type_name("ja|en");
}

/// The request that the options of a command make, or nothing to do where they do not go together.
template <class Options>
Request RequestOfOptions(const Options& options, Console& console) {
    if (const std::string reason = options.Contradiction(); !reason.empty()) {
        console.Complain("", reason);
        return NothingToDo{ExitCode::WrongUsage};
    }
    return options.Read();
}

Request Parser::MapRequestOf(Console& console) const {
    if (const std::string reason = mapOptions_.Contradiction(file_); !reason.empty()) {
        console.Complain("", reason);
        return NothingToDo{ExitCode::WrongUsage};
    }
    MapRequest request = mapOptions_.Read();
    request.File = file_;
    request.Units = zirvo::UnitSystemOf(CountOf(units_, 3));
    request.LanguageBase = language_ == "ja" ? JapaneseBase : EnglishBase;
    return request;
}

Request Parser::RequestOf(Console& console) {
    const int units = CountOf(units_, 3);
    if (*analyze_) {
        return AnalyzeRequest{file_, zirvo::UnitSystemOf(units), language_ == "ja" ? JapaneseBase : EnglishBase};
    }
    if (*map_) {
        return MapRequestOf(console);
    }
    if (*gear_) {
        return RequestOfOptions(gearOptions_, console);
    }
    if (*lives_) {
        return RequestOfOptions(livesOptions_, console);
    }
    if (*study_) {
        return RequestOfOptions(studyOptions_, console);
    }
    if (*check_) {
        return CheckRequest{file_, HasExtension(file_, GraphicsExtension)};
    }
    solveRequest_.File = file_;
    solveRequest_.Units = static_cast<solver::UnitSystem>(units);
    solveRequest_.Threads = CountOf(threads_, HighestThreadCount);
    if (!solveRequest_.CsvFile.empty() && solver::IsSameFile(solveRequest_.CsvFile, file_)) {
        console.Complain("--csv", file_ + " is the input, and would be lost");
        return NothingToDo{ExitCode::WrongUsage};
    }
    return solveRequest_;
}

/// What is wrong with the command where something else stands in its place; empty where nothing does.
std::string Parser::ReasonAgainstCommand(const std::vector<std::string>& arguments) const {
    const auto given = std::find_if(arguments.begin(), arguments.end(),
                                    [](const std::string& text) { return text.empty() || text.front() != '-'; });
    if (given == arguments.end()) {
        return "";
    }
    std::string names;
    for (const CLI::App* command : app_.get_subcommands([](const CLI::App*) { return true; })) {
        if (command->get_name() == *given) {
            return "";
        }
        names.append(names.empty() ? "" : ", ").append(command->get_name());
    }
    return *given + " is no command; there are " + names;
}

Request Parser::Read(const std::vector<std::string>& arguments, Console& console) {
    try {
        // The last one first is what the parser asks for.
        app_.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError& answer) {
        std::ostringstream out;
        std::ostringstream messages;
        if (app_.exit(answer, out, messages) == 0) {  // help and version
            return NothingToDo{console.Output(out.str())};
        }
        std::string text = messages.str();
        text.erase(text.find_last_not_of('\n') + 1);
        const std::string reason = ReasonAgainstCommand(arguments);
        console.Complain("", reason.empty() ? text : reason);
        return NothingToDo{ExitCode::WrongUsage};
    }
    if (quiet_) {
        console.BeQuiet();
    }
    return RequestOf(console);
}

}  // namespace

Request ReadCommandLine(const std::vector<std::string>& arguments, Console& console) {
    return Parser().Read(arguments, console);
}

}  // namespace zirvo::batch
