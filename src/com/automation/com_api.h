#pragma once
// windows.h leaves these out where it is asked to be lean.
#include <windows.h>
// clang-format off: both build on windows.h.
#include <ole2.h>
#include <oleauto.h>
// clang-format on
