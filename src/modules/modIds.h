#pragma once
#include "platform/surface.h"

namespace catalogador {

constexpr int pointerDefault = 0;
constexpr int pointerHourglass = 11;

/// Shows the hourglass for its own lifetime.
class PointerDuring {
  public:
    explicit PointerDuring(Surface& surface) : surface_(surface) {
        surface_.pointerChanged(pointerHourglass);
    }
    ~PointerDuring() { surface_.pointerChanged(pointerDefault); }
    PointerDuring(const PointerDuring&) = delete;
    PointerDuring& operator=(const PointerDuring&) = delete;

  private:
    Surface& surface_;
};

/// Numbers of the actions of the command bar, fixed for hosts, scripts and icons.
namespace action {
constexpr int editMenu = 1;
constexpr int helpMenu = 2;
constexpr int create = 3;
constexpr int modify = 4;
constexpr int remove = 5;
constexpr int save = 6;
constexpr int cancel = 7;
constexpr int help = 8;
constexpr int filter = 10;
constexpr int filterBox = 11;
constexpr int exportRows = 14;
constexpr int printRows = 15;
constexpr int application = 18;
}  // namespace action

/// Number of the grid's context menu.
constexpr int gridContextMenu = 12;

/// Views with behaviour of their own.
constexpr int viewClassifications = 10;
constexpr int viewTaxes = 16;

}  // namespace catalogador
