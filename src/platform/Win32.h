#pragma once

/// The one seam for the window system. On Windows this is Windows itself; elsewhere it is the same interface for a
/// system where no window can be made, so that code above it is the same on both. See platform/Windowless.h for what
/// works there.

#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
// clang-format off: the others need windows.h first
#include <windows.h>
// clang-format on
#include <commctrl.h>
#include <commdlg.h>
#include <shellapi.h>
#include <windowsx.h>
#else
#include "src/platform/Windowless.h"
#endif
