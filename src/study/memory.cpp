// The memory of a study, see memory.h.
#include "study/memory.h"

#include "platform/folders.h"
#include "platform/interruption.h"
#include "study/tables.h"

namespace zirvo::study {

Memory::Memory(const Study& study, const std::string& path, RowRange range)
    : study_(study), range_(range), database_(path, Database::Mode::ReadWrite) {
    // Exclusive: no file of shared memory, which folders over a network cannot have, and nobody else meanwhile. The
    // lock stays behind the transaction. As long as nothing is changed there is nothing to wait for the disk for.
    database_.Execute("PRAGMA locking_mode=EXCLUSIVE; PRAGMA synchronous=OFF; BEGIN EXCLUSIVE");
    made_ = HasTable(database_, "study");
    if (made_) {
        RequireMarks(database_, study, range);
        finished_ = HasTable(database_, "results");
        done_ = finished_ ? range.Count() : CountDone();
    } else if (HasAnyTable(database_)) {
        throw FileError{path, 0, "is a database of something else; move it away or choose --output"};
    }
    database_.Execute("ROLLBACK; PRAGMA synchronous=NORMAL");
    waiting_.Range = {range.First + done_, range.First + done_};
}

Memory::~Memory() {
    if (!made_ && !replaced_) {
        const NotInterrupted untilItIsGone;
        RemoveIfThere(database_.RealPath());
    }
}

std::uint64_t Memory::CountDone() const {
    Statement chunks(database_, "SELECT first, rows FROM done ORDER BY first");
    std::uint64_t next = range_.First + 1;
    while (chunks.Step()) {
        if (static_cast<std::uint64_t>(chunks.Integer(0)) != next) {
            throw FileError{database_.Path(), 0, "is damaged: move it away, and the study begins anew"};
        }
        next += static_cast<std::uint64_t>(chunks.Integer(1));
    }
    return next - 1 - range_.First;
}

void Memory::Earlier(const std::function<void(Block&)>& take) const {
    if (!made_ || finished_) {
        return;
    }
    Statement chunks(database_, "SELECT first, rows, results FROM done ORDER BY first");
    for (Block block; chunks.Step();) {
        block.Range.First = static_cast<std::uint64_t>(chunks.Integer(0)) - 1;
        block.Range.Last = block.Range.First + static_cast<std::uint64_t>(chunks.Integer(1));
        chunks.Numbers(2, block.Numbers);
        block.Lines.clear();
        take(block);
    }
}

void Memory::Add(const Block& block) {
    waiting_.Range.Last = block.Range.Last;
    waiting_.Numbers.insert(waiting_.Numbers.end(), block.Numbers.begin(), block.Numbers.end());
    waiting_.Bad.insert(waiting_.Bad.end(), block.Bad.begin(), block.Bad.end());
}

std::size_t Memory::Waiting() const {
    constexpr std::size_t bytesOfBadRow = 256;
    return waiting_.Numbers.size() * sizeof(double) + waiting_.Bad.size() * bytesOfBadRow;
}

void Memory::Make() {
    database_.Execute("PRAGMA journal_mode=WAL; BEGIN");
    MakeMarks(database_, study_, range_);
    database_.Execute("CREATE TABLE done(first INTEGER PRIMARY KEY, rows INTEGER, results BLOB)");
    MakeBadTable(database_, study_);
    database_.Execute("COMMIT");
    made_ = true;
}

void Memory::Commit() {
    if (waiting_.Range.Count() == 0) {
        return;
    }
    if (!made_) {
        Make();
    }
    database_.Execute("BEGIN");
    Statement chunk(database_, InsertInto("done", 3));
    chunk.Bind(1, static_cast<std::int64_t>(waiting_.Range.First) + 1);
    chunk.Bind(2, static_cast<std::int64_t>(waiting_.Range.Count()));
    chunk.Bind(3, waiting_.Numbers);
    chunk.Step();
    Statement insert(database_, InsertInto("bad", 2 + study_.Vary.size()));
    for (const BadRow& bad : waiting_.Bad) {
        InsertBad(insert, bad);
    }
    database_.Execute("COMMIT");
    waiting_.Range.First = waiting_.Range.Last;
    waiting_.Numbers.clear();
    waiting_.Bad.clear();
}

void Memory::EachBad(const std::function<void(const BadRow&)>& take) {
    if (!waiting_.Bad.empty()) {
        Commit();  // earlier ones stand in the file only
    }
    if (made_) {
        EachBadRow(database_, study_, take);
    }
}

void Memory::ReplaceBy(Unfinished& file) {
    database_.CloseWhole();  // what is left written ahead would be taken for a part of the new file
    if (!file.PutInPlace()) {
        throw FileError{database_.Path(), 0, "cannot be replaced by its finished self"};
    }
    replaced_ = true;
}

}  // namespace zirvo::study
