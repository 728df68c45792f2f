#include "adapters/sql/cell_text.h"

#include <cmath>
#include <cstring>
#include <utility>
#include <vector>

#include "runtime/convert.h"

namespace catalogador::sql {

namespace {

bool areDigits(std::string_view text) {
    for (const char c : text)
        if (c < '0' || c > '9') return false;
    return !text.empty();
}

/// Digits that are the text of their number and cannot be too many for it.
bool isWholeNumber(std::string_view text) {
    constexpr std::size_t safeDigits = 18;
    const bool negative = text.starts_with('-');
    if (negative) text.remove_prefix(1);
    if (text == "0") return !negative;
    return text.size() <= safeDigits && areDigits(text) && text.front() != '0';
}

/// Appends the text of a cell that is as its kind of column mostly has them; false, with nothing
/// appended, for the others.
bool appendUsualText(const TransferredCell& cell, ColumnKind kind, const Regional& regional,
                     std::string& text) {
    if (kind == ColumnKind::decimal && isPlainDecimal(cell.bytes)) {
        appendDecimalText(text, cell.bytes, regional);
        return true;
    }
    if (kind == ColumnKind::date || kind == ColumnKind::timestamp) {
        const auto date = dateFromIso(cell.bytes);
        if (date) appendDateText(text, *date, regional);
        return date.has_value();
    }
    double number = 0;
    if (cell.type != SQL_C_DOUBLE) return false;
    std::memcpy(&number, cell.bytes.data(), sizeof number);
    if (!std::isfinite(number)) return false;
    appendNumberText(text, number, regional);
    return true;
}

/// Whether a text column's cell, or a whole number, is its own text.
bool isItsText(const TransferredCell& cell, ColumnKind kind) {
    if (cell.type != SQL_C_CHAR) return false;
    switch (kind) {
        case ColumnKind::text:
        case ColumnKind::time:
        case ColumnKind::binary:
        case ColumnKind::other:
            return true;
        case ColumnKind::integer:
            return isWholeNumber(cell.bytes);
        default:
            return false;
    }
}

}  // namespace

void cellTexts(const RowReader& reader, std::size_t column, ColumnKind kind,
               const Regional& regional, TextBlock& block) {
    const std::size_t rows = reader.rowsAtHand();
    block.texts.assign(rows, {});
    block.room.clear();
    // The room moves while it grows: where its texts are is known only in the end.
    std::vector<std::pair<std::size_t, std::size_t>> inRoom;
    for (std::size_t row = 0; row < rows; ++row) {
        const auto cell = reader.transferred(column, row);
        if (!cell) continue;
        if (kind == ColumnKind::boolean && cell->type == SQL_C_CHAR &&
            (cell->bytes == "1" || cell->bytes == "0")) {
            block.texts[row] = cell->bytes == "1" ? "True" : "False";
        } else if (isItsText(*cell, kind)) {
            block.texts[row] = cell->bytes;
        } else {
            inRoom.emplace_back(row, block.room.size());
            if (!appendUsualText(*cell, kind, regional, block.room))
                block.room += toText(variantOf(textOfTransferred(*cell), kind), regional);
        }
    }
    std::size_t end = block.room.size();
    for (auto text = inRoom.rbegin(); text != inRoom.rend(); ++text) {
        const auto [row, begin] = *text;
        block.texts[row] = std::string_view(block.room).substr(begin, end - begin);
        end = begin;
    }
}

}  // namespace catalogador::sql
