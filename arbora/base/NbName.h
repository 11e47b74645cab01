#pragma once

#include "arbora/base/NbString.h"
#include "arbora/base/export.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

/// A text that is stored once per process: copies and comparisons cost a pointer. Its text lives for the process.
/// Thread-safe.
class ARBORABASE_API NbName {
public:
  /// The empty name.
  constexpr NbName() = default;
  NbName(const char* text);
  NbName(const NbString& text);
  NbName(std::string_view text);
  NbName(const std::string& text);

  static const NbName& empty();

  const char* getString() const { return m_text ? m_text->c_str() : ""; }
  std::string_view getView() const { return m_text ? std::string_view(*m_text) : std::string_view(); }
  int getLength() const { return m_text ? static_cast<int>(m_text->size()) : 0; }

  /// True for the empty name.
  bool operator!() const { return !m_text; }

  friend bool operator==(const NbName& a, const NbName& b) { return a.m_text == b.m_text; }
  friend bool operator!=(const NbName& a, const NbName& b) { return a.m_text != b.m_text; }
  friend bool operator==(const NbName& a, const char* b) { return a.getView() == (b ? b : ""); }
  friend bool operator!=(const NbName& a, const char* b) { return !(a == b); }
  /// An order for containers: it's stable within a process and not alphabetical.
  friend bool operator<(const NbName& a, const NbName& b) { return std::less<>()(a.m_text, b.m_text); }

  std::size_t hash() const { return std::hash<const void*>()(m_text); }

  /// Which characters a name may have in a file: letters, '_', digits behind the first place, and all else above the
  /// blank except " ' + . \ { } # , [ ] and DEL.
  static bool isIdentStartChar(char c);
  static bool isIdentChar(char c);

private:
  const std::string* m_text = nullptr; // NULL for the empty name; owned by the table of names
};

template <>
struct std::hash<NbName> {
  std::size_t operator()(const NbName& name) const { return name.hash(); }
};
