#include <atomic>
#include <chrono>
#include <iostream>
#include <map>
#include <set>

#include "desk.h"
#include "modules/modIds.h"
#include "own_database.h"
#include "processes.h"
#include "runtime/convert.h"
#include "runtime/text.h"
#include "users.h"

namespace catalogador::test {

namespace {

/// What a user was told of a record.
enum class Told : char { nothing, saved, refused, unknown };

struct Outcomes {
    Told* told;
    /// The code that was handed out for each record, also for one that was not saved; 0 for none.
    std::int32_t* codes;
    SessionCount& sessions;
};

struct User {
    int number;
    /// Place of the user's first record among all, and how many they are.
    int first;
    int count;
};

std::string textOf(int record) {
    return "Record " + decimalText(record);
}

int saveNewOnes(const std::string& connection, const User& user, const Outcomes& outcomes) {
    Desk desk(connectTo(connection));
    desk.open(viewOfNew, [&](frmCatalogador& form) {
        for (int record = user.first; record < user.first + user.count; ++record) {
            form.commandBars.execute(action::create);
            form.txtTexto1.setText(textOf(record));
            form.txtValor1.setText(decimalText(user.number));
            form.commandBars.execute(action::save);
            const auto told = desk.takeTold();
            outcomes.told[record] = form.modo() == "0"      ? Told::saved
                                    : Desk::isUnknown(told) ? Told::unknown
                                    : told.empty()          ? Told::nothing
                                                            : Told::refused;
            outcomes.codes[record] = form.modo() == "0" ? form.mlngIdUltimo : form.mlngIdDato;
            for (const std::string& text : told)
                std::cerr << "user " << user.number << " was told: " << text << std::endl;
            if (form.modo() != "0") form.commandBars.execute(action::cancel);
        }
    });
    outcomes.sessions.look(desk.connection());
    return 0;
}

struct Counts {
    int saved = 0;
    int refused = 0;
    int unknown = 0;
    /// Told as saved and not there exactly once, told as refused and there, or told nothing.
    int wrong = 0;
};

Counts compared(rdoConnection& database, const Told* outcomes, int records) {
    std::map<std::string, int> stored;
    for (const auto& row : database.session()->query(
             "Select CTeTextoCorto From genCodigoTexto Where CTeIDTipoVista = 90"))
        ++stored[*row.at(0).as<std::string>()];
    Counts counts;
    for (int record = 0; record < records; ++record) {
        const int times = stored[textOf(record)];
        const Told told = outcomes[record];
        counts.saved += told == Told::saved ? 1 : 0;
        counts.refused += told == Told::refused ? 1 : 0;
        counts.unknown += told == Told::unknown ? 1 : 0;
        const bool right = (told == Told::saved && times == 1) ||
                           (told == Told::refused && times == 0) ||
                           (told == Told::unknown && times <= 1);
        if (!right) {
            ++counts.wrong;
            std::cerr << "WRONG: record " << record << " is there " << times << " times, told "
                      << static_cast<int>(told) << std::endl;
        }
    }
    return counts;
}

/// How often a code was handed out that somebody had already.
int doubleCodes(const Outcomes& outcomes, int records) {
    std::set<std::int32_t> seen;
    int doubles = 0;
    for (int record = 0; record < records; ++record) {
        const std::int32_t code = outcomes.codes[record];
        if (code != 0 && !seen.insert(code).second) ++doubles;
    }
    return doubles;
}

std::int64_t number(rdoConnection& connection, const std::string& sql) {
    return toLong(connection.session()->query(sql).at(0).at(0), Regional{});
}

int judge(const std::string& connection, const Outcomes& outcomes, int records, int users,
          bool steady) {
    const auto database = connectTo(connection);
    const std::string where = " From genCodigoTexto Where CTeIDTipoVista = 90";
    const std::int64_t rows = number(*database, "Select Count(*)" + where);
    const std::int64_t codes = number(*database, "Select Count(Distinct CTeCodigo)" + where);
    const std::int64_t last =
        number(*database, "Select NumUltimo From genNumeradores Where NumNombre = 'Nuevos'");
    const Counts counts = compared(*database, outcomes.told, records);
    const int doubles = doubleCodes(outcomes, records);
    std::cout << counts.saved << " told as saved, " << counts.refused << " as refused, "
              << counts.unknown << " as not known, " << counts.wrong << " told wrongly; " << rows
              << " rows, " << codes << " different codes, " << doubles
              << " handed out twice, last code " << last << ", at most " << outcomes.sessions.most()
              << " sessions" << std::endl;
    const bool good =
        counts.wrong == 0 && codes == rows && doubles == 0 && outcomes.sessions.isFlat(users);
    if (!steady) return good && counts.saved >= records / 10 * 9 ? 0 : 1;
    return good && counts.saved == records && last == records ? 0 : 1;
}

}  // namespace

int newRecords(const std::vector<std::string>& connections, int records, int users, bool steady) {
    const auto count = static_cast<std::size_t>(records);
    const Outcomes outcomes{static_cast<Told*>(sharedMemory(count)),
                            static_cast<std::int32_t*>(sharedMemory(count * sizeof(std::int32_t))),
                            shared<SessionCount>()};
    const auto start = std::chrono::steady_clock::now();
    std::vector<pid_t> processes;
    int first = 0;
    for (int user = 0; user < users; ++user) {
        const int share = records / users + (user < records % users ? 1 : 0);
        const std::string& own = connections[static_cast<std::size_t>(user) % connections.size()];
        processes.push_back(startProcess([&, user, first, share] {
            return saveNewOnes(own, {user, first, share}, outcomes);
        }));
        first += share;
    }
    int failed = 0;
    for (const pid_t process : processes) failed += statusOf(process) != 0 ? 1 : 0;
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    std::cout << users << " users, " << records << " new records in " << took.count() << " s, "
              << failed << " processes failed; " << std::flush;
    const int judged =
        inProcess([&] { return judge(connections.front(), outcomes, records, users, steady); });
    return failed == 0 ? judged : 1;
}

}  // namespace catalogador::test
