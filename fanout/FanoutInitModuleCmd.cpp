#include "fanout/FanoutInitModuleCmd.h"

#include <mutex>

namespace {

std::mutex& modulesMutex() {
  static auto* const s_mutex = new std::mutex;
  return *s_mutex;
}

} // namespace

FanoutInitModuleCmd& FanoutInitModuleCmd::Instance() {
  // Never deleted: libraries announce themselves and ask from static objects too.
  static auto* const s_instance = new FanoutInitModuleCmd;
  return *s_instance;
}

void FanoutInitModuleCmd::serialize(const char* module) {
  if (!module || !*module) {
    return;
  }
  const std::lock_guard lock(modulesMutex());
  m_modules.insert(module);
}

bool FanoutInitModuleCmd::announced(const char* module) const {
  const std::lock_guard lock(modulesMutex());
  return module && m_modules.count(module) > 0;
}
