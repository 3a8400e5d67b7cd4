// The kernels in two parts with 2 doubles a vector (plain x86-64). Compiled with its own processor flags and without
// contraction.
#define ZIRVO_ENGINE baseline
#define ZIRVO_LANES 2
#include "solver/engine_precise.inl"
