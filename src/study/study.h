// A study: a pavement, what of it varies from row to row, and what is kept of each row's results.
// Callers: `zirvo-batch study`.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "design/lives.h"
#include "design/number_table.h"
#include "solver/io/unit_systems.h"
#include "study/parameters.h"
#include "study/sampling.h"

namespace zirvo::study {

using design::FileError;

/// One thing that is kept of each row: a column of the results.
struct Kept {
    enum class Kind { Largest, Smallest, LargestSize, ShortestLife };

    std::string Name;
    Kind What = Kind::Largest;            ///< over the points; of one point they are all the same
    int Component = 0;                    ///< of solver::Component
    design::TransferFunction Function{};  ///< of a life
    double MixFactor = 1;
    std::vector<std::size_t> Points{};  ///< from 0
};

/// What varies: a parameter with the values of a grid or the distribution of a sample.
struct Varied {
    Parameter What;
    std::vector<double> Values;
    Sampler Draw{};  ///< of a sample
};

struct Study {
    std::string File;      ///< as the user named it
    std::string BaseFile;  ///< of the pavement
    solver::UnitSystem Units = solver::UnitSystem::KnToMpa;
    solver::Problem Base;  ///< with the numbers as they are typed
    enum class Kind { Grid, Table, Sample } What = Kind::Grid;
    std::vector<Varied> Vary;
    std::optional<design::NumberTable> Table;  ///< its columns are those of Vary, in their order
    std::string TableFile;
    std::uint64_t Seed = 0;
    std::uint64_t Rows = 0;
    std::vector<Kept> Keep;
    /// Tells this study from every other one: of the bytes of its files.
    std::string Digest;

    /// The values of a row, in the order of Vary. @param row  from 0
    void ValuesOf(std::uint64_t row, std::vector<double>& values) const;
    /// "layer 1 thickness [cm]", with the unit where there is one.
    std::string LabelOf(const Varied& varied) const;
    std::string LabelOf(const Kept& kept) const;
};

/// Most rows of a study: more are a slip of the pen.
inline constexpr std::uint64_t MostRows = 1'000'000'000;

/// Reads a study with its pavement and its table, which lie beside it where their names are no full paths. The first
/// thing that is wrong is the error, with the line that it stands on.
std::variant<Study, FileError> ReadStudy(const std::string& path);

}  // namespace zirvo::study
