#include "platform/rdo_plan.h"

#include "runtime/error.h"

namespace catalogador {

rdoReading::~rdoReading() {
    try {
        session_.rollback();
    } catch (const RuntimeError&) {
        // The database has ended the transaction itself; there was nothing to lose in it.
    }
}

}  // namespace catalogador
