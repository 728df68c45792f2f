#include "adapters/script/state.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "adapters/script/rows.h"
#include "adapters/script/windowless_surface.h"
#include "form/frmCatalogador.h"
#include "plain_services.h"

namespace catalogador::script {
namespace {

class StateOfForm : public testing::Test {
  protected:
    WindowlessSurface surface_;
    PlainUtilities utilities_;
    PlainMessages messages_;
    PlainAccess access_;
    PlainLanguages languages_;
    PlainGridFiles gridFiles_;
    PlainPrinter printer_;
    Host host_{surface_, utilities_, messages_, access_, languages_, gridFiles_, printer_, {}};
    frmCatalogador form_{host_};

    static std::vector<std::string> keysOf(const Json& object) {
        std::vector<std::string> keys;
        for (const auto& item : object.items()) keys.push_back(item.key());
        return keys;
    }
};

TEST_F(StateOfForm, HasEveryKeyInItsOrder) {
    form_.mlngIdVista = 3;
    form_.mlngIdDato = 5;
    form_.mlngIdUltimo = 7;
    const Json state = stateOf(form_, 2, 11);
    EXPECT_EQ(keysOf(state),
              (std::vector<std::string>{
                  "event",   "view",      "depth", "caption", "left",     "top",     "width",
                  "height",  "window",    "mode",  "idDato",  "idUltimo", "focus",   "pointer",
                  "decimal", "thousands", "panel", "fields",  "grid",     "actions", "filter"}));
    EXPECT_EQ(state["view"], 3);
    EXPECT_EQ(state["depth"], 2);
    EXPECT_EQ(state["idDato"], 5);
    EXPECT_EQ(state["idUltimo"], 7);
    EXPECT_EQ(state["pointer"], 11);
    EXPECT_EQ(state["mode"], "0");
    EXPECT_EQ(state["focus"], "");
    EXPECT_EQ(state["window"], "normal");
}

TEST_F(StateOfForm, NamesAllFieldsHiddenOnesToo) {
    EXPECT_EQ(keysOf(stateOf(form_, 1, 0)["fields"]),
              (std::vector<std::string>{"txtTexto1", "txtTexto2", "txtValor1", "txtValor2",
                                        "txtValor3", "cmbValor1", "cmbValor2", "cmbValor3",
                                        "chkValor1", "chkValor2", "chkValor3", "chkValorSiNo"}));
}

TEST_F(StateOfForm, TellsATextFieldWithItsLabelKindAndF2Action) {
    form_.lblTexto2.tag = "2";
    form_.txtTexto2.tag = "21";
    form_.lblTexto2.setCaption("&Nombre");
    form_.lblTexto2.setEnabled(false);
    form_.txtTexto2.setMaxLength(60);
    form_.txtTexto2.setText("España");
    form_.txtTexto2.select(1, 3);
    form_.txtTexto2.setBackColor({0x00DECFCE});
    form_.txtTexto2.move({1200, 95, 3000, 315});
    form_.txtTexto2.setVisible(true);
    const Json field = stateOf(form_, 1, 0)["fields"]["txtTexto2"];
    EXPECT_EQ(lineOf(field),
              "{\"label\":\"&Nombre\",\"labelVisible\":false,\"labelEnabled\":false,"
              "\"labelLeft\":120,\"labelTop\":510,\"labelWidth\":630,"
              "\"visible\":true,\"enabled\":true,\"left\":1200,\"top\":95,\"width\":3000,"
              "\"height\":315,\"text\":\"España\",\"maxLength\":60,\"selStart\":1,\"selLength\":3,"
              "\"tag\":\"21\",\"kind\":\"2\",\"f2\":\"21\",\"backColor\":\"#CECFDE\"}");
}

TEST_F(StateOfForm, TellsTheEntriesOfACombo) {
    form_.lblValor1.tag = "2";
    form_.txtValor1.tag = "1";
    form_.cmbValor1.tag = "724,España";
    form_.cmbValor1.addItem("España", 724);
    form_.cmbValor1.setListIndex(0);
    const Json field = stateOf(form_, 1, 0)["fields"]["cmbValor1"];
    EXPECT_EQ(lineOf(field["items"]), "[[\"España\",724]]");
    EXPECT_EQ(field["index"], 0);
    EXPECT_EQ(field["tag"], "724,España");
    EXPECT_EQ(field["kind"], "2");
    EXPECT_EQ(field["f2"], "1");
}

TEST_F(StateOfForm, TellsTheUseOfTheYesNoBoxFromItsF2Action) {
    form_.chkValorSiNo.setCaption("Activo");
    form_.chkValorSiNo.setValue(1);
    form_.chkValorSiNo.tag = "1";
    Json field = stateOf(form_, 1, 0)["fields"]["chkValorSiNo"];
    EXPECT_EQ(field["label"], "Activo");
    EXPECT_EQ(field["value"], 1);
    EXPECT_EQ(field["kind"], "1");
    EXPECT_EQ(field["f2"], "");
    form_.chkValorSiNo.tag = "[Abrir]";
    field = stateOf(form_, 1, 0)["fields"]["chkValorSiNo"];
    EXPECT_EQ(field["kind"], "[Abrir]");
    EXPECT_EQ(field["f2"], "[Abrir]");
}

TEST_F(StateOfForm, CountsDataRowsWithoutTheHeader) {
    form_.grdGrilla.setFormatString("Nombre|Código|");
    for (int row = 1; row <= 3; ++row) form_.grdGrilla.addRow();
    form_.grdGrilla.setRowHidden(2, true);
    form_.grdGrilla.select(3, 0);
    form_.grdGrilla.setColumnHidden(1, true);
    form_.grdGrilla.sort(0, sort_order::descending);
    const Json grid = stateOf(form_, 1, 0)["grid"];
    EXPECT_EQ(grid["rows"], 3);
    EXPECT_EQ(grid["visible"], 2);
    EXPECT_EQ(grid["row"], 3);
    EXPECT_EQ(lineOf(grid["columns"][1]),
              "{\"header\":\"Código\",\"width\":960,\"hidden\":true,\"boolean\":false}");
    EXPECT_EQ(grid["columns"].size(), 3U);
    EXPECT_EQ(lineOf(grid["sort"]), "{\"column\":0,\"order\":2}");
    EXPECT_EQ(
        keysOf(grid["appearance"]),
        (std::vector<std::string>{"gridLines", "wordWrap", "backColorBkg", "backColorFixed",
                                  "foreColorFixed", "backColorSel", "foreColorSel", "gridColor",
                                  "borderStyle", "headerHeight", "rowHeightMin"}));
}

TEST_F(StateOfForm, KeysActionsByTheirNumber) {
    form_.commandBars.addAction(3, "&Nuevo", "Crea", "", "");
    form_.commandBars.addAction(10, "Filtrar", "", "", "");
    form_.commandBars.setEnabled(3, false);
    form_.commandBars.setChecked(10, true);
    form_.commandBars.setIcon(10, 17);
    EXPECT_EQ(lineOf(stateOf(form_, 1, 0)["actions"]),
              "{\"3\":{\"caption\":\"&Nuevo\",\"tooltip\":\"Crea\",\"enabled\":false,"
              "\"checked\":false,\"icon\":3},"
              "\"10\":{\"caption\":\"Filtrar\",\"tooltip\":\"\",\"enabled\":true,"
              "\"checked\":true,\"icon\":17}}");
}

class PrintedRows : public testing::Test {
  protected:
    PrintedRows() {
        grid_.setFormatString("Nombre|Activo");
        grid_.addExtraColumn(90);
        grid_.setColumnBoolean(1, true);
        for (const char* name : {"Ana", "Bea", "Carla"}) {
            const int row = grid_.addRow();
            grid_.setText(row, 0, name);
            grid_.setCode(row, std::to_string(row * 10));
            grid_.setColumnAlignment(0, 1);
        }
        grid_.setCheck(1, 1, CheckState::checked);
        grid_.setCheck(2, 1, CheckState::unchecked);
        grid_.setRowHidden(2, true);
    }
    std::string printed(int first, int count) {
        std::ostringstream out;
        Transcript transcript(out, false);
        printRows(transcript, grid_, first, count);
        return out.str();
    }

    RecordGrid grid_{"grdGrilla"};
};

TEST_F(PrintedRows, CarryCellsChecksAndHiddenRows) {
    EXPECT_EQ(printed(1, 2),
              "{\"event\":\"rows\",\"rows\":["
              "{\"row\":1,\"code\":\"10\",\"hidden\":false,\"cells\":[\"Ana\",\"\"],"
              "\"checks\":[null,1],\"align\":[1,0]},"
              "{\"row\":2,\"code\":\"20\",\"hidden\":true,\"cells\":[\"Bea\",\"\"],"
              "\"checks\":[null,2],\"align\":[1,0]}]}\n");
    EXPECT_NE(printed(3, 1).find("\"checks\":[null,null]"), std::string::npos);
}

TEST_F(PrintedRows, EndWithTheLastRow) {
    EXPECT_EQ(Json::parse(printed(2, std::numeric_limits<int>::max()))["rows"].size(), 2U);
    EXPECT_EQ(printed(9, 5), "{\"event\":\"rows\",\"rows\":[]}\n");
    EXPECT_EQ(printed(1, 0), "{\"event\":\"rows\",\"rows\":[]}\n");
}

}  // namespace
}  // namespace catalogador::script
