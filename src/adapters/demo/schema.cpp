#include "adapters/demo/schema.h"

#include <array>
#include <cstddef>
#include <utility>

namespace catalogador {

namespace {

enum class ColumnType {
    smallInteger,
    integer,
    single,
    number,
    name,
    text,
    longText,
    statement,
    yesNo,
    dateTime,
    count
};

constexpr std::size_t dialectCount = 3;
using TypeNames = std::array<std::string_view, dialectCount>;

// Numbers are approximate where an exact type would show decimals nobody typed ("724.0000"), and
// NUMERIC on SQLite, which keeps whole numbers whole. A bit is what the drivers report as a bit.
// Keys need a length on MariaDB, and TIMESTAMP would change by itself there. Stamps keep
// microseconds, or two saves within a second would look like one.
constexpr std::array<TypeNames, static_cast<std::size_t>(ColumnType::count)> typeNames{{
    {"SMALLINT", "SMALLINT", "SMALLINT"},
    {"INTEGER", "INTEGER", "INT"},
    {"REAL", "REAL", "FLOAT"},
    {"NUMERIC", "DOUBLE PRECISION", "DOUBLE"},
    {"VARCHAR(100)", "VARCHAR(100)", "VARCHAR(100)"},
    {"VARCHAR(255)", "VARCHAR(255)", "VARCHAR(255)"},
    {"VARCHAR(2000)", "VARCHAR(2000)", "VARCHAR(2000)"},
    {"TEXT", "TEXT", "TEXT"},
    {"BIT", "BOOLEAN", "BIT(1)"},
    {"TIMESTAMP", "TIMESTAMP(6)", "DATETIME(6)"},
}};

struct Column {
    std::string_view name;
    ColumnType type;
    bool required = false;
};

struct Index {
    std::string_view name;
    std::string_view columns;
};

struct Table {
    std::string_view name;
    std::vector<Column> columns;
    std::string_view primaryKey = {};
    std::vector<Index> indexes = {};
};

using enum ColumnType;

Table viewTable() {
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
Table fieldTable() {
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

Table recordTable() {
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

std::vector<Table> referenceTables() {
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

std::vector<Table> serviceTables() {
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

std::vector<Table> allTables() {
    std::vector<Table> tables{viewTable(), fieldTable(), recordTable()};
    for (auto more : {referenceTables, serviceTables}) {
        for (auto& table : more()) tables.push_back(std::move(table));
    }
    return tables;
}

std::string createTable(const Table& table, SchemaDialect dialect) {
    std::string sql = "CREATE TABLE " + std::string(table.name) + " (";
    std::string_view separator = "\n    ";
    for (const Column& column : table.columns) {
        sql += separator;
        sql += column.name;
        sql += " ";
        sql += typeNames.at(static_cast<std::size_t>(column.type))
                   .at(static_cast<std::size_t>(dialect));
        sql += column.required ? " NOT NULL" : " NULL";
        separator = ",\n    ";
    }
    if (!table.primaryKey.empty())
        sql += ",\n    PRIMARY KEY (" + std::string(table.primaryKey) + ")";
    sql += "\n)";
    // Texts of any language, whatever the server's default is.
    if (dialect == SchemaDialect::mariadb) sql += " CHARACTER SET utf8mb4";
    return sql;
}

}  // namespace

std::optional<SchemaDialect> dialectFromName(std::string_view name) {
    constexpr std::array<std::pair<std::string_view, SchemaDialect>, dialectCount> names{
        {{"sqlite", SchemaDialect::sqlite},
         {"postgresql", SchemaDialect::postgresql},
         {"mariadb", SchemaDialect::mariadb}}};
    for (const auto& [text, dialect] : names) {
        if (text == name) return dialect;
    }
    return std::nullopt;
}

std::vector<std::string> schemaStatementList(SchemaDialect dialect) {
    std::vector<std::string> statements;
    for (const Table& table : allTables()) {
        statements.push_back(createTable(table, dialect));
        for (const Index& index : table.indexes) {
            statements.push_back("CREATE INDEX " + std::string(index.name) + " ON " +
                                 std::string(table.name) + " (" + std::string(index.columns) + ")");
        }
    }
    return statements;
}

std::string schemaStatements(SchemaDialect dialect) {
    std::string text;
    for (const std::string& statement : schemaStatementList(dialect)) text += statement + ";\n";
    return text;
}

}  // namespace catalogador
