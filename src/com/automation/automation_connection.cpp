#include "com/automation/automation_connection.h"

#include <utility>
#include <vector>

#include "adapters/sql/data_check.h"
#include "adapters/sql/dialect.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::com {

namespace {

class AutomationResultset : public rdoResultset {
  public:
    AutomationResultset(AutomationObject rows, StatementListener* listener)
        : rows_(std::move(rows)), listener_(listener), eof_(rows_.idOf(L"EOF")) {
        readColumns();
    }
    ~AutomationResultset() override {
        try {
            Close();
        } catch (const RuntimeError&) {
            // The rows are given up either way.
        }
    }
    AutomationResultset(const AutomationResultset&) = delete;
    AutomationResultset& operator=(const AutomationResultset&) = delete;

    [[nodiscard]] bool atEnd() const override {
        return closed_ || toBoolean(variantOf(rows_.get(eof_).get()), Regional{});
    }
    void MoveNext() override {
        needRow();
        rows_.call(L"MoveNext");
    }
    [[nodiscard]] int columnCount() const override { return static_cast<int>(columns_.size()); }
    [[nodiscard]] const ColumnDescription& column(int index) const override {
        return at(index).description;
    }
    [[nodiscard]] Variant value(int index) const override {
        const Column& column = at(index);
        if (!editing()) needRow();
        return variantOf(column.object.get(column.value).get());
    }
    [[nodiscard]] Variant value(std::string_view name) const override {
        return value(indexOf(name));
    }
    void AddNew() override {
        rows_.call(L"AddNew");
        begin("insert");
    }
    void Edit() override {
        needRow();
        rows_.call(L"Edit");
        begin("update");
    }
    void setValue(std::string_view name, Variant value) override {
        const Column& column = at(indexOf(name));
        if (!editing())
            throw RuntimeError(error_number::invalidProcedureCall,
                               "A column can be set only after AddNew or Edit");
        column.object.put(column.value, value);
        written_.emplace_back(std::string(name), std::move(value));
    }
    void Update() override {
        if (!editing())
            throw RuntimeError(error_number::invalidProcedureCall,
                               "Update is possible only after AddNew or Edit");
        // After a failure the row can be corrected.
        told(editing_, L"Update", written_);
        editing_ = nullptr;
    }
    void Delete() override {
        needRow();
        told("delete", L"Delete", {});
    }
    void Close() override {
        if (std::exchange(closed_, true)) return;
        rows_.call(L"Close");
    }

  private:
    using Columns = std::vector<std::pair<std::string, Variant>>;

    /// Calls the member that writes, and tells the listener what came of it.
    void told(const char* kind, const wchar_t* member, const Columns& columns) {
        try {
            rows_.call(member);
        } catch (const RuntimeError&) {
            if (listener_ != nullptr) listener_->written(kind, "", columns, false);
            throw;
        }
        if (listener_ != nullptr) listener_->written(kind, "", columns, true);
    }

    struct Column {
        ColumnDescription description;
        AutomationObject object;
        DISPID value = DISPID_VALUE;
    };

    void readColumns() {
        const AutomationObject columns = objectIn(rows_.get(L"rdoColumns"));
        const auto count = toLong(variantOf(columns.get(L"Count").get()), Regional{});
        for (std::int32_t index = 0; index < count; ++index) {
            Column column;
            column.object = objectIn(columns.get(L"Item", {index}));
            column.description.name =
                toTextOrEmpty(variantOf(column.object.get(L"Name").get()), Regional{});
            column.description.type =
                toLong(variantOf(column.object.get(L"Type").get()), Regional{});
            column.value = column.object.idOf(L"Value");
            columns_.push_back(std::move(column));
        }
    }

    [[nodiscard]] const Column& at(int index) const {
        if (index < 0 || index >= columnCount())
            throw RuntimeError(error_number::columnNotFound,
                               "There is no column " + decimalText(index));
        return columns_[static_cast<std::size_t>(index)];
    }
    [[nodiscard]] int indexOf(std::string_view name) const {
        for (std::size_t index = 0; index < columns_.size(); ++index)
            if (equalText(columns_[index].description.name, name)) return static_cast<int>(index);
        throw RuntimeError(error_number::columnNotFound, "There is no column " + std::string(name));
    }
    void needRow() const {
        if (atEnd()) throw RuntimeError(error_number::noCurrentRow, "There is no current row");
    }
    [[nodiscard]] bool editing() const { return editing_ != nullptr; }
    void begin(const char* kind) {
        editing_ = kind;
        written_.clear();
    }

    AutomationObject rows_;
    StatementListener* listener_;
    DISPID eof_;
    std::vector<Column> columns_;
    const char* editing_ = nullptr;
    std::vector<std::pair<std::string, Variant>> written_;
    bool closed_ = false;
};

}  // namespace

std::unique_ptr<rdoResultset> AutomationConnection::OpenResultset(const SqlText& sql, int type,
                                                                  int lock) {
    if (listener_ != nullptr) listener_->opened(sql.text(), type, lock);
    sql::requireDataStaysData(sql, sql::standardDialect().facts().syntax);
    return std::make_unique<AutomationResultset>(
        objectIn(connection_.call(L"OpenResultset", {sql.text(), type, lock})), listener_);
}

std::int64_t AutomationConnection::Execute(const SqlText& sql) {
    if (listener_ != nullptr) listener_->executed(sql.text());
    sql::requireDataStaysData(sql, sql::standardDialect().facts().syntax);
    connection_.call(L"Execute", {sql.text()});
    if (!connection_.has(L"RowsAffected")) return -1;
    return toLong(variantOf(connection_.get(L"RowsAffected").get()), Regional{});
}

bool AutomationConnection::accepts(const AutomationObject& object) {
    return object.has(L"OpenResultset") && object.has(L"Execute");
}

}  // namespace catalogador::com
