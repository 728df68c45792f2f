#pragma once
#include <string>
#include <vector>

namespace catalogador::test {

/// One thing that an author of metadata gets wrong.
struct Mistake {
    std::string name;
    /// Make the mistake in a database of clean views.
    std::vector<std::string> statements;
    /// The one finding that it gives, as textOf has it.
    std::string finding;
    /// Whether only SQLite lets it be stored.
    bool sqliteOnly = false;
};

/// Every kind of finding about views, at least once.
const std::vector<Mistake>& mistakes();
/// Those of them in rules about duplicates and for deleting.
std::vector<Mistake> ruleMistakes();

void PrintTo(const Mistake& mistake, std::ostream* out);

}  // namespace catalogador::test
