#include "adapters/export/workbook_check.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "adapters/export/grid_file_writer.h"
#include "platform/controls/record_grid.h"

namespace catalogador::exporting {
namespace {

class WorkbookCheckTest : public testing::Test {
  protected:
    WorkbookCheckTest()
        : path_((std::filesystem::temp_directory_path() /
                 ("workbook_check_test-" + std::to_string(getpid()) + ".xlsx"))
                    .string()) {
        RecordGrid grid{"grid"};
        grid.setFormatString("Código|Nombre");
        for (int i = 0; i < 100; ++i) grid.setText(grid.addRow(), 1, "x");
        GridFileWriter().save(grid, path_, grid_format::workbook, {"Lista", {}, nullptr});
    }
    ~WorkbookCheckTest() override { std::filesystem::remove(path_); }

    std::string path_;
};

TEST_F(WorkbookCheckTest, AFinishedWorkbookIsWhole) {
    EXPECT_TRUE(workbookIsWhole(path_, 100));
}

TEST_F(WorkbookCheckTest, ASheetWithFewerBytesThanWereWrittenIsNot) {
    EXPECT_FALSE(workbookIsWhole(path_, 1000000));
}

TEST_F(WorkbookCheckTest, AFileThatIsCutOrMissingIsNot) {
    std::filesystem::resize_file(path_, std::filesystem::file_size(path_) / 2);
    EXPECT_FALSE(workbookIsWhole(path_, 0));
    EXPECT_FALSE(workbookIsWhole(path_ + ".missing", 0));
}

TEST_F(WorkbookCheckTest, AByteThatChangedIsNoticed) {
    constexpr std::streamoff insideTheFirstPart = 100;
    std::fstream file(path_, std::ios::in | std::ios::out | std::ios::binary);
    file.seekg(insideTheFirstPart);
    const char byte = static_cast<char>(file.get() ^ 0x55);
    file.seekp(insideTheFirstPart);
    file.put(byte);
    file.close();
    EXPECT_FALSE(workbookIsWhole(path_, 0));
}

}  // namespace
}  // namespace catalogador::exporting
