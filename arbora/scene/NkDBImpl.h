#pragma once

#include "arbora/scene/export.h"

/// Modes of the process.
class ARBORA_API NkDBImpl {
public:
  /// Whether this process is one of a cluster that shows one scene together.
  static bool isRunningCluster();
  /// Whether a tracker drives the scene.
  static bool isRunningART();

  /// Set, there are no windows: every form of a dialog is made in 3D. Set from the start on systems without windows.
  static bool m_isVerra;
};
