// Threads that all do the same, also where the system gives fewer than are wanted.
#include "base/start_threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <system_error>

namespace zirvo {
namespace {

std::size_t RunAll(std::vector<std::thread> threads) {
    for (std::thread& thread : threads) {
        thread.join();
    }
    return threads.size();
}

/// Work of which only so many copies can be made, as of threads where the system gives no more.
struct Scarce {
    std::atomic<int>* Left;
    std::atomic<int>* Done;

    Scarce(std::atomic<int>& left, std::atomic<int>& done) : Left(&left), Done(&done) {}
    Scarce(const Scarce& other) : Left(other.Left), Done(other.Done) {
        if ((*Left)-- <= 0) {
            throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
        }
    }
    Scarce(Scarce&&) = default;
    Scarce& operator=(const Scarce&) = delete;
    ~Scarce() = default;
    void operator()() const { ++*Done; }
};

TEST(StartThreads, EachDoesTheWork) {
    std::atomic<int> done = 0;
    EXPECT_EQ(RunAll(StartThreads(5, 1, [&] { ++done; })), 5U);
    EXPECT_EQ(done, 5);
    EXPECT_EQ(RunAll(StartThreads(0, 0, [&] { ++done; })), 0U);
}

TEST(StartThreads, WhereTheSystemGivesNoMoreThoseThereAreAreKept) {
    std::atomic<int> left = 3;
    std::atomic<int> done = 0;
    EXPECT_EQ(RunAll(StartThreads(8, 1, Scarce(left, done))), 3U);
    EXPECT_EQ(done, 3);
}

TEST(StartThreads, FewerThanTheLeastAreAnError) {
    std::atomic<int> left = 0;
    std::atomic<int> done = 0;
    EXPECT_THROW(StartThreads(8, 1, Scarce(left, done)), std::system_error);
    EXPECT_EQ(RunAll(StartThreads(8, 0, Scarce(left, done))), 0U);
}

}  // namespace
}  // namespace zirvo
