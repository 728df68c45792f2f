#include "adapters/wx/window_answer.h"

namespace catalogador::wx {

// Windows resizes a window while the program waits for it.
bool hasItsSize(const wxTopLevelWindow& /*window*/) {
    return true;
}

}  // namespace catalogador::wx
