// The results of a study, see results.h.
#include "study/results.h"

#include <filesystem>

#include "platform/folders.h"
#include "study/row_workers.h"
#include "study/tables.h"

namespace zirvo::study {
namespace {

constexpr std::size_t RowsOfInsertion = 16;
constexpr std::size_t BytesOfWriting = 1U << 18U;
constexpr std::size_t RowsOfBlock = 256;

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

}  // namespace

Unfinished::Unfinished(const std::string& target)
    : target_(target), path_(target + ".new"), gone_([this] { RemoveIfThere(path_); }) {
    RemoveIfThere(path_);
}

Unfinished::~Unfinished() {
    const NotInterrupted untilItIsGone;
    RemoveIfThere(path_);
}

bool Unfinished::PutInPlace() {
    const NotInterrupted untilItIsThere;
    return MoveOver(path_, target_);
}

ResultsDatabase::ResultsDatabase(const Study& study, const std::string& target, RowRange range)
    : file_(target), numbers_(NumbersOfRow(study)) {
    {
        const NotInterrupted untilItIsThere;
        database_.emplace(file_.Path(), Database::Mode::ReadWrite, target);
    }
    // One transaction, so that the file's own counters are the same too; nothing to go back to is needed.
    database_->Execute("PRAGMA journal_mode=OFF; BEGIN");
    MakeMarks(*database_, study, range);
    MakeResultsTable(*database_, study);
    MakeBadTable(*database_, study);
    insertMany_.emplace(*database_, InsertInto("results", numbers_, RowsOfInsertion));
    insertOne_.emplace(*database_, InsertInto("results", numbers_));
    insertBad_.emplace(*database_, InsertInto("bad", 2 + study.Vary.size()));
}

void ResultsDatabase::Add(const Block& block) {
    const std::size_t count = block.Numbers.size() / numbers_;
    for (std::size_t row = 0; row < count;) {
        const bool many = count - row >= RowsOfInsertion;
        Statement& insert = many ? *insertMany_ : *insertOne_;
        const std::size_t end = row + (many ? RowsOfInsertion : 1);
        for (int place = 1; row < end; ++row) {
            const double* number = &block.Numbers[row * numbers_];
            insert.Bind(place++, static_cast<std::int64_t>(*number));
            for (std::size_t i = 1; i < numbers_; ++i) {
                insert.Bind(place++, number[i]);
            }
        }
        insert.Step();
        insert.Reset();
    }
}

void ResultsDatabase::Add(const BadRow& bad) {
    InsertBad(*insertBad_, bad);
}

void ResultsDatabase::Finish() {
    insertMany_.reset();
    insertOne_.reset();
    insertBad_.reset();
    database_->Execute("COMMIT");
    database_->Close();
}

LinesFile::LinesFile(const std::string& target) : file_(target) {
    const NotInterrupted untilItIsThere;
    stream_.open(std::filesystem::path(std::u8string(file_.Path().begin(), file_.Path().end())), std::ios::binary);
    if (!stream_) {
        Fail();
    }
}

void LinesFile::Write(const std::string& lines) {
    buffer_ += lines;
    if (buffer_.size() >= BytesOfWriting) {
        Flush();
    }
}

void LinesFile::Flush() {
    stream_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    buffer_.clear();
    if (!stream_) {
        Fail();
    }
}

void LinesFile::Finish() {
    Flush();
    stream_.close();
    if (!stream_ || !file_.PutInPlace()) {
        Fail();
    }
}

void LinesFile::Fail() const {
    throw FileError{file_.Target(), 0, "cannot be written; what is kept stays: make room and start the study again"};
}

ResultsTables::ResultsTables(const Study& study, const std::string& name)
    : study_(study), csv_(name + ".csv"), badCsv_(name + "_bad.csv"), good_(csv_) {
    good_.Write(Heading(study, true));
}

void ResultsTables::Add(const Block& block) {
    if (!block.Lines.empty()) {
        good_.Write(block.Lines);
        return;
    }
    std::string lines;
    const std::size_t numbers = NumbersOfRow(study_);
    for (std::size_t i = 0; i < block.Numbers.size(); i += numbers) {
        AppendLine(lines, &block.Numbers[i], numbers);
    }
    good_.Write(lines);
}

void ResultsTables::Add(const BadRow& bad) {
    if (!bad_) {
        bad_.emplace(badCsv_);
        bad_->Write(Heading(study_, false));
    }
    std::string line = std::to_string(bad.Row + 1);
    for (const double value : bad.Values) {
        design::AppendShortest(line.append(","), value);
    }
    bad_->Write(line.append(",\"").append(bad.Reason).append("\"\n"));
    ++badRows_;
}

void ResultsTables::Finish() {
    good_.Finish();
    if (bad_) {
        bad_->Finish();
    } else {
        RemoveIfThere(badCsv_);
    }
}

void EachGoodRow(const Database& database, const Study& study, const std::function<void(Block&)>& take) {
    const std::size_t numbers = NumbersOfRow(study);
    Statement rows(database, "SELECT * FROM results ORDER BY row");
    Block block;
    const auto give = [&] {
        if (!block.Numbers.empty()) {
            take(block);
            block.Numbers.clear();
        }
    };
    while (rows.Step()) {
        for (std::size_t i = 0; i < numbers; ++i) {
            block.Numbers.push_back(rows.Number(static_cast<int>(i)));
        }
        if (block.Numbers.size() == numbers * RowsOfBlock) {
            give();
        }
    }
    give();
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
