// How far a long work has come. Callers: whatever reads, converts or draws much; who asked for it shows it to the user.
#pragma once
#include <functional>
#include <utility>

namespace zirvo {

/// Told how much of the work is done, from 0 to 1 and never less than the last time; often enough for a user who waits.
/// May be empty.
using Progress = std::function<void(double done)>;

/// For a work that is a part of a larger one: what stands for 0 and for 1 in that.
inline Progress PartOf(Progress whole, double from, double to) {
    if (!whole) {
        return {};
    }
    return [whole = std::move(whole), from, to](double done) { whole(from + done * (to - from)); };
}

}  // namespace zirvo
