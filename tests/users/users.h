#pragma once
#include <atomic>
#include <string>
#include <vector>

#include "platform/rdo.h"

namespace catalogador::test {

/// The most sessions that any of the users saw in the database when its work was done.
class SessionCount {
  public:
    void look(rdoConnection& connection);
    [[nodiscard]] int most() const { return most_; }
    /// One for each user, and those that the server is still ending.
    [[nodiscard]] bool isFlat(int users) const { return most_ <= users + 2; }

  private:
    std::atomic<int> most_;
};

/// Each does its work on a fresh database, prints its figures and gives 0 when all is well.

/// `users` processes draw and save `records` new records in all, each in its own screen. The users
/// are shared out among the connections. Where the servers are not steady one save in ten may be
/// refused, or told as not known. No user may leave sessions behind.
int newRecords(const std::vector<std::string>& connections, int records, int users, bool steady);
/// `users` processes add 1 to the same 50 records for so many seconds.
int sameRecords(const std::vector<std::string>& connections, int seconds, int users, bool steady);
/// A row is changed so often, at one desk after the other, and read at all of them at once.
int seen(const std::vector<std::string>& connections, int times);
/// A process that saves or deletes is killed `kills` times, each at a random moment.
int kills(const std::string& connection, int kills, unsigned seed);

}  // namespace catalogador::test
