#include "src/dialog/support/Windows.h"

#include <algorithm>
#include <climits>

#include "arbora/win/NkWin.h"

namespace panelix {

NbString useWindowClass(const WindowClass& windowClass, const char* errorTitle, const char* errorText) {
  const HINSTANCE instance = NkWin::getInstance();
  NbString actualName;
  WNDCLASSA record{};
  if (NkWin::getClassInfo(instance, windowClass.name, actualName, record)) return actualName;
  record = {};
  record.style = windowClass.style;
  record.lpfnWndProc = windowClass.procedure;
  record.cbWndExtra = sizeof(void*);
  record.hInstance = instance;
  record.hIcon = windowClass.icon ? windowClass.icon() : nullptr;
  record.hCursor = windowClass.cursor ? LoadCursorA(nullptr, windowClass.cursor) : nullptr;
  record.hbrBackground = CreateSolidBrush(GetSysColor(COLOR_BTNFACE));
  record.lpszClassName = windowClass.name;
  if (!NkWin::registerClass(record, actualName)) {
    DeleteObject(record.hbrBackground);
    NkWin::createSimpleErrorDialog(nullptr, errorTitle, errorText, nullptr);
  }
  return actualName.isEmpty() ? NbString(windowClass.name) : actualName;
}

void scroll(HWND window, int bar, WORD code) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(window, bar, &info);
  const int before = info.nPos;
  const long long page = std::max(static_cast<int>(info.nPage), 1) - 1;
  long long position = before;
  switch (code) {
    case SB_LINEUP:
      position -= 1;
      break;
    case SB_LINEDOWN:
      position += 1;
      break;
    case SB_PAGEUP:
      position -= page;
      break;
    case SB_PAGEDOWN:
      position += page;
      break;
    case SB_THUMBTRACK:
      position = info.nTrackPos;
      break;
    default:
      break;
  }
  info.nPos = static_cast<int>(std::clamp<long long>(position, INT_MIN, INT_MAX));
  SetScrollInfo(window, bar, &info, TRUE);
  // The system holds the position within the range.
  GetScrollInfo(window, bar, &info);
  const int way = before - info.nPos;
  if (way != 0) ScrollWindow(window, bar == SB_HORZ ? way : 0, bar == SB_VERT ? way : 0, nullptr, nullptr);
}

int scrollPosition(HWND window, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_POS;
  GetScrollInfo(window, bar, &info);
  return info.nPos;
}

void scrollToPosition(HWND window, int bar) {
  const int position = scrollPosition(window, bar);
  ScrollWindow(window, bar == SB_HORZ ? -position : 0, bar == SB_VERT ? -position : 0, nullptr, nullptr);
}

void setScrollRange(HWND window, int bar, int max, int page, int position) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL | SIF_DISABLENOSCROLL;
  info.nMax = max;
  info.nPage = static_cast<UINT>(page);
  info.nPos = position;
  SetScrollInfo(window, bar, &info, TRUE);
}

int wheelScrollLines() {
  constexpr int kLinesByDefault = 3;
  constexpr DWORD kFirstNtWithWheel = 4;
  int lines = kLinesByDefault;
  OSVERSIONINFOA version{};
  version.dwOSVersionInfoSize = sizeof version;
  GetVersionExA(&version);
  const bool isNt = version.dwPlatformId == VER_PLATFORM_WIN32_NT;
  if (isNt && version.dwMajorVersion >= kFirstNtWithWheel) {
    SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  } else if (isNt || version.dwPlatformId == VER_PLATFORM_WIN32_WINDOWS) {
    // Where the system knows of no wheel, the wheel's own program does.
    if (const HWND mouse = FindWindowA("MouseZ", "Magellan MSWHEEL")) {
      if (const UINT message = RegisterWindowMessageA("MSH_SCROLL_LINES_MSG"))
        lines = static_cast<int>(SendMessageA(mouse, message, 0, 0));
    }
  }
  return lines;
}

NbVec2i32 outerSize(HWND window) {
  RECT rectangle{};
  GetWindowRect(window, &rectangle);
  return NbVec2i32(rectangle.right - rectangle.left, rectangle.bottom - rectangle.top);
}

} // namespace panelix
