#include <gtest/gtest.h>

#include "src/platform/Win32.h"
#include "tests/support/TestSupport.h"
#include "tests/tools/Program.h"
#include "tests/win/Desktop.h"

namespace {

/// A child of that text, however deep; NULL if there is none.
HWND findChild(HWND window, const char* text) {
  struct Wanted {
    std::string text;
    HWND child;
  } wanted{text, nullptr};
  EnumChildWindows(
      window,
      [](HWND child, LPARAM data) -> BOOL {
        auto& sought = *reinterpret_cast<Wanted*>(data);
        char name[100] = "";
        GetWindowTextA(child, name, sizeof name);
        if (sought.text == name) sought.child = child;
        return !sought.child;
      },
      reinterpret_cast<LPARAM>(&wanted));
  return wanted.child;
}

bool click(HWND control) {
  RECT place{};
  return GetWindowRect(control, &place) &&
         desktop::act("mousemove " + std::to_string((place.left + place.right) / 2) + " " +
                      std::to_string((place.top + place.bottom) / 2) + " sleep 0.1 click 1");
}

HWND waitForWindow(const char* title) {
  HWND window = nullptr;
  const auto isVisible = [&] {
    window = FindWindowA(nullptr, title);
    return IsWindowVisible(window) != 0;
  };
  return waitUntil(isVisible) ? window : nullptr;
}

} // namespace

TEST(ExportOptions, TellsWhatTheUserDoesInTheWindows) {
  Program program(EXPORT_OPTIONS_PROGRAM, {});
  const HWND dialog = waitForWindow("Export options");
  ASSERT_TRUE(dialog) << program.err();
  std::string out;
  const auto hears = [&](const std::string& line) {
    out += line + "\n";
    return waitUntil([&] { return program.out() == out; });
  };

  ASSERT_TRUE(click(findChild(dialog, "Compress the file")));
  EXPECT_TRUE(hears("compress: the file will be small")) << program.out();
  ASSERT_TRUE(click(findChild(dialog, "one per part")));
  EXPECT_TRUE(hears("colours: on")) << program.out();
  EXPECT_TRUE(findChild(dialog, "one per vertex"));
  ASSERT_TRUE(click(findChild(dialog, "Export")));
  EXPECT_TRUE(hears("ok: pressed")) << program.out();
  ASSERT_TRUE(click(findChild(dialog, "More \"advanced\" options")));
  const HWND advanced = waitForWindow("Advanced");
  ASSERT_TRUE(advanced);
  EXPECT_TRUE(hears("more: pressed")) << program.out();
  ASSERT_TRUE(click(findChild(advanced, "no")));
  EXPECT_TRUE(hears("endian: on")) << program.out();

  PostMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
  EXPECT_TRUE(waitUntil([&] { return !IsWindowVisible(dialog); }));
  EXPECT_TRUE(program.isRunning());
  PostMessageA(FindWindowA(nullptr, "Export options in a scene"), WM_CLOSE, 0, 0);
  EXPECT_EQ(program.wait(), 0);
  EXPECT_EQ(program.err(), "");
}
