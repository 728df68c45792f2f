#pragma once
#include "adapters/export/grid_file_writer.h"
#include "adapters/services/access.h"
#include "adapters/services/messages.h"
#include "adapters/services/utilities.h"
#include "com/automation/automation_languages.h"
#include "platform/host.h"

namespace catalogador::com {

/// Everything that an object of the component needs, made of what this desk has.
class ComponentHost {
  public:
    ComponentHost();
    ComponentHost(const ComponentHost&) = delete;
    ComponentHost& operator=(const ComponentHost&) = delete;

    [[nodiscard]] Host& host() { return host_; }

  private:
    Regional regional_;
    services::Utilities utilities_;
    services::SurfaceMessages messages_;
    services::TableAccessLibrary access_;
    AutomationLanguages languages_;
    exporting::GridFileWriter gridFiles_;
    Host host_;
};

}  // namespace catalogador::com
