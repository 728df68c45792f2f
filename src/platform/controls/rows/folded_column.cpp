#include "platform/controls/rows/folded_column.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

#include "runtime/error.h"
#include "runtime/fold_texts.h"
#include "runtime/text.h"

namespace catalogador {

FoldedColumn::FoldedColumn(const PackedTexts& texts) {
    constexpr std::size_t pieceRows = 256;
    std::string folded;
    for (std::size_t from = 0; from < texts.rows(); from += pieceRows) {
        const std::size_t to = std::min(from + pieceRows, texts.rows());
        const std::size_t begin = texts.span(from).begin;
        const std::string_view piece = texts.bytes().substr(begin, texts.span(to - 1).end - begin);
        folded.resize(piece.size());
        if (texts.runTogether() || !upperCaseOfSameLength(piece, folded.data())) {
            for (std::size_t row = from; row < to; ++row) add(foldCase(texts.at(row)));
            continue;
        }
        for (std::size_t row = from; row < to; ++row) {
            const PackedTexts::Span span = texts.span(row);
            add(std::string_view(folded).substr(span.begin - begin, span.end - span.begin));
        }
    }
    bytes_.resize(bytes_.size() + sizeof(Key), 0);
}

void FoldedColumn::add(std::string_view folded) {
    constexpr std::array<char, sizeof(Key)> zeros{};
    if (bytes_.size() + folded.size() > std::numeric_limits<Place>::max() - zeros.size())
        throw RuntimeError(7, "The list is too large to be sorted");
    places_.push_back(static_cast<Place>(bytes_.size()));
    bytes_.append(folded.data(), folded.size());
    bytes_.append(zeros.data(), zeros.size());
}

std::string_view FoldedColumn::at(std::size_t row) const {
    const std::size_t end =
        row + 1 < places_.size() ? places_[row + 1] : bytes_.size() - sizeof(Key);
    return {bytes_.data() + places_[row], end - sizeof(Key) - places_[row]};
}

}  // namespace catalogador
