#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>

#include "platform/controls/rows/packed_array.h"

namespace catalogador {

/// A mark, on or off, for each row, one bit each.
class RowMarks {
  public:
    [[nodiscard]] std::size_t size() const { return size_; }
    bool operator[](std::size_t row) const {
        return ((words_[row / wordBits] >> (row % wordBits)) & 1U) != 0;
    }
    void set(std::size_t row, bool on) {
        const Word bit = Word{1} << (row % wordBits);
        words_[row / wordBits] = on ? words_[row / wordBits] | bit : words_[row / wordBits] & ~bit;
    }
    void push_back(bool on) {
        if (size_ % wordBits == 0) words_.push_back(0);
        set(size_++, on);
    }
    void setAll(bool on) {
        words_.resize(0, 0);
        words_.resize((size_ + wordBits - 1) / wordBits, on ? ~Word{0} : 0);
        if (on && size_ % wordBits != 0)
            words_[words_.size() - 1] = (Word{1} << (size_ % wordBits)) - 1;
    }
    /// How many marks are on.
    [[nodiscard]] std::size_t count() const {
        std::size_t count = 0;
        for (const Word word : words_) count += static_cast<std::size_t>(std::popcount(word));
        return count;
    }
    void shrink() { words_.shrink(); }

  private:
    using Word = std::uint64_t;
    static constexpr std::size_t wordBits = 64;

    PackedArray<Word> words_;
    std::size_t size_ = 0;
};

}  // namespace catalogador
