#include "form/frmCatalogador.h"
#include "form/grid/list_rows.h"
#include "modules/messages.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "platform/controls/keys.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

namespace catalogador {

namespace {

std::string filled(std::int32_t message, const std::string& first, const std::string& second = {},
                   const std::string& third = {}) {
    std::string text = replaceText(ObtenerMensaje(message), "[p1]", first, Compare::binary);
    text = replaceText(text, "[p2]", second, Compare::binary);
    return replaceText(text, "[p3]", third, Compare::binary);
}

/// "7.910": digits in groups of three.
std::string grouped(int number, const std::string& separator) {
    constexpr std::size_t group = 3;
    std::string text = decimalText(number);
    for (std::size_t at = text.size(); at > group;) text.insert(at -= group, separator);
    return text;
}

/// "Ctrl+G": the key bound to an action, empty when it has none.
std::string keyOfAction(const CommandBars& bars, int id) {
    for (const KeyBinding& binding : bars.bindings) {
        if (binding.actionId != id || binding.modifiers != bindingControl) continue;
        std::string name = "Ctrl+";
        appendCharacter(name, static_cast<char32_t>(binding.keyCode));
        return name;
    }
    return {};
}

}  // namespace

std::string frmCatalogador::statusText() const {
    if (!browsing()) return filled(message::nextStep, keyOfAction(commandBars, action::save));
    const std::string all = grouped(grdGrilla.rows() - RecordGrid::fixedRows, mstrSeparadorMiles);
    if (!mblnSinFiltro)
        return filled(message::filteredCount, grouped(grdGrilla.visibleRows(), mstrSeparadorMiles),
                      all, std::string(trim(commandBars.filterBox.text())));
    const int index = grdGrilla.visibleIndex(grdGrilla.row());
    if (index < 0) return filled(message::count, all);
    return filled(message::position, grouped(index + 1, mstrSeparadorMiles), all);
}

std::string frmCatalogador::emptyListText() const {
    if (!hasDataRows(grdGrilla))
        return filled(message::emptyList, keyOfAction(commandBars, action::create));
    return filled(message::noMatch, std::string(trim(commandBars.filterBox.text())),
                  keyOfAction(commandBars, action::filter));
}

}  // namespace catalogador
