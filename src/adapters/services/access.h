#pragma once
#include <memory>
#include <string>

#include "platform/services.h"

namespace catalogador::services {

/// Users and their rights in the tables accUsuarios and accPermisos. The rights of a person are
/// those of the option and company asked for, whatever the application; a person who is not in
/// accUsuarios has the id -1 and no rights. Both questions raise RuntimeError when the tables
/// cannot be read.
class TableAccessLibrary : public AccessLibrary {
  public:
    /// `userName` is the person at the desk.
    explicit TableAccessLibrary(std::string userName) : userName_(std::move(userName)) {}
    std::unique_ptr<clsAccesos> create() override;

  private:
    std::string userName_;
};

}  // namespace catalogador::services
