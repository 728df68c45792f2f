#include <algorithm>
#include <vector>

#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr int twipsPerHeaderCharacter = 15;
constexpr int narrowestForm = 5700;
constexpr int formMargin = 500;

constexpr int fixedBackgroundEntry = 36;
constexpr int fixedTextEntry = 45;
constexpr Color gold{0x0000D7FF};

int widthOf(const std::string& entry) {
    return static_cast<int>(std::clamp(leadingNumber(entry), 0.0, 1.0e6));
}

}  // namespace

void frmCatalogador::InicializarGrilla() {
    trap("InicializarGrilla", [&] {
        const auto text = [&](const char* column) {
            return toText(mrdoRegistro->value(column), host_.regional);
        };
        grdGrilla.tag = text("ABMConsulta");
        grdGrilla.setColumns(0);
        grdGrilla.setFormatString(text("ABMColumnasNombre"));
        hideColumnsOfOtherKeys();
        mstrAnchoColumnas = text("ABMColumnasAncho");
        setGridWidths();
        setGridAlignments(text("ABMColumnasAlineacion"));
        grdGrilla.addExtraColumn(extraColumnWidth);
        grdGrilla.clearRows();
        setGridAppearance();
    });
}

void frmCatalogador::hideColumnsOfOtherKeys() {
    if (mlngIdVista != viewClassifications) return;
    const std::string application = upperCase(mstrAppKey);
    const std::array<const char*, 4> shownFor{nullptr, "VEM04", "VEM04", "VEM01"};
    const int last = std::min(static_cast<int>(shownFor.size()), grdGrilla.columns());
    for (int column = 1; column < last; ++column)
        grdGrilla.setColumnHidden(column,
                                  application != shownFor[static_cast<std::size_t>(column)]);
}

void frmCatalogador::setGridWidths() {
    const std::vector<std::string> widths = splitText(mstrAnchoColumnas, "|");
    const int last = std::min(static_cast<int>(widths.size()), grdGrilla.columns());
    for (int column = 0; column < last; ++column) {
        const int width = widthOf(widths[static_cast<std::size_t>(column)]);
        const auto length = static_cast<int>(lengthInCharacters(grdGrilla.header(column)));
        grdGrilla.setColumnWidth(column, width > 0 ? width : length * twipsPerHeaderCharacter);
    }
}

void frmCatalogador::setGridAlignments(const std::string& alignments) {
    const std::vector<std::string> codes = splitText(alignments, "|");
    const int last = std::min(static_cast<int>(codes.size()), grdGrilla.columns());
    for (int column = 0; column < last; ++column)
        grdGrilla.setHeaderData(column, leadingNumber(codes[static_cast<std::size_t>(column)]));
}

void frmCatalogador::setGridAppearance() {
    GridAppearance look;
    look.gridLines = 4;
    look.wordWrap = false;
    look.backColorFixed = commandBars.paintColor(fixedBackgroundEntry);
    look.foreColorFixed = commandBars.paintColor(fixedTextEntry);
    look.backColorSel = gold;
    look.foreColorSel = systemHighlightColor;
    look.gridColor = systemButtonShadowColor;
    look.borderStyle = 0;
    look.headerHeight = 320;
    look.rowHeightMin = 250;
    look.extendLastColumn = true;
    grdGrilla.setAppearance(look);
}

void frmCatalogador::AjustarAnchoForm() {
    ignoringErrors([&] {
        std::int64_t sum = 0;
        for (int column = 0; column < grdGrilla.columns(); ++column)
            if (!grdGrilla.columnHidden(column)) sum += grdGrilla.columnWidth(column);
        setWidth(
            static_cast<int>(std::clamp<std::int64_t>(sum + formMargin, narrowestForm, 1'000'000)));
    });
}

}  // namespace catalogador
