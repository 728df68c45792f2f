#include "adapters/sql/sql_resultset.h"

#include <algorithm>

#include "adapters/sql/cell_text.h"
#include "adapters/sql/select_condition.h"
#include "adapters/sql/statement_text.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::sql {

namespace {

char lowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameName(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lowerCase(a) == lowerCase(b); });
}

}  // namespace

SqlResultset::SqlResultset(std::shared_ptr<SqlSession> session, const std::string& sql,
                           bool toWrite)
    : session_(std::move(session)),
      table_(writableTable(sql, session_->syntax())),
      condition_(selectCondition(withoutComments(sql, session_->syntax()), session_->syntax())) {
    if (!toWrite || !table_ || !openWithIdentity(sql)) rows_ = session_->open(sql);
    columns_ = rows_->columns;
    const std::size_t own = identity_.columns.size();
    const std::size_t asked = columns_.size() - own;
    for (std::size_t index = 0; index < asked; ++index)
        descriptions_.push_back({columns_[index].name, columnTypeCode(columns_[index])});
    for (std::size_t index = 0; index < own; ++index)
        columns_[asked + index].baseName = identity_.columns[index];
    if (rows_->reader && rows_->reader->next()) row_ = Row::current;
}

bool SqlResultset::openWithIdentity(const std::string& sql) {
    try {
        const RowIdentity identity = session_->dialect().rowIdentity(*session_, *table_);
        if (identity.columns.empty()) return false;
        // An address in quotes would be a text to SQLite where there is none of that name.
        std::vector<std::string> items = identity.columns;
        if (session_->dialect().facts().quotesRowAddress)
            for (std::string& item : items) item = session_->dialect().quotedName(item);
        rows_ = session_->open(withColumns(sql, items, session_->syntax()));
        if (rows_->columns.size() < items.size()) return false;
        identity_ = identity;
        return true;
    } catch (const RuntimeError&) {
        // Rows of a view or of a function have none; what else is wrong, the
        // statement itself says.
        return false;
    }
}

SqlResultset::~SqlResultset() {
    Close();
}

void SqlResultset::MoveNext() {
    requireOpen();
    if (row_ == Row::none) throw RuntimeError(error_number::noCurrentRow, "No current row");
    mode_ = Mode::reading;
    assigned_.clear();
    written_.clear();
    row_ = rows_->reader->next() ? Row::current : Row::none;
}

int SqlResultset::columnCount() const {
    return static_cast<int>(descriptions_.size());
}

const ColumnDescription& SqlResultset::column(int index) const {
    return descriptions_[checked(index)];
}

Variant SqlResultset::value(int index) const {
    requireOpen();
    const std::size_t number = checked(index);
    if (const Assigned* set = assigned(number)) return set->value;
    if (mode_ == Mode::adding) return Null{};
    requireCurrentRow();
    if (const auto written = written_.find(number); written != written_.end())
        return written->second;
    return rows_->reader->value(number, columns_[number].kind);
}

Variant SqlResultset::value(std::string_view name) const {
    return value(static_cast<int>(indexOf(name)));
}

std::size_t SqlResultset::rowsAtHand() const {
    return showsWhatWasRead() ? rows_->reader->rowsAtHand() : rdoResultset::rowsAtHand();
}

void SqlResultset::shownTexts(int index, const Regional& regional, TextBlock& block) const {
    requireOpen();
    const std::size_t number = checked(index);
    if (showsWhatWasRead())
        cellTexts(*rows_->reader, number, columns_[number].kind, regional, block);
    else
        rdoResultset::shownTexts(index, regional, block);
}

void SqlResultset::AddNew() {
    requireOpen();
    requireWritable();
    mode_ = Mode::adding;
    assigned_.clear();
}

void SqlResultset::Edit() {
    requireOpen();
    requireCurrentRow();
    requireWritable();
    mode_ = Mode::editing;
    assigned_.clear();
}

void SqlResultset::setValue(std::string_view name, Variant value) {
    requireOpen();
    const std::size_t index = indexOf(name);
    if (mode_ == Mode::reading)
        throw RuntimeError(error_number::invalidProcedureCall,
                           "A column is set after Edit or AddNew only");
    if (columns_[index].baseName.empty())
        throw RuntimeError(error_number::columnNotFound,
                           "The column " + columns_[index].name + " is computed");
    const auto set = std::find_if(assigned_.begin(), assigned_.end(),
                                  [&](const Assigned& a) { return a.column == index; });
    if (set != assigned_.end())
        set->value = std::move(value);
    else
        assigned_.push_back({index, std::string(name), std::move(value)});
}

void SqlResultset::Update() {
    requireOpen();
    switch (mode_) {
        case Mode::reading:
            throw RuntimeError(error_number::invalidProcedureCall,
                               "Update needs an Edit or AddNew before it");
        case Mode::adding:
            insertRow();
            break;
        case Mode::editing:
            updateRow();
            break;
    }
    mode_ = Mode::reading;
    assigned_.clear();
}

void SqlResultset::Delete() {
    requireOpen();
    requireCurrentRow();
    requireWritable();
    mode_ = Mode::reading;
    assigned_.clear();
    told("delete", [&] {
        const StatementMaker make = [&](const std::vector<ExpectedValue>& expected) {
            return deleteStatement(session_->dialect(), *table_, expected);
        };
        inTransaction(*session_, [&] { writeOneRow(make, false); });
    });
    row_ = Row::deleted;
}

void SqlResultset::outcomeFound(std::optional<bool> stored) {
    if (untold_) std::exchange(untold_, nullptr)(stored);
}

void SqlResultset::Close() {
    outcomeFound(std::nullopt);
    rows_.reset();
    row_ = Row::none;
    mode_ = Mode::reading;
    assigned_.clear();
    written_.clear();
}

std::size_t SqlResultset::checked(int index) const {
    if (index < 0 || index >= columnCount())
        throw RuntimeError(error_number::columnNotFound,
                           "There is no column number " + decimalText(index));
    return static_cast<std::size_t>(index);
}

std::size_t SqlResultset::indexOf(std::string_view name) const {
    const auto found =
        std::find_if(descriptions_.begin(), descriptions_.end(),
                     [&](const ColumnDescription& c) { return sameName(c.name, name); });
    if (found == descriptions_.end())
        throw RuntimeError(error_number::columnNotFound, "There is no column " + std::string(name));
    return static_cast<std::size_t>(found - descriptions_.begin());
}

const SqlResultset::Assigned* SqlResultset::assigned(std::size_t column) const {
    const auto set = std::find_if(assigned_.begin(), assigned_.end(),
                                  [&](const Assigned& a) { return a.column == column; });
    return set == assigned_.end() ? nullptr : &*set;
}

void SqlResultset::requireWritable() const {
    if (!table_)
        throw RuntimeError(error_number::statementFailed,
                           "The rows cannot be written: they are not those of one table");
}

void SqlResultset::requireCurrentRow() const {
    if (row_ != Row::current) throw RuntimeError(error_number::noCurrentRow, "No current row");
}

void SqlResultset::requireOpen() const {
    if (!rows_) throw RuntimeError(error_number::objectNotSet, "The resultset is closed");
}

std::vector<ExpectedValue> SqlResultset::expectedValues(bool identified) const {
    std::vector<ExpectedValue> expected;
    const std::size_t count = identified ? columns_.size() : descriptions_.size();
    for (std::size_t index = 0; index < count; ++index) {
        ExpectedValue value{&columns_[index], rows_->reader->cell(index)};
        if (auto exact = rows_->reader->exact(index)) value.value = std::move(*exact);
        if (const auto written = written_.find(index); written != written_.end())
            value.value = written->second;
        expected.push_back(std::move(value));
    }
    return expected;
}

std::vector<Assignment> SqlResultset::assignments() const {
    std::vector<Assignment> all;
    for (const Assigned& set : assigned_) all.push_back({&columns_[set.column], set.value});
    return all;
}

void SqlResultset::insertRow() {
    told("insert", [&] {
        const auto statement = insertStatement(session_->dialect(), *table_, assignments());
        inTransaction(*session_, [&] { session_->write(statement); });
    });
}

void SqlResultset::updateRow() {
    if (assigned_.empty()) return;
    told("update", [&] {
        const StatementMaker make = [&](const std::vector<ExpectedValue>& expected) {
            return updateStatement(session_->dialect(), *table_, assignments(), expected);
        };
        inTransaction(*session_, [&] { writeOneRow(make, true); });
    });
    for (const Assigned& set : assigned_) written_[set.column] = set.value;
}

void SqlResultset::told(std::string_view kind, const std::function<void()>& write) {
    std::vector<std::pair<std::string, Variant>> columns;
    for (const Assigned& set : assigned_) columns.emplace_back(set.name, set.value);
    const auto tell = [this, kind, columns = std::move(columns)](std::optional<bool> done) {
        if (session_->listener != nullptr)
            session_->listener->written(kind, *table_, columns, done);
    };
    outcomeFound(std::nullopt);
    try {
        write();
    } catch (const RuntimeError& error) {
        if (error.cause() == ErrorCause::outcomeUnknown)
            untold_ = tell;
        else
            tell(false);
        throw;
    }
    tell(true);
}

ParameterizedStatement SqlResultset::narrowed(ParameterizedStatement statement,
                                              bool identified) const {
    if (identified) {
        if (identity_.eitherOfAlike) statement.text += " LIMIT 1";
        return statement;
    }
    // A row that was written since need not fulfil the condition any more.
    if (!condition_.empty() && written_.empty()) statement.text += " AND (" + condition_ + ")";
    return statement;
}

std::int64_t SqlResultset::writeRows(const StatementMaker& make, bool identified,
                                     bool countUnchanged) {
    const auto expected = expectedValues(identified);
    const std::int64_t touched = session_->write(narrowed(make(expected), identified));
    if (touched > 0 || !countUnchanged || session_->dialect().facts().countsUnchangedRows)
        return touched;
    auto count = narrowed(countStatement(session_->dialect(), *table_, expected), identified);
    // Counted as it is now, not as it was when a transaction of the host began.
    count.text += " FOR UPDATE";
    const std::int64_t alike = *session_->query(count).at(0).at(0).as<std::int64_t>();
    return identified && identity_.eitherOfAlike ? std::min<std::int64_t>(alike, 1) : alike;
}

void SqlResultset::writeOneRow(const StatementMaker& make, bool countUnchanged) {
    const bool identified = isIdentified();
    std::int64_t touched = writeRows(make, identified, countUnchanged);
    // Where a row is may have changed without a change of what was read of it.
    if (touched == 0 && identified && !identity_.lasting)
        touched = writeRows(make, false, countUnchanged);
    if (touched == 0)
        throw RuntimeError(error_number::rowChanged,
                           "The row was changed or removed by another user since it was read");
    if (touched > 1)
        throw RuntimeError(error_number::statementFailed,
                           "Several rows have the values of this row; none of them was written");
}

}  // namespace catalogador::sql
