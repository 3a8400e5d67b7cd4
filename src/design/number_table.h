// Comma-separated tables of numbers: one heading row, then rows of as many numbers; lines that begin with "#" and empty
// lines are passed over. Callers: gears of one's own, tables of axle loads, tables of studies.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zirvo::design {

/// What is wrong with a file, and where.
struct FileError {
    std::string File;
    long long Line = 0;  ///< 1-based; 0 where no line is meant
    std::string Reason;

    /// "gear.csv:3: share 0: is not above 0".
    std::string Text() const;
};

struct NumberTable {
    std::vector<std::string> Columns;  ///< the headings without blanks around them
    std::vector<double> Numbers;       ///< row after row
    std::vector<long long> Lines;      ///< of each row

    std::size_t Rows() const { return Lines.size(); }
    double At(std::size_t row, std::size_t column) const { return Numbers[row * Columns.size() + column]; }
    /// The place of a column.
    std::optional<std::size_t> Find(std::string_view column) const;
};

/// What becomes of a cell that holds no number: the end of the reading, or NaN, so that its row alone is lost.
enum class BadCells { Refuse, AreNaN };

/// The table of a file in UTF-8; a line may end with CR LF or LF. A row of another length than the heading is an error.
std::variant<NumberTable, FileError> ReadNumberTable(const std::string& path, BadCells badCells = BadCells::Refuse);

/// The same of bytes at hand; `file` is for the messages.
std::variant<NumberTable, FileError> ReadNumberTable(std::string_view bytes, const std::string& file,
                                                     BadCells badCells);

/// The whole text as a number: sign, digits, point, exponent with E, D, e or d, blanks around it.
std::optional<double> NumberOfText(std::string_view text);

/// The shortest text that reads back as the same number; "inf", "-inf", "nan" for what is none.
std::string ShortestText(double x);
void AppendShortest(std::string& out, double x);

}  // namespace zirvo::design
