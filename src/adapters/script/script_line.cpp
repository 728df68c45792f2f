#include "adapters/script/script_line.h"

#include <nlohmann/json.hpp>

namespace catalogador::script {

namespace {

constexpr std::string_view blanks = " \t\r";

/// Where the JSON string that begins at `from` ends, past its closing quote.
std::size_t endOfText(std::string_view line, std::size_t from) {
    for (std::size_t at = from + 1; at < line.size(); ++at) {
        if (line[at] == '\\')
            ++at;
        else if (line[at] == '"')
            return at + 1;
    }
    throw Refusal("a text is not closed by a quotation mark");
}

std::string textOf(std::string_view json) {
    const auto parsed = nlohmann::json::parse(json, nullptr, false);
    if (!parsed.is_string()) throw Refusal("not a JSON string: " + std::string(json));
    return parsed.get<std::string>();
}

}  // namespace

std::vector<Word> wordsOf(std::string_view line) {
    std::vector<Word> words;
    for (std::size_t at = line.find_first_not_of(blanks); at != std::string_view::npos;
         at = line.find_first_not_of(blanks, at)) {
        const bool quoted = line[at] == '"';
        std::size_t end = quoted ? endOfText(line, at) : line.find_first_of(blanks, at);
        if (end == std::string_view::npos) end = line.size();
        const std::string_view word = line.substr(at, end - at);
        words.push_back({quoted ? textOf(word) : std::string(word), quoted});
        at = end;
        if (quoted && at < line.size() && blanks.find(line[at]) == std::string_view::npos)
            throw Refusal("a blank is missing after " + std::string(word));
    }
    return words;
}

std::optional<ScriptLine> Script::next() {
    std::string text;
    while (std::getline(in_, text)) {
        ++number_;
        if (number_ == 1 && text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
        const std::size_t first = text.find_first_not_of(blanks);
        if (first == std::string::npos || text[first] == '#') continue;
        return ScriptLine{number_, text};
    }
    return std::nullopt;
}

const Word& Arguments::take(const std::string& what) {
    if (!left()) throw Refusal(what + " is missing");
    return words_[at_++];
}

bool Arguments::accept(std::string_view word) {
    if (!left() || words_[at_].quoted || words_[at_].text != word) return false;
    ++at_;
    return true;
}

std::string Arguments::word(const std::string& what) {
    const Word& word = take(what);
    if (word.quoted) throw Refusal(what + " is written without quotation marks");
    return word.text;
}

std::string Arguments::text(const std::string& what) {
    const Word& word = take(what);
    if (!word.quoted) throw Refusal(what + " has to be a JSON string, not " + word.text);
    return word.text;
}

void Arguments::end() const {
    if (left()) throw Refusal("one argument too many: " + words_[at_].text);
}

}  // namespace catalogador::script
