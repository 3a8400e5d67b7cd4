// Threads and their work, see crew.h. All is under one lock but the numbers of the parts, which threads take without
// it.
#include "solver/crew.h"

#include <algorithm>
#include <system_error>

namespace zirvo::solver {

Crew::Crew(std::size_t threads) {
    for (std::size_t i = 1; i < threads; ++i) {
        try {
            helpers_.emplace_back([this] { Help(); });
        } catch (const std::system_error&) {
            break;  // the system gives no more threads: those there are do the work
        }
    }
}

Crew::~Crew() {
    {
        const std::lock_guard held(lock_);
        ended_ = true;
    }
    changed_.notify_all();
    for (std::thread& helper : helpers_) {
        helper.join();
    }
}

/// A helper's life.
void Crew::Help() {
    std::unique_lock held(lock_);
    for (;;) {
        if (Job* job = Wanting(nullptr)) {
            HelpWith(*job, held);
        } else if (ended_) {
            return;
        } else {
            changed_.wait(held);
        }
    }
}

/// Parts of a job, until there are none left.
void Crew::WorkOn(Job& job) {
    for (std::size_t i = job.Next++; i < job.Count; i = job.Next++) {
        try {
            job.Do(i);
        } catch (...) {  // out of memory: told to the one who shared the work, on that thread
            job.Next = job.Count;
            const std::lock_guard held(lock_);
            if (!job.Failure) {
                job.Failure = std::current_exception();
            }
        }
    }
}

/// The oldest job that has parts left, of those behind the given one; none: of all.
Crew::Job* Crew::Wanting(const Job* behind) {
    auto job = jobs_.begin();
    if (behind != nullptr) {
        job = std::find(jobs_.begin(), jobs_.end(), behind) + 1;
    }
    job = std::find_if(job, jobs_.end(), [](const Job* at) { return at->Next < at->Count; });
    return job == jobs_.end() ? nullptr : *job;
}

void Crew::HelpWith(Job& job, std::unique_lock<std::mutex>& held) {
    ++job.Helpers;
    held.unlock();
    WorkOn(job);
    held.lock();
    if (--job.Helpers == 0) {
        changed_.notify_all();
    }
}

void Crew::Share(std::size_t count, const Part& part) {
    if (helpers_.empty() || count < 2) {
        for (std::size_t i = 0; i < count; ++i) {
            part(i);
        }
        return;
    }
    Job job{part, count, {}, 0, nullptr};
    {
        const std::lock_guard held(lock_);
        jobs_.push_back(&job);
    }
    changed_.notify_all();
    WorkOn(job);
    std::unique_lock held(lock_);
    while (job.Helpers > 0) {
        // What is shared later may be what the helpers of this job wait for.
        if (Job* later = Wanting(&job)) {
            HelpWith(*later, held);
        } else {
            changed_.wait(held);
        }
    }
    jobs_.erase(std::find(jobs_.begin(), jobs_.end(), &job));
    held.unlock();
    if (job.Failure) {
        std::rethrow_exception(job.Failure);
    }
}

void ShareWith(Crew* crew, std::size_t count, const Part& part) {
    if (crew != nullptr) {
        crew->Share(count, part);
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        part(i);
    }
}

}  // namespace zirvo::solver
