#include <algorithm>
#include <vector>

#include "form/classification.h"
#include "form/frmCatalogador.h"
#include "form/grid/list_rows.h"
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

/// Columns 1 to 3 of the list of view 10 show its values 1 to 3.
void hideColumnsOfOtherKeys(RecordGrid& grid, const std::string& appKey) {
    const int last = std::min(classification::lastValue + 1, grid.columns());
    for (int column = 1; column < last; ++column)
        grid.setColumnHidden(column, !classification::valueIsOffered(column, appKey));
}

void setWidths(RecordGrid& grid, const std::string& list) {
    const std::vector<std::string> widths = splitText(list, "|");
    const int last = std::min(static_cast<int>(widths.size()), grid.columns());
    for (int column = 0; column < last; ++column) {
        const int width = widthOf(widths[static_cast<std::size_t>(column)]);
        const auto length = static_cast<int>(lengthInCharacters(grid.header(column)));
        grid.setColumnWidth(column, width > 0 ? width : length * twipsPerHeaderCharacter);
    }
}

void setAlignments(RecordGrid& grid, const std::string& alignments) {
    const std::vector<std::string> codes = splitText(alignments, "|");
    const int last = std::min(static_cast<int>(codes.size()), grid.columns());
    for (int column = 0; column < last; ++column)
        grid.setHeaderData(column, leadingNumber(codes[static_cast<std::size_t>(column)]));
}

void setGridAppearance(RecordGrid& grid, const CommandBars& bars) {
    GridAppearance look;
    look.gridLines = 4;
    look.wordWrap = false;
    look.backColorFixed = bars.paintColor(fixedBackgroundEntry);
    look.foreColorFixed = bars.paintColor(fixedTextEntry);
    look.backColorSel = gold;
    look.foreColorSel = systemHighlightColor;
    look.gridColor = systemButtonShadowColor;
    look.borderStyle = 0;
    look.headerHeight = 320;
    look.rowHeightMin = 250;
    look.extendLastColumn = true;
    grid.setAppearance(look);
}

}  // namespace

void frmCatalogador::InicializarGrilla() {
    trap("InicializarGrilla", [&] {
        const auto text = [&](const char* column) {
            return toText(records_.mrdoRegistro->value(column), host_.regional);
        };
        grdGrilla.tag = text("ABMConsulta");
        grdGrilla.setColumns(0);
        grdGrilla.setFormatString(text("ABMColumnasNombre"));
        if (mlngIdVista == viewClassifications) hideColumnsOfOtherKeys(grdGrilla, mstrAppKey);
        mstrAnchoColumnas = text("ABMColumnasAncho");
        setWidths(grdGrilla, mstrAnchoColumnas);
        setAlignments(grdGrilla, text("ABMColumnasAlineacion"));
        grdGrilla.addExtraColumn(extraColumnWidth);
        grdGrilla.clearRows();
        setGridAppearance(grdGrilla, commandBars);
    });
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

void frmCatalogador::grdGrilla_AfterUserResize() {
    trap("grdGrilla_AfterUserResize", [&] {
        std::string widths = decimalText(grdGrilla.columnWidth(0));
        for (int column = 1; column < grdGrilla.listColumns(); ++column)
            widths += "|" + decimalText(grdGrilla.columnWidth(column));
        mstrAnchoColumnas = widths;
        mblnAnchoCambiado = true;
    });
}

void frmCatalogador::GuardarAnchoColumnas() {
    trap("GuardarAnchoColumnas", [&] {
        const PointerDuring hourglass(surface());
        records_.mstrSQL = "Select ABMColumnasAncho from Catalogador Where ABMIDFormVista = " +
                           decimalText(mlngIdVista);
        records_.open();
        records_.mrdoRegistro->Edit();
        records_.mrdoRegistro->setValue("ABMColumnasAncho", mstrAnchoColumnas);
        records_.mrdoRegistro->Update();
        records_.mrdoRegistro->Close();
    });
}

}  // namespace catalogador
