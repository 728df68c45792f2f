#include "adapters/checks/context.h"
#include "adapters/checks/numbers.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

constexpr std::int64_t lastCode = 2147483647;

std::int64_t highestCode(const Metadata& metadata, std::int64_t view) {
    const auto records = metadata.records.find(view);
    if (records == metadata.records.end() || records->second.codes.empty()) return 0;
    return std::max<std::int64_t>(records->second.codes.back(), 0);
}

std::string quoted(const std::string& text) {
    return "'" + replaceText(text, "'", "''", Compare::binary) + "'";
}

/// The sequence that differs from the name in capitals only; empty when there is none.
std::string otherCapitals(const Metadata& metadata, const std::string& name) {
    for (const auto& [sequence, last] : metadata.sequences)
        if (equalText(sequence, name)) return sequence;
    return {};
}

void checkLast(const Context& context, const ViewRow& view, const std::string& sequence,
               const Text& last) {
    const Place place{view.number, "genNumeradores", "NumUltimo", {}};
    const std::int64_t highest = highestCode(context.metadata, view.number);
    // What is no number cannot be counted on either.
    const std::int64_t number = wholeNumber(orEmpty(last)).value_or(lastCode);
    const std::string fix = "Update genNumeradores Set NumUltimo = " + decimalText(highest) +
                            " Where NumNombre = " + quoted(sequence);
    if (number >= lastCode)
        context.findings.add(kind::sequenceUnusable, place, last.value_or("Null")).fix = fix;
    else if (number < highest)
        context.findings.add(kind::sequenceBehind, place, *last, decimalText(highest)).fix = fix;
}

}  // namespace

void checkSequence(const Context& context, const ViewRow& view) {
    const std::string& name = orEmpty(view.name);
    if (name.empty() || context.metadata.schema.table("genNumeradores") == nullptr) return;
    const auto& sequences = context.metadata.sequences;
    const auto exact = sequences.find(name);
    if (exact != sequences.end()) return checkLast(context, view, exact->first, exact->second);
    const std::string similar = otherCapitals(context.metadata, name);
    Finding& finding = context.findings.add(
        kind::sequenceMissing, {view.number, "genNumeradores", {}, {}}, name,
        similar.empty() ? std::string() : "; there is one named '" + similar + "'");
    finding.fix = similar.empty()
                      ? "Insert Into genNumeradores (NumNombre, NumUltimo) Values (" +
                            quoted(name) + ", " +
                            decimalText(highestCode(context.metadata, view.number)) + ")"
                      : "Update genNumeradores Set NumNombre = " + quoted(name) +
                            " Where NumNombre = " + quoted(similar);
}

}  // namespace catalogador::checks
