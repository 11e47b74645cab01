#include "arbora/win/EventLoop.h"

#include <optional>

#include "arbora/scene/NkSensorManager.h"
#include "arbora/win/GlfwView_linux.h"

namespace arbora {
namespace {

std::optional<int> s_quitCode;

/// One round: sensors, then pictures, then what the user did.
void serve(bool wait) {
  NkSensorManager& sensors = NkSensorManager::getInstance();
  sensors.processDelayQueue();
  GlfwView::paintAll();
  GlfwView::processEvents(wait && !s_quitCode && !sensors.isDelaySensorPending());
}

} // namespace

void prepareLoop() {
  NkSensorManager::getInstance().setChangedCallback([](void*) { GlfwView::wakeUp(); }, nullptr);
}

void finishLoop() { NkSensorManager::getInstance().setChangedCallback(nullptr, nullptr); }

int runLoop() {
  while (!s_quitCode && (GlfwView::isAnyOpen() || NkSensorManager::getInstance().isDelaySensorPending())) serve(true);
  const int code = s_quitCode.value_or(0);
  s_quitCode.reset();
  return code;
}

void quitLoop(int code) {
  s_quitCode = code;
  GlfwView::wakeUp();
}

bool serveLoop() {
  serve(false);
  return !s_quitCode;
}

HINSTANCE programModule() { return nullptr; }

} // namespace arbora
