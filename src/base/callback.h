// A callback that its owner need not set. Callers: the runs of the solver programs.
#pragma once
#include <functional>

namespace zirvo {

/// Calls it; an empty one is passed over.
inline void CallIfSet(const std::function<void()>& callback) {
    if (callback) {
        callback();
    }
}

}  // namespace zirvo
