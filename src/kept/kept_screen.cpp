// See kept_screen.h.
#include "kept/kept_screen.h"

#include <tuple>

namespace zirvo {

bool HoldSameData(const KeptScreen& one, const KeptScreen& other) {
    const auto data = [](const KeptScreen& screen) {
        return std::tie(screen.Screen, screen.Units, screen.Counts, screen.Names, screen.Open, screen.Tables);
    };
    return data(one) == data(other);
}

}  // namespace zirvo
