#pragma once
#include <string>
#include <vector>

namespace catalogador::test {

/// Each does its work on a fresh database, prints its figures and gives 0 when all is well.

/// `users` processes draw and save `records` new records in all, each in its own screen. The users
/// are shared out among the connections. Where the servers are not steady a save may be refused,
/// or told as not known.
int newRecords(const std::vector<std::string>& connections, int records, int users, bool steady);
/// `users` processes add 1 to the same 50 records for so many seconds.
int sameRecords(const std::vector<std::string>& connections, int seconds, int users, bool steady);
/// A process that saves or deletes is killed `kills` times, each at a random moment.
int kills(const std::string& connection, int kills, unsigned seed);

}  // namespace catalogador::test
