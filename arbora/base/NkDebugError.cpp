#include "arbora/base/NkDebugError.h"

#include "arbora/base/NbThreadMutex.h"

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <string>

namespace {

NbThreadMutex s_handlerMutex;
NkDebugError::Handler* s_handler = nullptr;
void* s_handlerData = nullptr;

void printToStandardError(int severity, const char* location, const char* text) {
  std::string line;
  if (*location) {
    const char* const kinds[] = {"Info from ", "Warning in ", "Error in "};
    line.append(kinds[severity]).append(location).append("(): ");
  }
  line += text;
  if (line.empty() || line.back() != '\n') {
    line += '\n';
  }
  // One call, so that the lines of several threads don't mix.
  std::fwrite(line.data(), 1, line.size(), stderr);
}

// Takes the arguments twice, as the first pass, which only measures, uses them up.
std::string formatted(const char* format, std::va_list toMeasure, std::va_list toPrint) {
  const int length = std::vsnprintf(nullptr, 0, format, toMeasure);
  if (length < 0) {
    return format;
  }
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  std::vsnprintf(text.data(), text.size(), format, toPrint);
  text.pop_back();
  return text;
}

void deliver(int severity, const char* location, const std::string& text) {
  const char* where = location ? location : "";
  NkDebugError::Handler* handler = nullptr;
  void* data = nullptr;
  {
    const NbThreadAutoLock lock(&s_handlerMutex);
    handler = s_handler;
    data = s_handlerData;
  }
  // Called without the lock: a handler may post a message or put another in its place.
  if (handler) {
    handler(severity, where, text.c_str(), data);
  } else {
    printToStandardError(severity, where, text.c_str());
  }
}

} // namespace

void NkDebugError::post(const char* location, const char* format, ...) {
  std::va_list toMeasure;
  std::va_list toPrint;
  va_start(toMeasure, format);
  va_start(toPrint, format);
  deliver(ERROR_, location, formatted(format, toMeasure, toPrint));
  va_end(toPrint);
  va_end(toMeasure);
}

void NkDebugError::postWarning(const char* location, const char* format, ...) {
  std::va_list toMeasure;
  std::va_list toPrint;
  va_start(toMeasure, format);
  va_start(toPrint, format);
  deliver(WARNING, location, formatted(format, toMeasure, toPrint));
  va_end(toPrint);
  va_end(toMeasure);
}

void NkDebugError::postInfo(const char* location, const char* format, ...) {
  std::va_list toMeasure;
  std::va_list toPrint;
  va_start(toMeasure, format);
  va_start(toPrint, format);
  deliver(INFO, location, formatted(format, toMeasure, toPrint));
  va_end(toPrint);
  va_end(toMeasure);
}

NkDebugError::Handler* NkDebugError::setHandler(Handler* handler, void* data, void** previousData) {
  const NbThreadAutoLock lock(&s_handlerMutex);
  Handler* const previous = s_handler;
  if (previousData) {
    *previousData = s_handlerData;
  }
  s_handler = handler;
  s_handlerData = data;
  return previous;
}
