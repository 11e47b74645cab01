#include "Panelix/NkMenuItem.h"

#include "Panelix/NkMenuBar.h"
#include "arbora/scene/NkSeparator.h"
#include "src/dialog/support/Accelerator.h"

NK_KIT_SOURCE(NkMenuItem, NkPanelix, "MenuItem");

NkMenuItem::NkMenuItem() {
  NK_KIT_CONSTRUCTOR(NkMenuItem);
  NK_KIT_ADD_CATALOG_ENTRY(itemFrameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "itemFrameSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSep", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkMenuItem::~NkMenuItem() = default;

void NkMenuItem::menuEvent(void*, int) {}

NkMenuBar* NkMenuItem::getMenuBar() const {
  NkPanelix* above = m_parent;
  while (above && !above->isOfType(NkMenuBar::getClassTypeId())) above = above->getParent();
  return static_cast<NkMenuBar*>(above);
}

// Titles

char NkMenuItem::buildTitleForMotifMenu(const NbString& title, NbString& result) {
  const panelix::MenuTitle parsed = panelix::parseMenuTitle(title);
  result = parsed.text;
  return parsed.mnemonic;
}

NbString NkMenuItem::getAccelerator(const NbString& title) { return panelix::acceleratorOf(title); }

// Skin

const char* NkMenuItem::MenuItem = "DEF MenuItemFrame Group {"
                                   "  BaseColor { rgb [0.7 0.8 0.7] }"
                                   "  Translation { translation 0 0 0.5}"
                                   "  Cube { width 1 height 1 depth 1 }"
                                   "  Translation { translation 0 0 0.5}"
                                   "}";

NK_SKIN_SOURCE(NkMenuItem, MenuItem, "MenuItemFrame");
