#include "arbora/win/EventLoop.h"

#include "arbora/scene/NkSensorManager.h"

namespace arbora {
namespace {

constexpr wchar_t kWakeClass[] = L"NkWinWake";
constexpr UINT kWakeMessage = WM_APP;
constexpr UINT_PTR kWakeTimer = 1;
constexpr UINT kWakeTimerMilliseconds = 10;

HWND s_wake = nullptr;
int s_processing = 0;

void processDelayQueue() {
  ++s_processing;
  NkSensorManager::getInstance().processDelayQueue();
  --s_processing;
}

/// A message to a window, not to the thread: so sensors run also in the loops that the system runs for menus, message
/// boxes and moving windows.
LRESULT CALLBACK wakeProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kWakeMessage && message != WM_TIMER) return DefWindowProcW(window, message, wParam, lParam);
  KillTimer(window, kWakeTimer);
  processDelayQueue();
  return 0;
}

/// What a sensor schedules while sensors run waits for a timer: posted messages come ahead of the user's input, and a
/// sensor that always schedules itself again would shut it out.
void wake(void* /*data*/) {
  if (s_processing > 0) {
    SetTimer(s_wake, kWakeTimer, kWakeTimerMilliseconds, nullptr);
  } else {
    PostMessageW(s_wake, kWakeMessage, 0, 0);
  }
}

void dispatch(MSG& message) {
  if (translateAccelerator(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

/// Serves the messages that wait and then the sensors. False, with the code, at the end of the loop.
bool serve(int& code) {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      code = static_cast<int>(message.wParam);
      return false;
    }
    dispatch(message);
  }
  processDelayQueue();
  return true;
}

} // namespace

void prepareLoop() {
  if (s_wake != nullptr) return;
  WNDCLASSW record{};
  record.lpfnWndProc = wakeProcedure;
  record.hInstance = programModule();
  record.lpszClassName = kWakeClass;
  RegisterClassW(&record);
  s_wake = CreateWindowExW(0, kWakeClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, programModule(), nullptr);
  NkSensorManager::getInstance().setChangedCallback(wake, nullptr);
  if (NkSensorManager::getInstance().isDelaySensorPending()) wake(nullptr);
}

void finishLoop() {
  if (s_wake == nullptr) return;
  NkSensorManager::getInstance().setChangedCallback(nullptr, nullptr);
  DestroyWindow(s_wake);
  UnregisterClassW(kWakeClass, programModule());
  s_wake = nullptr;
}

int runLoop() {
  int code = 0;
  while (serve(code)) {
    if (!NkSensorManager::getInstance().isDelaySensorPending()) WaitMessage();
  }
  return code;
}

void quitLoop(int code) { PostQuitMessage(code); }

bool serveLoop() {
  int code = 0;
  if (serve(code)) return true;
  PostQuitMessage(code);
  return false;
}

HINSTANCE programModule() { return GetModuleHandleA(nullptr); }

} // namespace arbora
