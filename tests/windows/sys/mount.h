// What the system lacks.
#pragma once
#include "missing_call.h"

inline constexpr int MNT_DETACH = 2;
inline int mount(const char*, const wchar_t*, const char*, unsigned long, const void*) {
    zirvo::test::MissingCall("mount");
}
inline int umount2(const wchar_t*, int) {
    zirvo::test::MissingCall("umount2");
}
