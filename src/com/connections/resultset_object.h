#pragma once
#include <memory>

#include "com/automation/com_ptr.h"
#include "com/automation/late_bound_object.h"
#include "platform/rdo.h"

namespace catalogador::com {

/// The rows of a statement: EOF, rdoColumns, MoveNext, AddNew, Edit, Update, Delete, Close.
class ResultsetObject : public LateBoundObject {
  public:
    explicit ResultsetObject(std::unique_ptr<rdoResultset> rows) : rows_(std::move(rows)) {}

    /// Raises RuntimeError (objectNotSet) after Close.
    [[nodiscard]] rdoResultset& rows() const;
    /// The column of a number (from 0) or of a name. Raises RuntimeError (columnNotFound).
    AutomationValue column(const Variant& which);

  protected:
    [[nodiscard]] const std::vector<LateBoundMember>& members() const override;
    [[nodiscard]] std::string sourceName() const override { return "vemDatos.rdoResultset"; }
    AutomationValue invoke(DISPID member, const Arguments& arguments) override;

  private:
    std::unique_ptr<rdoResultset> rows_;
};

}  // namespace catalogador::com
