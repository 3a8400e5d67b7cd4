// What holds of a data file that has been read: it is written and read back as the same data. Callers: the fuzzers of
// both input files.
#pragma once
#include <cstddef>
#include <span>
#include <sstream>
#include <string>
#include <string_view>

#include "pavement/data_findings.h"
#include "pavement/input_result.h"
#include "support/fuzzing.h"
#include "text/number_text.h"

namespace zirvo::fuzz {

/// What the texts of a file's numbers say about reading them back.
struct WrittenNumbers {
    bool Exact = true;    ///< each text stands for the very number that it was made from
    bool Apart = true;    ///< no number fills its column, so that none touches the one before it
    bool InFirst = true;  ///< the first of each row is no longer than its column either, as the solvers' reader cuts it

    void Add(double value, std::size_t column, std::size_t width) {
        const std::string text = FormatNumberText(value);
        Exact = Exact && ParseNumberPrefix(text) == value;
        Apart = Apart && (column == 0 || text.size() < width);
        InFirst = InFirst && text.size() <= width;
    }

    template <class Row, std::size_t Columns>
    void AddRow(const Row& row, const std::array<double Row::*, Columns>& fields, std::size_t count,
                const std::array<std::size_t, Columns>& widths) {
        for (std::size_t c = 0; c < count; ++c) {
            Add(row.*fields[c], c, widths[c]);
        }
    }
};

/// Both readings of one file agree: the import passes exactly where the check finds nothing, and what stopped the
/// import is the first thing that the check finds.
template <class Result>
void RequireSameJudgement(const Result& read, std::span<const Finding> findings) {
    Require(read.Passed() == findings.empty(), "import and check agree on the file");
    for (const Finding& finding : findings) {
        Require(!FindingText(finding).empty() && !finding.Reason.empty(), "each finding says what is wrong");
    }
    if (!read.Passed()) {
        Require(read.Failure().First == findings.front(), "the import stops where the check finds the first failure");
    }
}

/// @param write  the bytes of a file of such data
/// @param read   the result of such bytes
template <class Data, class Write, class Read>
void RequireRoundTrip(const Data& data, const WrittenNumbers& numbers, Write write, Read read) {
    const std::string bytes = write(data);
    const auto again = read(bytes);
    if (!numbers.Apart) {
        return;  // the format is kept so
    }
    if (numbers.Exact) {
        Require(again.Passed(), "what was read is written so that it reads");
        Require(*again == data, "what was read is written and read as the same");
    } else if (again.Passed()) {
        RequireEqual(write(*again), bytes, "numbers of 15 digits are written and read as the same");
    } else {
        // Only a depth can leave its layer by the rounding of its own digits or of the thicknesses above it.
        Require(again.Failure().Error == InputError::PointInvalid,
                "numbers of 15 digits are as good as the longer ones");
    }
}

}  // namespace zirvo::fuzz
