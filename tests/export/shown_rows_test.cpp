#include "adapters/export/shown_rows.h"

#include <gtest/gtest.h>

#include "adapters/export/workbook_text.h"

namespace catalogador::exporting {
namespace {

const Regional spanish{",", ".", DateOrder::dayMonthYear, "/"};

TEST(PlainNumber, TakesDigitsSignAndTheDecimalSeparatorOfTheLocale) {
    EXPECT_EQ(plainNumber("0", {}), 0);
    EXPECT_EQ(plainNumber("-12", {}), -12);
    EXPECT_EQ(plainNumber("3.25", {}), 3.25);
    EXPECT_EQ(plainNumber("3,25", spanish), 3.25);
    EXPECT_EQ(plainNumber("0.5", {}), 0.5);
}

TEST(PlainNumber, LeavesWhatAWorkbookWouldChange) {
    for (const char* text :
         {"", "-", "007", "-01", "1e3", "&H10", " 1", "1 ", "+1", "1.", ".5", "1,000", "1.2.3",
          "-0", "-0.00", "1234567890123456", "12345678.12345678", "nan"})
        EXPECT_FALSE(plainNumber(text, {})) << text;
    EXPECT_TRUE(plainNumber("123456789012345", {}));
}

struct OneColumn {
    explicit OneColumn(const std::vector<std::string>& cells) {
        grid.setFormatString("Valor");
        for (const std::string& cell : cells) grid.setText(grid.addRow(), 0, cell);
    }
    [[nodiscard]] ColumnKind kind() const { return kindOfColumn(grid, 0, {}); }

    RecordGrid grid{"grid"};
};

TEST(KindOfColumn, IsNumberOnlyWhenEveryCellThatIsShownIsOne) {
    EXPECT_EQ(OneColumn({"1", "", "2.50"}).kind().kind, ColumnKind::Kind::number);
    EXPECT_EQ(OneColumn({"1", "", "2.50"}).kind().decimals, 2);
    EXPECT_EQ(OneColumn({"1", "07"}).kind().kind, ColumnKind::Kind::text);
    EXPECT_EQ(OneColumn({"", ""}).kind().kind, ColumnKind::Kind::text);

    OneColumn filtered({"1", "uno"});
    filtered.grid.setRowHidden(2, true);
    EXPECT_EQ(filtered.kind().kind, ColumnKind::Kind::number);
}

TEST(SheetName, HoldsNothingThatASheetMayNotBeCalled) {
    EXPECT_EQ(sheetName("Países"), "Países");
    EXPECT_EQ(sheetName("Altas/Bajas: [2026]*?\\"), "Altas Bajas   2026");
    EXPECT_EQ(sheetName("'citado'"), "citado");
    EXPECT_EQ(sheetName(""), "1");
    EXPECT_EQ(sheetName("///"), "1");
    EXPECT_EQ(sheetName("History"), "History_");
}

TEST(SheetName, HoldsNoControlCharacterAndNothingThatIsNoText) {
    EXPECT_EQ(sheetName("a\nb\x01"), "a b");
    EXPECT_EQ(sheetName("M\xE9xico"), "1");
}

TEST(WorkbookText, KeepsWhatASpreadsheetWouldReadAsACharacterByItsNumber) {
    EXPECT_EQ(workbookText("_x0041_"), "_x005F_x0041_");
    EXPECT_EQ(workbookText("a_x00e1_b"), "a_x005F_x00e1_b");
    EXPECT_EQ(workbookText("_x41_ _X0041_ _x00G1_ _x0041"), "_x41_ _X0041_ _x00G1_ _x0041");
}

TEST(SheetName, IsCutAtACharacterToWhatASheetMayHold) {
    EXPECT_EQ(sheetName(std::string(40, 'a')), std::string(31, 'a'));
    EXPECT_EQ(sheetName(std::string(30, 'a') + "ñ" + "b"), std::string(30, 'a') + "ñ");
    // The emoji counts twice.
    EXPECT_EQ(sheetName(std::string(30, 'a') + "😀"), std::string(30, 'a'));
}

}  // namespace
}  // namespace catalogador::exporting
