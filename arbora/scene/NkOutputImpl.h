#pragma once

#include "arbora/scene/export.h"

class NkOutput;

/// Modes of an output.
class ARBORA_API NkOutputImpl {
public:
  /// Whether what is written goes to the other processes of a cluster, rather than to a file.
  static bool isSynchronizing(const NkOutput* out);
};
