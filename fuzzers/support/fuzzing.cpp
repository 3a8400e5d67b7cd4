// The entry that libFuzzer calls, see fuzzing.h.
#include "support/fuzzing.h"

#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace zirvo::fuzz {
namespace {

/// The signal comes when the program itself has computed for so long: a busy machine makes no finding.
void SetGuard(int seconds) {
    itimerval time{};
    time.it_value.tv_sec = seconds;
    setitimer(ITIMER_VIRTUAL, &time, nullptr);
}

extern "C" void StopSlowRun(int /*signal*/) {
    constexpr std::string_view words = "\nFINDING: the input takes longer than it may\n";
    [[maybe_unused]] const auto written = write(STDERR_FILENO, words.data(), words.size());
    std::abort();
}

}  // namespace

void Require(bool holds, std::string_view sentence) {
    if (!holds) {
        std::fprintf(stderr, "\nFINDING: %.*s\n", static_cast<int>(sentence.size()), sentence.data());
        std::abort();
    }
}

void RequireEqual(std::string_view one, std::string_view other, std::string_view sentence) {
    if (one != other) {
        std::fprintf(stderr, "\n--- one\n%.*s\n--- other\n%.*s\n", static_cast<int>(one.size()), one.data(),
                     static_cast<int>(other.size()), other.data());
    }
    Require(one == other, sentence);
}

}  // namespace zirvo::fuzz

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/) {
    std::signal(SIGVTALRM, zirvo::fuzz::StopSlowRun);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zirvo::fuzz::SetGuard(zirvo::fuzz::LongestRun);
    zirvo::fuzz::RunInput({reinterpret_cast<const char*>(data), size});
    zirvo::fuzz::SetGuard(0);
    return 0;
}
