#pragma once

#include "arbora/base/export.h"

#include <vector>

/// A growable array of pointers. What they point to is not owned.
class ARBORABASE_API NbPList {
public:
  NbPList() = default;
  /// Room for `capacity` entries; the list is empty all the same.
  explicit NbPList(int capacity);

  void append(void* item) { m_items.push_back(item); }
  /// Inserts in front of entry `index`, from 0 to the length. Otherwise it posts an error and does nothing.
  void insert(void* item, int index);
  /// The index of the first such entry, or -1.
  int find(const void* item) const;
  /// An index out of range posts an error and does nothing.
  void remove(int index);
  /// Removes the first such entry, if there is one.
  void removeItem(const void* item);

  int getLength() const { return static_cast<int>(m_items.size()); }
  /// An index out of range posts an error and gives NULL.
  void* get(int index) const;
  void set(int index, void* item) { (*this)[index] = item; }
  /// Past the end the list grows, filled with NULL. A negative index, or one beyond any sensible size, posts an error
  /// and gives a slot that is not in the list. The reference holds until the list changes its length.
  void*& operator[](int index) const;

  /// Keeps the first `length` entries.
  void truncate(int length);
  void copy(const NbPList& list) { *this = list; }

private:
  mutable std::vector<void*> m_items;
  mutable void* m_noItem = nullptr;
};
