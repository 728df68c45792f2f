#include <algorithm>

#include "adapters/checks/context.h"
#include "adapters/checks/numbers.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

constexpr double lastAlignment = 9;
/// What a cell keeps free beside its text.
constexpr int cellMargin = 60;
constexpr int narrowestForm = 5700;
constexpr int formMargin = 500;
constexpr int captionMargins = 600;
constexpr int twipsPerHeaderCharacter = 15;
constexpr int usualWidth = 1000;

/// The entries of a list of columns.
std::vector<std::string> entriesOf(const Text& list) {
    return splitText(orEmpty(list), "|");
}

void checkCount(const Context& context, int number, const Place& place, std::size_t count,
                int shown) {
    if (count != static_cast<std::size_t>(shown))
        context.findings.add(number, place, decimalText(static_cast<std::int64_t>(count)),
                             decimalText(shown));
}

bool isWidth(const std::string& entry) {
    if (trim(entry).empty()) return true;
    const auto number = anyNumber(entry);
    return number && *number >= 0;
}

bool isAlignment(const std::string& entry) {
    if (trim(entry).empty()) return true;
    const auto number = wholeNumber(entry);
    return number && *number >= 0 && static_cast<double>(*number) <= lastAlignment;
}

/// Gives whether every entry is in order; of those that are not, the first is told.
bool checkEntries(const Context& context, int number, const Place& place,
                  const std::vector<std::string>& entries, bool (*inOrder)(const std::string&)) {
    const auto wrong = std::find_if_not(entries.begin(), entries.end(), inOrder);
    if (wrong == entries.end()) return true;
    context.findings.add(number, place, *wrong);
    return false;
}

int widthOf(const std::vector<std::string>& widths, std::size_t column, const std::string& header) {
    if (column >= widths.size()) return usualWidth;
    const double width = anyNumber(widths[column]).value_or(0);
    return width > 0 ? static_cast<int>(std::min(width, 1.0e6))
                     : static_cast<int>(lengthInCharacters(header)) * twipsPerHeaderCharacter;
}

void checkHeaderWidths(const Context& context, const ViewRow& view) {
    const auto headers = entriesOf(view.headers);
    const auto widths = entriesOf(view.widths);
    for (std::size_t column = 0; column < headers.size(); ++column) {
        const int width = widthOf(widths, column, headers[column]);
        if (context.options.textWidth(headers[column]) + cellMargin > width)
            context.findings.add(kind::headerCut, ofView(view, "ABMColumnasAncho"), headers[column],
                                 decimalText(width));
    }
}

int formWidthOf(const ViewRow& view) {
    const auto headers = entriesOf(view.headers);
    const auto widths = entriesOf(view.widths);
    int sum = formMargin;
    for (std::size_t column = 0; column < headers.size(); ++column)
        sum += widthOf(widths, column, headers[column]);
    return std::max(sum, narrowestForm);
}

void checkCaptions(const Context& context, const ViewRow& view) {
    const int room = formWidthOf(view) - captionMargins;
    for (const FieldRow& field : view.fields)
        if (context.options.textWidth(orEmpty(field.caption)) > room)
            context.findings.add(kind::captionCut, ofField(field, "ACoCaption"),
                                 orEmpty(field.caption));
}

}  // namespace

void checkColumns(const Context& context, const ViewRow& view, std::optional<int> shown) {
    const auto widths = entriesOf(view.widths);
    const auto alignments = entriesOf(view.alignments);
    const Place ofWidths = ofView(view, "ABMColumnasAncho");
    const Place ofAlignments = ofView(view, "ABMColumnasAlineacion");
    const bool widthsRead = checkEntries(context, kind::widthNoNumber, ofWidths, widths, isWidth);
    const bool alignmentsRead =
        checkEntries(context, kind::alignmentNoCode, ofAlignments, alignments, isAlignment);
    if (shown && view.headers)
        checkCount(context, kind::headerCount, ofView(view, "ABMColumnasNombre"),
                   entriesOf(view.headers).size(), *shown);
    // A wrong separator makes one entry of many, which has been told.
    if (shown && view.widths && widthsRead)
        checkCount(context, kind::widthCount, ofWidths, widths.size(), *shown);
    if (shown && view.alignments && alignmentsRead)
        checkCount(context, kind::alignmentCount, ofAlignments, alignments.size(), *shown);
    if (!context.options.textWidth) return;
    if (widthsRead) checkHeaderWidths(context, view);
    checkCaptions(context, view);
}

}  // namespace catalogador::checks
