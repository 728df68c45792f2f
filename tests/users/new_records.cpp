#include <atomic>
#include <chrono>
#include <iostream>

#include "desk.h"
#include "modules/modIds.h"
#include "own_database.h"
#include "processes.h"
#include "runtime/convert.h"
#include "runtime/text.h"
#include "users.h"

namespace catalogador::test {

namespace {

struct Counts {
    std::atomic<long> saved;
    std::atomic<long> told;
};

int saveNewOnes(const std::string& connection, int user, int records, Counts& counts) {
    Desk desk(connectTo(connection));
    desk.open(viewOfNew, [&](frmCatalogador& form) {
        for (int i = 0; i < records; ++i) {
            form.commandBars.execute(action::create);
            form.txtTexto1.setText("User " + decimalText(user) + ", record " + decimalText(i));
            form.txtValor1.setText(decimalText(user));
            form.commandBars.execute(action::save);
            if (form.modo() == "0") ++counts.saved;
            for (const std::string& text : desk.takeTold()) {
                ++counts.told;
                std::cerr << "user " << user << " was told: " << text << std::endl;
            }
            if (form.modo() != "0") form.commandBars.execute(action::cancel);
        }
    });
    return 0;
}

std::int64_t number(rdoConnection& connection, const std::string& sql) {
    return toLong(connection.session()->query(sql).at(0).at(0), Regional{});
}

}  // namespace

int newRecords(const std::string& connection, int records, int users) {
    auto& counts = shared<Counts>();
    const auto start = std::chrono::steady_clock::now();
    std::vector<pid_t> processes;
    for (int user = 0; user < users; ++user) {
        const int share = records / users + (user < records % users ? 1 : 0);
        processes.push_back(startProcess(
            [&, user, share] { return saveNewOnes(connection, user, share, counts); }));
    }
    int failed = 0;
    for (const pid_t process : processes) failed += statusOf(process) != 0 ? 1 : 0;
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;

    return inProcess([&] {
        const auto database = connectTo(connection);
        const std::string where = " From genCodigoTexto Where CTeIDTipoVista = 90";
        const std::int64_t rows = number(*database, "Select Count(*)" + where);
        const std::int64_t codes = number(*database, "Select Count(Distinct CTeCodigo)" + where);
        const std::int64_t texts =
            number(*database, "Select Count(Distinct CTeTextoCorto)" + where);
        const std::int64_t last =
            number(*database, "Select NumUltimo From genNumeradores Where NumNombre = 'Nuevos'");
        std::cout << users << " users, " << records << " new records: " << counts.saved
                  << " saved, " << rows << " rows, " << codes << " different codes, " << texts
                  << " different texts, last code " << last << ", " << counts.told
                  << " errors told, " << failed << " processes failed, " << took.count() << " s"
                  << std::endl;
        const bool good = failed == 0 && counts.told == 0 && counts.saved == records &&
                          rows == records && codes == records && texts == records &&
                          last == records;
        return good ? 0 : 1;
    });
}

}  // namespace catalogador::test
