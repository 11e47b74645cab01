#include <cstring>
#include <filesystem>

#include <gtest/gtest.h>

#include "src/platform/Win32.h"

namespace {

TEST(Windowless, MakesNoWindow) {
  EXPECT_EQ(CreateWindowExA(0, "STATIC", "title", WS_CHILD, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr), nullptr);
  EXPECT_EQ(CreateWindowExW(0, L"STATIC", L"title", WS_CHILD, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr),
            nullptr);
  EXPECT_FALSE(IsWindow(nullptr));
  EXPECT_FALSE(IsWindow(reinterpret_cast<HWND>(LONG_PTR{0x1234})));
}

TEST(Windowless, FailingCallsLeaveZeros) {
  RECT rectangle = {1, 2, 3, 4};
  EXPECT_FALSE(GetWindowRect(nullptr, &rectangle));
  EXPECT_EQ(rectangle.right, 0);
  char text[8] = "before";
  EXPECT_EQ(GetWindowTextA(nullptr, text, sizeof text), 0);
  EXPECT_STREQ(text, "");
}

TEST(Windowless, MessageLoopEndsAtOnce) {
  MSG message;
  EXPECT_EQ(GetMessageA(&message, nullptr, 0, 0), FALSE);
  EXPECT_EQ(message.message, WM_QUIT);
  EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
}

TEST(Windowless, TextIsMeasuredInTheFontOfControls) {
  const HDC context = GetDC(nullptr);
  SIZE narrow;
  SIZE wide;
  ASSERT_TRUE(GetTextExtentPoint32A(context, "ill", 3, &narrow));
  ASSERT_TRUE(GetTextExtentPoint32A(context, "WWW", 3, &wide));
  EXPECT_GT(narrow.cx, 0);
  EXPECT_GT(wide.cx, 2 * narrow.cx);
  EXPECT_EQ(wide.cy, narrow.cy);
  SIZE nothing;
  ASSERT_TRUE(GetTextExtentPoint32A(context, "", 0, &nothing));
  EXPECT_EQ(nothing.cx, 0);
  EXPECT_FALSE(GetTextExtentPoint32A(nullptr, "label", 5, &nothing));
  EXPECT_EQ(nothing.cx, 0);
  EXPECT_TRUE(ReleaseDC(nullptr, context));
}

TEST(Windowless, BothKindsOfTextMeasureTheSame) {
  // Narrow text is Latin-1: the byte 0xE9 is the same letter.
  const HDC context = GetDC(nullptr);
  SIZE wide;
  SIZE narrow;
  ASSERT_TRUE(GetTextExtentPoint32W(context, L"\xe9t\xe9", 3, &wide));
  ASSERT_TRUE(GetTextExtentPoint32A(context, "\xe9t\xe9", 3, &narrow));
  EXPECT_EQ(narrow.cx, wide.cx);
  TEXTMETRICA metrics;
  ASSERT_TRUE(GetTextMetricsA(context, &metrics));
  EXPECT_EQ(metrics.tmHeight, wide.cy);
  EXPECT_EQ(metrics.tmAscent + metrics.tmDescent, metrics.tmHeight);
}

TEST(Windowless, SelectingGivesAnObjectToPutBack) {
  const HDC context = GetWindowDC(nullptr);
  const HGDIOBJ font = GetStockObject(DEFAULT_GUI_FONT);
  ASSERT_NE(font, nullptr);
  EXPECT_NE(GetStockObject(SYSTEM_FONT), font);
  EXPECT_EQ(GetStockObject(-1), nullptr);
  EXPECT_EQ(GetStockObject(DEFAULT_GUI_FONT + 1), nullptr);
  EXPECT_EQ(SelectObject(context, font), font);
}

TEST(Windowless, MetricsAndColours) {
  EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), 1280);
  EXPECT_GT(GetSystemMetrics(SM_CXFRAME), 0);
  EXPECT_GT(GetSystemMetrics(SM_CYMENU), 0);
  EXPECT_EQ(GetSystemMetrics(-5), 0);
  EXPECT_EQ(GetSysColor(COLOR_BTNFACE), RGB(192, 192, 192));
  EXPECT_EQ(GetSysColor(COLOR_INFOBK), RGB(255, 255, 225));
  EXPECT_EQ(GetSysColor(1000), 0u);
  UINT lines = 0;
  EXPECT_TRUE(SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &lines, 0));
  EXPECT_EQ(lines, 3u);
}

TEST(Windowless, FrameOfAWindow) {
  RECT area = {0, 0, 100, 50};
  ASSERT_TRUE(AdjustWindowRectEx(&area, WS_OVERLAPPEDWINDOW, TRUE, 0));
  EXPECT_EQ(area.left, -GetSystemMetrics(SM_CXFRAME));
  EXPECT_EQ(area.right, 100 + GetSystemMetrics(SM_CXFRAME));
  EXPECT_EQ(area.top, -GetSystemMetrics(SM_CYFRAME) - GetSystemMetrics(SM_CYCAPTION) - GetSystemMetrics(SM_CYMENU));
  RECT bare = {0, 0, 100, 50};
  ASSERT_TRUE(AdjustWindowRect(&bare, WS_CHILD, FALSE));
  EXPECT_EQ(bare.top, 0);
}

TEST(Windowless, Rectangles) {
  const RECT first = {0, 0, 10, 10};
  const RECT second = {5, 5, 20, 8};
  const RECT apart = {30, 30, 40, 40};
  RECT result;
  EXPECT_TRUE(IntersectRect(&result, &first, &second));
  EXPECT_TRUE((result.left == 5 && result.top == 5 && result.right == 10 && result.bottom == 8));
  EXPECT_FALSE(IntersectRect(&result, &first, &apart));
  EXPECT_TRUE(IsRectEmpty(&result));
  EXPECT_TRUE(UnionRect(&result, &first, &second));
  EXPECT_EQ(result.right, 20);
  EXPECT_TRUE(PtInRect(&first, {9, 9}));
  EXPECT_FALSE(PtInRect(&first, {10, 9}));
}

TEST(Windowless, NameOfTheRunningProgram) {
  char path[MAX_PATH];
  const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
  ASSERT_GT(length, 0u);
  EXPECT_EQ(std::strlen(path), length);
  EXPECT_TRUE(std::filesystem::exists(path));
  char shorter[4];
  EXPECT_EQ(GetModuleFileNameA(nullptr, shorter, sizeof shorter), sizeof shorter);
  EXPECT_EQ(std::strlen(shorter), 3u);
}

TEST(Windowless, MessageParts) {
  const LPARAM position = MAKELPARAM(static_cast<WORD>(-3), 40);
  EXPECT_EQ(GET_X_LPARAM(position), -3);
  EXPECT_EQ(GET_Y_LPARAM(position), 40);
  EXPECT_EQ(GET_WHEEL_DELTA_WPARAM(MAKEWPARAM(MK_SHIFT, static_cast<WORD>(-120))), -120);
}

} // namespace
