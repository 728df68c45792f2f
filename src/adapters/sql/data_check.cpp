#include "adapters/sql/data_check.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace catalogador::sql {

namespace {

using Piece = SqlText::Piece;

/// Stands for data in the shape of a statement; no statement has it otherwise.
constexpr char dataSign = '\0';

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t digitsAt(std::string_view text, std::size_t from) {
    std::size_t end = from;
    while (end < text.size() && isDigit(text[end])) ++end;
    return end - from;
}

void dropBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
}

void dropSign(std::string_view& text) {
    if (!text.starts_with('-') && !text.starts_with('+')) return;
    text.remove_prefix(1);
    dropBlanks(text);
}

bool isDigits(std::string_view text) {
    return !text.empty() && digitsAt(text, 0) == text.size();
}

/// Sign, digits, point and exponent, as every database reads them.
bool isNumber(std::string_view text) {
    dropSign(text);
    std::size_t end = digitsAt(text, 0);
    std::size_t digits = end;
    if (end < text.size() && text[end] == '.') {
        const std::size_t decimals = digitsAt(text, end + 1);
        digits += decimals;
        end += 1 + decimals;
    }
    if (digits == 0) return false;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t sign = end + 1;
        if (sign < text.size() && (text[sign] == '+' || text[sign] == '-')) ++sign;
        const std::size_t exponent = digitsAt(text, sign);
        if (exponent == 0) return false;
        end = sign + exponent;
    }
    return end == text.size();
}

bool isCodeList(std::string_view text) {
    while (true) {
        dropBlanks(text);
        dropSign(text);
        const std::size_t digits = digitsAt(text, 0);
        if (digits == 0) return false;
        text.remove_prefix(digits);
        dropBlanks(text);
        if (text.empty()) return true;
        if (!text.starts_with(',')) return false;
        text.remove_prefix(1);
    }
}

bool isBare(const Piece& piece, std::string_view data) {
    return piece.kind == SqlText::Kind::codes ? isCodeList(data) : isNumber(data);
}

/// "%" and the like take a sign behind them into one operator, in some databases.
bool joinsOperator(std::string_view before, std::string_view data) {
    if (!data.starts_with('-') && !data.starts_with('+')) return false;
    const std::size_t last = before.find_last_not_of("+-*/<>=~!@#%^&|`?");
    const std::string_view signs = before.substr(last == std::string_view::npos ? 0 : last + 1);
    return signs.find_first_of("~!@#%^&|`?") != std::string_view::npos;
}

/// What some database, or a driver that converts texts, takes for a quote or a backslash.
constexpr std::array<std::string_view, 15> doubtfulCharacters{
    "\"",     "`",      "\\",     "\u02b9", "\u02ba", "\u02bc", "\u02c8", "\u0300",
    "\u030e", "\u2032", "\u2035", "\u2216", "\uff02", "\uff07", "\uff3c"};

bool isPlainAnywhere(std::string_view data) {
    if (std::any_of(doubtfulCharacters.begin(), doubtfulCharacters.end(),
                    [&](std::string_view c) { return data.find(c) != std::string_view::npos; }))
        return false;
    for (std::size_t i = 0; i < data.size(); ++i) {
        if (static_cast<unsigned char>(data[i]) < ' ' || data[i] == '\x7f') return false;
        if (data[i] != '\'') continue;
        if (++i == data.size() || data[i] != '\'') return false;
    }
    return true;
}

/// A token with the data taken out of it.
struct Part {
    TokenKind kind = TokenKind::word;
    std::string text;

    friend bool operator==(const Part&, const Part&) = default;
};

/// The tokens of a statement with what data does to them.
class Shape {
  public:
    Shape(std::string_view sql, const std::vector<Piece>& pieces, const SqlSyntax& syntax)
        : sql_(sql), pieces_(pieces) {
        const auto tokens = tokensOf(sql, syntax);
        for (auto token = tokens.begin(); kept_ && token != tokens.end();) {
            const bool dataBefore =
                piece_ < pieces_.size() && endOf(pieces_[piece_]) <= startOf(*token);
            // Data that no token holds is blank, or lies behind the end.
            if (dataBefore) {
                kept_ = false;
            } else if (piece_ < pieces_.size() && pieces_[piece_].start < endOf(*token)) {
                token = readData(token, tokens.end());
            } else {
                parts_.push_back({token->kind, std::string(token->text)});
                ++token;
            }
        }
        kept_ = kept_ && piece_ == pieces_.size();
    }

    /// Whether every piece is a value where it stands.
    [[nodiscard]] bool kept() const { return kept_; }
    [[nodiscard]] const std::vector<Part>& parts() const { return parts_; }

  private:
    using Token = std::vector<SqlToken>::const_iterator;

    [[nodiscard]] std::size_t startOf(const SqlToken& token) const {
        return static_cast<std::size_t>(token.text.data() - sql_.data());
    }
    [[nodiscard]] std::size_t endOf(const SqlToken& token) const {
        return startOf(token) + token.text.size();
    }
    static std::size_t endOf(const Piece& piece) { return piece.start + piece.length; }
    [[nodiscard]] std::string_view dataOf(const Piece& piece) const {
        return sql_.substr(piece.start, piece.length);
    }

    /// Gives the token behind the data that begins in this one.
    Token readData(Token token, Token end) {
        const Piece& piece = pieces_[piece_];
        const bool alone = piece.start <= startOf(*token) && endOf(piece) >= endOf(*token);
        if (alone && token->kind != TokenKind::text) return readBare(token, end);
        readWithin(*token);
        return token + 1;
    }

    Token readBare(Token token, Token end) {
        const Piece& piece = pieces_[piece_++];
        while (token != end && endOf(*token) <= endOf(piece)) ++token;
        kept_ = (token == end || startOf(*token) >= endOf(piece)) && isBare(piece, dataOf(piece)) &&
                !joinsOperator(sql_.substr(0, piece.start), dataOf(piece));
        parts_.push_back({TokenKind::word, std::string(1, dataSign)});
        return token;
    }

    void readWithin(const SqlToken& token) {
        std::string text;
        std::size_t from = startOf(token);
        for (; piece_ < pieces_.size() && pieces_[piece_].start < endOf(token); ++piece_) {
            const Piece& piece = pieces_[piece_];
            kept_ = kept_ && piece.start >= from && endOf(piece) <= endOf(token) &&
                    staysWithin(token, piece);
            if (!kept_) return;
            text.append(sql_.substr(from, piece.start - from)).append(1, dataSign);
            from = endOf(piece);
        }
        text.append(sql_.substr(from, endOf(token) - from));
        parts_.push_back({token.kind, std::move(text)});
    }

    [[nodiscard]] bool staysWithin(const SqlToken& token, const Piece& piece) const {
        const bool inText = token.kind == TokenKind::text && token.closed &&
                            piece.start > startOf(token) && endOf(piece) < endOf(token);
        return inText || isDigits(dataOf(piece));
    }

    std::string_view sql_;
    const std::vector<Piece>& pieces_;
    std::size_t piece_ = 0;
    bool kept_ = true;
    std::vector<Part> parts_;
};

/// The statement with a digit in the place of its data, or of all data but one piece.
SqlText neutral(const SqlText& sql, const std::vector<Piece>& pieces, const Piece* but = nullptr) {
    SqlText result;
    std::size_t from = 0;
    for (const Piece& piece : pieces) {
        result += sql.text().substr(from, piece.start - from);
        const bool kept = but != nullptr && piece == *but;
        result +=
            SqlText::ofData(kept ? sql.text().substr(piece.start, piece.length) : "0", piece.kind);
        from = piece.start + piece.length;
    }
    return result += sql.text().substr(from);
}

bool hasShapeOf(const SqlText& sql, const SqlText& plain, const SqlSyntax& syntax) {
    const auto pieces = sql.data();
    const auto plainPieces = plain.data();
    const Shape shape(sql.text(), pieces, syntax);
    const Shape expected(plain.text(), plainPieces, syntax);
    return shape.kept() && expected.kept() && shape.parts() == expected.parts();
}

/// Which comments for versions are executed depends on a version that is not known, and a driver
/// may take two dashes for the beginning of a comment where the database wants a blank behind them.
bool hasDoubtfulComment(const SqlText& sql, const SqlSyntax& syntax) {
    if (!syntax.dashCommentNeedsBlank && !syntax.executableComments) return false;
    const auto tokens = tokensOf(sql.text(), syntax);
    if (syntax.executableComments && syntax.serverVersion == 0 &&
        std::any_of(tokens.begin(), tokens.end(), [](const SqlToken& token) {
            return token.text.starts_with("/*!") || token.text.starts_with("/*M!");
        }))
        return true;
    const auto dashes = [](const SqlToken& first, const SqlToken& second) {
        return first.text == "-" && second.text == "-" &&
               first.text.data() + 1 == second.text.data();
    };
    return syntax.dashCommentNeedsBlank &&
           std::adjacent_find(tokens.begin(), tokens.end(), dashes) != tokens.end();
}

bool isUsable(std::string_view data, const SqlSyntax& syntax) {
    return data.find('\0') == std::string_view::npos && (!syntax.unknown || isPlainAnywhere(data));
}

}  // namespace

void requireDataStaysData(const SqlText& sql, const SqlSyntax& syntax) {
    const auto pieces = sql.data();
    if (pieces.empty()) return;
    const auto dataOf = [&](const Piece& piece) {
        return sql.text().substr(piece.start, piece.length);
    };
    for (const Piece& piece : pieces)
        if (!isUsable(dataOf(piece), syntax)) throw DataRefused(dataOf(piece));
    const SqlText plain = neutral(sql, pieces);
    if (!hasDoubtfulComment(sql, syntax) && hasShapeOf(sql, plain, syntax)) return;
    const auto culprit = std::find_if(pieces.begin(), pieces.end(), [&](const Piece& piece) {
        return !hasShapeOf(neutral(sql, pieces, &piece), plain, syntax);
    });
    throw DataRefused(dataOf(culprit == pieces.end() ? pieces.front() : *culprit));
}

}  // namespace catalogador::sql
