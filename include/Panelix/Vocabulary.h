#pragma once

#include <span>

#include "Panelix/export.h"
#include "arbora/scene/NkType.h"

namespace panelix {

/// One node class of the toolkit.
struct VocabularyRow {
  const char* className;
  const char* parentName;
  const char* keyword; ///< In files.
  NkType (*type)();
  void (*initClass)();
  void (*exitClass)();
  const char* childKeyword; ///< Class that its children derive from; NULL for a class without children.
};

/// All node classes, parents ahead of their children, as they are registered.
PANELIX_API std::span<const VocabularyRow> vocabulary();

} // namespace panelix
