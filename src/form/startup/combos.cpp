#include "form/frmCatalogador.h"
#include "form/startup/combo_source.h"
#include "modules/modIds.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

void fillCombo(frmCatalogador& form, ComboBox& combo, const std::string& source) {
    if (upperCase(leftCharacters(source, 6)) == "SELECT") {
        std::string sql = source;
        form.CargoComboXSQL(sql, combo, "");
    } else {
        form.CargoComboXArray(source, combo);
    }
}

void frmCatalogador::CargoComboXSQL(std::string& sql, ComboBox& combo, const std::string& valor) {
    trap("CargoComboXSQL", [&] {
        const PointerDuring hourglass(surface());
        combo.clear();
        int selected = -1;
        sql = replaceText(sql, "[prmIdEmpresa]", decimalText(mintEmpresa), Compare::text);
        const auto rows = mrdoCBase->OpenResultset(sql, openDynamic, lockOptimisticByValues);
        const std::string_view wanted = trim(valor);
        for (; !rows->atEnd(); rows->MoveNext()) {
            const std::string value = toText(rows->value(1), host_.regional);
            const std::string text(trim(value));
            combo.addItem(text, toLong(rows->value(0), host_.regional));
            if (wanted == text) selected = combo.listCount();
        }
        rows->Close();
        combo.setListIndex(selected == -1 ? -1 : selected - 1);
    });
}

void frmCatalogador::CargoComboXArray(const std::string& lista, ComboBox& combo) {
    trap("CargoComboXArray", [&] {
        combo.clear();
        for (const std::string& piece : splitText(lista, ";")) {
            if (piece.empty()) continue;
            const std::vector<std::string> parts = splitText(piece, ",");
            if (!isNumeric(Variant(parts[0]), host_.regional)) continue;
            if (parts.size() < 2)
                throw RuntimeError(error_number::subscriptOutOfRange, "Subscript out of range");
            combo.addItem(std::string(trim(parts[1])), toLong(Variant(parts[0]), host_.regional));
        }
    });
}

}  // namespace catalogador
