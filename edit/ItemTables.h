// The item tables as the editing steps name them: by item, from 1, with a position and a length in bytes each.
#pragma once

#include "edit/ImagePieces.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace velluto {

// A view of a table of which the first half holds positions and the second half lengths. Throws OutsideImage for an item
// that the table has no room for.
class Items {
public:
    explicit Items(std::span<std::int32_t> table) : table_(table) {}

    [[nodiscard]] std::int32_t Position(int item) const { return table_[At(item)]; } // 1-based, of the first byte
    [[nodiscard]] std::int32_t Length(int item) const { return table_[Room() + At(item)]; }
    [[nodiscard]] std::int64_t End(int item) const { return std::int64_t{Position(item)} + Length(item) - 1; } // of the last byte

    void SetPosition(int item, std::int64_t position) const { table_[At(item)] = static_cast<std::int32_t>(position); }
    void SetLength(int item, std::int32_t length) const { table_[Room() + At(item)] = length; }

    // Lets items 1 to count follow one another from a position on, by the lengths that they have.
    void Cumulate(std::int64_t position, int count) const
    {
        SetPosition(1, position);
        for (int item = 2; item <= count; ++item) {
            SetPosition(item, std::int64_t{Position(item - 1)} + Length(item - 1));
        }
    }
    // Copies positions and lengths of as many items as both tables have room for.
    void CopyTo(Items to) const
    {
        for (int item = 1; item <= static_cast<int>(std::min(Room(), to.Room())); ++item) {
            to.SetPosition(item, Position(item));
            to.SetLength(item, Length(item));
        }
    }

private:
    [[nodiscard]] std::size_t Room() const { return table_.size() / 2; }
    [[nodiscard]] std::size_t At(int item) const
    {
        if (item < 1 || item > static_cast<int>(Room())) {
            throw OutsideImage();
        }
        return static_cast<std::size_t>(item - 1);
    }

    std::span<std::int32_t> table_;
};

} // namespace velluto
