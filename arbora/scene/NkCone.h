#pragma once

#include "arbora/scene/NkShape.h"

/// A cone around the y axis, its tip up, its height half above and half below the origin. Sizes are absolute values;
/// one that isn't finite counts as 0.
class ARBORA_API NkCone : public NkShape {
  NK_NODE_HEADER(NkCone);

public:
  enum Part { SIDES = 1, BOTTOM = 2, ALL = 3 };

  NkSFFloat bottomRadius; // 1.
  NkSFFloat height;       // 2.
  NkSFBitMask parts;      // ALL.

  NkCone();

  const std::vector<arbora::PlacedMesh>& getMeshes(NkState& state) override;
  void fieldHasChanged(NkField* field) override;

protected:
  ~NkCone() override;

private:
  std::vector<arbora::PlacedMesh> m_meshes; // Empty: to be made.
};
