#include "adapters/sql/sql_tokens.h"

#include <algorithm>
#include <charconv>

namespace catalogador::sql {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
}

bool isWordStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool isWordPart(char c) {
    return isWordStart(c) || isDigit(c) || c == '$';
}

/// What may stand between the quotes of a text.
enum class Quoting { doubled, backslashes, digits };

class Tokenizer {
  public:
    Tokenizer(std::string_view sql, const SqlSyntax& syntax)
        : sql_(syntax.endsAtNul ? sql.substr(0, sql.find('\0')) : sql), syntax_(syntax) {}

    std::vector<SqlToken> run() {
        std::vector<SqlToken> tokens;
        while (position_ < sql_.size()) {
            const char c = sql_[position_];
            if (isBlank(c)) {
                lineEnded_ = lineEnded_ || c == '\n' || c == '\r';
                ++position_;
                continue;
            }
            const std::size_t start = position_;
            closed_ = true;
            const TokenKind kind = next();
            tokens.push_back({kind, sql_.substr(start, position_ - start), closed_});
            if (kind == TokenKind::text) {
                afterText_ = sql_[start] != '$';
                lineEnded_ = false;
            } else if (kind != TokenKind::comment || sql_[start] == '/') {
                afterText_ = false;
            }
        }
        return tokens;
    }

  private:
    [[nodiscard]] char at(std::size_t offset) const {
        const std::size_t index = position_ + offset;
        return index < sql_.size() ? sql_[index] : '\0';
    }

    [[nodiscard]] bool startsWith(std::string_view what) const {
        return sql_.substr(position_).starts_with(what);
    }

    /// Consumes one token, which must not begin with a blank.
    TokenKind next() {
        if (skipComment()) return TokenKind::comment;
        if (syntax_.executableComments && skipExecutableMark()) return TokenKind::symbol;
        const char c = at(0);
        if (c == '\'' || c == '"' || c == '`' || c == '[' || c == '$')
            if (const auto kind = skipQuoted(c); kind != TokenKind::symbol) return kind;
        if (const auto kind = skipPrefixed(); kind != TokenKind::symbol) return kind;
        if (syntax_.namedVariables && skipVariable()) return TokenKind::word;
        if (isWordStart(c)) return word();
        if (isDigit(c) || (c == '.' && isDigit(at(1)) && !followsName())) return number();
        ++position_;
        return c == ';' ? TokenKind::separator : TokenKind::symbol;
    }

    bool skipComment() {
        const bool dashes = startsWith("--") &&
                            (!syntax_.dashCommentNeedsBlank || at(2) == ' ' || isControl(at(2)));
        if (dashes || (syntax_.hashComments && at(0) == '#')) {
            const char* ends = syntax_.returnEndsComment ? "\r\n" : "\n";
            position_ = std::min(sql_.find_first_of(ends, position_), sql_.size());
            return true;
        }
        if (!startsWith("/*")) return false;
        // The two characters alone are no comment to SQLite.
        if (syntax_.endsAtNul && position_ + 2 == sql_.size()) return false;
        if (syntax_.executableComments && (startsWith("/*!") || startsWith("/*M!"))) {
            if (executedMarkLength() > 0) return false;
            skipBlockComment(2);
            return true;
        }
        skipBlockComment(syntax_.nestedComments ? anyDepth : 1);
        return true;
    }

    void skipBlockComment(int deepest) {
        position_ += 2;
        int depth = 1;
        while (depth > 0 && position_ < sql_.size()) {
            if (startsWith("*/")) {
                --depth;
                position_ += 2;
            } else if (depth < deepest && startsWith("/*")) {
                ++depth;
                position_ += 2;
            } else {
                ++position_;
            }
        }
        closed_ = depth == 0;
    }

    /// Of what opens a comment that the server executes; 0 for one that it skips.
    [[nodiscard]] std::size_t executedMarkLength() const {
        const bool own = at(2) == 'M';
        const std::size_t mark = own ? 4 : 3;
        std::size_t digits = 0;
        while (digits < 6 && isDigit(at(mark + digits))) ++digits;
        if (digits < 5) return mark;
        int version = 0;
        const char* first = sql_.data() + position_ + mark;
        std::from_chars(first, first + digits, version);
        // The versions of another maker, whose later ones mean nothing here.
        constexpr int firstForeign = 50700;
        constexpr int lastForeign = 99999;
        const bool foreign = !own && version >= firstForeign && version <= lastForeign;
        const bool later = syntax_.serverVersion != 0 && version > syntax_.serverVersion;
        return foreign || later ? 0 : mark + digits;
    }

    /// The opening of an executed comment, or the end of one.
    bool skipExecutableMark() {
        if (startsWith("/*!") || startsWith("/*M!")) {
            position_ += executedMarkLength();
            executing_ = true;
            return true;
        }
        if (!executing_ || !startsWith("*/")) return false;
        position_ += 2;
        executing_ = false;
        return true;
    }

    /// Consumes nothing and gives "symbol" where the character quotes nothing.
    TokenKind skipQuoted(char c) {
        if (c == '\'') {
            const bool goesOn = syntax_.continuedTexts && afterText_ && lineEnded_;
            if (!goesOn)
                quoting_ = syntax_.backslashEscapes ? Quoting::backslashes : Quoting::doubled;
            return quoted('\'', quoting_, TokenKind::text);
        }
        if (c == '"' && syntax_.doubleQuotedTexts)
            return quoted('"', syntax_.backslashEscapes ? Quoting::backslashes : Quoting::doubled,
                          TokenKind::text);
        if (c == '"' || (c == '`' && syntax_.backtickNames))
            return quoted(c, Quoting::doubled, TokenKind::quotedName);
        if (c == '[' && syntax_.bracketNames) return upTo("]", 1, TokenKind::quotedName);
        if (c == '$' && syntax_.dollarQuotes && skipDollarQuoted()) return TokenKind::text;
        return TokenKind::symbol;
    }

    /// A quotation with a letter before it; "symbol" and nothing consumed where there is none.
    TokenKind skipPrefixed() {
        const char letter = at(0);
        if (syntax_.unicodeQuotes && (letter == 'U' || letter == 'u') && at(1) == '&' &&
            (at(2) == '\'' || at(2) == '"')) {
            position_ += 2;
            quoting_ = Quoting::doubled;
            return quoted(at(0), quoting_, at(0) == '"' ? TokenKind::quotedName : TokenKind::text);
        }
        if (at(1) != '\'') return TokenKind::symbol;
        const bool escapes = syntax_.escapeStrings && (letter == 'E' || letter == 'e');
        const bool digits = syntax_.digitTexts.find(letter) != std::string_view::npos;
        if (!escapes && !digits) return TokenKind::symbol;
        ++position_;
        quoting_ = escapes ? Quoting::backslashes : Quoting::digits;
        return quoted('\'', quoting_, TokenKind::text);
    }

    TokenKind quoted(char quote, Quoting quoting, TokenKind kind) {
        ++position_;
        while (position_ < sql_.size()) {
            const char c = sql_[position_++];
            if (c == '\\' && quoting == Quoting::backslashes) {
                if (position_ < sql_.size()) ++position_;
            } else if (c == quote) {
                if (quoting == Quoting::digits || at(0) != quote) return kind;
                ++position_;
            } else if (quoting == Quoting::digits && !isHexDigit(c)) {
                // No database takes this, and how far it reads then is of no interest.
                position_ = sql_.size();
            }
        }
        closed_ = false;
        return kind;
    }

    TokenKind upTo(std::string_view end, std::size_t from, TokenKind kind) {
        const std::size_t found = sql_.find(end, position_ + from);
        closed_ = found != std::string_view::npos;
        position_ = closed_ ? found + end.size() : sql_.size();
        return kind;
    }

    /// "$1" is a parameter and "a$b" a name: only "$$" and "$tag$" open a quotation.
    bool skipDollarQuoted() {
        std::size_t end = position_ + 1;
        if (end < sql_.size() && isDigit(sql_[end])) return false;
        while (end < sql_.size() && (isWordStart(sql_[end]) || isDigit(sql_[end]))) ++end;
        if (end >= sql_.size() || sql_[end] != '$') return false;
        const std::string_view tag = sql_.substr(position_, end + 1 - position_);
        upTo(tag, tag.size(), TokenKind::text);
        return true;
    }

    bool skipVariable() {
        if (std::string_view("$@:#").find(at(0)) == std::string_view::npos) return false;
        std::size_t length = 1;
        while (isWordPart(at(length)) || (at(length) == ':' && at(length + 1) == ':'))
            length += at(length) == ':' ? 2 : 1;
        if (length == 1) return false;
        if (at(length) == '(') {
            while (at(length) != '\0' && !isBlank(at(length)) && at(length) != ')') ++length;
            if (at(length) == ')') ++length;
        }
        position_ += length;
        return true;
    }

    [[nodiscard]] bool followsName() const {
        if (position_ == 0) return false;
        const char before = sql_[position_ - 1];
        return isWordPart(before) || before == '"' || before == '`' || before == ']';
    }

    TokenKind word() {
        while (position_ < sql_.size() && isWordPart(sql_[position_])) ++position_;
        return TokenKind::word;
    }

    void skipDigits() {
        while (isDigit(at(0))) ++position_;
    }

    TokenKind number() {
        skipDigits();
        if (at(0) == '.' && at(1) != '.') {
            ++position_;
            skipDigits();
        }
        const std::size_t sign = at(1) == '+' || at(1) == '-' ? 1 : 0;
        if ((at(0) == 'e' || at(0) == 'E') && isDigit(at(1 + sign))) {
            position_ += 1 + sign;
            skipDigits();
        }
        return syntax_.numbersEndAtLetters ? TokenKind::word : word();
    }

    static constexpr int anyDepth = 1 << 30;

    std::string_view sql_;
    const SqlSyntax& syntax_;
    std::size_t position_ = 0;
    bool closed_ = true;
    /// Within a comment that is executed.
    bool executing_ = false;
    /// How the text before this one was quoted, for a text that goes on.
    Quoting quoting_ = Quoting::doubled;
    bool afterText_ = false;
    bool lineEnded_ = false;
};

}  // namespace

bool isKeyword(const SqlToken& token, std::string_view keyword) {
    return token.kind == TokenKind::word &&
           std::equal(token.text.begin(), token.text.end(), keyword.begin(), keyword.end(),
                      [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 32 : a) == b; });
}

bool isOneOf(const SqlToken& token, std::span<const std::string_view> keywords) {
    return std::any_of(keywords.begin(), keywords.end(),
                       [&](std::string_view keyword) { return isKeyword(token, keyword); });
}

bool isOneOf(const SqlToken& token, std::initializer_list<std::string_view> keywords) {
    return isOneOf(token, std::span(keywords.begin(), keywords.size()));
}

bool isSymbol(const SqlToken& token, char symbol) {
    return token.kind == TokenKind::symbol && token.text.front() == symbol;
}

std::vector<SqlToken> tokensOf(std::string_view sql, const SqlSyntax& syntax) {
    return Tokenizer(sql, syntax).run();
}

}  // namespace catalogador::sql
