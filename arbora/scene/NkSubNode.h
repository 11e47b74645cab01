#pragma once

#include "arbora/base/NbThreadMutex.h"
#include "arbora/scene/NkFieldData.h"
#include "arbora/scene/NkMField.h"
#include "arbora/scene/NkNode.h"
#include "arbora/scene/NkSField.h"

class NkNodekitCatalog;

namespace arbora {

/// The statics of one node class, as the functions that all classes share see them.
struct NodeClass {
  const char* className;       // "NkGroup"
  const char* parentClassName; // "NkNode"
  const char* typeName;        // "Group", the file keyword
  NkType& classTypeId;
  const NkFieldData*& fieldData;
  const NkFieldData**& parentFieldData;
  int& firstInstance;
  NbThreadMutex& classMutex;
};

/// The further statics of a node kit class.
struct KitClass {
  const NkNodekitCatalog*& catalog;
  const NkNodekitCatalog**& parentCatalogPtr;
};

ARBORA_API void initNodeClass(const NodeClass& nodeClass, NkType (*parentType)(), void (*initParent)(),
                              NkType::CreateInstance createInstance, const NkFieldData** (*parentFieldData)());
ARBORA_API void initKitClass(const KitClass& kit, const NkNodekitCatalog** (*parentCatalog)());
ARBORA_API void exitNodeClass(const NodeClass& nodeClass);
ARBORA_API void exitKitClass(const KitClass& kit);
/// Stands in for the field table of a class that has none, as its nodes may outlive the library: it holds no field, and
/// the misuse is posted.
ARBORA_API const NkFieldData* missingFieldData(const NodeClass& nodeClass);

/// Stands at the head of every constructor of a node class until its end. Makes the class's field table at the first
/// instance and holds the class's mutex while that instance fills it; later instances take no lock.
class ARBORA_API NodeConstruction {
public:
  NodeConstruction(const NodeClass& nodeClass, NkFieldContainer* object, void (*initClass)(), NkType objectType);
  ~NodeConstruction();
  NodeConstruction(const NodeConstruction&) = delete;
  NodeConstruction& operator=(const NodeConstruction&) = delete;

  /// True while the first instance of the class is made.
  bool isFirst() const { return m_class.firstInstance != 0; }
  void addField(const char* name, NkField* field, const char* sourceFile);
  void addEnumValue(const char* typeName, const char* valueName, int value);
  const EnumData* getEnum(const char* fieldName, const char* typeName, const char* sourceFile, int line);
  /// Makes the class's catalog from its parent's at the first instance, or for a class that a refused `exitClass` has
  /// left without one.
  void makeCatalog(const KitClass& kit);
  bool makesCatalog() const { return m_makesCatalog; }

private:
  const NodeClass& m_class;
  NkFieldContainer* m_object;
  bool m_locked = false;
  bool m_makesCatalog = false;
};

} // namespace arbora

// clang-format off

// Declarations that a node class carries. `NK_NODE_HEADER` is for classes that can be made by name.
#define NK_NODE_ABSTRACT_HEADER(Class)                                     \
 public:                                                                   \
  static NkType getClassTypeId() { return classTypeId; }                   \
  NkType getTypeId() const override;                                       \
  static const NkFieldData** getFieldDataPtr() { return &fieldData; }      \
  const NkFieldData* getFieldData() const override;                        \
  static void initClass();                                                 \
  static void exitClass();                                                 \
                                                                           \
 protected:                                                                \
  static const arbora::NodeClass& nodeClass();                             \
                                                                           \
 private:                                                                  \
  static NkType classTypeId;                                               \
  static const NkFieldData* fieldData;                                     \
  static const NkFieldData** parentFieldData;                              \
  static int firstInstance;                                                \
  static NbThreadMutex classMutex

#define NK_NODE_HEADER(Class)                                              \
  NK_NODE_ABSTRACT_HEADER(Class);                                          \
                                                                           \
 public:                                                                   \
  static NkBase* createInstance() { return new Class; }                    \
                                                                           \
 private:                                                                  \
  static_assert(true)

// Definitions, in the class's source. `Name` is the file keyword.
#define NK_NODE_SOURCE_COMMON(Class, Parent, Name)                                                    \
  NkType Class::classTypeId;                                                                          \
  const NkFieldData* Class::fieldData = nullptr;                                                      \
  const NkFieldData** Class::parentFieldData = nullptr;                                               \
  int Class::firstInstance = 1;                                                                       \
  NbThreadMutex Class::classMutex;                                                                    \
  NkType Class::getTypeId() const { return classTypeId; }                                             \
  const arbora::NodeClass& Class::nodeClass() {                                                       \
    static const arbora::NodeClass s{#Class, #Parent, Name, classTypeId, fieldData, parentFieldData,  \
                                     firstInstance, classMutex};                                      \
    return s;                                                                                         \
  }                                                                                                   \
  const NkFieldData* Class::getFieldData() const {                                                    \
    return fieldData ? fieldData : arbora::missingFieldData(nodeClass());                             \
  }                                                                                                   \
  static_assert(true)

#define NK_NODE_ABSTRACT_SOURCE(Class, Parent, Name)                                                  \
  NK_NODE_SOURCE_COMMON(Class, Parent, Name);                                                         \
  void Class::initClass() {                                                                           \
    arbora::initNodeClass(nodeClass(), &Parent::getClassTypeId, &Parent::initClass, nullptr,          \
                          &Parent::getFieldDataPtr);                                                  \
  }                                                                                                   \
  void Class::exitClass() { arbora::exitNodeClass(nodeClass()); }                                     \
  static_assert(true)

#define NK_NODE_SOURCE(Class, Parent, Name)                                                           \
  NK_NODE_SOURCE_COMMON(Class, Parent, Name);                                                         \
  void Class::initClass() {                                                                           \
    arbora::initNodeClass(nodeClass(), &Parent::getClassTypeId, &Parent::initClass,                   \
                          &Class::createInstance, &Parent::getFieldDataPtr);                          \
  }                                                                                                   \
  void Class::exitClass() { arbora::exitNodeClass(nodeClass()); }                                     \
  static_assert(true)

// First statement of every constructor of a node class; the field rows follow it.
#define NK_NODE_CONSTRUCTOR(Class) \
  arbora::NodeConstruction construction(nodeClass(), this, &Class::initClass, getTypeId())

/// One field: `NK_NODE_ADD_FIELD(width, (0))`. The default stands in brackets.
#define NK_NODE_ADD_FIELD(field, defaultValue)            \
  do {                                                    \
    construction.addField(#field, &(field), __FILE__);    \
    (field).setValue defaultValue;                        \
    (field).setContainer(this);                           \
    (field).setFieldType(5);                              \
    (field).setDefault(true);                             \
  } while (false)

/// One value of an enum type of the class, ahead of the fields that use it.
#define NK_NODE_DEFINE_ENUM_VALUE(EnumType, value) construction.addEnumValue(#EnumType, #value, value)

/// Gives an enum or bit-mask field its type, behind `NK_NODE_ADD_FIELD`.
#define NK_NODE_SET_SF_ENUM_TYPE(field, EnumType) \
  (field).setEnums(construction.getEnum(#field, #EnumType, __FILE__, __LINE__))

// clang-format on
