// The system's own function beneath one that may fail. Callers: failing_functions.cpp, failing_looks.cpp.
#pragma once
#include <dlfcn.h>

#include <cerrno>

namespace zirvo::test {

template <class Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}
#define ZIRVO_REAL(name) static auto* const real = Real<decltype(::name)>(#name)

template <class Result, class Call>
Result FailOr(int error, Result failure, const Call& call) {
    if (error != 0) {
        errno = error;
        return failure;
    }
    return call();
}

}  // namespace zirvo::test
