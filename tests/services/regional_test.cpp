#include "adapters/services/regional.h"

#include <clocale>

#include "runtime/error.h"
#include "service_database.h"

namespace catalogador::services {
namespace {

TEST(RegionalOf, KnowsCommonLocalesEvenWhereTheyAreNotInstalled) {
    for (const char* name : {"es_ES", "es_AR.UTF-8", "es", "pt_BR", "de_DE@euro", "it_IT"}) {
        EXPECT_EQ(regionalOf(name).decimal, ",") << name;
        EXPECT_EQ(regionalOf(name).thousands, ".") << name;
        EXPECT_EQ(regionalOf(name).dateOrder, DateOrder::dayMonthYear) << name;
    }
    for (const char* name : {"es_MX", "en_US", "en_GB.UTF-8", "en"}) {
        EXPECT_EQ(regionalOf(name).decimal, ".") << name;
        EXPECT_EQ(regionalOf(name).thousands, ",") << name;
    }
    EXPECT_EQ(regionalOf("fr_FR").decimal, ",");
    EXPECT_EQ(regionalOf("de_CH").decimal, ".");
    EXPECT_EQ(regionalOf("en_US").dateOrder, DateOrder::monthDayYear);
    EXPECT_EQ(regionalOf("de_DE").dateSeparator, ".");
}

TEST(RegionalOf, GivesTheDefaultsForTheLocaleThatSaysNothing) {
    for (const char* name : {"C", "POSIX", "C.UTF-8"}) {
        EXPECT_EQ(regionalOf(name).decimal, ".");
        EXPECT_EQ(regionalOf(name).thousands, ",");
        EXPECT_EQ(regionalOf(name).dateOrder, DateOrder::dayMonthYear);
    }
}

TEST(RegionalOf, RaisesForANameThatIsNoLocale) {
    for (const char* name : {"xx_YY", "nonsense", "esperanto", "../../etc", " "})
        EXPECT_THROW(regionalOf(name), RuntimeError) << name;
}

TEST(RegionalOf, TakesTheEnvironmentsForNoName) {
    const test::EnvironmentChange numeric("LC_NUMERIC", nullptr);
    const test::EnvironmentChange language("LANG", "en_US.UTF-8");
    {
        const test::EnvironmentChange all("LC_ALL", "es_ES.UTF-8");
        EXPECT_EQ(regionalOf("").decimal, ",");
    }
    const test::EnvironmentChange all("LC_ALL", "");
    EXPECT_EQ(regionalOf("").decimal, ".");
    const test::EnvironmentChange unknown("LANG", "xx_YY");
    EXPECT_EQ(regionalOf("").decimal, ".") << "an unknown environment is no reason to stop";
}

TEST(RegionalOf, LeavesTheLocaleOfTheProcessAlone) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    regionalOf("es_ES");
    regionalOf("C.UTF-8");
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
}

}  // namespace
}  // namespace catalogador::services
