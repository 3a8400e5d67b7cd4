// Numbers of a solver input, row by row: by fields, and cut at the columns of the writer where two numbers touch.
// Caller: the input reader.
//
// What a row is   Numbers separated by blanks, tabs, commas or line ends; it may go on over several lines.
// Cutting         Nothing separates the columns of the writer, so a number that fills its column touches the one before
//                 it. A line that begins a row, has fewer fields than the row, and is exactly as long as a full row, is
//                 cut at the columns, if each piece then holds one number.
// Too long        A line longer than a full row, with too few fields, one of which is longer than the column behind it,
//                 holds touching numbers that no rule can part. It is refused, since "35000" and "0.333333333333333"
//                 read together would be a number too.
// Memory          No more than one line of a full row's length and one field are held, however long the file is.
#pragma once
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "text/text_fields.h"

namespace zirvo::solver {

/// The longest row has six numbers.
inline constexpr std::size_t LongestRow = 6;

class RowReader {
public:
    /// The stream must outlive this object and be open in binary mode.
    explicit RowReader(std::istream& input);

    enum class Status {
        Read,
        End,      ///< the file has ended
        TooLong,  ///< a text beyond LongestField
        Touching  ///< see above; the field is the one in question
    };

    /// A whole line as raw bytes without its end. A last line without an end is no line but End: what it holds may be
    /// half of what was meant.
    Status ReadNameLine(std::string& bytes);

    /// Passes over a whole line, however long.
    Status SkipLine();

    /// Passes over one text field: to the next comma or line end, quoted or not.
    Status SkipTextField();

    /// Begins a row of numbers with the columns of its writer.
    void BeginRow(std::span<const std::size_t> widths);

    /// The next number of the row as text; valid until the next call. Whether it reads as a number is for the caller.
    Status NextField(std::string_view& field);

    /// Line on which the row or text that was read last begins, 1-based.
    long long Line() const { return rowLine_; }

    /// The place of the field that Touching tells of, from 0.
    std::size_t TouchingField() const { return touchingField_; }

private:
    TextStream stream_;
    std::string held_;  // the line that begins a row, as far as it was looked at
    std::size_t heldPosition_ = 0;
    bool lineStart_ = true;
    long long line_ = 1;

    std::span<const std::size_t> widths_;
    std::size_t field_ = 0;
    bool cut_ = false;  // the fields are the pieces of held_
    bool firstLine_ = false;
    bool tooLong_ = false;
    std::string longField_;  // of a too long line: a field that may be two
    std::size_t touchingField_ = 0;
    std::string text_;
    long long rowLine_ = 1;

    int Peek();
    int Next();
    void SkipBlanks();
    bool HoldLine(std::size_t most);
    bool CutsIntoNumbers() const;
    std::string_view Piece(std::size_t field) const;
    Status ReadFieldText();
};

/// The number that a field is as a whole: sign, digits, point, exponent with E, D, e or d. False if it is none. Beyond
/// a double it is the largest one.
bool ReadNumber(std::string_view field, double& value);

/// A sign and digits, nothing else; false otherwise. Beyond 64 bits it is the largest such number.
bool ReadInteger(std::string_view field, long long& value);

}  // namespace zirvo::solver
