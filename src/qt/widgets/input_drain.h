// Throws away what the user typed and clicked while the program did not listen. Caller: the desktop, behind the run of
// a solver.
#pragma once

namespace zirvo::widgets {

/// Takes everything that has been queued, in the program and at the display, and drops what comes from keys, mouse and
/// input methods; the rest (painting, showing) is done.
void DrainInput();

}  // namespace zirvo::widgets
