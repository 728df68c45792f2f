#include "runtime/like.h"

#include <algorithm>

#include "runtime/error.h"
#include "runtime/utf8.h"

namespace catalogador {

namespace {

[[noreturn]] void invalidPattern() {
    throw RuntimeError(error_number::invalidPattern, "Invalid pattern string");
}

std::vector<char32_t> charactersOf(std::string_view text) {
    std::vector<char32_t> characters;
    characters.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) characters.push_back(nextCharacter(text, at));
    return characters;
}

/// nextCharacter, without a call for the characters that most texts are made of.
inline char32_t characterAt(std::string_view text, std::size_t& at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte >= 0x80) return nextCharacter(text, at);
    ++at;
    return byte;
}

using Ranges = std::vector<std::pair<char32_t, char32_t>>;

Ranges rangesOf(const char32_t* from, const char32_t* to) {
    Ranges ranges;
    while (from < to) {
        // A hyphen at either edge of the set stands for itself.
        if (to - from >= 3 && from[1] == U'-') {
            if (from[0] > from[2]) invalidPattern();
            ranges.emplace_back(from[0], from[2]);
            from += 3;
        } else {
            ranges.emplace_back(from[0], from[0]);
            ++from;
        }
    }
    return ranges;
}

}  // namespace

bool LikePattern::Token::accepts(char32_t c) const {
    switch (kind) {
        case Kind::literal:
            return c == character;
        case Kind::anyOne:
            return true;
        case Kind::digit:
            return c >= U'0' && c <= U'9';
        case Kind::set:
            return negated != std::any_of(ranges.begin(), ranges.end(), [&](const auto& range) {
                       return c >= range.first && c <= range.second;
                   });
        case Kind::anyRun:
            break;
    }
    return false;
}

LikePattern::LikePattern(std::string_view pattern) {
    const std::vector<char32_t> characters = charactersOf(pattern);
    for (std::size_t i = 0; i < characters.size(); ++i) {
        Token token{Token::Kind::literal, characters[i], false, {}};
        if (token.character == U'*') {
            if (!tokens_.empty() && tokens_.back().kind == Token::Kind::anyRun) continue;
            token.kind = Token::Kind::anyRun;
        } else if (token.character == U'?') {
            token.kind = Token::Kind::anyOne;
        } else if (token.character == U'#') {
            token.kind = Token::Kind::digit;
        } else if (token.character == U'[') {
            const auto begin = characters.begin() + static_cast<std::ptrdiff_t>(i) + 1;
            const auto end = std::find(begin, characters.end(), U']');
            if (end == characters.end()) invalidPattern();
            i += static_cast<std::size_t>(end - begin) + 1;
            if (begin == end) continue;
            token.kind = Token::Kind::set;
            token.negated = *begin == U'!' && end - begin > 1;
            const char32_t* first = &*begin;
            token.ranges = rangesOf(first + (token.negated ? 1 : 0), first + (end - begin));
        }
        tokens_.push_back(std::move(token));
    }
    findPlainSubstring();
    findRequiredText();
}

void LikePattern::findRequiredText() {
    std::string piece;
    for (const Token& token : tokens_) {
        if (token.kind == Token::Kind::literal)
            appendCharacter(piece, token.character);
        else
            piece.clear();
        if (piece.size() > required_.size()) required_ = piece;
    }
}

void LikePattern::findPlainSubstring() {
    if (tokens_.empty() || tokens_.front().kind != Token::Kind::anyRun ||
        tokens_.back().kind != Token::Kind::anyRun)
        return;
    for (std::size_t i = 1; i + 1 < tokens_.size(); ++i) {
        if (tokens_[i].kind != Token::Kind::literal) return;
        appendCharacter(plain_, tokens_[i].character);
    }
    isPlain_ = true;
}

const std::string* LikePattern::plainSubstring() const {
    return isPlain_ ? &plain_ : nullptr;
}

bool LikePattern::matches(std::string_view text) const {
    if (isPlain_) return text.find(plain_) != std::string_view::npos;
    std::size_t at = 0;
    std::size_t token = 0;
    // Only the last run needs to be widened when what follows it fails.
    std::size_t afterRun = std::string_view::npos;
    std::size_t runEnd = 0;
    while (at < text.size()) {
        if (token < tokens_.size() && tokens_[token].kind == Token::Kind::anyRun) {
            afterRun = ++token;
            runEnd = at;
            continue;
        }
        std::size_t next = at;
        if (token < tokens_.size() && tokens_[token].accepts(characterAt(text, next))) {
            at = next;
            ++token;
            continue;
        }
        if (afterRun == std::string_view::npos) return false;
        characterAt(text, runEnd);
        at = runEnd;
        token = afterRun;
    }
    while (token < tokens_.size() && tokens_[token].kind == Token::Kind::anyRun) ++token;
    return token == tokens_.size();
}

}  // namespace catalogador
