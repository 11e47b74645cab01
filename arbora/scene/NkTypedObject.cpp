#include "arbora/scene/NkTypedObject.h"

#include "arbora/base/NkDebugError.h"

NkType NkTypedObject::s_classTypeId;

NkTypedObject::~NkTypedObject() = default;

NkType NkTypedObject::getClassTypeId() { return s_classTypeId; }

void NkTypedObject::initClass() {
  if (s_classTypeId.isBad()) s_classTypeId = NkType::createType(NkType::badType(), "TypedObject");
}

void NkTypedObject::exitClass() {
  NkType::removeType("TypedObject");
  s_classTypeId = NkType::badType();
}

bool NkTypedObject::checkDatabase(const char* className, const void* object, NkType objectType, NkType classType) {
  if (!classType.isBad() && objectType.isDerivedFrom(classType)) return true;
  NkDebugError::post("NkTypedObject::checkDatabase", "The object of class %s at %p has the type \"%s\"", className,
                     object, objectType.getName().getString());
  return false;
}
