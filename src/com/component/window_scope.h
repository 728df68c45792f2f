#pragma once
#include "com/automation/com_api.h"

namespace catalogador::com {

/// While it lives, the calling thread makes windows as the screen needs them: sharp on every
/// display and with the controls of today. The rest of the host's process stays as it is.
class WindowScope {
  public:
    WindowScope();
    ~WindowScope();
    WindowScope(const WindowScope&) = delete;
    WindowScope& operator=(const WindowScope&) = delete;

  private:
    DPI_AWARENESS_CONTEXT before_ = nullptr;
    ULONG_PTR cookie_ = 0;
    bool activated_ = false;
};

}  // namespace catalogador::com
