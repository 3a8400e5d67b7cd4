// The kernels in two parts with 8 doubles a vector (AVX-512). Compiled with its own processor flags and without
// contraction.
#define ZIRVO_ENGINE avx512
#define ZIRVO_LANES 8
#include "solver/engine_precise.inl"
