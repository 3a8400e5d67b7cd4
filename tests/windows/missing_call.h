// What the calls of POSIX do that Windows lacks: they fail the test that makes them.
#pragma once
#include <stdexcept>
#include <string>

namespace zirvo::test {

[[noreturn]] inline void MissingCall(const char* name) {
    throw std::logic_error(std::string("this system has no ") + name +
                           "; name the test in tests/windows/posix_only.txt");
}

}  // namespace zirvo::test
