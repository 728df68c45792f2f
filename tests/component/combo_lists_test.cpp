#include <gtest/gtest.h>

#include "form/frmCatalogador.h"
#include "told_host.h"

namespace catalogador {
namespace {

class ComboLists : public testing::Test {
  protected:
    ComboLists() {
        told_.connection->Execute("Create Table Lists (Code Integer, Name Text, Company Integer)");
        told_.connection->Execute(
            "Insert Into Lists Values (1, 'Red', 7), (2, ' Blue ', 7), (3, 'Red', 7), "
            "(4, 'Green', 8)");
        form_.mrdoCBase = told_.connection.get();
        form_.mintEmpresa = 7;
    }

    /// The code of the entry selected after the list was filled, 0 when none is.
    std::int32_t selectedFor(const std::string& text) {
        std::string sql = "Select Code, Name From Lists Where Company = 7 Order By Code";
        form_.CargoComboXSQL(sql, combo(), text);
        return combo().listIndex() == -1 ? 0 : combo().itemData(combo().listIndex());
    }
    ComboBox& combo() { return form_.cmbValor1; }
    [[nodiscard]] std::vector<std::string> texts() const {
        std::vector<std::string> all;
        for (const ComboBox::Item& item : form_.cmbValor1.items()) all.push_back(item.text);
        return all;
    }

    test::ToldHost told_;
    frmCatalogador form_{told_.host};
};

TEST_F(ComboLists, OfAStatementSelectTheEntryWithTheText) {
    EXPECT_EQ(selectedFor("Blue"), 2);
    EXPECT_EQ(selectedFor("  Blue "), 2);
}

TEST_F(ComboLists, OfAStatementSelectTheLastOfSeveralEntriesWithTheText) {
    EXPECT_EQ(selectedFor("Red"), 3);
}

TEST_F(ComboLists, OfAStatementSelectNothingForAnotherText) {
    EXPECT_EQ(selectedFor("Red"), 3);
    EXPECT_EQ(selectedFor("Green"), 0);
    EXPECT_EQ(selectedFor("red"), 0);
    EXPECT_EQ(selectedFor(""), 0);
}

TEST_F(ComboLists, OfAStatementReplaceTheEntriesBefore) {
    combo().addItem("Old", 9);
    selectedFor("");
    EXPECT_EQ(texts(), (std::vector<std::string>{"Red", "Blue", "Red"}));
}

TEST_F(ComboLists, OfAStatementGiveBackTheStatementForTheCompany) {
    std::string sql =
        "Select Code, Name, [PRMIDEMPRESA] From Lists Where Company = [prmIdEmpresa] + 1";
    form_.CargoComboXSQL(sql, combo(), "");
    EXPECT_EQ(sql, "Select Code, Name, 7 From Lists Where Company = 7 + 1");
    EXPECT_EQ(texts(), (std::vector<std::string>{"Green"}));
}

TEST_F(ComboLists, WithoutRowsAreEmptyWithNothingSelected) {
    std::string sql = "Select Code, Name From Lists Where Code < 0";
    form_.CargoComboXSQL(sql, combo(), "Red");
    EXPECT_EQ(combo().listCount(), 0);
    EXPECT_EQ(combo().listIndex(), -1);
    EXPECT_TRUE(told_.messages.errors.empty());
}

TEST_F(ComboLists, WrittenOutSelectNothingAndLeaveOutGapsAndWhatHasNoNumber) {
    form_.CargoComboXArray("1,A;;x,B;2,C;", combo());
    EXPECT_EQ(texts(), (std::vector<std::string>{"A", "C"}));
    EXPECT_EQ(combo().itemData(1), 2);
    EXPECT_EQ(combo().listIndex(), -1);
    EXPECT_TRUE(told_.messages.errors.empty());
}

TEST_F(ComboLists, WrittenOutEndAtAnEntryWithoutAText) {
    form_.CargoComboXArray("1,A;2;3,C", combo());
    EXPECT_EQ(texts(), (std::vector<std::string>{"A"}));
    ASSERT_EQ(told_.messages.errors.size(), 1U);
    EXPECT_EQ(told_.messages.errors.front().detail, "9 - Subscript out of range");
}

}  // namespace
}  // namespace catalogador
