#pragma once

#include "arbora/scene/NkPolygonShape.h"

/// Polygons that take the coordinates one after the other.
///
/// Normals are used where their number fits: one for each corner, else one for each face, else one for all. Otherwise
/// each face has the normal of its plane.
class ARBORA_API NkFaceSet : public NkPolygonShape {
  NK_NODE_HEADER(NkFaceSet);

public:
  /// Index of the first coordinate; 0.
  NkSFInt32 startIndex;
  /// Corners of each face; -1, the default, takes all that are left.
  NkMFInt32 numVertices;

  NkFaceSet();

protected:
  ~NkFaceSet() override;
  void buildFaces(const NkState& state, arbora::FaceBuilder& builder) override;
};
