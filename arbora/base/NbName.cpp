#include "arbora/base/NbName.h"

#include "arbora/base/NbThreadMutex.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <unordered_set>

namespace {

struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

NbThreadMutex s_tableMutex;

const std::string* intern(std::string_view text) {
  if (text.empty()) {
    return nullptr;
  }
  const NbThreadAutoLock lock(&s_tableMutex);
  // Made at the first name and never deleted: static objects of any library hold names until the very end.
  static auto* const s_table = new std::unordered_set<std::string, TextHash, std::equal_to<>>;
  auto entry = s_table->find(text);
  if (entry == s_table->end()) {
    entry = s_table->emplace(text).first;
  }
  return &*entry;
}

/// Most names are literals, which come again and again from the same place: a look there first takes no lock.
const std::string* internLiteral(const char* text) {
  static std::array<std::atomic<const std::string*>, 512> s_recent{};
  const auto place = reinterpret_cast<std::uintptr_t>(text);
  std::atomic<const std::string*>& recent = s_recent[(place ^ (place >> 9)) % s_recent.size()];
  const std::string* name = recent.load(std::memory_order_acquire);
  if (!name || *name != text) recent.store(name = intern(text), std::memory_order_release);
  return name;
}

} // namespace

NbName::NbName(const char* text) : m_text(text ? internLiteral(text) : nullptr) {}

NbName::NbName(const NbString& text) : m_text(text.isUnicode() ? intern(text.toUtf8()) : intern(text.latin1View())) {}

NbName::NbName(std::string_view text) : m_text(intern(text)) {}

NbName::NbName(const std::string& text) : m_text(intern(text)) {}

const NbName& NbName::empty() {
  static constexpr NbName s_empty;
  return s_empty;
}

bool NbName::isIdentStartChar(char c) { return isIdentChar(c) && !(c >= '0' && c <= '9'); }

bool NbName::isIdentChar(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code > 0x20 && code != 0x7F && std::string_view("\"'+.\\{}#,[]").find(c) == std::string_view::npos;
}
