#include "own_database.h"
#include "users.h"

namespace catalogador::test {

void SessionCount::look(rdoConnection& connection) {
    const int seen = sessionsIn(connection);
    int most = most_;
    while (seen > most && !most_.compare_exchange_weak(most, seen)) {
    }
}

}  // namespace catalogador::test
