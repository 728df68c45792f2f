#pragma once
#include "platform/printed_document.h"
#include "runtime/text.h"

namespace catalogador {

/// Every character is as wide as any other.
class EvenFont : public FontMeasure {
  public:
    static constexpr int characterWidth = 100;
    static constexpr int height = 200;

    [[nodiscard]] int width(std::string_view text, const PrintFont&) const override {
        return static_cast<int>(lengthInCharacters(text)) * characterWidth;
    }
    [[nodiscard]] int lineHeight(const PrintFont&) const override { return height; }
};

}  // namespace catalogador
