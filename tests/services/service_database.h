#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "adapters/odbc/odbc_connection.h"
#include "adapters/services/utilities.h"

namespace catalogador::test {

/// A folder that is removed with its owner.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

/// An environment variable that gets its value back.
class EnvironmentChange {
  public:
    EnvironmentChange(std::string name, const char* value);
    ~EnvironmentChange();
    EnvironmentChange(const EnvironmentChange&) = delete;
    EnvironmentChange& operator=(const EnvironmentChange&) = delete;

  private:
    std::string name_;
    bool wasSet_;
    std::string before_;
};

/// A host's connection that is none of this program's own.
class ForeignConnection : public rdoConnection {
  public:
    explicit ForeignConnection(rdoConnection& inner) : inner_(inner) {}
    std::unique_ptr<rdoResultset> OpenResultset(const SqlText& sql, int type, int lock) override {
        return inner_.OpenResultset(sql, type, lock);
    }
    std::int64_t Execute(const SqlText& sql) override { return inner_.Execute(sql); }
    void setListener(StatementListener* listener) override { inner_.setListener(listener); }

  private:
    rdoConnection& inner_;
};

/// A SQLite file with the tables of the services.
class ServiceDatabase : public testing::Test {
  protected:
    ServiceDatabase();
    [[nodiscard]] std::unique_ptr<odbc::OdbcConnection> connect() const;

    TemporaryFolder folder_;
    std::unique_ptr<odbc::OdbcConnection> connection_;
    services::Utilities utilities_{services::Settings("", {}), Regional{}, "/opt/program", nullptr};
};

}  // namespace catalogador::test
