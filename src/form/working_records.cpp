#include "form/working_records.h"

#include <utility>

#include "modules/messages.h"
#include "modules/modIds.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace catalogador {

void WorkingRecords::open(Purpose purpose) {
    if (connection_ == nullptr)
        throw RuntimeError(error_number::objectNotSet, "Object variable not set");
    try {
        mrdoRegistro = purpose == Purpose::writing ? connection_->OpenToWrite(mstrSQL)
                                                   : connection_->OpenResultset(mstrSQL);
    } catch (const DataRefused& refused) {
        throw refusal_(refused);
    }
}

bool WorkingRecords::findsRow() {
    open();
    const bool found = !mrdoRegistro->atEnd();
    mrdoRegistro->Close();
    return found;
}

std::string WorkingRecords::textOrEmpty(const char* column) const {
    return toTextOrEmpty(mrdoRegistro->value(column), regional_);
}

Date WorkingRecords::stamp() const {
    const Variant stamp = mrdoRegistro->value("Modificado");
    if (stamp.isNull()) return Date{1900, 1, 1};
    if (const Date* date = stamp.as<Date>()) return *date;
    if (const std::string* text = stamp.as<std::string>())
        if (const auto date = dateFromIso(*text)) return *date;
    throw RuntimeError(error_number::typeMismatch, "Type mismatch");
}

std::optional<bool> WorkingRecords::outcomeOfWrite(
    const std::function<std::optional<bool>()>& look) {
    auto writer = std::exchange(mrdoRegistro, nullptr);
    const std::optional<bool> stored = look();
    writer->outcomeFound(stored);
    if (!mrdoRegistro) mrdoRegistro = std::move(writer);
    return stored;
}

std::int32_t WorkingRecords::conflict() {
    open();
    return mrdoRegistro->atEnd() ? message::recordGone : message::recordChanged;
}

}  // namespace catalogador
