#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

/// Lists that view 10 keeps for each user: the order of the codes, and the unticked ones.
constexpr std::int16_t orderList = 1;
constexpr std::int16_t untickedList = 2;
/// The grid column of view 10 that shows whether a code is ticked.
constexpr int tickColumn = 4;

void appendCode(std::string& list, std::string_view code) {
    if (!list.empty()) list += ",";
    list += code;
}

}  // namespace

std::string frmCatalogador::gridCodes() const {
    std::string codes;
    for (int row = RecordGrid::fixedRows; row < grdGrilla.rows(); ++row)
        appendCode(codes, grdGrilla.code(row));
    return codes;
}

std::string frmCatalogador::uncheckedCodes() const {
    std::string codes;
    for (int row = RecordGrid::fixedRows; row < grdGrilla.rows(); ++row) {
        const bool current = rowHasCode(row, mlngIdDato);
        const bool unticked = current ? chkValorSiNo.value() == 0
                                      : grdGrilla.check(row, tickColumn) != CheckState::checked;
        if (unticked) appendCode(codes, grdGrilla.code(row));
    }
    return codes;
}

void frmCatalogador::writeUserLists() {
    std::int16_t list = orderList;
    if (mstrModo == "1") {
        std::string codes = gridCodes();
        appendCode(codes, decimalText(mlngIdDato));
        GrabarLista(mlngUsuario, list, codes);
    }
    list = untickedList;
    GrabarLista(mlngUsuario, list, uncheckedCodes());
}

void frmCatalogador::GrabarLista(std::int32_t& clave, std::int16_t& lista,
                                 const std::string& texto) {
    ignoringErrors([&] {
        const PointerDuring hourglass(surface());
        mstrSQL = "Select * From genListas Where LisIDLista = " + decimalText(lista) +
                  " And LisIDClave = " + decimalText(clave);
        openRecords(Purpose::writing);
        if (mrdoRegistro->atEnd()) {
            mrdoRegistro->AddNew();
            mrdoRegistro->setValue("LisIDLista", lista);
            mrdoRegistro->setValue("LisIDClave", clave);
        } else {
            mrdoRegistro->Edit();
        }
        mrdoRegistro->setValue("LisLista", texto);
        mrdoRegistro->Update();
        mrdoRegistro->Close();
    });
}

void frmCatalogador::GrabarListaGrilla() {
    ignoringErrors([&] {
        std::int16_t list = orderList;
        GrabarLista(mlngUsuario, list, gridCodes());
    });
}

}  // namespace catalogador
