// The time of day, see clock.h.
#include "platform/clock.h"

#include <array>
#include <chrono>
#include <ctime>
#include <thread>

namespace zirvo {

std::int64_t MillisecondsSince1970() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

std::string LocalTimeText(std::int64_t milliseconds) {
    const auto seconds =
        static_cast<std::time_t>(milliseconds / 1000 - (milliseconds % 1000 < 0 ? 1 : 0));  // before 1970 too
    std::tm local{};
#ifdef _WIN32
    const bool known = localtime_s(&local, &seconds) == 0;
#else
    const bool known = localtime_r(&seconds, &local) != nullptr;
#endif
    std::array<char, 40> text{};
    if (!known || std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local) == 0) {
        return "";
    }
    return text.data();
}

void Pause(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace zirvo
