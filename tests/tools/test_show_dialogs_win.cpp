#include <gtest/gtest.h>

#include "src/platform/Win32.h"
#include "tests/support/TestSupport.h"
#include "tests/tools/Show.h"

namespace {

const std::string kText = "TopLevelDialog { label \"Pump\" width 220 height 120 position 600 300"
                          "  DialogPushButton { auditorID \"start\" buttonLabel \"Start\" labelVisibility FALSE } }";

/// The first window of a class inside another one.
HWND findInside(HWND window, const std::string& className) {
  struct Search {
    std::string className;
    HWND found;
  } search{className, nullptr};
  const auto look = [](HWND child, LPARAM data) -> BOOL {
    auto* wanted = reinterpret_cast<Search*>(data);
    char name[64] = "";
    GetClassNameA(child, name, sizeof name);
    if (wanted->className == name) wanted->found = child;
    return wanted->found == nullptr;
  };
  EnumChildWindows(window, look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

/// Words of xdotool that click on the middle of a window.
std::string clickOn(HWND window) {
  RECT area{};
  GetWindowRect(window, &area);
  return "mousemove " + std::to_string((area.left + area.right) / 2) + " " +
         std::to_string((area.top + area.bottom) / 2) + " sleep 0.1 click 1";
}

/// Waits for the button of the dialog's window; NULL if it doesn't come.
HWND waitForButton(Program& program) {
  HWND button = nullptr;
  waitUntil([&] {
    const HWND window = FindWindowA(nullptr, "Pump");
    if (IsWindowVisible(window)) button = findInside(window, "Button");
    return button || !program.isRunning();
  });
  return button;
}

} // namespace

TEST(ShowDialogWindows, WhatTheUserDoesInTheWindowIsPrinted) {
  Program program(PANELIX_PROGRAM, {"show", writeScene("window.arb", kText), "--form", "2d"});
  const HWND button = waitForButton(program);
  ASSERT_TRUE(button) << program.err();
  ASSERT_TRUE(desktop::act(clickOn(button)));
  EXPECT_TRUE(waitUntil([&] { return program.out() == "start\tDialogPushButton\t\n"; })) << program.out();
  // The close box ends it.
  PostMessageA(GetAncestor(button, GA_ROOT), WM_SYSCOMMAND, SC_CLOSE, 0);
  EXPECT_EQ(program.wait(), 0);
  EXPECT_EQ(program.err(), "");
}

TEST(ShowDialogWindows, BothFormsAreOfOneObject) {
  Program program(PANELIX_PROGRAM, {"show", writeScene("both.arb", kText), "--form", "both"});
  const HWND button = waitForButton(program);
  ASSERT_TRUE(button) << program.err();
  const SceneWindow window(program, "both.arb - Panelix");
  ASSERT_TRUE(window.isOpen()) << program.err();
  ASSERT_TRUE(waitUntil([&] { return window.at(100, 20)[2] > 150; }));
  ASSERT_TRUE(desktop::act(clickOn(button)));
  EXPECT_TRUE(waitUntil([&] { return program.out() == "start\tDialogPushButton\t\n"; })) << program.out();
  ASSERT_TRUE(desktop::act(window.moveTo(118, 70) + "click 1"));
  EXPECT_TRUE(waitUntil([&] { return program.out() == "start\tDialogPushButton\t\nstart\tDialogPushButton\t\n"; }))
      << program.out();
  PostMessageA(FindWindowA(nullptr, "both.arb - Panelix"), WM_CLOSE, 0, 0);
  EXPECT_EQ(program.wait(), 0);
  EXPECT_EQ(program.err(), "");
}

TEST(ShowDialogWindows, ASizeIsThatOfTheWindow) {
  Program program(PANELIX_PROGRAM, {"show", writeScene("sized.arb", kText), "--form", "2d", "--size", "333x222"});
  const HWND button = waitForButton(program);
  ASSERT_TRUE(button) << program.err();
  RECT area{};
  GetWindowRect(GetAncestor(button, GA_ROOT), &area);
  EXPECT_EQ(area.right - area.left, 333);
  EXPECT_EQ(area.bottom - area.top, 222);
}
