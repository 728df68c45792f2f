#include <gtest/gtest.h>

#include <random>

#include "adapters/views/file_reader.h"
#include "adapters/views/file_text.h"

namespace catalogador::views {
namespace {

View viewWith(const std::string& text) {
    View view;
    view.view.resize(viewColumns().size());
    view.view.front() = 41;
    view.view[placeOf(viewColumns(), "ABMConsulta")] = text;
    Row field(fieldColumns().size());
    field.front() = "Valor1";
    field.back() = text;
    view.fields.push_back(field);
    return view;
}

/// What reading the file of the view gives for its listing and the source of its field.
void expectReadBack(const std::string& text) {
    const View view = viewWith(text);
    const std::string file = fileText(view);
    std::vector<Problem> problems;
    const auto read = readView(file, problems);
    ASSERT_TRUE(read.has_value()) << problems.front().text << "\n" << file;
    ASSERT_TRUE(read->describesTheSameAs(view)) << file;
    ASSERT_EQ(fileText(*read), file);
}

TEST(TextInAFile, IsReadBackAsItWas) {
    for (const std::string text : {"",
                                   " ",
                                   "'",
                                   "\"",
                                   "''",
                                   "'''",
                                   "\"\"",
                                   "\"\"\"",
                                   "\"\"\"\"\"\"\"",
                                   "\n",
                                   "\n\n",
                                   "\r\n",
                                   "\\",
                                   "\\\n",
                                   "a\\",
                                   "a\"",
                                   "a'",
                                   "a\n'",
                                   "a\n\"",
                                   "a\n\"\"",
                                   "a\n\\'",
                                   "\\\n'''",
                                   "\t\n\\",
                                   "a \\\n  b",
                                   "# no comment",
                                   "[view]",
                                   "a\n[view]\n",
                                   "a \n b ",
                                   "\x01\x7F",
                                   "\\u0041",
                                   "\xEF\xBB\xBF",
                                   "ñ\n漢字 🙂",
                                   "Select 'a''b' From t\n Where x = \"y\"\n  And z Like '%\\_%'"})
        expectReadBack(text);
}

TEST(TextInAFile, StandsOnSeveralLinesWhenItHasThemOrIsLong) {
    EXPECT_EQ(tomlText("Select 1\nFrom t"), "\"\"\"\nSelect 1\nFrom t\"\"\"");
    EXPECT_EQ(tomlText("a\n\\"), "'''\na\n\\'''");
    const std::string words(200, 'x');
    EXPECT_EQ(tomlText("Select " + words + " From t"),
              "\"\"\"\\\n    Select \\\n    " + words + " \\\n    From t\"\"\"");
}

TEST(TextInAFile, IsReadBackWhateverItIs) {
    const std::vector<std::string> parts{"'",    "\"",   "\\",  "\n",     "\r",  "\t",   " ",
                                         "  ",   "#",    "[",   "]",      "=",   "a",    "Select",
                                         "''",   "\"\"", "'''", "\"\"\"", "\\n", "\x01", "\x1F",
                                         "\x7F", "é",    "漢",  "🙂",   "\\u", ",",    "--"};
    std::mt19937 random(20);  // NOLINT(cert-msc51-cpp): the same texts every time
    const auto below = [&](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (std::size_t count = below(round % 10 == 0 ? 300 : 25); count > 0; --count)
            text += parts[below(parts.size())];
        expectReadBack(text);
        if (HasFatalFailure()) return;
    }
}

TEST(NumberInAFile, IsReadBackAsItWas) {
    View view = viewWith("x");
    for (const double number : {0.0, 7590.0, 7590.5, 0.1, -3.25, 1e20, 1e-20, 16777217.0}) {
        Variant& width = view.view[placeOf(viewColumns(), "ABMAnchoForm")];
        width = *fitting(Variant(number), Contents::number);
        std::vector<Problem> problems;
        const auto read = readView(fileText(view), problems);
        ASSERT_TRUE(read.has_value()) << number;
        EXPECT_EQ(valueOf(*read, "ABMAnchoForm"), width);
    }
}

}  // namespace
}  // namespace catalogador::views
