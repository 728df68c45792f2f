#include <algorithm>

#include "form/classification.h"
#include "form/frmCatalogador.h"
#include "form/startup/combo_source.h"
#include "modules/modIds.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr int gapAfterLabels = 280;

/// Whether the view offers a field to the application with that key; only the classifications
/// withhold some.
bool isOffered(const frmCatalogador& form, const Field& field) {
    const auto& values = form.valueFields();
    const auto* const found = std::find(values.begin(), values.end(), &field);
    if (form.mlngIdVista != viewClassifications || found == values.end()) return true;
    return classification::valueIsOffered(static_cast<int>(found - values.begin()) + 1,
                                          form.mstrAppKey);
}

/// Hands a row of the metadata to its field, if it names one; gives the width of the label.
int configureField(frmCatalogador& form, const FieldRow& row) {
    const std::string key = row.key();
    for (Field* field : form.fields()) {
        if (key != field->key()) continue;
        return field->configure({row, form.picBackColor, isOffered(form, *field),
                                 [&form](ComboBox& combo, const std::string& source) {
                                     fillCombo(form, combo, source);
                                 }});
    }
    return 0;
}

}  // namespace

void frmCatalogador::InicializarControles() {
    trap("InicializarControles", [&] {
        for (Field* field : fields()) field->takeOut();
    });
}

void frmCatalogador::MostrarControles() {
    trap("MostrarControles", [&] {
        InicializarControles();
        const PointerDuring hourglass(surface());
        int widest = 0;
        records_.mstrSQL =
            "Select * from CatalogadorControles Where ACoIDFormVista = " + decimalText(mlngIdVista);
        records_.open();
        // The combos of a field open resultsets of their own; this one stays the form's.
        for (; !records_.mrdoRegistro->atEnd(); records_.mrdoRegistro->MoveNext())
            widest = std::max(
                widest, configureField(*this, FieldRow(*records_.mrdoRegistro, host_.regional)));
        records_.mrdoRegistro->Close();
        const int left = lblTexto1.left();
        const FieldFrame frame{widest + gapAfterLabels, left, picBackColor.width() - 2 * left};
        for (Field* field : fields()) field->show(frame);
        if (leadingNumber(mstrModo) == 0) CargarGrilla();
    });
}

}  // namespace catalogador
