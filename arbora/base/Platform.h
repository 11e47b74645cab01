#pragma once

#include "arbora/base/NbLocale.h"

#include <cstdio>
#include <filesystem>
#include <string>

/// What differs from system to system in this layer; one source per system.
namespace arbora {

/// A locale with the numeric conventions of "C"; the same object at each call.
NbLocale cNumericLocale();
char decimalPoint(NbLocale locale);

/// Modes as of `access`: 0 existence, 2 write, 4 read.
bool isPathAccessible(const std::filesystem::path& path, int mode);
std::FILE* openPath(const std::filesystem::path& path, const char* mode);

/// An environment variable as UTF-8. False if it isn't set.
bool environmentValue(const char* name, std::string& value);
/// The user's home folder and the default settings file, as UTF-8; empty if unknown.
std::string homeFolder();
std::string defaultSettingsFile();

unsigned long threadNumber();
void nameThisThread(const char* name);

} // namespace arbora
