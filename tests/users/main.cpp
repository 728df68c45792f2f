#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "own_database.h"
#include "users.h"

namespace {

using catalogador::test::OwnDatabase;

constexpr int wrongUsage = 2;
constexpr int skipped = 77;

int run(const std::string& what, const std::string& kind, const std::vector<int>& numbers) {
    const auto number = [&](std::size_t index, int usual) {
        return index < numbers.size() ? numbers[index] : usual;
    };
    using Connections = std::vector<std::string>;
    const bool steady = kind != "galera";
    const std::map<std::string, std::function<int(const Connections&)>> programs{
        {"new",
         [&](const Connections& connections) {
             return catalogador::test::newRecords(connections, number(0, 10'000), number(1, 16),
                                                  steady);
         }},
        {"same",
         [&](const Connections& connections) {
             return catalogador::test::sameRecords(connections, number(0, 60), number(1, 8),
                                                   steady);
         }},
        {"seen",
         [&](const Connections& connections) {
             return catalogador::test::seen(connections, number(0, 300));
         }},
        {"kills", [&](const Connections& connections) {
             const int seed = number(1, static_cast<int>(std::random_device()() >> 1U));
             return catalogador::test::kills(connections.front(), number(0, 1000),
                                             static_cast<unsigned>(seed));
         }}};
    const auto program = programs.find(what);
    if (program == programs.end()) return wrongUsage;
    const auto database = OwnDatabase::create(kind);
    if (!database) {
        std::cout << "skipped: no server of the kind " << kind << " is named in the environment\n";
        return skipped;
    }
    std::cout << kind << ": " << std::flush;
    return program->second(database->connectionStrings());
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    try {
        std::vector<int> numbers;
        for (std::size_t i = 2; i < arguments.size(); ++i)
            numbers.push_back(std::stoi(arguments[i]));
        const int status =
            arguments.size() < 2 ? wrongUsage : run(arguments[0], arguments[1], numbers);
        if (status == wrongUsage)
            std::cerr << "many_users new|same|seen|kills "
                         "sqlite|sqlite-odbc|postgresql|mariadb|galera "
                         "[RECORDS USERS | SECONDS USERS | TIMES | KILLS SEED]\n";
        return status;
    } catch (const std::exception& error) {
        std::cerr << "many_users: " << error.what() << '\n';
        return 1;
    }
}
