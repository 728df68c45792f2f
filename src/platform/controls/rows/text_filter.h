#pragma once
#include <string>
#include <string_view>

#include "platform/controls/rows/packed_texts.h"
#include "platform/controls/rows/row_marks.h"
#include "runtime/base_letters.h"
#include "runtime/like.h"

namespace catalogador {

/// Finds a text in large pieces of text. It looks for two of its bytes, those that are rare in
/// most texts, many places at a time.
class SubstringSearch {
  public:
    explicit SubstringSearch(std::string_view wanted);

    /// Where the first occurrence from `from` on begins, npos when there is none. `text` must be
    /// followed by as many readable bytes as reach() says.
    [[nodiscard]] std::size_t find(std::string_view text, std::size_t from) const;
    [[nodiscard]] std::size_t reach() const { return wanted_.size() + blockSize; }
    [[nodiscard]] std::size_t size() const { return wanted_.size(); }

  private:
    static constexpr std::size_t blockSize = 64;

    /// The same among the places from `from` to before `to`.
    [[nodiscard]] std::size_t findIn(std::string_view text, std::size_t from, std::size_t to) const;

    std::string wanted_;
    std::size_t rare_ = 0;
    std::size_t second_ = 0;
};

/// Tells which rows have a cell that matches a pattern in upper case.
class TextFilter {
  public:
    /// `pattern` must outlive the filter. Where accents are ignored, it must have none.
    TextFilter(const LikePattern& pattern, Accents accents);

    /// Takes the mark from every row of the column whose cell matches.
    void showMatches(const PackedTexts& column, RowMarks& hidden) const;

  private:
    void showEach(const PackedTexts& column, std::size_t from, std::size_t to,
                  RowMarks& hidden) const;
    void showInBulk(const PackedTexts& column, RowMarks& hidden) const;
    void showInPiece(const PackedTexts& column, std::size_t from, std::size_t to,
                     std::string_view upper, RowMarks& hidden) const;

    const LikePattern& pattern_;
    SubstringSearch search_;
    bool plain_;
    Accents accents_;
};

}  // namespace catalogador
