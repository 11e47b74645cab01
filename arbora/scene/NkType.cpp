#include "arbora/scene/NkType.h"

#include <string>
#include <unordered_map>

#include "arbora/base/NkDebugError.h"

namespace {

struct TypeEntry {
  NbName name;
  NkType parent;
  NkType::CreateInstance createInstance = nullptr;
  int methodIndex = 0;
  bool registered = false;
};

struct TypeRegistry {
  // Entry 0 is the bad type. An entry keeps its place for the process, so that a class that is registered again after
  // it was removed gets its old index.
  std::vector<TypeEntry> entries{TypeEntry{}};
  std::unordered_map<NbName, std::uint16_t> byName;
};

TypeRegistry& registry() {
  static TypeRegistry s_registry;
  return s_registry;
}

constexpr std::string_view kPrefix = "Nk";

} // namespace

NkType NkType::createType(NkType parent, const NbName& name, CreateInstance createInstance, int methodIndex) {
  TypeRegistry& types = registry();
  const auto it = types.byName.find(name);
  std::uint16_t index = 0;
  if (it != types.byName.end()) {
    index = it->second;
    if (types.entries[index].registered) {
      NkDebugError::post("NkType::createType", "The type \"%s\" is registered already", name.getString());
      return NkType(index);
    }
  } else {
    if (types.entries.size() > UINT16_MAX) {
      NkDebugError::post("NkType::createType", "Too many types: \"%s\" can't be registered", name.getString());
      return badType();
    }
    index = static_cast<std::uint16_t>(types.entries.size());
    types.entries.emplace_back();
    types.byName.emplace(name, index);
  }
  types.entries[index] = TypeEntry{name, parent, createInstance, methodIndex, true};
  return NkType(index);
}

bool NkType::removeType(const NbName& name) {
  TypeRegistry& types = registry();
  const auto it = types.byName.find(name);
  if (it == types.byName.end() || !types.entries[it->second].registered) return false;
  types.entries[it->second].registered = false;
  return true;
}

NkType NkType::fromName(const NbName& name) {
  const TypeRegistry& types = registry();
  const auto lookUp = [&types](const NbName& key) {
    const auto it = types.byName.find(key);
    return it != types.byName.end() && types.entries[it->second].registered ? NkType(it->second) : badType();
  };
  const NkType type = lookUp(name);
  if (!type.isBad()) return type;
  const std::string_view text = name.getView();
  if (text.starts_with(kPrefix)) return lookUp(NbName(text.substr(kPrefix.size())));
  return lookUp(NbName(std::string_view(std::string(kPrefix).append(text))));
}

NbName NkType::getName() const { return registry().entries[m_index].name; }

NkType NkType::getParent() const { return registry().entries[m_index].parent; }

bool NkType::isDerivedFrom(NkType ancestor) const {
  if (ancestor.isBad()) return false;
  const std::vector<TypeEntry>& entries = registry().entries;
  for (NkType type = *this; !type.isBad(); type = entries[type.m_index].parent) {
    if (type == ancestor) return true;
  }
  return false;
}

bool NkType::canCreateInstance() const {
  const TypeEntry& entry = registry().entries[m_index];
  return entry.registered && entry.createInstance;
}

NkBase* NkType::createInstance() const {
  return canCreateInstance() ? registry().entries[m_index].createInstance() : nullptr;
}

int NkType::getMethodIndex() const { return registry().entries[m_index].methodIndex; }

void NkType::getAllDerivedFrom(NkType ancestor, std::vector<NkType>& types) {
  const std::vector<TypeEntry>& entries = registry().entries;
  for (std::size_t i = 1; i < entries.size(); ++i) {
    const NkType type(static_cast<std::uint16_t>(i));
    if (entries[i].registered && type.isDerivedFrom(ancestor)) types.push_back(type);
  }
}
