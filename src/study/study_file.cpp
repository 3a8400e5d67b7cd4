// Reading a study, see ReadStudy in study.h. Inside, a FileError is thrown at the
// first finding and caught at the public step.
#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <sstream>

#include "base/runtime_fault.h"
#include "platform/files.h"
#include "solver/check_problem.h"
#include "solver/io/solver_input.h"
#include "study/study.h"
#include "study/study_nodes.h"

namespace zirvo::study {
namespace {

/// Most values of one parameter of a grid: they are held, and more are a slip of the pen.
constexpr std::uint64_t MostValues = 1'000'000;
constexpr double Infinity = std::numeric_limits<double>::infinity();

/// 64 bits of FNV-1a from a given start.
std::uint64_t HashOf(std::string_view bytes, std::uint64_t hash) {
    for (const char c : bytes) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    }
    return hash;
}

std::string DigestOf(const std::vector<std::string>& files) {
    std::uint64_t first = 0xCBF29CE484222325U;
    std::uint64_t second = 0x6C62272E07BB0142U;
    for (const std::string& bytes : files) {
        const std::string part = std::to_string(bytes.size()) + ":" + bytes;
        first = HashOf(part, first);
        second = HashOf(part, second);
    }
    std::ostringstream text;
    text << std::hex << first << '-' << second;
    return text.str();
}

bool IsFullPath(const std::string& path) {
    const bool drive = path.size() > 1 && path[1] == ':';
    return !path.empty() && (path[0] == '/' || path[0] == '\\' || drive);
}

/// Capitals tell no two columns of a database apart.
std::string Lowered(std::string text) {
    for (char& c : text) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return text;
}

class StudyReader : StudyNodes {
public:
    explicit StudyReader(const std::string& path) : StudyNodes(path) { study_.File = path; }

    Study Read() {
        const std::string bytes = BytesOf(study_.File, 0);
        digested_.push_back(bytes);
        const toml::table root = Parse(bytes);
        AllowKeys(root, {"base", "units", "rows", "seed", "table", "vary", "keep"});
        ReadBase(root);
        if (root.contains("table")) {
            ReadTable(root);
        } else {
            study_.What = root.contains("rows") ? Study::Kind::Sample : Study::Kind::Grid;
            ReadVaried(root);
        }
        ReadKept(root);
        CheckNames();
        study_.Digest = DigestOf(digested_);
        return std::move(study_);
    }

private:
    Study study_;
    std::vector<std::string> digested_;

    /// A file that the study names, beside the study where it is no full path.
    std::string PathOf(const std::string& name) const {
        const std::string folder = FolderOf(study_.File);
        return IsFullPath(name) || folder.empty() ? name : JoinPath(folder, name);
    }

    void ReadBase(const toml::table& root) {
        study_.Units = static_cast<solver::UnitSystem>(WholeNumberOf(Required(root, "units"), "units", 1, 3));
        study_.BaseFile = PathOf(TextOf(root, "base"));
        digested_.push_back(BytesOf(study_.BaseFile, LineOf(Required(root, "base"))));
        std::istringstream stream(digested_.back());
        auto read = solver::ReadSolverInput(stream);
        if (auto* error = std::get_if<solver::InputError>(&read)) {
            throw FileError{study_.BaseFile, 0, solver::OneLine(solver::Language::English, "", *error)};
        }
        study_.Base = std::move(std::get<solver::SolverInput>(read).Typed);
    }

    Parameter ParameterNamed(const std::string& name, const std::string& file, long long line) const {
        auto parameter = ParameterOf(name, study_.Base);
        if (auto* reason = std::get_if<std::string>(&parameter)) {
            const bool named = reason->find(name) != std::string::npos;
            throw FileError{file, line,
                            named ? *reason : std::string("\"").append(name).append("\": ").append(*reason)};
        }
        auto& good = std::get<Parameter>(parameter);
        good.Line = line;
        return std::move(good);
    }

    void ReadTable(const toml::table& root) {
        study_.What = Study::Kind::Table;
        for (const char* key : {"rows", "seed", "vary"}) {
            if (const toml::node* node = root.get(key)) {
                Fail(*node, std::string(key) + ": a study takes its rows from a table or varies them itself, not both");
            }
        }
        study_.TableFile = PathOf(TextOf(root, "table"));
        digested_.push_back(BytesOf(study_.TableFile, LineOf(Required(root, "table"))));
        auto read = design::ReadNumberTable(digested_.back(), study_.TableFile, design::BadCells::AreNaN);
        if (auto* error = std::get_if<FileError>(&read)) {
            throw std::move(*error);
        }
        study_.Table = std::move(std::get<design::NumberTable>(read));
        if (study_.Table->Rows() == 0) {
            throw FileError{study_.TableFile, 0, "has no rows: there is nothing to do"};
        }
        for (const std::string& column : study_.Table->Columns) {
            study_.Vary.push_back({ParameterNamed(column, study_.TableFile, 1), {}});
        }
        study_.Rows = study_.Table->Rows();
    }

    void ReadVaried(const toml::table& root) {
        const bool sample = study_.What == Study::Kind::Sample;
        if (sample) {
            study_.Rows = WholeNumberOf(Required(root, "rows"), "rows", 1, MostRows);
            study_.Seed = WholeNumberOf(Required(root, "seed"), "seed", 0, std::numeric_limits<std::int64_t>::max());
        } else if (const toml::node* seed = root.get("seed")) {
            Fail(*seed, "seed: belongs to a sample, which has rows");
        }
        const toml::array& list = TablesOf(root, "vary");
        if (!sample) {
            study_.Rows = 1;
        }
        for (const toml::node& node : list) {
            const toml::table& table = *node.as_table();
            Varied varied{ParameterNamed(TextOf(table, "what"), study_.File, LineOf(Required(table, "what"))), {}};
            if (sample) {
                ReadDistribution(table, varied);
            } else {
                ReadValues(table, varied);
                if (varied.Values.size() > MostRows / study_.Rows) {
                    Fail(table, "the grid has more than " + std::to_string(MostRows) + " rows");
                }
                study_.Rows *= varied.Values.size();
            }
            study_.Vary.push_back(std::move(varied));
        }
        if (sample) {
            JudgeSample();
        }
    }

    void ReadValues(const toml::table& table, Varied& varied) const {
        AllowKeys(table, {"what", "values", "from", "to", "count", "step"});
        if (table.contains("values")) {
            const toml::node& node = Required(table, "values");
            if (!node.is_array()) {
                Fail(node, "values: must be a list of numbers");
            }
            for (const toml::node& value : *node.as_array()) {
                varied.Values.push_back(NumberIn(value, "values"));
            }
            if (varied.Values.empty()) {
                Fail(node, "values: is empty: there is nothing to do");
            }
            if (table.size() != 2) {
                Fail(table, "values stand alone, without from, to, count, step");
            }
        } else {
            ReadRange(table, varied);
        }
        for (const double value : varied.Values) {
            if (const std::string reason = ReasonAgainst(varied.What, value); !reason.empty()) {
                Fail(Required(table, table.contains("values") ? "values" : "from"),
                     varied.What.Name + " " + design::ShortestText(value) + ": " + reason);
            }
        }
    }

    void ReadRange(const toml::table& table, Varied& varied) const {
        const double from = NumberOf(table, "from");
        const double to = NumberOf(table, "to");
        if (table.contains("count") == table.contains("step")) {
            Fail(table, "from and to want either count or step");
        }
        std::uint64_t count = 0;
        if (table.contains("count")) {
            count = WholeNumberOf(Required(table, "count"), "count", 2, MostValues);
        } else {
            const double step = NumberOf(table, "step");
            const double steps = std::floor((to - from) / step * (1 + 1e-12) + 1e-9);
            if (!(steps >= 0 && steps < static_cast<double>(MostRows))) {
                Fail(Required(table, "step"), "step: does not lead from " + design::ShortestText(from) + " to " +
                                                  design::ShortestText(to) + ": there is nothing to do");
            }
            if (steps >= static_cast<double>(MostValues)) {
                Fail(Required(table, "step"), "step: makes more than " + std::to_string(MostValues) + " values");
            }
            count = static_cast<std::uint64_t>(steps) + 1;
            for (std::uint64_t i = 0; i < count; ++i) {
                varied.Values.push_back(from + static_cast<double>(i) * step);
            }
            // Steps that lead to the end are not rounded past it, where no pavement may be.
            if (std::fabs(varied.Values.back() - to) <= 1e-9 * std::fabs(step)) {
                varied.Values.back() = to;
            }
            return;
        }
        for (std::uint64_t i = 0; i < count; ++i) {
            const double share = static_cast<double>(i) / static_cast<double>(count - 1);
            varied.Values.push_back(i + 1 == count ? to : from + share * (to - from));
        }
    }

    void ReadDistribution(const toml::table& table, Varied& varied) const {
        const toml::node& node = Required(table, "distribution");
        const std::string name = TextOf(table, "distribution");
        Distribution spread;
        if (name == "uniform" || name == "triangular") {
            spread.What = name == "uniform" ? Distribution::Kind::Uniform : Distribution::Kind::Triangular;
            if (spread.What == Distribution::Kind::Uniform) {
                AllowKeys(table, {"what", "distribution", "from", "to"});
            } else {
                AllowKeys(table, {"what", "distribution", "from", "mode", "to"});
                spread.Mode = NumberOf(table, "mode");
            }
            spread.From = NumberOf(table, "from");
            spread.To = NumberOf(table, "to");
        } else if (name == "normal" || name == "lognormal") {
            spread.What = name == "normal" ? Distribution::Kind::Normal : Distribution::Kind::Lognormal;
            AllowKeys(table, {"what", "distribution", "mean", "deviation", "lower", "upper"});
            spread.Mean = NumberOf(table, "mean");
            spread.Deviation = NumberOf(table, "deviation");
            spread.Lower = NumberOr(table, "lower", -Infinity);
            spread.Upper = NumberOr(table, "upper", Infinity);
        } else {
            Fail(node, "distribution: " + name + " is none of uniform, triangular, normal, lognormal");
        }
        if (const std::string reason = ReasonAgainst(spread); !reason.empty()) {
            Fail(node, name + " distribution of " + varied.What.Name + ": " + reason);
        }
        varied.Draw = Sampler(spread);
    }

    /// What pavements can have is an interval, and a distribution grows with the share: both ends tell of all between.
    static bool IsGoodUpToItsEnds(const Varied& varied) {
        constexpr double least = std::numeric_limits<double>::epsilon() / 4;  // of EvenNumber
        return ReasonAgainst(varied.What, varied.Draw.At(least)).empty() &&
               ReasonAgainst(varied.What, varied.Draw.At(1)).empty();
    }

    /// The same of the values that the sample draws: the least share and the largest tell of all.
    bool IsGoodInAllRows(std::size_t column) const {
        double least = 1;
        double most = 0;
        for (std::uint64_t row = 0; row < study_.Rows; ++row) {
            const double share = EvenNumber(study_.Seed, row, column);
            least = std::min(least, share);
            most = std::max(most, share);
        }
        const Varied& varied = study_.Vary[column];
        return ReasonAgainst(varied.What, varied.Draw.At(least)).empty() &&
               ReasonAgainst(varied.What, varied.Draw.At(most)).empty();
    }

    /// A distribution that gives what no pavement can have is a fault of the study, not of the rows that it hits.
    void JudgeSample() const {
        for (std::size_t i = 0; i < study_.Vary.size(); ++i) {
            if (IsGoodUpToItsEnds(study_.Vary[i]) || IsGoodInAllRows(i)) {
                continue;
            }
            for (std::uint64_t row = 0; row < study_.Rows; ++row) {
                const double value = study_.Vary[i].Draw.At(EvenNumber(study_.Seed, row, i));
                const std::string reason = ReasonAgainst(study_.Vary[i].What, value);
                if (!reason.empty()) {
                    Fail(study_.Vary[i].What.Line, "the distribution of " + study_.Vary[i].What.Name + " gives " +
                                                       design::ShortestText(value) + " in row " +
                                                       std::to_string(row + 1) + ", which " + reason +
                                                       "; give it a lower and an upper end, or take another one");
                }
            }
        }
    }

    void ReadKept(const toml::table& root) {
        for (const toml::node& node : TablesOf(root, "keep")) {
            const toml::table& table = *node.as_table();
            Kept kept;
            if (table.contains("life")) {
                ReadLife(table, kept);
            } else {
                ReadComponent(table, kept);
            }
            ReadPoints(table, kept);
            if (table.contains("name")) {
                kept.Name = TextOf(table, "name");
                if (kept.Name.empty() || kept.Name.find_first_of(",\"\r\n\t") != std::string::npos) {
                    Fail(Required(table, "name"), "name: must not be empty, and holds no comma and no quote");
                }
            }
            study_.Keep.push_back(std::move(kept));
        }
    }

    void ReadComponent(const toml::table& table, Kept& kept) const {
        AllowKeys(table, {"name", "value", "point", "points", "over"});
        const std::string value = TextOf(table, "value");
        const auto& names = solver::ComponentNames;
        const auto found = std::find(names.begin(), names.end(), value);
        if (found == names.end()) {
            Fail(Required(table, "value"), "value: " + value +
                                               " is no component; there are U, V, W, SIGx to TAUzx, "
                                               "EPSx to GAMzx");
        }
        kept.Component = static_cast<int>(found - names.begin());
        kept.Name = value;
        if (table.contains("over") != table.contains("points")) {
            Fail(table, "points go with over = \"largest\", \"smallest\" or \"largest size\"; point goes alone");
        }
        if (table.contains("over")) {
            const std::string over = TextOf(table, "over");
            kept.What = over == "smallest" ? Kept::Kind::Smallest : Kept::Kind::Largest;
            kept.What = over == "largest size" ? Kept::Kind::LargestSize : kept.What;
            if (over != "largest" && over != "smallest" && over != "largest size") {
                Fail(Required(table, "over"), "over: " + over + " is none of largest, smallest, largest size");
            }
            kept.Name = over + " " + value;
        }
    }

    void ReadLife(const toml::table& table, Kept& kept) const {
        AllowKeys(table, {"name", "life", "point", "points", "c", "voids", "binder"});
        kept.What = Kept::Kind::ShortestLife;
        kept.Name = TextOf(table, "life");
        auto function = design::TransferFunctionOf(kept.Name);
        if (auto* reason = std::get_if<std::string>(&function)) {
            Fail(Required(table, "life"), "life: " + *reason);
        }
        kept.Function = std::get<design::TransferFunction>(function);
        kept.MixFactor = NumberOr(table, "c", 1);
        if (table.contains("voids") || table.contains("binder")) {
            const double voids = NumberOf(table, "voids");
            const double binder = NumberOf(table, "binder");
            if (!(voids >= 0 && binder > 0 && voids + binder <= 100) || table.contains("c")) {
                Fail(table, "voids and binder are percents of the volume, together at most 100, and stand for c");
            }
            kept.MixFactor = design::MixFactor(voids, binder);
        }
        if (!(kept.MixFactor > 0)) {
            Fail(Required(table, "c"), "c: is not above 0");
        }
    }

    void ReadPoints(const toml::table& table, Kept& kept) const {
        if (table.contains("point") == table.contains("points")) {
            Fail(table, "either point or points of the pavement is wanted");
        }
        const std::size_t count = study_.Base.Points.size();
        const auto add = [&](const toml::node& node, const char* key) {
            const auto number = node.value<std::int64_t>();
            if (!node.is_integer() || *number < 1 || static_cast<std::uint64_t>(*number) > count) {
                Fail(node, std::string(key) + ": " + (number ? std::to_string(*number) : "this") + " is no point of " +
                               study_.BaseFile + ", which has " + std::to_string(count));
            }
            kept.Points.push_back(static_cast<std::size_t>(*number) - 1);
        };
        if (table.contains("point")) {
            add(Required(table, "point"), "point");
            kept.Name.append(" ").append(std::to_string(kept.Points[0] + 1));
            return;
        }
        const toml::node& node = Required(table, "points");
        if (!node.is_array() || node.as_array()->empty()) {
            Fail(node, "points: must be a list of numbers of points");
        }
        for (const toml::node& point : *node.as_array()) {
            add(point, "points");
        }
    }

    /// Every column of the results has a name of its own.
    void CheckNames() const {
        std::vector<std::string> names{"row"};
        for (const Varied& varied : study_.Vary) {
            names.push_back(Lowered(varied.What.Name));
        }
        const std::size_t first = names.size();
        for (const Kept& kept : study_.Keep) {
            names.push_back(Lowered(kept.Name));
        }
        for (std::size_t i = 1; i < names.size(); ++i) {
            if (std::find(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(i), names[i]) !=
                names.begin() + static_cast<std::ptrdiff_t>(i)) {
                Fail(i < first ? study_.Vary[i - 1].What.Line : 0,
                     "two columns of the results are named " +
                         (i < first ? study_.Vary[i - 1].What.Name : study_.Keep[i - first].Name) +
                         (i < first ? "" : "; a name = \"...\" under [[keep]] tells them apart"));
            }
        }
    }
};

}  // namespace

std::variant<Study, FileError> ReadStudy(const std::string& path) {
    try {
        return StudyReader(path).Read();
    } catch (const FileError& error) {
        return error;
    }
}

}  // namespace zirvo::study
