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

void RecordGrid::changedWhenDrawn() {
    if (redraw_) changed();
}

void RecordGrid::clearRows() {
    for (Column& column : columns_) {
        column.texts = {};
        column.checks = {};
        column.alignment = 0;
    }
    codes_ = {};
    order_ = {};
    hidden_ = {};
    sortColumn_ = -1;
    sortOrder_ = sort_order::none;
    row_ = column_ = 0;
    topRow_ = fixedRows;
    rowsChanged();
}

void RecordGrid::setColumns(int count) {
    columns_.resize(static_cast<std::size_t>(std::max(0, count)));
    extraColumn_ = false;
    changedWhenDrawn();
}

void RecordGrid::addExtraColumn(int twips) {
    if (extraColumn_) return;
    setColumns(columns() + 1);
    extraColumn_ = true;
    setColumnWidth(columns() - 1, twips);
}

void RecordGrid::removeExtraColumn() {
    if (extraColumn_) setColumns(columns() - 1);
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

bool RecordGrid::columnHasChecks(int column) const {
    return columnAt(column).boolean || columnAt(column).checks.size() > 0;
}

int RecordGrid::addRow() {
    return addRows(1);
}

int RecordGrid::addRows(std::size_t count) {
    const int first = rows();
    for (; count > 0; --count) {
        if (!order_.empty()) order_.push_back(static_cast<std::uint32_t>(hidden_.size()));
        hidden_.push_back(false);
    }
    rowsChanged();
    return first;
}

std::size_t RecordGrid::stored(int row) const {
    if (row < fixedRows || row >= rows()) outOfRange();
    return storedAt(static_cast<std::size_t>(row - fixedRows));
}

std::string_view RecordGrid::text(int row, int column) const {
    if (row == 0) return columnAt(column).header;
    return columnAt(column).texts.at(stored(row));
}

void RecordGrid::setText(int row, int column, std::string_view text) {
    columnAt(column).texts.put(stored(row), text);
    changedWhenDrawn();
}

void RecordGrid::setTexts(int row, int column, std::span<const std::string_view> texts) {
    if (texts.empty()) return;
    // Rows that were appended stand last, whatever the sort, as they are stored.
    (void)stored(row + static_cast<int>(texts.size()) - 1);
    columnAt(column).texts.append(stored(row), texts);
    changedWhenDrawn();
}

std::string RecordGrid::code(int row) const {
    return codes_.at(stored(row));
}

void RecordGrid::setCode(int row, std::string_view code) {
    codes_.put(stored(row), code);
}

CheckState RecordGrid::check(int row, int column) const {
    const PackedArray<CheckState>& checks = columnAt(column).checks;
    const std::size_t index = stored(row);
    return index < checks.size() ? checks[index] : CheckState::none;
}

void RecordGrid::setCheck(int row, int column, CheckState state) {
    PackedArray<CheckState>& checks = columnAt(column).checks;
    const std::size_t index = stored(row);
    if (index >= checks.size()) checks.resize(index + 1, CheckState::none);
    checks[index] = state;
    changedWhenDrawn();
}

int RecordGrid::alignment(int row, int column) const {
    const int alignment = columnAt(column).alignment;
    return row >= fixedRows && row < rows() ? alignment : 0;
}

void RecordGrid::setColumnAlignment(int column, int alignment) {
    columnAt(column).alignment = alignment;
    changedWhenDrawn();
}

void RecordGrid::packRows() {
    for (Column& column : columns_) {
        column.texts.shrink();
        column.checks.shrink();
    }
    codes_.shrink();
    hidden_.shrink();
}

int RecordGrid::findCode(std::int32_t code) const {
    return firstOf(codes_.rowsWithNumber(code));
}

int RecordGrid::findCode(std::string_view code) const {
    return firstOf(codes_.rowsWith(code));
}

int RecordGrid::firstOf(const std::vector<std::uint32_t>& found) const {
    if (found.empty()) return 0;
    if (order_.empty()) return fixedRows + static_cast<int>(found.front());
    const auto first = found.size() == 1
                           ? std::find(order_.begin(), order_.end(), found.front())
                           : std::find_if(order_.begin(), order_.end(), [&](std::uint32_t row) {
                                 return std::binary_search(found.begin(), found.end(), row);
                             });
    return fixedRows + static_cast<int>(first - order_.begin());
}

void RecordGrid::setSortIndicator(int mode) {
    sortIndicator_ = mode;
    changedWhenDrawn();
}

void RecordGrid::select(int row, int column) {
    if (row < 0 || row >= rows()) outOfRange();
    row_ = row;
    column_ = column;
    // A row that the lower edge cuts is the one under the mouse, which must not run away from it.
    const int place = placeInSight(row);
    const bool inSight = place >= 0 && place <= rowsThatFit();
    if (row >= fixedRows && !rowHidden(row) && !inSight) topRow_ = row;
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

int RecordGrid::placeInSight(int row) const {
    const int index = visibleIndex(row);
    if (index < 0) return -1;
    // The top row itself may be hidden by now; what counts is the first visible row from it on.
    const int from = visibleIndexFrom(topRow_);
    const int first = from < visibleRows() ? from : 0;
    return std::max(-1, index - first);
}

bool RecordGrid::rowIsShown(int row) const {
    const int place = placeInSight(row);
    return place >= 0 && place < rowsThatFit();
}

void RecordGrid::bringIntoSight(int row) {
    const int index = visibleIndex(row);
    if (index < 0 || rowIsShown(row)) return;
    const bool upwards = row < topRow_;
    setTopRow(visibleRow(upwards ? index : std::max(0, index - rowsThatFit() + 1)));
}

void RecordGrid::setRowsThatFit(int count) {
    if (count == rowsThatFit_) return;
    const bool shown = rowIsShown(row_);
    rowsThatFit_ = count;
    if (shown) bringIntoSight(row_);
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
    // From a row that the filter hides, the arrows begin with the first match.
    if (at < 0 && keyCode != key::end) target = 0;
    const int row = visibleRow(std::clamp(target, 0, count - 1));
    bringIntoSight(row);
    select(row, column_);
    return true;
}

}  // namespace catalogador
