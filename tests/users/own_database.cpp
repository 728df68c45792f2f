#include "own_database.h"

#include <unistd.h>

#include <array>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "../sql/dialects.h"
#include "adapters/odbc/odbc_connection.h"
#include "adapters/schema/schema.h"
#include "adapters/sqlite/connection.h"
#include "processes.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::test {

namespace {

/// Before the name of a file that is opened without a driver.
const std::string filePrefix = "sqlite:";

std::string withDatabase(std::string connection, const std::string& name) {
    const std::size_t start = connection.find("Database=");
    const std::size_t end = std::min(connection.find(';', start), connection.size());
    return connection.replace(start, end - start, "Database=" + name);
}

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream lines(text);
    std::vector<std::string> all;
    for (std::string line; std::getline(lines, line);)
        if (!line.empty()) all.push_back(line);
    return all;
}

std::vector<std::string> contents() {
    const std::string fields =
        "Insert Into CatalogadorControles (ACoIDFormVista, ACoKeyControl, ACoCaption, ACoTipo) "
        "Values ";
    return {
        "Insert Into Catalogador (ABMIDFormVista, ABMTitulo, ABMNombreVista, ABMConsulta, "
        "ABMColumnasNombre, ABMColumnasAncho, ABMColumnasAlineacion, ABMAnchoForm) Values (90, "
        "'Nuevos', "
        "'Nuevos', 'Select CTeCodigo, CTeTextoCorto From genCodigoTexto Where CTeIDTipoVista = 90 "
        "And CTeCodigo > (Select NumUltimo - 20 From genNumeradores Where NumNombre = "
        "''Nuevos'')', 'Texto', '3000', '1', 5000)",
        "Insert Into Catalogador (ABMIDFormVista, ABMTitulo, ABMNombreVista, ABMConsulta, "
        "ABMColumnasNombre, ABMColumnasAncho, ABMColumnasAlineacion, ABMAnchoForm) Values (91, "
        "'Todos', "
        "'Todos', 'Select CTeCodigo, CTeTextoCorto From genCodigoTexto Where CTeIDTipoVista = 91', "
        "'Texto', '3000', '1', 5000)",
        fields + "(90, 'TextoCorto', 'Texto:', Null), (90, 'Valor1', 'Valor:', 1)",
        fields +
            "(91, 'TextoCorto', 'Texto:', Null), (91, 'TextoLargo', 'Largo:', Null), (91, "
            "'Valor1', 'Uno:', 1), (91, 'Valor2', 'Dos:', 1), (91, 'Valor3', 'Tres:', 1)",
        "Insert Into genNumeradores Values ('Nuevos', 0)",
        "Insert Into genNumeradores Values ('Todos', 0)",
        "Insert Into genForaneas (ForTablaAControlar, ForSQLForanea, ForMensaje, ForSQLUpdate, "
        "ForOrdenSQL) Values ('Todos', 'Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista "
        "= 92 And CTeValor1 = [prmID]', 'Se eliminan los detalles', 'Select * From genCodigoTexto "
        "Where CTeIDTipoVista = 92 And CTeValor1 = [prmID]', 1)",
        "Insert Into genForaneas (ForTablaAControlar, ForSQLForanea, ForMensaje, ForSQLUpdate, "
        "ForOrdenSQL) Values ('Todos', 'Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista "
        "= 93 And CTeValor1 = [prmID]', '', 'Update genCodigoTexto Set CTeValor2 = 1 Where "
        "CTeIDTipoVista = 93 And CTeValor1 = [prmID]', 2)"};
}

/// At another desk, so that this process has no connection to hand down.
void run(const std::string& connectionString, const std::vector<std::string>& statements) {
    const int status = inProcess([&] {
        const auto connection = connectTo(connectionString, true);
        for (const std::string& sql : statements) connection->session()->run(sql);
        return 0;
    });
    if (status != 0) throw std::runtime_error("the database could not be made");
}

}  // namespace

std::unique_ptr<rdoConnection> connectTo(const std::string& connectionString, bool free) {
    if (!connectionString.starts_with(filePrefix))
        return odbc::OdbcConnection::open(connectionString);
    return sqlite::Connection::open(connectionString.substr(filePrefix.size()), {},
                                    free ? sqlite::Opening::created : sqlite::Opening::guarded);
}

int sessionsIn(rdoConnection& connection) {
    std::string sql;
    const rdoDialect& dialect = connection.session()->dialect();
    if (dialect == dialects::postgresql)
        sql =
            "Select Count(*) From pg_stat_activity Where datname = current_database() And "
            "backend_type = 'client backend'";
    if (dialect == dialects::mariadb)
        sql = "Select Count(*) From information_schema.processlist Where db = Database()";
    if (sql.empty()) return 0;
    return toLong(connection.session()->query(sql).at(0).at(0), Regional{});
}

std::unique_ptr<OwnDatabase> OwnDatabase::create(const std::string& kind) {
    std::unique_ptr<OwnDatabase> database(new OwnDatabase());
    if (!database->prepare(kind)) return nullptr;
    const std::string dialect = kind == "galera" ? "mariadb" : kind.substr(0, kind.find('-'));
    std::vector<std::string> statements = schema::schemaStatementList(*sql::dialectNamed(dialect));
    for (std::string& sql : contents()) statements.push_back(std::move(sql));
    run(database->connectionStrings().front(), statements);
    return database;
}

bool OwnDatabase::prepare(const std::string& kind) {
    if (kind.starts_with("sqlite")) {
        std::string pattern = (std::filesystem::temp_directory_path() / "users-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
        folder_ = pattern;
        const std::string file = folder_ / "users.db";
        connectionStrings_ = {kind == "sqlite"
                                  ? filePrefix + file
                                  : odbc::OdbcConnection::sqliteConnectionString(file)};
        return true;
    }
    const char* given = std::getenv(("CATALOGADOR_TEST_" + upperCase(kind)).c_str());
    if (given == nullptr) return false;
    std::vector<std::string> servers = linesOf(given);
    server_ = servers.at(0);
    name_ = "users_" + decimalText(getpid());
    run(server_, {"Drop Database If Exists " + name_, "Create Database " + name_});
    for (const std::string& server : servers)
        connectionStrings_.push_back(withDatabase(server, name_));
    return true;
}

OwnDatabase::~OwnDatabase() {
    try {
        if (!name_.empty()) run(server_, {"Drop Database " + name_});
    } catch (const std::exception&) {
        // The server may be gone; it is a test's own and ends with it.
    }
    std::error_code ignored;
    if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

}  // namespace catalogador::test
