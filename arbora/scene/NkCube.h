#pragma once

#include "arbora/scene/NkShape.h"

/// A box around the origin. The size of a side is its absolute value; one that isn't finite counts as 0.
class ARBORA_API NkCube : public NkShape {
  NK_NODE_HEADER(NkCube);

public:
  NkSFFloat width;  // Along x; 2.
  NkSFFloat height; // Along y; 2.
  NkSFFloat depth;  // Along z; 2.

  NkCube();

  const std::vector<arbora::PlacedMesh>& getMeshes(NkState& state) override;
  void fieldHasChanged(NkField* field) override;

protected:
  ~NkCube() override;

private:
  std::vector<arbora::PlacedMesh> m_meshes; // Empty: to be made.
};
