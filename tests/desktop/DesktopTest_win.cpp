#include "tests/desktop/DesktopTest_win.h"

#include <string_view>
#include <utility>

#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkDialogSeparator.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkSeparator.h"

namespace {

/// What the application, the system and the toolkit make once and keep: the main window, the windows of the input
/// method, window classes with their brushes and icons, what bars, menus and captions are drawn with, skins.
class WhatStays : public ::testing::Environment {
  void SetUp() override {
    desktop::start();
    NkWin::init("desktop tests");
    NkPanelix::init();
    allowMessages("skin file");
    {
      const arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
      dialog->vScrollVisibility = NkTopLevelDialog::ALWAYS;
      dialog->hScrollVisibility = NkTopLevelDialog::ALWAYS;
      auto* label = new NkDialogLabel;
      label->label = "text";
      dialog->addChild(label);
      dialog->addChild(new NkDialogSeparator);
      dialog->addChild(new NkDialogPushButton);
      auto* box = new NkDialogCheckBox;
      box->state = TRUE;
      dialog->addChild(box);
      dialog->buildDialog(nullptr, 0);
      dialog->show();
      const HMENU menu = CreateMenu();
      AppendMenuA(menu, MF_STRING, 1, "entry");
      const HWND other = CreateWindowExA(0, "STATIC", "application", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 200,
                                         nullptr, menu, NkWin::getInstance(), nullptr);
      desktop::serveAWhile();
      DestroyWindow(other);
      NbVec2i32 none(0, 0);
      dialog->buildWidget(nullptr, none, none, 0);
    }
    NkPanelix::finish();
  }
};

/// Not those that the system makes with a thread's first top-level window.
BOOL CALLBACK countWindow(HWND window, LPARAM count) {
  char name[32] = "";
  GetClassNameA(window, name, sizeof name);
  const std::string_view className(name);
  if (className != "IME" && className != "MSCTFIME UI") ++*reinterpret_cast<int*>(count);
  return TRUE;
}

BOOL CALLBACK countWindowAndChildren(HWND window, LPARAM count) {
  countWindow(window, count);
  EnumChildWindows(window, countWindow, count);
  return TRUE;
}

int liveWindows() {
  int count = 0;
  EnumThreadWindows(GetCurrentThreadId(), countWindowAndChildren, reinterpret_cast<LPARAM>(&count));
  return count;
}

/// GetGuiResources gives 0 under Wine, where the lower half of a handle is its place in the table. Brushes, pens and
/// fonts are counted; of the others the system keeps those that it once painted windows with.
int liveDrawingObjects() {
  constexpr UINT_PTR kPlaces = 0x10000;
  int count = 0;
  for (UINT_PTR place = 1; place < kPlaces; ++place) {
    switch (GetObjectType(reinterpret_cast<HGDIOBJ>(place))) {
      case OBJ_BRUSH:
      case OBJ_PEN:
      case OBJ_FONT:
        ++count;
        break;
      default:
        break;
    }
  }
  return count;
}

::testing::Environment* const s_whatStays = ::testing::AddGlobalTestEnvironment(new WhatStays);
const bool s_counted = registerLeakCounter("scene objects", &NkBase::getLiveCount) &&
                       registerLeakCounter("windows", liveWindows) &&
                       registerLeakCounter("drawing objects", liveDrawingObjects);

std::string s_refusedPrefix;

LRESULT CALLBACK refuseWindow(int code, WPARAM window, LPARAM creation) {
  if (code != HCBT_CREATEWND) return CallNextHookEx(nullptr, code, window, creation);
  char name[256] = "";
  GetClassNameA(reinterpret_cast<HWND>(window), name, sizeof name);
  return std::string(name).rfind(s_refusedPrefix, 0) == 0;
}

} // namespace

DesktopTest::DesktopTest() {
  NkPanelix::init();
  hearErrors();
}

DesktopTest::~DesktopTest() {
  m_roots.clear();
  for (HWND window : m_windows) DestroyWindow(window);
  NkWin::setErrorDialogHook(nullptr, nullptr);
  for (const std::string& error : m_errors) ADD_FAILURE() << "error dialog: " << error;
  NkPanelix::finish();
}

NkPanelix* DesktopTest::readFirst(const std::string& text) {
  NkInput in;
  in.setBuffer(text.data(), text.size());
  const arbora::Ref<NkSeparator> root(NkDB::readAll(&in));
  auto* first = root && root->getNumChildren() > 0 ? dynamic_cast<NkPanelix*>(root->getChild(0)) : nullptr;
  if (first) m_roots.emplace_back(first);
  return first;
}

NkTopLevelDialog* DesktopTest::open(const std::string& text, bool shown) {
  auto* dialog = read<NkTopLevelDialog>(text);
  dialog->buildDialog(nullptr, 0);
  if (shown) dialog->show();
  desktop::serveAWhile();
  return dialog;
}

std::vector<std::string> DesktopTest::takeErrors() { return std::exchange(m_errors, {}); }

void DesktopTest::noteError(void* data, HWND parent, const char* title, const char* line1, const char* line2) {
  EXPECT_EQ(parent, nullptr);
  EXPECT_STREQ(line2, "");
  static_cast<DesktopTest*>(data)->m_errors.push_back(std::string(title) + ": " + line1);
}

HWND DesktopTest::makeApplicationWindow() {
  m_windows.push_back(CreateWindowExA(0, "STATIC", "application", WS_OVERLAPPEDWINDOW, 60, 50, 300, 200, nullptr,
                                      nullptr, NkWin::getInstance(), nullptr));
  return m_windows.back();
}

std::string DesktopTest::classOf(HWND window) {
  char name[256] = "";
  GetClassNameA(window, name, sizeof name);
  return name;
}

std::string DesktopTest::textOf(HWND window) {
  char text[1024] = "";
  GetWindowTextA(window, text, sizeof text);
  return text;
}

std::string DesktopTest::rectangle(int x, int y, int width, int height) {
  return std::to_string(x) + " " + std::to_string(y) + " " + std::to_string(width) + " " + std::to_string(height);
}

std::string DesktopTest::rectangleOf(HWND window) {
  const RECT area = outlineOf(window);
  POINT corner{area.left, area.top};
  if (GetWindowLongPtrA(window, GWL_STYLE) & WS_CHILD) ScreenToClient(GetParent(window), &corner);
  return rectangle(corner.x, corner.y, area.right - area.left, area.bottom - area.top);
}

RECT DesktopTest::outlineOf(HWND window) {
  RECT area{};
  GetWindowRect(window, &area);
  return area;
}

NbVec2i32 DesktopTest::sizeOf(HWND window) {
  const RECT area = outlineOf(window);
  return NbVec2i32(area.right - area.left, area.bottom - area.top);
}

void DesktopTest::resize(HWND window, int width, int height) {
  SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
}

std::string DesktopTest::barOf(HWND window, int bar) {
  const DWORD shows = bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL;
  if (!(styleOf(window) & shows)) return "off";
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(window, bar, &info);
  return rectangle(info.nMin, info.nMax, static_cast<int>(info.nPage), info.nPos);
}

void DesktopTest::click(int x, int y) {
  EXPECT_TRUE(desktop::act("mousemove " + std::to_string(x) + " " + std::to_string(y) + " click 1"));
}

void DesktopTest::drag(int x, int y, int byX, int byY) {
  const auto move = [](int toX, int toY) {
    return "mousemove " + std::to_string(toX) + " " + std::to_string(toY) + " sleep 0.1 ";
  };
  EXPECT_TRUE(desktop::act(move(x, y) + "mousedown 1 sleep 0.1 " + move(x + byX / 2, y + byY / 2) +
                           move(x + byX, y + byY) + "mouseup 1"));
}

WindowRefusal::WindowRefusal(std::string classPrefix) {
  s_refusedPrefix = std::move(classPrefix);
  m_hook = SetWindowsHookExA(WH_CBT, refuseWindow, nullptr, GetCurrentThreadId());
}

WindowRefusal::~WindowRefusal() { UnhookWindowsHookEx(m_hook); }
