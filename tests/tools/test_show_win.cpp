#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "src/platform/Win32.h"
#include "tests/support/TestSupport.h"
#include "tests/tools/Program.h"

TEST(Show, ClosingTheWindowEndsItWithZero) {
  Program program(PANELIX_PROGRAM, {"show", sourceDir() + "/examples/nodes/Cube.arb"});
  HWND window = nullptr;
  for (int i = 0; i < 400 && !IsWindowVisible(window) && program.isRunning(); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    window = FindWindowA(nullptr, "Cube.arb - Panelix");
  }
  ASSERT_TRUE(IsWindowVisible(window)) << program.err();
  PostMessageA(window, WM_CLOSE, 0, 0);
  EXPECT_EQ(program.wait(), 0) << program.err();
  EXPECT_EQ(program.out() + program.err(), "");
}
