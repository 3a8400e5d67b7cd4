// Cells in few bytes, see packed_cells.h.
#include "grid/packed_cells.h"

namespace zirvo {
namespace {

constexpr unsigned Low = 0x7F;
constexpr unsigned More = 0x80;

std::uint64_t TakeNumber(std::string_view bytes, std::size_t& at) {
    std::uint64_t number = 0;
    for (int shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(bytes[at++]);
        number |= static_cast<std::uint64_t>(byte & Low) << shift;
        if ((byte & More) == 0) {
            return number;
        }
    }
}

std::uint64_t Folded(std::int64_t distance) {
    return distance < 0 ? static_cast<std::uint64_t>(-distance) * 2 - 1 : static_cast<std::uint64_t>(distance) * 2;
}

std::int64_t Unfolded(std::uint64_t number) {
    const auto half = static_cast<std::int64_t>(number / 2);
    return number % 2 == 0 ? half : -half - 1;
}

}  // namespace

void PackedCells::AddNumber(std::uint64_t number) {
    while (number > Low) {
        bytes_ += static_cast<char>((number & Low) | More);
        number >>= 7;
    }
    bytes_ += static_cast<char>(number);
}

void PackedCells::Add(std::int32_t index, std::string_view text) {
    AddNumber(Folded(index - next_));
    AddNumber(text.size());
    bytes_ += text;
    next_ = std::int64_t{index} + 1;
    ++count_;
}

void PackedCells::Each(const std::function<void(std::int32_t index, std::string_view text)>& visit) const {
    const std::string_view bytes = bytes_;
    std::size_t at = 0;
    std::int64_t next = 0;
    while (at < bytes.size()) {
        const std::int64_t index = next + Unfolded(TakeNumber(bytes, at));
        const auto length = static_cast<std::size_t>(TakeNumber(bytes, at));
        visit(static_cast<std::int32_t>(index), bytes.substr(at, length));
        at += length;
        next = index + 1;
    }
}

}  // namespace zirvo
