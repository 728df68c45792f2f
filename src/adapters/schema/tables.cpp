#include "adapters/schema/tables.h"

#include <utility>

namespace catalogador::schema {

namespace {

using enum sql::ColumnType;

TableDefinition viewTable() {
    return {"Catalogador",
            {{"ABMIDFormVista", smallInteger, true},
             {"ABMTitulo", text},
             {"ABMNombreVista", name},
             {"ABMConsulta", statement},
             {"ABMColumnasNombre", longText},
             {"ABMColumnasAncho", longText},
             {"ABMColumnasAlineacion", longText},
             {"ABMAnchoForm", single},
             {"ABMSQLValidarDuplicados", statement},
             {"ABMIDAyuda", smallInteger},
             {"ABMValidarAcceso", text}},
            "ABMIDFormVista"};
}

// No key: a field may have several rows, of which the later one adds to the earlier.
TableDefinition fieldTable() {
    return {"CatalogadorControles",
            {{"ACoIDFormVista", smallInteger, true},
             {"ACoKeyControl", name, true},
             {"ACoCaption", text},
             {"ACoLen", integer},
             {"ACoObligatorio", smallInteger},
             {"ACoDuplicado", smallInteger},
             {"ACoAccionF2", name},
             {"ACoTipo", smallInteger},
             {"ACoDatosCombo", statement}},
            {},
            {{"CatalogadorControlesVista", "ACoIDFormVista"}}};
}

TableDefinition recordTable() {
    return {"genCodigoTexto",
            {{"CTeIDTipoVista", smallInteger, true},
             {"CTeCodigo", integer, true},
             {"CTeTextoCorto", text},
             {"CTeTextoLargo", longText},
             {"CTeValor1", number},
             {"CTeValor2", number},
             {"CTeValor3", number},
             {"CTeSiNo1", yesNo},
             {"Modificado", dateTime}},
            "CTeIDTipoVista, CTeCodigo",
            {{"genCodigoTextoCorto", "CTeIDTipoVista, CTeTextoCorto"}}};
}

std::vector<TableDefinition> referenceTables() {
    return {{"genListas",
             {{"LisIDLista", smallInteger, true},
              {"LisIDClave", integer, true},
              {"LisLista", statement}},
             "LisIDLista, LisIDClave"},
            {"genForaneas",
             {{"ForTablaAControlar", name, true},
              {"ForSQLForanea", statement},
              {"ForMensaje", longText},
              {"ForSQLUpdate", statement},
              {"ForOrdenSQL", integer}},
             {},
             {{"genForaneasTabla", "ForTablaAControlar, ForOrdenSQL"}}},
            {"genClasificacionesEntes",
             {{"ClaCodigo", integer, true}, {"ClaNombre", text}},
             "ClaCodigo"},
            {"cceImpuestos",
             {{"ImpCodigo", integer, true}, {"ImpPosTblReceta", smallInteger}},
             "ImpCodigo"}};
}

std::vector<TableDefinition> serviceTables() {
    return {
        {"genNumeradores", {{"NumNombre", name, true}, {"NumUltimo", integer, true}}, "NumNombre"},
        {"accUsuarios", {{"UsuID", integer, true}, {"UsuNombre", name, true}}, "UsuID"},
        {"accPermisos",
         {{"PerUsuID", integer, true},
          {"PerOpcion", name, true},
          {"PerEmpresa", smallInteger, true},
          {"PerDerechos", name}},
         "PerUsuID, PerOpcion, PerEmpresa"}};
}

std::vector<TableDefinition> allTables() {
    std::vector<TableDefinition> tables{viewTable(), fieldTable(), recordTable()};
    for (auto more : {referenceTables, serviceTables}) {
        for (auto& table : more()) tables.push_back(std::move(table));
    }
    return tables;
}

}  // namespace

const std::vector<TableDefinition>& schemaTables() {
    static const std::vector<TableDefinition> tables = allTables();
    return tables;
}

int longestText(sql::ColumnType type) {
    switch (type) {
        case name:
            return 100;
        case text:
            return 255;
        case longText:
            return 2000;
        default:
            return 0;
    }
}

}  // namespace catalogador::schema
