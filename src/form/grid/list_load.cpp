#include "form/grid/list_load.h"

#include <algorithm>

#include "form/editing/user_lists.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr int leftCentred = 1;
/// More than any alignment code that there is.
constexpr double largestAlignment = 255;

std::size_t at(int column) {
    return static_cast<std::size_t>(column);
}

/// nullopt for a text that is neither yes nor no.
std::optional<bool> yesOrNo(std::string_view text, const Regional& regional) {
    if (text == "True") return true;
    if (text == "False") return false;
    try {
        return toBoolean(Variant(text), regional);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

/// What every cell of the grid is shown as.
std::span<const std::string_view> trimmed(std::span<std::string_view> texts) {
    for (std::string_view& text : texts)
        if (text.data() != nullptr) text = trim(text);
    return texts;
}

}  // namespace

void ListLoad::append(rdoResultset& rows, const std::function<bool()>& goOn) {
    prepareColumns(rows);
    while (const std::size_t count = rows.rowsAtHand()) {
        for (int column = 0; column < static_cast<int>(columns_.size()); ++column)
            rows.shownTexts(column, regional_, columns_[at(column)].cells);
        appendBlock(count);
        rows.skipRows(count);
        if (!goOn()) break;
    }
    grid_.packRows();
}

void ListLoad::prepareColumns(const rdoResultset& rows) {
    const int shown = std::min(rows.columnCount(), grid_.columns());
    columns_.resize(at(std::max(0, shown)));
    for (int column = 1; column < shown; ++column)
        columns_[at(column)].bit = rows.column(column).type == bitColumnType;
    for (int column = 0; column < shown - 1; ++column) {
        const double code = grid_.headerData(column).value_or(0);
        grid_.setColumnAlignment(
            column, code > 0 ? static_cast<int>(std::min(code, largestAlignment)) : leftCentred);
    }
}

void ListLoad::appendBlock(std::size_t count) {
    std::size_t readable = count;
    for (Column& column : columns_)
        if (column.bit) readable = std::min(readable, readChecks(column));
    appendPart(0, readable);
    // What cannot be read is an error of its row; the rows before it are there.
    if (readable < count) appendPart(readable, readable + 1);
}

std::size_t ListLoad::readChecks(Column& column) const {
    column.checks.clear();
    for (const std::string_view text : column.cells.texts) {
        const auto checked = text.data() == nullptr ? false : yesOrNo(text, regional_);
        if (!checked) break;
        column.checks.push_back(text.data() == nullptr ? CheckState::none
                                : *checked             ? CheckState::checked
                                                       : CheckState::unchecked);
    }
    return column.checks.size();
}

void ListLoad::appendPart(std::size_t from, std::size_t to) {
    const int first = grid_.addRows(to - from);
    for (int number = 0; number < static_cast<int>(columns_.size()); ++number) {
        Column& column = columns_[at(number)];
        const std::span texts(column.cells.texts.data() + from, to - from);
        if (number == 0) {
            setCodes(first, texts);
        } else if (!column.bit) {
            grid_.setTexts(first, number - 1, trimmed(texts));
        } else {
            const bool starts = from < to && first == RecordGrid::fixedRows;
            if (starts && texts.front().data() != nullptr) grid_.setColumnBoolean(number - 1, true);
            for (std::size_t i = from; i < to; ++i)
                setCheck(first + static_cast<int>(i - from), number, i);
        }
    }
}

void ListLoad::setCodes(int row, std::span<const std::string_view> codes) {
    for (const std::string_view code : codes) {
        if (code.data() != nullptr) grid_.setCode(row, trim(code));
        ++row;
    }
}

void ListLoad::setCheck(int row, int number, std::size_t index) {
    const Column& column = columns_[at(number)];
    const std::string_view text = column.cells.texts[index];
    if (text.data() == nullptr) return;
    // Raises what is wrong with a cell that could not be read.
    if (index == column.checks.size()) (void)toBoolean(Variant(text), regional_);
    CheckState state = column.checks[index];
    if (unticked_ != nullptr) {
        const std::string_view code = columns_.front().cells.texts[index];
        const Variant value = code.data() == nullptr ? Variant() : Variant(code);
        state = listHasCode(*unticked_, toText(value, regional_)) ? CheckState::unchecked
                                                                  : CheckState::checked;
    }
    grid_.setCheck(row, number - 1, state);
}

}  // namespace catalogador
