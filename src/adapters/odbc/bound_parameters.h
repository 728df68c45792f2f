#pragma once
#include <string>
#include <vector>

#include "adapters/odbc/odbc_handle.h"
#include "adapters/sql/write_statements.h"

namespace catalogador::odbc {

/// Values bound to the "?" of a statement for as long as this lives.
class BoundParameters {
  public:
    /// `parameters` must outlive this.
    BoundParameters(const OdbcHandle& statement, const std::vector<sql::Parameter>& parameters);
    ~BoundParameters();
    BoundParameters(const BoundParameters&) = delete;
    BoundParameters& operator=(const BoundParameters&) = delete;

  private:
    void bind(SQLUSMALLINT number, const sql::Parameter& parameter, std::size_t index);

    const OdbcHandle& statement_;
    std::vector<SQLLEN> indicators_;
    std::vector<std::string> texts_;
};

}  // namespace catalogador::odbc
