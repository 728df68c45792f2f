#include "adapters/views/file_reader.h"

#include <algorithm>
#include <limits>

#include "adapters/checks/finding.h"
#include "adapters/views/toml_entries.h"
#include "runtime/text.h"

namespace catalogador::views {

namespace {

std::size_t lineOf(const toml::node& node) {
    return node.source().begin.line;
}

std::string listed(std::span<const Column> columns) {
    std::string names;
    for (const Column& column : columns)
        names += (names.empty() ? "" : ", ") + std::string(column.name);
    return names;
}

/// Reads the tables of one file and collects what is wrong with them.
class Reader {
  public:
    explicit Reader(std::vector<Problem>& problems) : problems_(problems) {}

    View view(const toml::table& file) {
        View view;
        view.view.resize(viewColumns().size());
        onlyKeys(file, {"view", "sequence", "fields", "rules", "rights", "check", "test"},
                 "a file");
        if (const toml::table* table = section(file, "view"))
            view.view = row(*table, viewColumns(), "[view]");
        else
            add(1, "there is no table [view]; begin with [view] and ABMIDFormVista = NUMBER");
        view.fields = rows(file, "fields", fieldColumns());
        view.rules = rows(file, "rules", ruleColumns());
        view.rights = rows(file, "rights", rightColumns());
        readSequence(file, view);
        readIgnored(file, view);
        readTest(file, view);
        if (problems_.empty()) requireMeaning(file, view);
        return view;
    }

  private:
    void add(std::size_t line, std::string text) { problems_.push_back({line, std::move(text)}); }

    void onlyKeys(const toml::table& table, const std::vector<std::string_view>& known,
                  const std::string& where) {
        for (const auto& [key, node] : table) {
            if (std::find(known.begin(), known.end(), key.str()) != known.end()) continue;
            std::string names;
            for (const auto name : known) names += (names.empty() ? "" : ", ") + std::string(name);
            add(key.source().begin.line, "there is no key " + std::string(key.str()) + " in " +
                                             where + "; the keys are " + names);
        }
    }

    /// Null when it is not there.
    const toml::table* section(const toml::table& file, const char* name) {
        const toml::node* node = file.get(name);
        if (node == nullptr) return nullptr;
        if (!node->is_table())
            add(lineOf(*node), std::string(name) + " is no table; write [" + name + "]");
        return node->as_table();
    }

    Variant value(const toml::node& node, const Column& column) {
        Variant read;
        if (const auto* text = node.as_string())
            read = text->get();
        else if (const auto* whole = node.as_integer())
            read = whole->get();
        else if (const auto* number = node.as_floating_point())
            read = number->get();
        const auto kept = fitting(read, column.contents);
        if (!kept || kept->isNull()) {
            add(lineOf(node), std::string(column.name) + " has to be " +
                                  std::string(nameOf(column.contents)) +
                                  "; leave the key out for Null");
            return {};
        }
        if (const auto* text = kept->as<std::string>();
            text != nullptr && text->find('\0') != std::string::npos)
            add(lineOf(node),
                std::string(column.name) + " holds a NUL, which no database takes; leave it out");
        return *kept;
    }

    Row row(const toml::table& table, std::span<const Column> columns, const std::string& where) {
        Row result(columns.size());
        for (const auto& [key, node] : table) {
            const std::size_t place = placeOf(columns, key.str());
            if (place == columns.size())
                add(key.source().begin.line, "there is no key " + std::string(key.str()) + " in " +
                                                 where + "; the keys are " + listed(columns));
            else
                result[place] = value(node, columns[place]);
        }
        return result;
    }

    std::vector<Row> rows(const toml::table& file, const char* name,
                          std::span<const Column> columns) {
        std::vector<Row> result;
        const toml::node* node = file.get(name);
        if (node == nullptr) return result;
        const std::string head = "[[" + std::string(name) + "]]";
        if (!node->is_array() || (!node->as_array()->empty() && !node->is_array_of_tables())) {
            add(lineOf(*node),
                std::string(name) + " is no list of tables; write " + head + " before each");
            return result;
        }
        for (const toml::node& element : *node->as_array()) {
            result.push_back(row(*element.as_table(), columns, head));
            if (result.back().front().isNull() && columns.front().name != "ForOrdenSQL")
                add(lineOf(element), head + " lacks " + std::string(columns.front().name));
        }
        return result;
    }

    void readSequence(const toml::table& file, View& view) {
        const toml::table* table = section(file, "sequence");
        if (table == nullptr) return;
        view.hasSequence = true;
        onlyKeys(*table, {"NumNombre"}, "[sequence]");
        const toml::node* name = table->get("NumNombre");
        if (name == nullptr || name->value<std::string>() != view.name() || view.name().empty())
            add(lineOf(*table),
                "the sequence of a view bears its name; write NumNombre as ABMNombreVista");
    }

    void readIgnored(const toml::table& file, View& view) {
        const toml::table* table = section(file, "check");
        if (table == nullptr) return;
        onlyKeys(*table, {"ignore"}, "[check]");
        const toml::node* list = table->get("ignore");
        if (list == nullptr) return;
        if (!list->is_array()) {
            add(lineOf(*list), "ignore is no list; write ignore = [\"CAT043\"]");
            return;
        }
        for (const toml::node& element : *list->as_array()) {
            const auto number = checks::numberOf(element.value<std::string>().value_or(""));
            if (number)
                view.ignored.push_back(*number);
            else
                add(lineOf(element), "there is no such finding; write ignore = [\"CAT043\"]");
        }
    }

    void readText(const toml::table& table, const char* key, std::string& target) {
        const toml::node* node = table.get(key);
        if (node == nullptr) return;
        if (const auto text = node->value<std::string>())
            target = *text;
        else
            add(lineOf(*node), std::string(key) + " has to be a text");
    }

    void readNumber(const toml::table& table, const char* key, std::int16_t& target) {
        const toml::node* node = table.get(key);
        if (node == nullptr) return;
        if (const auto* number = node->as_integer();
            number != nullptr && fitting(Variant(number->get()), Contents::smallNumber))
            target = static_cast<std::int16_t>(number->get());
        else
            add(lineOf(*node),
                std::string(key) + " has to be " + std::string(nameOf(Contents::smallNumber)));
    }

    void readTest(const toml::table& file, View& view) {
        const toml::table* table = section(file, "test");
        if (table == nullptr) return;
        onlyKeys(*table, {"script", "expected", "user", "company", "language", "locale", "app-key"},
                 "[test]");
        TestCall& test = view.test.emplace();
        readText(*table, "script", test.script);
        readText(*table, "expected", test.expected);
        readText(*table, "user", test.user);
        readNumber(*table, "company", test.company);
        readNumber(*table, "language", test.language);
        readText(*table, "locale", test.locale);
        readText(*table, "app-key", test.appKey);
        if (test.script.empty() || test.expected.empty())
            add(lineOf(*table),
                "[test] lacks script or expected; name the screen script and the "
                "file of its transcript");
    }

    void requireMeaning(const toml::table& file, const View& view) {
        const toml::node& table = *file.get("view");
        const auto* number = view.view.front().as<std::int64_t>();
        if (number == nullptr)
            add(lineOf(table), "[view] lacks ABMIDFormVista, the number of the view");
        else if (*number < 1)
            add(lineOf(*table.as_table()->get("ABMIDFormVista")),
                "there is no view " + decimalText(*number) +
                    "; a view has a number from 1 to 32767");
        if (!view.rules.empty() && view.name().empty())
            add(lineOf(*file.get("rules")),
                "rules belong to the view's name; give the view one with ABMNombreVista");
        if (!view.rights.empty() && view.option().empty())
            add(lineOf(*file.get("rights")),
                "rights are for the view's option; name it in ABMValidarAcceso");
        requireOneRightEach(file, view);
    }

    void requireOneRightEach(const toml::table& file, const View& view) {
        for (std::size_t index = 0; index < view.rights.size(); ++index) {
            const Row& right = view.rights[index];
            const toml::node& node = *file.get("rights")->as_array()->get(index);
            if (right[1].isNull())
                add(lineOf(node), "[[rights]] lacks PerEmpresa, the company; 0 is for all of them");
            for (std::size_t other = 0; other < index; ++other)
                if (view.rights[other][0] == right[0] && view.rights[other][1] == right[1])
                    add(lineOf(node),
                        "the user has rights for this company already; keep one of the two");
        }
    }

    std::vector<Problem>& problems_;
};

}  // namespace

std::optional<View> readView(std::string_view text, std::vector<Problem>& problems) {
    try {
        const toml::table file = toml::parse(text);
        View view = Reader(problems).view(file);
        if (!problems.empty()) {
            std::stable_sort(
                problems.begin(), problems.end(),
                [](const Problem& left, const Problem& right) { return left.line < right.line; });
            return std::nullopt;
        }
        putInOrder(view);
        return view;
    } catch (const toml::parse_error& error) {
        problems.push_back({error.source().begin.line,
                            std::string(error.description()) + "; write it as TOML does"});
        return std::nullopt;
    }
}

}  // namespace catalogador::views
