#include "form/editing/record_saver.h"

#include "modules/messages.h"
#include "modules/modIds.h"
#include "modules/modImpuestos.h"
#include "runtime/error.h"

namespace catalogador {

namespace {

Date wholeSecond(Date date) {
    date.nanosecond = 0;
    return date;
}

}  // namespace

std::int32_t RecordSaver::save(std::span<Field* const> fields) {
    if (const std::int32_t problem = record_.isNew ? startNewRow() : startChange(); problem != 0)
        return problem;
    setColumns(fields);
    return update();
}

std::int32_t RecordSaver::startNewRow() {
    rdoResultset& row = *records_.mrdoRegistro;
    std::int16_t position = 0;
    if (record_.view == viewTaxes) {
        position = PosicionLibreTablaReceta(host_, connection_, title_);
        if (position == -1) return message::noReceiptPosition;
    }
    row.AddNew();
    row.setValue("CTeCodigo", record_.code);
    row.setValue("CTeIDTipoVista", record_.view);
    if (record_.view == viewTaxes) row.setValue("CTeValor2", position);
    return 0;
}

std::int32_t RecordSaver::startChange() {
    if (records_.mrdoRegistro->atEnd()) return message::recordGone;
    if (records_.stamp() > record_.stamp) return message::recordChanged;
    records_.mrdoRegistro->Edit();
    return 0;
}

void RecordSaver::setColumns(std::span<Field* const> fields) {
    rdoResultset& row = *records_.mrdoRegistro;
    for (const Field* field : fields) field->store(row, host_.regional);
    newStamp_ = host_.utilities.FechaServidor(connection_);
    row.setValue("Modificado", newStamp_);
    if (record_.company) row.setValue("CTeValor1", *record_.company);
}

std::int32_t RecordSaver::update() {
    try {
        records_.mrdoRegistro->Update();
        return 0;
    } catch (const RuntimeError& error) {
        if (error.number() == error_number::rowChanged) return records_.conflict();
        if (error.cause() != ErrorCause::outcomeUnknown) throw;
        const auto stored = records_.outcomeOfWrite([&] { return isStored(); });
        if (!stored) return message::outcomeUnknown;
        if (!*stored) throw;
        return 0;
    }
}

std::optional<bool> RecordSaver::isStored() {
    try {
        records_.open();
        if (records_.mrdoRegistro->atEnd()) return false;
        // The sequence gives a code only once.
        if (record_.isNew) return true;
        const Date found = records_.stamp();
        // A column of whole seconds has cut the stamp off.
        const bool cut = found == wholeSecond(newStamp_);
        if (found == newStamp_ || (cut && found != record_.stamp)) return true;
        // What somebody else has written since may be written over this save or without it.
        if (found > record_.stamp || cut) return std::nullopt;
        return false;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

}  // namespace catalogador
