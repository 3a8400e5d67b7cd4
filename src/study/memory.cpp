// The memory of a study, see memory.h.
#include "study/memory.h"

#include <filesystem>
#include <fstream>
#include <optional>

#include "platform/folders.h"
#include "study/database.h"
#include "text/file_helpers.h"

namespace zirvo::study {
namespace {

constexpr const char* Format = "1";  // of this file: another one is another study
constexpr const char* Unfinished = ".new";

std::string ColumnList(const Study& study, bool kept) {
    std::string list;
    for (const Varied& varied : study.Vary) {
        list.append(", ").append(Quoted(varied.What.Name));
    }
    if (kept) {
        for (const Kept& one : study.Keep) {
            list.append(", ").append(Quoted(one.Name));
        }
    }
    return list;
}

std::string Insert(const char* table, std::size_t columns) {
    std::string sql = std::string("INSERT INTO ") + table + " VALUES(?";
    for (std::size_t i = 1; i < columns; ++i) {
        sql += ",?";
    }
    return sql + ")";
}

std::string RangeText(RowRange range) {
    return std::to_string(range.First + 1) + "-" + std::to_string(range.Last);
}

/// What a memory says of itself, in the order in which it is stored.
std::vector<std::pair<std::string, std::string>> MarksOf(const Study& study, RowRange range) {
    return {{"format", Format}, {"study", study.Digest}, {"rows", RangeText(range)}};
}

std::string MarkIn(const Database& database, const std::string& schema, const std::string& key) {
    Statement statement(database, "SELECT value FROM " + schema + ".study WHERE key=?");
    statement.Bind(1, key);
    return statement.Step() ? statement.Text(0) : "";
}

/// The file must say what this study would say of itself.
void RequireMarks(const Database& database, const std::string& schema, const std::string& path, const Study& study,
                  RowRange range) {
    for (const auto& [key, value] : MarksOf(study, range)) {
        const std::string found = MarkIn(database, schema, key);
        if (found == value) {
            continue;
        }
        if (key == "rows" && !found.empty()) {
            const std::string rows = std::string("is for the rows ").append(found).append(" of this study, not ");
            throw FileError{path, 0, rows + value};
        }
        throw FileError{path, 0,
                        "holds the results of another study, or of this one before it or its files were changed; move "
                        "it away or choose --output"};
    }
}

bool HasTables(const Database& database, const std::string& schema) {
    return Statement(database, "SELECT 1 FROM " + schema + ".sqlite_schema WHERE name='study'").Step();
}

}  // namespace

class Memory::Work {
public:
    Work(const Study& study, const std::string& path, RowRange range)
        : study_(study), range_(range), database_(std::in_place, path, Database::Mode::ReadWrite) {
        // Exclusive: no file of shared memory, which folders over a network cannot have, and nobody else meanwhile.
        database_->Execute("PRAGMA locking_mode=EXCLUSIVE; PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL");
        database_->Execute("BEGIN EXCLUSIVE");
        if (HasTables(*database_, "main")) {
            RequireMarks(*database_, "main", path, study, range);
        } else {
            MakeTables("main");
        }
        database_->Execute("COMMIT");
        addResult_.emplace(*database_, Insert("results", 1 + study.Vary.size() + study.Keep.size()));
        addBad_.emplace(*database_, Insert("bad", 2 + study.Vary.size()));
    }

    std::vector<bool> DoneRows() const {
        std::vector<bool> done(range_.Count());
        Statement rows(*database_, "SELECT row FROM results UNION ALL SELECT row FROM bad");
        while (rows.Step()) {
            const auto row = static_cast<std::uint64_t>(rows.Integer(0)) - 1;
            if (row >= range_.First && row < range_.Last) {
                done[row - range_.First] = true;
            }
        }
        return done;
    }

    void Add(std::uint64_t row, const RowResult& result) {
        if (!open_) {
            database_->Execute("BEGIN");
            open_ = true;
        }
        Statement& statement = result.Reason.empty() ? *addResult_ : *addBad_;
        statement.Bind(1, static_cast<std::int64_t>(row) + 1);
        int place = 2;
        for (const double value : result.Values) {
            statement.Bind(place++, value);
        }
        if (!result.Reason.empty()) {
            statement.Bind(place, result.Reason);
        }
        statement.Step();
        statement.Reset();
    }

    void Commit() {
        if (open_) {
            database_->Execute("COMMIT");
            open_ = false;
        }
    }

    void AddAllOf(const std::string& path, RowRange range) {
        if (!FileExists(path)) {  // attaching it would make an empty one
            throw FileError{path, 0, "there is no such file: run this part first"};
        }
        Statement attach(*database_, "ATTACH ? AS part");
        attach.Bind(1, path);
        attach.Step();
        if (!HasTables(*database_, "part")) {
            throw FileError{path, 0, "is no results file of a part"};
        }
        RequireMarks(*database_, "part", path, study_, range);
        const auto done = [&](const std::string& table) {
            Statement count(*database_, "SELECT count(*) FROM part." + table);
            count.Step();
            return static_cast<std::uint64_t>(count.Integer(0));
        };
        const std::uint64_t rows = done("results") + done("bad");
        if (rows != range.Count()) {
            throw FileError{path, 0,
                            "has " + std::to_string(rows) + " of its " + std::to_string(range.Count()) +
                                " rows: run this part to its end first"};
        }
        database_->Execute(
            "BEGIN; INSERT OR IGNORE INTO results SELECT * FROM part.results; "
            "INSERT OR IGNORE INTO bad SELECT * FROM part.bad; COMMIT; DETACH part");
    }

    void Finish() {
        const std::string path = database_->Path();
        const std::string fresh = path + Unfinished;
        RemoveIfThere(fresh);
        {
            Statement attach(*database_, "ATTACH ? AS fresh");
            attach.Bind(1, fresh);
            attach.Step();
        }
        // One transaction, so that the file's own counters are the same too; nothing to go back to is needed.
        database_->Execute("PRAGMA fresh.journal_mode=OFF; BEGIN");
        MakeTables("fresh");
        database_->Execute(
            "INSERT INTO fresh.results SELECT * FROM main.results ORDER BY row; "
            "INSERT INTO fresh.bad SELECT * FROM main.bad ORDER BY row; COMMIT; DETACH fresh");
        addResult_.reset();
        addBad_.reset();
        database_->Close();
        database_.reset();
        if (!MoveOver(fresh, path)) {
            throw FileError{path, 0, "cannot be replaced by its finished self"};
        }
    }

private:
    const Study& study_;
    RowRange range_;
    std::optional<Database> database_;
    std::optional<Statement> addResult_;
    std::optional<Statement> addBad_;
    bool open_ = false;

    void MakeTables(const std::string& schema) {
        const auto typed = [](std::string list) {
            for (std::size_t at = 0; (at = list.find("\", ", at)) != std::string::npos; at += 3) {
                list.replace(at, 3, "\" REAL, ");
            }
            return list + " REAL";
        };
        database_->Execute("CREATE TABLE " + schema + ".study(key TEXT PRIMARY KEY, value TEXT)");
        database_->Execute("CREATE TABLE " + schema + ".results(row INTEGER PRIMARY KEY" +
                           typed(ColumnList(study_, true)) + ")");
        database_->Execute("CREATE TABLE " + schema + ".bad(row INTEGER PRIMARY KEY" +
                           typed(ColumnList(study_, false)) + ", reason TEXT)");
        Statement mark(*database_, "INSERT INTO " + schema + ".study VALUES(?,?)");
        for (const auto& [key, value] : MarksOf(study_, range_)) {
            mark.Bind(1, key);
            mark.Bind(2, value);
            mark.Step();
            mark.Reset();
        }
    }
};

Memory::Memory(const Study& study, const std::string& path, RowRange range)
    : work_(std::make_unique<Work>(study, path, range)) {}
Memory::~Memory() = default;

std::vector<bool> Memory::DoneRows() const {
    return work_->DoneRows();
}
void Memory::Add(std::uint64_t row, const RowResult& result) {
    work_->Add(row, result);
}
void Memory::Commit() {
    work_->Commit();
}
void Memory::AddAllOf(const std::string& path, RowRange range) {
    work_->AddAllOf(path, range);
}
void Memory::Finish() {
    work_->Finish();
}

namespace {

/// A file of rows that stands under its name only when it is whole.
class RowsFile {
public:
    explicit RowsFile(const std::string& path)
        : path_(path),
          fresh_(path + Unfinished),
          stream_(std::filesystem::path(std::u8string(fresh_.begin(), fresh_.end())), std::ios::binary) {}
    ~RowsFile() {
        stream_.close();
        RemoveIfThere(fresh_);
    }
    RowsFile(const RowsFile&) = delete;
    RowsFile& operator=(const RowsFile&) = delete;

    void Write(const std::string& line) { stream_.write(line.data(), static_cast<std::streamsize>(line.size())); }

    void Finish() {
        stream_.close();
        if (!stream_ || !MoveOver(fresh_, path_)) {
            throw FileError{path_, 0, "cannot be written; the results are kept: make room and start the study again"};
        }
    }

private:
    std::string path_;
    std::string fresh_;
    std::ofstream stream_;
};

std::string Heading(const Study& study, bool kept) {
    std::string line = "row";
    for (const Varied& varied : study.Vary) {
        line.append(",").append(varied.What.Name);
    }
    for (const Kept& one : study.Keep) {
        line.append(kept ? "," + one.Name : "");
    }
    return line.append(kept ? "\n" : ",reason\n");
}

/// The number of the row and the numbers behind it, in place of what `line` held.
void PutLine(const Statement& row, std::size_t numbers, std::string& line) {
    line = std::to_string(row.Integer(0));
    for (std::size_t i = 1; i <= numbers; ++i) {
        line.push_back(',');
        design::AppendShortest(line, row.Number(static_cast<int>(i)));
    }
}

}  // namespace

std::uint64_t WriteTables(const Study& study, const std::string& path, const std::string& csvFile,
                          const std::string& badFile) {
    const Database database(path, Database::Mode::ReadOnly);
    RowsFile results(csvFile);
    results.Write(Heading(study, true));
    Statement good(database, "SELECT * FROM results ORDER BY row");
    std::string line;
    while (good.Step()) {
        PutLine(good, study.Vary.size() + study.Keep.size(), line);
        line.push_back('\n');
        results.Write(line);
    }
    results.Finish();
    Statement bad(database, "SELECT * FROM bad ORDER BY row");
    std::uint64_t count = 0;
    std::optional<RowsFile> apart;
    for (; bad.Step(); ++count) {
        if (!apart) {
            apart.emplace(badFile);
            apart->Write(Heading(study, false));
        }
        const std::string reason = bad.Text(static_cast<int>(study.Vary.size()) + 1);
        PutLine(bad, study.Vary.size(), line);
        apart->Write(line.append(",\"").append(reason).append("\"\n"));
    }
    if (apart) {
        apart->Finish();
    } else {
        RemoveIfThere(badFile);
    }
    return count;
}

std::vector<std::vector<double>> ReadColumns(const std::string& path, const std::vector<std::string>& names) {
    const Database database(path, Database::Mode::ReadOnly);
    std::string sql = "SELECT row";
    for (const std::string& name : names) {
        sql.append(",").append(Quoted(name));
    }
    Statement row(database, sql + " FROM results ORDER BY row");
    std::vector<std::vector<double>> columns(names.size());
    while (row.Step()) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            columns[i].push_back(row.Number(static_cast<int>(i) + 1));
        }
    }
    return columns;
}

}  // namespace zirvo::study
