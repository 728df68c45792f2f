#pragma once
#include <wx/access.h>

#include <deque>
#include <map>
#include <memory>
#include <utility>

#include "adapters/wx/grid_table.h"
#include "adapters/wx/grid_view.h"

namespace catalogador::wx {

/// Stands for the row of the headers where a row is asked for.
constexpr int headerRow = -1;
/// Stands for a row as a whole where a column is asked for.
constexpr int wholeRow = -1;

class TablePart;

/// The record grid as Active Accessibility knows it: a table whose children are the row of the
/// headers (child 1) and the rows (from child 2 on); the children of each are its cells.
class TableAccessible : public wxAccessible {
  public:
    /// The table must outlive it.
    TableAccessible(GridView& view, GridTable& table);
    ~TableAccessible() override;

    /// The object of a row or a cell; null when the table has none there. It belongs to the table,
    /// which keeps the ones that were used last.
    TablePart* part(int row, int column);
    [[nodiscard]] bool has(int row, int column) const;
    [[nodiscard]] GridTable& table() const { return table_; }
    [[nodiscard]] GridView& view() const { return view_; }
    /// The number of a row among the table's children.
    static int childOf(int row) { return row + 2; }

    wxAccStatus GetChildCount(int* count) override;
    wxAccStatus GetChild(int number, wxAccessible** child) override;
    wxAccStatus GetName(int number, wxString* name) override;
    wxAccStatus GetRole(int number, wxAccRole* role) override;
    wxAccStatus GetState(int number, long* state) override;
    wxAccStatus GetFocus(int* number, wxAccessible** child) override;
    wxAccStatus GetSelections(wxVariant* selections) override;
    wxAccStatus Navigate(wxNavDir direction, int from, int* to, wxAccessible** found) override;
    wxAccStatus HitTest(const wxPoint& point, int* number, wxAccessible** child) override;

  private:
    /// Lets go of all parts but those that were made last.
    void forgetOldParts();

    using Place = std::pair<int, int>;

    GridView& view_;
    GridTable& table_;
    std::map<Place, std::unique_ptr<TablePart>> parts_;
    std::deque<Place> order_;
};

/// A row, a cell, the row of the headers or a header of the table.
class TablePart : public wxAccessible {
  public:
    TablePart(TableAccessible& owner, int row, int column)
        : owner_(owner), row_(row), column_(column) {}

    wxAccStatus GetChildCount(int* count) override;
    wxAccStatus GetChild(int number, wxAccessible** child) override;
    wxAccStatus GetParent(wxAccessible** parent) override;
    wxAccStatus GetName(int number, wxString* name) override;
    wxAccStatus GetDescription(int number, wxString* description) override;
    wxAccStatus GetRole(int number, wxAccRole* role) override;
    wxAccStatus GetState(int number, long* state) override;
    wxAccStatus GetLocation(wxRect& place, int number) override;
    wxAccStatus Navigate(wxNavDir direction, int from, int* to, wxAccessible** found) override;
    wxAccStatus HitTest(const wxPoint& point, int* number, wxAccessible** child) override;
    wxAccStatus Select(int number, wxAccSelectionFlags how) override;

  private:
    [[nodiscard]] GridTable& table() const { return owner_.table(); }
    [[nodiscard]] bool isWholeRow() const { return column_ == wholeRow; }
    /// Whether the table still has it; rows go away when the list is filtered.
    [[nodiscard]] bool exists() const { return owner_.has(row_, column_); }
    [[nodiscard]] wxString rowName() const;
    [[nodiscard]] wxRect place() const;

    TableAccessible& owner_;
    int row_;
    int column_;
};

}  // namespace catalogador::wx
