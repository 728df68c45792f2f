#include "adapters/wx/host_windows.h"

namespace catalogador::wx {

HostWindowsDisabled::HostWindowsDisabled(const wxWindow& /*shown*/) {}
HostWindowsDisabled::~HostWindowsDisabled() = default;

void askHostToQuit() {}

WXWidget changeOwner(wxWindow& /*window*/, WXWidget /*owner*/) {
    return nullptr;
}

}  // namespace catalogador::wx
