#pragma once
#include <memory>

#include "platform/controls/fields.h"

class wxWindow;

namespace catalogador::wx {

/// What a screen reader is told of a combo that the program draws: its entries, the chosen one, and
/// whether the list is open. Entries are made when they are asked for.
class ComboAccessible {
  public:
    /// Both must outlive it.
    static std::unique_ptr<ComboAccessible> of(wxWindow& window, ComboBox& combo);
    virtual ~ComboAccessible() = default;

    /// To be called after the combo changed: tells the screen reader what is new.
    virtual void changed() = 0;
};

}  // namespace catalogador::wx
