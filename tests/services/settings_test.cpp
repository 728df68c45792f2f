#include "adapters/services/settings.h"

#include <fstream>

#include "service_database.h"

namespace catalogador::services {
namespace {

class SettingsFile : public testing::Test {
  protected:
    Settings write(const std::string& text,
                   const std::map<std::string, std::string>& overrides = {}) {
        std::ofstream(file_) << text;
        return Settings(file_, overrides);
    }

    test::TemporaryFolder folder_;
    std::string file_ = (folder_.path() / "catalogador.ini").string();
};

TEST_F(SettingsFile, GivesValuesBySectionAndName) {
    const Settings settings = write(
        "\xEF\xBB\xBF; comment\nLoose=1\n[VEM04]\r\n Idioma = 2 \r\n# Idioma=3\nRuta=/opt/a b=c\n"
        "Empty=\n[Other]\nIdioma\t=\t7\nnonsense\n");
    EXPECT_EQ(settings.read("VEM04", "Idioma"), "2");
    EXPECT_EQ(settings.read("vem04", "IDIOMA"), "2");
    EXPECT_EQ(settings.read("VEM04", "Ruta"), "/opt/a b=c");
    EXPECT_EQ(settings.read("VEM04", "Empty"), "");
    EXPECT_EQ(settings.read("Other", "Idioma"), "7");
    EXPECT_EQ(settings.read("", "Loose"), "1");
    EXPECT_EQ(settings.read("VEM04", "Loose"), std::nullopt);
    EXPECT_EQ(settings.read("VEM04", "nonsense"), std::nullopt);
    EXPECT_EQ(settings.read("VEM0", "4\nIdioma"), std::nullopt);
}

TEST_F(SettingsFile, GivesWayToOverridesWhateverTheKey) {
    const Settings settings = write("[VEM04]\nIdioma=2\nIdioma2=3\n", {{"IDIOMA", "1"}});
    EXPECT_EQ(settings.read("VEM04", "Idioma"), "1");
    EXPECT_EQ(settings.read("Another", "Idioma"), "1");
    EXPECT_EQ(settings.read("VEM04", "Idioma2"), "3");
}

TEST_F(SettingsFile, MayBeMissing) {
    EXPECT_EQ(Settings((folder_.path() / "none.ini").string(), {}).read("a", "b"), std::nullopt);
    EXPECT_EQ(Settings(folder_.path().string(), {}).read("a", "b"), std::nullopt);
}

TEST(SettingsDefaultFile, StandsInTheUsersConfigurationFolder) {
    const test::EnvironmentChange home("HOME", "/home/ana");
    {
        const test::EnvironmentChange configuration("XDG_CONFIG_HOME", "/cfg");
        EXPECT_EQ(Settings::defaultFile(), "/cfg/catalogador/catalogador.ini");
    }
    for (const char* unusable : {static_cast<const char*>(nullptr), "", "relative"}) {
        const test::EnvironmentChange configuration("XDG_CONFIG_HOME", unusable);
        EXPECT_EQ(Settings::defaultFile(), "/home/ana/.config/catalogador/catalogador.ini");
    }
}

}  // namespace
}  // namespace catalogador::services
