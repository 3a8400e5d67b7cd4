// Threads that work on rows, see row_workers.h.
#include "study/row_workers.h"

#include <algorithm>

#include "base/start_threads.h"
#include "study/row_work.h"

namespace zirvo::study {
namespace {

constexpr std::uint64_t MostRowsOfBlock = 256;
constexpr double BlockSeconds = 3e-3;
constexpr std::uint64_t SharesOfRest = 8;       // that one thread may have of what is left, so that all end together
constexpr std::uint64_t MostAhead = 1U << 16U;  // rows that are made and not yet taken

double SecondsSince(RowWorkers::Clock::time_point start) {
    return std::chrono::duration<double>(RowWorkers::Clock::now() - start).count();
}

void MakeBlock(RowWork& work, RowResult& result, Block& block) {
    for (std::uint64_t row = block.Range.First; row < block.Range.Last; ++row) {
        work.Run(row, result);
        if (!result.Reason.empty()) {
            block.Bad.push_back({row, result.Values, result.Reason});
            continue;
        }
        const std::size_t begin = block.Numbers.size();
        block.Numbers.push_back(static_cast<double>(row + 1));
        block.Numbers.insert(block.Numbers.end(), result.Values.begin(), result.Values.end());
        AppendLine(block.Lines, &block.Numbers[begin], block.Numbers.size() - begin);
    }
}

}  // namespace

void AppendLine(std::string& lines, const double* numbers, std::size_t count) {
    lines.append(std::to_string(static_cast<std::uint64_t>(numbers[0])));
    for (std::size_t i = 1; i < count; ++i) {
        lines.push_back(',');
        design::AppendShortest(lines, numbers[i]);
    }
    lines.push_back('\n');
}

RowWorkers::RowWorkers(const Study& study, RowRange range, unsigned threads)
    : study_(study),
      range_(range),
      threadCount_(std::min<std::uint64_t>(threads, range.Count())),
      next_(range.First),
      taken_(range.First) {
    threads_ = StartThreads(threadCount_, 1, [this] { Work(); });
}

RowWorkers::~RowWorkers() {
    {
        const std::lock_guard lock(mutex_);
        stop_ = true;
    }
    room_.notify_all();
    for (std::thread& thread : threads_) {
        thread.join();
    }
}

std::vector<Block> RowWorkers::Take(Clock::time_point until) {
    std::vector<Block> blocks;
    {
        std::unique_lock lock(mutex_);
        const auto next = [this] { return !waiting_.empty() && waiting_.begin()->first == taken_; };
        made_.wait_until(lock, until, [&] { return failure_ || next(); });
        if (failure_) {
            std::rethrow_exception(failure_);
        }
        while (next()) {
            blocks.push_back(std::move(waiting_.begin()->second));
            waiting_.erase(waiting_.begin());
            taken_ = blocks.back().Range.Last;
        }
    }
    room_.notify_all();
    return blocks;
}

void RowWorkers::Work() {
    try {
        RowWork work(study_);
        RowResult result;
        for (std::uint64_t wanted = 1;;) {
            Block block;
            block.Range = Choose(wanted);
            if (block.Range.Count() == 0) {
                return;
            }
            const Clock::time_point start = Clock::now();
            MakeBlock(work, result, block);
            const double perRow = SecondsSince(start) / static_cast<double>(block.Range.Count());
            wanted = static_cast<std::uint64_t>(std::clamp(BlockSeconds / std::max(perRow, 1e-9), 1.0, 1e6));
            HandOver(std::move(block));
        }
    } catch (...) {  // out of memory
        const std::lock_guard lock(mutex_);
        failure_ = std::current_exception();
        made_.notify_one();
    }
}

/// The next rows that nobody has; none where all are taken or the work is to stop.
RowRange RowWorkers::Choose(std::uint64_t wanted) {
    std::unique_lock lock(mutex_);
    room_.wait(lock, [this] { return stop_ || next_ - taken_ < MostAhead; });
    const std::uint64_t rest = stop_ || failure_ ? 0 : range_.Last - next_;
    const std::uint64_t most = std::clamp<std::uint64_t>(rest / (threadCount_ * SharesOfRest), 1, MostRowsOfBlock);
    const RowRange rows{next_, next_ + std::min({rest, most, wanted})};
    next_ = rows.Last;
    return rows;
}

void RowWorkers::HandOver(Block&& block) {
    const std::lock_guard lock(mutex_);
    const std::uint64_t first = block.Range.First;
    waiting_.emplace(first, std::move(block));
    if (first == taken_) {
        made_.notify_one();
    }
}

}  // namespace zirvo::study
