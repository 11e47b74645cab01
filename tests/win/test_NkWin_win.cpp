#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "arbora/scene/NkDelayQueueSensor.h"
#include "arbora/win/NkWin.h"
#include "tests/support/TestSupport.h"
#include "tests/win/Desktop.h"

namespace {

std::vector<int> s_commands;
bool s_lastWasAccelerator = false;

LRESULT CALLBACK noteCommands(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  NkWin::isArboraMessage(window, message, wParam, lParam);
  // Those of controls have their window in lParam.
  if (message == WM_COMMAND && lParam == 0) {
    s_commands.push_back(LOWORD(wParam));
    s_lastWasAccelerator = HIWORD(wParam) == 1;
    return 0;
  }
  return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK otherProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return DefWindowProcA(window, message, wParam, lParam);
}

WNDCLASSA recordOf(const char* name) {
  WNDCLASSA record{};
  record.lpfnWndProc = noteCommands;
  record.hInstance = NkWin::getInstance();
  record.lpszClassName = name;
  return record;
}

class NkWinTest : public ::testing::Test {
protected:
  NkWinTest() {
    s_commands.clear();
    s_lastWasAccelerator = false;
  }
  ~NkWinTest() override {
    for (HWND window : windows) DestroyWindow(window);
    NkWin::processPendingMessages();
    NkWin::finish();
  }

  HWND makeWindow(const char* className = "NoteCommands") {
    NbString actualName;
    WNDCLASSA record{};
    if (!NkWin::getClassInfo(NkWin::getInstance(), className, actualName, record)) {
      EXPECT_NE(NkWin::registerClass(recordOf(className), actualName), 0);
    }
    windows.push_back(CreateWindowExA(0, actualName.toLatin1().c_str(), "window", WS_OVERLAPPEDWINDOW, 50, 50, 300, 200,
                                      nullptr, nullptr, NkWin::getInstance(), nullptr));
    return windows.back();
  }
  HWND showWindow() {
    const HWND window = makeWindow();
    NkWin::show(window);
    desktop::serveAWhile();
    EXPECT_EQ(GetForegroundWindow(), window);
    return window;
  }

  std::vector<HWND> windows;
};

TEST_F(NkWinTest, MainWindow) {
  const HWND window = NkWin::init("the application");
  ASSERT_TRUE(IsWindow(window));
  EXPECT_EQ(NkWin::init("again"), window);
  EXPECT_EQ(NkWin::getTopLevelWidget(), window);
  EXPECT_EQ(NkWin::getInstance(), GetModuleHandleA(nullptr));
  EXPECT_FALSE(IsWindowVisible(window));
  char text[100];
  GetWindowTextA(window, text, sizeof text);
  EXPECT_STREQ(text, "the application");
  GetClassNameA(window, text, sizeof text);
  EXPECT_STREQ(text, "NkWinTopLevel");
  NkWin::finish();
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(NkWin::getTopLevelWidget(), nullptr);
}

TEST_F(NkWinTest, CloseBoxOfTheMainWindowEndsTheLoop) {
  const HWND window = NkWin::init("the application");
  NkWin::show(window);
  PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0);
  EXPECT_EQ(NkWin::mainLoop(), 0);
  EXPECT_TRUE(IsWindow(window));
}

TEST_F(NkWinTest, ClassesAreFoundOnceTheyAreRegistered) {
  NbString actualName = "before";
  WNDCLASSA record{};
  EXPECT_EQ(NkWin::getClassInfo(NkWin::getInstance(), "SomeClass", actualName, record), 0);
  EXPECT_EQ(actualName, "before");
  ASSERT_NE(NkWin::registerClass(recordOf("SomeClass"), actualName), 0);
  EXPECT_EQ(actualName, "SomeClass");
  NbString foundName;
  ASSERT_NE(NkWin::getClassInfo(NkWin::getInstance(), "SomeClass", foundName, record), 0);
  EXPECT_EQ(foundName, actualName);
  EXPECT_EQ(record.lpfnWndProc, noteCommands);
  // The second time it's there already.
  EXPECT_EQ(NkWin::registerClass(recordOf("SomeClass"), actualName), 0);
}

TEST_F(NkWinTest, ClassesOfTheSystemAreFound) {
  NbString actualName;
  WNDCLASSA record{};
  EXPECT_NE(NkWin::getClassInfo(NkWin::getInstance(), "EDIT", actualName, record), 0);
  EXPECT_EQ(actualName, "EDIT");
}

TEST_F(NkWinTest, ForeignClassOfTheSameNameIsAvoided) {
  WNDCLASSA foreign = recordOf("Contested");
  foreign.lpfnWndProc = otherProcedure;
  ASSERT_NE(RegisterClassA(&foreign), 0);
  NbString actualName;
  WNDCLASSA record{};
  EXPECT_EQ(NkWin::getClassInfo(NkWin::getInstance(), "Contested", actualName, record), 0);
  ASSERT_NE(NkWin::registerClass(recordOf("Contested"), actualName), 0);
  EXPECT_NE(actualName, "Contested");
  const HWND window = makeWindow("Contested");
  ASSERT_TRUE(IsWindow(window));
  EXPECT_EQ(reinterpret_cast<WNDPROC>(GetWindowLongPtrA(window, GWLP_WNDPROC)), noteCommands);
  DestroyWindow(window);
  windows.clear();
  UnregisterClassA("Contested", NkWin::getInstance());
}

TEST_F(NkWinTest, UnusableRecordsAreRefused) {
  NbString actualName;
  WNDCLASSA record{};
  EXPECT_EQ(NkWin::registerClass(record, actualName), 0);
  EXPECT_EQ(NkWin::getClassInfo(nullptr, nullptr, actualName, record), 0);
}

TEST_F(NkWinTest, ShowAndHide) {
  const HWND window = showWindow();
  EXPECT_TRUE(IsWindowVisible(window));
  EXPECT_EQ(NkWin::getActiveTopLevelWidget(), window);
  ShowWindow(window, SW_MINIMIZE);
  EXPECT_TRUE(IsIconic(window));
  NkWin::show(window);
  EXPECT_FALSE(IsIconic(window));
  NkWin::hide(window);
  EXPECT_FALSE(IsWindowVisible(window));
  NkWin::show(nullptr);
  NkWin::hide(nullptr);
}

TEST_F(NkWinTest, ActiveWindowIsForgottenWhenItGoes) {
  const HWND window = showWindow();
  ASSERT_EQ(NkWin::getActiveTopLevelWidget(), window);
  DestroyWindow(window);
  windows.clear();
  EXPECT_EQ(NkWin::getActiveTopLevelWidget(), nullptr);
  EXPECT_EQ(NkWin::isArboraMessage(nullptr, WM_NULL, 0, 0), 0);
}

TEST_F(NkWinTest, KeysBecomeCommandsOfTheActiveWindow) {
  const HWND window = showWindow();
  // The focus lies in a control of the window, the command goes to the window.
  const HWND edit = CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE, 10, 10, 100, 20, window, nullptr,
                                    NkWin::getInstance(), nullptr);
  SetFocus(edit);
  NkWin::addAccelerator({FVIRTKEY | FCONTROL, 'O', 101});
  NkWin::addAccelerator({FVIRTKEY | FCONTROL | FSHIFT, 'O', 102});
  NkWin::addAccelerator({FVIRTKEY | FCONTROL, 'P', 103});
  NkWin::addAccelerator({FVIRTKEY | FCONTROL, 'P', 104});
  ASSERT_TRUE(desktop::act("key ctrl+o ctrl+shift+o ctrl+p"));
  EXPECT_EQ(s_commands, (std::vector<int>{101, 102, 104}));
  EXPECT_TRUE(s_lastWasAccelerator);
  NkWin::removeAccelerator(101);
  ASSERT_TRUE(desktop::act("key ctrl+o ctrl+shift+o"));
  EXPECT_EQ(s_commands, (std::vector<int>{101, 102, 104, 102}));
}

TEST_F(NkWinTest, KeysWithoutACommandReachTheControl) {
  const HWND window = showWindow();
  const HWND edit = CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE, 10, 10, 100, 20, window, nullptr,
                                    NkWin::getInstance(), nullptr);
  SetFocus(edit);
  NkWin::addAccelerator({FVIRTKEY | FCONTROL, 'O', 101});
  ASSERT_TRUE(desktop::act("key o k"));
  char text[20];
  GetWindowTextA(edit, text, sizeof text);
  EXPECT_STREQ(text, "ok");
  EXPECT_TRUE(s_commands.empty());
}

TEST_F(NkWinTest, LoopRunsDelayedSensorsAndGivesTheExitCode) {
  int calls = 0;
  NkDelayQueueSensor sensor(
      [](void* data, NkSensor* self) {
        if (++*static_cast<int*>(data) < 3) {
          self->schedule();
        } else {
          NkWin::exitMainLoop(7);
        }
      },
      &calls);
  sensor.schedule();
  EXPECT_EQ(NkWin::mainLoop(), 7);
  EXPECT_EQ(calls, 3);
  NkWin::exitMainLoop(5);
  EXPECT_FALSE(NkWin::processPendingMessages());
  EXPECT_EQ(NkWin::mainLoop(), 5);
  EXPECT_TRUE(NkWin::processPendingMessages());
}

TEST_F(NkWinTest, ForeignLoopsRunDelayedSensorsToo) {
  NkWin::init("application");
  int calls = 0;
  NkDelayQueueSensor sensor(
      [](void* data, NkSensor* self) {
        if (++*static_cast<int*>(data) < 3) {
          self->schedule();
        } else {
          PostQuitMessage(0);
        }
      },
      &calls);
  sensor.schedule();
  // A watchdog, so that a sensor that never runs fails the test instead of stopping it.
  const UINT_PTR watchdog = SetTimer(nullptr, 0, 5000, [](HWND, UINT, UINT_PTR, DWORD) { PostQuitMessage(1); });
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
  KillTimer(nullptr, watchdog);
  EXPECT_EQ(message.wParam, 0u);
  EXPECT_EQ(calls, 3);
}

TEST_F(NkWinTest, SensorThatAlwaysGoesOnLeavesTheUserAlone) {
  showWindow();
  NkDelayQueueSensor sensor([](void*, NkSensor* self) { self->schedule(); });
  sensor.schedule();
  NkWin::addAccelerator({FVIRTKEY | FCONTROL, 'Q', 9});
  EXPECT_TRUE(desktop::act("key ctrl+q"));
  EXPECT_EQ(s_commands, std::vector<int>{9});
}

TEST_F(NkWinTest, ErrorDialogHookGetsTheTexts) {
  std::string text;
  NkWin::setErrorDialogHook(
      [](void* data, HWND, const char* title, const char* line1, const char* line2) {
        *static_cast<std::string*>(data) = std::string(title) + "|" + line1 + "|" + line2;
      },
      &text);
  NkWin::createSimpleErrorDialog(nullptr, "NkDialog Error", "first", "second");
  EXPECT_EQ(text, "NkDialog Error|first|second");
  NkWin::createSimpleErrorDialog(nullptr, nullptr, "first");
  EXPECT_EQ(text, "|first|");
}

TEST_F(NkWinTest, ErrorDialogWaitsForItsAnswer) {
  NkWin::init("application");
  // The dialog runs a loop of its own, in which this looks at it and answers.
  std::string shown;
  NkDelayQueueSensor answer(
      [](void* data, NkSensor* self) {
        const HWND dialog = FindWindowA("#32770", "NkDialog Error");
        const HWND label = dialog != nullptr ? FindWindowExA(dialog, nullptr, "STATIC", nullptr) : nullptr;
        if (label == nullptr) {
          self->schedule();
          return;
        }
        for (HWND each = label; each != nullptr; each = FindWindowExA(dialog, each, "STATIC", nullptr)) {
          char text[100] = "";
          GetWindowTextA(each, text, sizeof text);
          *static_cast<std::string*>(data) += text;
        }
        PostMessageA(dialog, WM_COMMAND, IDOK, 0);
      },
      &shown);
  answer.schedule();
  NkWin::createSimpleErrorDialog(nullptr, "NkDialog Error", "first", "second");
  EXPECT_EQ(shown, "first\nsecond");
}

} // namespace
