#include "platform/controls/rows/text_filter.h"

#include <algorithm>
#include <cstring>

#include "runtime/fold_texts.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

/// What is put into upper case and searched at a time: small enough to stay near the processor.
constexpr std::size_t pieceBytes = 16384;
/// Where fewer rows are left to be decided, they are looked at one by one.
constexpr std::size_t fewRows = 8;

/// Bytes from the most frequent one on, as in texts of Western European languages in upper case;
/// what is not among them is rare.
constexpr std::string_view frequentBytes = "EAOSRNIDLCTUMP0\xC3 1B2GV3HF54678QY9J.,Z";

bool isAscii(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

std::size_t rarity(char byte) {
    return std::min(frequentBytes.find(byte), frequentBytes.size());
}

}  // namespace

SubstringSearch::SubstringSearch(std::string_view wanted) : wanted_(wanted) {
    const auto rarer = [&](std::size_t than, std::size_t except) {
        std::size_t best = than;
        for (std::size_t i = 0; i < wanted_.size(); ++i)
            if (i != except && rarity(wanted_[i]) > rarity(wanted_[best])) best = i;
        return best;
    };
    if (wanted_.empty()) return;
    rare_ = rarer(0, wanted_.size());
    second_ = wanted_.size() == 1 ? 0 : rarer(rare_ == 0 ? 1 : 0, rare_);
}

std::size_t SubstringSearch::find(std::string_view text, std::size_t from) const {
    if (text.size() < wanted_.size()) return std::string_view::npos;
    const char one = wanted_[rare_];
    const char other = wanted_[second_];
    const std::size_t places = text.size() - wanted_.size() + 1;
    for (std::size_t block = from; block < places; block += blockSize) {
        const char* const ones = text.data() + block + rare_;
        const char* const others = text.data() + block + second_;
        unsigned char any = 0;
        for (std::size_t i = 0; i < blockSize; ++i)
            any |= static_cast<unsigned char>((ones[i] == one) & (others[i] == other));
        if (any == 0) continue;
        const std::size_t found = findIn(text, block, std::min(block + blockSize, places));
        if (found < places) return found;
    }
    return std::string_view::npos;
}

std::size_t SubstringSearch::findIn(std::string_view text, std::size_t from, std::size_t to) const {
    const char* const end = text.data() + to + rare_;
    for (const char* at = text.data() + from + rare_; at < end; ++at) {
        at = static_cast<const char*>(
            std::memchr(at, wanted_[rare_], static_cast<std::size_t>(end - at)));
        if (at == nullptr) break;
        const char* const place = at - rare_;
        if (place[second_] == wanted_[second_] &&
            std::memcmp(place, wanted_.data(), wanted_.size()) == 0)
            return static_cast<std::size_t>(place - text.data());
    }
    return std::string_view::npos;
}

TextFilter::TextFilter(const LikePattern& pattern, Accents accents)
    : pattern_(pattern),
      search_(pattern.requiredText()),
      plain_(pattern.plainSubstring() != nullptr),
      accents_(accents) {}

void TextFilter::showMatches(const PackedTexts& column, RowMarks& hidden) const {
    // Cells that were never written are empty texts, which match as well or not at all.
    if (pattern_.matches("")) {
        showEach(column, 0, hidden.size(), hidden);
        return;
    }
    const bool few = hidden.count() < hidden.size() / fewRows;
    // Without its accents a text has another length, so that places found in bulk say nothing.
    if (few || search_.size() == 0 || column.runTogether() || accents_ == Accents::ignored)
        showEach(column, 0, column.rows(), hidden);
    else
        showInBulk(column, hidden);
}

void TextFilter::showEach(const PackedTexts& column, std::size_t from, std::size_t to,
                          RowMarks& hidden) const {
    std::string upper;
    for (std::size_t row = from; row < to; ++row) {
        if (!hidden[row]) continue;
        const std::string_view text = column.at(row);
        upper.resize(text.size());
        const bool simple = upperCaseOfSameLength(text, upper.data());
        if (!simple) upper = upperCase(text);
        const bool folds = accents_ == Accents::ignored && !isAscii(upper);
        if (pattern_.matches(folds ? withoutAccents(upper) : upper)) hidden.set(row, false);
    }
}

void TextFilter::showInBulk(const PackedTexts& column, RowMarks& hidden) const {
    std::string upper;
    const std::string_view bytes = column.bytes();
    for (std::size_t from = 0; from < column.rows();) {
        const std::size_t begin = column.span(from).begin;
        const std::size_t to =
            std::max(from + 1, column.rowAt(std::min(begin + pieceBytes, bytes.size()), from));
        const std::size_t size = column.span(to - 1).end - begin;
        upper.resize(size + search_.reach());
        if (upperCaseOfSameLength(bytes.substr(begin, size), upper.data()))
            showInPiece(column, from, to, std::string_view(upper).substr(0, size), hidden);
        else
            showEach(column, from, to, hidden);
        from = to;
    }
}

void TextFilter::showInPiece(const PackedTexts& column, std::size_t from, std::size_t to,
                             std::string_view upper, RowMarks& hidden) const {
    const std::size_t begin = column.span(from).begin;
    std::size_t row = from;
    for (std::size_t at = search_.find(upper, 0); at != std::string_view::npos && row < to;) {
        row = column.rowAt(begin + at, row);
        const PackedTexts::Span span = column.span(row);
        const std::size_t end = span.end - begin;
        // An occurrence that reaches into the next row is none.
        const bool inside = at + search_.size() <= end;
        const std::string_view text = upper.substr(span.begin - begin, span.end - span.begin);
        if (inside && (plain_ || pattern_.matches(text))) hidden.set(row, false);
        at = search_.find(upper, inside ? end : at + 1);
    }
}

}  // namespace catalogador
