#include "tools/panelix/Arguments.h"

#include "arbora/base/NbString.h"
#include "src/platform/Win32.h"

#include <shellapi.h>

// `argv` holds the words in the system's code page, which has no place for most of the world's file names.
std::vector<std::string> panelix::commandLineArguments(int /*argc*/, char** /*argv*/) {
  std::vector<std::string> arguments;
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; words && i < count; ++i) arguments.push_back(NbString(words[i]).toUtf8());
  LocalFree(words);
  return arguments;
}
