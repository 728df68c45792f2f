#pragma once
#include <cstdint>
#include <string>

namespace catalogador {

/// All measures of the screen model are in twips: 1440 to the inch, 15 to the pixel at 96 dpi.
constexpr int twipsPerInch = 1440;

struct Size {
    int width = 0;
    int height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// A colour as 0x00BBGGRR, or a colour of the desktop's own as 0x800000nn.
struct Color {
    std::uint32_t value = 0;

    [[nodiscard]] constexpr bool isSystem() const { return (value & 0x80000000U) != 0; }
    [[nodiscard]] constexpr std::uint8_t red() const { return value & 0xFFU; }
    [[nodiscard]] constexpr std::uint8_t green() const { return (value >> 8U) & 0xFFU; }
    [[nodiscard]] constexpr std::uint8_t blue() const { return (value >> 16U) & 0xFFU; }
    friend bool operator==(const Color&, const Color&) = default;
};

/// "#RRGGBB", or "system:NAME" ("system:window", "system:highlight", "system:buttonShadow" …).
std::string colorName(Color color);

constexpr Color systemWindowColor{0x80000005};
constexpr Color systemHighlightColor{0x8000000D};
constexpr Color systemButtonFaceColor{0x8000000F};
constexpr Color systemButtonShadowColor{0x80000010};

}  // namespace catalogador
