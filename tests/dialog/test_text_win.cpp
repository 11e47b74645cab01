#include "DialogTest.h"
#include "Panelix/NkDialogWidgetList.h"

namespace {

struct Panelix : NkPanelix {
  using NkPanelix::setWindowTextOf;
};

int countWindows() {
  int count = 0;
  const auto add = [](HWND, LPARAM data) -> BOOL {
    ++*reinterpret_cast<int*>(data);
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&count));
  return count;
}

class TextOfWindows : public DialogTest {
protected:
  ~TextOfWindows() override {
    if (IsWindow(window)) DestroyWindow(window);
  }

  std::wstring textOfWindow() const {
    wchar_t text[100];
    return std::wstring(text, static_cast<std::size_t>(GetWindowTextW(window, text, 100)));
  }

  const HWND window =
      CreateWindowExW(0, L"EDIT", L"", WS_OVERLAPPED, 0, 0, 100, 20, nullptr, nullptr, nullptr, nullptr);
};

TEST_F(TextOfWindows, NarrowTextIsLatin1) {
  Panelix::setWindowTextOf(window, "caf\xe9 \xa9");
  EXPECT_EQ(textOfWindow(), L"caf\xe9 \xa9");
  Panelix::setWindowTextOf(window, "");
  EXPECT_EQ(textOfWindow(), L"");
}

TEST_F(TextOfWindows, WideTextCountsAsBytes) {
  Panelix::setWindowTextOf(window, NbString(L"a \x2192 b"));
  EXPECT_EQ(textOfWindow(), L"a ? b");
}

TEST_F(TextOfWindows, WindowTakesTheFont) {
  NkPanelix::setWidgetFont(window);
  EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageA(window, WM_GETFONT, 0, 0)), NkPanelix::getPanelixFont());
}

TEST_F(TextOfWindows, FontOfTheSystemAtFirst) {
  EXPECT_EQ(NkPanelix::getPanelixFont(), GetStockObject(DEFAULT_GUI_FONT));
}

TEST_F(TextOfWindows, SizeFollowsTheFont) {
  const NbVec2i32 before = NkPanelix::getLabelPixelSize("label", nullptr);
  const HFONT system = NkPanelix::getPanelixFont();
  const HFONT large = CreateFontA(-40, 0, 0, 0, FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, 0, "Tahoma");
  NkPanelix::setFont(large);
  EXPECT_EQ(NkPanelix::getPanelixFont(), large);
  const NbVec2i32 size = NkPanelix::getLabelPixelSize("label", nullptr);
  EXPECT_GT(size[0], 2 * before[0]);
  EXPECT_GT(size[1], 2 * before[1]);
  NkPanelix::setFont(system);
  EXPECT_TRUE(DeleteObject(large));
  // Nothing holds the font any more, so that it is gone.
  EXPECT_EQ(GetObjectType(large), 0U);
  EXPECT_EQ(NkPanelix::getLabelPixelSize("label", nullptr), before);
}

TEST_F(TextOfWindows, MeasuringMakesNoWindow) {
  const int before = countWindows();
  NkPanelix::getLabelPixelSize("one\\ntwo", nullptr);
  EXPECT_EQ(countWindows(), before);
}

TEST_F(TextOfWindows, WindowsOutliveTheirList) {
  {
    NkDialogWidgetList list;
    list.append(window);
  }
  EXPECT_TRUE(IsWindow(window));
}

} // namespace
