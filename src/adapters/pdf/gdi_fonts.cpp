#include <windows.h>

#include <cmath>
#include <map>
#include <tuple>

#include "adapters/pdf/paper_fonts.h"
#include "adapters/system/wide_text.h"

namespace catalogador::pdf {

namespace {

constexpr double twipsPerPoint = 20;

/// Measures in a device context of which one unit is a twip: so large that no size is rounded to
/// pixels.
class GdiFonts : public FontMeasure {
  public:
    GdiFonts() : context_(CreateCompatibleDC(nullptr)) {}
    ~GdiFonts() override {
        DeleteDC(context_);
        for (const auto& [key, font] : fonts_) DeleteObject(font);
    }
    GdiFonts(const GdiFonts&) = delete;
    GdiFonts& operator=(const GdiFonts&) = delete;

    [[nodiscard]] int width(std::string_view text, const PrintFont& font) const override {
        select(font);
        const std::wstring wide = system::wideOf(text);
        SIZE size{};
        GetTextExtentPoint32W(context_, wide.data(), static_cast<int>(wide.size()), &size);
        return size.cx;
    }
    [[nodiscard]] int lineHeight(const PrintFont& font) const override {
        select(font);
        TEXTMETRICW metrics{};
        GetTextMetricsW(context_, &metrics);
        return metrics.tmHeight;
    }

  private:
    using Key = std::tuple<std::string, double, bool>;

    void select(const PrintFont& font) const {
        HFONT& made = fonts_[{font.name, font.points, font.bold}];
        if (made == nullptr)
            made = CreateFontW(-static_cast<int>(std::lround(font.points * twipsPerPoint)), 0, 0, 0,
                               font.bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE,
                               DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                               DEFAULT_PITCH, system::wideOf(font.name).c_str());
        SelectObject(context_, made);
    }

    HDC context_;
    mutable std::map<Key, HFONT> fonts_;
};

}  // namespace

std::unique_ptr<FontMeasure> paperFonts() {
    return std::make_unique<GdiFonts>();
}

}  // namespace catalogador::pdf
