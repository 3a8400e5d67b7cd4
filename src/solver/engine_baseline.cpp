// The engine loops with 2 doubles a vector (plain x86-64). Compiled with its own processor flags; chosen in engine.cpp.
#define ZIRVO_ENGINE baseline
#define ZIRVO_ENGINE_NAME "baseline"
#define ZIRVO_LANES 2
#include "solver/engine_body.inl"
