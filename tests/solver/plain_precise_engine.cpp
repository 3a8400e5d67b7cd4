// The kernels in two parts with plain arrays in place of vector types.
#define ZIRVO_PLAIN_VECTORS
#define ZIRVO_ENGINE plain
#define ZIRVO_LANES 4
#include "solver/engine_precise.inl"
