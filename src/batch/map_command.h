// `zirvo-batch map`: the work of the graphics screen, from the start button to SAVE PICTURE. Caller: main.
#pragma once
#include "batch/console.h"
#include "batch/map_options.h"

namespace zirvo::batch {

/// Takes a pavement to the picture of one section. The work files lie in a fresh temporary folder, which is gone
/// afterwards; nothing but the picture is written. What the screen would ask or refuse is told, with the reason.
ExitCode RunMap(const MapRequest& request, Console& console);

}  // namespace zirvo::batch
