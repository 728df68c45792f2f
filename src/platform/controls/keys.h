#pragma once

namespace catalogador {

/// Key codes of key-down events.
namespace key {
constexpr int backspace = 8;
constexpr int tab = 9;
constexpr int enter = 13;
constexpr int escape = 27;
constexpr int space = 32;
constexpr int pageUp = 33;
constexpr int pageDown = 34;
constexpr int end = 35;
constexpr int home = 36;
constexpr int left = 37;
constexpr int up = 38;
constexpr int right = 39;
constexpr int down = 40;
constexpr int deleteKey = 46;
constexpr int menu = 93;
constexpr int f1 = 112;
constexpr int f2 = 113;
constexpr int f4 = 115;
constexpr int f5 = 116;
constexpr int f6 = 117;
constexpr int f10 = 121;
}  // namespace key

/// Modifier flags of key-down events.
namespace modifier {
constexpr int none = 0;
constexpr int shift = 1;
constexpr int control = 2;
constexpr int alt = 4;
}  // namespace modifier

/// Modifier flags of key bindings.
constexpr int bindingControl = 8;
constexpr int bindingShift = 16;

}  // namespace catalogador
