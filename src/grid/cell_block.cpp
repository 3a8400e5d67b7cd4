// Blocks of cells as text, see cell_block.h.
#include "grid/cell_block.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace zirvo {
namespace {

constexpr std::string_view EndsOfACell = "\t\r\n";

/// The cell in quotes that begins at `at`, and moves `at` behind it; nothing where the quotes do not end, or not with
/// the cell.
std::optional<std::string> TakeQuoted(std::string_view text, std::size_t& at) {
    std::string cell;
    std::size_t next = at + 1;
    while (next < text.size()) {
        if (text[next] != '"') {
            cell += text[next++];
        } else if (next + 1 < text.size() && text[next + 1] == '"') {
            cell += '"';
            next += 2;
        } else {
            ++next;
            if (next < text.size() && EndsOfACell.find(text[next]) == std::string_view::npos) {
                return {};
            }
            at = next;
            return cell;
        }
    }
    return {};
}

std::string TakeCell(std::string_view text, std::size_t& at) {
    if (at < text.size() && text[at] == '"') {
        if (std::optional<std::string> quoted = TakeQuoted(text, at)) {
            return *std::move(quoted);
        }
    }
    const std::size_t begin = at;
    at = std::min(text.find_first_of(EndsOfACell, begin), text.size());
    return std::string(text.substr(begin, at - begin));
}

std::string Quoted(const std::string& cell) {
    if (cell.find_first_of("\t\r\n\"") == std::string::npos) {
        return cell;
    }
    std::string quoted = "\"";
    for (const char character : cell) {
        quoted.append(character == '"' ? 2 : 1, character);
    }
    return quoted + '"';
}

}  // namespace

CellBlock ReadCellBlock(std::string_view text) {
    CellBlock block;
    std::size_t at = 0;
    while (at < text.size()) {
        std::vector<std::string>& row = block.emplace_back();
        row.push_back(TakeCell(text, at));
        while (at < text.size() && text[at] == '\t') {
            ++at;
            row.push_back(TakeCell(text, at));
        }
        if (at < text.size()) {
            at += text.substr(at, 2) == "\r\n" ? 2 : 1;
        }
    }
    return block;
}

std::string WriteCellBlock(const CellBlock& block) {
    std::string text;
    for (std::size_t row = 0; row < block.size(); ++row) {
        if (row > 0) {
            text += '\n';
        }
        for (std::size_t col = 0; col < block[row].size(); ++col) {
            if (col > 0) {
                text += '\t';
            }
            text += Quoted(block[row][col]);
        }
    }
    return text;
}

}  // namespace zirvo
