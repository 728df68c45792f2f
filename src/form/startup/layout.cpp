#include <algorithm>

#include "form/frmCatalogador.h"
#include "runtime/convert.h"

namespace catalogador {

namespace {

constexpr int labelGap = 100;
constexpr int fieldGap = 75;
constexpr int gridGap = 60;
constexpr int gridLeft = 60;
constexpr int checkStep = 315;

int bottom(const Control& control) {
    return control.top() + control.height();
}

}  // namespace

void frmCatalogador::UbicoControles() {
    trap("UbicoControles", [&] {
        int y = txtTexto1.top() + (kindOf(lblTexto1.tag) > 0 ? txtTexto1.height() : 0);
        if (kindOf(lblTexto2.tag) > 0) {
            lblTexto2.setTop(y + labelGap);
            txtTexto2.setTop(y + fieldGap);
            y = bottom(txtTexto2);
        }
        for (ValueField& field : valueFields_) {
            const int kind = kindOf(field.label.tag);
            if (kind <= 0) continue;
            field.label.setTop(y + labelGap);
            if (kind == 1) {
                field.text.setTop(y + fieldGap);
                y = bottom(field.text);
            } else if (kind == 2) {
                field.combo.setTop(y + fieldGap);
                field.combo.setLeft(field.text.left());
                y = bottom(field.combo);
            } else {
                field.check.setTop(y + labelGap);
                y = field.check.top() + checkStep;
            }
        }
        if (leadingNumber(chkValorSiNo.tag) == 1) {
            chkValorSiNo.setTop(y + labelGap);
            y = bottom(chkValorSiNo);
        }
        grdGrilla.setTop(y + gridGap);
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
