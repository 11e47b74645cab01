#pragma once

#include "arbora/base/NbString.h"
#include "arbora/base/export.h"

#include <cstdio>
#include <string>

/// File names and small file services. A path may be wide. The bytes of a narrow one are taken as UTF-8 where they are
/// well-formed as that, else as Latin-1.
class ARBORABASE_API NbFileHelper {
public:
  /// 1 if the path, of a file or a folder, can be accessed, else 0. Mode 0 asks for existence, 2 for writing, 4 for
  /// reading.
  static int isAccessible(const NbString& path, int mode = 0);
  static bool isDirectory(const NbString& path);

  /// Backslashes become slashes.
  static NbString toUnixPath(const NbString& path);
  /// Replaces `$NAME` and `${NAME}` from the environment, and a leading `~` by the user's home folder. Unknown names
  /// stay as they are written.
  static NbString expandString(const NbString& text);

  /// The folder without its last slash, empty if the path has none; the root stays "/". Both slashes count.
  static NbString getDirName(const NbString& path);
  /// The last part of the path.
  static NbString getBaseName(const NbString& path);
  /// What is behind the last dot of the last part, without the dot; empty for "name", ".name" and "name.".
  static NbString getExtension(const NbString& path);
  static bool isAbsolutePath(const NbString& path);
  static NbString currentDirectory();

  /// As `fopen`: NULL on failure.
  static std::FILE* open(const NbString& path, const char* mode);
  /// False if the file can't be read whole; `*why` then tells the reason and `out` is empty.
  static bool readWholeFile(const NbString& path, std::string& out, std::string* why = nullptr);
};
