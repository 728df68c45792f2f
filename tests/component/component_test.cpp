#include <gtest/gtest.h>

#include "component/clsCatalogador.h"
#include "told_host.h"

namespace catalogador {
namespace {

class Component : public testing::Test {
  protected:
    Component() {
        told_.connection->Execute(
            "Create Table Catalogador (ABMIDFormVista Integer, ABMTitulo Text, "
            "ABMValidarAcceso Text)");
        told_.connection->Execute("Insert Into Catalogador Values (1, 'Countries', Null)");
        told_.connection->Execute("Insert Into Catalogador Values (2, 'Taxes', 'Taxes|X|1')");
        component_.Coneccion(told_.connection.get());
        component_.AppKey("VEM04");
    }

    test::ToldHost told_;
    clsCatalogador component_{told_.host};
};

TEST_F(Component, IsNotCreatedWithoutItsLanguage) {
    told_.languages.missing = true;
    try {
        const clsCatalogador other(told_.host);
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), 9000);
        EXPECT_EQ(error.source(), "ObjetoLenguaje");
        EXPECT_EQ(error.description(), "Falta componente de lenguaje.");
    }
}

TEST_F(Component, LoadsTheLanguageUnderItsOwnName) {
    EXPECT_EQ(told_.languages.application, "Catalogador");
    EXPECT_EQ(told_.utilities.keysAsked, (std::vector<std::string>{"VEM04", "VEM04"}));
}

TEST_F(Component, ShowsNothingWithoutAViewOrAConnection) {
    EXPECT_FALSE(component_.ActivarABM(0));
    EXPECT_FALSE(component_.ActivarABM(-1));
    component_.Coneccion(nullptr);
    EXPECT_FALSE(component_.ActivarABM(1));
    EXPECT_EQ(told_.surface.opened, 0);
    EXPECT_TRUE(told_.messages.errors.empty());
    EXPECT_TRUE(told_.messages.notices.empty());
}

TEST_F(Component, AddsNothingWhenAnArgumentIsMissing) {
    component_.Coneccion(nullptr);
    EXPECT_EQ(component_.AddNew(1, "Paises", "Text"), 9);
    component_.Coneccion(told_.connection.get());
    EXPECT_EQ(component_.AddNew(0, "Paises", "Text"), 9);
    EXPECT_EQ(component_.AddNew(1, "", "Text"), 9);
    EXPECT_EQ(component_.AddNew(1, "Paises", ""), 9);
    component_.AppKey("");
    EXPECT_EQ(component_.AddNew(1, "Paises", "Text"), 9);
    EXPECT_EQ(told_.utilities.calls, 0);
    EXPECT_TRUE(told_.messages.errors.empty());
}

TEST_F(Component, ReportsAScreenThatCannotBeShown) {
    told_.surface.broken = true;
    EXPECT_FALSE(component_.ActivarABM(1));
    ASSERT_EQ(told_.messages.errors.size(), 1U);
    EXPECT_EQ(told_.messages.errors.front().text, "[p], [p]: 1901");
    EXPECT_EQ(told_.messages.errors.front().title, "");
    EXPECT_EQ(told_.messages.errors.front().detail, "429 - no window");
}

TEST_F(Component, CentresTheScreenOnTheWholeMonitorThatItIsOn) {
    told_.surface.monitor = {15360, 300, 20000, 12000};
    EXPECT_TRUE(component_.ActivarABM(1));
    const Rect& shown = told_.surface.shownAt;
    EXPECT_EQ(shown.left, 15360 + (20000 - shown.width) / 2);
    EXPECT_EQ(shown.top, 300 + (12000 - shown.height) / 2);
}

TEST_F(Component, ReportsARuleThatCannotBeReadUnderTheNameOfTheCheck) {
    told_.connection->Execute("Drop Table Catalogador");
    EXPECT_FALSE(component_.ActivarABM(1));
    EXPECT_EQ(told_.surface.opened, 0);
    ASSERT_EQ(told_.messages.errors.size(), 1U);
    EXPECT_EQ(told_.messages.errors.front().text, "ValidarAccesoForm, ValidarAccesoForm: 1500");
}

TEST_F(Component, NamesTheViewWhereverTheRefusalAsksForIt) {
    EXPECT_FALSE(component_.ActivarABM(2));
    EXPECT_EQ(told_.messages.notices, (std::vector<std::string>{"Taxes, Taxes: 1117"}));
    EXPECT_EQ(told_.surface.opened, 0);
}

}  // namespace
}  // namespace catalogador
