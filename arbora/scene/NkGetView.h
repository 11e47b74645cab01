#pragma once

#include "arbora/base/NbVec2i32.h"
#include "arbora/base/NbViewVolume.h"
#include "arbora/base/NbViewportRegion.h"
#include "arbora/scene/export.h"

/// What a node that takes part in events knows of the view that they come from.
class ARBORA_API NkGetView {
public:
  virtual const NbViewVolume& getViewVolume() const = 0;
  virtual const NbViewportRegion& getViewportRegion() const = 0;
  /// Pixels.
  virtual const NbVec2i32& getViewportSize() const = 0;

protected:
  NkGetView() = default;
  NkGetView(const NkGetView&) = default;
  NkGetView& operator=(const NkGetView&) = default;
  virtual ~NkGetView() = default;
};
