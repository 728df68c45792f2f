#pragma once
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/rdo.h"

namespace catalogador::test {

/// A connection to a database of one of the kinds of OwnDatabase, as a screen has it; `free` for
/// somebody who may do anything with it.
std::unique_ptr<rdoConnection> connectTo(const std::string& connectionString, bool free = false);

/// How many sessions the server has in the connection's database; 0 for a file.
int sessionsIn(rdoConnection& connection);

/// An empty database of the given kind with the tables of the system and the views of these tests,
/// gone with its owner. All of it is done by processes of their own, so that the owner may fork.
class OwnDatabase {
  public:
    /// `kind` is sqlite, sqlite-odbc, postgresql, mariadb or galera; nullptr when no server of that
    /// kind is there.
    static std::unique_ptr<OwnDatabase> create(const std::string& kind);
    ~OwnDatabase();
    OwnDatabase(const OwnDatabase&) = delete;
    OwnDatabase& operator=(const OwnDatabase&) = delete;

    /// One; of a cluster one for each node, which names the other nodes after it.
    [[nodiscard]] const std::vector<std::string>& connectionStrings() const {
        return connectionStrings_;
    }

  private:
    OwnDatabase() = default;
    bool prepare(const std::string& kind);

    std::filesystem::path folder_;
    std::string server_;
    std::string name_;
    std::vector<std::string> connectionStrings_;
};

/// A view whose records have a short text and the first value, and lists only the latest.
constexpr std::int16_t viewOfNew = 90;
/// A view that lists all records, which have every text and value.
constexpr std::int16_t viewOfAll = 91;
/// Rows that refer to records of viewOfAll: their first value is the record's code.
constexpr std::int16_t viewOfDetails = 92;
/// Rows that a follow-up rule of viewOfAll changes: their second value becomes 1.
constexpr std::int16_t viewOfMarked = 93;

}  // namespace catalogador::test
