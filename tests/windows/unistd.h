// The system's header and what it lacks.
#pragma once
#pragma GCC system_header  // its include_next is not in the standard
#include_next <unistd.h>

#include "missing_call.h"

using id_t = unsigned;
using uid_t = unsigned;
inline pid_t fork() {
    zirvo::test::MissingCall("fork");
}
inline unsigned geteuid() {
    return 1;
}
inline int setgid(id_t) {
    zirvo::test::MissingCall("setgid");
}
inline int setuid(id_t) {
    zirvo::test::MissingCall("setuid");
}
inline int seteuid(uid_t) {
    zirvo::test::MissingCall("seteuid");
}
inline int symlink(const char*, const char*) {
    zirvo::test::MissingCall("symlink");
}
inline int link(const char*, const char*) {
    zirvo::test::MissingCall("link");
}
