#pragma once

#include "arbora/base/NbString.h"
#include "arbora/base/export.h"

#include <vector>

/// A list of pointers to strings. The strings belong to the caller: neither removal nor the destructor deletes them.
class ARBORABASE_API NbStringList {
public:
  void append(NbString* text) { m_strings.push_back(text); }
  int getLength() const { return static_cast<int>(m_strings.size()); }
  /// An index out of range posts an error and gives NULL.
  NbString* operator[](int index) const;
  /// The index of this very string, or of the first equal text; -1 if absent.
  int find(const NbString* text) const;
  int find(const NbString& text) const;
  /// Keeps the first `length` entries.
  void truncate(int length);

  /// Deletes the strings and empties the list.
  void deleteStrings();

  /// Appends a new string for each piece of `text` between separators, empty pieces too. Gives the number of pieces; an
  /// empty separator gives the whole text as one.
  static int split(NbStringList& list, const NbString& text, const NbString& separator);

private:
  std::vector<NbString*> m_strings;
};
