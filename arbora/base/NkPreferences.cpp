#include "arbora/base/NkPreferences.h"

#include "arbora/base/NbFileHelper.h"
#include "arbora/base/NbThreadMutex.h"
#include "arbora/base/NkDebugError.h"
#include "arbora/base/Platform.h"

#include <algorithm>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Setting {
  NbString text;
  std::string utf8;
};

// Maps keep their entries in place, so that pointers into one hold until its own value changes.
using Settings = std::map<std::string, Setting, std::less<>>;

struct Store {
  Settings fromProgram;
  Settings fromEnvironment; // values as last seen there
  Settings fromFile;
  bool isFileRead = false;
};

NbThreadMutex s_storeMutex;

// Never deleted: static objects of any library may ask for a setting at the very end.
Store& store() {
  static auto* const s_store = new Store;
  return *s_store;
}

void assign(Settings& settings, std::string_view name, const NbString& text, const std::string& utf8) {
  const auto found = settings.find(name);
  if (found == settings.end()) {
    settings.emplace(name, Setting{text, utf8});
  } else if (found->second.utf8 != utf8) {
    found->second = Setting{text, utf8};
  }
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t start = text.find_first_not_of(kBlanks);
  if (start == std::string_view::npos) {
    return {};
  }
  return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

bool isSettingName(std::string_view name) {
  return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '.' ||
           c == '-';
  });
}

// Takes the settings from the text of a file and adds a message for each line that is none.
Settings parse(std::string_view text, const std::string& fileName, std::vector<std::string>& messages) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    text.remove_prefix(kByteOrderMark.size());
  }
  Settings settings;
  for (int line = 1; !text.empty(); ++line) {
    const std::size_t length = std::min(text.find('\n'), text.size());
    const std::string_view content = trimmed(text.substr(0, length));
    text.remove_prefix(std::min(length + 1, text.size()));
    if (content.empty() || content[0] == '#') {
      continue;
    }
    const std::size_t equals = std::min(content.find('='), content.size());
    const std::string_view name = trimmed(content.substr(0, equals));
    if (equals == content.size() || !isSettingName(name)) {
      messages.push_back(fileName + ":" + std::to_string(line) + ":1: error: expected NAME = value");
      continue;
    }
    const std::string value(trimmed(content.substr(equals + 1)));
    assign(settings, name, NbString::fromUtf8(value), value);
  }
  return settings;
}

Settings readFile(std::vector<std::string>& messages) {
  std::string fileName;
  const bool isNamed = arbora::environmentValue("ARBORA_SETTINGS", fileName) && !fileName.empty();
  if (!isNamed) {
    fileName = arbora::defaultSettingsFile();
  }
  const NbString path = NbString::fromUtf8(fileName);
  if (!isNamed && !NbFileHelper::isAccessible(path)) {
    return {};
  }
  std::string text;
  std::string why;
  if (!NbFileHelper::readWholeFile(path, text, &why)) {
    messages.push_back(fileName + ": error: can't read the settings: " + why);
    return {};
  }
  return parse(text, fileName, messages);
}

void takeFile(Store& all, std::vector<std::string>& messages) {
  all.isFileRead = true;
  Settings fresh = readFile(messages);
  for (auto old = all.fromFile.begin(); old != all.fromFile.end();) {
    old = fresh.count(old->first) ? std::next(old) : all.fromFile.erase(old);
  }
  for (const auto& [name, setting] : fresh) {
    assign(all.fromFile, name, setting.text, setting.utf8);
  }
}

// Out of the lock, as a handler of messages may itself ask for a setting.
void post(const std::vector<std::string>& messages) {
  for (const std::string& message : messages) {
    NkDebugError::post("", "%s", message.c_str());
  }
}

// The caller holds the lock.
const Setting* lookUp(Store& all, const char* name, std::vector<std::string>& messages) {
  if (const auto found = all.fromProgram.find(name); found != all.fromProgram.end()) {
    return &found->second;
  }
  std::string utf8;
  if (*name && arbora::environmentValue(name, utf8)) {
    assign(all.fromEnvironment, name, NbString::fromUtf8(utf8), utf8);
    return &all.fromEnvironment.find(name)->second;
  }
  if (!all.isFileRead) {
    takeFile(all, messages);
  }
  const auto found = all.fromFile.find(name);
  return found == all.fromFile.end() ? nullptr : &found->second;
}

// Calls `use` with the setting, or NULL, under the lock, and gives what it gives.
template <class Use>
auto withSetting(const char* name, Use use) {
  std::vector<std::string> messages;
  auto result = [&] {
    const NbThreadAutoLock lock(&s_storeMutex);
    return use(name ? lookUp(store(), name, messages) : nullptr);
  }();
  post(messages);
  return result;
}

template <class T>
T numberOr(const char* name, T (NbString::*convert)(bool*) const, T defaultValue) {
  return withSetting(name, [&](const Setting* setting) {
    bool ok = false;
    const T value = setting ? (setting->text.*convert)(&ok) : defaultValue;
    return ok ? value : defaultValue;
  });
}

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> words) {
  return std::any_of(words.begin(), words.end(), [text](std::string_view word) {
    return std::equal(text.begin(), text.end(), word.begin(), word.end(), [](char a, char b) {
      return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
    });
  });
}

} // namespace

const char* NkPreferences::getValue(const char* name) {
  return withSetting(name, [](const Setting* setting) { return setting ? setting->utf8.c_str() : nullptr; });
}

const NbString* NkPreferences::getStringValue(const char* name) {
  return withSetting(name, [](const Setting* setting) { return setting ? &setting->text : nullptr; });
}

NbString NkPreferences::getString(const char* name, const NbString& defaultValue) {
  return withSetting(name, [&](const Setting* setting) { return setting ? setting->text : defaultValue; });
}

void NkPreferences::setString(const char* name, const NbString& value) {
  if (!name || !*name) {
    NkDebugError::post("NkPreferences::setString", "A setting needs a name");
    return;
  }
  const NbThreadAutoLock lock(&s_storeMutex);
  assign(store().fromProgram, name, value, value.toUtf8());
}

int NkPreferences::getInt(const char* name, int defaultValue) { return numberOr(name, &NbString::toInt, defaultValue); }

float NkPreferences::getFloat(const char* name, float defaultValue) {
  return numberOr(name, &NbString::toFloat, defaultValue);
}

bool NkPreferences::getBool(const char* name, bool defaultValue) {
  return withSetting(name, [&](const Setting* setting) {
    if (setting && isOneOf(setting->utf8, {"1", "true", "yes", "on"})) {
      return true;
    }
    if (setting && isOneOf(setting->utf8, {"0", "false", "no", "off"})) {
      return false;
    }
    return defaultValue;
  });
}

void NkPreferences::removeValue(const char* name) {
  const NbThreadAutoLock lock(&s_storeMutex);
  Settings& settings = store().fromProgram;
  if (const auto found = settings.find(name ? name : ""); found != settings.end()) {
    settings.erase(found);
  }
}

void NkPreferences::reload() {
  std::vector<std::string> messages;
  {
    const NbThreadAutoLock lock(&s_storeMutex);
    takeFile(store(), messages);
  }
  post(messages);
}
