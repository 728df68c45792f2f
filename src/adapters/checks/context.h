#pragma once
#include "adapters/checks/checks.h"
#include "adapters/checks/finding_kinds.h"
#include "adapters/checks/metadata.h"

namespace catalogador::checks {

/// What every check gets: all there is to know, and where to put what it finds.
struct Context {
    const Database& database;
    const Metadata& metadata;
    const CheckOptions& options;
    Findings& findings;
};

// One check is one function over metadata that was read before.

void checkSchema(const Context& context);
/// The view's own row but for what the checks below look at.
void checkView(const Context& context, const ViewRow& view);
void checkAccess(const Context& context, const ViewRow& view);
/// Gives the number of columns that the listing shows, without its code; nullopt when there is no
/// knowing.
std::optional<int> checkListing(const Context& context, const ViewRow& view);
/// `shown` is what checkListing gave.
void checkColumns(const Context& context, const ViewRow& view, std::optional<int> shown);
void checkFields(const Context& context, const ViewRow& view);
void checkFieldsOfNoView(const Context& context);
void checkCombos(const Context& context, const ViewRow& view);
void checkSequence(const Context& context, const ViewRow& view);
void checkDuplicateRule(const Context& context, const ViewRow& view);
/// Rules whose name is some view's belong to that view.
void checkRules(const Context& context);

/// A place in the view's own row.
Place ofView(const ViewRow& view, std::string column);
/// A place in a field's row.
Place ofField(const FieldRow& field, std::string column);

}  // namespace catalogador::checks
