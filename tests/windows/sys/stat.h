// The system's header and what it lacks.
#pragma once
#pragma GCC system_header  // its include_next is not in the standard
#include_next <sys/stat.h>

#include "missing_call.h"

inline int mkfifo(const char*, int) {
    zirvo::test::MissingCall("mkfifo");
}
inline int mkdir(const char*, int) {
    zirvo::test::MissingCall("mkdir");
}
