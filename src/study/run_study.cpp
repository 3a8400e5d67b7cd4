// A run of a study, see run_study.h.
//
// Threads work on the rows; the caller's thread alone writes, in the order of the rows: the results, which are put
// under their names at the end, and the memory, from which a later run makes the same if this one does not come to its
// end.
#include "study/run_study.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <memory>
#include <optional>
#include <set>
#include <system_error>
#include <thread>

#include "platform/file_lock.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/interruption.h"
#include "study/memory.h"
#include "study/results.h"
#include "study/row_workers.h"
#include "study/tables.h"

namespace zirvo::study {
namespace {

using Clock = RowWorkers::Clock;

constexpr std::size_t MostUncommitted = 1U << 23U;  // bytes
constexpr auto FirstCommit = std::chrono::milliseconds(100);
constexpr auto BetweenCommits = std::chrono::milliseconds(250);
constexpr auto BetweenTells = std::chrono::milliseconds(250);

double SecondsOf(Clock::duration time) {
    return std::chrono::duration<double>(time).count();
}

/// One run at a time on the files of a memory, from its opening to the last table: SQLite's own lock ends with its
/// file, which is replaced in between. Where no lock can be had at all the run goes on without.
class MemoryLock {
public:
    explicit MemoryLock(const std::string& path) {
        const NotInterrupted untilItIsNoted;
        bool held = false;
        lock_ = FileLock::OfAnyFile(path + ".lock", held);
        if (held) {
            throw FileError{path, 0, "another run of this study works on it"};
        }
    }
    ~MemoryLock() {
        const NotInterrupted untilItIsGone;
        Release();
    }
    MemoryLock(const MemoryLock&) = delete;
    MemoryLock& operator=(const MemoryLock&) = delete;

private:
    std::unique_ptr<FileLock> lock_;
    const UndoneIfInterrupted released_{[this] { Release(); }};

    void Release() {
        if (lock_ != nullptr) {
            lock_->RemoveFile();
            lock_.reset();
        }
    }
};

/// One try at a study: a call that a signal has interrupted ends it, and the next one goes on from the memory.
class StudyRun {
public:
    /// @param earlier  rows that were done before the first try, which sets it
    StudyRun(const Study& study, const RunOptions& options, std::optional<std::uint64_t>& earlier)
        : study_(study),
          options_(options),
          range_(RangeOf(study.Rows, options.Part, options.Parts)),
          path_(MemoryPath(options.Output, options.Part, options.Parts)),
          lock_(path_),
          memory_(study, path_, range_) {
        earlier = earlier.value_or(memory_.DoneRows());
        outcome_ = {range_.Count(), *earlier, 0, path_, ""};
    }

    RunOutcome Run() {
        progress_ = {memory_.DoneRows(), range_.Count()};
        if (memory_.Finished()) {
            return Told();
        }
        try {
            Work();
            return Finished();
        } catch (...) {
            Rescue();
            throw;
        }
    }

    RunOutcome Merge(int parts) {
        outcome_.Earlier = range_.Count();
        OpenResults();
        for (int part = 1; part <= parts; ++part) {
            InPart(part, parts, [this](const Database& finished) {
                EachGoodRow(finished, study_, [this](Block& block) { Write(block); });
            });
        }
        for (int part = 1; part <= parts; ++part) {
            InPart(part, parts, [this](const Database& finished) {
                EachBadRow(finished, study_, [this](const BadRow& bad) { Write(bad); });
            });
        }
        return Finished();
    }

private:
    const Study& study_;
    const RunOptions& options_;
    RowRange range_;
    std::string path_;
    MemoryLock lock_;
    Memory memory_;
    std::optional<ResultsDatabase> database_;
    std::optional<ResultsTables> tables_;
    Progress progress_;
    RunOutcome outcome_;

    void OpenResults() {
        if (options_.Parts <= 0) {
            tables_.emplace(study_, options_.Output);
        }
        database_.emplace(study_, memory_.RealPath(), path_, range_);
    }

    template <class Rows>
    void Write(const Rows& rows) {
        database_->Add(rows);
        if (tables_) {
            tables_->Add(rows);
        }
    }

    void Work() {
        std::optional<RowWorkers> workers;  // they are at it while the files are made
        if (progress_.Done < progress_.Rows) {
            const unsigned machine = std::max(1U, std::thread::hardware_concurrency());
            try {
                workers.emplace(study_, RowRange{range_.First + progress_.Done, range_.Last},
                                options_.Threads > 0 ? static_cast<unsigned>(options_.Threads) : machine);
            } catch (const std::system_error&) {
                throw FileError{path_, 0, "no thread can be started to work on its rows; what was done is kept"};
            }
        }
        OpenResults();
        memory_.Earlier([this](Block& block) { Write(block); });
        if (workers) {
            WriteAllOf(*workers);
        }
        memory_.EachBad([this](const BadRow& bad) { Write(bad); });
    }

    void WriteAllOf(RowWorkers& workers) {
        const Clock::time_point start = Clock::now();
        const std::uint64_t earlier = progress_.Done;
        Clock::time_point commit = start + FirstCommit;
        Clock::time_point tell = start + BetweenTells;
        while (progress_.Done < progress_.Rows) {
            for (const Block& block : workers.Take(commit)) {
                memory_.Add(block);
                Write(block);
                progress_.Done += block.Range.Count();
                if (memory_.Waiting() > MostUncommitted) {  // the disk may have been slow, and the threads far ahead
                    memory_.Commit();
                }
            }
            const Clock::time_point now = Clock::now();
            progress_.RowsPerSecond = static_cast<double>(progress_.Done - earlier) / SecondsOf(now - start);
            progress_.SecondsLeft =
                static_cast<double>(progress_.Rows - progress_.Done) / std::max(progress_.RowsPerSecond, 1e-9);
            if (now >= commit) {
                if (progress_.SecondsLeft > SecondsOf(FirstCommit)) {  // else the results are there as soon
                    memory_.Commit();
                }
                commit = Clock::now() + BetweenCommits;
            }
            if (now >= tell) {
                Tell();
                tell = now + BetweenTells;
            }
        }
    }

    /// What has been made and not been committed, where something has failed.
    void Rescue() {
        try {
            memory_.Commit();
        } catch (...) {
            return;  // told is what failed first
        }
    }

    void Tell() const {
        if (options_.Tell) {
            options_.Tell(progress_);
        }
    }

    /// Has the file of a part read, which must be whole.
    template <class Read>
    void InPart(int part, int parts, const Read& read) const {
        const std::string path = MemoryPath(options_.Output, part, parts);
        const RowRange range = RangeOf(study_.Rows, part, parts);
        if (!WrittenAt(path)) {
            throw FileError{path, 0, "there is no such file: run this part first"};
        }
        const Memory memory(study_, path, range);
        if (!memory.Finished()) {
            throw FileError{path, 0,
                            "has " + std::to_string(memory.DoneRows()) + " of its " + std::to_string(range.Count()) +
                                " rows: run this part to its end first"};
        }
        read(memory.TheDatabase());
    }

    /// A study that is finished: its tables may have been changed or deleted, and are made anew.
    RunOutcome Told() {
        if (options_.Parts <= 0) {
            tables_.emplace(study_, options_.Output);
            EachGoodRow(memory_.TheDatabase(), study_, [this](Block& block) { tables_->Add(block); });
            EachBadRow(memory_.TheDatabase(), study_, [this](const BadRow& bad) { tables_->Add(bad); });
            FinishTables();
        }
        return outcome_;
    }

    /// The tables come first: a database that is finished tells that they have been.
    RunOutcome Finished() {
        Unfinished& database = database_->Finish();
        if (tables_) {
            FinishTables();
        }
        memory_.ReplaceBy(database);
        return outcome_;
    }

    void FinishTables() {
        tables_->Finish();
        outcome_.Bad = tables_->BadRows();
        outcome_.Results = tables_->File();
        outcome_.BadFile = outcome_.Bad > 0 ? tables_->BadFile() : "";
    }
};

/// How many parts the files beside the output belong to; a part of another count is an error.
int PartsInFolder(const RunOptions& options) {
    const std::string folder = FolderOf(options.Output);
    const std::string stem = FileNameOf(options.Output) + ".part-1-of-";
    const std::string end = ".sqlite";
    std::set<int> counts;
    const std::vector<std::string> names = NamesIn(folder.empty() ? "." : folder);
    for (const std::string& name : names) {
        if (name.starts_with(stem) && name.ends_with(end)) {
            const char* const first = name.data() + stem.size();
            const char* const last = name.data() + std::max(name.size() - end.size(), stem.size());
            int count = 0;
            const auto [stop, error] = std::from_chars(first, last, count);
            if (error == std::errc() && stop == last && count > 0) {  // else it is no part of ours
                counts.insert(count);
            }
        }
    }
    if (counts.size() != 1) {
        throw FileError{options.Output + ".part-1-of-N.sqlite", 0,
                        names.empty()    ? "its folder is empty or cannot be read"
                        : counts.empty() ? "there is no such file: run the parts first"
                                         : "there are parts of different numbers N: move those of the wrong one away"};
    }
    return *counts.begin();
}

template <class Work>
std::variant<RunOutcome, FileError> Guarded(const Work& work) {
    try {
        return AgainIfInterrupted(work);
    } catch (const FileError& error) {
        return error;
    }
}

}  // namespace

std::string MemoryPath(const std::string& output, int part, int parts) {
    return output + (parts > 0 ? ".part-" + std::to_string(part) + "-of-" + std::to_string(parts) : "") + ".sqlite";
}

RowRange RangeOf(std::uint64_t rows, int part, int parts) {
    if (parts <= 0) {
        return {0, rows};
    }
    const auto n = static_cast<std::uint64_t>(parts);
    const auto i = static_cast<std::uint64_t>(part);
    const auto start = [&](std::uint64_t k) { return rows / n * k + std::min(k, rows % n); };
    return {start(i - 1), start(i)};
}

std::variant<RunOutcome, FileError> RunStudy(const Study& study, const RunOptions& options) {
    std::optional<std::uint64_t> earlier;
    return Guarded([&] { return StudyRun(study, options, earlier).Run(); });
}

std::variant<RunOutcome, FileError> MergeParts(const Study& study, const RunOptions& options) {
    std::optional<std::uint64_t> earlier;
    return Guarded([&] {
        const int parts = PartsInFolder(options);
        RunOptions whole = options;
        whole.Part = whole.Parts = 0;
        return StudyRun(study, whole, earlier).Merge(parts);
    });
}

}  // namespace zirvo::study
