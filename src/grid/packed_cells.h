// Texts of cells in few bytes, for what is kept to be undone: a history of many tables of ten thousand rows must stay
// small. Caller: edit_history.
//
// What is stored, cell by cell: the distance of its index from the one after the cell before, folded to a number
// without sign (0, -1, 1, -2 ... as 0, 1, 2, 3 ...), then the length of the text, both as seven bits a byte with the
// lowest first and the eighth bit for "more follows"; then the text.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zirvo {

class PackedCells {
public:
    /// @param index  row * columns + column, or any other number below 2^31
    void Add(std::int32_t index, std::string_view text);
    /// Every cell in the order in which they were added.
    void Each(const std::function<void(std::int32_t index, std::string_view text)>& visit) const;
    bool IsEmpty() const { return bytes_.empty(); }
    std::size_t Count() const { return count_; }
    std::size_t Bytes() const { return bytes_.capacity(); }
    /// Gives back what was taken in advance.
    void Trim() { bytes_.shrink_to_fit(); }

private:
    void AddNumber(std::uint64_t number);

    std::string bytes_;
    std::int64_t next_ = 0;  ///< the index that would need no distance
    std::size_t count_ = 0;
};

}  // namespace zirvo
