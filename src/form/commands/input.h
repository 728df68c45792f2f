#pragma once

namespace catalogador {

class frmCatalogador;
class Window;
struct Host;

/// Has the events of the list call the form's procedures. The form must outlive its controls' use.
void wireList(frmCatalogador& form);
/// The same for the fields and the filter box.
void wireFields(frmCatalogador& form, Host& host);

/// The context menu of the list.
void showContextMenu(Window& window);
/// Handles the keys of the list that have no event of their own: they copy, open the context menu
/// and, while a record is being edited, lead to the fields. A key that was handled becomes 0.
void otherKeyInList(frmCatalogador& form, int& keyCode, int modifiers);
/// While a record is being edited, what is typed in the list goes into the first field.
void characterInList(frmCatalogador& form, char32_t& character);

}  // namespace catalogador
