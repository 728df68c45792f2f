#include <algorithm>

#include "adapters/checks/context.h"
#include "adapters/checks/sql_reading.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

constexpr const char* table = "genForaneas";
constexpr const char* codeToken = "[prmID]";
constexpr const char* userToken = "[prmID1]";
/// Names with no more differing letters than this are taken for misspelt.
constexpr std::size_t fewLetters = 2;
constexpr std::size_t shortName = 5;

/// How many letters have to be changed, put in or left out to make one name of the other.
std::size_t differingLetters(const std::string& left, const std::string& right) {
    std::vector<std::size_t> row(right.size() + 1);
    for (std::size_t j = 0; j <= right.size(); ++j) row[j] = j;
    for (std::size_t i = 1; i <= left.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            const std::size_t changed = diagonal + (left[i - 1] == right[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
        }
    }
    return row[right.size()];
}

bool looksMisspelt(const std::string& name, const std::string& of) {
    const std::string left = foldCase(trim(name));
    const std::string right = foldCase(trim(of));
    if (left == right) return true;
    return std::min(left.size(), right.size()) >= shortName &&
           differingLetters(left, right) <= fewLetters;
}

const ViewRow* viewNamed(const Metadata& metadata, const std::string& name) {
    for (const auto& [number, view] : metadata.views)
        if (view.name == name) return &view;
    return nullptr;
}

const ViewRow* viewMeant(const Metadata& metadata, const std::string& name) {
    for (const auto& [number, view] : metadata.views)
        if (equalText(trim(orEmpty(view.name)), trim(name))) return &view;
    for (const auto& [number, view] : metadata.views)
        if (looksMisspelt(name, orEmpty(view.name))) return &view;
    return nullptr;
}

/// A rule and the view that it belongs to.
struct RuleOfView {
    const RuleRow& rule;
    const ViewRow* view = nullptr;

    [[nodiscard]] Place place(std::string column) const {
        return {view == nullptr ? std::nullopt : std::optional(view->number), table,
                std::move(column), rule.order};
    }
};

/// Gives the view that the rule belongs to, if any.
const ViewRow* checkName(const Context& context, const RuleRow& rule) {
    const Metadata& metadata = context.metadata;
    if (const ViewRow* view = viewNamed(metadata, rule.table)) return view;
    const ViewRow* meant = viewMeant(metadata, rule.table);
    if (metadata.schema.table(rule.table) != nullptr &&
        (meant == nullptr || !equalText(orEmpty(meant->name), rule.table)))
        return nullptr;
    const RuleOfView place{rule, meant};
    if (meant == nullptr) {
        context.findings.add(kind::ruleNameUnknown, place.place("ForTablaAControlar"), rule.table);
        return nullptr;
    }
    const auto quoted = [](const std::string& text) {
        return "'" + replaceText(text, "'", "''", Compare::binary) + "'";
    };
    context.findings
        .add(kind::ruleOtherCapitals, place.place("ForTablaAControlar"), rule.table, *meant->name)
        .fix = "Update genForaneas Set ForTablaAControlar = " + quoted(*meant->name) +
               " Where ForTablaAControlar = " + quoted(rule.table);
    return meant;
}

/// The first token that the screen leaves as it stands; empty when there is none.
std::string tokenLeft(std::string_view sql, bool withUser) {
    for (const std::string& token : placeholdersOf(sql)) {
        if (!beginsWith(token, "[PRM") || token == codeToken) continue;
        if (withUser && token == userToken) continue;
        return token;
    }
    return {};
}

/// Gives the statement as the screen runs it, or an empty text when a token stays in it.
std::string filledIn(const Context& context, const Place& place, std::string_view sql,
                     bool withUser) {
    const std::string left = tokenLeft(sql, withUser);
    if (!left.empty()) {
        context.findings.add(kind::ruleToken, place, left);
        return {};
    }
    const std::string withCode = replaceText(sql, codeToken, "0", Compare::binary);
    return replaceText(withCode, userToken, "0", Compare::binary);
}

void checkStatement(const Context& context, const RuleOfView& rule) {
    const std::string& statement = orEmpty(rule.rule.statement);
    const Place place = rule.place("ForSQLForanea");
    if (trim(statement).empty()) {
        context.findings.add(kind::ruleEmpty, place);
        return;
    }
    const std::string sql = filledIn(context, place, statement, true);
    if (sql.empty()) return;
    try {
        if (context.database.plan(sql).writes) {
            context.findings.add(kind::ruleWrites, place);
            return;
        }
    } catch (const RuntimeError& error) {
        context.findings.add(kind::ruleFails, place, error.description());
        return;
    }
    if (!containsText(statement, codeToken, Compare::binary))
        context.findings.add(kind::ruleWithoutCode, place);
}

void checkFollowUp(const Context& context, const RuleOfView& rule) {
    const std::string& followUp = rule.rule.followUp;
    const Place place = rule.place("ForSQLUpdate");
    const bool selects = beginsWith(followUp, "SELECT");
    if (!selects && !beginsWith(followUp, "UPDATE")) {
        context.findings.add(kind::followUpIgnored, place, shortened(followUp));
        return;
    }
    const std::string sql = filledIn(context, place, followUp, false);
    if (sql.empty()) return;
    try {
        const StatementPlan plan = context.database.plan(sql);
        if (selects && plan.table.empty()) {
            context.findings.add(kind::followUpSeveralTables, place);
            return;
        }
    } catch (const RuntimeError& error) {
        context.findings.add(kind::followUpFails, place, error.description());
        return;
    }
    if (!containsText(followUp, codeToken, Compare::binary))
        context.findings.add(kind::followUpWithoutCode, place);
}

}  // namespace

void checkRules(const Context& context) {
    for (const RuleRow& row : context.metadata.rules) {
        const RuleOfView rule{row, checkName(context, row)};
        checkStatement(context, rule);
        if (!row.followUp.empty())
            checkFollowUp(context, rule);
        else if (trim(row.message).empty())
            context.findings.add(kind::ruleWithoutMessage, rule.place("ForMensaje"));
    }
}

}  // namespace catalogador::checks
