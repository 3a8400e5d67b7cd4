// Rows that have been worked on, some at a time. Callers: the threads that make them, the memory and the results that
// take them.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace zirvo::study {

/// The rows [First, Last) of a study, from 0.
struct RowRange {
    std::uint64_t First = 0;
    std::uint64_t Last = 0;
    std::uint64_t Count() const { return Last - First; }
    bool operator==(const RowRange&) const = default;
};

/// A row that cannot be solved.
struct BadRow {
    std::uint64_t Row = 0;       ///< from 0
    std::vector<double> Values;  ///< of the parameters
    std::string Reason;
};

/// Rows that follow one another.
struct Block {
    RowRange Range;
    std::vector<double> Numbers;  ///< of each good row its number from 1, its parameters, what is kept
    std::string Lines;            ///< the same as lines of a table
    std::vector<BadRow> Bad;
};

}  // namespace zirvo::study
