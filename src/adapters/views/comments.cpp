#include <algorithm>
#include <map>

#include "adapters/views/file_text.h"
#include "adapters/views/toml_entries.h"
#include "runtime/text.h"

namespace catalogador::views {

namespace {

/// A comment with its "#".
struct Comment {
    std::size_t line = 0;
    bool alone = false;
    std::string text;
};

/// The place behind the string that begins at `start`, of whatever kind.
std::size_t endOfString(std::string_view text, std::size_t start) {
    const char quote = text[start];
    const std::string three(3, quote);
    const bool lines = text.substr(start, 3) == three;
    std::size_t at = start + (lines ? 3 : 1);
    while (at < text.size()) {
        if (quote == '"' && text[at] == '\\') {
            at += 2;
        } else if (lines && text.substr(at, 3) == three) {
            at += 3;
            // Up to two quotes before the end belong to the text.
            while (at < text.size() && text[at] == quote) ++at;
            return at;
        } else if (!lines && text[at] == quote) {
            return at + 1;
        } else {
            ++at;
        }
    }
    return text.size();
}

std::vector<Comment> commentsOf(std::string_view text) {
    std::vector<Comment> comments;
    std::size_t line = 1;
    bool alone = true;
    for (std::size_t at = 0; at < text.size();) {
        const char c = text[at];
        std::size_t next = at + 1;
        if (c == '#') {
            next = std::min(text.find_first_of("\r\n", at), text.size());
            comments.push_back({line, alone, std::string(text.substr(at, next - at))});
        } else if (c == '"' || c == '\'') {
            next = endOfString(text, at);
        }
        const auto passed = text.substr(at, next - at);
        line += static_cast<std::size_t>(std::count(passed.begin(), passed.end(), '\n'));
        if (c == '\n')
            alone = true;
        else if (c != ' ' && c != '\t')
            alone = false;
        at = next;
    }
    return comments;
}

/// The comments of the entries that a text has: those before one and those behind it.
struct Placed {
    std::map<std::string, std::vector<std::string>> before;
    std::map<std::string, std::vector<std::string>> behind;
    std::vector<std::string> atEnd;
};

Placed placed(const std::string& earlier, const std::vector<TomlEntry>& kept) {
    const auto entries = entriesOf(toml::parse(earlier));
    const auto isKept = [&](const TomlEntry& entry) {
        return std::any_of(kept.begin(), kept.end(),
                           [&](const TomlEntry& other) { return other.path == entry.path; });
    };
    Placed result;
    for (const Comment& comment : commentsOf(earlier)) {
        // The first entry on the comment's line or after it, or the last one up to that line.
        auto entry = std::find_if(entries.begin(), entries.end(), [&](const TomlEntry& candidate) {
            return candidate.line > comment.line;
        });
        if (!comment.alone && entry != entries.begin() && isKept(*std::prev(entry))) {
            result.behind[std::prev(entry)->path].push_back(comment.text);
            continue;
        }
        entry = std::find_if(entry, entries.end(), isKept);
        (entry == entries.end() ? result.atEnd : result.before[entry->path])
            .push_back(comment.text);
    }
    return result;
}

/// The number of the last line of each entry, for the texts that fileText makes.
std::map<std::size_t, std::string> lastLines(const std::vector<TomlEntry>& entries,
                                             const std::vector<std::string>& lines) {
    std::map<std::size_t, std::string> result;
    for (std::size_t index = 0; index < entries.size(); ++index) {
        std::size_t last = index + 1 < entries.size() ? entries[index + 1].line - 1 : lines.size();
        while (last > entries[index].line && lines[last - 1].empty()) --last;
        result[last] = entries[index].path;
    }
    return result;
}

}  // namespace

std::string withComments(const std::string& text, const std::string& earlier) {
    const auto entries = entriesOf(toml::parse(text));
    const Placed comments = placed(earlier, entries);
    const std::vector<std::string> lines = splitText(text, "\n");
    const auto last = lastLines(entries, lines);
    std::string result;
    auto entry = entries.begin();
    for (std::size_t number = 1; number < lines.size(); ++number) {
        if (entry != entries.end() && entry->line == number) {
            if (const auto found = comments.before.find(entry->path);
                found != comments.before.end())
                for (const std::string& comment : found->second) result += comment + "\n";
            ++entry;
        }
        result += lines[number - 1];
        if (const auto ends = last.find(number); ends != last.end())
            if (const auto found = comments.behind.find(ends->second);
                found != comments.behind.end())
                for (const std::string& comment : found->second) result += "  " + comment;
        result += "\n";
    }
    for (const std::string& comment : comments.atEnd) result += comment + "\n";
    return result;
}

}  // namespace catalogador::views
