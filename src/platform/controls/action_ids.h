#pragma once

namespace catalogador {

/// Numbers of the actions of the command bar, fixed for hosts, scripts and icons.
namespace action {
constexpr int editMenu = 1;
constexpr int helpMenu = 2;
constexpr int create = 3;
constexpr int modify = 4;
constexpr int remove = 5;
constexpr int save = 6;
constexpr int cancel = 7;
constexpr int help = 8;
constexpr int filter = 10;
constexpr int filterBox = 11;
constexpr int exportRows = 14;
constexpr int printRows = 15;
constexpr int application = 18;
}  // namespace action

/// Number of the list's context menu.
constexpr int gridContextMenu = 12;

}  // namespace catalogador
