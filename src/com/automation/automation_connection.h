#pragma once
#include <memory>
#include <string>

#include "com/automation/automation_object.h"
#include "platform/rdo.h"

namespace catalogador::com {

/// A connection that the host has opened with a data-access library of its own, driven by the names
/// of that library's members.
class AutomationConnection : public rdoConnection {
  public:
    explicit AutomationConnection(AutomationObject connection)
        : connection_(std::move(connection)) {}

    std::unique_ptr<rdoResultset> OpenResultset(const SqlText& sql, int type = openDynamic,
                                                int lock = lockOptimisticByValues) override;
    std::int64_t Execute(const SqlText& sql) override;
    /// The table of a row that is written is not known here and is told as "".
    void setListener(StatementListener* listener) override { listener_ = listener; }

    /// Whether the object offers what is needed of a connection.
    static bool accepts(const AutomationObject& object);

  private:
    AutomationObject connection_;
    StatementListener* listener_ = nullptr;
};

}  // namespace catalogador::com
