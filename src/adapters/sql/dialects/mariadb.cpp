#include <charconv>
#include <map>

#include "adapters/sql/dialect.h"
#include "adapters/sql/row_identity.h"
#include "adapters/sql/sql_session.h"
#include "adapters/sql/statement_text.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::sql {

namespace {

constexpr std::array<std::string_view, 1> reachingFunctions{"load_file"};

DialectFacts mariadbFacts() {
    DialectFacts facts;
    facts.name = "mariadb";
    facts.title = "MariaDB";
    facts.products = {"MariaDB", "MySQL"};
    facts.errorMark = "[ma-";
    facts.syntax.backslashEscapes = facts.syntax.doubleQuotedTexts = true;
    facts.syntax.backtickNames = facts.syntax.hashComments = true;
    facts.syntax.dashCommentNeedsBlank = facts.syntax.executableComments = true;
    facts.syntax.digitTexts = "xXbB";
    facts.nameQuote = '`';
    facts.insertOfDefaults = " () VALUES ()";
    facts.columnsQuery = standardDialect().facts().columnsQuery;
    facts.keysQuery = standardDialect().facts().keysQuery;
    // Without a number of digits the clock has whole seconds only.
    facts.clock = "Select localtimestamp(6)";
    facts.drawing = Drawing::inSession;
    // Keys need a length, and TIMESTAMP would change by itself.
    facts.typeNames = {"SMALLINT",     "INT",           "FLOAT", "DOUBLE", "VARCHAR(100)",
                       "VARCHAR(255)", "VARCHAR(2000)", "TEXT",  "BIT(1)", "DATETIME(6)"};
    // Texts of any language, whatever the server's default is.
    facts.tableOptions = " CHARACTER SET utf8mb4";
    facts.typesTexts = false;
    facts.countsUnchangedRows = false;
    facts.quotesRowAddress = true;
    facts.reachingFunctions = reachingFunctions;
    facts.busySessionQuery =
        "SELECT 1 FROM information_schema.processlist WHERE command <> 'Sleep' AND id = ";
    facts.fetchesAgain = facts.reportsBaseNames = facts.preparesEverything = true;
    // A value like "12,5" would become 12.
    facts.warnsOfPartialValues = true;
    facts.listsHosts = true;
    return facts;
}

/// "10.11.6-MariaDB" as 101106; 0 for a server of another make, which reads comments for versions
/// in its own way.
int versionNumber(const std::string& version) {
    if (!containsText(version, "MariaDB", Compare::text)) return 0;
    int number = 0;
    const char* at = version.data();
    const char* const end = at + version.size();
    for (int part = 0; part < 3; ++part) {
        int value = 0;
        const auto read = std::from_chars(at, end, value);
        if (read.ec != std::errc()) return 0;
        number = number * 100 + value;
        at = read.ptr == end ? end : read.ptr + 1;
    }
    return number;
}

/// In other sets a byte of a character may look like a quote or a backslash.
bool readsByteByByte(const std::string& characterSet) {
    constexpr std::array<std::string_view, 6> sets{"utf8mb4", "utf8mb3", "utf8",
                                                   "latin1",  "ascii",   "binary"};
    for (const std::string_view set : sets)
        if (characterSet == set) return true;
    return false;
}

std::string settings(const Timeouts& timeouts) {
    const std::string lock = decimalText(wholeSeconds(endless(timeouts.lock)).count());
    // A text with its quotes doubled ends where the others' ends, whatever stands in it.
    return "SET SESSION innodb_lock_wait_timeout = " + lock + ", lock_wait_timeout = " + lock +
           ", max_statement_time = " + decimalText(wholeSeconds(timeouts.statement).count()) +
           ", sql_mode = CONCAT(@@SESSION.sql_mode, ',NO_BACKSLASH_ESCAPES')";
}

/// The columns of the key that suits best, of all that SHOW KEYS tells: the primary one, or else
/// one that is unique and has no Null and no column in part.
std::vector<std::string> keyOf(const std::vector<std::vector<Variant>>& parts) {
    enum Answer : std::size_t {
        nonUnique = 1,
        keyName = 2,
        columnName = 4,
        partLength = 7,
        null = 9
    };
    std::map<std::string, std::vector<std::string>> keys;
    std::vector<std::string> unfit;
    for (const auto& part : parts) {
        const auto text = [&](Answer column) { return toTextOrEmpty(part.at(column), Regional{}); };
        const bool fits =
            text(nonUnique) == "0" && text(null) != "YES" && part.at(partLength).isNull();
        if (!fits) unfit.push_back(text(keyName));
        keys[text(keyName)].push_back(text(columnName));
    }
    for (const std::string& name : unfit) keys.erase(name);
    const auto primary = keys.find("PRIMARY");
    if (primary != keys.end()) return primary->second;
    return keys.empty() ? std::vector<std::string>() : keys.begin()->second;
}

struct CauseOfNumber {
    int number;
    ErrorCause cause;
};
constexpr CauseOfNumber causes[] = {
    {1020, ErrorCause::conflict},        // changed since the transaction began
    {1213, ErrorCause::conflict},        // deadlock, or refused by the other nodes of a cluster
    {1205, ErrorCause::locked},          // lock wait timeout
    {1290, ErrorCause::readOnly},        // the server runs with --read-only
    {1792, ErrorCause::readOnly},        // a transaction that may only read
    {1836, ErrorCause::readOnly},        // read-only mode
    {1021, ErrorCause::full},            // disk full
    {1114, ErrorCause::full},            // table full
    {1180, ErrorCause::outcomeUnknown},  // the commit itself failed on the way
    {1047, ErrorCause::lost},            // a node that is not part of its cluster
    {1053, ErrorCause::lost},            // the server is ending
    {1927, ErrorCause::lost},            // somebody has ended the connection
    {2002, ErrorCause::lost},           {2003, ErrorCause::lost}, {2006, ErrorCause::lost},
    {2013, ErrorCause::lost},           {2055, ErrorCause::lost},
};

class Mariadb : public Dialect {
  public:
    Mariadb() : Dialect(mariadbFacts()) {}

    [[nodiscard]] std::string equalsText(const std::string& name) const override {
        return "CONVERT(" + name + " USING utf8mb4) COLLATE utf8mb4_nopad_bin = ?";
    }

    [[nodiscard]] RowIdentity rowIdentity(SqlSession& session,
                                          const std::string& table) const override {
        RowIdentity identity;
        identity.columns = keyOf(session.query("SHOW KEYS FROM " + table));
        if (!identity.columns.empty()) return identity;
        const auto rows = session.open("SELECT * FROM " + table + " WHERE 1 = 0");
        identity.eitherOfAlike = true;
        identity.lasting = false;
        for (const ColumnInfo& column : rows->columns) {
            identity.columns.push_back(column.name);
            // A value that cannot be compared may be where two rows differ.
            if (!isComparable(column)) identity.eitherOfAlike = false;
        }
        return identity;
    }

    [[nodiscard]] SessionState setUp(SessionCommands& commands,
                                     const SessionSetUp& how) const override {
        if (!how.borrowed) commands.tell(settings(how.timeouts));
        SessionState state = stateOf(commands);
        if (!how.borrowed && how.oneCommand) requireOneCommand(commands);
        return state;
    }

    void joinCluster(SessionCommands& commands, const SessionSetUp& how) const override {
        try {
            // What the other nodes of a cluster have committed is here when it is asked for.
            commands.tell("SET SESSION wsrep_sync_wait = 1");
        } catch (const RuntimeError& error) {
            if (error.cause() == ErrorCause::lost) throw;
            // A server that was built without clusters.
        }
        if (how.severalHosts) requireReady(commands);
    }

    [[nodiscard]] std::optional<SessionState> currentState(
        SessionCommands& commands) const override {
        return stateOf(commands);
    }

    [[nodiscard]] std::string accessStatement(Access access) const override {
        return std::string("SET SESSION TRANSACTION READ ") +
               (access == Access::reading ? "ONLY" : "WRITE");
    }

    /// SELECT … INTO OUTFILE has none.
    [[nodiscard]] bool mustHaveColumns(std::string_view text,
                                       const SqlSyntax& syntax) const override {
        const auto words = wordsOf(text, syntax);
        return words.empty() || !(equalText(words[0], "call") || equalText(words[0], "execute"));
    }

    /// The driver hands a write over no sooner than it is to be run, and a session that may only
    /// read refuses to prepare one.
    [[nodiscard]] Preparation preparation(const std::string& text,
                                          const SqlSyntax& syntax) const override {
        const std::string escaped =
            syntax.backslashEscapes ? replaceText(text, "\\", "\\\\", Compare::binary) : text;
        return {.statements = {"PREPARE catalogador_prepared FROM '" +
                                   replaceText(escaped, "'", "''", Compare::binary) + "'",
                               "DEALLOCATE PREPARE catalogador_prepared"},
                .needsWriting = true};
    }

    /// The driver would do the same on a connection that waits for the server without end.
    [[nodiscard]] std::string cancelStatement(const std::string& process) const override {
        return "KILL QUERY " + process;
    }

    [[nodiscard]] std::string endSessionStatement(const std::string& process) const override {
        return "KILL CONNECTION " + process;
    }

    [[nodiscard]] std::optional<ErrorCause> causeOf(int number) const override {
        for (const CauseOfNumber& known : causes)
            if (known.number == number) return known.cause;
        return std::nullopt;
    }

    [[nodiscard]] std::vector<std::pair<std::string_view, std::string>> timeoutEntries(
        const Timeouts& timeouts) const override {
        std::vector<std::pair<std::string_view, std::string>> entries{
            {"CONN_TIMEOUT", decimalText(wholeSeconds(endless(timeouts.login)).count())}};
        if (timeouts.statement.count() <= 0) return entries;
        const auto answer = wholeSeconds(timeouts.statement) + timeForTheNetwork;
        entries.emplace_back("READ_TIMEOUT", decimalText(answer.count()));
        entries.emplace_back("WRITE_TIMEOUT", decimalText(answer.count()));
        return entries;
    }

    [[nodiscard]] std::string oneCommandEntries(
        const std::vector<ConnectionEntry>& entries) const override {
        constexpr std::uint64_t severalCommands = 67108864;
        std::string result;
        for (const ConnectionEntry& entry : entries)
            if (entry.key == "OPTION" || entry.key == "OPTIONS")
                result +=
                    ";" + entry.key + "=" +
                    decimalText(static_cast<std::int64_t>(
                        static_cast<std::uint64_t>(leadingNumber(entry.value)) & ~severalCommands));
        return result;
    }

  private:
    [[nodiscard]] SessionState stateOf(SessionCommands& commands) const {
        const auto row = commands
                             .ask(
                                 "SELECT CONNECTION_ID(), @@SESSION.sql_mode, "
                                 "@@SESSION.character_set_client, VERSION()")
                             .at(0);
        const auto text = [&](std::size_t column) {
            return toTextOrEmpty(row.at(column), Regional{});
        };
        const std::string mode = text(1);
        const std::string characterSet = text(2);
        SessionState state{
            .syntax = facts().syntax, .process = text(0), .mode = mode + " " + characterSet};
        const auto has = [&](const char* flag) { return mode.find(flag) != std::string::npos; };
        state.syntax.backslashEscapes = !has("NO_BACKSLASH_ESCAPES");
        state.syntax.doubleQuotedTexts = !has("ANSI_QUOTES");
        state.syntax.serverVersion = versionNumber(text(3));
        state.syntax.unknown = !readsByteByByte(characterSet);
        return state;
    }

    static void requireOneCommand(SessionCommands& commands) {
        try {
            commands.tell("DO 0; DO 0");
        } catch (const RuntimeError&) {
            return;
        }
        throw RuntimeError(
            error_number::statementFailed,
            "The driver takes several commands in one statement (OPTION 67108864), which "
            "is not safe");
    }

    /// A node that has lost its cluster takes connections, but no statement. A server that belongs
    /// to none is never ready for one.
    static void requireReady(SessionCommands& commands) {
        const auto is = [&](const char* query, const char* value) {
            const auto rows = commands.ask(query);
            return !rows.empty() && rows.front().at(1) == Variant(value);
        };
        if (is("SHOW VARIABLES LIKE 'wsrep_on'", "ON") &&
            is("SHOW STATUS LIKE 'wsrep_ready'", "OFF"))
            throw RuntimeError(error_number::statementFailed, "The node is not part of its cluster",
                               ErrorCause::lost);
    }
};

}  // namespace

const Dialect& mariadbDialect() {
    static const Mariadb dialect;
    return dialect;
}

}  // namespace catalogador::sql
