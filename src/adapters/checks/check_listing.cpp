#include <algorithm>

#include "adapters/checks/context.h"
#include "adapters/checks/numbers.h"
#include "adapters/checks/sql_reading.h"
#include "modules/modIds.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

constexpr std::size_t shownCodes = 3;

/// The statement as the screen runs it.
std::string statementOf(const Context& context, const ViewRow& view) {
    const std::string company = decimalText(context.options.company);
    std::string sql =
        replaceText(*view.listing, view.perCompany() ? "[prmIdEmpresa]" : "[prmIdEmpresa2]",
                    company, Compare::text);
    if (view.number == viewClassifications) sql = replaceText(sql, "[prm99]", "-1", Compare::text);
    return sql;
}

/// The first placeholder that stays in the statement; empty when there is none.
std::string placeholderLeft(const std::string& sql) {
    for (const std::string& placeholder : placeholdersOf(sql))
        if (beginsWith(placeholder, "[PRM")) return placeholder;
    return {};
}

/// What the first column of a listing holds.
struct ListedCodes {
    std::vector<std::int64_t> codes;
    std::optional<std::string> noNumber;
};

std::string someOf(const std::vector<std::int64_t>& codes) {
    std::string text;
    for (std::size_t i = 0; i < std::min(codes.size(), shownCodes); ++i)
        text += (i == 0 ? "" : ", ") + decimalText(codes[i]);
    return codes.size() > shownCodes ? text + ", …" : text;
}

std::vector<std::int64_t> doublesIn(const std::vector<std::int64_t>& sorted) {
    std::vector<std::int64_t> doubles;
    for (std::size_t i = 1; i < sorted.size(); ++i)
        if (sorted[i] == sorted[i - 1] && (doubles.empty() || doubles.back() != sorted[i]))
            doubles.push_back(sorted[i]);
    return doubles;
}

void compareCodes(const Context& context, const ViewRow& view, ListedCodes listed) {
    const Place place = ofView(view, "ABMConsulta");
    if (listed.noNumber) {
        context.findings.add(kind::listingCodeNoNumber, place, shortened(*listed.noNumber));
        return;
    }
    const auto records = context.metadata.records.find(view.number);
    const std::vector<std::int64_t> none;
    const auto& known = records == context.metadata.records.end() ? none : records->second.codes;
    auto& codes = listed.codes;
    std::sort(codes.begin(), codes.end());
    std::vector<std::int64_t> strange;
    std::set_difference(codes.begin(), codes.end(), known.begin(), known.end(),
                        std::back_inserter(strange));
    // Codes that are there more often than records count as different too.
    std::erase_if(strange, [&](std::int64_t code) {
        return std::binary_search(known.begin(), known.end(), code);
    });
    if (!strange.empty()) {
        context.findings.add(kind::listingOtherCodes, place, someOf(strange));
        return;
    }
    const auto doubles = doublesIn(codes);
    if (!doubles.empty()) {
        context.findings.add(kind::listingCodeTwice, place, someOf(doubles));
        return;
    }
    if (codes.size() < known.size() && !view.perCompany() &&
        joinsRowsAway(*view.listing, context.database.syntax()))
        context.findings.add(kind::listingLeavesOut, place,
                             decimalText(static_cast<std::int64_t>(known.size() - codes.size())));
}

/// Gives whether the listing names records of this view, as far as its text tells.
bool checkNamedView(const Context& context, const ViewRow& view) {
    const sql::SqlSyntax& syntax = context.database.syntax();
    const auto named = viewsOfFirstColumn(*view.listing, syntax);
    std::string other;
    if (named.empty()) {
        if (!mentions(*view.listing, "genCodigoTexto", syntax) ||
            mentions(*view.listing, "CTeIDTipoVista", syntax))
            return true;
        other = "every view";
    } else {
        if (std::find(named.begin(), named.end(), view.number) != named.end()) return true;
        other = "view " + decimalText(named.front());
    }
    context.findings.add(kind::listingOtherView, ofView(view, "ABMConsulta"), other);
    return false;
}

std::optional<int> readListing(const Context& context, const ViewRow& view, const std::string& sql,
                               bool compare) {
    int columns = 0;
    ListedCodes listed;
    context.database.read(sql, [&](rdoResultset& rows) {
        columns = rows.columnCount();
        if (!compare || columns == 0) return;
        forEachText(rows, 0, [&](std::string_view text) {
            if (const auto code = wholeNumber(text))
                listed.codes.push_back(*code);
            else if (!listed.noNumber)
                listed.noNumber = std::string(text);
        });
    });
    if (compare) compareCodes(context, view, std::move(listed));
    return columns - 1;
}

}  // namespace

std::optional<int> checkListing(const Context& context, const ViewRow& view) {
    if (!view.listing) return std::nullopt;
    const Place place = ofView(view, "ABMConsulta");
    const std::string sql = statementOf(context, view);
    if (trim(sql).empty()) {
        context.findings.add(kind::listingEmpty, place);
        return std::nullopt;
    }
    const std::string left = placeholderLeft(sql);
    if (!left.empty()) {
        context.findings.add(kind::listingPlaceholder, place, left);
        return std::nullopt;
    }
    try {
        if (context.database.plan(sql).writes) {
            context.findings.add(kind::listingWrites, place);
            return std::nullopt;
        }
        return readListing(context, view, sql, checkNamedView(context, view));
    } catch (const RuntimeError& error) {
        context.findings.add(kind::listingFails, place, error.description());
        return std::nullopt;
    }
}

}  // namespace catalogador::checks
