#include "arbora/scene/NameTable.h"

#include <algorithm>

namespace arbora {

NameTable& NameTable::get() {
  // Lives to the end of the process: objects of static duration may lose their names after everything else.
  static NameTable& s_table = *new NameTable;
  return s_table;
}

void NameTable::add(const NbName& name, NkBase* object) { m_objects[name].push_back(object); }

void NameTable::remove(const NbName& name, NkBase* object) {
  const auto entry = m_objects.find(name);
  if (entry == m_objects.end()) return;
  std::deque<NkBase*>& objects = entry->second;
  // Objects mostly go in the order in which they came or against it, and many may bear one name.
  if (objects.front() == object)
    objects.pop_front();
  else if (objects.back() == object)
    objects.pop_back();
  else
    objects.erase(std::find(objects.begin(), objects.end(), object));
  if (objects.empty()) m_objects.erase(entry);
}

const std::deque<NkBase*>& NameTable::find(const NbName& name) const {
  static const std::deque<NkBase*> s_none;
  const auto it = m_objects.find(name);
  return it == m_objects.end() ? s_none : it->second;
}

} // namespace arbora
