#include "service_database.h"

#include <cstdlib>
#include <stdexcept>

namespace catalogador::test {

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "services-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

EnvironmentChange::EnvironmentChange(std::string name, const char* value)
    : name_(std::move(name)), wasSet_(std::getenv(name_.c_str()) != nullptr) {
    if (wasSet_) before_ = std::getenv(name_.c_str());
    if (value != nullptr)
        setenv(name_.c_str(), value, 1);
    else
        unsetenv(name_.c_str());
}

EnvironmentChange::~EnvironmentChange() {
    if (wasSet_)
        setenv(name_.c_str(), before_.c_str(), 1);
    else
        unsetenv(name_.c_str());
}

ServiceDatabase::ServiceDatabase() : connection_(connect()) {
    connection_->session()->run(
        "CREATE TABLE genNumeradores (NumNombre VARCHAR(100) PRIMARY KEY, NumUltimo INTEGER)");
    connection_->session()->run(
        "CREATE TABLE accUsuarios (UsuID INTEGER PRIMARY KEY, UsuNombre VARCHAR(100))");
    connection_->session()->run(
        "CREATE TABLE accPermisos (PerUsuID INTEGER, PerOpcion VARCHAR(100), PerEmpresa SMALLINT, "
        "PerDerechos VARCHAR(100))");
}

std::unique_ptr<odbc::OdbcConnection> ServiceDatabase::connect() const {
    return odbc::OdbcConnection::open(
        odbc::OdbcConnection::sqliteConnectionString((folder_.path() / "services.db").string()));
}

}  // namespace catalogador::test
