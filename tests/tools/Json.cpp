#include "tests/tools/Json.h"

#include <charconv>

#include "arbora/base/NbString.h"

namespace {

const Json kInvalid;

class Parser {
public:
  explicit Parser(std::string_view text) : m_rest(text) {}

  Json parseAll() {
    Json value;
    if (!parseValue(value)) return kInvalid;
    skipBlanks();
    return m_rest.empty() ? value : kInvalid;
  }

private:
  void skipBlanks() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(" \t\r\n"), m_rest.size())); }

  bool take(std::string_view token) {
    skipBlanks();
    if (!m_rest.starts_with(token)) return false;
    m_rest.remove_prefix(token.size());
    return true;
  }

  bool parseValue(Json& value) {
    if (take("null"))
      value.kind = Json::NONE;
    else if (take("true") || take("false"))
      value.kind = Json::BOOLEAN; // No test asks for which.
    else if (take("["))
      return parseArray(value);
    else if (take("{"))
      return parseObject(value);
    else if (take("\""))
      return parseString(value);
    else
      return parseNumber(value);
    return true;
  }

  bool parseArray(Json& value) {
    value.kind = Json::ARRAY;
    if (take("]")) return true;
    do {
      if (!parseValue(value.items.emplace_back())) return false;
    } while (take(","));
    return take("]");
  }

  bool parseObject(Json& value) {
    value.kind = Json::OBJECT;
    if (take("}")) return true;
    do {
      Json name;
      if (!take("\"") || !parseString(name) || !take(":")) return false;
      value.names.push_back(name.string);
      if (!parseValue(value.items.emplace_back())) return false;
    } while (take(","));
    return take("}");
  }

  /// Behind the opening quote.
  bool parseString(Json& value) {
    value.kind = Json::STRING;
    while (!m_rest.empty()) {
      const char c = m_rest.front();
      m_rest.remove_prefix(1);
      if (c == '"') return NbString::fromUtf8(value.string).toUtf8() == value.string;
      if (static_cast<unsigned char>(c) < 0x20) return false;
      if (c != '\\')
        value.string += c;
      else if (!parseEscape(value.string))
        return false;
    }
    return false;
  }

  bool parseEscape(std::string& text) {
    if (m_rest.empty()) return false;
    const char c = m_rest.front();
    m_rest.remove_prefix(1);
    constexpr std::string_view kNames = "\"\\/bfnrt";
    constexpr std::string_view kCharacters = "\"\\/\b\f\n\r\t";
    if (const std::size_t index = kNames.find(c); index != std::string_view::npos) {
      text += kCharacters[index];
      return true;
    }
    unsigned code = 0;
    if (c != 'u' || m_rest.size() < 4) return false;
    const auto [end, error] = std::from_chars(m_rest.data(), m_rest.data() + 4, code, 16);
    if (error != std::errc() || end != m_rest.data() + 4) return false;
    m_rest.remove_prefix(4);
    text += NbString(std::wstring(1, static_cast<wchar_t>(code))).toUtf8();
    return true;
  }

  bool parseNumber(Json& value) {
    value.kind = Json::NUMBER;
    const auto [end, error] = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), value.number);
    if (error != std::errc()) return false;
    m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
    return true;
  }

  std::string_view m_rest;
};

} // namespace

Json Json::parse(std::string_view text) { return Parser(text).parseAll(); }

const Json& Json::operator[](std::string_view name) const {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (names[i] == name) return items[i];
  }
  return kInvalid;
}
