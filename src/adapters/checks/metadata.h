#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "adapters/checks/database.h"
#include "adapters/checks/record_facts.h"
#include "adapters/checks/schema_facts.h"

namespace catalogador::checks {

/// A value as text; nullopt for Null.
using Text = std::optional<std::string>;

/// A row of CatalogadorControles.
struct FieldRow {
    std::int64_t view = 0;
    std::string key;
    Text caption;
    Text length;
    Text required;
    Text duplicate;
    Text f2;
    Text kind;
    Text source;
};

/// A row of Catalogador, with the rows of CatalogadorControles that belong to it.
struct ViewRow {
    std::int64_t number = 0;
    /// Rows that the number has.
    int rows = 1;
    Text title;
    Text name;
    Text width;
    Text listing;
    Text headers;
    Text widths;
    Text alignments;
    Text duplicates;
    Text help;
    Text access;
    std::vector<FieldRow> fields;

    /// Null when the view has no row for the field.
    [[nodiscard]] const FieldRow* field(std::string_view key) const;
    /// Whether its records belong to companies.
    [[nodiscard]] bool perCompany() const;
};

/// A row of genForaneas.
struct RuleRow {
    std::string table;
    std::string order;
    Text statement;
    std::string message;
    std::string followUp;
};

/// A row of accPermisos of a user who exists.
struct RightRow {
    std::string option;
    std::string rights;
};

/// All metadata of a database.
struct Metadata {
    SchemaFacts schema;
    /// By number; views that are not to be checked too, because others refer to them.
    std::map<std::int64_t, ViewRow> views;
    std::vector<FieldRow> fieldsOfNoView;
    /// What the sequences were drawn to last, by name.
    std::map<std::string, Text> sequences;
    std::vector<RuleRow> rules;
    std::vector<RightRow> rights;
    std::map<std::int64_t, RecordFacts> records;
};

/// Reads everything that is there. What is missing (tables, columns) reads as empty and Null.
/// Raises RuntimeError.
Metadata readMetadata(const Database& database);

/// The value of a text, empty for Null.
const std::string& orEmpty(const Text& text);

}  // namespace catalogador::checks
