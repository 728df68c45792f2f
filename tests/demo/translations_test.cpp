#include "adapters/demo/translations.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "runtime/error.h"

namespace catalogador::demo {
namespace {

enum class ByteOrder { little, big };

void putWord(std::string& bytes, std::size_t offset, std::uint32_t value, ByteOrder order) {
    for (unsigned i = 0; i < 4; ++i) {
        const unsigned shift = order == ByteOrder::little ? 8 * i : 24 - 8 * i;
        bytes.at(offset + i) = static_cast<char>(value >> shift);
    }
}

/// A catalogue as the gettext tools write it: header, two tables of (length, position), texts.
std::string catalogue(const std::vector<std::pair<std::string, std::string>>& texts,
                      ByteOrder order = ByteOrder::little) {
    const auto count = static_cast<std::uint32_t>(texts.size());
    const std::uint32_t originals = 28;
    const std::uint32_t translated = originals + 8 * count;
    std::string bytes(translated + 8 * count, '\0');
    const std::vector<std::uint32_t> header{0x950412de, 0, count, originals, translated, 0, 0};
    for (std::size_t i = 0; i < header.size(); ++i) putWord(bytes, 4 * i, header[i], order);
    std::size_t row = 0;
    for (const auto& [original, translation] : texts) {
        for (const auto& [table, text] :
             {std::pair(originals, original), std::pair(translated, translation)}) {
            const std::size_t descriptor = table + 8 * row;
            putWord(bytes, descriptor, static_cast<std::uint32_t>(text.size()), order);
            putWord(bytes, descriptor + 4, static_cast<std::uint32_t>(bytes.size()), order);
            bytes += text + '\0';
        }
        ++row;
    }
    return bytes;
}

TEST(Translations, GivesTheTranslationOrTheTextItself) {
    const Translations translations(
        catalogue({{"", "Content-Type: text/plain; charset=UTF-8\n"}, {"Spain", "España"}}));
    EXPECT_EQ(translations.of("Spain"), "España");
    EXPECT_EQ(translations.of("Aruba"), "Aruba");
    EXPECT_EQ(translations.of(""), "");
}

TEST(Translations, ReadsEitherByteOrder) {
    EXPECT_EQ(Translations(catalogue({{"Gold", "Oro"}}, ByteOrder::big)).of("Gold"), "Oro");
}

TEST(Translations, TakesTheSingularOfAnEntryWithPlurals) {
    using namespace std::string_literals;
    const Translations translations(catalogue({{"day\0days"s, "día\0días"s}}));
    EXPECT_EQ(translations.of("day"), "día");
}

TEST(Translations, KeepsTheTextOfAnEmptyTranslation) {
    EXPECT_EQ(Translations(catalogue({{"Aruba", ""}})).of("Aruba"), "Aruba");
}

TEST(Translations, RefusesWhatIsNoCatalogue) {
    EXPECT_THROW(Translations("{\"3166-1\": []}"), RuntimeError);
    EXPECT_THROW(Translations(""), RuntimeError);
}

TEST(Translations, RefusesACatalogueCutAnywhere) {
    const std::string whole = catalogue({{"Spain", "España"}});
    // The last byte is only the end mark of a text whose length is known.
    for (std::size_t length = 0; length + 1 < whole.size(); ++length) {
        EXPECT_THROW(Translations(whole.substr(0, length)), RuntimeError) << length;
    }
}

TEST(Translations, RefusesEntriesThatPointOutside) {
    for (const std::size_t field : {8U, 12U, 16U, 28U, 32U, 36U, 40U}) {
        for (const std::uint32_t value : {0xffffffffU, 0xfffffff8U}) {
            std::string bytes = catalogue({{"Spain", "España"}});
            putWord(bytes, field, value, ByteOrder::little);
            EXPECT_THROW(Translations{bytes}, RuntimeError) << field;
        }
    }
}

TEST(Translations, OfAMissingFileTranslateNothing) {
    const Translations translations = Translations::fromFile("/nowhere/es/LC_MESSAGES/x.mo");
    EXPECT_TRUE(translations.empty());
    EXPECT_EQ(translations.of("Spain"), "Spain");
}

}  // namespace
}  // namespace catalogador::demo
