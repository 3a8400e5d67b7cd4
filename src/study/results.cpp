// The results of a study, see results.h.
#include "study/results.h"

#include <filesystem>

#include "base/runtime_fault.h"
#include "platform/folders.h"
#include "study/row_workers.h"
#include "study/tables.h"

namespace zirvo::study {
namespace {

namespace fs = std::filesystem;

constexpr const char* NewEnd = ".new";
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

/// Failures of a file of lines in the study's own words.
template <class Act>
void Told(const std::string& file, const Act& act) {
    try {
        act();
    } catch (const RuntimeFault& caught) {
        const char* const room = caught.Number() == fault::DiskFull ? "make room and " : "";
        throw FileError{file, 0,
                        std::string("cannot be written: ") + caught.what() + "; the results are kept: " + room +
                            "start the study again"};
    }
}

}  // namespace

Unfinished::Unfinished(const std::string& target)
    : target_(target), path_(target + NewEnd), gone_([this] { Remove(); }) {
    if (!RemoveIfThere(path_)) {
        throw FileError{path_, 0, "is left over from an earlier run and cannot be removed"};
    }
}

Unfinished::~Unfinished() {
    const NotInterrupted untilItIsGone;
    Remove();
}

void Unfinished::Remove() {
    if (lies_) {
        RemoveIfThere(path_);
        lies_ = false;
    }
}

bool Unfinished::PutInPlace() {
    const auto pathOf = [](const std::string& name) { return fs::path(std::u8string(name.begin(), name.end())); };
    std::error_code ignored;
    const fs::file_status earlier = fs::status(pathOf(target_), ignored);
    if (fs::exists(earlier)) {
        fs::permissions(pathOf(path_), earlier.permissions(), ignored);
    }
    const NotInterrupted untilItIsThere;
    lies_ = !MoveOver(path_, target_);
    return !lies_;
}

ResultsDatabase::ResultsDatabase(const Study& study, const std::string& target, const std::string& told, RowRange range)
    : file_(target), told_(told), numbers_(NumbersOfRow(study)), missing_(range.Count()) {
    {
        const NotInterrupted untilItIsThere;
        database_.emplace(file_.Path(), Database::Mode::ReadWrite, told);
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
    missing_ -= count;
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
    --missing_;
}

Unfinished& ResultsDatabase::Finish() {
    if (missing_ != 0) {  // what an earlier run has left is no more what it was
        throw FileError{told_, 0,
                        "would have another number of rows than the study: what was made earlier is damaged; move it "
                        "away, and it is made anew"};
    }
    insertMany_.reset();
    insertOne_.reset();
    insertBad_.reset();
    database_->Execute("COMMIT");
    database_->Close();
    return file_;
}

LinesFile::LinesFile(const std::string& target) : target_(target) {
    Told(target_, [&] { file_.emplace(target_, FileNameOf(target_) + NewEnd); });
}

void LinesFile::Write(const std::string& lines) {
    buffer_ += lines;
    if (buffer_.size() >= BytesOfWriting) {
        Flush();
    }
}

void LinesFile::Flush() {
    Told(target_, [&] { file_->Write(buffer_); });
    buffer_.clear();
}

void LinesFile::Finish() {
    Flush();
    Told(target_, [&] { file_->PutInPlace(zirvo::Flush::ToSystem); });
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
    } else if (!RemoveIfThere(badCsv_)) {
        throw FileError{badCsv_, 0, "is of an earlier run, holds rows that are not bad, and cannot be removed"};
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

namespace {

std::vector<std::vector<double>> ColumnsIn(const std::string& path, const std::vector<std::string>& names) {
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

}  // namespace

std::vector<std::vector<double>> ReadColumns(const std::string& path, const std::vector<std::string>& names) {
    return AgainIfInterrupted([&] { return ColumnsIn(path, names); });
}

}  // namespace zirvo::study
