#include "arbora/base/NkModule.h"

#include "arbora/base/NbThreadMutex.h"

#include <algorithm>

namespace {

NbThreadMutex s_modulesMutex;

// Made at the first module and never deleted: modules of other libraries come before and go after this library's own
// static objects.
std::vector<const NkModule*>& modules() {
  static auto* const s_modules = new std::vector<const NkModule*>;
  return *s_modules;
}

} // namespace

NkModule::NkModule(const char* name, const char* version, const char* buildData)
    : m_name(name ? name : ""), m_version(version ? version : ""), m_buildData(buildData ? buildData : "") {
  const NbThreadAutoLock lock(&s_modulesMutex);
  modules().push_back(this);
}

NkModule::~NkModule() {
  const NbThreadAutoLock lock(&s_modulesMutex);
  std::erase(modules(), this);
}

std::vector<const NkModule*> NkModule::getModules() {
  const NbThreadAutoLock lock(&s_modulesMutex);
  return modules();
}

const NkModule* NkModule::find(const char* name) {
  const NbThreadAutoLock lock(&s_modulesMutex);
  const auto& all = modules();
  const auto found =
      std::find_if(all.begin(), all.end(), [name](const NkModule* module) { return name && module->m_name == name; });
  return found == all.end() ? nullptr : *found;
}
