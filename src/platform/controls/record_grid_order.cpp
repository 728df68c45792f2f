#include <algorithm>
#include <charconv>
#include <limits>

#include "platform/controls/record_grid.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr std::uint32_t notVisible = std::numeric_limits<std::uint32_t>::max();

/// A cell prepared for comparing: its number, when the whole cell is one, and its folded text.
struct SortKey {
    double number = 0;
    bool isNumber = false;
    std::string folded;
};

std::optional<double> cellNumber(std::string_view text) {
    text = trim(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    double number = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

SortKey sortKey(std::string_view text) {
    SortKey key;
    if (const auto number = cellNumber(text)) {
        key.number = *number;
        key.isNumber = true;
    }
    key.folded = foldCase(text);
    return key;
}

bool less(const SortKey& left, const SortKey& right) {
    if (left.isNumber && right.isNumber) return left.number < right.number;
    return left.folded < right.folded;
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
