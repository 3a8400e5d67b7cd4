// A run of a study, see run_study.h.
//
// Threads take blocks of rows and hand what they make to the caller's thread, which alone writes. A block that waits to
// be written waits in memory; when a few wait, the threads wait too.
#include "study/run_study.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <set>
#include <system_error>
#include <thread>

#include "platform/files.h"
#include "platform/folders.h"

namespace zirvo::study {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::uint64_t BlockRows = 64;
constexpr std::size_t MostWaiting = 256;  // blocks
constexpr auto BetweenCommits = std::chrono::milliseconds(250);

struct Block {
    std::vector<std::uint64_t> Rows;
    std::vector<RowResult> Results;
};

/// The threads that work on rows, and what they have made.
class RowWorkers {
public:
    RowWorkers(const Study& study, RowRange range, const std::vector<bool>& done, unsigned threads)
        : study_(study), range_(range), done_(done), working_(threads) {
        for (unsigned i = 0; i < threads; ++i) {
            try {
                threads_.emplace_back([this] { Work(); });
            } catch (const std::system_error&) {
                const std::lock_guard lock(mutex_);
                working_ -= threads - i;
                if (threads_.empty()) {
                    throw;
                }
                break;  // the system gives no more threads: those there are do the work
            }
        }
    }

    ~RowWorkers() {
        {
            const std::lock_guard lock(mutex_);
            stop_ = true;
        }
        room_.notify_all();
        for (std::thread& thread : threads_) {
            thread.join();
        }
    }
    RowWorkers(const RowWorkers&) = delete;
    RowWorkers& operator=(const RowWorkers&) = delete;

    enum class Taken { Block, NothingYet, NothingLeft };

    /// The next block that is made, or nothing within a moment. What a thread threw is thrown here.
    Taken Take(Block& block, Clock::time_point until) {
        std::unique_lock lock(mutex_);
        made_.wait_until(lock, until, [this] { return !waiting_.empty() || working_ == 0; });
        if (failure_) {
            std::rethrow_exception(failure_);
        }
        if (waiting_.empty()) {
            return working_ == 0 ? Taken::NothingLeft : Taken::NothingYet;
        }
        block = std::move(waiting_.front());
        waiting_.pop_front();
        lock.unlock();
        room_.notify_one();
        return Taken::Block;
    }

private:
    const Study& study_;
    RowRange range_;
    const std::vector<bool>& done_;
    std::atomic<std::uint64_t> next_{0};
    std::mutex mutex_;
    std::condition_variable made_;
    std::condition_variable room_;
    std::deque<Block> waiting_;
    unsigned working_;
    bool stop_ = false;
    std::exception_ptr failure_;
    std::vector<std::thread> threads_;

    void Work() {
        std::exception_ptr failure;
        try {
            RowWork work(study_);
            for (Block block; Make(work, block) && HandOver(std::move(block)); block = {}) {
            }
        } catch (...) {  // out of memory
            failure = std::current_exception();
        }
        const std::lock_guard lock(mutex_);
        failure_ = failure ? failure : failure_;
        --working_;
        made_.notify_one();
    }

    bool Make(RowWork& work, Block& block) {
        while (block.Rows.empty()) {
            const std::uint64_t first = next_.fetch_add(BlockRows);
            if (first >= range_.Count()) {
                return false;
            }
            for (std::uint64_t i = first; i < std::min(first + BlockRows, range_.Count()); ++i) {
                if (!done_[i]) {
                    block.Rows.push_back(range_.First + i);
                    work.Run(block.Rows.back(), block.Results.emplace_back());
                }
            }
        }
        return true;
    }

    bool HandOver(Block&& block) {
        std::unique_lock lock(mutex_);
        room_.wait(lock, [this] { return stop_ || waiting_.size() < MostWaiting; });
        if (stop_) {
            return false;
        }
        waiting_.push_back(std::move(block));
        made_.notify_one();
        return true;
    }
};

double SecondsOf(Clock::duration time) {
    return std::chrono::duration<double>(time).count();
}

std::string MemoryPath(const RunOptions& options, int part, int parts) {
    return options.Output + (parts > 0 ? ".part-" + std::to_string(part) + "-of-" + std::to_string(parts) : "") +
           ".sqlite";
}

class StudyRun {
public:
    StudyRun(const Study& study, const RunOptions& options)
        : study_(study), options_(options), range_(RangeOf(study.Rows, options.Part, options.Parts)) {}

    RunOutcome Run() {
        const std::string path = MemoryPath(options_, options_.Part, options_.Parts);
        Memory memory(study_, path, range_);
        const std::vector<bool> done = memory.DoneRows();
        progress_.Rows = range_.Count();
        progress_.Done = static_cast<std::uint64_t>(std::count(done.begin(), done.end(), true));
        RunOutcome outcome;
        outcome.Earlier = progress_.Done;
        if (progress_.Done < progress_.Rows) {
            WorkOn(memory, done);
        }
        return options_.Parts > 0 ? OfPart(path, outcome.Earlier) : Finished(memory, path, outcome.Earlier);
    }

    RunOutcome Merge(int parts) {
        const std::string path = MemoryPath(options_, 0, 0);
        Memory memory(study_, path, range_);
        for (int part = 1; part <= parts; ++part) {
            memory.AddAllOf(MemoryPath(options_, part, parts), RangeOf(study_.Rows, part, parts));
        }
        return Finished(memory, path, study_.Rows);
    }

private:
    const Study& study_;
    const RunOptions& options_;
    RowRange range_;
    Progress progress_;

    void WorkOn(Memory& memory, const std::vector<bool>& done) {
        const unsigned machine = std::max(1U, std::thread::hardware_concurrency());
        RowWorkers workers(study_, range_, done,
                           options_.Threads > 0 ? static_cast<unsigned>(options_.Threads) : machine);
        const Clock::time_point start = Clock::now();
        const std::uint64_t earlier = progress_.Done;
        Clock::time_point commit = start + BetweenCommits;
        for (Block block;;) {
            const RowWorkers::Taken taken = workers.Take(block, commit);
            if (taken == RowWorkers::Taken::NothingLeft) {
                break;
            }
            if (taken == RowWorkers::Taken::Block) {
                for (std::size_t i = 0; i < block.Rows.size(); ++i) {
                    memory.Add(block.Rows[i], block.Results[i]);
                }
                progress_.Done += block.Rows.size();
            }
            if (const Clock::time_point now = Clock::now(); now >= commit) {
                memory.Commit();
                progress_.RowsPerSecond = static_cast<double>(progress_.Done - earlier) / SecondsOf(now - start);
                progress_.SecondsLeft =
                    static_cast<double>(progress_.Rows - progress_.Done) / std::max(progress_.RowsPerSecond, 1e-9);
                Tell();
                commit = now + BetweenCommits;
            }
        }
        memory.Commit();
    }

    void Tell() const {
        if (options_.Tell) {
            options_.Tell(progress_);
        }
    }

    RunOutcome OfPart(const std::string& path, std::uint64_t earlier) const {
        return {range_.Count(), earlier, 0, path, ""};
    }

    RunOutcome Finished(Memory& memory, const std::string& path, std::uint64_t earlier) const {
        memory.Finish();
        const std::string csv = options_.Output + ".csv";
        const std::string badFile = options_.Output + "_bad.csv";
        const std::uint64_t bad = WriteTables(study_, path, csv, badFile);
        return {range_.Count(), earlier, bad, csv, bad > 0 ? badFile : ""};
    }
};

/// How many parts the files beside the output belong to; a part of another count is an error.
int PartsInFolder(const RunOptions& options) {
    const std::string folder = FolderOf(options.Output);
    const std::string stem = FileNameOf(options.Output) + ".part-1-of-";
    const std::string end = ".sqlite";
    std::set<int> counts;
    for (const std::string& name : NamesIn(folder.empty() ? "." : folder)) {
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
                        counts.empty() ? "there is no such file: run the parts first"
                                       : "there are parts of different numbers N: move those of the wrong one away"};
    }
    return *counts.begin();
}

template <class Work>
std::variant<RunOutcome, FileError> Guarded(Work work) {
    try {
        return work();
    } catch (const FileError& error) {
        return error;
    }
}

}  // namespace

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
    return Guarded([&] { return StudyRun(study, options).Run(); });
}

std::variant<RunOutcome, FileError> MergeParts(const Study& study, const RunOptions& options) {
    return Guarded([&] {
        RunOptions whole = options;
        whole.Part = whole.Parts = 0;
        return StudyRun(study, whole).Merge(PartsInFolder(options));
    });
}

}  // namespace zirvo::study
