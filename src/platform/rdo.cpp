#include "platform/rdo.h"

#include "runtime/error.h"

namespace catalogador {

rdoTransaction::~rdoTransaction() {
    if (!open_) return;
    try {
        session_.rollback();
    } catch (const RuntimeError&) {
        // The database has ended the transaction itself; the first error is on its way already.
    }
}

void rdoTransaction::commit() {
    session_.commit();
    open_ = false;
}

}  // namespace catalogador
