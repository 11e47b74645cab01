#pragma once

#include <deque>
#include <unordered_map>

#include "arbora/base/NbName.h"

class NkBase;

namespace arbora {

/// Who bears which name, in the order in which the names were given.
class NameTable {
public:
  static NameTable& get();
  void add(const NbName& name, NkBase* object);
  void remove(const NbName& name, NkBase* object);
  const std::deque<NkBase*>& find(const NbName& name) const;

private:
  std::unordered_map<NbName, std::deque<NkBase*>> m_objects;
};

} // namespace arbora
