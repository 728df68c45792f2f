#pragma once
#include <chrono>
#include <functional>
#include <string>
#include <string_view>

namespace catalogador {

/// Letters typed to find an entry of a list by the begin of its text. Letters that follow one
/// another within a second make one text; accents and case do not matter.
class TypeAhead {
  public:
    using Clock = std::chrono::steady_clock;
    /// The text of an entry, counted from 0.
    using TextOf = std::function<std::string_view(int)>;

    /// Takes a letter and gives the entry that it leads to from `current` (-1 for none), -1 when
    /// there is no such entry. The same letter again and again goes through the entries that begin
    /// with it. A blank counts only inside of a text.
    int type(char32_t letter, int current, int count, const TextOf& textOf,
             Clock::time_point now = Clock::now());
    /// Whether a blank typed now would be part of a text.
    [[nodiscard]] bool underWay(Clock::time_point now = Clock::now()) const;

  private:
    std::string typed_;
    Clock::time_point last_;
};

}  // namespace catalogador
