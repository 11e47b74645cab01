#include "arbora/base/NbString.h"
#include "arbora/base/Platform.h"

#include <io.h>
#include <pthread.h>
#include <vector>
#include <wchar.h>
#include <windows.h>

namespace arbora {

NbLocale cNumericLocale() {
  static const NbLocale s_locale = _create_locale(LC_NUMERIC, "C");
  return s_locale;
}

char decimalPoint(NbLocale locale) {
  // The C runtime has no query for the conventions of a locale object; a conversion shows which point it takes.
  return locale && _strtod_l("0,5", nullptr, locale) > 0 ? ',' : '.';
}

bool isPathAccessible(const std::filesystem::path& path, int mode) { return _waccess(path.c_str(), mode) == 0; }

std::FILE* openPath(const std::filesystem::path& path, const char* mode) {
  return _wfopen(path.c_str(), NbString(mode).toWideChar().c_str());
}

bool environmentValue(const char* name, std::string& value) {
  const std::wstring wideName = NbString::fromUtf8(name).toWideChar();
  // The value may grow between the two calls, when another thread sets it.
  std::vector<wchar_t> buffer(256);
  for (;;) {
    SetLastError(ERROR_SUCCESS);
    const DWORD size = GetEnvironmentVariableW(wideName.c_str(), buffer.data(), static_cast<DWORD>(buffer.size()));
    if (size == 0 && GetLastError() == ERROR_ENVVAR_NOT_FOUND) {
      return false;
    }
    if (size < buffer.size()) {
      value = NbString(std::wstring(buffer.data(), size)).toUtf8();
      return true;
    }
    buffer.resize(size);
  }
}

std::string homeFolder() {
  std::string home;
  environmentValue("USERPROFILE", home);
  return home;
}

std::string defaultSettingsFile() {
  std::string folder;
  return environmentValue("APPDATA", folder) && !folder.empty() ? folder + "\\Arbora\\settings" : std::string();
}

unsigned long threadNumber() { return GetCurrentThreadId(); }

void nameThisThread(const char* name) { pthread_setname_np(pthread_self(), name); }

} // namespace arbora
