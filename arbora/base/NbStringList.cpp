#include "arbora/base/NbStringList.h"

#include "arbora/base/NkDebugError.h"

#include <cstddef>

NbString* NbStringList::operator[](int index) const {
  if (index < 0 || index >= getLength()) {
    NkDebugError::post("NbStringList::operator[]", "Index %d is out of range %d - %d", index, 0, getLength() - 1);
    return nullptr;
  }
  return m_strings[static_cast<std::size_t>(index)];
}

int NbStringList::find(const NbString* text) const {
  for (int i = 0; i < getLength(); ++i) {
    if (m_strings[static_cast<std::size_t>(i)] == text) {
      return i;
    }
  }
  return -1;
}

int NbStringList::find(const NbString& text) const {
  for (int i = 0; i < getLength(); ++i) {
    const NbString* entry = m_strings[static_cast<std::size_t>(i)];
    if (entry && *entry == text) {
      return i;
    }
  }
  return -1;
}

void NbStringList::truncate(int length) {
  if (length >= 0 && length < getLength()) {
    m_strings.resize(static_cast<std::size_t>(length));
  }
}

void NbStringList::deleteStrings() {
  for (NbString* text : m_strings) {
    delete text;
  }
  m_strings.clear();
}

int NbStringList::split(NbStringList& list, const NbString& text, const NbString& separator) {
  int pieces = 0;
  int start = 0;
  if (!separator.isEmpty()) {
    for (int at = text.find(separator); at != NbString::npos; at = text.find(separator, start)) {
      // An end of -1 would mean the rest of the text.
      list.append(at > start ? new NbString(text.getSubString(start, at - 1)) : new NbString);
      start = at + separator.getLength();
      ++pieces;
    }
  }
  list.append(new NbString(text.getSubString(start)));
  return pieces + 1;
}
