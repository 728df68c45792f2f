#pragma once
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace catalogador {

/// A pattern of the host language's Like operator: "*" any run of characters, "?" one character,
/// "#" one digit, "[abc]" one of a set, "[a-f]" a range, "[!…]" none of a set. "[]" stands for
/// nothing. Comparison is by code point. Matching takes time linear in the text for one "*" and
/// never more than text times pattern.
class LikePattern {
  public:
    /// Raises invalidPattern for a set that is not closed and a range the wrong way round.
    explicit LikePattern(std::string_view pattern);

    [[nodiscard]] bool matches(std::string_view text) const;

    /// The text between the two "*" when the pattern is "*plain*" without any other wildcard, so
    /// that a caller can search for it in bulk; null otherwise.
    [[nodiscard]] const std::string* plainSubstring() const;
    /// A piece of text that is in everything that matches, the longest there is; empty when the
    /// pattern has no such piece.
    [[nodiscard]] const std::string& requiredText() const { return required_; }

  private:
    struct Token {
        enum class Kind { literal, anyRun, anyOne, digit, set } kind;
        char32_t character = 0;
        bool negated = false;
        std::vector<std::pair<char32_t, char32_t>> ranges;

        [[nodiscard]] bool accepts(char32_t c) const;
    };
    void findPlainSubstring();
    void findRequiredText();

    std::vector<Token> tokens_;
    std::string plain_;
    std::string required_;
    bool isPlain_ = false;
};

}  // namespace catalogador
