#pragma once

#include "arbora/base/NbString.h"
#include "arbora/base/NbVec2i32.h"
#include "src/platform/Win32.h"

namespace panelix {

/// Whether this is a system that has windows.
bool canMakeWindows();

/// A window class of the toolkit.
struct WindowClass {
  const char* name;
  UINT style;
  WNDPROC procedure;
  LPCSTR cursor;   ///< One of the system's; NULL for none.
  HICON (*icon)(); ///< NULL for none.
};

/// The name to make windows of the class by; registers it unless that has been done. A failure is told to the user,
/// in a dialog of that title and text, and the name comes all the same.
NbString useWindowClass(const WindowClass& windowClass, const char* errorTitle, const char* errorText);

/// Moves a scroll bar of a window, and with it the content, as a scroll message with that code asks. `bar` is SB_HORZ
/// or SB_VERT.
void scroll(HWND window, int bar, WORD code);
int scrollPosition(HWND window, int bar);
/// Gives a bar its range, from 0 to `max`, in which `page` pixels show.
void setScrollRange(HWND window, int bar, int max, int page, int position);
/// Moves the content to where the bar's position says, after it was placed anew.
void scrollToPosition(HWND window, int bar);

/// Lines that one notch of the wheel scrolls, as the system is set.
int wheelScrollLines();

/// Width and height of a window; (0, 0) if there is none.
NbVec2i32 outerSize(HWND window);

} // namespace panelix
