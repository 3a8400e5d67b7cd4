// Which cell a failed rule speaks of. The messages name a table; a user of ten thousand rows wants the cell.
// Caller: DATA OK! of both data screens.
#pragma once
#include <optional>

#include "pavement/pavement_rules.h"

namespace zirvo {

/// A cell of a table: 0 layers, 1 loads, 2 points; row and column from 1, as on the screen.
struct BadCell {
    int Table = 0;
    int Row = 0;
    int Col = 0;

    bool operator==(const BadCell&) const = default;
};

/// The first cell, row by row, that the failed rule refuses; none where that rule is not about cells.
/// Fault 9 where a count passes the rows given.
std::optional<BadCell> FirstBadCell(const LoadedPavementTexts& texts, DataRule failed);
std::optional<BadCell> FirstBadCell(const PavementTexts& texts, DataRule failed);

}  // namespace zirvo
