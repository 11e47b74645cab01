#include "DialogTest.h"

TEST_F(DialogTest, WindowExistsUntilItIsDestroyed) {
  const HWND window = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
  EXPECT_EQ(NkPanelix::existWidget(window), 1);
  DestroyWindow(window);
  EXPECT_EQ(NkPanelix::existWidget(window), 0);
}
