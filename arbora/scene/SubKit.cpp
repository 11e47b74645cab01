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
  m_makesCatalog = isFirst();
  if (!m_makesCatalog && !kit.catalog) {
    m_class.classMutex.lock();
    m_locked = true;
    m_makesCatalog = !kit.catalog;
  }
  if (!m_makesCatalog) return;
  delete kit.catalog;
  const NkNodekitCatalog* parent = kit.parentCatalogPtr ? *kit.parentCatalogPtr : nullptr;
  kit.catalog = (parent ? *parent : NkNodekitCatalog()).clone(m_class.classTypeId);
}

} // namespace arbora
