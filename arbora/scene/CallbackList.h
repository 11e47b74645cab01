#pragma once

#include <cstddef>
#include <vector>

namespace arbora {

/// Functions of the application that are called one after the other. They may add and remove functions while they run:
/// what is removed isn't called any more, what is added is called the next time.
template <class Entry>
class CallbackList {
public:
  bool isEmpty() const { return m_entries.empty(); }
  void add(const Entry& entry) { m_entries.push_back({entry, true}); }
  /// Removes the last equal entry; false if there is none.
  bool remove(const Entry& entry) {
    for (std::size_t i = m_entries.size(); i-- > 0;) {
      if (!m_entries[i].wanted || !(m_entries[i].entry == entry)) continue;
      if (m_depth > 0)
        m_entries[i].wanted = false;
      else
        m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(i));
      return true;
    }
    return false;
  }
  /// The list has to outlive the call.
  template <class F>
  void forEach(F&& f) {
    ++m_depth;
    const std::size_t count = m_entries.size();
    for (std::size_t i = 0; i < count; ++i) {
      if (m_entries[i].wanted) f(Entry(m_entries[i].entry));
    }
    if (--m_depth == 0) std::erase_if(m_entries, [](const Slot& slot) { return !slot.wanted; });
  }

private:
  struct Slot {
    Entry entry;
    bool wanted;
  };
  std::vector<Slot> m_entries;
  int m_depth = 0;
};

} // namespace arbora
