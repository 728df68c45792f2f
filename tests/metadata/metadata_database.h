#pragma once
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "../sql/dialects.h"
#include "adapters/checks/checks.h"
#include "adapters/schema/schema.h"
#include "platform/rdo.h"

namespace catalogador::test {

/// A database of its own with every table, gone with its owner.
class MetadataDatabase {
  public:
    /// `kind` is sqlite, postgresql or mariadb; nullptr when no server of that kind is there.
    static std::unique_ptr<MetadataDatabase> create(const std::string& kind);
    /// The same without any table.
    static std::unique_ptr<MetadataDatabase> createEmpty(const std::string& kind);
    ~MetadataDatabase();
    MetadataDatabase(const MetadataDatabase&) = delete;
    MetadataDatabase& operator=(const MetadataDatabase&) = delete;

    [[nodiscard]] rdoConnection& connection() { return *connection_; }
    /// The connection that is checked; nothing else is done with it.
    [[nodiscard]] rdoConnection& checked() { return *checked_; }
    [[nodiscard]] const sql::Dialect& dialect() const { return *dialect_; }
    /// The file of a SQLite database.
    [[nodiscard]] std::filesystem::path file() const { return folder_ / "metadata.db"; }

    void run(const std::string& sql) { connection_->session()->run(sql); }
    void run(const std::vector<std::string>& statements);
    /// All rows gone but those of the views below.
    void fill();
    [[nodiscard]] std::vector<checks::Finding> findings(
        const std::vector<std::int64_t>& views = {});

  private:
    MetadataDatabase() = default;

    const sql::Dialect* dialect_ = &dialects::sqlite;
    std::filesystem::path folder_;
    std::string server_;
    std::string name_;
    std::unique_ptr<rdoConnection> connection_;
    /// As the program opens the database.
    std::unique_ptr<rdoConnection> checked_;
};

/// What the views of the tests are made of: units (41), in which mistakes are made, colours (42)
/// and shops (43), which are kept per company.
std::vector<std::string> cleanViews();

/// "CAT012 error 41 Catalogador.ABMConsulta Valor1".
std::string textOf(const checks::Finding& finding);

}  // namespace catalogador::test
