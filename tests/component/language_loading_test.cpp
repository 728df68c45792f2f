#include <gtest/gtest.h>

#include "modules/modLenguaje.h"
#include "told_host.h"

namespace catalogador {
namespace {

class LanguageLoading : public testing::Test {
  protected:
    int load(const std::string& product = "VEM04") {
        return CargarLenguaje(told_.host, "KEY", product, "Catalogador");
    }
    /// The library that is loaded when the setting "Idioma" holds this.
    std::string loadedWith(const Variant& setting) {
        told_.utilities.settings["Idioma"] = setting;
        EXPECT_EQ(load(), 1);
        return told_.languages.asked.back();
    }

    test::ToldHost told_;
};

TEST_F(LanguageLoading, TakesTheFirstLanguageWhereTheSettingIsNone) {
    EXPECT_EQ(load(), 1);
    EXPECT_EQ(told_.languages.asked.back(), "LNG_QTX_001.clsResources");
    for (const char* setting : {"", "abc", "0", "300", "-1", " "})
        EXPECT_EQ(loadedWith(setting), "LNG_QTX_001.clsResources") << setting;
}

TEST_F(LanguageLoading, TakesTheNumberThatTheSettingBeginsWith) {
    EXPECT_EQ(loadedWith("7"), "LNG_QTX_007.clsResources");
    EXPECT_EQ(loadedWith(34), "LNG_QTX_034.clsResources");
    EXPECT_EQ(loadedWith("255"), "LNG_QTX_255.clsResources");
    EXPECT_EQ(loadedWith("2 English"), "LNG_QTX_002.clsResources");
}

TEST_F(LanguageLoading, FollowsTheProductInAnyCase) {
    load("vem04");
    EXPECT_EQ(told_.languages.asked.back(), "LNG_QTX_001.clsResources");
    load("VEM01");
    EXPECT_EQ(told_.languages.asked.back(), "LNG_QPL_001.clsResources");
}

TEST_F(LanguageLoading, TellsTheLibraryWhoAsksAndTheSecondLanguage) {
    told_.utilities.settings["Idioma2"] = "5";
    load();
    EXPECT_EQ(told_.languages.application, "Catalogador");
    EXPECT_EQ(told_.languages.secondary, 5);
    EXPECT_EQ(told_.utilities.keysAsked, (std::vector<std::string>{"KEY", "KEY"}));
}

TEST_F(LanguageLoading, TakesNoSecondLanguageFromASettingThatIsNoNumber) {
    for (const char* setting : {"5 English", "300", ""}) {
        told_.utilities.settings["Idioma2"] = setting;
        EXPECT_EQ(load(), 1);
        EXPECT_EQ(told_.languages.secondary, 0) << setting;
    }
}

TEST_F(LanguageLoading, GivesTheMessageObjectTheLanguage) {
    told_.utilities.settings["Idioma"] = "3";
    load();
    EXPECT_EQ(told_.messages.language, 3);
}

TEST_F(LanguageLoading, CountsOnlyTheLibrariesThatCouldBeLoaded) {
    const int before = gbytCargasLenguaje;
    load();
    load();
    EXPECT_EQ(gbytCargasLenguaje, before + 2);
    told_.languages.missing = true;
    load();
    EXPECT_EQ(gbytCargasLenguaje, before + 2);
}

TEST_F(LanguageLoading, OfAMissingLibraryIsToldAndLeavesNoneLoaded) {
    load();
    EXPECT_EQ(ObtenerMensaje(500), "[p], [p]: 1500");
    told_.languages.missing = true;
    told_.utilities.settings["Idioma"] = "7";
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(ObtenerMensaje(500), "RNF 500");
    ASSERT_EQ(told_.messages.errors.size(), 1U);
    const auto& error = told_.messages.errors.front();
    EXPECT_EQ(error.text,
              "Falta el componente de idioma: LNG_QTX_007.dll\r\n"
              "Se finalizará la ejecución de la aplicación.");
    EXPECT_EQ(error.title, "The host");
    EXPECT_EQ(error.detail, "429 - no LNG_QTX_007.clsResources");
    EXPECT_EQ(error.context, "Configuración de Idioma");
    EXPECT_EQ(currentError().number, 0);
}

}  // namespace
}  // namespace catalogador
