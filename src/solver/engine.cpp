// Choice of the engine when the program starts.
#include "solver/engine.h"

namespace zirvo::solver {

namespace baseline {
extern const Engine TheEngine;
}
#if defined(ZIRVO_WIDE_ENGINES)
namespace avx2 {
extern const Engine TheEngine;
}
namespace avx512 {
extern const Engine TheEngine;
}
#endif

int RunnableEngines(const Engine* out[4]) {
    int count = 0;
    out[count++] = &baseline::TheEngine;
#if defined(ZIRVO_WIDE_ENGINES)
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma")) {
        out[count++] = &avx2::TheEngine;
        if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq")) {
            out[count++] = &avx512::TheEngine;
        }
    }
#endif
    return count;
}

const Engine& BestEngine() {
    static const Engine* const best = [] {
        const Engine* runnable[4];
        return runnable[RunnableEngines(runnable) - 1];
    }();
    return *best;
}

}  // namespace zirvo::solver
