#include <algorithm>

#include "form/commands/input.h"
#include "form/frmCatalogador.h"
#include "platform/controls/keys.h"

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

void copyFromList(const frmCatalogador& form, bool onlyTheCell) {
    const RecordGrid& grid = form.grdGrilla;
    const int row = grid.row();
    if (row < RecordGrid::fixedRows || row >= grid.rows() || grid.rowHidden(row)) return;
    form.surface().copyText(onlyTheCell ? grid.cellText(row, grid.column()) : grid.rowText(row));
}

bool isEditing(const frmCatalogador& form) {
    return form.modo() != "0";
}

}  // namespace

void otherKeyInList(frmCatalogador& form, int& keyCode, int modifiers) {
    const bool shift = (modifiers & modifier::shift) != 0;
    if ((modifiers & modifier::alt) != 0) return;
    if (keyCode == key::f10 && modifiers == modifier::shift) {
        showContextMenu(form);
        keyCode = 0;
    } else if (keyCode == 'C' && (modifiers & modifier::control) != 0) {
        copyFromList(form, shift);
        keyCode = 0;
    } else if (isEditing(form) && isForTheFields(keyCode)) {
        // The highlight stays with the record that the fields show.
        if (Control* field = form.firstField()) form.setFocus(*field);
        keyCode = 0;
    }
}

void characterInList(frmCatalogador& form, char32_t& character) {
    Control* field = form.firstField();
    if (!isEditing(form) || field == nullptr || character <= U' ') return;
    const char32_t typed = character;
    character = 0;
    form.setFocus(*field);
    form.typeCharacter(typed);
}

}  // namespace catalogador
