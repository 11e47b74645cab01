#include "src/dialog/support/NumberFormat.h"

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace panelix {
namespace {

constexpr std::size_t kMaxDigits = 3; ///< Of a width or precision: no file makes a text of more than some kilobytes.

constexpr std::string_view kReal = "aAeEfFgG";
constexpr std::string_view kInteger = "diouxX";

/// Length of the conversion of one of these types that `text` begins with; 0 if it begins with something else.
std::size_t conversionLength(std::string_view text, std::string_view types) {
  std::size_t end = 1;
  const auto skip = [&](std::string_view set, std::size_t atMost) {
    const std::size_t begin = end;
    while (end < text.size() && end - begin < atMost && set.find(text[end]) != std::string_view::npos) ++end;
    return end != begin;
  };
  constexpr std::string_view kFlags = "-+ #0";
  constexpr std::string_view kDigits = "0123456789";
  skip(kFlags, kFlags.size());
  skip(kDigits, kMaxDigits);
  if (skip(".", 1)) skip(kDigits, kMaxDigits);
  // It changes nothing for a real number, but the type of an integer.
  if (types == kReal) skip("l", 1);
  return skip(types, 1) ? end : 0;
}

/// A format with the text around its conversion as it is printed.
struct Format {
  std::string before;
  std::string conversion;
  std::string after;
};

/// Nothing unless the format has exactly one conversion, of one of these types.
std::optional<Format> parseFormat(std::string_view text, std::string_view types) {
  Format format;
  while (!text.empty()) {
    std::string& literal = format.conversion.empty() ? format.before : format.after;
    std::size_t length = 1;
    if (text.starts_with("%%")) {
      literal += '%';
      length = 2;
    } else if (text.front() == '%') {
      length = conversionLength(text, types);
      if (length == 0 || !format.conversion.empty()) return std::nullopt;
      format.conversion = text.substr(0, length);
    } else {
      literal += text.front();
    }
    text.remove_prefix(length);
  }
  if (format.conversion.empty()) return std::nullopt;
  return format;
}

std::string print(const std::string& conversion, double value) {
  // The conversion has been looked at, its bounds are known.
  const int length = std::snprintf(nullptr, 0, conversion.c_str(), value);
  if (length < 0) return {};
  std::string text(static_cast<std::size_t>(length), '\0');
  std::snprintf(text.data(), text.size() + 1, conversion.c_str(), value);
  return text;
}

} // namespace

NbString formatReal(const NbString& format, float value) {
  const auto number = static_cast<double>(value);
  const std::optional<Format> parsed = parseFormat(format.toUtf8(), kReal);
  return NbString::fromUtf8(parsed ? parsed->before + print(parsed->conversion, number) + parsed->after
                                   : print("%f", number));
}

bool isRealFormat(const NbString& format) { return parseFormat(format.toUtf8(), kReal).has_value(); }

bool isIntegerFormat(const NbString& format) { return parseFormat(format.toUtf8(), kInteger).has_value(); }

} // namespace panelix
