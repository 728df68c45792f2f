#include "adapters/services/utilities.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>

#include "adapters/system/paths.h"
#include "runtime/error.h"

namespace catalogador::services {
namespace {

Utilities utilitiesWith(const std::map<std::string, std::string>& settings) {
    return {Settings("", settings), Regional{",", "."}, "/opt/program", nullptr};
}

TEST(Utilities, GivesNullForASettingThatIsNotSet) {
    Utilities utilities = utilitiesWith({{"Idioma", "2"}});
    EXPECT_EQ(utilities.LeerConfiguracion("VEM04", "Idioma"), Variant("2"));
    EXPECT_TRUE(utilities.LeerConfiguracion("VEM04", "Idioma2").isNull());
}

TEST(Utilities, GivesTextOfAValueAsTheUserReadsIt) {
    const Utilities utilities = utilitiesWith({});
    EXPECT_EQ(utilities.TextoDe(Null{}), "");
    EXPECT_EQ(utilities.TextoDe("x"), "x");
    EXPECT_EQ(utilities.TextoDe(12.5), "12,5");
}

TEST(Utilities, TakesFolderOfAnApplicationFromItsSettingElseItsOwn) {
    EXPECT_EQ(utilitiesWith({}).CarpetaAplicacion(), "/opt/program");
    EXPECT_EQ(utilitiesWith({}).RutaAplicacion("VEM04"), "/opt/program");
    EXPECT_EQ(utilitiesWith({{"Ruta", "/srv/app"}}).RutaAplicacion("VEM04"), "/srv/app");
}

TEST(Utilities, MakesAFolderNextToAnotherOnceAndSaysWhenItCannot) {
    const std::filesystem::path own = std::filesystem::temp_directory_path() /
                                      ("catalogador_utilities_" + std::to_string(getpid()));
    std::filesystem::create_directory(own);
    Utilities utilities = utilitiesWith({});
    const std::string wanted = pathText(own / "Exports");
    EXPECT_EQ(utilities.CarpetaVecina(pathText(own / "program"), "Exports"), wanted);
    EXPECT_TRUE(std::filesystem::is_directory(own / "Exports"));
    EXPECT_EQ(utilities.CarpetaVecina(pathText(own / "program"), "Exports"), wanted);
    try {
        utilities.CarpetaVecina(pathText(own / "missing" / "program"), "Exports");
        ADD_FAILURE() << "a folder was made in one that does not exist";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), 76);
    }
    std::filesystem::remove_all(own);
}

TEST(Utilities, HandsHelpToTheViewerAndRaisesWithoutOne) {
    int shown = 0;
    Utilities utilities(
        Settings("", {}), Regional{}, "",
        [&](Window&, int command, std::int32_t data) { shown = command * 100 + data; });
    // Only the reference is handed on, so there need be no window behind it.
    alignas(std::max_align_t) std::byte nowhere[1];
    auto& window = reinterpret_cast<Window&>(nowhere);
    utilities.MostrarAyuda(window, 15, 25);
    EXPECT_EQ(shown, 1525);
    EXPECT_THROW(utilitiesWith({}).MostrarAyuda(window, 3, 0), RuntimeError);
}

}  // namespace
}  // namespace catalogador::services
