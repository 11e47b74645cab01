#pragma once

#include "arbora/scene/NkKeyboardEvent.h"

namespace arbora {

/// A key of the window system and what the scene calls it.
struct KeyRow {
  int systemKey;
  NkKeyboardEvent::Key key;
};

template <class Rows>
NkKeyboardEvent::Key findKey(const Rows& rows, int systemKey) {
  for (const KeyRow& row : rows) {
    if (row.systemKey == systemKey) return row.key;
  }
  return NkKeyboardEvent::ANY;
}

/// The key that prints a character: its Latin-1 code, letters the small one. `ANY` for what isn't Latin-1.
inline NkKeyboardEvent::Key printingKey(unsigned character) {
  if (character < 0x20 || character > 0xFF || (character >= 0x7F && character < 0xA0)) return NkKeyboardEvent::ANY;
  const bool isCapital =
      (character >= 'A' && character <= 'Z') || (character >= 0xC0 && character <= 0xDE && character != 0xD7);
  return static_cast<NkKeyboardEvent::Key>(isCapital ? character + 0x20 : character);
}

/// A character as the scene takes it: 0 for control characters and for what isn't Latin-1.
inline char printableCharacter(unsigned character) {
  return printingKey(character) != NkKeyboardEvent::ANY ? static_cast<char>(character) : '\0';
}

} // namespace arbora
