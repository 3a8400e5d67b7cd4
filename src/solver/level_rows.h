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
/// Two for each load (pressure, shear): strains, displacements.
inline int KindOf(int row) {
    return (row < VerticalRows ? 0 : 2) + (RowIsDisplacement[row] ? 1 : 0);
}

}  // namespace zirvo::solver
