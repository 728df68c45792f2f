#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/rows/packed_array.h"

namespace catalogador {

/// The texts of one column, row after row in one buffer. Rows that were never written are empty.
class PackedTexts {
  public:
    /// Where one row's text begins and ends in bytes().
    struct Span {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    [[nodiscard]] std::string_view at(std::size_t row) const {
        return row < ends_.size() ? view(span(row)) : std::string_view();
    }
    /// The texts of consecutive rows, from a row on that was never written; those without data()
    /// stay as they are. Raises RuntimeError as put does.
    void append(std::size_t row, std::span<const std::string_view> texts);
    /// Raises RuntimeError when the column would become larger than 4 GB.
    void put(std::size_t row, std::string_view text);
    /// Gives back the memory that was taken in advance.
    void shrink();

    /// Rows up to the last one that was written.
    [[nodiscard]] std::size_t rows() const { return ends_.size(); }
    [[nodiscard]] Span span(std::size_t row) const {
        return {row == 0 ? 0 : ends_[row - 1], ends_[row]};
    }
    [[nodiscard]] std::string_view bytes() const { return {bytes_.data(), bytes_.size()}; }
    /// The first row from `row` on whose text ends behind that place in bytes().
    [[nodiscard]] std::size_t rowAt(std::size_t place, std::size_t row) const;
    /// Whether a text begins with a byte that could be taken for the rest of the text before it, so
    /// that the texts must not be read as one.
    [[nodiscard]] bool runTogether() const { return runTogether_; }

  private:
    [[nodiscard]] std::string_view view(Span span) const {
        return {bytes_.data() + span.begin, span.end - span.begin};
    }
    void appendOne(std::size_t row, std::string_view text);
    void replace(std::size_t row, std::string_view text);

    PackedArray<char> bytes_;
    PackedArray<std::uint32_t> ends_;
    bool runTogether_ = false;
};

/// The codes of the rows: as numbers as long as all of them are, otherwise as texts.
class PackedCodes {
  public:
    /// As it was put, the empty text for a row that has none.
    [[nodiscard]] std::string at(std::size_t row) const;
    void put(std::size_t row, std::string_view code);
    void shrink();
    /// The rows that have this code, in ascending order.
    [[nodiscard]] std::vector<std::uint32_t> rowsWith(std::string_view code) const;
    /// The rows whose code is that number however it is written, in ascending order.
    [[nodiscard]] std::vector<std::uint32_t> rowsWithNumber(std::int32_t code) const;

  private:
    void becomeTexts();

    PackedArray<std::int32_t> numbers_;
    PackedTexts texts_;
    bool areTexts_ = false;
};

}  // namespace catalogador
