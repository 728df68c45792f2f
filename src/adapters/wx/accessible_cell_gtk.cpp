#include "adapters/wx/accessible_cell_gtk.h"

#include <wx/toplevel.h>

#include <string>

#include "adapters/wx/grid_view.h"

namespace catalogador::wx {

namespace {

GType cellType();

/// The table that a cell belongs to while the cell is still in it, else null.
GridTable* tableOfCell(gpointer object) {
    const ChildObject* cell = childOf(object);
    GridTable* table = cell->owner == nullptr ? nullptr : gridOf(cell->owner);
    if (table == nullptr) return nullptr;
    const bool there = cell->row == headerRow ? cell->column < table->columns()
                                              : table->has(cell->row, cell->column);
    return there ? table : nullptr;
}

void cellFinalize(GObject* object) {
    finalizeChild(object, cellType());
}

const char* cellName(AtkObject* object) {
    GridTable* table = tableOfCell(object);
    if (table == nullptr) return "";
    const ChildObject* cell = childOf(object);
    const std::string text =
        cell->row == headerRow ? table->header(cell->column) : table->text(cell->row, cell->column);
    // The name must live as long as the object; the base class keeps it.
    AtkObjectClass* above = ATK_OBJECT_CLASS(classAbove(cellType()));
    const char* known = above->get_name(object);
    if (known == nullptr || text != known) above->set_name(object, text.c_str());
    return above->get_name(object);
}

int cellIndex(AtkObject* object) {
    GridTable* table = tableOfCell(object);
    if (table == nullptr) return -1;
    return (childOf(object)->row + 1) * table->columns() + childOf(object)->column;
}

AtkStateSet* cellStates(AtkObject* object) {
    AtkStateSet* states = ATK_OBJECT_CLASS(classAbove(cellType()))->ref_state_set(object);
    GridTable* table = tableOfCell(object);
    if (table == nullptr) {
        atk_state_set_add_state(states, ATK_STATE_DEFUNCT);
        return states;
    }
    const ChildObject* cell = childOf(object);
    for (const AtkStateType state :
         {ATK_STATE_ENABLED, ATK_STATE_SENSITIVE, ATK_STATE_VISIBLE, ATK_STATE_TRANSIENT})
        atk_state_set_add_state(states, state);
    if (cell->row == headerRow) {
        atk_state_set_add_state(states, ATK_STATE_SHOWING);
        return states;
    }
    atk_state_set_add_state(states, ATK_STATE_SELECTABLE);
    const bool selected = cell->row == table->selectedRow();
    if (selected) atk_state_set_add_state(states, ATK_STATE_SELECTED);
    if (selected && table->grid().hasFocus()) {
        atk_state_set_add_state(states, ATK_STATE_FOCUSABLE);
        atk_state_set_add_state(states, ATK_STATE_FOCUSED);
    }
    const int gridRow = table->grid().visibleRow(cell->row);
    if (table->grid().rowIsShown(gridRow)) atk_state_set_add_state(states, ATK_STATE_SHOWING);
    const CheckState check = table->check(cell->row, cell->column);
    if (check != CheckState::none) atk_state_set_add_state(states, ATK_STATE_CHECKABLE);
    if (check == CheckState::checked) atk_state_set_add_state(states, ATK_STATE_CHECKED);
    return states;
}

AtkAttributeSet* cellAttributes(AtkObject* object) {
    GridTable* table = tableOfCell(object);
    if (table == nullptr || childOf(object)->row != headerRow) return nullptr;
    auto* attribute = g_new(AtkAttribute, 1);
    attribute->name = g_strdup("sort");
    attribute->value = g_strdup(table->sortOf(childOf(object)->column));
    return g_slist_append(nullptr, attribute);
}

gboolean cellPosition(AtkTableCell* object, gint* row, gint* column) {
    if (tableOfCell(object) == nullptr) return FALSE;
    if (row != nullptr) *row = childOf(object)->row;
    if (column != nullptr) *column = childOf(object)->column;
    return TRUE;
}

gint oneCell(AtkTableCell* /*object*/) {
    return 1;
}

GPtrArray* cellHeaders(AtkTableCell* object) {
    GPtrArray* headers = g_ptr_array_new_with_free_func(g_object_unref);
    const ChildObject* cell = childOf(object);
    if (tableOfCell(object) != nullptr && cell->row != headerRow)
        g_ptr_array_add(headers, newAccessibleCell(cell->owner, headerRow, cell->column));
    return headers;
}

AtkObject* cellTable(AtkTableCell* object) {
    AtkObject* table = childOf(object)->owner;
    return table == nullptr ? nullptr : ATK_OBJECT(g_object_ref(table));
}

void tableCellInterface(gpointer interface, gpointer /*data*/) {
    auto* cell = static_cast<AtkTableCellIface*>(interface);
    cell->get_column_span = oneCell;
    cell->get_row_span = oneCell;
    cell->get_position = cellPosition;
    cell->get_column_header_cells = cellHeaders;
    cell->get_table = cellTable;
}

/// Where the cell is; nowhere while it is out of sight.
void cellExtents(AtkComponent* object, gint* x, gint* y, gint* width, gint* height,
                 AtkCoordType coordinates) {
    *x = *y = *width = *height = 0;
    GridTable* table = tableOfCell(object);
    if (table == nullptr) return;
    const ChildObject* cell = childOf(object);
    const GridView* view = reinterpret_cast<TableObject*>(cell->owner)->view;
    const int row = cell->row == headerRow ? 0 : table->grid().visibleRow(cell->row);
    wxRect place = view->cellOnScreen(row, table->gridColumn(cell->column));
    if (place.IsEmpty()) return;
    if (coordinates != ATK_XY_SCREEN)
        place.Offset(-wxGetTopLevelParent(const_cast<GridView*>(view))->GetScreenPosition());
    *x = place.x;
    *y = place.y;
    *width = place.width;
    *height = place.height;
}

void componentInterface(gpointer interface, gpointer /*data*/) {
    static_cast<AtkComponentIface*>(interface)->get_extents = cellExtents;
}

void cellClass(gpointer klass, gpointer /*data*/) {
    G_OBJECT_CLASS(klass)->finalize = cellFinalize;
    AtkObjectClass* object = ATK_OBJECT_CLASS(klass);
    object->get_name = cellName;
    object->get_index_in_parent = cellIndex;
    object->ref_state_set = cellStates;
    object->get_attributes = cellAttributes;
}

GType cellType() {
    static const GType type = [] {
        const GType made =
            g_type_register_static_simple(ATK_TYPE_OBJECT, "CatalogadorCell", sizeof(ChildClass),
                                          cellClass, sizeof(ChildObject), nullptr, GTypeFlags{});
        const GInterfaceInfo cell{tableCellInterface, nullptr, nullptr};
        g_type_add_interface_static(made, ATK_TYPE_TABLE_CELL, &cell);
        const GInterfaceInfo component{componentInterface, nullptr, nullptr};
        g_type_add_interface_static(made, ATK_TYPE_COMPONENT, &component);
        return made;
    }();
    return type;
}

}  // namespace

AtkObject* newAccessibleCell(gpointer table, int row, int column) {
    const AtkRole role = row == headerRow ? ATK_ROLE_COLUMN_HEADER : ATK_ROLE_TABLE_CELL;
    return newChild(cellType(), table, row, column, role);
}

}  // namespace catalogador::wx
