// SQLite, see database.h.
#include "study/database.h"

#include <sqlite3.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

#include "platform/folders.h"

namespace zirvo::study {
namespace {

constexpr const char* AnotherWorks = "another run of this study works on it";

/// Whether a signal has interrupted a call since this was last asked.
bool& InterruptedOnThisThread() {
    thread_local bool interrupted = false;
    return interrupted;
}

/// SQLite tells of each call that fails as it fails; what it tells behind it has no word of signals any more.
void HearOfFailure(void* /*nothing*/, int code, const char* /*text*/) {
    constexpr int kind = 0xFF;
    if (errno == EINTR && ((code & kind) == SQLITE_IOERR || (code & kind) == SQLITE_CANTOPEN)) {
        InterruptedOnThisThread() = true;
    }
}

/// Asked once behind a failure. Where SQLite has told of nothing it may still know the system's error, or the file
/// that it works on may: of a lock that could not be given back nothing else does.
bool WasInterrupted(sqlite3* handle) {
    if (std::exchange(InterruptedOnThisThread(), false)) {
        return true;
    }
    int ofFile = 0;
    return handle != nullptr &&
           (sqlite3_system_errno(handle) == EINTR ||
            (sqlite3_file_control(handle, "main", SQLITE_FCNTL_LAST_ERRNO, &ofFile) == SQLITE_OK && ofFile == EINTR));
}

void HearOfFailures() {
    static const int once = sqlite3_config(SQLITE_CONFIG_LOG, HearOfFailure, nullptr);
    static_cast<void>(once);  // where it cannot be heard of an interrupted call is told like any other
}

}  // namespace

Database::Database(const std::string& path, Mode mode, const std::string& told)
    : path_(path), told_(told.empty() ? path : told) {
    HearOfFailures();
    const int access = mode == Mode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    const int flags = access | SQLITE_OPEN_NOMUTEX;  // each is used by one thread
    if (sqlite3_open_v2(PlainName(path).c_str(), &handle_, flags, nullptr) != SQLITE_OK) {
        const std::string reason = handle_ != nullptr ? sqlite3_errmsg(handle_) : "there is not enough memory";
        const bool interrupted = WasInterrupted(handle_);
        sqlite3_close(handle_);
        const FileError failure{told_, 0, "cannot be opened: " + reason};
        if (interrupted) {
            throw InterruptedCall{failure};
        }
        throw failure;
    }
    const char* const name = sqlite3_db_filename(handle_, "main");
    real_ = name == nullptr || *name == '\0' ? path_ : name;
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

/// What has been written ahead is emptied first, since closing alone tells of no failure; a file in which nothing
/// stands any more may be left by it, and would be taken for one of whatever comes to lie under the name.
void Database::CloseWhole() {
    {
        Statement emptied(*this, "PRAGMA wal_checkpoint(TRUNCATE)");
        if (emptied.Step() && emptied.Integer(0) != 0) {
            throw InterruptedCall{{told_, 0, AnotherWorks}};
        }
    }
    Close();
    for (const char* beside : {"-wal", "-journal"}) {
        if (!RemoveIfThere(real_ + beside)) {
            throw FileError{told_ + beside, 0, "cannot be removed; the results are kept: start the study again"};
        }
    }
}

void Database::Fail() const {
    const int code = sqlite3_errcode(handle_);
    const std::string reason = sqlite3_errmsg(handle_);
    if (WasInterrupted(handle_) && (code == SQLITE_IOERR || code == SQLITE_CANTOPEN)) {
        throw InterruptedCall{{told_, 0, reason}};
    }
    switch (code) {
        case SQLITE_FULL:
        case SQLITE_IOERR:
            throw FileError{
                told_, 0,
                "cannot be written: " + reason + "; what was done is kept: make room and start the study again"};
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            throw InterruptedCall{{told_, 0, AnotherWorks}};
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

/// Where there is no memory for it the value would be missing in silence.
void Statement::Require(int code) const {
    if (code != SQLITE_OK) {
        database_.Fail();
    }
}

void Statement::Bind(int place, double value) {
    Require(sqlite3_bind_double(handle_, place, value));  // what is no number is kept as NULL
}

void Statement::Bind(int place, std::int64_t value) {
    Require(sqlite3_bind_int64(handle_, place, value));
}

void Statement::Bind(int place, const std::string& value) {
    Require(sqlite3_bind_text(handle_, place, value.c_str(), static_cast<int>(value.size()), SQLITE_TRANSIENT));
}

void Statement::Bind(int place, const std::vector<double>& values) {
    Require(sqlite3_bind_blob64(handle_, place, values.data(), values.size() * sizeof(double), SQLITE_STATIC));
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
    if (text == nullptr && sqlite3_errcode(database_.Handle()) == SQLITE_NOMEM) {
        database_.Fail();
    }
    return text == nullptr ? "" : text;
}

void Statement::Numbers(int column, std::vector<double>& values) const {
    const void* bytes = sqlite3_column_blob(handle_, column);
    values.resize(static_cast<std::size_t>(sqlite3_column_bytes(handle_, column)) / sizeof(double));
    if (!values.empty()) {
        if (bytes == nullptr) {  // no memory for it
            database_.Fail();
        }
        std::memcpy(values.data(), bytes, values.size() * sizeof(double));
    }
}

/// "file:..." would be an address, and ":memory:" no file at all.
std::string PlainName(const std::string& path) {
    return path.starts_with('/') ? path : "./" + path;
}

std::string Quoted(const std::string& name) {
    std::string text = "\"";
    for (const char c : name) {
        text.append(c == '"' ? 2 : 1, c);
    }
    return text + "\"";
}

}  // namespace zirvo::study
