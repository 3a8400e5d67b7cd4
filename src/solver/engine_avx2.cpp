// The engine loops with 4 doubles a vector (AVX2). Compiled with its own processor flags; chosen in engine.cpp.
#define ZIRVO_ENGINE avx2
#define ZIRVO_ENGINE_NAME "avx2"
#define ZIRVO_LANES 4
#include "solver/engine_body.inl"
