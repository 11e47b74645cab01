#include "arbora/scene/NkSubKit.h"

namespace arbora {

void initKitClass(const KitClass& kit, const NkNodekitCatalog** (*parentCatalog)()) {
  kit.parentCatalogPtr = parentCatalog ? parentCatalog() : nullptr;
}

void exitKitClass(const KitClass& kit) {
  delete kit.catalog;
  kit.catalog = nullptr;
}

void NodeConstruction::makeCatalog(const KitClass& kit) {
  if (!isFirst()) return;
  delete kit.catalog;
  const NkNodekitCatalog* parent = kit.parentCatalogPtr ? *kit.parentCatalogPtr : nullptr;
  kit.catalog = (parent ? *parent : NkNodekitCatalog()).clone(m_class.classTypeId);
}

} // namespace arbora
