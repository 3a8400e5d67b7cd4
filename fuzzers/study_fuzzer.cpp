// Study files and the table beside one, over a road that stands: a study or what is wrong with it, and the values of
// its rows where it is one.
#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <iterator>
#include <string>
#include <variant>
#include <vector>

#include "study/study.h"
#include "support/fuzzing.h"
#include "support/work_folder.h"

namespace zirvo::fuzz {
namespace {

using study::Study;

/// What parts the study from its table in an input.
constexpr std::string_view TableBegins = "\n%%%\n";

const std::string& Road() {
    static const std::string bytes = [] {
        std::ifstream file(std::string(ZIRVO_SAMPLES) + "/road.eva", std::ios::binary);
        Require(file.is_open(), "the samples are there");
        return std::string(std::istreambuf_iterator<char>(file), {});
    }();
    return bytes;
}

void RequireDrawn(const study::Distribution& spread, double value) {
    using Kind = study::Distribution::Kind;
    const bool ends = spread.What == Kind::Uniform || spread.What == Kind::Triangular;
    const double lower = ends ? spread.From : spread.Lower;
    const double upper = ends ? spread.To : spread.Upper;
    const double rounding = 1e-12 * std::max(std::fabs(value), std::isfinite(lower) ? std::fabs(lower) : 0);
    Require(value >= lower - rounding && value <= upper + rounding, "a value is drawn between the ends");
}

void RequireRows(const Study& study) {
    Require(study.Rows >= 1 && study.Rows <= study::MostRows, "a study has rows");
    std::vector<double> values;
    for (const std::uint64_t row : {std::uint64_t{0}, study.Rows / 2, study.Rows - 1}) {
        study.ValuesOf(row, values);
        Require(values.size() == study.Vary.size(), "each row has a value of each parameter");
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (study.What == Study::Kind::Table) {
                continue;  // a cell may hold no number
            }
            Require(std::isfinite(values[i]) && study::ReasonAgainst(study.Vary[i].What, values[i]).empty(),
                    "what varies is what a pavement can have");
            if (study.What == Study::Kind::Sample) {
                RequireDrawn(study.Vary[i].Draw.Of(), values[i]);
            }
        }
    }
    for (const study::Varied& varied : study.Vary) {
        Require(!study.LabelOf(varied).empty(), "each column has a name");
    }
    for (const study::Kept& kept : study.Keep) {
        Require(!study.LabelOf(kept).empty() && !kept.Points.empty(), "what is kept is kept of a point");
    }
}

}  // namespace

const int LongestRun = 5;

void RunInput(std::string_view input) {
    EmptyWorkFolder();
    const std::size_t table = std::min(input.find(TableBegins), input.size());
    PutFile("road.eva", Road());
    PutFile("s.toml", input.substr(0, table));
    PutFile("t.csv", input.substr(std::min(table + TableBegins.size(), input.size())));
    const auto read = study::ReadStudy("s.toml");
    if (const auto* error = std::get_if<design::FileError>(&read)) {
        Require(!error->File.empty() && !error->Reason.empty(), "what is wrong is said with its file");
        return;
    }
    const auto& study = std::get<Study>(read);
    RequireRows(study);
    const auto again = study::ReadStudy("s.toml");
    Require(std::holds_alternative<Study>(again) && std::get<Study>(again).Digest == study.Digest,
            "a study is known by its bytes");
}

}  // namespace zirvo::fuzz
