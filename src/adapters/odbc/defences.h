#pragma once

namespace catalogador::odbc {

/// What keeps text that somebody typed from being run. A connection has all of it; tests take one
/// away to see that the other holds alone.
struct Defences {
    /// Statements are read before the database gets them.
    bool reading = true;
    /// The database takes one command a statement, and reads where nothing is to be written.
    bool engine = true;
};

}  // namespace catalogador::odbc
