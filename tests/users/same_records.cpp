#include <atomic>
#include <chrono>
#include <iostream>
#include <random>

#include "desk.h"
#include "modules/modIds.h"
#include "own_database.h"
#include "processes.h"
#include "runtime/convert.h"
#include "runtime/text.h"
#include "users.h"

namespace catalogador::test {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int recordCount = 50;

struct Counts {
    std::atomic<long> saved;
    std::atomic<long> refused;
    /// Saves that were refused without exactly one message, or told something and saved all the
    /// same.
    std::atomic<long> wronglyTold;
    std::atomic<long> notOpened;
    std::atomic<long> unknown;
    SessionCount sessions;
};

/// Adds 1 to the first value of the record, as a user who reads it on the screen.
void addOne(Desk& desk, frmCatalogador& form, int code, Counts& counts) {
    form.grdGrilla.select(form.grdGrilla.findCode(code), 0);
    form.commandBars.execute(action::modify);
    if (form.modo() != "2") {
        ++counts.notOpened;
        for (const std::string& text : desk.takeTold()) std::cerr << "told: " << text << std::endl;
        return;
    }
    form.txtValor1.setText(decimalText(std::stol(form.txtValor1.text()) + 1));
    form.commandBars.execute(action::save);
    const auto told = desk.takeTold();
    const bool saved = form.modo() == "0";
    ++(saved ? counts.saved : Desk::isUnknown(told) ? counts.unknown : counts.refused);
    if (told.size() != (saved ? 0U : 1U)) {
        ++counts.wronglyTold;
        std::cerr << (saved ? "saved" : "refused") << ", told " << told.size() << " times";
        for (const std::string& text : told) std::cerr << "; " << text;
        std::cerr << std::endl;
    }
    if (!saved) form.commandBars.execute(action::cancel);
}

void fill(const std::string& connection) {
    inProcess([&] {
        const auto database = connectTo(connection);
        for (int code = 1; code <= recordCount; ++code)
            database->session()->run(
                "Insert Into genCodigoTexto (CTeIDTipoVista, CTeCodigo, CTeTextoCorto, "
                "CTeValor1) Values (91, ?, 'Suma', 0)",
                {code});
        return 0;
    });
}

}  // namespace

int sameRecords(const std::vector<std::string>& connections, int seconds, int users, bool steady) {
    fill(connections.front());
    auto& counts = shared<Counts>();
    const auto end = Clock::now() + std::chrono::seconds(seconds);
    std::vector<pid_t> processes;
    for (int user = 0; user < users; ++user)
        processes.push_back(startProcess([&, user] {
            Desk desk(connectTo(connections[static_cast<std::size_t>(user) % connections.size()]));
            std::mt19937 random(static_cast<unsigned>(user));
            std::uniform_int_distribution<int> codes(1, recordCount);
            desk.open(viewOfAll, [&](frmCatalogador& form) {
                while (Clock::now() < end) addOne(desk, form, codes(random), counts);
            });
            counts.sessions.look(desk.connection());
            return 0;
        }));
    int failed = 0;
    for (const pid_t process : processes) failed += statusOf(process) != 0 ? 1 : 0;

    return inProcess([&] {
        const auto database = connectTo(connections.front());
        const auto rows = database->session()->query(
            "Select Sum(CTeValor1), Count(*) From genCodigoTexto Where CTeIDTipoVista = 91");
        const std::int32_t sum = toLong(rows.at(0).at(0), Regional{});
        std::cout << users << " users, " << recordCount << " records, " << seconds
                  << " s: " << counts.saved << " saved, sum in the database " << sum << ", "
                  << counts.refused << " refused, " << counts.unknown << " not known, "
                  << counts.wronglyTold << " of them not told as they should, " << counts.notOpened
                  << " not opened, at most " << counts.sessions.most() << " sessions, " << failed
                  << " processes failed" << std::endl;
        const bool good = failed == 0 && counts.saved > 0 && sum >= counts.saved &&
                          sum <= counts.saved + counts.unknown && counts.wronglyTold == 0 &&
                          counts.sessions.isFlat(users);
        return good && (counts.notOpened == 0 || !steady) ? 0 : 1;
    });
}

}  // namespace catalogador::test
