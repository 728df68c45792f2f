#include "com/connections/resultset_object.h"

#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::com {

namespace {

// The number of a member that stands for the object itself is 0.
enum ResultsetId : DISPID {
    rdoColumns = DISPID_VALUE,
    eof,
    moveNext,
    addNew,
    edit,
    update,
    remove,
    close
};
enum ColumnsId : DISPID { item = DISPID_VALUE, count };
enum ColumnId : DISPID { value = DISPID_VALUE, name, type };

/// Columns and their collection keep the rows that they belong to.
using Rows = ComPtr<ResultsetObject>;

class ColumnObject : public LateBoundObject {
  public:
    ColumnObject(Rows rows, int index) : rows_(std::move(rows)), index_(index) {}

  protected:
    [[nodiscard]] const std::vector<LateBoundMember>& members() const override {
        static const std::vector<LateBoundMember> all{
            {L"Value", value}, {L"Name", name}, {L"Type", type}};
        return all;
    }
    [[nodiscard]] std::string sourceName() const override { return "vemDatos.rdoColumn"; }
    AutomationValue invoke(DISPID member, const Arguments& arguments) override {
        rdoResultset& rows = rows_->rows();
        const ColumnDescription& described = rows.column(index_);
        if (member == value && arguments.puts()) {
            arguments.expect(1, 1);
            rows.setValue(described.name, arguments.value(0));
            return {};
        }
        arguments.expect(0, 0);
        if (arguments.puts()) throw CallError{DISP_E_MEMBERNOTFOUND};
        if (member == value) return AutomationValue(rows.value(index_));
        if (member == name) return AutomationValue(described.name);
        if (member == type) return AutomationValue(described.type);
        throw CallError{DISP_E_MEMBERNOTFOUND};
    }

  private:
    Rows rows_;
    int index_;
};

class ColumnsObject : public LateBoundObject {
  public:
    explicit ColumnsObject(Rows rows) : rows_(std::move(rows)) {}

  protected:
    [[nodiscard]] const std::vector<LateBoundMember>& members() const override {
        static const std::vector<LateBoundMember> all{{L"Item", item}, {L"Count", count}};
        return all;
    }
    [[nodiscard]] std::string sourceName() const override { return "vemDatos.rdoColumns"; }
    AutomationValue invoke(DISPID member, const Arguments& arguments) override {
        if (member == count) {
            arguments.expect(0, 0);
            return AutomationValue(rows_->rows().columnCount());
        }
        if (member != item) throw CallError{DISP_E_MEMBERNOTFOUND};
        arguments.expect(1, 1);
        return rows_->column(arguments.value(0));
    }

  private:
    Rows rows_;
};

}  // namespace

rdoResultset& ResultsetObject::rows() const {
    if (!rows_) throw RuntimeError(error_number::objectNotSet, "The resultset is closed");
    return *rows_;
}

AutomationValue ResultsetObject::column(const Variant& which) {
    const auto self = Rows::sharing(this);
    int index = 0;
    if (const auto* wanted = which.as<std::string>()) {
        while (index < rows().columnCount() && !equalText(rows().column(index).name, *wanted))
            ++index;
        if (index == rows().columnCount())
            throw RuntimeError(error_number::columnNotFound, "There is no column " + *wanted);
    } else {
        index = toLong(which, Regional{});
        // Raises the error of a number that no column has.
        static_cast<void>(rows().column(index));
    }
    return objectValue(new ColumnObject(self, index));
}

const std::vector<LateBoundMember>& ResultsetObject::members() const {
    static const std::vector<LateBoundMember> all{
        {L"rdoColumns", rdoColumns}, {L"EOF", eof},     {L"MoveNext", moveNext},
        {L"AddNew", addNew},         {L"Edit", edit},   {L"Update", update},
        {L"Delete", remove},         {L"Close", close},
    };
    return all;
}

AutomationValue ResultsetObject::invoke(DISPID member, const Arguments& arguments) {
    // What is written behind the name is the column that is meant.
    if (member == rdoColumns && arguments.count() == 1 && !arguments.puts())
        return column(arguments.value(0));
    arguments.expect(0, 0);
    switch (member) {
        case rdoColumns:
            return objectValue(new ColumnsObject(Rows::sharing(this)));
        case eof:
            return AutomationValue(rows().atEnd());
        case moveNext:
            rows().MoveNext();
            return {};
        case addNew:
            rows().AddNew();
            return {};
        case edit:
            rows().Edit();
            return {};
        case update:
            rows().Update();
            return {};
        case remove:
            rows().Delete();
            return {};
        case close:
            rows_.reset();
            return {};
        default:
            throw CallError{DISP_E_MEMBERNOTFOUND};
    }
}

}  // namespace catalogador::com
