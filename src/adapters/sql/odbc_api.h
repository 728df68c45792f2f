#pragma once
// On Windows the interface's own headers take their types from windows.h.
#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>
