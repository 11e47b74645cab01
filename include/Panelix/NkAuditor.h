#pragma once

#include "Panelix/export.h"
#include "arbora/scene/NkTypedObject.h"

// clang-format off
/// The type of an auditor class.
#define NK_AUDITOR_HEADER(Class)          \
 public:                                  \
  static NkType getClassTypeId();         \
  NkType getTypeId() const override;      \
  static void initClass();                \
  static void exitClass();                \
                                          \
 private:                                 \
  static NkType s_classTypeId;            \
  static_assert(true)

#define NK_AUDITOR_SOURCE(Class, parentType, typeName)                                          \
  NkType Class::s_classTypeId;                                                                  \
  NkType Class::getClassTypeId() { return s_classTypeId; }                                      \
  NkType Class::getTypeId() const { return s_classTypeId; }                                     \
  void Class::initClass() { s_classTypeId = NkType::createType(parentType, typeName, nullptr, 0); } \
  void Class::exitClass() {                                                                     \
    NkType::removeType(typeName);                                                               \
    s_classTypeId = NkType::badType();                                                          \
  }                                                                                             \
  static_assert(true)
// clang-format on

/// Base of the objects by which user's actions reach the application. An auditor for one kind of component goes on a
/// component of that kind; an `NkDialogAuditor` goes on a container and hears of all kinds below. A component tells the
/// nearest that it finds on the way up. The nodes don't own auditors: the application keeps them alive as long as they
/// are on a node.
class PANELIX_API NkAuditor : public NkTypedObject {
  NK_AUDITOR_HEADER(NkAuditor);

public:
  /// The types of all auditors, from the first `NkPanelix::init` to the last `finish`.
  static void initClasses();
  static void exitClasses();

protected:
  NkAuditor() = default;
};
