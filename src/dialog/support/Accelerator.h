#pragma once

#include <optional>
#include <string>

#include "Panelix/export.h"
#include "arbora/base/NbString.h"
#include "src/platform/Win32.h"

namespace panelix {

/// A menu entry's title as a menu shows it.
struct MenuTitle {
  std::string text;  ///< Without "&" and what follows the first tab, in Latin-1.
  char mnemonic = 0; ///< The last one if there are several; 0 for none.
};

PANELIX_API MenuTitle parseMenuTitle(const NbString& title);

/// What stands behind the first tab of a title; empty without a tab.
PANELIX_API NbString acceleratorOf(const NbString& title);

/// The record of a key combination such as "Ctrl+Shift+S". None for a text that makes no accelerator: Ctrl has to be
/// among the modifiers, for the other ones alone belong to the system or to what the user types.
PANELIX_API std::optional<ACCEL> parseKeyCombination(const NbString& text, WORD command);

} // namespace panelix
