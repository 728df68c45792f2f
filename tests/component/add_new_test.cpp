#include <gtest/gtest.h>

#include "component/clsCatalogador.h"
#include "told_host.h"

namespace catalogador {
namespace {

/// The rows of another connection; they cannot be closed.
class UnclosableRows : public rdoResultset {
  public:
    explicit UnclosableRows(std::unique_ptr<rdoResultset> rows) : rows_(std::move(rows)) {}

    [[nodiscard]] bool atEnd() const override { return rows_->atEnd(); }
    void MoveNext() override { rows_->MoveNext(); }
    [[nodiscard]] int columnCount() const override { return rows_->columnCount(); }
    [[nodiscard]] const ColumnDescription& column(int index) const override {
        return rows_->column(index);
    }
    [[nodiscard]] Variant value(int index) const override { return rows_->value(index); }
    [[nodiscard]] Variant value(std::string_view name) const override { return rows_->value(name); }
    void AddNew() override { rows_->AddNew(); }
    void Edit() override { rows_->Edit(); }
    void setValue(std::string_view name, Variant value) override { rows_->setValue(name, value); }
    void Update() override { rows_->Update(); }
    void Delete() override { rows_->Delete(); }
    void Close() override {
        throw RuntimeError(error_number::statementFailed, "The rows cannot be closed");
    }

  private:
    std::unique_ptr<rdoResultset> rows_;
};

/// A host's own connection, of which nothing is known but how to use it.
class HostsConnection : public rdoConnection {
  public:
    explicit HostsConnection(rdoConnection& connection) : connection_(connection) {}

    std::unique_ptr<rdoResultset> OpenResultset(const SqlText& sql, int type, int lock) override {
        return std::make_unique<UnclosableRows>(connection_.OpenResultset(sql, type, lock));
    }
    std::int64_t Execute(const SqlText& sql) override { return connection_.Execute(sql); }
    void setListener(StatementListener* listener) override { connection_.setListener(listener); }

  private:
    rdoConnection& connection_;
};

class NumberingUtilities : public test::SettingUtilities {
  public:
    std::int32_t next = 41;
    std::int32_t ProximoCodigo(rdoConnection&, const std::string&) override { return next; }
};

/// What AddNew gives and reports when the rows cannot be closed.
class AddNewWithUnclosableRows : public testing::Test {
  protected:
    AddNewWithUnclosableRows() {
        told_.connection->Execute(
            "Create Table genCodigoTexto (CTeIDTipoVista Integer, CTeCodigo Integer, "
            "CTeTextoCorto Text, Modificado Text)");
        told_.connection->Execute("Insert Into genCodigoTexto Values (1, 7, 'Peru', Null)");
        component_.Coneccion(&connection_);
        component_.AppKey("VEM04");
    }
    std::uint8_t add(const std::string& text) { return component_.AddNew(1, "Countries", text); }

    test::ToldHost told_;
    NumberingUtilities utilities_;
    Host host_{told_.surface,   utilities_,      told_.messages, told_.access,
               told_.languages, told_.gridFiles, told_.printer,  {},
               "The host",      nullptr};
    HostsConnection connection_{*told_.connection};
    clsCatalogador component_{host_};
};

TEST_F(AddNewWithUnclosableRows, KeepsTheResultAndTheCodeOfARecordThatIsStored) {
    EXPECT_EQ(add("Chile"), 1);
    EXPECT_EQ(component_.IDModificado(), 41);
    ASSERT_EQ(told_.messages.errors.size(), 1U);
    EXPECT_NE(told_.messages.errors[0].detail.find("The rows cannot be closed"), std::string::npos);
    const auto stored = told_.connection->session()->query(
        "Select CTeTextoCorto From genCodigoTexto Where CTeCodigo = 41");
    ASSERT_EQ(stored.size(), 1U);
    EXPECT_EQ(stored[0][0], Variant("Chile"));
}

TEST_F(AddNewWithUnclosableRows, KeepsTheResultOfATextThatIsThereAlready) {
    EXPECT_EQ(add("Peru"), 0);
    EXPECT_EQ(component_.IDModificado(), 0);
    EXPECT_EQ(told_.messages.errors.size(), 1U);
}

TEST_F(AddNewWithUnclosableRows, KeepsTheResultOfANumberingThatGivesNoCode) {
    utilities_.next = -1;
    EXPECT_EQ(add("Chile"), 0);
    EXPECT_EQ(component_.IDModificado(), 0);
    EXPECT_EQ(told_.messages.errors.size(), 1U);
}

}  // namespace
}  // namespace catalogador
