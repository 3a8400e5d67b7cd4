// The threads that work on the rows of a study, and what they have made. Caller: the run of a study.
//
// A thread takes as many rows as keep it busy for a few milliseconds, fewer near the end so that all end together. It
// also makes the lines of the table, so that the caller's thread, which alone writes, has little to do. What is made
// waits in memory until it is taken in the order of the rows; threads that are far ahead of that wait.
#pragma once
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

#include "study/block.h"
#include "study/study.h"

namespace zirvo::study {

class RowWorkers {
public:
    using Clock = std::chrono::steady_clock;

    /// The study must outlive this object. @param threads  as many as the system gives, at least one
    RowWorkers(const Study& study, RowRange range, unsigned threads);
    ~RowWorkers();
    RowWorkers(const RowWorkers&) = delete;
    RowWorkers& operator=(const RowWorkers&) = delete;

    /// The next blocks that are made, in the order of the rows; none if there is none until the moment. What a thread
    /// threw is thrown here.
    std::vector<Block> Take(Clock::time_point until);

private:
    const Study& study_;
    RowRange range_;
    std::uint64_t threadCount_;
    std::mutex mutex_;
    std::condition_variable made_;
    std::condition_variable room_;
    std::map<std::uint64_t, Block> waiting_;  // by their first row
    std::uint64_t next_;                      // row that no thread has yet
    std::uint64_t taken_;                     // row that has not been taken
    bool stop_ = false;
    std::exception_ptr failure_;
    std::vector<std::thread> threads_;

    void Work();
    RowRange Choose(std::uint64_t wanted);
    void HandOver(Block&& block);
};

/// Adds a row of a table: numbers as the shortest texts that read back the same, the first one a whole number.
void AppendLine(std::string& lines, const double* numbers, std::size_t count);

}  // namespace zirvo::study
