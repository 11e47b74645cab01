#include "tools/panelix/Json.h"

#include <cstdio>

#include "arbora/base/NbString.h"

std::string panelix::toJson(std::string_view text) {
  std::string result = "\"";
  for (const char c : NbString::fromUtf8(text).toUtf8()) {
    if (c == '"' || c == '\\') {
      result += {'\\', c};
    } else if (static_cast<unsigned char>(c) < 0x20) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
      result += escape;
    } else {
      result += c;
    }
  }
  return result + "\"";
}
