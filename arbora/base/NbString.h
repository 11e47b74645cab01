#pragma once

#include "arbora/base/NbLocale.h"
#include "arbora/base/export.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <variant>

/// A text, either narrow (Latin-1, one byte a character) or wide. The two compare and join by characters: the narrow
/// byte b is the wide character U+00b. A wide character is what `wchar_t` holds on the system.
class ARBORABASE_API NbString {
public:
  static const int npos = -1;

  NbString() = default;
  /// A null pointer gives the empty text.
  NbString(const char* text);
  NbString(const std::string& text);
  NbString(std::string&& text);
  NbString(std::string_view text);
  NbString(const wchar_t* text);
  NbString(const std::wstring& text);

  NbString& operator+=(const NbString& text);
  NbString& operator+=(const char* text);
  friend ARBORABASE_API NbString operator+(NbString a, const NbString& b);
  friend ARBORABASE_API NbString operator+(NbString a, const char* b);
  friend ARBORABASE_API NbString operator+(const char* a, const NbString& b);

  friend ARBORABASE_API bool operator==(const NbString& a, const NbString& b);
  friend ARBORABASE_API bool operator==(const NbString& a, const char* b);
  friend bool operator!=(const NbString& a, const NbString& b) { return !(a == b); }
  friend bool operator!=(const NbString& a, const char* b) { return !(a == b); }
  /// By character values, so that narrow and wide texts sort together.
  friend ARBORABASE_API bool operator<(const NbString& a, const NbString& b);

  /// The number of characters.
  int getLength() const;
  bool isEmpty() const { return getLength() == 0; }
  /// Makes it the empty narrow text.
  void makeEmpty();
  /// True if the text is stored wide, whatever its characters.
  bool isUnicode() const { return std::holds_alternative<std::wstring>(m_text); }

  /// The position of the first occurrence at or behind `start`, or `npos`. The empty text is found at `start`.
  int find(const NbString& text, int start = 0) const;
  /// The characters from `start` to `end`, both included; `end` -1 means to the end. Positions outside are clamped, and
  /// a `start` behind `end` gives the empty text.
  NbString getSubString(int start, int end = -1) const;

  /// One byte per character; a character above 255 becomes '?'.
  std::string toLatin1() const;
  /// The bytes of a narrow text without a copy; empty for a wide text.
  std::string_view latin1View() const;
  std::wstring toWideChar() const;
  /// Takes the text over as a wide one, whatever its characters. A null pointer gives the empty wide text.
  NbString& fromWideChar(const wchar_t* text);
  NbString& fromWideChar(const std::wstring& text);

  /// Narrow if the text is plain ASCII, else wide. Bytes that are not UTF-8 are taken as Latin-1.
  static NbString fromUtf8(std::string_view text);
  std::string toUtf8() const;

  /// The text of a number with a decimal point, the shortest one that reads back as the same value.
  NbString& setNum(int value);
  NbString& setNum(float value);
  NbString& setNum(double value);

  /// The number at the start of the text, behind blanks; what follows it is ignored. 0 without one, and `*ok` is false.
  /// A number out of range gives the nearest finite value; "inf" and "nan" are no numbers.
  int toInt(bool* ok = nullptr) const;
  float toFloat(bool* ok = nullptr) const;
  double toDouble(bool* ok = nullptr) const;

  /// The shortest text of a number that reads back as the same value, with the decimal point of `locale`.
  static NbString toString_l(int value, NbLocale locale);
  static NbString toString_l(float value, NbLocale locale);
  static NbString toString_l(double value, NbLocale locale);
  /// The locale of all number conversions: plain "C", whatever the program's own locale is.
  static NbLocale getLocaleObject();

  /// Equal texts give equal values, narrow or wide.
  std::size_t hash() const;

private:
  std::variant<std::string, std::wstring> m_text;
};

template <>
struct std::hash<NbString> {
  std::size_t operator()(const NbString& text) const { return text.hash(); }
};
