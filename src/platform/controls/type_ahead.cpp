#include "platform/controls/type_ahead.h"

#include "runtime/base_letters.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

namespace catalogador {

namespace {

constexpr std::chrono::seconds pause{1};

std::string folded(std::string_view text) {
    return withoutAccents(foldCase(text));
}

/// The first entry from `from` on, once round, that begins with the folded text.
int find(const std::string& begin, int from, int count, const TypeAhead::TextOf& textOf) {
    // No letter folds to less than one character.
    const std::size_t letters = lengthInCharacters(begin);
    for (int step = 0; step < count; ++step) {
        const int entry = (from + step) % count;
        const std::string_view text = trim(textOf(entry));
        if (folded(leftCharacters(text, 2 * letters)).starts_with(begin)) return entry;
    }
    return -1;
}

}  // namespace

bool TypeAhead::underWay(Clock::time_point now) const {
    return !typed_.empty() && now - last_ < pause;
}

int TypeAhead::type(char32_t letter, int current, int count, const TextOf& textOf,
                    Clock::time_point now) {
    if (!underWay(now)) typed_.clear();
    if (letter < U' ' || (letter == U' ' && typed_.empty())) return -1;
    std::string one;
    appendCharacter(one, letter);
    one = folded(one);
    const bool begins = typed_.empty();
    typed_ += one;
    last_ = now;
    if (count == 0) return -1;
    const int next = (current + 1) % count;
    const int found = find(typed_, begins || current < 0 ? next : current, count, textOf);
    if (found >= 0 || begins) return found;
    const bool sameLetter = replaceText(typed_, one, "", Compare::binary).empty();
    return sameLetter ? find(one, next, count, textOf) : -1;
}

}  // namespace catalogador
