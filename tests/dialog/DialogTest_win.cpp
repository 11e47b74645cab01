#include <string_view>

#include "Panelix/NkPanelix.h"
#include "src/platform/Win32.h"
#include "tests/support/TestSupport.h"

namespace {

/// The system makes one of these for a thread's first window and keeps it.
bool isInputMethod(HWND window) {
  char name[32] = "";
  GetClassNameA(window, name, sizeof name);
  return std::string_view(name) == "IME";
}

BOOL CALLBACK countOne(HWND window, LPARAM count) {
  if (!isInputMethod(window)) ++*reinterpret_cast<int*>(count);
  return TRUE;
}

BOOL CALLBACK countAll(HWND window, LPARAM count) {
  countOne(window, count);
  EnumChildWindows(window, countOne, count);
  return TRUE;
}

int liveWindows() {
  int count = 0;
  EnumThreadWindows(GetCurrentThreadId(), countAll, reinterpret_cast<LPARAM>(&count));
  return count;
}

/// The system and the toolkit keep what the first measuring and the first window of a process make.
bool makeWhatStays() {
  NkPanelix::getLabelPixelSize("text", nullptr);
  ReleaseDC(nullptr, GetDC(nullptr));
  return DestroyWindow(CreateWindowExA(0, "EDIT", "", WS_OVERLAPPED, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr));
}

/// GetGuiResources gives 0 under Wine. A handle's lower half is its place in the table, and that alone is taken, too.
int liveDrawingObjects() {
  static const bool s_made = makeWhatStays();
  static_cast<void>(s_made);
  constexpr UINT_PTR kPlaces = 0x10000;
  int count = 0;
  for (UINT_PTR place = 1; place < kPlaces; ++place) count += GetObjectType(reinterpret_cast<HGDIOBJ>(place)) != 0;
  return count;
}

const bool s_counted =
    registerLeakCounter("windows", liveWindows) && registerLeakCounter("drawing objects", liveDrawingObjects);

} // namespace
