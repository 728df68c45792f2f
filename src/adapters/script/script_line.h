#pragma once
#include <charconv>
#include <istream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace catalogador::script {

/// Why a line of a script cannot be carried out.
class Refusal : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A word of a line: bare, or a text that was written as a JSON string.
struct Word {
    std::string text;
    bool quoted = false;
    friend bool operator==(const Word&, const Word&) = default;
};

/// The words of a line. Raises Refusal for a text that is no JSON string.
std::vector<Word> wordsOf(std::string_view line);

struct ScriptLine {
    /// Counted from 1, skipped lines included.
    int number = 0;
    std::string text;
};

/// The lines of a script, read one by one so that a script can be piped in as it is written.
class Script {
  public:
    explicit Script(std::istream& in) : in_(in) {}
    /// The next line that is neither blank nor a comment; nullopt at the end.
    std::optional<ScriptLine> next();

  private:
    std::istream& in_;
    int number_ = 0;
};

/// The arguments of a line, taken one after another. Everything raises Refusal with a text that
/// names the argument.
class Arguments {
  public:
    explicit Arguments(std::vector<Word> words) : words_(std::move(words)) {}

    [[nodiscard]] bool left() const { return at_ < words_.size(); }
    /// Takes the next argument when it is that bare word.
    bool accept(std::string_view word);
    std::string word(const std::string& what);
    std::string text(const std::string& what);
    /// A whole number that fits its type.
    template <class T>
    T number(const std::string& what) {
        const std::string digits = word(what);
        T value{};
        const char* end = digits.data() + digits.size();
        const auto result = std::from_chars(digits.data(), end, value);
        if (result.ec == std::errc::result_out_of_range)
            throw Refusal(what + " " + digits + " is out of range");
        if (result.ec != std::errc() || result.ptr != end)
            throw Refusal(what + " has to be a whole number, not " + digits);
        return value;
    }
    /// Raises Refusal when an argument is left.
    void end() const;

  private:
    const Word& take(const std::string& what);

    std::vector<Word> words_;
    std::size_t at_ = 0;
};

}  // namespace catalogador::script
