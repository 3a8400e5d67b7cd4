// A clock that stands in 1960, loaded into a real program before all others.
#include <dlfcn.h>
#include <sys/time.h>
#include <time.h>

namespace {

constexpr time_t LongAgo = -315619200;  // the first of January 1960

}  // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* now) noexcept {
    static auto* const real = reinterpret_cast<decltype(::clock_gettime)*>(dlsym(RTLD_NEXT, "clock_gettime"));
    const int result = real(clock, now);
    if (clock == CLOCK_REALTIME && result == 0) {
        now->tv_sec = LongAgo;
    }
    return result;
}

time_t time(time_t* now) noexcept {
    if (now != nullptr) {
        *now = LongAgo;
    }
    return LongAgo;
}

int gettimeofday(timeval* now, void* /*zone*/) noexcept {
    *now = {LongAgo, 0};
    return 0;
}

}  // extern "C"
