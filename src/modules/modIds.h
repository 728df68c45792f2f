#pragma once
#include <cstdint>

#include "platform/controls/action_ids.h"
#include "platform/surface.h"

namespace catalogador {

constexpr int pointerDefault = 0;
constexpr int pointerHourglass = 11;

/// Shows the hourglass during its lifetime, or until done() is called.
class PointerDuring {
  public:
    explicit PointerDuring(Surface& surface) : surface_(&surface) {
        surface_->pointerChanged(pointerHourglass);
    }
    ~PointerDuring() { done(); }
    void done() {
        if (surface_ != nullptr) surface_->pointerChanged(pointerDefault);
        surface_ = nullptr;
    }
    PointerDuring(const PointerDuring&) = delete;
    PointerDuring& operator=(const PointerDuring&) = delete;

  private:
    /// nullptr once the work is done.
    Surface* surface_;
};

/// Views with behaviour of their own.
constexpr int viewClassifications = 10;
constexpr int viewTaxes = 16;

}  // namespace catalogador
