// Which rows a group of loads has, and what kind each is.
#pragma once
#include "solver/engine.h"
#include "solver/prepared_problem.h"

namespace zirvo::solver {

inline int RowsFrom(const LoadGroup& group) {
    return group.Vertical ? 0 : VerticalRows;
}
inline int RowsTo(const LoadGroup& group) {
    return group.Horizontal ? static_cast<int>(RowCount) : VerticalRows;
}

}  // namespace zirvo::solver
