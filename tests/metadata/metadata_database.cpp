#include "metadata_database.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "adapters/odbc/odbc_connection.h"
#include "adapters/sqlite/connection.h"
#include "runtime/text.h"

namespace catalogador::test {

namespace {

std::string withDatabase(std::string connection, const std::string& name) {
    const std::size_t start = connection.find("Database=");
    const std::size_t end = std::min(connection.find(';', start), connection.size());
    return connection.replace(start, end - start, "Database=" + name);
}

constexpr int characterWidth = 105;

}  // namespace

std::vector<std::string> cleanViews() {
    const std::string view =
        "Insert Into Catalogador (ABMIDFormVista, ABMTitulo, ABMNombreVista, ABMAnchoForm, "
        "ABMConsulta, ABMColumnasNombre, ABMColumnasAncho, ABMColumnasAlineacion, "
        "ABMSQLValidarDuplicados, ABMIDAyuda, ABMValidarAcceso) Values ";
    const std::string field =
        "Insert Into CatalogadorControles (ACoIDFormVista, ACoKeyControl, ACoCaption, ACoLen, "
        "ACoObligatorio, ACoDuplicado, ACoAccionF2, ACoTipo, ACoDatosCombo) Values ";
    const std::string record =
        "Insert Into genCodigoTexto (CTeIDTipoVista, CTeCodigo, CTeTextoCorto, CTeTextoLargo, "
        "CTeValor1, CTeValor2, CTeValor3) Values ";
    const std::string rule =
        "Insert Into genForaneas (ForTablaAControlar, ForSQLForanea, ForMensaje, ForSQLUpdate, "
        "ForOrdenSQL) Values ";
    return {view +
                "(41, 'Units of measure', 'Units', 8000, "
                "'Select u.CTeCodigo, u.CTeTextoCorto, u.CTeTextoLargo, b.CTeTextoCorto As Base, "
                "u.CTeSiNo1 From genCodigoTexto u Left Join genCodigoTexto b On b.CTeIDTipoVista = "
                "41 And b.CTeCodigo = u.CTeValor3 Where u.CTeIDTipoVista = 41', "
                "'Symbol|Unit|Base|SI', '1000|4000|1000|700', '1|1|1|4', "
                "'Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 41 And CTeCodigo <> "
                "[Codigo] And CTeTextoLargo = ''[TextoLargo]'' And CTeValor2 = [Valor2]', 10, "
                "'Units|M|0')",
            view +
                "(42, 'Colours', 'Colours', 6000, 'Select CTeCodigo, CTeTextoCorto From "
                "genCodigoTexto Where CTeIDTipoVista = 42', 'Colour', '3000', '1', Null, Null, "
                "Null)",
            view +
                "(43, 'Shops', 'Shops', 6000, 'Select CTeCodigo, CTeTextoCorto From genCodigoTexto "
                "Where CTeIDTipoVista = 43 And CTeValor1 = [prmIdEmpresa]', 'Shop', '3000', '1', "
                "Null, Null, Null)",
            field + "(41, 'TextoCorto', '&Symbol:', 8, 1, 1, Null, Null, Null)",
            field + "(41, 'TextoLargo', '&Unit:', 60, 1, 0, Null, Null, Null)",
            field + "(41, 'Valor1', '&Decimals:', 1, 0, 0, Null, 1, Null)",
            field + "(41, 'Valor2', '&Kind:', Null, 1, 0, Null, 2, '1,Length;2,Mass;3,Time')",
            field +
                "(41, 'Valor3', '&Base unit:', Null, 0, 0, '41', 2, 'Select CTeCodigo, "
                "CTeTextoCorto From genCodigoTexto Where CTeIDTipoVista = 41')",
            field + "(41, 'ValorSiNo', 'Unit of the S&I', Null, 0, 0, Null, Null, '1')",
            field + "(42, 'TextoCorto', '&Colour:', 20, 1, 1, Null, Null, Null)",
            field + "(43, 'TextoCorto', '&Shop:', 20, 1, 0, '42', Null, Null)",
            field +
                "(43, 'Valor2', '&Colour:', Null, 0, 0, '42', 2, 'select CTeCodigo, CTeTextoCorto "
                "From genCodigoTexto Where CTeIDTipoVista = 42 And [prmIdEmpresa] > 0')",
            record + "(41, 1, 'm', 'metre', 2, 1, Null)",
            record + "(41, 2, 'g', 'gram', 0, 2, Null)",
            record + "(41, 3, 'km', 'kilometre', 0, 1, 1)",
            record + "(42, 1, 'red', Null, Null, Null, Null)",
            record + "(42, 2, 'green', Null, Null, Null, Null)",
            record + "(42, 3, 'blue', Null, Null, Null, Null)",
            record + "(43, 1, 'North', Null, 1, 2, Null)",
            record + "(43, 2, 'South', Null, 2, 3, Null)",
            "Insert Into genNumeradores (NumNombre, NumUltimo) Values ('Units', 3)",
            "Insert Into genNumeradores (NumNombre, NumUltimo) Values ('Colours', 7)",
            "Insert Into genNumeradores (NumNombre, NumUltimo) Values ('Shops', 2)",
            rule +
                "('Units', 'Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 41 And "
                "CTeValor3 = [prmID] And [prmID1] = [prmID1]', 'Leave them without a base?', "
                "'Update genCodigoTexto Set CTeValor3 = Null Where CTeIDTipoVista = 41 And "
                "CTeValor3 = [prmID]', 1)",
            rule +
                "('Colours', 'Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 43 And "
                "CTeValor2 = [prmID]', 'A shop has the colour.', '', 1)",
            rule +
                "('genCodigoTexto', 'Select LisIDLista From genListas Where LisIDClave = [prmID]', "
                "'', 'Select * From genListas Where LisIDClave = [prmID]', 1)",
            "Insert Into accUsuarios (UsuID, UsuNombre) Values (1, 'ana')",
            "Insert Into accPermisos (PerUsuID, PerOpcion, PerEmpresa, PerDerechos) Values (1, "
            "'Units', 0, 'abm')"};
}

std::unique_ptr<MetadataDatabase> MetadataDatabase::create(const std::string& kind) {
    auto database = createEmpty(kind);
    if (!database) return nullptr;
    database->run(schema::schemaStatementList(database->dialect()));
    database->fill();
    return database;
}

std::unique_ptr<MetadataDatabase> MetadataDatabase::createEmpty(const std::string& kind) {
    std::unique_ptr<MetadataDatabase> database(new MetadataDatabase());
    database->dialect_ = sql::dialectNamed(kind);
    if (kind == "sqlite") {
        std::string pattern = (std::filesystem::temp_directory_path() / "metadata-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
        database->folder_ = pattern;
        database->connection_ =
            sqlite::Connection::open(database->file().string(), {}, sqlite::Opening::created);
        database->checked_ = sqlite::Connection::open(database->file().string());
    } else {
        const char* given = std::getenv(("CATALOGADOR_TEST_" + upperCase(kind)).c_str());
        if (given == nullptr) return nullptr;
        database->server_ = given;
        database->name_ = "metadata_" + decimalText(getpid());
        const auto server = odbc::OdbcConnection::open(database->server_);
        server->session()->run("Drop Database If Exists " + database->name_);
        server->session()->run("Create Database " + database->name_);
        const std::string own = withDatabase(database->server_, database->name_);
        // Bodies of functions hold several commands.
        database->connection_ =
            odbc::OdbcConnection::open(own, {}, {.reading = false, .engine = false});
        database->checked_ = odbc::OdbcConnection::open(own);
    }
    return database;
}

MetadataDatabase::~MetadataDatabase() {
    connection_.reset();
    checked_.reset();
    try {
        if (!name_.empty())
            odbc::OdbcConnection::open(server_)->session()->run("Drop Database " + name_);
    } catch (const std::exception&) {
        // The server is a test's own and ends with it.
    }
    std::error_code ignored;
    if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

void MetadataDatabase::run(const std::vector<std::string>& statements) {
    rdoTransaction transaction(*connection_->session());
    for (const std::string& sql : statements) run(sql);
    transaction.commit();
}

void MetadataDatabase::fill() {
    std::vector<std::string> statements;
    for (const char* table : {"Catalogador", "CatalogadorControles", "genCodigoTexto", "genListas",
                              "genForaneas", "genNumeradores", "accUsuarios", "accPermisos"})
        statements.push_back("Delete From " + std::string(table));
    for (std::string& sql : cleanViews()) statements.push_back(std::move(sql));
    run(statements);
}

std::vector<checks::Finding> MetadataDatabase::findings(const std::vector<std::int64_t>& views) {
    checks::CheckOptions options;
    options.views = views;
    options.helpPages = std::set<std::int64_t>{10, 11};
    options.textWidth = [](std::string_view text) {
        return static_cast<int>(lengthInCharacters(text)) * characterWidth;
    };
    return checks::checkMetadata(*checked_, options).findings;
}

std::string textOf(const checks::Finding& finding) {
    const checks::Place& place = finding.place;
    return checks::idOf(finding.number) + " " + std::string(nameOf(finding.kind().severity)) + " " +
           (place.view ? decimalText(*place.view) : "-") + " " + place.table + "." + place.column +
           " " + place.key;
}

}  // namespace catalogador::test
