#include "arbora/base/Utf8.h"

#include <cstddef>

namespace arbora {

bool takeUtf8(std::string_view& bytes, char32_t& character) {
  if (bytes.empty()) {
    return false;
  }
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned char first = byteAt(0);
  std::size_t length = 1;
  char32_t smallest = 0;
  char32_t value = first;
  if (first >= 0xF0 && first <= 0xF4) {
    length = 4;
    smallest = 0x10000;
    value = first & 0x07U;
  } else if (first >= 0xE0 && first < 0xF0) {
    length = 3;
    smallest = 0x800;
    value = first & 0x0FU;
  } else if (first >= 0xC2 && first < 0xE0) {
    length = 2;
    smallest = 0x80;
    value = first & 0x1FU;
  } else if (first >= 0x80) {
    return false;
  }
  if (bytes.size() < length) {
    return false;
  }
  for (std::size_t i = 1; i < length; ++i) {
    if ((byteAt(i) & 0xC0U) != 0x80U) {
      return false;
    }
    value = (value << 6U) | (byteAt(i) & 0x3FU);
  }
  const bool isSurrogate = value >= 0xD800 && value <= 0xDFFF;
  if (value < smallest || value > 0x10FFFF || isSurrogate) {
    return false;
  }
  character = value;
  bytes.remove_prefix(length);
  return true;
}

bool isValidUtf8(std::string_view bytes) {
  char32_t character = 0;
  while (!bytes.empty()) {
    if (!takeUtf8(bytes, character)) {
      return false;
    }
  }
  return true;
}

} // namespace arbora
