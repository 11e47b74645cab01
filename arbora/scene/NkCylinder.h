#pragma once

#include "arbora/scene/NkShape.h"

/// A cylinder around the y axis, its height half above and half below the origin. Sizes are absolute values; one that
/// isn't finite counts as 0.
class ARBORA_API NkCylinder : public NkShape {
  NK_NODE_HEADER(NkCylinder);

public:
  enum Part { SIDES = 1, TOP = 2, BOTTOM = 4, ALL = 7 };

  NkSFFloat radius;  // 1.
  NkSFFloat height;  // 2.
  NkSFBitMask parts; // ALL.

  NkCylinder();

  const std::vector<arbora::PlacedMesh>& getMeshes(NkState& state) override;
  void fieldHasChanged(NkField* field) override;

protected:
  ~NkCylinder() override;

private:
  std::vector<arbora::PlacedMesh> m_meshes; // Empty: to be made.
};
