// A kept screen as a text of JSON, and back. Callers: the folder of kept screens.
//
//     {"format": "zirvo kept screen", "version": 1, "screen": "Form3", "units": 3, "japanese": false,
//      "when": 1795300200000, "counts": [2, 1, 1], "names": ["Untitled.eva", "Untitled.bre", "Untitled.san"],
//      "tables": [{"columns": 4, "cells": ["5000", "0.35", ...]}, ...],
//      "open": {"table": 0, "row": 1, "column": 2, "text": "1"}}                          "open" only where one is open
//
// A text that is no UTF-8, such as a file's name may be, stands as {"hex": "FF41"}, so that it comes back as it was.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "kept/kept_screen.h"

namespace zirvo {

std::string KeptJson(const KeptScreen& screen);

/// The screen of such a text; nothing where it is anything else: cut off, of another program or version, with counts or
/// places that cannot be. Not a fault, whatever the bytes.
std::optional<KeptScreen> ReadKeptJson(std::string_view bytes);

}  // namespace zirvo
