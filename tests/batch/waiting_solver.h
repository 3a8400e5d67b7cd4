// A solver that never ends. Callers: the tests of what becomes of one whose program fails or is killed.
#pragma once
#include <string>

namespace zirvo::test {

/// Puts a program of that name, which computes nothing (waiting_program.cpp), into a folder.
void PutWaitingSolver(const std::string& folder, const std::string& name);

}  // namespace zirvo::test
