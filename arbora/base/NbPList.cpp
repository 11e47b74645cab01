#include "arbora/base/NbPList.h"

#include "arbora/base/NkDebugError.h"

#include <algorithm>
#include <cstddef>

namespace {

// No list of pointers is longer than this; a greater index is a mistake and must not eat the memory.
constexpr int kMaxLength = 1 << 26;

} // namespace

NbPList::NbPList(int capacity) {
  if (capacity > 0) {
    m_items.reserve(static_cast<std::size_t>(std::min(capacity, kMaxLength)));
  }
}

void NbPList::insert(void* item, int index) {
  if (index < 0 || index > getLength()) {
    NkDebugError::post("NbPList::insert", "Index %d is out of range %d - %d", index, 0, getLength());
    return;
  }
  m_items.insert(m_items.begin() + index, item);
}

int NbPList::find(const void* item) const {
  const auto at = std::find(m_items.begin(), m_items.end(), item);
  return at == m_items.end() ? -1 : static_cast<int>(at - m_items.begin());
}

void NbPList::remove(int index) {
  if (index < 0 || index >= getLength()) {
    NkDebugError::post("NbPList::remove", "Index %d is out of range %d - %d", index, 0, getLength() - 1);
    return;
  }
  m_items.erase(m_items.begin() + index);
}

void NbPList::removeItem(const void* item) {
  const int index = find(item);
  if (index >= 0) {
    remove(index);
  }
}

void* NbPList::get(int index) const {
  if (index < 0 || index >= getLength()) {
    NkDebugError::post("NbPList::get", "Index %d is out of range %d - %d", index, 0, getLength() - 1);
    return nullptr;
  }
  return m_items[static_cast<std::size_t>(index)];
}

void*& NbPList::operator[](int index) const {
  if (index < 0 || index >= kMaxLength) {
    NkDebugError::post("NbPList::operator[]", "Index %d is out of range %d - %d", index, 0, kMaxLength - 1);
    m_noItem = nullptr;
    return m_noItem;
  }
  if (index >= getLength()) {
    m_items.resize(static_cast<std::size_t>(index) + 1, nullptr);
  }
  return m_items[static_cast<std::size_t>(index)];
}

void NbPList::truncate(int length) {
  if (length >= 0 && length < getLength()) {
    m_items.resize(static_cast<std::size_t>(length));
  }
}
