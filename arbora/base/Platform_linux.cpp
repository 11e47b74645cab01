#include "arbora/base/Platform.h"

#include <cstdlib>
#include <langinfo.h>
#include <pthread.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace arbora {

NbLocale cNumericLocale() {
  static const NbLocale s_locale = newlocale(LC_NUMERIC_MASK, "C", nullptr);
  return s_locale;
}

char decimalPoint(NbLocale locale) {
  const char* point = locale ? nl_langinfo_l(RADIXCHAR, locale) : ".";
  return *point ? *point : '.';
}

bool isPathAccessible(const std::filesystem::path& path, int mode) { return access(path.c_str(), mode) == 0; }

std::FILE* openPath(const std::filesystem::path& path, const char* mode) { return std::fopen(path.c_str(), mode); }

bool environmentValue(const char* name, std::string& value) {
  const char* found = std::getenv(name);
  if (!found) {
    return false;
  }
  value = found;
  return true;
}

std::string homeFolder() {
  std::string home;
  environmentValue("HOME", home);
  return home;
}

std::string defaultSettingsFile() {
  const std::string home = homeFolder();
  return home.empty() ? std::string() : home + "/.config/arbora/settings";
}

unsigned long threadNumber() {
  thread_local const auto s_number = static_cast<unsigned long>(syscall(SYS_gettid));
  return s_number;
}

void nameThisThread(const char* name) {
  // The kernel refuses names above 15 bytes instead of cutting them.
  pthread_setname_np(pthread_self(), std::string(name).substr(0, 15).c_str());
}

} // namespace arbora
