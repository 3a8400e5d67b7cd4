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
    [[noreturn]] void Fail() const;
    /// Closes it; what follows is an error.
    void Close();

private:
    std::string path_;
    std::string told_;
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
};

/// A name as SQL has it, in double quotes.
std::string Quoted(const std::string& name);

}  // namespace zirvo::study
