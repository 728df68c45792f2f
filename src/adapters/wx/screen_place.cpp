#include <wx/display.h>

#include <algorithm>

#include "adapters/wx/appearance.h"
#include "adapters/wx/screen_frame.h"

namespace catalogador::wx {

namespace {

/// In twips. A taller window would not help anybody to work faster.
constexpr int tallestDesign = 10'000;
/// Pixels at 96 dpi; the toolbar's own answer leaves out what stands between its two ends.
constexpr int toolbarMargin = 48;

/// The part of the monitor under a window that the desktop leaves free, in twips.
Rect workArea(const wxWindow& window) {
    const int monitor = wxDisplay::GetFromWindow(&window);
    const wxRect area =
        wxDisplay(monitor == wxNOT_FOUND ? 0U : static_cast<unsigned>(monitor)).GetClientArea();
    return {twipsOf(window, area.x), twipsOf(window, area.y), twipsOf(window, area.width),
            twipsOf(window, area.height)};
}

/// Nearest to `wanted` that lies between two edges.
int within(int wanted, int size, int edge, int room) {
    return std::max(edge, std::min(wanted, edge + room - size));
}

}  // namespace

void ScreenFrame::placeForUser(const WindowMemory& memory) {
    const wxWindow* stands = GetParent() == nullptr ? this : GetParent();
    const Rect area = workArea(*stands);
    const Rect design = window_.place();
    sync();
    const int toolbarWidth = toolbar_->GetBestSize().x + FromDIP(toolbarMargin);
    WindowSize wanted{{std::max(design.width, twipsOf(*this, toolbarWidth)),
                       std::max(design.height, std::min(area.height * 3 / 4, tallestDesign))},
                      false};
    const std::string name = window_.memoryName();
    if (memory.recall && !name.empty()) wanted = memory.recall(name).value_or(wanted);
    const int width = std::min(wanted.size.width, area.width);
    const int height = std::min(wanted.size.height, area.height);
    const int middleAcross = design.left + design.width / 2;
    const int middleDown = design.top + design.height / 2;
    window_.move({within(middleAcross - width / 2, width, area.left, area.width),
                  within(middleDown - height / 2, height, area.top, area.height), width, height});
    if (wanted.maximized) Maximize();
    normalSize_ = {window_.place().width, window_.place().height};
    firstSize_ = {normalSize_, wanted.maximized};
}

void ScreenFrame::keepSize(const WindowMemory& memory) const {
    const std::string name = window_.memoryName();
    if (!memory.keep || name.empty()) return;
    const WindowSize now{normalSize_, window_.state() == WindowState::maximized};
    if (now != firstSize_) memory.keep(name, now);
}

}  // namespace catalogador::wx
