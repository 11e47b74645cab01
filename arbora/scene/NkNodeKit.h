#pragma once

#include "arbora/scene/export.h"

/// The node kits as a module of the scene library. Calls of `init` and `finish` are counted; the module, and the
/// database with it, stands from the first `init` to the `finish` that matches it.
class ARBORA_API NkNodeKit {
public:
  static void init();
  static void finish();
  static bool isInitialized() { return s_initCount > 0; }

private:
  static int s_initCount;
};
