#include "ClassTables.h"

#include <gtest/gtest.h>

#include "arbora/scene/NkBaseKit.h"

std::string ownFields(const NkNode* node, const NkFieldData* inherited) {
  const NkFieldData* fields = node->getFieldData();
  std::string names;
  for (int i = inherited->getNumFields(); i < fields->getNumFields(); ++i)
    names += std::string(fields->getFieldName(i).getString()) + " ";
  return names;
}

std::string ownParts(const NkBaseKit* kit, const NkNodekitCatalog* inherited) {
  const NkNodekitCatalog* catalog = kit->getNodekitCatalog();
  std::string parts;
  for (int i = inherited->getNumEntries(); i < catalog->getNumEntries(); ++i) {
    const std::string name = catalog->getName(i).getString();
    EXPECT_TRUE(catalog->isNullByDefault(i)) << name;
    EXPECT_EQ(catalog->getDefaultType(i), catalog->getType(i)) << name;
    EXPECT_FALSE(catalog->isList(i)) << name;
    parts += std::string(catalog->getType(i).getName().getString()) + " " + name + " < " +
             catalog->getParentName(i).getString() + (catalog->isPublic(i) ? " +\n" : "\n");
  }
  return parts;
}
