#pragma once

#include "arbora/base/NbString.h"
#include "arbora/base/export.h"

/// Settings by name. A value set by the program comes first, then the environment, then the settings file: the one
/// named by the environment variable ARBORA_SETTINGS, else `$HOME/.config/arbora/settings`, on Windows
/// `%APPDATA%\Arbora\settings`. Its lines are `NAME = value`; `#` begins a comment line. Thread-safe.
class ARBORABASE_API NkPreferences {
public:
  /// The value as UTF-8, or NULL if the name has none. The pointers hold until the value of that name changes.
  static const char* getValue(const char* name);
  static const NbString* getStringValue(const char* name);

  static NbString getString(const char* name, const NbString& defaultValue);
  static void setString(const char* name, const NbString& value);

  /// The default also if the text is no number.
  static int getInt(const char* name, int defaultValue);
  static float getFloat(const char* name, float defaultValue);
  /// 1, true, yes, on and 0, false, no, off in any case; the default for any other text.
  static bool getBool(const char* name, bool defaultValue);

  /// Forgets a value that the program set; one from the environment or the file shows again.
  static void removeValue(const char* name);

  /// Reads the settings file again. It's read by itself at the first use.
  static void reload();
};
