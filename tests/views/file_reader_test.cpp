#include "adapters/views/file_reader.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "adapters/views/file_text.h"
#include "runtime/error.h"

namespace catalogador::views {
namespace {

/// "LINE: text" of each problem.
std::vector<std::string> problemsOf(const std::string& text) {
    std::vector<Problem> problems;
    const auto view = readView(text, problems);
    EXPECT_EQ(view.has_value(), problems.empty());
    std::vector<std::string> result;
    for (const Problem& problem : problems)
        result.push_back(std::to_string(problem.line) + ": " + problem.text);
    return result;
}

const std::string small = "[view]\nABMIDFormVista = 41\n";

struct Mistake {
    std::string text;
    /// What the first problem begins with.
    std::string begins;
};

TEST(ViewFile, WithAMistakeIsRefusedWithItsLine) {
    const std::vector<Mistake> mistakes{
        {"", "1: there is no table [view]"},
        {"[view]\n", "1: [view] lacks ABMIDFormVista"},
        {"view = 3\n", "1: view is no table"},
        {"[view\n", "1: "},
        {small + "ABMTitulo = \"a\n", "3: "},
        {small + "ABMTitulo = \"a\"\nABMTitulo = \"b\"\n", "4: "},
        {small + "ABMTitulo = \"a\xFF\"\n", "3: "},
        {small + std::string("ABMTitulo = \"a\0\"\n", 17), "3: "},
        {small + "ABMTitulo = \"a\\u0000\"\n", "3: ABMTitulo holds a NUL"},
        {small + "ABMTitulo = 3\n", "3: ABMTitulo has to be a text"},
        {small + "ABMTitel = \"a\"\n", "3: there is no key ABMTitel in [view]; the keys are ABMID"},
        {small + "abmtitulo = \"a\"\n", "3: there is no key abmtitulo"},
        {small + "ABMIDAyuda = 40000\n", "3: ABMIDAyuda has to be a whole number from -32768"},
        {small + "ABMAnchoForm = nan\n", "3: ABMAnchoForm has to be a number"},
        {small + "[fields]\nACoKeyControl = \"Valor1\"\n", "3: fields is no list of tables"},
        {small + "[[fields]]\nACoCaption = \"x\"\n", "3: [[fields]] lacks ACoKeyControl"},
        {small + "[[felds]]\nACoCaption = \"x\"\n", "3: there is no key felds in a file"},
        {small + "[[fields]]\nACoKeyControl = \"Valor1\"\nACoLen = 1.5\n", "5: ACoLen has to be"},
        {small + "[sequence]\nNumNombre = \"Units\"\n", "3: the sequence of a view bears its name"},
        {small + "[[rules]]\nForMensaje = \"x\"\n", "3: rules belong to the view's name"},
        {small + "[[rights]]\nUsuNombre = \"ana\"\nPerEmpresa = 1\n", "3: rights are for the view"},
        {small + "ABMValidarAcceso = \"a|b|0\"\n[[rights]]\nUsuNombre = \"ana\"\n",
         "4: [[rights]] lacks PerEmpresa"},
        {small + "ABMValidarAcceso = \"a|b|0\"\n[[rights]]\nUsuNombre = \"ana\"\nPerEmpresa = 1\n"
                 "[[rights]]\nUsuNombre = \"ana\"\nPerEmpresa = 1\n",
         "7: the user has rights for this company already"},
        {small + "[check]\nignore = \"CAT043\"\n", "4: ignore is no list"},
        {small + "[check]\nignore = [\"CAT999\"]\n", "4: there is no such finding"},
        {small + "[test]\nscript = \"a\"\n", "3: [test] lacks script or expected"},
        {small + "[test]\nscript = \"a\"\nexpected = \"b\"\ncompany = 99999\n", "6: company has"},
        {"[view]\nABMIDFormVista = 0\n", "2: there is no view 0"},
        {"[view]\nABMIDFormVista = -3\n", "2: there is no view -3"},
        {"[view]\nABMIDFormVista = 32768\n", "2: ABMIDFormVista has to be a whole number"},
        {"[view]\nABMIDFormVista = \"3\"\n", "2: ABMIDFormVista has to be a whole number"},
        {"[view]\nABMIDFormVista = 99999999999999999999\n", "2: "},
    };
    for (const Mistake& mistake : mistakes) {
        const auto problems = problemsOf(mistake.text);
        ASSERT_FALSE(problems.empty()) << mistake.text;
        EXPECT_EQ(problems.front().substr(0, mistake.begins.size()), mistake.begins)
            << problems.front();
    }
    EXPECT_TRUE(problemsOf(small).empty());
}

TEST(ViewFile, OnThePageIsReadAndWritten) {
    const std::string page = contentOf(CATALOGADOR_DOCS "/view-files.md");
    const std::size_t start = page.find("```toml\n") + 8;
    const std::string example = page.substr(start, page.find("```", start) - start);
    std::vector<Problem> problems;
    const auto view = readView(example, problems);
    ASSERT_TRUE(view.has_value()) << problems.front().text;
    std::vector<Problem> none;
    const auto again = readView(fileText(*view), none);
    ASSERT_TRUE(again.has_value());
    EXPECT_TRUE(again->describesTheSameAs(*view));
    EXPECT_EQ(view->ignored, std::vector<int>{43});
}

TEST(ViewFile, TellsAllItsMistakesAtOnce) {
    EXPECT_EQ(problemsOf(small + "ABMTitel = 1\nABMAyuda = 2\n").size(), 2U);
}

/// A folder of its own, gone with its owner.
class Folder {
  public:
    Folder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "views-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    void write(const std::string& name, const std::string& text) const {
        std::ofstream(path_ / name, std::ios::binary) << text;
    }
    /// What is said when it is read; empty when it can be.
    [[nodiscard]] std::string problem() const {
        try {
            readFolder(path_);
            return {};
        } catch (const RuntimeError& error) {
            return error.description();
        }
    }
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

TEST(FolderOfViews, IsReadInTheOrderOfTheNumbers) {
    const Folder folder;
    folder.write("a.toml", "[view]\nABMIDFormVista = 7\n");
    folder.write("b.toml", "[view]\nABMIDFormVista = 3\n");
    folder.write("c.txt", "[no view\n");
    const auto files = readFolder(folder.path());
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0].view.number(), 3);
    EXPECT_EQ(files[1].view.number(), 7);
}

TEST(FolderOfViews, WithTwoFilesOfOneViewIsRefusedWithBothNames) {
    const Folder folder;
    folder.write("a.toml", small);
    folder.write("b.toml", small);
    const std::string problem = folder.problem();
    EXPECT_NE(problem.find("b.toml:1: view 41 is described by "), std::string::npos) << problem;
    EXPECT_NE(problem.find("a.toml too; keep one of the two files"), std::string::npos) << problem;
}

TEST(FolderOfViews, WhoseFilesDisagreeOnASharedOptionIsRefused) {
    const Folder folder;
    const std::string access = "ABMValidarAcceso = \"Units|M|0\"\n";
    const std::string right = "[[rights]]\nUsuNombre = \"ana\"\nPerEmpresa = 0\n";
    folder.write("a.toml", small + access + right);
    folder.write("b.toml", "[view]\nABMIDFormVista = 42\n" + access + right);
    EXPECT_EQ(folder.problem(), "");
    folder.write("b.toml", "[view]\nABMIDFormVista = 42\n" + access);
    EXPECT_NE(folder.problem().find("b.toml:1: [[rights]] differs from that of "),
              std::string::npos);
}

TEST(FolderOfViews, ThatDoesNotExistIsRefused) {
    EXPECT_THROW((void)readFolder("no such folder"), RuntimeError);
}

TEST(CommentsOfAFile, StayWhereTheyStoodWhenItIsWrittenAnew) {
    const std::string earlier =
        "# About the view.\n[view] # its row\nABMIDFormVista = 41 # never changes\n"
        "# What users read.\nABMTitulo = \"Old # no comment\"\n"
        "ABMConsulta = '''\nSelect # no comment\n'''  # the listing\n\n"
        "[[fields]]\n# The first one.\nACoKeyControl = \"TextoCorto\"\nACoLen = 3 # short\n"
        "# Gone soon.\n[[fields]]\nACoKeyControl = \"Valor1\" # gone too\n# At the end.\n";
    std::vector<Problem> problems;
    auto view = readView(earlier, problems);
    ASSERT_TRUE(view.has_value());
    view->view[placeOf(viewColumns(), "ABMTitulo")] = "New";
    view->fields.pop_back();
    EXPECT_EQ(withComments(fileText(*view), earlier),
              "# About the view.\n[view]  # its row\nABMIDFormVista = 41  # never changes\n"
              "# What users read.\nABMTitulo = \"New\"\n"
              "ABMConsulta = \"\"\"\nSelect # no comment\n\"\"\"  # the listing\n\n"
              "[[fields]]\n# The first one.\nACoKeyControl = \"TextoCorto\"\n"
              "ACoLen = 3  # short\n# Gone soon.\n# gone too\n# At the end.\n");
}

}  // namespace
}  // namespace catalogador::views
