#pragma once
#include <wx/window.h>

#include <vector>

namespace catalogador::wx {

/// While it lives, the windows that the host program has open on this thread take no input: the
/// toolkit knows only its own. Does nothing where no other program can be the host.
class HostWindowsDisabled {
  public:
    /// `shown` is the window that stays usable.
    explicit HostWindowsDisabled(const wxWindow& shown);
    /// The window that was active before is active again.
    ~HostWindowsDisabled();
    HostWindowsDisabled(const HostWindowsDisabled&) = delete;
    HostWindowsDisabled& operator=(const HostWindowsDisabled&) = delete;

  private:
    std::vector<WXWidget> disabled_;
    WXWidget active_ = nullptr;
};

/// Asks the host's own loop to end: a request to quit that reached the screen's was the host's.
/// Does nothing where no other program can be the host.
void askHostToQuit();

/// Makes `owner` (null for none) the owner of a top-level window; gives the previous one. Does
/// nothing where windows have no owner.
WXWidget changeOwner(wxWindow& window, WXWidget owner);

}  // namespace catalogador::wx
