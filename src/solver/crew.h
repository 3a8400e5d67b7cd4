// The threads of one solution, and how work is shared among them. Callers: Solve, which shares the chunks; a chunk,
// which shares its own parts with the threads that have no chunk left, so that one large chunk does not keep the others
// waiting.
#pragma once
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace zirvo::solver {

/// What is done for each of some numbers, on any thread and in any order: nothing that it does may hang on either.
/// Refers to the function that it is made of, and takes no room for it.
class Part {
public:
    template <class Function>
    Part(const Function& function)  // NOLINT(google-explicit-constructor): a function is such a part
        : function_(&function), call_([](const void* at, std::size_t i) { (*static_cast<const Function*>(at))(i); }) {}

    void operator()(std::size_t i) const { call_(function_, i); }

private:
    const void* function_;
    void (*call_)(const void*, std::size_t);
};

class Crew {
public:
    /// @param threads  in all, this one included; fewer where the system gives no more
    explicit Crew(std::size_t threads);
    ~Crew();
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    /// part(0) .. part(count - 1), on this thread and on those that have nothing else to do; all are done when it comes
    /// back. May be called within a part. The first exception of a part is thrown here, with the other parts left out.
    void Share(std::size_t count, const Part& part);

private:
    /// Parts at hand. Stands on the stack of the thread that shares them.
    struct Job {
        const Part& Do;
        std::size_t Count;
        std::atomic<std::size_t> Next{0};
        std::size_t Helpers = 0;  // at work on it; under the lock
        std::exception_ptr Failure;
    };

    void Help();
    void WorkOn(Job& job);
    Job* Wanting(const Job* behind);
    void HelpWith(Job& job, std::unique_lock<std::mutex>& held);

    std::mutex lock_;
    std::condition_variable changed_;
    std::vector<Job*> jobs_;  // the oldest first: its parts are the largest
    bool ended_ = false;
    std::vector<std::thread> helpers_;
};

/// The same where there may be no crew.
void ShareWith(Crew* crew, std::size_t count, const Part& part);

}  // namespace zirvo::solver
