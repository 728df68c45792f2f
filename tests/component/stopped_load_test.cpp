#include <gtest/gtest.h>

#include "form/frmCatalogador.h"
#include "modules/modLenguaje.h"
#include "told_host.h"

namespace catalogador {
namespace {

/// Stops whatever is in progress once so many rows are there.
class ImpatientSurface : public BlankSurface {
  public:
    int patience = 1'000'000;
    int ended = 0;

    bool progress(Window&, int done, int total) override {
        if (done == total) ++ended;
        return done < patience;
    }
};

class StoppedLoad : public testing::Test {
  protected:
    StoppedLoad() {
        told_.connection->Execute("Create Table List (Code Integer, Name Text)");
        told_.connection->Execute(
            "With Recursive n(i) As (Select 1 Union All Select i + 1 From n Where i < 2000) "
            "Insert Into List Select i, 'Name ' || i From n");
        CargarLenguaje(told_.host, "VEM04", "VEM04", "Catalogador");
        form_.mrdoCBase = told_.connection.get();
        form_.grdGrilla.setFormatString("Name|");
        form_.grdGrilla.tag = "Select Code, Name From List";
    }
    [[nodiscard]] int rows() const { return form_.grdGrilla.rows() - RecordGrid::fixedRows; }

    test::ToldHost told_;
    ImpatientSurface surface_;
    Host host_{surface_,        told_.utilities, told_.messages, told_.access,
               told_.languages, told_.gridFiles, told_.printer,  {},
               "The host",      nullptr};
    frmCatalogador form_{host_};
};

TEST_F(StoppedLoad, KeepsTheRowsItHasAndSaysSo) {
    surface_.patience = 300;
    form_.CargarGrilla();
    EXPECT_GE(rows(), 300);
    EXPECT_LT(rows(), 2000);
    EXPECT_EQ(form_.grdGrilla.text(1, 0), "Name 1");
    EXPECT_EQ(told_.messages.notices.size(), 1U);
    EXPECT_TRUE(told_.messages.errors.empty());
    EXPECT_EQ(surface_.ended, 1);
}

TEST_F(StoppedLoad, IsNoMatterForTheNextLoad) {
    surface_.patience = 300;
    form_.CargarGrilla();
    surface_.patience = 1'000'000;
    form_.CargarGrilla();
    EXPECT_EQ(rows(), 2000);
    EXPECT_EQ(told_.messages.notices.size(), 1U);
}

TEST_F(StoppedLoad, CanBeStoppedWhileTheDatabaseIsAtWork) {
    form_.grdGrilla.tag =
        "With Recursive n(i) As (Select 1 Union All Select i + 1 From n Where i < 1000000000) "
        "Select Count(*), 'x' From n";
    surface_.patience = 0;
    form_.CargarGrilla();
    EXPECT_EQ(rows(), 0);
    EXPECT_EQ(told_.messages.notices.size(), 1U);
    EXPECT_TRUE(told_.messages.errors.empty());
}

}  // namespace
}  // namespace catalogador
