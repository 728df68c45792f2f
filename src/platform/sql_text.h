#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

/// The text of a statement that knows which of its bytes are data: what somebody typed, stored or
/// chose, as opposed to what the program or the metadata wrote. The text itself is never changed
/// for that; data access refuses a statement whose data does not stay data.
class SqlText {
  public:
    /// What a piece of data may be where no quotes stand around it.
    enum class Kind {
        /// One number.
        value,
        /// Whole numbers with commas between them.
        codes
    };
    /// A run of bytes of the text.
    struct Piece {
        std::size_t start = 0;
        std::size_t length = 0;
        Kind kind = Kind::value;

        friend bool operator==(const Piece&, const Piece&) = default;
    };

    SqlText() = default;
    /// A text without data.
    // NOLINTNEXTLINE(google-explicit-constructor): most statements are plain texts.
    SqlText(std::string text) : text_(std::move(text)), marks_(text_.size(), '\0') {}
    // NOLINTNEXTLINE(google-explicit-constructor)
    SqlText(const char* text) : SqlText(std::string(text)) {}
    /// A text that is data as a whole.
    static SqlText ofData(std::string data, Kind kind = Kind::value);

    [[nodiscard]] const std::string& text() const { return text_; }
    [[nodiscard]] bool empty() const { return text_.empty(); }
    /// The runs of data from left to right, none of them empty. Adjacent data of the same kind is
    /// one run.
    [[nodiscard]] std::vector<Piece> data() const;

    SqlText& operator+=(const SqlText& other);
    friend SqlText operator+(SqlText left, const SqlText& right) { return left += right; }

    /// Puts `with` in the place of every `find`, as replaceText does. A place that touches data
    /// becomes data, whatever is put there.
    void replace(std::string_view find, const SqlText& with, Compare how);

  private:
    std::string text_;
    /// One byte for each byte of the text: 0 where that is no data, else its mark.
    std::string marks_;
};

/// Raised for a statement whose data would not stay data: it would end the text that it stands in,
/// or is no number where the statement has no quotes. The number is dataRefused.
class DataRefused : public RuntimeError {
  public:
    explicit DataRefused(std::string data);

    /// What somebody typed, stored or chose.
    [[nodiscard]] const std::string& data() const { return data_; }

  private:
    std::string data_;
};

}  // namespace catalogador
