#pragma once
#include <array>
#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/sql/column_info.h"
#include "adapters/sql/sql_tokens.h"
#include "adapters/sql/timeouts.h"
#include "platform/rdo.h"
#include "runtime/error.h"
#include "runtime/variant.h"

namespace catalogador::sql {

class SqlSession;
struct RowIdentity;

/// What a column of a table that the program creates holds.
enum class ColumnType {
    smallInteger,
    integer,
    single,
    number,
    name,
    text,
    longText,
    statement,
    yesNo,
    dateTime,
    count
};

/// What the transactions that begin next in a session may do.
enum class Access { reading, writing };

/// What is plainly so in a database. The defaults hold for a database that is not known, which gets
/// standard SQL only.
struct DialectFacts {
    /// The database's name on the command line: "postgresql".
    std::string_view name = {};
    /// Its name in messages, which is also part of the names of its ODBC drivers: "PostgreSQL".
    std::string_view title = {};
    /// Parts of the product names by which drivers report it.
    std::array<std::string_view, 2> products = {};
    /// Begins the errors in which its driver gives the engine's own numbers; empty for none.
    std::string_view errorMark = {};

    SqlSyntax syntax = {};
    char nameQuote = '"';
    std::string_view insertOfDefaults = " DEFAULT VALUES";
    /// The function that counts a text's characters.
    std::string_view lengthFunction = "Character_Length";
    /// Columns that tell a row from every other in a table without a key; see RowIdentity.
    std::array<std::string_view, 2> rowAddress = {};
    bool rowAddressLasts = true;
    /// The queries of what tables there are: (table, column, type, length, digits of seconds), and
    /// (table, key, column) of every unique key.
    std::string_view columnsQuery = {};
    std::string_view keysQuery = {};
    std::string_view clock = "Select localtimestamp";
    Drawing drawing = Drawing::inTransaction;

    /// The names of the types of new columns, in the order of ColumnType; and what a CREATE TABLE
    /// ends in.
    std::array<std::string_view, static_cast<std::size_t>(ColumnType::count)> typeNames = {};
    std::string_view tableOptions = {};

    /// A value that is bound for a column has to be declared as what the column holds.
    bool typesTexts = true;
    /// A column of dates can keep a time.
    bool keepsTimeInDates = false;
    /// A column of whole numbers can keep decimals.
    bool keepsDecimalsInIntegers = false;
    /// A value read is compared by its text, whatever its column is declared to be.
    bool comparesAsText = false;
    /// An UPDATE counts a row as touched that had the values before.
    bool countsUnchangedRows = true;
    /// The address of a row is a column, and its name may be quoted.
    bool quotesRowAddress = false;

    /// A file that the program itself reads: there is no connection to lose, writers take turns,
    /// and transactions begin and end with statements.
    bool isFile = false;
    /// Begins a transaction that writes, or that only reads; without a text the driver begins it.
    std::string_view beginWriting = {};
    std::string_view beginReading = {};
    /// Parts of the names of functions that reach files, load code or run a text.
    std::span<const std::string_view> reachingFunctions = {};
    /// Finds, followed by the number of a session, that session while it works on a statement.
    std::string_view busySessionQuery = {};
    /// A query that is refused unless its one parameter is the text of one query, of which nothing
    /// is run; empty where there is none.
    std::string_view oneCommandQuery = {};

    /// The driver finds its way back to the start of a block of rows.
    bool fetchesAgain = false;
    /// The driver has nothing but texts to give.
    bool givesTextsOnly = false;
    /// The driver looks for quotes and "?" inside of comments too.
    bool readsComments = false;
    /// The driver takes a column's alias for its name.
    bool hidesNamesBehindAliases = false;
    /// The driver reports the base names of columns.
    bool reportsBaseNames = false;
    /// The driver counts the rows of a query, and knows no columns where there are none.
    bool countsRowsOfQueries = false;
    /// Every statement is prepared, even one without values: the driver crashes when the answer
    /// to a statement that it did not prepare is cut off.
    bool preparesEverything = false;
    /// The driver sends a text that may hold several commands for a cursor other than the plainest.
    bool needsPlainCursor = false;
    /// A value that is stored only in part is reported as a warning.
    bool warnsOfPartialValues = false;
    /// "Server" in a connection string may list several hosts.
    bool listsHosts = false;
};

/// What is known of a session that was set up.
struct SessionState {
    /// How the server reads statements there.
    SqlSyntax syntax = {};
    /// The number by which the server knows the session; empty where it has none.
    std::string process = {};
    /// What the syntax was derived from; another text means that statements are read in another
    /// way now. Empty where that cannot change.
    std::string mode = {};
    /// The user may do anything, and checks run with fewer rights.
    bool limitsChecks = false;
};

/// Runs the statements by which a dialect sets a session up. Both raise RuntimeError
/// (statementFailed).
class SessionCommands {
  public:
    virtual ~SessionCommands() = default;
    virtual std::vector<std::vector<Variant>> ask(const std::string& query) = 0;
    virtual void tell(const std::string& statement) = 0;
};

/// How a session is set up.
struct SessionSetUp {
    Timeouts timeouts = {};
    /// Somebody else has opened it: its settings are only read.
    bool borrowed = false;
    /// The database itself is to take one command a statement.
    bool oneCommand = true;
    /// The connection string says how long a file's lock is waited for.
    bool saysLockWait = false;
    /// The connection string names several hosts.
    bool severalHosts = false;
};

/// Statements by which the database reads a statement without running it.
struct Preparation {
    /// In this order; none where the driver is asked to prepare it.
    std::vector<std::string> statements = {};
    /// They are refused in a session that may only read.
    bool needsWriting = false;
};

/// An entry of a connection string: its key in capitals, and its value as it is written but for the
/// braces around it.
struct ConnectionEntry {
    std::string key;
    std::string_view value;
    bool braced = false;
};

/// Everything in which a database differs from the others. The members that are not overridden do
/// what standard SQL and an unknown driver allow.
class Dialect : public rdoDialect {
  public:
    explicit Dialect(const DialectFacts& facts) : facts_(facts) {}

    [[nodiscard]] const DialectFacts& facts() const { return facts_; }
    [[nodiscard]] std::string_view clock() const final { return facts_.clock; }
    [[nodiscard]] Drawing drawing() const final { return facts_.drawing; }

    /// A name in the quotes of the database.
    [[nodiscard]] std::string quotedName(const std::string& name) const;
    /// What the values of a column are, by its type code (SQL_…) and its declared type.
    [[nodiscard]] virtual ColumnKind columnKind(int sqlType, std::string_view typeName) const;
    /// Whether a value read from that column says reliably that the row is still the same. Columns
    /// that are computed, binary or of a type without equality do not.
    [[nodiscard]] virtual bool isComparable(const ColumnInfo& column) const;
    /// The condition that a column has the value of a "?"; texts are equal to the letter, whatever
    /// the database itself calls equal. `name` is quoted.
    [[nodiscard]] virtual std::string equals(const std::string& name,
                                             const ColumnInfo& column) const;
    /// The same for a text, whatever the column is.
    [[nodiscard]] virtual std::string equalsText(const std::string& name) const;
    /// How the rows of a table are told apart; no columns where they cannot be. `table` is spelled
    /// as in SQL. Raises RuntimeError (statementFailed) for what is no table.
    [[nodiscard]] virtual RowIdentity rowIdentity(SqlSession& session,
                                                  const std::string& table) const;

    /// Sets a session up and tells how it reads. Raises what the commands raise, and RuntimeError
    /// (statementFailed) where the session would take several commands in one statement.
    [[nodiscard]] virtual SessionState setUp(SessionCommands& commands,
                                             const SessionSetUp& how) const;
    /// What a new connection to a server of a cluster needs. Raises RuntimeError (ErrorCause::lost)
    /// when the server is not part of its cluster.
    virtual void joinCluster(SessionCommands& commands, const SessionSetUp& how) const;
    /// How the session reads now; no value where that cannot change.
    [[nodiscard]] virtual std::optional<SessionState> currentState(SessionCommands& commands) const;
    /// The statement that sets what the session may do; empty where there is none.
    [[nodiscard]] virtual std::string accessStatement(Access access) const;
    /// The commands that begin the transaction of a check, which holds data; empty where a check
    /// needs none. See SessionState for `limits`.
    [[nodiscard]] virtual std::string beginCheck(bool limits) const;
    /// Why the driver must not be given a statement; empty for any other.
    [[nodiscard]] virtual std::string_view refusal(std::string_view text,
                                                   const SqlSyntax& syntax) const;
    /// Whether a check is refused when the database, asked to prepare it, tells of no columns.
    [[nodiscard]] virtual bool mustHaveColumns(std::string_view text,
                                               const SqlSyntax& syntax) const;
    [[nodiscard]] virtual Preparation preparation(const std::string& text,
                                                  const SqlSyntax& syntax) const;
    /// Stops what the session of that number does, from another one; empty where the driver does
    /// it.
    [[nodiscard]] virtual std::string cancelStatement(const std::string& process) const;
    /// Ends the session of that number; empty where there is no such statement.
    [[nodiscard]] virtual std::string endSessionStatement(const std::string& process) const;

    /// The cause behind the engine's own number of an error (see DialectFacts::errorMark); no value
    /// where the state of the error tells more.
    [[nodiscard]] virtual std::optional<ErrorCause> causeOf(int number) const;
    /// What the driver has to be told of the times, as keys and values of the connection string.
    [[nodiscard]] virtual std::vector<std::pair<std::string_view, std::string>> timeoutEntries(
        const Timeouts& timeouts) const;
    /// What makes the driver send one command a statement, to be appended to the connection string
    /// with these entries: of two values of a key the drivers take the later one.
    [[nodiscard]] virtual std::string oneCommandEntries(
        const std::vector<ConnectionEntry>& entries) const;

  private:
    DialectFacts facts_;
};

/// How much later than the server gives up a statement its driver gives up the answer.
constexpr std::chrono::seconds timeForTheNetwork{5};

/// The kind that the type code (SQL_…) alone tells.
ColumnKind kindOfCode(int sqlType);

/// Every database that is known, in the order in which they are listed.
std::span<const Dialect* const> dialects();
/// The database of that name on the command line; null for none.
const Dialect* dialectNamed(std::string_view name);
/// The database by the product name that its driver reports; standardDialect() for an unknown one.
const Dialect& dialectOfProduct(std::string_view product);
/// The database behind a session; standardDialect() for an unknown one.
const Dialect& dialectOf(const rdoSession& session);
/// Standard SQL, and no more, for a database that is not known.
const Dialect& standardDialect();

}  // namespace catalogador::sql
