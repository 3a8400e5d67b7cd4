// The memory of a study: an SQLite file that says how far it has come, and holds what has been made until the results
// take its place. Caller: the run of a study.
//
// What is stored while a study runs: table "study" (see tables.h); "done" has a row for each commit, with the first row
// of the study (from 1), how many, and the numbers of the good ones as they stand in a Block, 8 bytes each; "bad" has
// the others. Rows come in their order, so what is done is the first so many. A finished file has "results" and no
// "done".
//
// The file is written ahead of itself (WAL), so that a process that is killed at any moment leaves what it had
// committed; the next one goes on. It is locked meanwhile: a second run of the same study is refused. A study that ends
// before the first commit writes nothing to it.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "study/block.h"
#include "study/database.h"
#include "study/results.h"
#include "study/study.h"

namespace zirvo::study {

/// Failures are thrown as FileError, whose file is that of the memory.
class Memory {
public:
    /// Opens the file, or makes it. An error: it belongs to another study or to other rows, another run works on it, it
    /// is no such file. The study must outlive this object.
    Memory(const Study& study, const std::string& path, RowRange range);
    /// A file that holds nothing goes.
    ~Memory();
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    /// How many of the range's rows are done: the first so many.
    std::uint64_t DoneRows() const { return done_; }
    /// True if the file holds the results of the whole range and not what is behind them.
    bool Finished() const { return finished_; }
    const Database& TheDatabase() const { return database_; }
    /// The file itself, where the path leads over links.
    const std::string& RealPath() const { return database_.RealPath(); }

    /// Gives what earlier runs have made, in the order of the rows; without lines.
    void Earlier(const std::function<void(Block&)>& take) const;

    /// Adds the next rows; they are there for good behind the next Commit.
    void Add(const Block& block);
    void Commit();
    /// How much waits for a commit, in bytes.
    std::size_t Waiting() const;

    /// Gives each bad row, in their order.
    void EachBad(const std::function<void(const BadRow&)>& take);

    /// Closes the file and puts another one in its place, which has been made for it.
    void ReplaceBy(Unfinished& file);

private:
    const Study& study_;
    RowRange range_;
    Database database_;
    bool made_ = false;      // the file has its tables
    bool replaced_ = false;  // by the results
    bool finished_ = false;
    std::uint64_t done_ = 0;
    Block waiting_;

    std::uint64_t CountDone() const;
    void Make();
};

}  // namespace zirvo::study
