#pragma once
#include <fuzzer/FuzzedDataProvider.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/rdo.h"

namespace catalogador::fuzz {

/// A value of any kind, with texts that often are lists, numbers or dates.
Variant anyValue(FuzzedDataProvider& data);

/// A connection whose tables hold what the bytes say: rows of the columns that the table has, or of
/// some other columns, with values of any kind, and now and then an error.
class FuzzConnection : public rdoConnection {
  public:
    /// `fixed` holds values that a column has whatever the bytes say.
    explicit FuzzConnection(FuzzedDataProvider& data, std::map<std::string, Variant> fixed = {})
        : data_(data), fixed_(std::move(fixed)) {}

    std::unique_ptr<rdoResultset> OpenResultset(const SqlText& sql, int type, int lock) override;
    std::int64_t Execute(const SqlText& sql) override;
    void setListener(StatementListener*) override {}

  private:
    FuzzedDataProvider& data_;
    std::map<std::string, Variant> fixed_;
};

}  // namespace catalogador::fuzz
