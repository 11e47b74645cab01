#include "arbora/base/NbString.h"

#include "arbora/base/Platform.h"
#include "arbora/base/Utf8.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

namespace {

char32_t codeOf(char c) { return static_cast<unsigned char>(c); }
char32_t codeOf(wchar_t c) { return static_cast<char32_t>(c); }

const auto s_sameCode = [](auto a, auto b) { return codeOf(a) == codeOf(b); };

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::wstring widened(std::string_view text) {
  std::wstring wide(text.size(), L'\0');
  std::transform(text.begin(), text.end(), wide.begin(), [](char c) { return static_cast<wchar_t>(codeOf(c)); });
  return wide;
}

void appendWide(std::wstring& text, char32_t character) {
  if constexpr (sizeof(wchar_t) == 2) {
    if (character > 0xFFFF) {
      text += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10U));
      text += static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FFU));
      return;
    }
  }
  text += static_cast<wchar_t>(character);
}

void appendUtf8(std::string& text, char32_t character) {
  const auto put = [&](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xC0U | (character >> 6U));
    put(0x80U | (character & 0x3FU));
  } else if (character < 0x10000) {
    put(0xE0U | (character >> 12U));
    put(0x80U | ((character >> 6U) & 0x3FU));
    put(0x80U | (character & 0x3FU));
  } else {
    put(0xF0U | (character >> 18U));
    put(0x80U | ((character >> 12U) & 0x3FU));
    put(0x80U | ((character >> 6U) & 0x3FU));
    put(0x80U | (character & 0x3FU));
  }
}

// A text that begins with a number, from its sign on; empty if there is none at the start.
std::string_view numberPart(std::string_view text, bool fractionMayLead) {
  const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
  if (start == std::string_view::npos) {
    return {};
  }
  text.remove_prefix(start);
  const std::size_t digits = text[0] == '-' || text[0] == '+' ? 1 : 0;
  const auto digitAt = [&](std::size_t i) { return i < text.size() && isDigit(text[i]); };
  const bool isFraction = fractionMayLead && digits < text.size() && text[digits] == '.' && digitAt(digits + 1);
  if (!digitAt(digits) && !isFraction) {
    return {};
  }
  if (text[0] == '+') {
    text.remove_prefix(1);
  }
  return text;
}

// Whether a number that is out of range is so because it's too great, not too small.
bool isHuge(std::string_view number) {
  long exponent = 0;
  bool behindPoint = false;
  bool significant = false;
  std::size_t i = 0;
  for (; i < number.size() && (isDigit(number[i]) || number[i] == '.' || number[i] == '-'); ++i) {
    if (number[i] == '.') {
      if (behindPoint) {
        break;
      }
      behindPoint = true;
    } else if (number[i] != '-') {
      significant = significant || number[i] != '0';
      if (significant && !behindPoint) {
        ++exponent;
      } else if (!significant && behindPoint) {
        --exponent;
      }
    }
  }
  if (i < number.size() && (number[i] == 'e' || number[i] == 'E')) {
    number.remove_prefix(i + 1);
    const bool negative = !number.empty() && number[0] == '-';
    if (negative || (!number.empty() && number[0] == '+')) {
      number.remove_prefix(1);
    }
    long power = 0;
    for (std::size_t k = 0; k < number.size() && isDigit(number[k]); ++k) {
      power = std::min(power * 10 + (number[k] - '0'), 100000000L);
    }
    exponent += negative ? -power : power;
  }
  return exponent > 0;
}

template <class T>
T parse(std::string_view text, bool* ok) {
  const std::string_view number = numberPart(text, std::is_floating_point_v<T>);
  if (ok) {
    *ok = !number.empty();
  }
  T value = 0;
  if (number.empty()) {
    return value;
  }
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    bool tooGreat = true;
    if constexpr (std::is_floating_point_v<T>) {
      tooGreat = isHuge(number);
    }
    const T greatest = number[0] == '-' ? std::numeric_limits<T>::lowest() : std::numeric_limits<T>::max();
    return tooGreat ? greatest : T(0);
  }
  return value;
}

template <class T>
std::string textOf(T value) {
  char buffer[64];
  std::to_chars_result result{};
  if constexpr (std::is_floating_point_v<T>) {
    // Plain digits wherever a person would write them: 100000, not 1e+05.
    constexpr T kGreatest = sizeof(T) == sizeof(float) ? T(1e7) : T(1e15);
    const T size = std::fabs(value);
    const bool plain = size == 0 || (size >= T(1e-4) && size < kGreatest);
    const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
    result = std::to_chars(buffer, buffer + sizeof buffer, value, format);
  } else {
    result = std::to_chars(buffer, buffer + sizeof buffer, value);
  }
  return std::string(buffer, result.ptr);
}

template <class T>
NbString textIn(T value, NbLocale locale) {
  std::string text = textOf(value);
  std::replace(text.begin(), text.end(), '.', arbora::decimalPoint(locale));
  return text;
}

} // namespace

const int NbString::npos;

NbString::NbString(const char* text) : m_text(std::string(text ? text : "")) {}

NbString::NbString(const std::string& text) : m_text(text) {}

NbString::NbString(std::string&& text) : m_text(std::move(text)) {}

NbString::NbString(std::string_view text) : m_text(std::string(text)) {}

NbString::NbString(const wchar_t* text) { fromWideChar(text); }

NbString::NbString(const std::wstring& text) : m_text(text) {}

NbString& NbString::operator+=(const NbString& text) {
  if (text.isUnicode() && !isUnicode()) {
    m_text = toWideChar();
  }
  if (auto* narrow = std::get_if<std::string>(&m_text)) {
    *narrow += text.latin1View();
  } else if (const auto* wide = std::get_if<std::wstring>(&text.m_text)) {
    std::get<std::wstring>(m_text) += *wide;
  } else {
    std::get<std::wstring>(m_text) += widened(text.latin1View());
  }
  return *this;
}

NbString& NbString::operator+=(const char* text) {
  if (!text) {
    return *this;
  }
  if (auto* narrow = std::get_if<std::string>(&m_text)) {
    *narrow += text;
  } else {
    std::get<std::wstring>(m_text) += widened(text);
  }
  return *this;
}

NbString operator+(NbString a, const NbString& b) {
  a += b;
  return a;
}

NbString operator+(NbString a, const char* b) {
  a += b;
  return a;
}

NbString operator+(const char* a, const NbString& b) { return NbString(a) + b; }

bool operator==(const NbString& a, const NbString& b) {
  return std::visit(
      [](const auto& x, const auto& y) { return std::equal(x.begin(), x.end(), y.begin(), y.end(), s_sameCode); },
      a.m_text, b.m_text);
}

bool operator==(const NbString& a, const char* b) {
  const std::string_view text = b ? b : "";
  return std::visit(
      [text](const auto& x) { return std::equal(x.begin(), x.end(), text.begin(), text.end(), s_sameCode); }, a.m_text);
}

bool operator<(const NbString& a, const NbString& b) {
  return std::visit(
      [](const auto& x, const auto& y) {
        return std::lexicographical_compare(x.begin(), x.end(), y.begin(), y.end(),
                                            [](auto c, auto d) { return codeOf(c) < codeOf(d); });
      },
      a.m_text, b.m_text);
}

int NbString::getLength() const {
  return std::visit([](const auto& text) { return static_cast<int>(text.size()); }, m_text);
}

void NbString::makeEmpty() { m_text = std::string(); }

int NbString::find(const NbString& text, int start) const {
  if (start > getLength()) {
    return npos;
  }
  const int from = std::max(start, 0);
  return std::visit(
      [from](const auto& x, const auto& y) {
        const auto at = std::search(x.begin() + from, x.end(), y.begin(), y.end(), s_sameCode);
        const bool found = at != x.end() || y.empty();
        return found ? static_cast<int>(at - x.begin()) : npos;
      },
      m_text, text.m_text);
}

NbString NbString::getSubString(int start, int end) const {
  const int last = getLength() - 1;
  const int from = std::max(start, 0);
  const int to = end == -1 ? last : std::min(end, last);
  return std::visit(
      [from, to](const auto& text) {
        using Text = std::decay_t<decltype(text)>;
        if (from > to) {
          return NbString(Text());
        }
        return NbString(text.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from) + 1));
      },
      m_text);
}

std::string NbString::toLatin1() const {
  if (const auto* narrow = std::get_if<std::string>(&m_text)) {
    return *narrow;
  }
  const auto& wide = std::get<std::wstring>(m_text);
  std::string text(wide.size(), '\0');
  std::transform(wide.begin(), wide.end(), text.begin(), [](wchar_t c) {
    const char32_t code = codeOf(c);
    return code > 0xFF ? '?' : static_cast<char>(static_cast<unsigned char>(code));
  });
  return text;
}

std::string_view NbString::latin1View() const {
  const auto* narrow = std::get_if<std::string>(&m_text);
  return narrow ? std::string_view(*narrow) : std::string_view();
}

std::wstring NbString::toWideChar() const {
  const auto* wide = std::get_if<std::wstring>(&m_text);
  return wide ? *wide : widened(latin1View());
}

NbString& NbString::fromWideChar(const wchar_t* text) {
  m_text = std::wstring(text ? text : L"");
  return *this;
}

NbString& NbString::fromWideChar(const std::wstring& text) {
  m_text = text;
  return *this;
}

NbString NbString::fromUtf8(std::string_view text) {
  if (std::all_of(text.begin(), text.end(), [](char c) { return codeOf(c) < 0x80; })) {
    return text;
  }
  std::wstring wide;
  while (!text.empty()) {
    char32_t character = codeOf(text.front());
    if (!arbora::takeUtf8(text, character)) {
      text.remove_prefix(1);
    }
    appendWide(wide, character);
  }
  return wide;
}

std::string NbString::toUtf8() const {
  const std::wstring wide = toWideChar();
  std::string text;
  text.reserve(wide.size());
  for (std::size_t i = 0; i < wide.size(); ++i) {
    char32_t character = codeOf(wide[i]);
    if constexpr (sizeof(wchar_t) == 2) {
      const char32_t next = i + 1 < wide.size() ? codeOf(wide[i + 1]) : 0;
      if (character >= 0xD800 && character < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
        character = 0x10000 + ((character - 0xD800) << 10U) + (next - 0xDC00);
        ++i;
      }
    }
    const bool isLoneSurrogate = character >= 0xD800 && character < 0xE000;
    appendUtf8(text, isLoneSurrogate || character > 0x10FFFF ? U'\uFFFD' : character);
  }
  return text;
}

NbString& NbString::setNum(int value) {
  m_text = textOf(value);
  return *this;
}

NbString& NbString::setNum(float value) {
  m_text = textOf(value);
  return *this;
}

NbString& NbString::setNum(double value) {
  m_text = textOf(value);
  return *this;
}

int NbString::toInt(bool* ok) const { return parse<int>(toLatin1(), ok); }

float NbString::toFloat(bool* ok) const { return parse<float>(toLatin1(), ok); }

double NbString::toDouble(bool* ok) const { return parse<double>(toLatin1(), ok); }

NbString NbString::toString_l(int value, NbLocale) { return textOf(value); }

NbString NbString::toString_l(float value, NbLocale locale) { return textIn(value, locale); }

NbString NbString::toString_l(double value, NbLocale locale) { return textIn(value, locale); }

NbLocale NbString::getLocaleObject() { return arbora::cNumericLocale(); }

std::size_t NbString::hash() const {
  return std::visit(
      [](const auto& text) {
        // FNV-1a over the character codes.
        std::uint64_t value = 14695981039346656037U;
        for (const auto c : text) {
          value = (value ^ codeOf(c)) * 1099511628211U;
        }
        return static_cast<std::size_t>(value);
      },
      m_text);
}
