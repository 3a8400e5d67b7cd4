// The results of a study: an SQLite file and tables of comma-separated values, written row after row while the study
// runs and put under their names when they are whole. Callers: the run of a study, its chart.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/interruption.h"
#include "study/block.h"
#include "study/database.h"
#include "study/study.h"

namespace zirvo::study {

/// A database that lies beside its target, as NAME.new, until it is put in its place, and vanishes if it never is. One
/// that a killed process left is written anew.
class Unfinished {
public:
    /// @param target  the file itself, no link to it
    explicit Unfinished(const std::string& target);
    ~Unfinished();
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;

    const std::string& Path() const { return path_; }
    /// With the rights of the file that was there. False where it cannot be done.
    bool PutInPlace();

private:
    std::string target_;
    std::string path_;
    bool lies_ = true;
    UndoneIfInterrupted gone_;

    void Remove();
};

/// The database. Its bytes follow from the rows alone, since it is made in one transaction: tables "study" (see
/// tables.h), "results" with a column for the number of the row, each parameter and each thing kept, and "bad" with the
/// number, the parameters and the reason.
class ResultsDatabase {
public:
    /// @param target  the file that it is made for, no link to it
    /// @param told    its name in messages
    ResultsDatabase(const Study& study, const std::string& target, const std::string& told, RowRange range);

    void Add(const Block& block);
    /// Behind all good rows.
    void Add(const BadRow& bad);
    /// Now it is whole, and can be put in place. An error: not every row has been added, or one of them twice.
    Unfinished& Finish();

private:
    Unfinished file_;
    std::string told_;
    std::size_t numbers_;
    std::uint64_t missing_;  // rows that have not been added
    std::optional<Database> database_;
    std::optional<Statement> insertMany_;
    std::optional<Statement> insertOne_;
    std::optional<Statement> insertBad_;
};

/// A file of lines that stands under its name only when it is whole.
class LinesFile {
public:
    explicit LinesFile(const std::string& target);

    void Write(const std::string& lines);
    void Finish();

private:
    std::string target_;
    std::optional<WholeFile> file_;
    std::string buffer_;

    void Flush();
};

/// NAME.csv and, where there are bad rows, NAME_bad.csv; one of an earlier run goes otherwise. Numbers are the shortest
/// texts that read back the same.
class ResultsTables {
public:
    ResultsTables(const Study& study, const std::string& name);

    /// A block without lines gets them here.
    void Add(const Block& block);
    void Add(const BadRow& bad);
    void Finish();
    std::uint64_t BadRows() const { return badRows_; }
    const std::string& File() const { return csv_; }
    const std::string& BadFile() const { return badCsv_; }

private:
    const Study& study_;
    std::string csv_;
    std::string badCsv_;
    LinesFile good_;
    std::optional<LinesFile> bad_;
    std::uint64_t badRows_ = 0;
};

/// Gives the good rows of a finished database in blocks, in their order; without lines. The ranges of the blocks are
/// not set.
void EachGoodRow(const Database& database, const Study& study, const std::function<void(Block&)>& take);

/// Columns of a finished file, row after row. @param names  of columns of "results"
std::vector<std::vector<double>> ReadColumns(const std::string& path, const std::vector<std::string>& names);

}  // namespace zirvo::study
