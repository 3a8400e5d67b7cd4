// A pavement that the attack has found, written as the tests read it (tests/data/hard_cases).
#pragma once
#include <string>

#include "solver/problem.h"

namespace zirvo::attack {

/// The text of a case file with the true values of all points.
std::string CaseText(const solver::Problem& problem, const std::string& name, const std::string& about);

}  // namespace zirvo::attack
