#pragma once

#include "arbora/scene/NkType.h"

/// Object with a run-time type.
class ARBORA_API NkTypedObject {
public:
  virtual ~NkTypedObject();
  static NkType getClassTypeId();
  virtual NkType getTypeId() const = 0;
  /// True if this object's class is `type` or derives from it.
  bool isOfType(NkType type) const { return getTypeId().isDerivedFrom(type); }

  static void initClass();
  static void exitClass();

  /// Tells whether the object under construction has a registered type that fits its class; a misfit is posted.
  static bool checkDatabase(const char* className, const void* object, NkType objectType, NkType classType);

protected:
  NkTypedObject() = default;

private:
  static NkType s_classTypeId;
};

namespace arbora {

/// The object as what its type says that it is; NULL if it isn't of that class, or there is none.
template <class Class, class Object>
Class* as(Object* object) {
  return object && object->isOfType(Class::getClassTypeId()) ? static_cast<Class*>(object) : nullptr;
}

} // namespace arbora
