// The engine loops with 8 doubles a vector (AVX-512). Compiled with its own processor flags; chosen in engine.cpp.
#define ZIRVO_ENGINE avx512
#define ZIRVO_ENGINE_NAME "avx512"
#define ZIRVO_LANES 8
#include "solver/engine_body.inl"
