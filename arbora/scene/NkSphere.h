#pragma once

#include "arbora/scene/NkShape.h"

/// A ball around the origin. The radius is its absolute value; one that isn't finite counts as 0.
class ARBORA_API NkSphere : public NkShape {
  NK_NODE_HEADER(NkSphere);

public:
  NkSFFloat radius; // 1.

  NkSphere();

  const std::vector<arbora::PlacedMesh>& getMeshes(NkState& state) override;
  void fieldHasChanged(NkField* field) override;

protected:
  ~NkSphere() override;

private:
  std::vector<arbora::PlacedMesh> m_meshes; // Empty: to be made.
};
