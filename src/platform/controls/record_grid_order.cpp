#include <algorithm>

#include "platform/controls/record_grid.h"
#include "platform/controls/rows/cell_order.h"
#include "platform/controls/rows/text_filter.h"
#include "runtime/error.h"

namespace catalogador {

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
    hidden_.set(index, hidden);
    rowsChanged();
}

void RecordGrid::showAllRows() {
    hidden_.setAll(false);
    rowsChanged();
}

void RecordGrid::filter(const LikePattern& pattern, Accents accents) {
    hidden_.setAll(true);
    const TextFilter filter(pattern, accents);
    for (const Column& column : columns_) filter.showMatches(column.texts, hidden_);
    rowsChanged();
}

void RecordGrid::buildVisible() const {
    visible_.clear();
    visibleKnown_ = true;
    hiddenRows_ = hidden_.count();
    if (hiddenRows_ == 0) {
        visible_ = {};
        return;
    }
    visible_.reserve(hidden_.size() - hiddenRows_);
    for (std::size_t n = 0; n < hidden_.size(); ++n)
        if (!hidden_[storedAt(n)]) visible_.push_back(static_cast<std::uint32_t>(n) + fixedRows);
}

int RecordGrid::visibleRows() const {
    knowVisible();
    return static_cast<int>(hidden_.size() - hiddenRows_);
}

int RecordGrid::visibleRow(int n) const {
    if (n < 0 || n >= visibleRows())
        throw RuntimeError(error_number::subscriptOutOfRange, "Subscript out of range");
    if (hiddenRows_ == 0) return fixedRows + n;
    return static_cast<int>(visible_[static_cast<std::size_t>(n)]);
}

int RecordGrid::visibleIndex(int row) const {
    if (row < fixedRows || row >= rows() || hidden_[stored(row)]) return -1;
    return visibleIndexFrom(row);
}

int RecordGrid::visibleIndexFrom(int row) const {
    knowVisible();
    if (hiddenRows_ == 0) return std::clamp(row, fixedRows, rows()) - fixedRows;
    const auto from = std::lower_bound(
        visible_.begin(), visible_.end(), row,
        [](std::uint32_t visible, int wanted) { return static_cast<int>(visible) < wanted; });
    return static_cast<int>(from - visible_.begin());
}

void RecordGrid::sort(int column, int order) {
    if (order != sort_order::ascending && order != sort_order::descending) return;
    order_ = rowsInOrder(columnAt(column).texts, std::move(order_), hidden_.size(),
                         order == sort_order::descending);
    sortColumn_ = column;
    sortOrder_ = order;
    rowsChanged();
}

}  // namespace catalogador
