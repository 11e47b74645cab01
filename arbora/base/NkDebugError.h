#pragma once

#include "arbora/base/export.h"

#ifdef __MINGW32__
#define ARBORA_PRINTF_FORMAT(formatIndex, firstIndex) __attribute__((format(gnu_printf, formatIndex, firstIndex)))
#else
#define ARBORA_PRINTF_FORMAT(formatIndex, firstIndex) __attribute__((format(printf, formatIndex, firstIndex)))
#endif

/// All messages of the libraries go out here. None stops the program. Thread-safe.
class ARBORABASE_API NkDebugError {
public:
  enum Severity { INFO = 0, WARNING = 1, ERROR_ = 2 };

  /// `location` is the qualified operation, as it was given; empty for messages about a file. The texts hold during the
  /// call only.
  using Handler = void(int severity, const char* location, const char* text, void* data);

  static void post(const char* location, const char* format, ...) ARBORA_PRINTF_FORMAT(2, 3);
  static void postWarning(const char* location, const char* format, ...) ARBORA_PRINTF_FORMAT(2, 3);
  static void postInfo(const char* location, const char* format, ...) ARBORA_PRINTF_FORMAT(2, 3);

  /// Sends all messages to `handler`, or again to the default with NULL. Gives the handler before, NULL for the
  /// default, and its data. The default prints one line to standard error: "Error in LOCATION(): TEXT", or only the
  /// text of a message without location.
  static Handler* setHandler(Handler* handler, void* data, void** previousData = nullptr);
};
