#include "adapters/pdf/pdf_writer.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "adapters/pdf/pango_fonts.h"
#include "platform/controls/record_grid.h"
#include "printing/vs_printer.h"
#include "runtime/error.h"

namespace catalogador {
namespace {

std::string outputOf(const std::string& command) {
    std::string output;
    FILE* pipe = popen(command.c_str(), "r");
    std::array<char, 4096> part{};
    while (const std::size_t count = std::fread(part.data(), 1, part.size(), pipe))
        output.append(part.data(), count);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

class PdfWriterTest : public testing::Test {
  protected:
    PdfWriterTest()
        : folder_(std::filesystem::temp_directory_path() /
                  ("pdf_writer_test-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(folder_);
    }
    ~PdfWriterTest() override { std::filesystem::remove_all(folder_); }

    [[nodiscard]] std::string path(const char* name) const { return (folder_ / name).string(); }

    /// A list of so many rows, with its page numbers.
    const PrintedDocument& printed(int rows) {
        RecordGrid grid("grid");
        grid.setFormatString("Código|Nombre");
        for (int i = 1; i <= rows; ++i) {
            const int row = grid.addRow();
            grid.setText(row, 0, std::to_string(i));
            grid.setText(row, 1, "Subdivisión número " + std::to_string(i));
        }
        printer_.fontName = "Tahoma";
        printer_.startDocument("Subdivisiones");
        printer_.renderGrid(grid);
        printer_.endDocument();
        for (int page = 1; page <= printer_.pageCount(); ++page) {
            printer_.startOverlay(page);
            printer_.moveTo(printer_.marginLeft(), printer_.marginBottomLine() + 150);
            printer_.writeAligned(
                std::to_string(page) + " de " + std::to_string(printer_.pageCount()),
                print_align::right);
        }
        return printer_.document();
    }

    std::filesystem::path folder_;
    pdf::PangoFonts fonts_;
    vsPrinter printer_{fonts_, {}};
};

TEST_F(PdfWriterTest, OtherProgramsReadPagesTitleAndEveryText) {
    std::vector<int> counts;
    for (const int rows : {1, 130, 10700}) {
        const PrintedDocument& document = printed(rows);
        counts.push_back(printer_.pageCount());
        pdf::writePdf(document, path("list.pdf"));
        const std::string info = outputOf("pdfinfo " + path("list.pdf"));
        const std::string count = std::to_string(document.pages.size());
        EXPECT_NE(info.find("Title:           Subdivisiones"), std::string::npos) << info;
        EXPECT_NE(info.find("Pages:           " + count + "\n"), std::string::npos) << info;
        EXPECT_NE(info.find("A4"), std::string::npos) << info;
        const std::string text = outputOf("pdftotext -layout " + path("list.pdf") + " -");
        for (std::size_t page = 1; page <= document.pages.size(); ++page)
            EXPECT_NE(text.find(" " + std::to_string(page) + " de " + count + "\n"),
                      std::string::npos)
                << page;
        EXPECT_NE(text.find("Subdivisión número " + std::to_string(rows) + "\n"),
                  std::string::npos);
    }
    // How many rows a page takes is a matter of the font.
    EXPECT_EQ(counts[0], 1);
    EXPECT_GT(counts[1], 1);
    EXPECT_GE(counts[2], 200);
}

TEST_F(PdfWriterTest, BytesThatAreNoTextArePrintedAsReplacementSigns) {
    RecordGrid grid("grid");
    grid.setFormatString(
        "C\xF3"
        "digo|Nombre");
    for (const char* text : {"Espa\xF1"
                             "a",
                             "\xC0\x80", "\x80\x81 fin", "entero"})
        grid.setText(grid.addRow(), 1, text);
    printer_.header = "Subdivisi\xF3n";
    printer_.startDocument("Subdivisi\xF3n");
    printer_.renderGrid(grid);
    printer_.endDocument();
    pdf::writePdf(printer_.document(), path("list.pdf"));
    const std::string text = outputOf("pdftotext -layout " + path("list.pdf") + " -");
    for (const char* printed : {"C\uFFFDdigo", "Espa\uFFFDa", "\uFFFD\uFFFD\n", "\uFFFD\uFFFD fin",
                                "entero", "Subdivisi\uFFFDn"})
        EXPECT_NE(text.find(printed), std::string::npos) << printed << " in " << text;
}

TEST_F(PdfWriterTest, AFolderThatIsMissingIsSaidAndNothingIsLeft) {
    EXPECT_THROW(pdf::writePdf(printed(1), path("missing/list.pdf")), RuntimeError);
    EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

TEST_F(PdfWriterTest, WhenTheDiskIsFullTheEarlierFileStaysAndNothingElse) {
    std::ofstream(path("list.pdf")) << "earlier";
    const PrintedDocument& document = printed(500);
    struct rlimit before {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    auto* const handled = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small { 4096, before.rlim_max };
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_THROW(pdf::writePdf(document, path("list.pdf")), RuntimeError);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handled);
    std::string content;
    std::getline(std::ifstream(path("list.pdf")), content);
    EXPECT_EQ(content, "earlier");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 1);
}

TEST_F(PdfWriterTest, AnEarlierFileIsReplaced) {
    std::ofstream(path("list.pdf")) << "earlier";
    pdf::writePdf(printed(1), path("list.pdf"));
    std::string start(5, ' ');
    std::ifstream(path("list.pdf")).read(start.data(), 5);
    EXPECT_EQ(start, "%PDF-");
}

TEST_F(PdfWriterTest, ATextIsAsWideAsItsCharactersTogether) {
    for (const PrintFont& font : {PrintFont{"Tahoma", 8, false}, PrintFont{"Tahoma", 6.5, true}})
        for (const std::string text : {"AVATAR, To Te V. 11.111,50", "fi ffl fj", "Tahoma"}) {
            int sum = 0;
            for (const char character : text) sum += fonts_.width({&character, 1}, font);
            EXPECT_EQ(fonts_.width(text, font), sum) << text;
        }
}

TEST_F(PdfWriterTest, TextsAreAsWideAsTheyWereMeasured) {
    const PrintFont font{"Tahoma", 8, false};
    const int once = fonts_.width("Subdivisión", font);
    EXPECT_GT(once, 400);
    EXPECT_LT(once, 1600);
    EXPECT_GT(fonts_.width("Subdivisión", {"Tahoma", 8, true}), once);
    EXPECT_NEAR(fonts_.width("Subdivisión", {"Tahoma", 16, false}), 2 * once, 20);
    EXPECT_NEAR(fonts_.lineHeight({"Tahoma", 16, false}), 2 * fonts_.lineHeight(font), 4);
}

}  // namespace
}  // namespace catalogador
