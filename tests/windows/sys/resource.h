// What the system lacks.
#pragma once
#include <csignal>

#include "missing_call.h"

using rlim_t = unsigned long long;
struct rlimit {
    rlim_t rlim_cur;
    rlim_t rlim_max;
};
inline constexpr int RLIMIT_FSIZE = 1;
inline constexpr int SIGXFSZ = 25;
inline int getrlimit(int, rlimit*) {
    zirvo::test::MissingCall("getrlimit");
}
inline int setrlimit(int, const rlimit*) {
    zirvo::test::MissingCall("setrlimit");
}
