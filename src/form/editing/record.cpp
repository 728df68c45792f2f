#include "form/editing/user_lists.h"
#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "runtime/text.h"

namespace catalogador {

bool frmCatalogador::CargoDatos(std::int32_t codigo) {
    return trap("CargoDatos", false, [&] {
        const PointerDuring hourglass(surface());
        records_.mstrSQL =
            "Select * From genCodigoTexto  Where CTeIDTipoVista =" + decimalText(mlngIdVista) +
            " And CteCodigo =" + decimalText(codigo);
        records_.open();
        if (!records_.mrdoRegistro->atEnd()) {
            for (Field* field : fields())
                if (field != &yesNoField() || mlngIdVista != viewClassifications)
                    field->load(*records_.mrdoRegistro, host_.regional);
            if (mlngIdVista == viewClassifications)
                chkValorSiNo.setValue(listHasCode(mstrListaNoMarcados, decimalText(codigo)) ? 0
                                                                                            : 1);
        }
        mdatModificado = records_.stamp();
        records_.mrdoRegistro->Close();
        return true;
    });
}

void frmCatalogador::LimpiarControles() {
    trap("LimpiarControles", [&] {
        for (Field* field : fields()) field->clear();
    });
}

}  // namespace catalogador
