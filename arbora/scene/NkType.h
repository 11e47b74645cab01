#pragma once

#include <cstdint>
#include <vector>

#include "arbora/base/NbName.h"
#include "arbora/scene/export.h"

class NkBase;

/// Identifier of a class in the run-time registry of classes by name. A plain value of two bytes.
class ARBORA_API NkType {
public:
  /// Makes an object of a class; NULL for classes that can't be instantiated.
  using CreateInstance = NkBase* (*)();

  NkType() = default;

  /// Registers a class. A name that stands already posts a message and gives the type that stands.
  /// `methodIndex` is the action method index handed out by `NkNode`.
  static NkType createType(NkType parent, const NbName& name, CreateInstance createInstance = nullptr,
                           int methodIndex = 0);
  /// Takes a class out of the registry; false if no class has that name.
  static bool removeType(const NbName& name);

  /// The type of that name, with or without the prefix `Nk`; bad if there is none.
  static NkType fromName(const NbName& name);
  static NkType badType() { return NkType(); }

  /// The registered name; empty for the bad type.
  NbName getName() const;
  NkType getParent() const;
  bool isBad() const { return m_index == 0; }
  bool isDerivedFrom(NkType ancestor) const;
  bool canCreateInstance() const;
  /// A new object with reference count 0, or NULL.
  NkBase* createInstance() const;
  int getMethodIndex() const;
  int getKey() const { return m_index; }

  /// Appends all registered types that derive from `ancestor`, itself included, in order of registration.
  static void getAllDerivedFrom(NkType ancestor, std::vector<NkType>& types);

  friend bool operator==(NkType a, NkType b) { return a.m_index == b.m_index; }
  friend bool operator!=(NkType a, NkType b) { return a.m_index != b.m_index; }
  friend bool operator<(NkType a, NkType b) { return a.m_index < b.m_index; }

private:
  explicit NkType(std::uint16_t index) : m_index(index) {}
  std::uint16_t m_index = 0;
};
