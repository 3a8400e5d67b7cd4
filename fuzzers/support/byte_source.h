// The bytes of a fuzzer's input, taken one after the other as the choices of a random user. Where they end all further
// choices are 0.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zirvo::fuzz {

class ByteSource {
public:
    explicit ByteSource(std::string_view bytes) : rest_(bytes) {}

    bool IsEmpty() const { return rest_.empty(); }

    std::uint8_t Byte() {
        if (rest_.empty()) {
            return 0;
        }
        const auto byte = static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(1);
        return byte;
    }

    bool Flag() { return Byte() % 2 != 0; }

    /// 0 to count - 1, from one byte where that is enough. 0 where count is.
    std::size_t Below(std::size_t count) {
        std::size_t choice = Byte();
        for (std::size_t reach = 256; reach < count; reach *= 256) {
            choice = choice * 256 + Byte();
        }
        return count == 0 ? 0 : choice % count;
    }

    /// low to high, both included.
    int Between(int low, int high) { return low + static_cast<int>(Below(static_cast<std::size_t>(high - low) + 1)); }

    /// 0 to 1 in 65536 steps.
    double Share() {
        const int high = Byte();
        return (high * 256 + Byte()) / 65535.0;
    }

    /// So many bytes as they stand, fewer where the input ends.
    std::string_view Text(std::size_t count) {
        const std::string_view text = rest_.substr(0, count);
        rest_.remove_prefix(text.size());
        return text;
    }

    std::string_view Rest() { return Text(rest_.size()); }

private:
    std::string_view rest_;
};

}  // namespace zirvo::fuzz
