// The text of a report in the making: code page 932, lines ended by CR LF. Callers: the reports.
#pragma once
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "solver/io/words.h"

namespace zirvo::solver {

/// A text of a table's line and the columns that it has there.
struct Cell {
    std::string Text;  ///< UTF-8
    std::size_t Width;
};

class ReportText {
public:
    explicit ReportText(Language language) : language_(language) {}

    Language Words() const { return language_; }

    /// Three blanks and the text.
    void Line(std::string_view text);

    /// Three blanks and the word, with what stands for %1, %2 in it.
    void Line(Word word, std::initializer_list<std::string_view> arguments = {});

    void EmptyLine();

    /// Three blanks, then the character up to the column.
    void Rule(char character, std::size_t lastColumn);

    /// The texts, each right-justified in its columns. A double-width character takes two.
    void Cells(std::span<const Cell> cells);

    /// The texts, each with one blank in front and one behind, the rest of its columns filled with "-". The line begins
    /// with three blanks, which belong to the first of them.
    void GroupHeading(std::span<const Cell> cells);

    /// Room for more lines of one length, filled with blanks; their ends are written. Gives the first character of the
    /// first line; the next one begins `width` + 2 behind. Valid until the next line is added.
    char* Rows(std::size_t count, std::size_t width);

    /// Lines as they stand, of single-width characters, their ends included.
    void WholeLines(std::string_view lines) { bytes_ += lines; }

    /// All bytes so far; nothing is left.
    std::string Take() { return std::move(bytes_); }

private:
    Language language_;
    std::string bytes_;
};

}  // namespace zirvo::solver
