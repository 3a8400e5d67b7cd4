// Threads that all do the same work. Callers: the rows of a study, many pavements from Python.
#pragma once
#include <cstddef>
#include <thread>
#include <vector>

namespace zirvo {

/// Starts up to `wanted` threads, each with a copy of the work. Where the system gives no more, those that there are do
/// all of it; fewer than `least` are an error. @param least  0 or 1
template <class Work>
std::vector<std::thread> StartThreads(std::size_t wanted, std::size_t least, const Work& work) {
    std::vector<std::thread> threads;
    threads.reserve(wanted);
    while (threads.size() < wanted) {
        try {
            threads.emplace_back(work);
        } catch (...) {  // no thread to be had, or no memory for one
            if (threads.size() < least) {
                throw;
            }
            break;
        }
    }
    return threads;
}

}  // namespace zirvo
