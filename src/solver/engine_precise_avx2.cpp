// The kernels in two parts with 4 doubles a vector (AVX2). Compiled with its own processor flags and without
// contraction.
#define ZIRVO_ENGINE avx2
#define ZIRVO_LANES 4
#include "solver/engine_precise.inl"
