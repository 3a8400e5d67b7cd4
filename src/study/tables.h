// What stands in the database files of a study: the tables, and the marks that tell which study a file belongs to.
// Callers: the memory of a study, its results.
#pragma once
#include <cstddef>
#include <string>

#include "study/block.h"
#include "study/database.h"
#include "study/study.h"

namespace zirvo::study {

/// Numbers of a good row: its own, the parameters, what is kept.
std::size_t NumbersOfRow(const Study& study);

/// Table "study" (key, value), with what a file says of itself.
void MakeMarks(Database& database, const Study& study, RowRange range);

/// The file must say what this study would say of itself.
void RequireMarks(const Database& database, const Study& study, RowRange range);

/// Table "results": row, each parameter, each thing kept.
void MakeResultsTable(Database& database, const Study& study);
/// Table "bad": row, each parameter, the reason.
void MakeBadTable(Database& database, const Study& study);

bool HasTable(const Database& database, const std::string& name);
bool HasAnyTable(const Database& database);

/// "INSERT INTO t VALUES(?,?),(?,?)".
std::string InsertInto(const char* table, std::size_t columns, std::size_t rows = 1);

/// Binds a bad row to an insertion into "bad" and makes it.
void InsertBad(Statement& insert, const BadRow& bad);

/// Gives each row of "bad" of a database, in their order, to a function of a const BadRow&.
template <class Take>
void EachBadRow(const Database& database, const Study& study, const Take& take) {
    Statement rows(database, "SELECT * FROM bad ORDER BY row");
    for (BadRow bad; rows.Step();) {
        bad.Row = static_cast<std::uint64_t>(rows.Integer(0)) - 1;
        bad.Values.clear();
        for (std::size_t i = 1; i <= study.Vary.size(); ++i) {
            bad.Values.push_back(rows.Number(static_cast<int>(i)));
        }
        bad.Reason = rows.Text(static_cast<int>(study.Vary.size()) + 1);
        take(static_cast<const BadRow&>(bad));
    }
}

}  // namespace zirvo::study
