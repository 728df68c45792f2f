#include <iostream>

#include "own_database.h"
#include "runtime/convert.h"
#include "users.h"

namespace catalogador::test {

int seen(const std::vector<std::string>& connections, int times) {
    std::vector<std::unique_ptr<rdoConnection>> desks;
    for (const std::string& connection : connections) desks.push_back(connectTo(connection));
    int missed = 0;
    for (int time = 0; time < times; ++time) {
        const auto writer = static_cast<std::size_t>(time) % desks.size();
        desks[writer]->Execute(
            "Update genNumeradores Set NumUltimo = NumUltimo + 1 Where NumNombre = 'Todos'");
        for (const auto& desk : desks) {
            const auto rows = desk->OpenResultset(
                "Select NumUltimo From genNumeradores Where NumNombre = 'Todos'");
            missed += toLong(rows->value(0), Regional{}) == time + 1 ? 0 : 1;
        }
    }
    std::cout << desks.size() << " desks, " << times << " changes, " << missed
              << " times a desk did not see what another had stored" << std::endl;
    return missed == 0 ? 0 : 1;
}

}  // namespace catalogador::test
