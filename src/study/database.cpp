// SQLite, see database.h.
#include "study/database.h"

#include <sqlite3.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace zirvo::study {

Database::Database(const std::string& path, Mode mode, const std::string& told)
    : path_(path), told_(told.empty() ? path : told) {
    const int access = mode == Mode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    const int flags = access | SQLITE_OPEN_NOMUTEX;  // each is used by one thread
    if (sqlite3_open_v2(path.c_str(), &handle_, flags, nullptr) != SQLITE_OK) {
        const std::string reason = handle_ != nullptr ? sqlite3_errmsg(handle_) : "there is not enough memory";
        sqlite3_close(handle_);
        throw FileError{told_, 0, "cannot be opened: " + reason};
    }
}

Database::~Database() {
    sqlite3_close(handle_);
}

void Database::Close() {
    if (sqlite3_close(handle_) != SQLITE_OK) {
        Fail();
    }
    handle_ = nullptr;
}

void Database::Fail() const {
    const int code = sqlite3_errcode(handle_);
    const std::string reason = sqlite3_errmsg(handle_);
    switch (code) {
        case SQLITE_FULL:
        case SQLITE_IOERR:
            throw FileError{
                told_, 0,
                "cannot be written: " + reason + "; what was done is kept: make room and start the study again"};
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            throw FileError{told_, 0, "another run of this study works on it"};
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            throw FileError{told_, 0, "is no results file: " + reason + "; move it away or choose --output"};
        default:
            throw FileError{told_, 0, reason};
    }
}

void Database::Execute(const std::string& sql) {
    if (sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        Fail();
    }
}

Statement::Statement(const Database& database, const std::string& sql) : database_(database) {
    if (sqlite3_prepare_v2(database.Handle(), sql.c_str(), -1, &handle_, nullptr) != SQLITE_OK) {
        database.Fail();
    }
}

Statement::~Statement() {
    sqlite3_finalize(handle_);
}

void Statement::Bind(int place, double value) {
    sqlite3_bind_double(handle_, place, value);  // what is no number is kept as NULL
}

void Statement::Bind(int place, std::int64_t value) {
    sqlite3_bind_int64(handle_, place, value);
}

void Statement::Bind(int place, const std::string& value) {
    sqlite3_bind_text(handle_, place, value.c_str(), static_cast<int>(value.size()), SQLITE_TRANSIENT);
}

void Statement::Bind(int place, const std::vector<double>& values) {
    sqlite3_bind_blob64(handle_, place, values.data(), values.size() * sizeof(double), SQLITE_STATIC);
}

bool Statement::Step() {
    const int code = sqlite3_step(handle_);
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        database_.Fail();
    }
    return code == SQLITE_ROW;
}

void Statement::Reset() {
    sqlite3_reset(handle_);
}

double Statement::Number(int column) const {
    return sqlite3_column_type(handle_, column) == SQLITE_NULL ? std::numeric_limits<double>::quiet_NaN()
                                                               : sqlite3_column_double(handle_, column);
}

std::int64_t Statement::Integer(int column) const {
    return sqlite3_column_int64(handle_, column);
}

std::string Statement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle_, column));
    return text == nullptr ? "" : text;
}

void Statement::Numbers(int column, std::vector<double>& values) const {
    const void* bytes = sqlite3_column_blob(handle_, column);
    values.resize(static_cast<std::size_t>(sqlite3_column_bytes(handle_, column)) / sizeof(double));
    if (!values.empty()) {
        std::memcpy(values.data(), bytes, values.size() * sizeof(double));
    }
}

std::string Quoted(const std::string& name) {
    std::string text = "\"";
    for (const char c : name) {
        text.append(c == '"' ? 2 : 1, c);
    }
    return text + "\"";
}

}  // namespace zirvo::study
