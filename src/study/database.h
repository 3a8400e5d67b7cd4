// SQLite with its failures as FileError and its handles as objects. Callers: the memory of a study.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "design/number_table.h"

struct sqlite3;
struct sqlite3_stmt;

namespace zirvo::study {

using design::FileError;

/// A call to the system that a signal has interrupted and that SQLite does not make again, or a lock that was refused,
/// which may be the same: the work is tried again, from what the file holds.
struct InterruptedCall : FileError {};

/// Does the work, a few times over while it ends in an InterruptedCall. What another run holds is soon told all the
/// same.
template <class Work>
auto AgainIfInterrupted(const Work& work) {
    constexpr int mostTries = 4;
    for (int tries = 1;; ++tries) {
        try {
            return work();
        } catch (const InterruptedCall&) {
            if (tries == mostTries) {
                throw;
            }
        }
    }
}

/// One database file. Every failure is thrown as FileError with the file's name.
class Database {
public:
    enum class Mode { ReadOnly, ReadWrite };

    /// @param told  the file's name in messages, where it is another one than the user knows
    Database(const std::string& path, Mode mode, const std::string& told = "");
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    void Execute(const std::string& sql);
    /// In UTF-8.
    const std::string& Path() const { return path_; }
    sqlite3* Handle() const { return handle_; }
    /// Throws what the last call has to tell.
    [[noreturn]] void Fail() const;
    /// The file itself, where the path leads over links.
    const std::string& RealPath() const { return real_; }
    /// Closes it; what follows is an error.
    void Close();
    /// Brings all that stands beside the file into it and closes it. Behind it the file is whole by itself, or the
    /// failure has been told and what stands beside it still belongs to it.
    void CloseWhole();

private:
    std::string path_;
    std::string told_;
    std::string real_;
    sqlite3* handle_ = nullptr;
};

/// One statement of a database, which must outlive it.
class Statement {
public:
    Statement(const Database& database, const std::string& sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Parameters from 1.
    void Bind(int place, double value);
    void Bind(int place, std::int64_t value);
    void Bind(int place, const std::string& value);
    /// As they lie in memory. They must stay there until the statement is made anew or ends.
    void Bind(int place, const std::vector<double>& values);
    /// True if there is a row to read.
    bool Step();
    void Reset();
    /// Columns of the row, from 0.
    double Number(int column) const;
    std::int64_t Integer(int column) const;
    std::string Text(int column) const;
    void Numbers(int column, std::vector<double>& values) const;

private:
    const Database& database_;
    sqlite3_stmt* handle_ = nullptr;

    void Require(int code) const;
};

/// A path as SQLite takes it for nothing but the name of a file.
std::string PlainName(const std::string& path);

/// A name as SQL has it, in double quotes.
std::string Quoted(const std::string& name);

}  // namespace zirvo::study
