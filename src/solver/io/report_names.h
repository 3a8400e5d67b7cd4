// Whether the names of an input may be written as reports, so that no file of the user is taken for one.
// Caller: the solver run, before it touches anything.
#pragma once
#include <span>
#include <string>

#include "solver/io/input_error.h"

namespace zirvo::solver {

/// True if both names stand for one existing file, or are the same text.
bool IsSameFile(const std::string& a, const std::string& b);

/// Why a path cannot be read: nothing is there, or it cannot be looked at, or it is a folder or a pipe that might never
/// end. None for a plain file.
Word ReasonAgainstReading(const std::string& path);

/// Judges the names that the input gives for its reports, in the current folder: not empty, no folder in it, no folder
/// itself, neither the input nor the control file, not the same twice. Nothing is changed.
/// @return the first finding, with its place in Value; or one with the reason None.
InputError JudgeReportNames(std::span<const std::string> names, const std::string& inputName);

}  // namespace zirvo::solver
