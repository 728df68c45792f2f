#pragma once
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/record_grid.h"
#include "platform/rdo.h"

namespace catalogador {

/// Appends the rows of a listing to the list, many at a time. Column 0 of the listing is the code
/// of each row; column n goes into column n - 1 of the grid.
class ListLoad {
  public:
    /// All must outlive the object. `unticked` is a list of codes that decides what check boxes
    /// show instead of the listing; nullptr where the listing decides.
    ListLoad(RecordGrid& grid, const Regional& regional, const std::string* unticked)
        : grid_(grid), regional_(regional), unticked_(unticked) {}

    /// Appends the rows that are left, until `goOn` gives false. Raises RuntimeError; the rows
    /// before the one that cannot be read are in the list then.
    void append(rdoResultset& rows, const std::function<bool()>& goOn);

  private:
    /// A column of the listing and its cells that were read last.
    struct Column {
        bool bit = false;
        TextBlock cells;
        /// What the cells of a bit column say, up to one that cannot be read.
        std::vector<CheckState> checks;
    };

    void prepareColumns(const rdoResultset& rows);
    void appendBlock(std::size_t count);
    /// Reads the check states of a column; gives how many can be read.
    std::size_t readChecks(Column& column) const;
    /// Appends the rows from `from` to before `to` of those that were read last.
    void appendPart(std::size_t from, std::size_t to);
    void setCodes(int row, std::span<const std::string_view> codes);
    void setCheck(int row, int number, std::size_t index);

    RecordGrid& grid_;
    const Regional& regional_;
    const std::string* unticked_;
    std::vector<Column> columns_;
};

}  // namespace catalogador
