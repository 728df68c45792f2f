#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include "adapters/checks/finding.h"

namespace catalogador::checks {
namespace {

/// The heading and the paragraph of every number on the page.
std::map<std::string, std::string> paragraphs() {
    std::ifstream file(CATALOGADOR_DOCS "/checks.md");
    std::map<std::string, std::string> found;
    std::string line;
    std::string* current = nullptr;
    const std::regex heading("### (CAT[0-9]{3}) (error|warning|note)");
    while (std::getline(file, line)) {
        std::smatch parts;
        if (std::regex_match(line, parts, heading)) {
            EXPECT_FALSE(found.contains(parts[1])) << "twice on the page: " << parts[1];
            current = &(found[parts[1]] = parts[2].str() + "\n");
        } else if (line.starts_with("#")) {
            current = nullptr;
        } else if (current != nullptr) {
            *current += line + " ";
        }
    }
    return found;
}

TEST(PageOfFindings, HasAParagraphForEveryNumberAndNoOther) {
    const auto page = paragraphs();
    EXPECT_EQ(page.size(), findingKinds().size());
    for (const FindingKind& kind : findingKinds()) {
        const auto paragraph = page.find(idOf(kind.number));
        ASSERT_NE(paragraph, page.end()) << idOf(kind.number) << " is not on the page";
        EXPECT_TRUE(paragraph->second.starts_with(std::string(nameOf(kind.severity)) + "\n"))
            << idOf(kind.number) << " has another severity on the page";
        EXPECT_GT(paragraph->second.size(), 60U) << idOf(kind.number) << " has no paragraph";
    }
}

TEST(Findings, HaveNumbersThatRiseAndTextsThatSayWhatToDo) {
    int last = 0;
    for (const FindingKind& kind : findingKinds()) {
        EXPECT_GT(kind.number, last);
        last = kind.number;
        EXPECT_FALSE(kind.message.empty()) << kind.number;
        EXPECT_TRUE(kind.effect.ends_with(".")) << kind.number;
        EXPECT_TRUE(kind.hint.ends_with(".")) << kind.number;
        EXPECT_EQ(numberOf(idOf(kind.number)), kind.number);
    }
    EXPECT_EQ(numberOf("CAT999"), std::nullopt);
    EXPECT_EQ(numberOf("CAT1"), std::nullopt);
    EXPECT_EQ(numberOf(""), std::nullopt);
}

}  // namespace
}  // namespace catalogador::checks
