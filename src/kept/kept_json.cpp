// Kept screens as JSON, see kept_json.h.
#include "kept/kept_json.h"

#include <limits>
#include <nlohmann/json.hpp>

#include "base/utf8.h"

namespace zirvo {
namespace {

using nlohmann::json;

constexpr const char* Format = "zirvo kept screen";
constexpr int Version = 1;
/// More than any screen has: numbers beyond are no file of ours.
constexpr std::int64_t MostCounts = 10;
constexpr std::int64_t MostColumns = 100;
constexpr std::int64_t HighestCount = 1'000'000;
constexpr int DeepestValue = 5;  // screen, tables, table, cells, a text in hexadecimal digits

constexpr std::string_view HexDigits = "0123456789ABCDEF";

json TextJson(const std::string& text) {
    if (IsValidUtf8(text)) {
        return text;
    }
    std::string hex;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        hex += HexDigits[byte >> 4U];
        hex += HexDigits[byte & 15U];
    }
    return json{{"hex", hex}};
}

json TextsJson(const std::vector<std::string>& texts) {
    json array = json::array();
    for (const std::string& text : texts) {
        array.push_back(TextJson(text));
    }
    return array;
}

/// What is not as it must be; nobody outside hears of it.
struct NotOurs {};

const json& Member(const json& object, const char* name) {
    const auto found = object.is_object() ? object.find(name) : object.end();
    if (!object.is_object() || found == object.end()) {
        throw NotOurs();
    }
    return *found;
}

std::int64_t Integer(const json& value, std::int64_t lowest, std::int64_t highest) {
    constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (!value.is_number_integer() || (value.is_number_unsigned() && value.get<std::uint64_t>() > most)) {
        throw NotOurs();
    }
    const auto number = value.get<std::int64_t>();
    if (number < lowest || number > highest) {
        throw NotOurs();
    }
    return number;
}

int SmallInteger(const json& value, std::int64_t highest) {
    return static_cast<int>(Integer(value, 0, highest));
}

const json& Array(const json& value, std::int64_t most) {
    if (!value.is_array() || static_cast<std::int64_t>(value.size()) > most) {
        throw NotOurs();
    }
    return value;
}

std::string Text(const json& value) {
    if (value.is_string()) {
        return value.get<std::string>();
    }
    const json& digits = Member(value, "hex");
    if (!digits.is_string()) {
        throw NotOurs();
    }
    const auto& hex = digits.get_ref<const std::string&>();
    std::string text;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        const std::size_t high = HexDigits.find(hex[i]);
        const std::size_t low = HexDigits.find(hex[i + 1]);
        if (high == std::string_view::npos || low == std::string_view::npos) {
            throw NotOurs();
        }
        text += static_cast<char>(high * 16 + low);
    }
    return text;
}

std::vector<std::string> Texts(const json& array) {
    std::vector<std::string> texts;
    texts.reserve(array.size());
    for (const json& value : array) {
        texts.push_back(Text(value));
    }
    return texts;
}

KeptTable Table(const json& value) {
    KeptTable table;
    table.Columns = SmallInteger(Member(value, "columns"), MostColumns);
    table.Cells = Texts(Array(Member(value, "cells"), MostColumns * HighestCount));
    const bool whole =
        table.Columns == 0 ? table.Cells.empty() : table.Cells.size() % static_cast<std::size_t>(table.Columns) == 0;
    if (!whole) {
        throw NotOurs();
    }
    return table;
}

KeptOpenCell OpenCell(const json& value, const std::vector<KeptTable>& tables) {
    KeptOpenCell cell;
    cell.Table = SmallInteger(Member(value, "table"), static_cast<std::int64_t>(tables.size()) - 1);
    const KeptTable& table = tables[static_cast<std::size_t>(cell.Table)];
    cell.Row = SmallInteger(Member(value, "row"), table.Rows() - 1);
    cell.Column = SmallInteger(Member(value, "column"), table.Columns - 1);
    cell.Text = Text(Member(value, "text"));
    return cell;
}

KeptScreen Screen(const json& value) {
    if (Member(value, "format") != Format || Member(value, "version") != Version) {
        throw NotOurs();
    }
    KeptScreen screen;
    screen.Screen = Text(Member(value, "screen"));
    screen.Units = SmallInteger(Member(value, "units"), MostCounts);
    screen.Japanese = Member(value, "japanese") == true;
    using Times = std::numeric_limits<std::int64_t>;  // a clock may stand before 1970
    screen.When = Integer(Member(value, "when"), Times::min(), Times::max());
    for (const json& count : Array(Member(value, "counts"), MostCounts)) {
        screen.Counts.push_back(SmallInteger(count, HighestCount));
    }
    screen.Names = Texts(Array(Member(value, "names"), MostCounts));
    for (const json& table : Array(Member(value, "tables"), MostCounts)) {
        screen.Tables.push_back(Table(table));
    }
    if (value.contains("open")) {
        screen.Open = OpenCell(value["open"], screen.Tables);
    }
    return screen;
}

}  // namespace

std::string KeptJson(const KeptScreen& screen) {
    json tables = json::array();
    for (const KeptTable& table : screen.Tables) {
        tables.push_back({{"columns", table.Columns}, {"cells", TextsJson(table.Cells)}});
    }
    json value{{"format", Format},
               {"version", Version},
               {"screen", TextJson(screen.Screen)},
               {"units", screen.Units},
               {"japanese", screen.Japanese},
               {"when", screen.When},
               {"counts", screen.Counts},
               {"names", TextsJson(screen.Names)},
               {"tables", std::move(tables)}};
    if (screen.Open) {
        const KeptOpenCell& open = *screen.Open;
        value["open"] = {
            {"table", open.Table}, {"row", open.Row}, {"column", open.Column}, {"text", TextJson(open.Text)}};
    }
    return value.dump();
}

std::optional<KeptScreen> ReadKeptJson(std::string_view bytes) {
    // Whatever nests deeper than ours does is dropped as it is read, so that no file can make a tower of values.
    const auto shallow = [](int depth, json::parse_event_t /*event*/, json& /*value*/) {
        return depth <= DeepestValue;
    };
    try {
        const json value = json::parse(bytes, shallow, false);
        if (value.is_discarded()) {
            return std::nullopt;
        }
        return Screen(value);
    } catch (const NotOurs&) {
        return std::nullopt;
    } catch (const std::exception&) {  // no memory for what it claims to hold
        return std::nullopt;
    }
}

}  // namespace zirvo
