#include "adapters/checks/sql_reading.h"

#include <algorithm>

#include "adapters/checks/numbers.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

constexpr std::size_t longestQuotation = 60;
constexpr std::string_view viewColumn = "CTeIDTipoVista";

bool isName(const sql::SqlToken& token) {
    return token.kind == sql::TokenKind::word || token.kind == sql::TokenKind::quotedName;
}

std::string_view nameOf(const sql::SqlToken& token) {
    if (token.kind != sql::TokenKind::quotedName || token.text.size() < 2) return token.text;
    return token.text.substr(1, token.text.size() - 2);
}

bool names(const sql::SqlToken& token, std::string_view name) {
    return isName(token) && equalText(nameOf(token), name);
}

std::vector<sql::SqlToken> tokensWithoutComments(std::string_view sql,
                                                 const sql::SqlSyntax& syntax) {
    std::vector<sql::SqlToken> tokens = sql::tokensOf(sql, syntax);
    std::erase_if(tokens,
                  [](const sql::SqlToken& token) { return token.kind == sql::TokenKind::comment; });
    return tokens;
}

bool isPlaceholderCharacter(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

/// What stands before the "." of the first column that is selected; empty when nothing does, or
/// when that is no plain column.
std::string_view firstQualifier(const std::vector<sql::SqlToken>& tokens) {
    std::size_t first = 1;
    if (tokens.size() > first && (names(tokens[first], "DISTINCT") || names(tokens[first], "ALL")))
        ++first;
    if (tokens.size() < first + 4 || !isName(tokens[first]) || !isSymbol(tokens[first + 1], '.') ||
        !isName(tokens[first + 2]))
        return {};
    const sql::SqlToken& after = tokens[first + 3];
    const bool plain = isSymbol(after, ',') || isName(after);
    return plain ? nameOf(tokens[first]) : std::string_view();
}

/// Comparisons of the view's column with numbers.
class ViewComparisons {
  public:
    explicit ViewComparisons(const std::vector<sql::SqlToken>& tokens) : tokens_(tokens) {
        for (std::size_t i = 0; i < tokens.size(); ++i)
            if (names(tokens[i], viewColumn)) readAt(i);
    }

    /// Those of a table's alias, or all when it has none.
    [[nodiscard]] std::vector<std::int64_t> of(std::string_view qualifier) const {
        std::vector<std::int64_t> numbers;
        for (const auto& [owner, number] : found_)
            if (equalText(owner, qualifier)) numbers.push_back(number);
        if (!numbers.empty()) return numbers;
        for (const auto& [owner, number] : found_) numbers.push_back(number);
        return numbers;
    }

  private:
    void readAt(std::size_t column) {
        const bool qualified = column >= 2 && isSymbol(tokens_[column - 1], '.');
        const std::string_view owner = qualified ? nameOf(tokens_[column - 2]) : std::string_view();
        const std::size_t start = qualified ? column - 2 : column;
        if (start >= 2 && isSymbol(tokens_[start - 1], '=')) add(owner, start - 2);
        std::size_t next = column + 1;
        if (next < tokens_.size() && isSymbol(tokens_[next], '=')) add(owner, next + 1);
        if (next >= tokens_.size() || !names(tokens_[next], "IN")) return;
        for (next += 2; next < tokens_.size() && !isSymbol(tokens_[next], ')'); ++next)
            add(owner, next);
    }

    void add(std::string_view owner, std::size_t at) {
        if (at >= tokens_.size()) return;
        if (const auto number = wholeNumber(tokens_[at].text)) found_.emplace_back(owner, *number);
    }

    const std::vector<sql::SqlToken>& tokens_;
    std::vector<std::pair<std::string_view, std::int64_t>> found_;
};

}  // namespace

std::vector<std::string> placeholdersOf(std::string_view text) {
    std::vector<std::string> found;
    for (std::size_t open = text.find('['); open != std::string_view::npos;
         open = text.find('[', open + 1)) {
        std::size_t end = open + 1;
        while (end < text.size() && isPlaceholderCharacter(text[end])) ++end;
        if (end > open + 1 && end < text.size() && text[end] == ']')
            found.emplace_back(text.substr(open, end + 1 - open));
    }
    return found;
}

bool insideQuotes(std::string_view sql, std::string_view placeholder) {
    bool inside = false;
    std::size_t read = 0;
    for (FoundText hit = findTextFrom(sql, placeholder, 0, Compare::text);
         hit.position != std::string_view::npos;
         hit = findTextFrom(sql, placeholder, hit.position + hit.length, Compare::text)) {
        for (; read < hit.position; ++read)
            if (sql[read] == '\'') inside = !inside;
        if (!inside) return false;
    }
    return true;
}

bool beginsWith(std::string_view sql, std::string_view word) {
    return upperCase(leftCharacters(sql, word.size())) == word;
}

std::vector<std::int64_t> viewsOfFirstColumn(std::string_view sql, const sql::SqlSyntax& syntax) {
    const auto tokens = tokensWithoutComments(sql, syntax);
    return ViewComparisons(tokens).of(firstQualifier(tokens));
}

bool mentions(std::string_view sql, std::string_view name, const sql::SqlSyntax& syntax) {
    const auto tokens = sql::tokensOf(sql, syntax);
    return std::any_of(tokens.begin(), tokens.end(),
                       [&](const sql::SqlToken& token) { return names(token, name); });
}

bool joinsRowsAway(std::string_view sql, const sql::SqlSyntax& syntax) {
    const auto tokens = tokensWithoutComments(sql, syntax);
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        if (!names(tokens[i], "JOIN")) continue;
        const sql::SqlToken& before = tokens[i - 1];
        const bool keeps = names(before, "LEFT") || names(before, "OUTER") || names(before, "FULL");
        if (!keeps) return true;
    }
    return false;
}

bool comparedAsDifferent(std::string_view sql, std::string_view placeholder) {
    if (containsText(sql, "NOT ", Compare::text)) return true;
    for (FoundText hit = findTextFrom(sql, placeholder, 0, Compare::text);
         hit.position != std::string_view::npos;
         hit = findTextFrom(sql, placeholder, hit.position + hit.length, Compare::text)) {
        const std::string_view before = trim(sql.substr(0, hit.position));
        const std::string_view after = trim(sql.substr(hit.position + hit.length));
        if (before.ends_with("<>") || before.ends_with("!=") || after.starts_with("<>") ||
            after.starts_with("!="))
            return true;
    }
    return false;
}

std::string shortened(std::string_view text) {
    std::string line(leftCharacters(text, longestQuotation));
    if (line.size() < text.size()) line += "…";
    std::replace(line.begin(), line.end(), '\n', ' ');
    std::replace(line.begin(), line.end(), '\r', ' ');
    return line;
}

}  // namespace catalogador::checks
