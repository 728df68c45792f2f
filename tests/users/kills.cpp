#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <iostream>
#include <random>
#include <thread>

#include "../sql/dialects.h"
#include "desk.h"
#include "modules/modIds.h"
#include "own_database.h"
#include "processes.h"
#include "runtime/convert.h"
#include "runtime/text.h"
#include "users.h"

namespace catalogador::test {

namespace {

constexpr int recordCount = 20;
constexpr int detailsPerRecord = 3;
constexpr std::chrono::microseconds latestKill{30'000};

/// What the process that is to be killed is doing.
enum Stage { starting, idle, saving, deleting };

struct Progress {
    std::atomic<int> stage;
    std::atomic<long> saved;
    std::atomic<long> deleted;
    std::atomic<long> version;
    std::atomic<long> told;
};

/// Every column of a record tells the same version, so that a half-written one gives itself away.
void insertRecord(rdoConnection& database, int code, int version) {
    database.session()->begin();
    database.session()->run(
        "Insert Into genCodigoTexto (CTeIDTipoVista, CTeCodigo, CTeTextoCorto, "
        "CTeTextoLargo, CTeValor1, CTeValor2, CTeValor3) Values (91, ?, ?, ?, ?, ?, ?)",
        {code, "Version " + decimalText(version), "Version " + decimalText(version), version,
         version, version});
    for (int i = 0; i < detailsPerRecord; ++i)
        database.session()->run(
            "Insert Into genCodigoTexto (CTeIDTipoVista, CTeCodigo, CTeTextoCorto, "
            "CTeValor1, CTeValor2) Values (92, ?, 'Detail', ?, ?)",
            {code * detailsPerRecord + i, code, code});
    database.session()->run(
        "Insert Into genCodigoTexto (CTeIDTipoVista, CTeCodigo, CTeTextoCorto, CTeValor1, "
        "CTeValor2) Values (93, ?, 'Marked', ?, 0)",
        {code, code});
    database.session()->commit();
}

bool complain(const std::string& what) {
    std::cerr << "WRONG: " << what << std::endl;
    return false;
}

std::string textOf(const Variant& value) {
    return toTextOrEmpty(value, Regional{});
}

bool recordsAreWhole(rdoConnection& database) {
    bool good = true;
    for (const auto& row : database.session()->query(
             "Select CTeCodigo, CTeTextoCorto, CTeTextoLargo, CTeValor1, CTeValor2, CTeValor3 From "
             "genCodigoTexto Where CTeIDTipoVista = 91")) {
        const std::string version = textOf(row[3]);
        const bool whole = textOf(row[1]) == "Version " + version && row[2] == row[1] &&
                           textOf(row[4]) == version && textOf(row[5]) == version;
        if (!whole) good = complain("record " + textOf(row[0]) + " is half of version " + version);
    }
    for (const auto& row : database.session()->query(
             "Select CTeCodigo, CTeTextoCorto, CTeValor1, CTeValor2 From genCodigoTexto Where "
             "CTeIDTipoVista = 92"))
        if (textOf(row[1]) != "Detail" || row[2] != row[3])
            good = complain("detail " + textOf(row[0]) + " is no whole row");
    return good;
}

/// A record goes after its follow-up rules: without it there is nothing left that they are for.
bool rulesWereKept(rdoConnection& database) {
    bool good = true;
    const std::string gone =
        " And CTeValor1 Not In (Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 91)";
    for (const auto& row : database.session()->query(
             "Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 92" + gone))
        good = complain("detail " + textOf(row[0]) + " has outlived its record");
    for (const auto& row : database.session()->query(
             "Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 93 And "
             "CTeValor2 <> 1" +
             gone))
        good = complain("the rule for record " + textOf(row[0]) + " did not run");
    return good;
}

bool fileIsSound(const std::string& connection) {
    const auto database = connectTo(connection, true);
    if (database->session()->dialect() != dialects::sqlite) return true;
    const auto rows = database->session()->query("PRAGMA integrity_check");
    return textOf(rows.at(0).at(0)) == "ok" || complain(textOf(rows.at(0).at(0)));
}

void restock(rdoConnection& database) {
    const auto codes =
        database.session()->query("Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 91");
    if (codes.size() > recordCount / 2) return;
    database.session()->run("Delete From genCodigoTexto Where CTeIDTipoVista In (91, 92, 93)");
    for (int code = 1; code <= recordCount; ++code) insertRecord(database, code, 1);
}

void saveNext(frmCatalogador& form, Progress& progress, int row) {
    form.grdGrilla.select(row, 0);
    form.commandBars.execute(action::modify);
    const std::string version = decimalText(++progress.version);
    form.txtTexto1.setText("Version " + version);
    form.txtTexto2.setText("Version " + version);
    for (TextBox* box : {&form.txtValor1, &form.txtValor2, &form.txtValor3}) box->setText(version);
    progress.stage = saving;
    form.commandBars.execute(action::save);
    progress.stage = idle;
    ++progress.saved;
}

void deleteNext(frmCatalogador& form, Progress& progress, int row) {
    form.grdGrilla.select(row, 0);
    progress.stage = deleting;
    form.commandBars.execute(action::remove);
    progress.stage = idle;
    ++progress.deleted;
}

/// Looks at what the last kill has left, then saves and deletes until it is killed itself.
int workUntilKilled(const std::string& connection, Progress& progress, unsigned seed) {
    Desk desk(connectTo(connection));
    rdoConnection& database = desk.connection();
    if (!recordsAreWhole(database) || !rulesWereKept(database) || !fileIsSound(connection))
        return 2;
    restock(database);
    std::mt19937 random(seed);
    desk.open(viewOfAll, [&](frmCatalogador& form) {
        progress.stage = idle;
        while (form.grdGrilla.rows() > RecordGrid::fixedRows) {
            std::uniform_int_distribution<int> rows(RecordGrid::fixedRows,
                                                    form.grdGrilla.rows() - 1);
            const int row = rows(random);
            if (random() % 3 == 0)
                deleteNext(form, progress, row);
            else
                saveNext(form, progress, row);
            for (const std::string& text : desk.takeTold()) {
                ++progress.told;
                std::cerr << "told: " << text << std::endl;
            }
        }
        pause();
    });
    return 3;
}

bool waitUntilReady(pid_t process, const Progress& progress) {
    while (progress.stage == starting) {
        siginfo_t ended{};
        if (waitid(P_PID, static_cast<id_t>(process), &ended, WEXITED | WNOHANG | WNOWAIT) != 0 ||
            ended.si_pid != 0)
            return false;
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    return true;
}

}  // namespace

int kills(const std::string& connection, int kills, unsigned seed) {
    auto& progress = shared<Progress>();
    std::mt19937 random(seed);
    std::uniform_int_distribution<long> delays(0, latestKill.count());
    int killed = 0;
    long inSave = 0;
    long inDelete = 0;
    for (; killed < kills; ++killed) {
        progress.stage = starting;
        const auto own = static_cast<unsigned>(random());
        const pid_t process =
            startProcess([&] { return workUntilKilled(connection, progress, own); });
        if (!waitUntilReady(process, progress)) {
            std::cerr << "after " << killed << " kills: ended with " << statusOf(process)
                      << std::endl;
            return 1;
        }
        std::this_thread::sleep_for(std::chrono::microseconds(delays(random)));
        kill(process, SIGKILL);
        if (statusOf(process) != 128 + SIGKILL) return 1;
        inSave += progress.stage == saving ? 1 : 0;
        inDelete += progress.stage == deleting ? 1 : 0;
    }
    const int last = inProcess([&] {
        const auto database = connectTo(connection);
        return recordsAreWhole(*database) && rulesWereKept(*database) && fileIsSound(connection)
                   ? 0
                   : 1;
    });
    std::cout << killed << " kills (seed " << seed << "), " << inSave << " during a save, "
              << inDelete << " during a delete; " << progress.saved << " saves and "
              << progress.deleted << " deletes ended before; " << progress.told
              << " messages; every record whole: " << (last == 0 ? "yes" : "no") << std::endl;
    return last == 0 && inSave > 0 && inDelete > 0 ? 0 : 1;
}

}  // namespace catalogador::test
