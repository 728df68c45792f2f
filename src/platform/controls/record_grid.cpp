#include "platform/controls/record_grid.h"

#include <algorithm>

#include "platform/controls/keys.h"
#include "platform/controls/window.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {
[[noreturn]] void outOfRange() {
    throw RuntimeError(error_number::subscriptOutOfRange, "Subscript out of range");
}
}  // namespace

std::string_view RecordGrid::PackedTexts::at(std::size_t row) const {
    if (row >= ends.size()) return {};
    const std::size_t from = row == 0 ? 0 : ends[row - 1];
    return std::string_view(bytes).substr(from, ends[row] - from);
}

void RecordGrid::PackedTexts::append(std::size_t row, std::string_view text) {
    // Rows that were never written are empty.
    ends.resize(row, static_cast<std::uint32_t>(bytes.size()));
    if (bytes.size() + text.size() > UINT32_MAX)
        throw RuntimeError(7, "The list is too large to be shown");
    bytes.append(text);
    ends.push_back(static_cast<std::uint32_t>(bytes.size()));
}

void RecordGrid::PackedTexts::replace(std::size_t row, std::string_view text) {
    const std::size_t from = row == 0 ? 0 : ends[row - 1];
    const std::size_t before = ends[row] - from;
    bytes.replace(from, before, text);
    for (std::size_t i = row; i < ends.size(); ++i)
        ends[i] = static_cast<std::uint32_t>(ends[i] + text.size() - before);
}

void RecordGrid::PackedTexts::put(std::size_t row, std::string_view text) {
    if (row < ends.size())
        replace(row, text);
    else
        append(row, text);
}

void RecordGrid::changedWhenDrawn() {
    if (redraw_) changed();
}

void RecordGrid::clearRows() {
    for (Column& column : columns_) {
        column.texts = {};
        column.checks.clear();
        column.alignments.clear();
    }
    codes_ = {};
    order_.clear();
    hidden_.clear();
    sortColumn_ = -1;
    sortOrder_ = sort_order::none;
    row_ = column_ = 0;
    topRow_ = fixedRows;
    rowsChanged();
}

void RecordGrid::setColumns(int count) {
    columns_.resize(static_cast<std::size_t>(std::max(0, count)));
    changedWhenDrawn();
}

void RecordGrid::setFormatString(std::string_view headers) {
    const std::vector<std::string> names = splitText(headers, "|");
    if (names.empty()) return;
    setColumns(static_cast<int>(names.size()));
    for (std::size_t i = 0; i < names.size(); ++i) columns_[i].header = names[i];
    changedWhenDrawn();
}

const RecordGrid::Column& RecordGrid::columnAt(int column) const {
    if (column < 0 || column >= columns()) outOfRange();
    return columns_[static_cast<std::size_t>(column)];
}

RecordGrid::Column& RecordGrid::columnAt(int column) {
    if (column < 0 || column >= columns()) outOfRange();
    return columns_[static_cast<std::size_t>(column)];
}

const std::string& RecordGrid::header(int column) const {
    return columnAt(column).header;
}
std::optional<double> RecordGrid::headerData(int column) const {
    return columnAt(column).headerData;
}
void RecordGrid::setHeaderData(int column, double value) {
    columnAt(column).headerData = value;
}
int RecordGrid::columnWidth(int column) const {
    return columnAt(column).width;
}

void RecordGrid::setColumnWidth(int column, int twips) {
    columnAt(column).width = std::max(0, twips);
    changedWhenDrawn();
}

bool RecordGrid::columnHidden(int column) const {
    return columnAt(column).hidden;
}

void RecordGrid::setColumnHidden(int column, bool hidden) {
    columnAt(column).hidden = hidden;
    changedWhenDrawn();
}

bool RecordGrid::columnIsBoolean(int column) const {
    return columnAt(column).boolean;
}
void RecordGrid::setColumnBoolean(int column, bool boolean) {
    columnAt(column).boolean = boolean;
}

int RecordGrid::addRow() {
    order_.push_back(static_cast<std::uint32_t>(hidden_.size()));
    hidden_.push_back(false);
    rowsChanged();
    return rows() - 1;
}

std::size_t RecordGrid::stored(int row) const {
    if (row < fixedRows || row >= rows()) outOfRange();
    return order_[static_cast<std::size_t>(row - fixedRows)];
}

std::string_view RecordGrid::text(int row, int column) const {
    if (row == 0) return columnAt(column).header;
    return columnAt(column).texts.at(stored(row));
}

void RecordGrid::setText(int row, int column, std::string_view text) {
    columnAt(column).texts.put(stored(row), text);
    changedWhenDrawn();
}

std::string_view RecordGrid::code(int row) const {
    return codes_.at(stored(row));
}

void RecordGrid::setCode(int row, std::string_view code) {
    codes_.put(stored(row), code);
}

CheckState RecordGrid::check(int row, int column) const {
    const std::vector<CheckState>& checks = columnAt(column).checks;
    const std::size_t index = stored(row);
    return index < checks.size() ? checks[index] : CheckState::none;
}

void RecordGrid::setCheck(int row, int column, CheckState state) {
    std::vector<CheckState>& checks = columnAt(column).checks;
    const std::size_t index = stored(row);
    if (index >= checks.size()) checks.resize(index + 1, CheckState::none);
    checks[index] = state;
    changedWhenDrawn();
}

int RecordGrid::alignment(int row, int column) const {
    const std::vector<std::uint8_t>& alignments = columnAt(column).alignments;
    const std::size_t index = stored(row);
    return index < alignments.size() ? alignments[index] : 0;
}

void RecordGrid::setAlignment(int row, int column, int alignment) {
    std::vector<std::uint8_t>& alignments = columnAt(column).alignments;
    const std::size_t index = stored(row);
    if (index >= alignments.size()) alignments.resize(index + 1, 0);
    alignments[index] = static_cast<std::uint8_t>(alignment);
    changedWhenDrawn();
}

int RecordGrid::findCode(std::int32_t code) const {
    const std::string wanted = decimalText(code);
    for (int row = fixedRows; row < rows(); ++row)
        if (codes_.at(order_[static_cast<std::size_t>(row - fixedRows)]) == wanted) return row;
    return 0;
}

void RecordGrid::setSortIndicator(int mode) {
    sortIndicator_ = mode;
    changedWhenDrawn();
}

void RecordGrid::select(int row, int column) {
    if (row < 0 || row >= rows()) outOfRange();
    row_ = row;
    column_ = column;
    changedWhenDrawn();
}

void RecordGrid::setTopRow(int row) {
    topRow_ = std::clamp(row, fixedRows, std::max(fixedRows, rows() - 1));
    changedWhenDrawn();
}

int RecordGrid::rowsThatFit() const {
    if (rowsThatFit_ > 0) return rowsThatFit_;
    const int rowHeight = std::max(appearance_.rowHeightMin, 240);
    return std::max(1, (height() - appearance_.headerHeight) / rowHeight);
}

bool RecordGrid::rowIsShown(int row) const {
    const int index = visibleIndex(row);
    if (index < 0) return false;
    // The top row itself may be hidden by now; what counts is the first visible row from it on.
    int top = topRow_;
    while (top < rows() && visibleIndex(top) < 0) ++top;
    const int first = top < rows() ? visibleIndex(top) : 0;
    return index >= first && index < first + rowsThatFit();
}

void RecordGrid::setRedraw(bool redraw) {
    redraw_ = redraw;
    changedWhenDrawn();
}

void RecordGrid::setAppearance(const GridAppearance& appearance) {
    appearance_ = appearance;
    changedWhenDrawn();
}

void RecordGrid::userClicked(MouseButton button, int row, int column) {
    if (row >= fixedRows && row < rows()) select(row, std::max(0, column));
    if (onMouseUp) onMouseUp(button, row, column);
}

void RecordGrid::userDoubleClicked(int row, int column) {
    if (row >= fixedRows && row < rows()) select(row, std::max(0, column));
    if (onDoubleClick) onDoubleClick(row, column);
}

void RecordGrid::userResized(int column, int twips) {
    setColumnWidth(column, twips);
    if (onAfterUserResize) onAfterUserResize(0, column);
}

bool RecordGrid::defaultKey(int keyCode, int /*modifiers*/) {
    const int count = visibleRows();
    const int at = row_ >= fixedRows ? visibleIndex(row_) : -1;
    const int page = std::max(1, rowsThatFit() - 1);
    int target = at;
    switch (keyCode) {
        case key::up:
            target = at - 1;
            break;
        case key::down:
            target = at + 1;
            break;
        case key::pageUp:
            target = at - page;
            break;
        case key::pageDown:
            target = at + page;
            break;
        case key::home:
            target = 0;
            break;
        case key::end:
            target = count - 1;
            break;
        default:
            return false;
    }
    if (count == 0) return true;
    const int row = visibleRow(std::clamp(target, 0, count - 1));
    select(row, column_);
    if (!rowIsShown(row)) {
        const int index = visibleIndex(row);
        const bool upwards = row < topRow_;
        setTopRow(visibleRow(upwards ? index : std::max(0, index - rowsThatFit() + 1)));
    }
    return true;
}

}  // namespace catalogador
