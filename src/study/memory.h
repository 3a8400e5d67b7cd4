// The results of a study as an SQLite file, which is also the memory of what is done. Caller: the run of a study. The
// one place that knows SQLite.
//
// What is stored: table "study" (key, value) says which study the file belongs to and which rows it is for; "results"
// has a column for the number of the row (from 1), for each parameter and for each thing kept; "bad" has the number,
// the parameters and the reason. A row that stands in one of the two is done.
//
// While rows are added the file is written ahead of itself (WAL), so that a process that is killed at any moment leaves
// what it had committed; the next one goes on. The file is locked meanwhile: a second run of the same study is refused.
// A finished file is made anew from what it holds, row after row, so that its bytes do not tell how it came about.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "study/row_work.h"
#include "study/study.h"

namespace zirvo::study {

/// The rows [First, Last) of a study, from 0.
struct RowRange {
    std::uint64_t First = 0;
    std::uint64_t Last = 0;
    std::uint64_t Count() const { return Last - First; }
    bool operator==(const RowRange&) const = default;
};

/// Failures are thrown as FileError, whose file is that of the memory or what is written from it.
class Memory {
public:
    /// Opens the file, or makes it. An error: it belongs to another study or to other rows, another run works on it, it
    /// is no such file.
    Memory(const Study& study, const std::string& path, RowRange range);
    ~Memory();
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    /// Which rows of the range are done.
    std::vector<bool> DoneRows() const;

    /// Adds a row; it is there for good behind the next Commit. @param row  from 0
    void Add(std::uint64_t row, const RowResult& result);
    void Commit();

    /// Adds all rows of another memory, which must be of the same study and hold its range as a whole.
    void AddAllOf(const std::string& path, RowRange range);

    /// Makes the file anew and closes it.
    void Finish();

private:
    class Work;
    std::unique_ptr<Work> work_;
};

/// Writes the finished results as comma-separated rows, and the bad rows beside them where there are any; a file of bad
/// rows of an earlier run goes otherwise. Numbers are the shortest texts that read back the same.
/// @return how many rows are bad
std::uint64_t WriteTables(const Study& study, const std::string& path, const std::string& csvFile,
                          const std::string& badFile);

/// Columns of a finished file, row after row. @param names  of columns of "results"
std::vector<std::vector<double>> ReadColumns(const std::string& path, const std::vector<std::string>& names);

}  // namespace zirvo::study
