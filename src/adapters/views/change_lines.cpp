#include <algorithm>

#include "adapters/views/changes.h"
#include "adapters/views/file_text.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::views {

namespace {

constexpr std::size_t longestPart = 60;
constexpr std::size_t lead = 20;

std::string textOf(const Variant& value) {
    return toTextOrEmpty(value, Regional{});
}

/// How many characters two texts have alike at their beginning.
std::size_t alikeIn(std::string_view left, std::string_view right) {
    const std::size_t bytes = static_cast<std::size_t>(
        std::mismatch(left.begin(), left.end(), right.begin(), right.end()).first - left.begin());
    return lengthInCharacters(left.substr(0, bytes));
}

/// The value on one line; of a long text the part around the place where it differs.
std::string shown(const Variant& value, std::size_t differsAt) {
    const auto* text = value.as<std::string>();
    if (text == nullptr) return value.isNull() ? "Null" : textOf(value);
    const std::size_t skipped = differsAt > lead ? differsAt - lead : 0;
    std::string_view rest = *text;
    rest.remove_prefix(characterOffset(rest, skipped));
    const std::string_view part = leftCharacters(rest, longestPart);
    std::string line = std::string(skipped > 0 ? "…" : "") + std::string(part) +
                       (part.size() < rest.size() ? "…" : "");
    line = replaceText(line, "\\", "\\\\", Compare::binary);
    line = replaceText(line, "\"", "\\\"", Compare::binary);
    line = replaceText(line, "\r", "\\r", Compare::binary);
    return "\"" + replaceText(line, "\n", "\\n", Compare::binary) + "\"";
}

std::string changeText(const Variant& before, const Variant& after) {
    const std::size_t alike = alikeIn(textOf(before), textOf(after));
    return shown(before, alike) + " -> " + shown(after, alike);
}

class Lines {
  public:
    explicit Lines(std::int64_t view) : begin_("view " + decimalText(view) + ": ") {}

    void add(const std::string& text) { lines_.push_back(begin_ + text); }

    void addRows(const RowChanges& changes, std::span<const Column> columns,
                 const std::string& table, std::size_t keyColumns) {
        const auto place = [&](const Row& row) {
            std::string text = table;
            for (std::size_t index = 0; index < keyColumns; ++index)
                text += " " + textOf(row[index]);
            return text;
        };
        for (const Row& row : changes.removed) add(place(row) + ": removed");
        for (const Row& row : changes.added) add(place(row) + ": added");
        for (const auto& [before, after] : changes.changed)
            for (std::size_t index = 0; index < columns.size(); ++index)
                if (before[index] != after[index])
                    add(place(before) + "." + std::string(columns[index].name) + ": " +
                        changeText(before[index], after[index]));
    }

    [[nodiscard]] const std::vector<std::string>& all() const { return lines_; }

  private:
    std::string begin_;
    std::vector<std::string> lines_;
};

std::vector<std::string> linesOf(const ViewChanges& changes, const StoredViews& stored) {
    Lines lines(changes.number);
    if (changes.isNew)
        lines.add("added");
    else
        lines.addRows(changes.view, viewColumns(), "Catalogador", 0);
    lines.addRows(changes.fields, fieldColumns(), "CatalogadorControles", 1);
    if (changes.sequence >= 0) {
        const std::string name = changes.wanted.name();
        const auto before = stored.sequences.find(name);
        const std::string to = decimalText(changes.sequence);
        lines.add("genNumeradores " + name + ": " +
                  (before == stored.sequences.end()
                       ? "added at " + to
                       : (before->second ? decimalText(*before->second) : "Null") + " -> " + to));
    }
    lines.addRows(changes.rules, ruleColumns(), "genForaneas", 1);
    for (const std::string& user : changes.newUsers) lines.add("accUsuarios " + user + ": added");
    lines.addRows(changes.rights, rightColumns(), "accPermisos", 2);
    return lines.all();
}

}  // namespace

std::vector<std::string> linesOf(const Changes& changes, const StoredViews& stored,
                                 const ChangeOptions& options) {
    std::vector<std::string> lines;
    for (const ViewChanges& view : changes.views) {
        const auto more = linesOf(view, stored);
        lines.insert(lines.end(), more.begin(), more.end());
    }
    for (const std::int64_t number : changes.missing)
        if (options.deleteMissing) lines.push_back("view " + decimalText(number) + ": removed");
    for (const std::string& name : changes.releasedNames)
        lines.push_back("genForaneas " + name + ": removed");
    for (const std::string& name : changes.releasedSequences)
        lines.push_back("genNumeradores " + name + ": removed");
    return lines;
}

}  // namespace catalogador::views
