#include "adapters/languages/po_file.h"

#include <fstream>
#include <sstream>
#include <string_view>

#include "adapters/system/paths.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::languages {

namespace {

/// Reads a catalogue line by line; a quoted line goes on with the keyword before it.
class PoReader {
  public:
    PoReader(std::string path, std::istream& input) : path_(std::move(path)), input_(input) {
        if (!input_)
            throw RuntimeError(error_number::cannotCreateObject, "Cannot read the file " + path_);
    }

    std::map<std::string, std::string> read() {
        for (std::string line; std::getline(input_, line);) {
            ++lineNumber_;
            take(trim(withoutReturn(line)));
        }
        if (input_.bad()) fail("cannot be read");
        finishEntry();
        return std::move(texts_);
    }

  private:
    enum class Part { none, context, id, text, ignored };

    static std::string_view withoutReturn(std::string_view line) {
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        return line;
    }

    [[noreturn]] void fail(const std::string& what) const {
        throw RuntimeError(
            error_number::cannotCreateObject,
            "The file " + path_ + " " + what + " (line " + decimalText(lineNumber_) + ")");
    }

    void take(std::string_view line) {
        if (line.empty()) return finishEntry();
        if (line.front() == '#') {
            if (part_ == Part::text || part_ == Part::ignored) finishEntry();
            if (line.starts_with("#,") && line.find("fuzzy") != std::string_view::npos)
                fuzzy_ = true;
            return;
        }
        if (line.front() == '"') return append(line);
        keyword(line);
    }

    void keyword(std::string_view line) {
        const std::size_t end = line.find_first_of(" \t");
        const std::string_view word = line.substr(0, end);
        if (end == std::string_view::npos) fail("has a keyword without a text");
        if (word == "msgctxt") {
            finishEntry();
            part_ = Part::context;
            hasContext_ = true;
        } else if (word == "msgid") {
            if (part_ == Part::text || part_ == Part::ignored) finishEntry();
            part_ = Part::id;
        } else if (word == "msgstr") {
            part_ = Part::text;
        } else if (word.starts_with("msgstr[") || word == "msgid_plural") {
            part_ = Part::ignored;
        } else {
            fail("has an unknown keyword");
        }
        append(trim(line.substr(end)));
    }

    void append(std::string_view quoted) {
        if (quoted.size() < 2 || quoted.front() != '"' || quoted.back() != '"')
            fail("has a text without closing quotes");
        const std::string text = unescaped(quoted.substr(1, quoted.size() - 2));
        if (part_ == Part::context) context_ += text;
        if (part_ == Part::text) text_ += text;
        if (part_ == Part::none) fail("has a text without a keyword");
    }

    [[nodiscard]] std::string unescaped(std::string_view text) const {
        std::string plain;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '"') fail("has quotes inside a text");
            if (text[i] != '\\') {
                plain += text[i];
                continue;
            }
            if (++i == text.size()) fail("has a text without closing quotes");
            switch (text[i]) {
                case 'n':
                    plain += '\n';
                    break;
                case 'r':
                    plain += '\r';
                    break;
                case 't':
                    plain += '\t';
                    break;
                case '"':
                case '\\':
                    plain += text[i];
                    break;
                default:
                    fail("has an unknown escape");
            }
        }
        return plain;
    }

    void finishEntry() {
        if (hasContext_ && !fuzzy_ && part_ == Part::text) texts_[context_] = text_;
        if (part_ != Part::none) fuzzy_ = false;
        part_ = Part::none;
        hasContext_ = false;
        context_.clear();
        text_.clear();
    }

    std::string path_;
    std::istream& input_;
    int lineNumber_ = 0;
    Part part_ = Part::none;
    bool hasContext_ = false;
    bool fuzzy_ = false;
    std::string context_;
    std::string text_;
    std::map<std::string, std::string> texts_;
};

}  // namespace

std::map<std::string, std::string> readPoFile(const std::string& path) {
    std::ifstream file(pathOf(path));
    return PoReader(path, file).read();
}

std::map<std::string, std::string> readPoText(const std::string& content, const std::string& name) {
    std::istringstream text(content);
    return PoReader(name, text).read();
}

}  // namespace catalogador::languages
