#include <wx/app.h>

#include "adapters/wx/accessible_cell_gtk.h"
#include "adapters/wx/grid_accessible.h"
#include "adapters/wx/grid_view.h"
#include "platform/controls/window.h"
#include "runtime/text.h"

namespace catalogador::wx {

namespace {

struct TableClass {
    GtkWidgetAccessibleClass parent;
};

GType tableType();

const char* tableName(AtkObject* object) {
    GridTable* table = gridOf(object);
    AtkObjectClass* above = ATK_OBJECT_CLASS(classAbove(tableType()));
    if (table == nullptr || table->grid().window() == nullptr) return above->get_name(object);
    const std::string& caption = table->grid().window()->caption();
    const char* known = above->get_name(object);
    if (known == nullptr || caption != known) above->set_name(object, caption.c_str());
    return above->get_name(object);
}

AtkStateSet* tableStates(AtkObject* object) {
    AtkStateSet* states = ATK_OBJECT_CLASS(classAbove(tableType()))->ref_state_set(object);
    atk_state_set_add_state(states, ATK_STATE_MANAGES_DESCENDANTS);
    return states;
}

int tableChildren(AtkObject* object) {
    const GridTable* table = gridOf(object);
    return table == nullptr ? 0 : (table->rows() + 1) * table->columns();
}

AtkObject* tableChild(AtkObject* object, int index) {
    if (index < 0 || index >= tableChildren(object)) return nullptr;
    const int columns = gridOf(object)->columns();
    return newAccessibleCell(object, index / columns - 1, index % columns);
}

AtkObject* tableCellAt(AtkTable* object, gint row, gint column) {
    const GridTable* table = gridOf(object);
    if (table == nullptr || !table->has(row, column)) return nullptr;
    return newAccessibleCell(object, row, column);
}

gint tableIndexAt(AtkTable* object, gint row, gint column) {
    const GridTable* table = gridOf(object);
    if (table == nullptr || !table->has(row, column)) return -1;
    return (row + 1) * table->columns() + column;
}

gint tableColumnAtIndex(AtkTable* object, gint index) {
    const GridTable* table = gridOf(object);
    return table == nullptr || table->columns() == 0 ? -1 : index % table->columns();
}

gint tableRowAtIndex(AtkTable* object, gint index) {
    const GridTable* table = gridOf(object);
    return table == nullptr || table->columns() == 0 ? -1 : index / table->columns() - 1;
}

gint tableColumns(AtkTable* object) {
    const GridTable* table = gridOf(object);
    return table == nullptr ? 0 : table->columns();
}

gint tableRows(AtkTable* object) {
    const GridTable* table = gridOf(object);
    return table == nullptr ? 0 : table->rows();
}

gint oneExtent(AtkTable* /*object*/, gint /*row*/, gint /*column*/) {
    return 1;
}

/// The caller does not own what it is given, so that the table keeps it.
AtkObject* tableColumnHeader(AtkTable* object, gint column) {
    const GridTable* table = gridOf(object);
    if (table == nullptr || column < 0 || column >= table->columns()) return nullptr;
    const std::string key = "catalogador-header-" + decimalText(column);
    auto* header = static_cast<AtkObject*>(g_object_get_data(G_OBJECT(object), key.c_str()));
    if (header == nullptr) {
        header = newAccessibleCell(object, headerRow, column);
        g_object_set_data_full(G_OBJECT(object), key.c_str(), header, g_object_unref);
    }
    return header;
}

const gchar* tableColumnDescription(AtkTable* object, gint column) {
    AtkObject* header = tableColumnHeader(object, column);
    return header == nullptr ? nullptr : atk_object_get_name(header);
}

gboolean tableIsRowSelected(AtkTable* object, gint row) {
    const GridTable* table = gridOf(object);
    return table != nullptr && row >= 0 && row == table->selectedRow() ? TRUE : FALSE;
}

gboolean tableIsCellSelected(AtkTable* object, gint row, gint /*column*/) {
    return tableIsRowSelected(object, row);
}

gint tableSelectedRows(AtkTable* object, gint** selected) {
    const GridTable* table = gridOf(object);
    if (table == nullptr || table->selectedRow() < 0) return 0;
    *selected = g_new(gint, 1);
    **selected = table->selectedRow();
    return 1;
}

gboolean tableSelectRow(AtkTable* object, gint row) {
    GridTable* table = gridOf(object);
    if (table == nullptr || !table->has(row, 0) || !table->grid().enabled()) return FALSE;
    table->select(row);
    // The request came past the window system, so nothing else makes the window show the change.
    wxWakeUpIdle();
    return TRUE;
}

void tableInterface(gpointer interface, gpointer /*data*/) {
    auto* table = static_cast<AtkTableIface*>(interface);
    table->ref_at = tableCellAt;
    table->get_index_at = tableIndexAt;
    table->get_column_at_index = tableColumnAtIndex;
    table->get_row_at_index = tableRowAtIndex;
    table->get_n_columns = tableColumns;
    table->get_n_rows = tableRows;
    table->get_column_extent_at = oneExtent;
    table->get_row_extent_at = oneExtent;
    table->get_column_header = tableColumnHeader;
    table->get_column_description = tableColumnDescription;
    table->is_row_selected = tableIsRowSelected;
    table->is_selected = tableIsCellSelected;
    table->get_selected_rows = tableSelectedRows;
    table->add_row_selection = tableSelectRow;
}

gint selectionCount(AtkSelection* object) {
    const GridTable* table = gridOf(object);
    return table == nullptr || table->selectedRow() < 0 ? 0 : table->columns();
}

AtkObject* selectionChild(AtkSelection* object, gint number) {
    if (number < 0 || number >= selectionCount(object)) return nullptr;
    return newAccessibleCell(object, gridOf(object)->selectedRow(), number);
}

gboolean selectionHas(AtkSelection* object, gint index) {
    return tableIsRowSelected(ATK_TABLE(object), tableRowAtIndex(ATK_TABLE(object), index));
}

gboolean selectionAdd(AtkSelection* object, gint index) {
    return tableSelectRow(ATK_TABLE(object), tableRowAtIndex(ATK_TABLE(object), index));
}

void selectionInterface(gpointer interface, gpointer /*data*/) {
    auto* selection = static_cast<AtkSelectionIface*>(interface);
    selection->get_selection_count = selectionCount;
    selection->ref_selection = selectionChild;
    selection->is_child_selected = selectionHas;
    selection->add_selection = selectionAdd;
}

void tableClass(gpointer klass, gpointer /*data*/) {
    AtkObjectClass* object = ATK_OBJECT_CLASS(klass);
    object->get_name = tableName;
    object->ref_state_set = tableStates;
    object->get_n_children = tableChildren;
    object->ref_child = tableChild;
}

GType tableType() {
    static const GType type = [] {
        const GType made = g_type_register_static_simple(
            GTK_TYPE_WIDGET_ACCESSIBLE, "CatalogadorTable", sizeof(TableClass), tableClass,
            sizeof(TableObject), nullptr, GTypeFlags{});
        const GInterfaceInfo table{tableInterface, nullptr, nullptr};
        g_type_add_interface_static(made, ATK_TYPE_TABLE, &table);
        const GInterfaceInfo selection{selectionInterface, nullptr, nullptr};
        g_type_add_interface_static(made, ATK_TYPE_SELECTION, &selection);
        return made;
    }();
    return type;
}

class GtkGridAccessible : public GridAccessible {
  public:
    GtkGridAccessible(GridView& view, RecordGrid& grid)
        : table_(grid), own_(view.GetConnectWidget(), tableType(), ATK_ROLE_TABLE) {
        auto* object = reinterpret_cast<TableObject*>(own_.object());
        object->table = &table_;
        object->view = &view;
    }
    ~GtkGridAccessible() override {
        auto* object = reinterpret_cast<TableObject*>(own_.object());
        object->table = nullptr;
        object->view = nullptr;
    }
    GtkGridAccessible(const GtkGridAccessible&) = delete;
    GtkGridAccessible& operator=(const GtkGridAccessible&) = delete;

    void changed() override {
        const int rows = table_.rows();
        const int columns = table_.columns();
        if (rows != rows_ || columns != columns_) {
            rows_ = rows;
            columns_ = columns;
            g_signal_emit_by_name(own_.object(), "model-changed");
        }
        tellSelection();
    }

  private:
    /// The cell of the selected row that is read first; the others are asked for by the reader.
    void tellSelection() {
        const int row = table_.selectedRow();
        const std::string text = row < 0 || columns_ == 0 ? std::string() : table_.text(row, 0);
        const bool focused = table_.grid().hasFocus();
        if (row == row_ && text == text_ && focused == focused_) return;
        const bool moved = row != row_ || text != text_;
        row_ = row;
        text_ = text;
        focused_ = focused;
        if (moved) g_signal_emit_by_name(own_.object(), "selection-changed");
        if (row < 0 || columns_ == 0 || !focused) return;
        own_.tellActive(newAccessibleCell(own_.object(), row, 0));
    }

    GridTable table_;
    OwnAccessible own_;
    int rows_ = -1;
    int columns_ = -1;
    int row_ = -1;
    std::string text_;
    bool focused_ = false;
};

}  // namespace

std::unique_ptr<GridAccessible> GridAccessible::of(GridView& view, RecordGrid& grid) {
    return std::make_unique<GtkGridAccessible>(view, grid);
}

}  // namespace catalogador::wx
