// Many pavements, see solve_many.h.
#include "python/solve_many.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

#include "base/start_threads.h"
#include "python/problem_arrays.h"
#include "solver/solve.h"

namespace zirvo::python {
namespace {

constexpr auto BetweenTells = std::chrono::milliseconds(100);

class Crowd {
public:
    Crowd(const std::vector<solver::Problem>& problems, solver::UnitSystem units)
        : problems_(problems), units_(units), results_(problems.size()) {}

    ~Crowd() { Join(); }
    Crowd(const Crowd&) = delete;
    Crowd& operator=(const Crowd&) = delete;

    std::vector<Solved> Run(unsigned threads, const std::function<void(std::size_t)>& tell) {
        threads_ = StartThreads(threads, 1, [this] { Work(); });
        for (bool done = false; !done;) {
            {
                std::unique_lock lock(mutex_);
                done = ended_.wait_for(lock, BetweenTells, [this] { return endedThreads_ == threads_.size(); });
            }
            tell(done_);
        }
        Join();
        if (failure_) {
            std::rethrow_exception(failure_);
        }
        return std::move(results_);
    }

private:
    const std::vector<solver::Problem>& problems_;
    solver::UnitSystem units_;
    std::vector<Solved> results_;
    std::atomic<std::size_t> next_{0};
    std::atomic<std::size_t> done_{0};
    std::atomic<bool> stop_{false};
    std::mutex mutex_;
    std::condition_variable ended_;
    std::size_t endedThreads_ = 0;
    std::exception_ptr failure_;
    std::vector<std::thread> threads_;

    void Join() {
        stop_ = true;
        for (std::thread& thread : threads_) {
            if (thread.joinable()) {
                thread.join();
            }
        }
    }

    void Work() {
        std::exception_ptr failure;
        try {
            for (std::size_t i = next_++; i < problems_.size() && !stop_; i = next_++) {
                SolveOne(i);
                ++done_;
            }
        } catch (...) {  // out of memory
            failure = std::current_exception();
            stop_ = true;
        }
        const std::lock_guard lock(mutex_);
        failure_ = failure ? failure : failure_;
        ++endedThreads_;
        ended_.notify_one();
    }

    void SolveOne(std::size_t i) {
        if (problems_[i].Layers.empty()) {
            return;
        }
        solver::Solution solution = solver::Solve(solver::ToConsistentUnits(problems_[i], units_), {.Threads = 1});
        try {
            Finish(solution, units_);
            results_[i] = std::move(solution);
        } catch (const Refused& refused) {
            results_[i] = refused.Message;
        }
    }
};

}  // namespace

std::vector<Solved> SolveMany(const std::vector<solver::Problem>& problems, solver::UnitSystem units, int threads,
                              const std::function<void(std::size_t)>& tell) {
    const unsigned machine = std::max(1U, std::thread::hardware_concurrency());
    const auto most = static_cast<unsigned>(std::max<std::size_t>(1, std::min<std::size_t>(problems.size(), 256)));
    const unsigned wanted = threads > 0 ? static_cast<unsigned>(threads) : machine;
    return Crowd(problems, units).Run(std::min(wanted, most), tell);
}

}  // namespace zirvo::python
