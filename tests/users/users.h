#pragma once
#include <string>

namespace catalogador::test {

/// Each does its work on a fresh database, prints its figures and gives 0 when all is well.

/// `users` processes draw and save `records` new records in all, each in its own screen.
int newRecords(const std::string& connection, int records, int users);
/// `users` processes add 1 to the same 50 records for so many seconds.
int sameRecords(const std::string& connection, int seconds, int users);
/// A process that saves or deletes is killed `kills` times, each at a random moment.
int kills(const std::string& connection, int kills, unsigned seed);

}  // namespace catalogador::test
