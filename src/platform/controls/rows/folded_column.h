#pragma once
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/controls/rows/packed_texts.h"

namespace catalogador {

/// The texts of a column folded for comparing without regard to case, as long as they are needed.
/// Each is followed by zeros, so that it can be read by whole keys.
class FoldedColumn {
  public:
    using Key = std::uint64_t;
    using Place = std::uint32_t;

    explicit FoldedColumn(const PackedTexts& texts);

    /// Where the text of a row begins; a row is asked for once, as it costs more than a key.
    [[nodiscard]] Place place(std::size_t row) const { return places_[row]; }
    /// The bytes of the text at a place, eight at a time, the first of them counting most; zeros
    /// behind its end. Every key before `index` must have been one without a zero at its end.
    [[nodiscard]] Key key(Place place, std::size_t index) const {
        Key key = 0;
        std::memcpy(&key, bytes_.data() + place + index * sizeof key, sizeof key);
        if constexpr (std::endian::native == std::endian::little) key = swapped(key);
        return key;
    }
    /// Whether the text goes on behind a key. Texts that hold zeros seem to end there.
    static bool goesOn(Key key) { return (key & 0xFFU) != 0; }
    /// The whole text of a row.
    [[nodiscard]] std::string_view at(std::size_t row) const;

  private:
    static Key swapped(Key key) {
        key = (key & 0x00FF00FF00FF00FFU) << 8U | (key >> 8U & 0x00FF00FF00FF00FFU);
        key = (key & 0x0000FFFF0000FFFFU) << 16U | (key >> 16U & 0x0000FFFF0000FFFFU);
        return key << 32U | key >> 32U;
    }
    void add(std::string_view folded);

    PackedArray<char> bytes_;
    PackedArray<Place> places_;
};

}  // namespace catalogador
