#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "form/fields/field.h"
#include "form/working_records.h"
#include "platform/host.h"

namespace catalogador {

/// The record that the fields show, as it is to be written.
struct EditedRecord {
    std::int16_t view = 0;
    std::int32_t code = 0;
    bool isNew = false;
    /// Its stamp when it was read into the fields.
    Date stamp{1900, 1, 1};
    /// The company that the view's rows belong to, where they belong to one.
    std::optional<std::int16_t> company;
};

/// Writes a record: a new one, or one that nobody else has changed since it was read.
class RecordSaver {
  public:
    /// `records` has the record's row opened for writing; it and the references must outlive the
    /// object. `title` is that of the view's message boxes.
    RecordSaver(Host& host, rdoConnection& connection, WorkingRecords& records,
                const EditedRecord& record, const std::string& title)
        : host_(host), connection_(connection), records_(records), record_(record), title_(title) {}

    /// Gives 0, or the number of the message that says why the record was not written, or may not
    /// have been. Raises RuntimeError. Leaves the rows open.
    std::int32_t save(std::span<Field* const> fields);

  private:
    // These give 0 or the number of a message, as save() does.
    std::int32_t startNewRow();
    std::int32_t startChange();
    std::int32_t update();
    void setColumns(std::span<Field* const> fields);
    /// Whether the record is in the database as it was written; nullopt when that cannot be found
    /// out.
    std::optional<bool> isStored();

    Host& host_;
    rdoConnection& connection_;
    WorkingRecords& records_;
    EditedRecord record_;
    const std::string& title_;
    /// The stamp that is written.
    Date newStamp_;
};

}  // namespace catalogador
