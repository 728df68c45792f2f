#pragma once
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sql/row_identity.h"
#include "adapters/sql/sql_session.h"
#include "platform/rdo.h"

namespace catalogador::sql {

/// Rows read forward, whatever the database. Their table is found in the text of the SELECT; rows
/// of several tables, grouped or made distinct can only be read.
class SqlResultset : public rdoResultset {
  public:
    /// Runs the statement. `toWrite` has the rows' identity read as well, where
    /// the database has one. Raises RuntimeError (statementFailed).
    SqlResultset(std::shared_ptr<SqlSession> session, const std::string& sql, bool toWrite = false);
    ~SqlResultset() override;
    SqlResultset(const SqlResultset&) = delete;
    SqlResultset& operator=(const SqlResultset&) = delete;

    [[nodiscard]] bool atEnd() const override { return row_ == Row::none; }
    void MoveNext() override;
    [[nodiscard]] int columnCount() const override;
    [[nodiscard]] const ColumnDescription& column(int index) const override;
    [[nodiscard]] Variant value(int index) const override;
    [[nodiscard]] Variant value(std::string_view name) const override;
    [[nodiscard]] std::size_t rowsAtHand() const override;
    void shownTexts(int index, const Regional& regional, TextBlock& block) const override;
    void AddNew() override;
    void Edit() override;
    void setValue(std::string_view name, Variant value) override;
    void Update() override;
    void Delete() override;
    void outcomeFound(std::optional<bool> stored) override;
    void Close() override;

  private:
    using StatementMaker =
        std::function<ParameterizedStatement(const std::vector<ExpectedValue>& expected)>;
    enum class Row { none, current, deleted };
    enum class Mode { reading, editing, adding };
    struct Assigned {
        std::size_t column;
        /// As the caller spelled it.
        std::string name;
        Variant value;
    };

    [[nodiscard]] bool openWithIdentity(const std::string& sql);
    [[nodiscard]] std::size_t checked(int index) const;
    [[nodiscard]] std::size_t indexOf(std::string_view name) const;
    [[nodiscard]] const Assigned* assigned(std::size_t column) const;
    /// Whether values are those that were fetched.
    [[nodiscard]] bool showsWhatWasRead() const {
        return mode_ == Mode::reading && row_ == Row::current && written_.empty();
    }
    void requireWritable() const;
    void requireCurrentRow() const;
    void requireOpen() const;
    [[nodiscard]] std::vector<ExpectedValue> expectedValues(bool identified) const;
    [[nodiscard]] std::vector<Assignment> assignments() const;
    void insertRow();
    void updateRow();
    /// Does a write and tells the listener what came of it.
    void told(std::string_view kind, const std::function<void()>& write);
    /// Whether a write can mean the row by its identity.
    [[nodiscard]] bool isIdentified() const {
        return !identity_.columns.empty() && written_.empty();
    }
    /// `make` makes a statement of the values that the row must have.
    void writeOneRow(const StatementMaker& make, bool countUnchanged);
    [[nodiscard]] std::int64_t writeRows(const StatementMaker& make, bool identified,
                                         bool countUnchanged);
    [[nodiscard]] ParameterizedStatement narrowed(ParameterizedStatement statement,
                                                  bool identified) const;

    std::shared_ptr<SqlSession> session_;
    /// Null when the resultset is closed.
    std::unique_ptr<SqlRows> rows_;
    /// Those of the identity come last, and are nobody else's business.
    std::vector<ColumnInfo> columns_;
    std::vector<ColumnDescription> descriptions_;
    RowIdentity identity_;
    std::optional<std::string> table_;
    /// The condition that picked the rows; a write of a row without an identity keeps to it, so
    /// that rows of other records with the same values are not taken for this one.
    std::string condition_;
    Row row_ = Row::none;
    Mode mode_ = Mode::reading;
    std::vector<Assigned> assigned_;
    /// What Update wrote to the current row, by column.
    std::map<std::size_t, Variant> written_;
    /// Tells the listener of the write whose answer was lost.
    std::function<void(std::optional<bool> done)> untold_;
};

}  // namespace catalogador::sql
