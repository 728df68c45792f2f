#pragma once
#include <string>

namespace catalogador {

class ComboBox;
class frmCatalogador;

/// Fills a combo of the form from a statement, which begins with "SELECT" in any case, or from a
/// list. Nothing is selected.
void fillCombo(frmCatalogador& form, ComboBox& combo, const std::string& source);

}  // namespace catalogador
