#include "apps/check_report.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

#include "runtime/text.h"

namespace catalogador {

namespace {

using checks::Finding;
using checks::Place;
using checks::Severity;
using nlohmann::ordered_json;

bool isIgnored(const Finding& finding, const CheckCall& call) {
    const std::int64_t view = finding.place.view.value_or(0);
    return std::any_of(call.ignored.begin(), call.ignored.end(), [&](const IgnoredFinding& one) {
        return one.number == finding.number && one.view == view;
    });
}

void count(FindingCounts& counts, Severity severity) {
    switch (severity) {
        case Severity::error:
            ++counts.errors;
            break;
        case Severity::warning:
            ++counts.warnings;
            break;
        case Severity::note:
            ++counts.notes;
            break;
    }
}

std::string onOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

/// "view 41, CatalogadorControles.ACoLen, Valor1".
std::string placeText(const Place& place) {
    std::string text = place.view ? "view " + decimalText(*place.view) + ", " : std::string();
    text += place.table;
    if (!place.column.empty()) text += "." + place.column;
    if (!place.key.empty()) text += ", " + place.key;
    return onOneLine(text);
}

void printText(std::ostream& out, const Finding& finding, bool fixHints) {
    out << checks::idOf(finding.number) << ' ' << nameOf(finding.kind().severity) << ": "
        << placeText(finding.place) << ": " << onOneLine(finding.message) << ".\n    "
        << finding.kind().effect << "\n    " << finding.kind().hint << '\n';
    if (fixHints && !finding.fix.empty()) out << "    " << finding.fix << ";\n";
}

ordered_json textOrNull(const std::string& text) {
    return text.empty() ? ordered_json() : ordered_json(text);
}

void printJson(std::ostream& out, const ordered_json& object) {
    out << object.dump(-1, ' ', false, ordered_json::error_handler_t::replace) << '\n';
}

void printJson(std::ostream& out, const Finding& finding, bool fixHints) {
    const Place& place = finding.place;
    ordered_json object{{"id", checks::idOf(finding.number)},
                        {"severity", nameOf(finding.kind().severity)},
                        {"view", place.view ? ordered_json(*place.view) : ordered_json()},
                        {"table", place.table},
                        {"column", textOrNull(place.column)},
                        {"key", textOrNull(place.key)},
                        {"message", finding.message},
                        {"effect", finding.kind().effect},
                        {"hint", finding.kind().hint}};
    if (fixHints) object["fix"] = textOrNull(finding.fix);
    printJson(out, object);
}

/// What a workflow command would read as its own end or as one more property.
std::string escaped(const std::string& text, bool property) {
    std::string result;
    for (const char c : text) {
        if (c == '%')
            result += "%25";
        else if (c == '\n')
            result += "%0A";
        else if (c == '\r')
            result += "%0D";
        else if (property && c == ':')
            result += "%3A";
        else if (property && c == ',')
            result += "%2C";
        else
            result += c;
    }
    return result;
}

void printGithub(std::ostream& out, const Finding& finding, bool fixHints) {
    const Severity severity = finding.kind().severity;
    std::string text = placeText(finding.place) + ": " + finding.message + ". " +
                       std::string(finding.kind().effect) + " " + std::string(finding.kind().hint);
    if (fixHints && !finding.fix.empty()) text += " " + finding.fix + ";";
    out << "::" << (severity == Severity::note ? "notice" : nameOf(severity))
        << " title=" << escaped(checks::idOf(finding.number) + " " + placeText(finding.place), true)
        << "::" << escaped(text, false) << '\n';
}

std::string counted(int number, const std::string& one) {
    return decimalText(number) + " " + one + (number == 1 ? "" : "s");
}

void printCounts(std::ostream& out, const FindingCounts& counts, const std::string& format) {
    if (format == "json") {
        printJson(out, ordered_json{{"views", counts.views},
                                    {"errors", counts.errors},
                                    {"warnings", counts.warnings},
                                    {"notes", counts.notes},
                                    {"ignored", counts.ignored}});
        return;
    }
    out << counted(counts.views, "view") << " checked: " << counted(counts.errors, "error") << ", "
        << counted(counts.warnings, "warning") << ", " << counted(counts.notes, "note") << ", "
        << decimalText(counts.ignored) << " ignored\n";
}

}  // namespace

FindingCounts reportFindings(std::ostream& out, const checks::CheckResult& result,
                             const CheckCall& call) {
    FindingCounts counts;
    counts.views = result.views;
    const auto print = call.format == "json"
                           ? static_cast<void (*)(std::ostream&, const Finding&, bool)>(printJson)
                       : call.format == "github" ? printGithub
                                                 : printText;
    for (const Finding& finding : result.findings) {
        if (isIgnored(finding, call)) {
            ++counts.ignored;
            continue;
        }
        count(counts, finding.kind().severity);
        print(out, finding, call.fixHints);
    }
    printCounts(out, counts, call.format);
    return counts;
}

}  // namespace catalogador
