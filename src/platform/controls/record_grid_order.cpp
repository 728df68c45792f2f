#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <tuple>

#include "platform/controls/record_grid.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr std::uint32_t notVisible = std::numeric_limits<std::uint32_t>::max();

/// What kind of cell comes before what other one; without this order a column that mixes numbers
/// and texts would have none.
enum class CellKind : std::uint8_t { empty, number, text };

/// A cell prepared for comparing: its number, when the whole cell is one, else its folded text.
struct SortKey {
    CellKind kind = CellKind::text;
    double number = 0;
    std::string folded;
};

std::optional<double> cellNumber(std::string_view text) {
    std::string plain(trim(text));
    if (!plain.empty() && plain.front() == '+') plain.erase(0, 1);
    // Cells hold numbers as the user writes them; a comma is the decimal separator of many.
    if (const auto comma = plain.find(','); comma != std::string::npos) plain[comma] = '.';
    double number = 0;
    const char* last = plain.data() + plain.size();
    const auto [end, error] = std::from_chars(plain.data(), last, number, std::chars_format::fixed);
    // The names "inf" and "nan" are texts.
    if (error != std::errc() || end != last || !std::isfinite(number)) return std::nullopt;
    return number;
}

SortKey sortKey(std::string_view text) {
    if (const auto number = cellNumber(text)) return {CellKind::number, *number, {}};
    return {text.empty() ? CellKind::empty : CellKind::text, 0, foldCase(text)};
}

bool less(const SortKey& left, const SortKey& right) {
    return std::tie(left.kind, left.number, left.folded) <
           std::tie(right.kind, right.number, right.folded);
}

}  // namespace

void RecordGrid::rowsChanged() {
    visibleKnown_ = false;
    changedWhenDrawn();
}

bool RecordGrid::rowHidden(int row) const {
    return hidden_[stored(row)];
}

void RecordGrid::setRowHidden(int row, bool hidden) {
    const std::size_t index = stored(row);
    if (hidden_[index] == hidden) return;
    hidden_[index] = hidden;
    rowsChanged();
}

void RecordGrid::showAllRows() {
    hidden_.assign(hidden_.size(), false);
    rowsChanged();
}

void RecordGrid::filter(const LikePattern& pattern) {
    for (std::size_t row = 0; row < hidden_.size(); ++row) {
        hidden_[row] = std::none_of(columns_.begin(), columns_.end(), [&](const Column& column) {
            return pattern.matches(upperCase(column.texts.at(row)));
        });
    }
    rowsChanged();
}

void RecordGrid::buildVisible() const {
    visible_.clear();
    visibleIndex_.assign(order_.size(), notVisible);
    for (std::size_t i = 0; i < order_.size(); ++i) {
        if (hidden_[order_[i]]) continue;
        visibleIndex_[i] = static_cast<std::uint32_t>(visible_.size());
        visible_.push_back(static_cast<std::uint32_t>(i) + fixedRows);
    }
    visibleKnown_ = true;
}

int RecordGrid::visibleRows() const {
    if (!visibleKnown_) buildVisible();
    return static_cast<int>(visible_.size());
}

int RecordGrid::visibleRow(int n) const {
    if (n < 0 || n >= visibleRows())
        throw RuntimeError(error_number::subscriptOutOfRange, "Subscript out of range");
    return static_cast<int>(visible_[static_cast<std::size_t>(n)]);
}

int RecordGrid::visibleIndex(int row) const {
    if (!visibleKnown_) buildVisible();
    if (row < fixedRows || row >= rows()) return -1;
    const std::uint32_t index = visibleIndex_[static_cast<std::size_t>(row - fixedRows)];
    return index == notVisible ? -1 : static_cast<int>(index);
}

void RecordGrid::sort(int column, int order) {
    if (order != sort_order::ascending && order != sort_order::descending) return;
    const PackedTexts& texts = columnAt(column).texts;
    std::vector<SortKey> keys(hidden_.size());
    for (std::size_t row = 0; row < keys.size(); ++row) keys[row] = sortKey(texts.at(row));

    std::stable_sort(order_.begin(), order_.end(), [&](std::uint32_t left, std::uint32_t right) {
        return order == sort_order::ascending ? less(keys[left], keys[right])
                                              : less(keys[right], keys[left]);
    });
    sortColumn_ = column;
    sortOrder_ = order;
    rowsChanged();
}

}  // namespace catalogador
