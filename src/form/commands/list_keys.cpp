#include <algorithm>

#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "platform/controls/keys.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

/// Keys that would move the highlight of the list, or that belong to a field.
constexpr std::array<int, 11> keysForTheFields{key::tab,   key::up,     key::down,     key::left,
                                               key::right, key::pageUp, key::pageDown, key::home,
                                               key::end,   key::f2,     key::backspace};

bool isForTheFields(int keyCode) {
    return std::find(keysForTheFields.begin(), keysForTheFields.end(), keyCode) !=
           keysForTheFields.end();
}

}  // namespace

void frmCatalogador::otherKeyInList(int& keyCode, int modifiers) {
    const bool shift = (modifiers & modifier::shift) != 0;
    if ((modifiers & modifier::alt) != 0) return;
    if (keyCode == key::f10 && modifiers == modifier::shift) {
        showContextMenu();
        keyCode = 0;
    } else if (keyCode == 'C' && (modifiers & modifier::control) != 0) {
        copyFromList(shift);
        keyCode = 0;
    } else if (!browsing() && isForTheFields(keyCode)) {
        // The highlight stays with the record that the fields show.
        if (Control* field = firstField()) setFocus(*field);
        keyCode = 0;
    }
}

void frmCatalogador::characterInList(char32_t& character) {
    Control* field = firstField();
    if (browsing() || field == nullptr || character <= U' ') return;
    const char32_t typed = character;
    character = 0;
    setFocus(*field);
    typeCharacter(typed);
}

void frmCatalogador::copyFromList(bool onlyTheCell) {
    const int row = grdGrilla.row();
    if (row < RecordGrid::fixedRows || row >= grdGrilla.rows() || grdGrilla.rowHidden(row)) return;
    surface().copyText(onlyTheCell ? grdGrilla.cellText(row, grdGrilla.column())
                                   : grdGrilla.rowText(row));
}

std::string frmCatalogador::contents() const {
    std::string all;
    for (const TextField& field : textFields_) all += field.text.text() + '\n';
    for (const ValueField& field : valueFields_) {
        const int index = field.combo.listIndex();
        if (index >= 0) all += field.combo.items()[static_cast<std::size_t>(index)].text;
        all += '\n' + field.text.text() + '\n' + decimalText(field.check.value()) + '\n';
    }
    return all + decimalText(chkValorSiNo.value());
}

bool frmCatalogador::editMayEnd() {
    constexpr std::int32_t unsavedChanges = 105;
    if (browsing() || contents() == contentsAtStart_) return true;
    return host_.messages.MostrarMensaje(ObtenerMensaje(unsavedChanges), styleQuestionDefaultNo,
                                         mstrAppName) == answerYes;
}

}  // namespace catalogador
