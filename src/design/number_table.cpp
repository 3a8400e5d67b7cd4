// Tables of numbers, see number_table.h.
#include "design/number_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "base/runtime_fault.h"
#include "platform/files.h"
#include "text/number_grammar.h"

namespace zirvo::design {
namespace {

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

/// Calls `take` with each field between the commas.
template <class Take>
void ForFields(std::string_view line, Take take) {
    for (std::size_t from = 0; from <= line.size();) {
        const std::size_t end = std::min(line.find(',', from), line.size());
        take(Trimmed(line.substr(from, end - from)));
        from = end + 1;
    }
}

class TableReader {
public:
    TableReader(const std::string& file, BadCells badCells) : file_(file), badCells_(badCells) {}

    std::variant<NumberTable, FileError> Read(std::string_view bytes) {
        long long line = 0;
        for (std::size_t from = 0; from < bytes.size();) {
            const std::size_t end = std::min(bytes.find('\n', from), bytes.size());
            const std::string_view text = Trimmed(bytes.substr(from, end - from));
            from = end + 1;
            ++line;
            if (text.empty() || text.front() == '#') {
                continue;
            }
            if (!TakeLine(text, line)) {
                return error_;
            }
        }
        if (table_.Columns.empty()) {
            return FileError{file_, 0, "is empty: a row of headings and rows of numbers are expected"};
        }
        return std::move(table_);
    }

private:
    std::string file_;
    BadCells badCells_;
    NumberTable table_;
    FileError error_;

    bool Refuse(long long line, std::string reason) {
        error_ = {file_, line, std::move(reason)};
        return false;
    }

    bool TakeLine(std::string_view text, long long line) {
        return table_.Columns.empty() ? TakeHeadings(text, line) : TakeRow(text, line);
    }

    bool TakeHeadings(std::string_view text, long long line) {
        ForFields(text, [&](std::string_view field) { table_.Columns.emplace_back(field); });
        for (std::size_t i = 0; i < table_.Columns.size(); ++i) {
            if (table_.Columns[i].empty()) {
                return Refuse(line, "heading " + std::to_string(i + 1) + " is empty");
            }
            if (table_.Find(table_.Columns[i]) != i) {
                return Refuse(line, "two columns are named " + table_.Columns[i]);
            }
        }
        return true;
    }

    bool TakeRow(std::string_view text, long long line) {
        const std::size_t before = table_.Numbers.size();
        std::string bad;
        ForFields(text, [&](std::string_view field) {
            const std::optional<double> number = NumberOfText(field);
            if (!number && bad.empty()) {
                const std::size_t column = table_.Numbers.size() - before;
                bad.append(column < table_.Columns.size() ? table_.Columns[column] : "")
                    .append(" \"")
                    .append(field)
                    .append("\": is no number");
            }
            table_.Numbers.push_back(number.value_or(std::numeric_limits<double>::quiet_NaN()));
        });
        const std::size_t count = table_.Numbers.size() - before;
        if (count != table_.Columns.size()) {
            return Refuse(line, std::to_string(count) + " numbers beneath " + std::to_string(table_.Columns.size()) +
                                    " headings");
        }
        if (!bad.empty() && badCells_ == BadCells::Refuse) {
            return Refuse(line, bad);
        }
        table_.Lines.push_back(line);
        return true;
    }
};

}  // namespace

std::string FileError::Text() const {
    std::string text = File;
    if (Line > 0) {
        text.append(":").append(std::to_string(Line));
    }
    return text.append(": ").append(Reason);
}

std::optional<std::size_t> NumberTable::Find(std::string_view column) const {
    const auto found = std::find(Columns.begin(), Columns.end(), column);
    return found == Columns.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - Columns.begin()));
}

std::variant<NumberTable, FileError> ReadNumberTable(const std::string& path, BadCells badCells) {
    try {
        return ReadNumberTable(ReadFileBytes(path), path, badCells);
    } catch (const RuntimeFault& caught) {
        return FileError{path, 0, std::string("cannot be read: ") + caught.what()};
    }
}

std::variant<NumberTable, FileError> ReadNumberTable(std::string_view bytes, const std::string& file,
                                                     BadCells badCells) {
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";  // in front of what a spreadsheet writes
    if (bytes.starts_with(ByteOrderMark)) {
        bytes.remove_prefix(ByteOrderMark.size());
    }
    return TableReader(file, badCells).Read(bytes);
}

std::optional<double> NumberOfText(std::string_view text) {
    double value = 0;
    return ReadWholeNumber(Trimmed(text), value) ? std::optional(value) : std::nullopt;
}

std::string ShortestText(double x) {
    std::string text;
    AppendShortest(text, x);
    return text;
}

void AppendShortest(std::string& out, double x) {
    std::array<char, 32> text{};
    out.append(text.data(), std::to_chars(text.data(), text.data() + text.size(), x + 0.0).ptr);
}

}  // namespace zirvo::design
