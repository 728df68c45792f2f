#include <gtest/gtest.h>

#include "../sql/dialects.h"
#include "adapters/schema/schema.h"
#include "desk.h"
#include "service_database.h"

namespace catalogador {
namespace {

/// Rows of metadata with values that no column of a well-kept database has; SQLite keeps any.
class WildMetadata : public testing::Test {
  protected:
    WildMetadata() {
        for (const std::string& sql : schema::schemaStatementList(dialects::sqlite))
            desk_.connection().session()->run(sql);
        run("Insert Into Catalogador (ABMIDFormVista, ABMTitulo, ABMNombreVista, ABMConsulta, "
            "ABMColumnasNombre, ABMColumnasAncho, ABMColumnasAlineacion, ABMAnchoForm) Values (7, "
            "'Todo', 'Todo', 'Select CTeCodigo, CTeTextoCorto, CTeTextoLargo From genCodigoTexto', "
            "'Corto|Largo', '1000|1000', '1|1', 5000)");
        run("Insert Into CatalogadorControles (ACoIDFormVista, ACoKeyControl, ACoCaption, ACoTipo) "
            "Values (7, 'TextoCorto', 'Texto:', Null), (7, 'Valor1', 'Valor:', 1)");
        run("Insert Into genCodigoTexto (CTeIDTipoVista, CTeCodigo, CTeTextoCorto) Values (7, 1, "
            "'uno')");
    }

    void run(const std::string& sql) { desk_.connection().session()->run(sql); }
    void open(const std::function<void(frmCatalogador&)>& look) { desk_.open(7, look); }
    /// Opens, saves a new record and gives what was told meanwhile.
    std::vector<std::string> saveNew() {
        open([](frmCatalogador& form) {
            form.commandBars.execute(3);
            form.txtTexto1.setText("dos");
            form.commandBars.execute(6);
        });
        return desk_.takeTold();
    }

    test::TemporaryFolder folder_;
    test::Desk desk_{odbc::OdbcConnection::open(
        odbc::OdbcConnection::sqliteConnectionString((folder_.path() / "wild.db").string()))};
};

TEST_F(WildMetadata, AFieldOfLessThanNoLengthIsNarrowButThere) {
    run("Update CatalogadorControles Set ACoLen = -2145336320 Where ACoKeyControl = 'TextoCorto'");
    open([](frmCatalogador& form) {
        EXPECT_EQ(form.txtTexto1.maxLength(), 0);
        EXPECT_GT(form.txtTexto1.width(), 0);
        EXPECT_LT(form.txtTexto1.width(), 1000);
    });
}

TEST_F(WildMetadata, AKindBeyondEveryNumberIsACheckBoxOrNone) {
    for (const char* kind : {"9223372036854775807", "-9223372036854775808", "1e300", "'1e999'"}) {
        run("Update CatalogadorControles Set ACoTipo = " + std::string(kind) +
            " Where ACoKeyControl = 'Valor1'");
        bool opened = false;
        open([&](frmCatalogador& form) {
            opened = true;
            EXPECT_FALSE(form.txtValor1.visible()) << kind;
        });
        EXPECT_TRUE(opened) << kind;
    }
}

TEST_F(WildMetadata, AlignmentsBeyondEveryNumberDoNotKeepRowsAway) {
    run("Update Catalogador Set ABMColumnasAlineacion = '1e99|-1e99', ABMColumnasAncho = "
        "'1e99|-1e99'");
    open([](frmCatalogador& form) {
        EXPECT_EQ(form.grdGrilla.rows(), 2);
        EXPECT_EQ(form.grdGrilla.text(1, 0), "uno");
        EXPECT_GT(form.grdGrilla.columnWidth(0), 0);
        EXPECT_GE(form.grdGrilla.columnWidth(1), 0);
    });
    EXPECT_TRUE(desk_.takeTold().empty());
}

TEST_F(WildMetadata, AViewOfNothingButNullsIsToldAsIsItsEmptyListingAndCloses) {
    run("Update Catalogador Set ABMTitulo = Null, ABMNombreVista = Null, ABMConsulta = Null, "
        "ABMColumnasNombre = Null, ABMColumnasAncho = Null, ABMColumnasAlineacion = Null, "
        "ABMAnchoForm = Null");
    bool opened = false;
    open([&](frmCatalogador& form) {
        opened = true;
        EXPECT_EQ(form.modo(), "0");
    });
    EXPECT_TRUE(opened);
    EXPECT_EQ(desk_.takeTold().size(), 2U);
}

TEST_F(WildMetadata, FieldsOfNothingButNullsAreLeftOut) {
    run("Update CatalogadorControles Set ACoKeyControl = '', ACoCaption = Null, ACoTipo = Null");
    open([](frmCatalogador& form) {
        EXPECT_FALSE(form.txtTexto1.visible());
        EXPECT_EQ(form.grdGrilla.rows(), 2);
    });
    EXPECT_TRUE(desk_.takeTold().empty());
}

TEST_F(WildMetadata, TypesThatDoNotFitAreToldOnceEach) {
    run("Update CatalogadorControles Set ACoLen = 'long' Where ACoKeyControl = 'TextoCorto'");
    bool opened = false;
    open([&](frmCatalogador&) { opened = true; });
    EXPECT_TRUE(opened);
    EXPECT_EQ(desk_.takeTold().size(), 1U);
}

TEST_F(WildMetadata, AListingOfOtherColumnsThanTheMetadataSaysShowsWhatFits) {
    run("Update Catalogador Set ABMConsulta = 'Select CTeCodigo From genCodigoTexto'");
    open([](frmCatalogador& form) {
        EXPECT_EQ(form.grdGrilla.rows(), 2);
        EXPECT_EQ(form.grdGrilla.text(1, 0), "");
    });
    run("Update Catalogador Set ABMConsulta = 'Select CTeCodigo, CTeTextoCorto, 2, 3, 4, 5, 6 From "
        "genCodigoTexto'");
    open([](frmCatalogador& form) {
        EXPECT_EQ(form.grdGrilla.text(1, 0), "uno");
        EXPECT_EQ(form.grdGrilla.columns(), 3);
    });
    EXPECT_TRUE(desk_.takeTold().empty());
}

TEST_F(WildMetadata, AListingThatNamesNoRowsOfItsOwnIsToldOnce) {
    run("Update Catalogador Set ABMConsulta = 'Select Nothing From Nowhere'");
    bool opened = false;
    open([&](frmCatalogador& form) {
        opened = true;
        EXPECT_EQ(form.grdGrilla.rows(), 1);
    });
    EXPECT_TRUE(opened);
    EXPECT_EQ(desk_.takeTold().size(), 1U);
}

TEST_F(WildMetadata, AStampThatIsNoDateIsToldOnceAndOpensNothing) {
    for (const char* stamp : {"'0000-00-00 00:00:00'", "'99999-01-01'", "'infinity'", "'x'"}) {
        run("Update genCodigoTexto Set Modificado = " + std::string(stamp));
        open([](frmCatalogador& form) {
            form.grdGrilla.select(1, 0);
            form.commandBars.execute(4);
            EXPECT_EQ(form.modo(), "0");
        });
        EXPECT_EQ(desk_.takeTold().size(), 1U) << stamp;
    }
}

}  // namespace
}  // namespace catalogador
