#include <algorithm>

#include "form/frmCatalogador.h"

namespace catalogador {

namespace {
constexpr int gridGap = 60;
constexpr int gridLeft = 60;
}  // namespace

void frmCatalogador::UbicoControles() {
    trap("UbicoControles", [&] {
        int bottom = txtTexto1.top();
        for (Field* field : fields()) bottom = field->stack(bottom);
        grdGrilla.setTop(bottom + gridGap);
        grdGrilla.setLeft(gridLeft);
    });
}

void frmCatalogador::picBackColor_Resize() {
    trap("picBackColor_Resize", [&] {
        if (state() == WindowState::minimized) return;
        const int left = grdGrilla.left();
        const int top = grdGrilla.top();
        grdGrilla.move({left, top, std::max(0, picBackColor.width() - 2 * left),
                        std::max(0, picBackColor.height() - top - left)});
        chkValorSiNo.setWidth(std::max(0, picBackColor.width() - 2 * chkValorSiNo.left()));
    });
}

}  // namespace catalogador
