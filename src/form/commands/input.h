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
/// Keys of the list that no event of it names: copying, the context menu, and while a record is
/// being edited those that lead to the fields. A key that is used up becomes 0.
void otherKeyInList(frmCatalogador& form, int& keyCode, int modifiers);
/// While a record is being edited, what is typed in the list goes into the first field.
void characterInList(frmCatalogador& form, char32_t& character);

}  // namespace catalogador
