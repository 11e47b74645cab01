#pragma once

#include "arbora/scene/NkNodekitCatalog.h"
#include "arbora/scene/NkSubNode.h"

namespace arbora {

/// One row of a class's catalog, as the macros below give it.
struct CatalogRow {
  const char* name;
  NkType type;
  NkType defaultType;
  bool nullByDefault;
  const char* parentName;
  const char* rightSiblingName;
  NkType listContainerType; // Bad for a part that is no list.
  NkType listItemType;
  bool isPublic;
};

} // namespace arbora

// clang-format off

// Declarations that a node kit class carries, in the place of the `NK_NODE` ones. `NK_KIT_HEADER` is for classes that
// can be made by name.
#define NK_KIT_ABSTRACT_HEADER(Class)                                                       \
  NK_NODE_ABSTRACT_HEADER(Class);                                                           \
                                                                                            \
public:                                                                                     \
  static const NkNodekitCatalog* getClassNodekitCatalog() { return nodekitCatalog; }        \
  static const NkNodekitCatalog** getClassNodekitCatalogPtr() { return &nodekitCatalog; }   \
  const NkNodekitCatalog* getNodekitCatalog() const override;                               \
  int getIsBuiltIn() const override;                                                        \
                                                                                            \
protected:                                                                                  \
  static const arbora::KitClass& kitClass();                                                \
                                                                                            \
private:                                                                                    \
  static const NkNodekitCatalog* nodekitCatalog;                                            \
  static const NkNodekitCatalog** parentNodekitCatalogPtr;                                  \
  static int isBuiltIn

#define NK_KIT_HEADER(Class)                             \
  NK_KIT_ABSTRACT_HEADER(Class);                         \
                                                         \
public:                                                  \
  static NkBase* createInstance() { return new Class; }  \
                                                         \
private:                                                 \
  static_assert(true)

// Definitions, in the class's source. `Name` is the file keyword.
#define NK_KIT_SOURCE_COMMON(Class, Parent, Name, create, parentCatalog)                              \
  NK_NODE_SOURCE_COMMON(Class, Parent, Name);                                                         \
  const NkNodekitCatalog* Class::nodekitCatalog = nullptr;                                            \
  const NkNodekitCatalog** Class::parentNodekitCatalogPtr = nullptr;                                  \
  int Class::isBuiltIn = 0;                                                                           \
  const NkNodekitCatalog* Class::getNodekitCatalog() const { return nodekitCatalog; }                 \
  int Class::getIsBuiltIn() const { return isBuiltIn; }                                               \
  const arbora::KitClass& Class::kitClass() {                                                         \
    static const arbora::KitClass s{nodekitCatalog, parentNodekitCatalogPtr};                         \
    return s;                                                                                         \
  }                                                                                                   \
  void Class::initClass() {                                                                           \
    arbora::initNodeClass(nodeClass(), &Parent::getClassTypeId, &Parent::initClass, create,           \
                          &Parent::getFieldDataPtr);                                                  \
    arbora::initKitClass(kitClass(), parentCatalog);                                                  \
  }                                                                                                   \
  void Class::exitClass() {                                                                           \
    arbora::exitNodeClass(nodeClass());                                                               \
    arbora::exitKitClass(kitClass());                                                                 \
  }                                                                                                   \
  static_assert(true)

#define NK_KIT_SOURCE(Class, Parent, Name) \
  NK_KIT_SOURCE_COMMON(Class, Parent, Name, &Class::createInstance, &Parent::getClassNodekitCatalogPtr)

#define NK_KIT_ABSTRACT_SOURCE(Class, Parent, Name) \
  NK_KIT_SOURCE_COMMON(Class, Parent, Name, nullptr, &Parent::getClassNodekitCatalogPtr)

// First statement of every constructor of a node kit class; the rows of fields and parts follow it.
#define NK_KIT_CONSTRUCTOR(Class)   \
  NK_NODE_CONSTRUCTOR(Class);       \
  construction.makeCatalog(kitClass()); \
  if (construction.isFirst()) isBuiltIn = 1

#define NK_KIT_ADD_ROW(part, ...)                                                        \
  do {                                                                                   \
    construction.addField(#part, &(part), __FILE__);                                     \
    (part).setContainer(this);                                                           \
    (part).setFieldType(5);                                                              \
    (part).setPartHolder(true);                                                          \
    if (construction.makesCatalog())                                                     \
      addCatalogRow(kitClass(), part, arbora::CatalogRow{__VA_ARGS__});                  \
  } while (false)

/// One part: `NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "frameSep", "", true)`. `part` is the holder member; the
/// parent is the name of a part that stands ahead, or "this"; an empty right sibling makes it the parent's last part.
#define NK_KIT_ADD_CATALOG_ENTRY(part, Type, nullByDefault, parentName, rightSiblingName, isPublic) \
  NK_KIT_ADD_ROW(part, #part, Type::getClassTypeId(), Type::getClassTypeId(), nullByDefault, parentName, \
                 rightSiblingName, NkType(), NkType(), isPublic)

/// One part whose type is wider than the class that it is filled with.
#define NK_KIT_ADD_CATALOG_ABSTRACT_ENTRY(part, Type, DefaultType, nullByDefault, parentName, rightSiblingName, \
                                          isPublic)                                                             \
  NK_KIT_ADD_ROW(part, #part, Type::getClassTypeId(), DefaultType::getClassTypeId(), nullByDefault, parentName, \
                 rightSiblingName, NkType(), NkType(), isPublic)

/// One part that is a list of `Item`s in a container node of class `Container`.
#define NK_KIT_ADD_CATALOG_LIST_ENTRY(part, Container, nullByDefault, parentName, rightSiblingName, Item, isPublic) \
  NK_KIT_ADD_ROW(part, #part, NkNodeKitListPart::getClassTypeId(), NkNodeKitListPart::getClassTypeId(),             \
                 nullByDefault, parentName, rightSiblingName, Container::getClassTypeId(), Item::getClassTypeId(),  \
                 isPublic)

// Last statement of the rows: makes the parts that aren't null by default.
#define NK_KIT_INIT_INSTANCE() \
  createNodekitPartsList();    \
  createDefaultParts()

// clang-format on
