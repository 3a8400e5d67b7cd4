// The row reader: see its header for the rules. Called by the input reader.
#include "solver/io/row_reader.h"

#include <charconv>
#include <limits>
#include <numeric>

#include "text/number_grammar.h"

namespace zirvo::solver {
namespace {

constexpr int End = TextStream::End;

bool IsBlank(int c) {
    return c == ' ' || c == '\t';
}
bool EndsField(int c) {
    return IsBlank(c) || c == ',' || c == '\n' || c == End;
}

std::size_t CountFields(std::string_view line) {
    std::size_t count = 0;
    bool inside = false;
    for (const char c : line) {
        const bool ends = EndsField(static_cast<unsigned char>(c));
        count += !ends && !inside ? 1 : 0;
        inside = !ends;
    }
    return count;
}

std::string_view WithoutLineEnd(std::string_view line) {
    if (!line.empty() && line.back() == '\n') {
        line.remove_suffix(1);
    }
    return line;
}

}  // namespace

RowReader::RowReader(std::istream& input) : stream_(input) {}

int RowReader::Peek() {
    return heldPosition_ < held_.size() ? static_cast<unsigned char>(held_[heldPosition_]) : stream_.Peek();
}

int RowReader::Next() {
    const int c = heldPosition_ < held_.size() ? static_cast<unsigned char>(held_[heldPosition_++]) : stream_.Next();
    lineStart_ = c == '\n';
    line_ += lineStart_ ? 1 : 0;
    return c;
}

void RowReader::SkipBlanks() {
    while (IsBlank(Peek())) {
        Next();
    }
}

RowReader::Status RowReader::ReadNameLine(std::string& bytes) {
    bytes.clear();
    rowLine_ = line_;
    for (int c = Next(); c != '\n'; c = Next()) {
        if (c == End) {
            return Status::End;
        }
        if (bytes.size() == LongestField) {
            return Status::TooLong;
        }
        bytes += static_cast<char>(c);
    }
    return Status::Read;
}

RowReader::Status RowReader::SkipLine() {
    rowLine_ = line_;
    if (Peek() == End) {
        return Status::End;
    }
    for (int c = Next(); c != '\n' && c != End; c = Next()) {
    }
    return Status::Read;
}

RowReader::Status RowReader::SkipTextField() {
    rowLine_ = line_;
    if (Peek() == End) {
        return Status::End;
    }
    SkipBlanks();
    int c = Next();
    if (c == '"') {
        for (c = Next(); c != '"' && c != '\n' && c != End; c = Next()) {
        }
    }
    while (c != ',' && c != '\n' && c != End) {
        c = Next();
    }
    return Status::Read;
}

/// Takes the next line into held_, at most `most` characters of it with its end. A blank line is dropped, however long
/// it is, and gives false.
bool RowReader::HoldLine(std::size_t most) {
    held_.clear();
    heldPosition_ = 0;
    bool blank = true;
    for (int c = 0; held_.size() < most && c != '\n';) {
        c = stream_.Next();
        if (c == End) {
            break;
        }
        held_ += static_cast<char>(c);
        blank = blank && (IsBlank(c) || c == '\n');
    }
    if (!blank) {
        return true;
    }
    if (WithoutLineEnd(held_).size() == held_.size()) {  // blanks that go on, or the end of the file
        while (IsBlank(stream_.Peek())) {
            stream_.Next();
        }
        if (stream_.Peek() != '\n') {
            return true;
        }
        stream_.Next();
    }
    held_.clear();
    ++line_;
    return false;
}

std::string_view RowReader::Piece(std::size_t field) const {
    const std::size_t first =
        std::accumulate(widths_.begin(), widths_.begin() + static_cast<std::ptrdiff_t>(field), std::size_t{0});
    std::string_view piece = std::string_view(held_).substr(first, widths_[field]);
    piece.remove_prefix(std::min(piece.find_first_not_of(' '), piece.size()));
    piece.remove_suffix(piece.size() - (piece.find_last_not_of(' ') + 1));
    return piece;
}

bool RowReader::CutsIntoNumbers() const {
    for (std::size_t field = 0; field < widths_.size(); ++field) {
        double value = 0;
        if (!ReadNumber(Piece(field), value)) {
            return false;
        }
    }
    return true;
}

void RowReader::BeginRow(std::span<const std::size_t> widths) {
    widths_ = widths;
    field_ = 0;
    cut_ = false;
    tooLong_ = false;
    longField_.clear();
    if (!lineStart_) {
        SkipBlanks();
        if (Peek() == '\n') {
            Next();
        }
    }
    rowLine_ = line_;
    firstLine_ = lineStart_;
    if (!lineStart_) {
        return;
    }
    const std::size_t full = std::accumulate(widths.begin(), widths.end(), std::size_t{0});
    while (!HoldLine(full + 1)) {
    }
    rowLine_ = line_;
    const std::string_view line = WithoutLineEnd(held_);
    tooLong_ = line.size() > full;
    cut_ = line.size() == full && CountFields(line) < widths.size() && CutsIntoNumbers();
}

RowReader::Status RowReader::NextField(std::string_view& field) {
    if (cut_) {
        field = Piece(field_++);
        if (field_ == widths_.size()) {
            cut_ = false;
            heldPosition_ = held_.size();
            lineStart_ = held_.back() == '\n';
            line_ += lineStart_ ? 1 : 0;
        }
        return Status::Read;
    }
    while (IsBlank(Peek()) || Peek() == '\n') {
        Next();
    }
    const bool atEnd = Peek() == End;
    if (field_ == 0 && !atEnd) {
        rowLine_ = line_;
    } else if (firstLine_ && (atEnd || line_ != rowLine_)) {
        firstLine_ = false;
        if (tooLong_ && !longField_.empty()) {
            field = longField_;
            return Status::Touching;
        }
    }
    if (atEnd) {
        return Status::End;
    }
    const Status status = ReadFieldText();
    field = text_;
    ++field_;
    return status;
}

RowReader::Status RowReader::ReadFieldText() {
    text_.clear();
    for (int c = Peek(); !EndsField(c); c = Peek()) {
        if (text_.size() == LongestField) {
            return Status::TooLong;
        }
        text_ += static_cast<char>(c);
        Next();
    }
    if (tooLong_ && firstLine_ && longField_.empty() && field_ + 1 < widths_.size() &&
        text_.size() > widths_[field_ + 1]) {
        longField_ = text_;
        touchingField_ = field_;
    }
    SkipBlanks();
    if (Peek() == ',' || Peek() == '\n') {
        Next();
    }
    return Status::Read;
}

bool ReadNumber(std::string_view field, double& value) {
    // The plain numbers of nearly all fields, fast; whatever else there is goes by the one grammar of number texts.
    const std::size_t first = !field.empty() && field.front() == '-' ? 1 : 0;
    if (first < field.size() && field[first] >= '0' && field[first] <= '9') {
        const char* const end = field.data() + field.size();
        const auto result = std::from_chars(field.data(), end, value, std::chars_format::fixed);
        if (result.ec == std::errc() && result.ptr == end) {
            value += 0.0;  // no negative zero
            return true;
        }
    }
    return ReadWholeNumber(field, value);
}

bool ReadInteger(std::string_view field, long long& value) {
    const bool negative = !field.empty() && field.front() == '-';
    const std::string_view digits = field.substr(negative || (!field.empty() && field.front() == '+') ? 1 : 0);
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string_view::npos) {
        return false;
    }
    constexpr long long Largest = std::numeric_limits<long long>::max();
    value = 0;
    for (const char c : digits) {
        const int digit = c - '0';
        value = value > (Largest - digit) / 10 ? Largest : value * 10 + digit;
    }
    value = negative ? -value : value;
    return true;
}

}  // namespace zirvo::solver
