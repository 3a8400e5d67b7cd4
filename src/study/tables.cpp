// Tables of a study's databases, see tables.h.
#include "study/tables.h"

#include <utility>
#include <vector>

namespace zirvo::study {
namespace {

constexpr const char* Format = "2";  // of these files: another one is another study

std::string RangeText(RowRange range) {
    return std::to_string(range.First + 1) + "-" + std::to_string(range.Last);
}

/// In the order in which they are stored.
std::vector<std::pair<std::string, std::string>> MarksOf(const Study& study, RowRange range) {
    return {{"format", Format}, {"study", study.Digest}, {"rows", RangeText(range)}};
}

std::string MarkIn(const Database& database, const std::string& key) {
    Statement statement(database, "SELECT value FROM study WHERE key=?");
    statement.Bind(1, key);
    return statement.Step() ? statement.Text(0) : "";
}

std::string RealColumn(const std::string& name) {
    return ", " + Quoted(name) + " REAL";
}

std::string ParameterColumns(const Study& study) {
    std::string list = "row INTEGER PRIMARY KEY";
    for (const Varied& varied : study.Vary) {
        list += RealColumn(varied.What.Name);
    }
    return list;
}

}  // namespace

std::size_t NumbersOfRow(const Study& study) {
    return 1 + study.Vary.size() + study.Keep.size();
}

void MakeMarks(Database& database, const Study& study, RowRange range) {
    database.Execute("CREATE TABLE study(key TEXT PRIMARY KEY, value TEXT)");
    Statement mark(database, InsertInto("study", 2));
    for (const auto& [key, value] : MarksOf(study, range)) {
        mark.Bind(1, key);
        mark.Bind(2, value);
        mark.Step();
        mark.Reset();
    }
}

void RequireMarks(const Database& database, const Study& study, RowRange range) {
    for (const auto& [key, value] : MarksOf(study, range)) {
        const std::string found = MarkIn(database, key);
        if (found == value) {
            continue;
        }
        if (key == "rows" && !found.empty()) {
            const std::string rows = std::string("is for the rows ").append(found).append(" of this study, not ");
            throw FileError{database.Path(), 0, rows + value};
        }
        throw FileError{database.Path(), 0,
                        "holds the results of another study, or of this one before it or its files were changed; move "
                        "it away or choose --output"};
    }
}

void MakeResultsTable(Database& database, const Study& study) {
    std::string columns = ParameterColumns(study);
    for (const Kept& one : study.Keep) {
        columns += RealColumn(one.Name);
    }
    database.Execute("CREATE TABLE results(" + columns + ")");
}

void MakeBadTable(Database& database, const Study& study) {
    database.Execute("CREATE TABLE bad(" + ParameterColumns(study) + ", reason TEXT)");
}

bool HasTable(const Database& database, const std::string& name) {
    Statement statement(database, "SELECT 1 FROM sqlite_schema WHERE name=?");
    statement.Bind(1, name);
    return statement.Step();
}

bool HasAnyTable(const Database& database) {
    return Statement(database, "SELECT 1 FROM sqlite_schema").Step();
}

std::string InsertInto(const char* table, std::size_t columns, std::size_t rows) {
    std::string row = "(?";
    for (std::size_t i = 1; i < columns; ++i) {
        row += ",?";
    }
    row += ")";
    std::string sql = std::string("INSERT INTO ").append(table).append(" VALUES").append(row);
    for (std::size_t i = 1; i < rows; ++i) {
        sql.append(",").append(row);
    }
    return sql;
}

void InsertBad(Statement& insert, const BadRow& bad) {
    insert.Bind(1, static_cast<std::int64_t>(bad.Row) + 1);
    int place = 2;
    for (const double value : bad.Values) {
        insert.Bind(place++, value);
    }
    insert.Bind(place, bad.Reason);
    insert.Step();
    insert.Reset();
}

}  // namespace zirvo::study
