#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "adapters/export/grid_file_writer.h"
#include "platform/controls/record_grid.h"
#include "runtime/error.h"

namespace catalogador::exporting {
namespace {

class GridFileTest : public testing::TestWithParam<int> {
  protected:
    GridFileTest()
        : folder_(std::filesystem::temp_directory_path() /
                  ("grid_file_test-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(folder_);
        grid_.setFormatString("Código|Nombre|Vigente");
        addRow("007", "siete", CheckState::checked);
        addRow("010", "=1+1", CheckState::unchecked);
        addRow("011", "a\tb\r\nc\nd", CheckState::none);
        grid_.setColumnBoolean(2, true);
    }
    ~GridFileTest() override { std::filesystem::remove_all(folder_); }

    void addRow(const char* code, const char* name, CheckState state) {
        const int row = grid_.addRow();
        grid_.setText(row, 0, code);
        grid_.setText(row, 1, name);
        grid_.setCheck(row, 2, state);
    }
    [[nodiscard]] std::string path(const char* name) const { return (folder_ / name).string(); }
    void save(const std::string& file, int format) { writer_.save(grid_, file, format, options_); }
    [[nodiscard]] static std::string contentOf(const std::string& file) {
        std::ostringstream content;
        content << std::ifstream(file, std::ios::binary).rdbuf();
        return content.str();
    }
    static void write(const std::string& file, const std::string& content) {
        std::ofstream(file, std::ios::binary) << content;
    }
    [[nodiscard]] int filesInFolder() const {
        int count = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder_))
            ++count;
        return count;
    }
    /// What the export says when it fails.
    std::string failureOf(const std::string& file, int format) {
        try {
            save(file, format);
        } catch (const RuntimeError& error) {
            return error.description();
        }
        return "";
    }

    std::filesystem::path folder_;
    RecordGrid grid_{"grid"};
    GridFileWriter writer_;
    GridFileOptions options_{"Lista", {}, nullptr};
};

INSTANTIATE_TEST_SUITE_P(Formats, GridFileTest,
                         testing::Values(grid_format::workbook, grid_format::tabText));

TEST_F(GridFileTest, TextHasAMarkTabsAndCarriageReturns) {
    save(path("t.txt"), grid_format::tabText);
    EXPECT_EQ(contentOf(path("t.txt")),
              "\xEF\xBB\xBF"
              "Código\tNombre\tVigente\r\n"
              "007\tsiete\tTRUE\r\n"
              "010\t=1+1\tFALSE\r\n"
              "011\ta b c d\t\r\n");
}

TEST_F(GridFileTest, TextHoldsWhatIsShownInTheOrderShown) {
    grid_.setColumnHidden(0, true);
    grid_.setRowHidden(1, true);
    grid_.sort(0, sort_order::descending);
    save(path("t.txt"), grid_format::tabText);
    EXPECT_EQ(contentOf(path("t.txt")),
              "\xEF\xBB\xBF"
              "Nombre\tVigente\r\n"
              "a b c d\t\r\n"
              "=1+1\tFALSE\r\n");
}

TEST_F(GridFileTest, AnotherFormatIsRefused) {
    EXPECT_THROW(save(path("t"), 7), RuntimeError);
    EXPECT_EQ(filesInFolder(), 0);
}

TEST_P(GridFileTest, ANewFileIsItsUsersAlone) {
    save(path("t"), GetParam());
    EXPECT_EQ(std::filesystem::status(path("t")).permissions(), std::filesystem::perms(0600));
}

TEST_P(GridFileTest, ReplacesAnEarlierFileAndKeepsItsPermissions) {
    write(path("t"), "earlier");
    std::filesystem::permissions(path("t"), std::filesystem::perms(0640));
    save(path("t"), GetParam());
    EXPECT_NE(contentOf(path("t")), "earlier");
    EXPECT_EQ(std::filesystem::status(path("t")).permissions(), std::filesystem::perms(0640));
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_P(GridFileTest, AFileThatCannotGrowLeavesTheEarlierOneAndNothingElse) {
    write(path("t"), "earlier");
    for (int i = 0; i < 3000; ++i)
        addRow(std::to_string(i * 7919 % 100003).c_str(), std::to_string(i * 104729).c_str(),
               CheckState::none);
    std::string said;
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{4096, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    said = failureOf(path("t"), GetParam());
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_NE(said.find("could not be written"), std::string::npos) << said;
    EXPECT_EQ(contentOf(path("t")), "earlier");
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(GridFileTest, AWorkbookThatIsCutShortAnywhereNeverTakesTheOldOnesPlace) {
    save(path("whole"), grid_format::workbook);
    const auto wholeBytes = std::filesystem::file_size(path("whole"));
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    int failed = 0;
    // Some of the library's intermediate files are larger than the workbook itself.
    for (rlim_t bytes = 0; bytes < wholeBytes + 4096; bytes += 61) {
        write(path("t"), "earlier");
        const rlimit small{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        const bool fails = !failureOf(path("t"), grid_format::workbook).empty();
        setrlimit(RLIMIT_FSIZE, &before);
        if (fails) {
            ++failed;
            EXPECT_EQ(contentOf(path("t")), "earlier") << bytes;
        } else {
            // The time that a workbook carries makes a few bytes of difference.
            EXPECT_NEAR(static_cast<double>(std::filesystem::file_size(path("t"))),
                        static_cast<double>(wholeBytes), 16)
                << bytes;
        }
        EXPECT_EQ(filesInFolder(), 2) << bytes;
    }
    std::signal(SIGXFSZ, handler);
    EXPECT_GT(failed, 0);
}

TEST_F(GridFileTest, AFailedExportLeavesNoFileOpen) {
    const auto openFiles = [] {
        const std::filesystem::directory_iterator first("/proc/self/fd");
        return std::distance(first, std::filesystem::directory_iterator());
    };
    options_.progress = [](int, int) { return false; };
    const auto before = openFiles();
    failureOf(path("t"), grid_format::workbook);
    EXPECT_EQ(openFiles(), before);
}

TEST_P(GridFileTest, AFolderThatIsMissingIsSaid) {
    const std::string said = failureOf(path("missing/t"), GetParam());
    EXPECT_NE(said.find("missing/t could not be written: No such file"), std::string::npos) << said;
}

TEST_P(GridFileTest, AFolderInThePlaceOfTheFileIsSaid) {
    std::filesystem::create_directory(path("t"));
    EXPECT_NE(failureOf(path("t"), GetParam()).find("it is a folder"), std::string::npos);
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_P(GridFileTest, StopsWhenToldAndLeavesTheEarlierFile) {
    write(path("t"), "earlier");
    options_.progress = [](int, int) { return false; };
    EXPECT_EQ(failureOf(path("t"), GetParam()), "The export was stopped; no file was written");
    EXPECT_EQ(contentOf(path("t")), "earlier");
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_P(GridFileTest, TellsHowFarItIs) {
    for (int i = 0; i < 9000; ++i) addRow("1", "x", CheckState::none);
    std::vector<std::pair<int, int>> told;
    options_.progress = [&](int done, int total) {
        told.emplace_back(done, total);
        return true;
    };
    save(path("t"), GetParam());
    EXPECT_EQ(told, (std::vector<std::pair<int, int>>{{4096, 9003}, {8192, 9003}, {9003, 9003}}));
}

TEST_F(GridFileTest, ATextThatAWorkbookCannotHoldIsSaid) {
    addRow("1", std::string(40000, 'x').c_str(), CheckState::none);
    EXPECT_NE(failureOf(path("t"), grid_format::workbook).find("row 4 has a text that is too long"),
              std::string::npos);
    EXPECT_EQ(filesInFolder(), 0);
    EXPECT_EQ(failureOf(path("t"), grid_format::tabText), "");
}

TEST_P(GridFileTest, AGridWithoutRowsGivesTheHeader) {
    grid_.clearRows();
    save(path("t"), GetParam());
    EXPECT_TRUE(std::filesystem::exists(path("t")));
}

}  // namespace
}  // namespace catalogador::exporting
