#include <gtest/gtest.h>

#include "modules/modLenguaje.h"
#include "runtime/error.h"

namespace catalogador {
namespace {

class OneText : public clsResources {
  public:
    [[nodiscard]] std::string resLoad(std::int32_t id) const override {
        if (id == 1117) return "Texto";
        throw RuntimeError(5, "unknown");
    }
    void IDAppName(const std::string&) override {}
    void IDSLng(std::uint8_t) override {}
};

TEST(ObtenerMensaje, WithoutALanguageGivesTheNumber) {
    gobjLenguaje.reset();
    EXPECT_EQ(ObtenerMensaje(500), "RNF 500");
}

TEST(ObtenerMensaje, LooksUpTheNumberPlusAThousand) {
    gobjLenguaje = std::make_unique<OneText>();
    EXPECT_EQ(ObtenerMensaje(117), "Texto");
    EXPECT_EQ(ObtenerMensaje(118), "RNF 118");
    EXPECT_EQ(ObtenerMensaje(INT32_MAX), "RNF 2147483647");
    gobjLenguaje.reset();
}

TEST(LanguageLibraryName, DependsOnTheProductInAnyCase) {
    EXPECT_EQ(languageLibraryName("vem04", 1), "LNG_QTX_001");
    EXPECT_EQ(languageLibraryName("VEM01", 34), "LNG_QPL_034");
    EXPECT_EQ(languageLibraryName("VEM04", 7), "LNG_QTX_007");
}

}  // namespace
}  // namespace catalogador
