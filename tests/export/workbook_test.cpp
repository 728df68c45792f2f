#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "adapters/export/grid_file_writer.h"
#include "platform/controls/record_grid.h"
#include "runtime/error.h"

namespace catalogador::exporting {
namespace {

/// Workbooks as another program reads them.
class WorkbookTest : public testing::Test {
  protected:
    WorkbookTest()
        : folder_(std::filesystem::temp_directory_path() /
                  ("workbook_test-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(folder_);
    }
    ~WorkbookTest() override { std::filesystem::remove_all(folder_); }

    void addRow(const std::vector<std::string>& cells) {
        const int row = grid_.addRow();
        for (std::size_t i = 0; i < cells.size(); ++i)
            grid_.setText(row, static_cast<int>(i), cells[i]);
    }
    [[nodiscard]] std::string path() const { return (folder_ / "list.xlsx").string(); }
    void save() { writer_.save(grid_, path(), grid_format::workbook, options_); }
    std::vector<std::string> readBack() {
        save();
        const std::string command =
            std::string("/usr/bin/python3 ") + READ_WORKBOOK + " '" + path() + "' 2>&1";
        std::FILE* output = popen(command.c_str(), "r");
        std::string text;
        std::array<char, 4096> block{};
        while (const std::size_t read = std::fread(block.data(), 1, block.size(), output))
            text.append(block.data(), read);
        EXPECT_EQ(pclose(output), 0) << text;
        std::vector<std::string> lines;
        for (std::size_t start = 0, end = 0; (end = text.find('\n', start)) != std::string::npos;
             start = end + 1)
            lines.push_back(text.substr(start, end - start));
        return lines;
    }
    /// The rows of the sheet, the header first.
    std::vector<std::string> rowsReadBack() {
        std::vector<std::string> lines = readBack();
        std::erase_if(lines, [](const std::string& line) {
            return line.find(':') == std::string::npos && line.find('-') == std::string::npos;
        });
        std::erase_if(lines, [](const std::string& line) { return line.starts_with("filter "); });
        return lines;
    }
    std::string failure() {
        try {
            save();
        } catch (const RuntimeError& error) {
            return error.description();
        }
        return "";
    }

    std::filesystem::path folder_;
    RecordGrid grid_{"grid"};
    GridFileWriter writer_;
    GridFileOptions options_{"Países", {}, nullptr};
};

using Lines = std::vector<std::string>;

TEST_F(WorkbookTest, HoldsWhatTheGridShowsInItsOrderAndLook) {
    grid_.setFormatString("Código|Nombre|Oculta|Vigente|Valor");
    grid_.setColumnBoolean(3, true);
    grid_.setColumnHidden(2, true);
    grid_.setColumnWidth(0, 1050);
    grid_.setColumnWidth(1, 4200);
    for (const auto& cells : std::vector<Lines>{{"007", "Uno", "x", "", "1.5"},
                                                {"010", "Dos", "x", "", "-22"},
                                                {"011", "Nada", "x", "", "3"},
                                                {"012", "Unión", "x", "", ""}})
        addRow(cells);
    grid_.setCheck(1, 3, CheckState::checked);
    grid_.setCheck(2, 3, CheckState::unchecked);
    constexpr int rightAligned = 7;
    grid_.setColumnAlignment(4, rightAligned);
    grid_.setRowHidden(3, true);
    grid_.sort(0, sort_order::descending);
    EXPECT_EQ(
        readBack(),
        (Lines{"sheets ['Países']", "frozen A2", "filter A1:D4", "bold True", "filled True",
               "widths [11, 41, 10, 10]", "formats ['General', 'General', 'General', '0.0']",
               "aligned [None, None, None, 'right']", "s:Código|s:Nombre|s:Vigente|s:Valor",
               "s:012|s:Unión|-|-", "s:010|s:Dos|b:False|n:-22", "s:007|s:Uno|b:True|n:1.5"}));
}

TEST_F(WorkbookTest, ATextThatLooksLikeAFormulaStaysAText) {
    grid_.setFormatString("=A2");
    for (const char* text : {"=1+1", "+1", "-x", "@sum", "{=A1}", "-5", "http://a.b"})
        addRow({text});
    EXPECT_EQ(rowsReadBack(), (Lines{"s:=A2", "s:=1+1", "s:+1", "s:-x", "s:@sum", "s:{=A1}", "s:-5",
                                     "s:http://a.b"}));
}

TEST_F(WorkbookTest, NumbersAreReadWithTheSeparatorsOfTheLocale) {
    options_.regional = {",", ".", DateOrder::dayMonthYear, "/"};
    grid_.setFormatString("Comas|Puntos");
    addRow({"1,25", "1.25"});
    EXPECT_EQ(rowsReadBack(), (Lines{"s:Comas|s:Puntos", "n:1.25|s:1.25"}));
}

TEST_F(WorkbookTest, OneCellThatIsNoPlainNumberMakesItsColumnText) {
    grid_.setFormatString("Ceros|Largos|Letras|Números");
    addRow({"7", "1", "1", "123456789012345"});
    addRow({"007", "1234567890123456", "1a", "0"});
    EXPECT_EQ(rowsReadBack(),
              (Lines{"s:Ceros|s:Largos|s:Letras|s:Números", "s:7|s:1|s:1|n:123456789012345",
                     "s:007|s:1234567890123456|s:1a|n:0"}));
}

TEST_F(WorkbookTest, LongWholeNumbersAreShownWithAllTheirDigits) {
    grid_.setFormatString("Barras");
    addRow({"8412345678905"});
    const Lines lines = readBack();
    EXPECT_NE(std::ranges::find(lines, "formats ['0']"), lines.end());
}

TEST_F(WorkbookTest, BlanksMarkupAndLineBreaksSurvive) {
    grid_.setFormatString("Texto");
    addRow({" a  b "});
    addRow({"<&>\"'"});
    addRow({"a\tb\nc"});
    EXPECT_EQ(rowsReadBack(), (Lines{"s:Texto", "s: a  b ", "s:<&>\"'", "s:a\\tb\\nc"}));
}

TEST_F(WorkbookTest, AColumnIsNoWiderThanASheetAllows) {
    grid_.setFormatString("Ancha");
    grid_.setColumnWidth(0, 100000);
    const Lines lines = readBack();
    EXPECT_NE(std::ranges::find(lines, "widths [255]"), lines.end());
}

TEST_F(WorkbookTest, LengthIsCountedAsASpreadsheetDoes) {
    const auto emojis = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i) text += "😀";
        return text;
    };
    grid_.setFormatString("Texto");
    addRow({emojis(16383)});
    EXPECT_EQ(failure(), "");
    addRow({emojis(16384)});
    EXPECT_NE(failure().find(path() + " could not be written: row 2 has a text that is too long"),
              std::string::npos)
        << failure();
}

TEST_F(WorkbookTest, ATextThatWouldMakeTheWorkbookUnreadableIsRefused) {
    grid_.setFormatString("Texto");
    addRow({""});
    for (const std::string& text : {std::string("M\xE9xico"), std::string("a\0b", 3),
                                    std::string("\xED\xA0\x80"), std::string("\xEF\xBF\xBF")}) {
        grid_.setText(1, 0, text);
        EXPECT_NE(failure().find("row 1 has a character that no workbook can hold"),
                  std::string::npos)
            << failure();
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

TEST_F(WorkbookTest, MoreRowsThanASheetHasAreRefusedUnlessHidden) {
    grid_.setFormatString("Código");
    constexpr int mostRows = 1048575;
    for (int i = 0; i <= mostRows; ++i) grid_.addRow();
    EXPECT_NE(failure().find("a workbook has no more than 1048575 rows"), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_empty(folder_));
    grid_.setRowHidden(1, true);
    EXPECT_EQ(failure(), "");
}

}  // namespace
}  // namespace catalogador::exporting
