#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialect.h"
#include "platform/sql_text.h"
#include "runtime/convert.h"
#include "runtime/variant.h"

namespace catalogador {

/// Cursor and lock kinds of OpenResultset, by the numbers that hosts and traces use.
constexpr int openDynamic = 2;
constexpr int lockOptimisticByValues = 4;

/// Type code of a bit column; other codes are those of the data-access standard (SQL_…).
constexpr int bitColumnType = -7;

struct ColumnDescription {
    std::string name;
    int type = 0;
};

/// Texts of a column, one for each of several rows. A text without data() stands for Null.
struct TextBlock {
    std::vector<std::string_view> texts;
    /// Holds those texts that are nowhere else.
    std::string room;
};

/// Told of everything that goes through a connection, as it happens. Used by traces.
class StatementListener {
  public:
    virtual ~StatementListener() = default;
    /// A text was handed over to be opened as a resultset.
    virtual void opened(const std::string& sql, int type, int lock) = 0;
    /// A text was handed over to be executed.
    virtual void executed(const std::string& sql) = 0;
    /// A row was written through a resultset, or was to be when `done` is false; without a value
    /// nobody knows. `kind` is "insert", "update" or "delete".
    virtual void written(std::string_view kind, const std::string& table,
                         const std::vector<std::pair<std::string, Variant>>& columns,
                         std::optional<bool> done) = 0;
};

/// The rows a statement returned, read forward, and the means to write to their table.
///
/// Rows are written optimistically by values: UPDATE and DELETE name every value that was read
/// (Null included), so a row that another user changed or removed is not touched and rowChanged is
/// raised. Every member raises RuntimeError; the description carries the driver's text.
class rdoResultset {
  public:
    virtual ~rdoResultset() = default;

    /// True when there is no current row: the resultset is empty or was read past its last row.
    [[nodiscard]] virtual bool atEnd() const = 0;
    /// Raises noCurrentRow at the end.
    virtual void MoveNext() = 0;

    [[nodiscard]] virtual int columnCount() const = 0;
    /// Columns count from 0. Raises columnNotFound.
    [[nodiscard]] virtual const ColumnDescription& column(int index) const = 0;

    /// The value of the current row. Between Edit or AddNew and Update the value as set.
    /// Raises columnNotFound or noCurrentRow.
    [[nodiscard]] virtual Variant value(int index) const = 0;
    /// By name without regard to case; of several columns of that name the first.
    [[nodiscard]] virtual Variant value(std::string_view name) const = 0;

    /// Rows, from the current one on, that shownTexts gives at once: none at the end.
    [[nodiscard]] virtual std::size_t rowsAtHand() const { return atEnd() ? 0 : 1; }
    /// For reading many rows: the texts of a column of the rows at hand, as toText gives them for
    /// the values, which an implementation need not make. They are good until the next call of
    /// another member.
    virtual void shownTexts(int index, const Regional& regional, TextBlock& block) const {
        const Variant found = value(index);
        block.room = toTextOrEmpty(found, regional);
        block.texts.assign(1, found.isNull() ? std::string_view() : std::string_view(block.room));
    }
    /// MoveNext, so many times.
    void skipRows(std::size_t count) {
        for (; count > 0; --count) MoveNext();
    }

    virtual void AddNew() = 0;
    virtual void Edit() = 0;
    /// Sets a column of the row in AddNew or Edit. Raises columnNotFound, or invalidProcedureCall
    /// outside of these.
    virtual void setValue(std::string_view name, Variant value) = 0;
    /// Writes the row begun with AddNew or Edit: one INSERT or UPDATE of the columns set.
    virtual void Update() = 0;
    /// Deletes the current row; MoveNext then goes to the one after it.
    virtual void Delete() = 0;
    /// What has come of the last Update or Delete whose answer was lost (outcomeUnknown): whether
    /// it is stored, or nothing where that cannot be found out. Until then, or until the resultset
    /// is closed, no listener is told of it.
    virtual void outcomeFound(std::optional<bool> /*stored*/) {}
    /// May be called more than once.
    virtual void Close() = 0;
};

/// What a connection offers besides resultsets when the program itself opened it: statements with
/// values for their "?", and transactions. For the program's own services; no listener is told of
/// these statements. Every member raises RuntimeError.
class rdoSession {
  public:
    virtual ~rdoSession() = default;

    [[nodiscard]] virtual const rdoDialect& dialect() const = 0;

    /// The rows of a query. A Null is no value for a "?".
    virtual std::vector<std::vector<Variant>> query(const std::string& sql,
                                                    const std::vector<Variant>& values = {}) = 0;
    /// Gives the number of rows touched (-1 when the driver does not tell).
    virtual std::int64_t run(const std::string& sql, const std::vector<Variant>& values = {}) = 0;

    /// Everything from here to commit() or rollback() is done as a whole or not at all. In SQLite
    /// no one else can write meanwhile. Transactions may be nested.
    virtual void begin() = 0;
    /// An error with the cause outcomeUnknown means that the answer of the database was lost; with
    /// every other nothing of the transaction is stored.
    virtual void commit() = 0;
    virtual void rollback() = 0;
    [[nodiscard]] virtual bool inTransaction() const = 0;
};

/// A transaction that is rolled back unless it was committed.
class rdoTransaction {
  public:
    explicit rdoTransaction(rdoSession& session) : session_(session) { session_.begin(); }
    ~rdoTransaction();
    rdoTransaction(const rdoTransaction&) = delete;
    rdoTransaction& operator=(const rdoTransaction&) = delete;

    void commit();

  private:
    rdoSession& session_;
    bool open_ = true;
};

/// Does the work, and again a few times, after pauses that grow and are random, when the engine
/// undid it in favour of others (ErrorCause::conflict); but only where no transaction is around it
/// that would have to be done again too. Raises what the last attempt raised.
void retryConflicts(rdoSession& session, const std::function<void()>& work);

/// The same with each attempt in a transaction of its own, which is committed.
void inTransaction(rdoSession& session, const std::function<void()>& work);

/// An open database connection of the host.
class rdoConnection {
  public:
    virtual ~rdoConnection() = default;

    /// Runs one statement that returns rows. A text that carries a second statement is refused.
    virtual std::unique_ptr<rdoResultset> OpenResultset(const SqlText& sql, int type = openDynamic,
                                                        int lock = lockOptimisticByValues) = 0;
    /// The same for rows that are to be written: what is written is the very row that was read,
    /// where the database can tell, also of rows that are alike in everything.
    virtual std::unique_ptr<rdoResultset> OpenToWrite(const SqlText& sql, int type = openDynamic,
                                                      int lock = lockOptimisticByValues) {
        return OpenResultset(sql, type, lock);
    }
    /// Runs one statement; gives the number of rows it touched (-1 when the driver does not tell).
    virtual std::int64_t Execute(const SqlText& sql) = 0;

    /// Null for a connection of a host's own, which has neither parameters nor transactions. Lives
    /// as long as the connection.
    [[nodiscard]] virtual rdoSession* session() { return nullptr; }

    /// Called by whoever runs a statement as soon as it runs, and then now and again while it takes
    /// long; false stops the statement, which then fails. Empty for nobody. A connection that
    /// cannot tell never calls it.
    virtual void setWaiting(const std::function<bool()>& /*waiting*/) {}

    /// `listener` may be null and must outlive its use.
    virtual void setListener(StatementListener* listener) = 0;
};

}  // namespace catalogador
