#pragma once
#include "adapters/export/grid_file_writer.h"
#include "adapters/services/access.h"
#include "adapters/services/messages.h"
#include "adapters/services/utilities.h"
#include "com/automation/automation_languages.h"
#include "platform/host.h"

namespace catalogador {

/// Everything that an object of the component needs, made of what this desk has.
class ComponentHost {
  public:
    ComponentHost();
    ComponentHost(const ComponentHost&) = delete;
    ComponentHost& operator=(const ComponentHost&) = delete;

    [[nodiscard]] Host& host() { return host_; }

  private:
    Regional regional_;
    Utilities utilities_;
    SurfaceMessages messages_;
    TableAccessLibrary access_;
    AutomationLanguages languages_;
    GridFileWriter gridFiles_;
    Host host_;
};

}  // namespace catalogador
