#include "platform/controls/rows/packed_texts.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>

#include "platform/controls/rows/cell_number.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr std::int32_t noCode = std::numeric_limits<std::int32_t>::min();

/// The number whose decimal text this is; a code that is written otherwise ("007") is a text.
std::optional<std::int32_t> codeNumber(std::string_view text) {
    if (text.empty()) return noCode;
    const char first = text.front() == '-' && text.size() > 1 ? text[1] : text.front();
    if (first < '0' || first > '9' || (first == '0' && text.size() > 1)) return std::nullopt;
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number == noCode)
        return std::nullopt;
    return number;
}

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

void PackedTexts::put(std::size_t row, std::string_view text) {
    if (!text.empty() && continuesCharacter(text.front())) runTogether_ = true;
    if (row < ends_.size())
        replace(row, text);
    else
        appendOne(row, text);
}

void PackedTexts::append(std::size_t row, std::span<const std::string_view> texts) {
    for (const std::string_view text : texts) {
        if (text.data() != nullptr) put(row, text);
        ++row;
    }
}

void PackedTexts::appendOne(std::size_t row, std::string_view text) {
    if (bytes_.size() + text.size() > UINT32_MAX)
        throw RuntimeError(7, "The list is too large to be shown");
    if (row > ends_.size()) ends_.resize(row, static_cast<std::uint32_t>(bytes_.size()));
    bytes_.append(text.data(), text.size());
    ends_.push_back(static_cast<std::uint32_t>(bytes_.size()));
}

void PackedTexts::replace(std::size_t row, std::string_view text) {
    const Span old = span(row);
    std::string after(text);
    after.append(bytes().substr(old.end));
    if (old.begin + after.size() > UINT32_MAX)
        throw RuntimeError(7, "The list is too large to be shown");
    bytes_.resize(old.begin, 0);
    bytes_.append(after.data(), after.size());
    for (std::size_t i = row; i < ends_.size(); ++i)
        ends_[i] = static_cast<std::uint32_t>(ends_[i] - (old.end - old.begin) + text.size());
}

void PackedTexts::shrink() {
    bytes_.shrink();
    ends_.shrink();
}

std::size_t PackedTexts::rowAt(std::size_t place, std::size_t row) const {
    // Mostly a row near by.
    std::size_t step = 1;
    std::size_t from = row;
    while (from + step < ends_.size() && ends_[from + step - 1] <= place) {
        from += step;
        step *= 2;
    }
    const std::uint32_t* last = ends_.begin() + std::min(from + step, ends_.size());
    return static_cast<std::size_t>(std::upper_bound(ends_.begin() + from, last, place) -
                                    ends_.begin());
}

std::string PackedCodes::at(std::size_t row) const {
    if (areTexts_) return std::string(texts_.at(row));
    if (row >= numbers_.size() || numbers_[row] == noCode) return {};
    return decimalText(numbers_[row]);
}

void PackedCodes::put(std::size_t row, std::string_view code) {
    if (!areTexts_) {
        if (const auto number = codeNumber(code)) {
            if (row >= numbers_.size()) numbers_.resize(row + 1, noCode);
            numbers_[row] = *number;
            return;
        }
        becomeTexts();
    }
    texts_.put(row, code);
}

void PackedCodes::becomeTexts() {
    for (std::size_t row = 0; row < numbers_.size(); ++row) texts_.put(row, at(row));
    numbers_ = {};
    areTexts_ = true;
}

void PackedCodes::shrink() {
    numbers_.shrink();
    texts_.shrink();
}

std::vector<std::uint32_t> PackedCodes::rowsWithNumber(std::int32_t code) const {
    if (!areTexts_) return rowsWith(decimalText(code));
    std::vector<std::uint32_t> rows;
    for (std::size_t row = 0; row < texts_.rows(); ++row)
        if (cellNumber(texts_.at(row)) == code) rows.push_back(static_cast<std::uint32_t>(row));
    return rows;
}

std::vector<std::uint32_t> PackedCodes::rowsWith(std::string_view code) const {
    std::vector<std::uint32_t> rows;
    const auto add = [&](std::size_t row) { rows.push_back(static_cast<std::uint32_t>(row)); };
    if (areTexts_) {
        for (std::size_t row = 0; row < texts_.rows(); ++row)
            if (texts_.at(row) == code) add(row);
    } else if (const auto number = codeNumber(code)) {
        for (std::size_t row = 0; row < numbers_.size(); ++row)
            if (numbers_[row] == *number) add(row);
    }
    return rows;
}

}  // namespace catalogador
