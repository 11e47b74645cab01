#include <gtest/gtest.h>

#include <string>

#include "arbora/scene/NkDelayQueueSensor.h"
#include "arbora/win/NkWin.h"
#include "tests/support/TestSupport.h"

namespace {

class NkWinWindowless : public ::testing::Test {
protected:
  ~NkWinWindowless() override { NkWin::finish(); }
};

TEST_F(NkWinWindowless, HandlesAreNull) {
  EXPECT_EQ(NkWin::init("test"), nullptr);
  EXPECT_EQ(NkWin::getTopLevelWidget(), nullptr);
  EXPECT_EQ(NkWin::getInstance(), nullptr);
  NkWin::show(nullptr);
  NkWin::hide(nullptr);
}

TEST_F(NkWinWindowless, NoClassIsKnownOrRegistered) {
  WNDCLASSA record{};
  record.lpfnWndProc = DefWindowProcA;
  record.lpszClassName = "SomeClass";
  NbString actualName = "before";
  EXPECT_EQ(NkWin::registerClass(record, actualName), 0);
  EXPECT_EQ(NkWin::getClassInfo(NkWin::getInstance(), "SomeClass", actualName, record), 0);
  EXPECT_EQ(actualName, "before");
}

TEST_F(NkWinWindowless, ErrorsArePosted) {
  {
    const ExpectMessages expected({"NkWin::createSimpleErrorDialog(): Title: first second"});
    NkWin::createSimpleErrorDialog(nullptr, "Title", "first", "second");
  }
  const ExpectMessages expected({"NkWin::createSimpleErrorDialog(): Title: first"});
  NkWin::createSimpleErrorDialog(nullptr, "Title", "first");
}

TEST_F(NkWinWindowless, ErrorDialogHookGetsTheTexts) {
  std::string text;
  NkWin::setErrorDialogHook(
      [](void* data, HWND, const char* title, const char* line1, const char* line2) {
        *static_cast<std::string*>(data) = std::string(title) + "|" + line1 + "|" + line2;
      },
      &text);
  NkWin::createSimpleErrorDialog(nullptr, "Title", "first");
  EXPECT_EQ(text, "Title|first|");
}

TEST_F(NkWinWindowless, LoopWithoutAWindowEndsWithItsSensors) {
  int calls = 0;
  NkDelayQueueSensor sensor(
      [](void* data, NkSensor* self) {
        if (++*static_cast<int*>(data) < 3) self->schedule();
      },
      &calls);
  sensor.schedule();
  EXPECT_EQ(NkWin::mainLoop(), 0);
  EXPECT_EQ(calls, 3);
}

TEST_F(NkWinWindowless, LoopGivesTheExitCode) {
  NkDelayQueueSensor sensor([](void*, NkSensor*) { NkWin::exitMainLoop(7); });
  sensor.schedule();
  EXPECT_EQ(NkWin::mainLoop(), 7);
  EXPECT_EQ(NkWin::mainLoop(), 0);
  NkWin::exitMainLoop(5);
  EXPECT_FALSE(NkWin::processPendingMessages());
  EXPECT_EQ(NkWin::mainLoop(), 5);
  EXPECT_TRUE(NkWin::processPendingMessages());
}

TEST_F(NkWinWindowless, AcceleratorsWithoutWindowsAreHarmless) {
  NkWin::addAccelerator({FVIRTKEY | FCONTROL, 'O', 1});
  NkWin::addAccelerator({FVIRTKEY | FCONTROL, 'O', 2});
  EXPECT_TRUE(NkWin::processPendingMessages());
  NkWin::removeAccelerator(2);
  EXPECT_TRUE(NkWin::processPendingMessages());
}

} // namespace
