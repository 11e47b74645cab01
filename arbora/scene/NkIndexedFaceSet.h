#pragma once

#include "arbora/scene/NkPolygonShape.h"

/// Polygons that name their coordinates by index.
///
/// `normalIndex` and `textureCoordIndex` give an index for each corner, in the places of `coordIndex`; `normalIndex`
/// may instead give one for each face. Where `normalIndex` is empty, normals are used if there is one for each
/// coordinate, else if there is one for each face, else if there is one alone. Otherwise each face has the normal of
/// its plane.
class ARBORA_API NkIndexedFaceSet : public NkPolygonShape {
  NK_NODE_HEADER(NkIndexedFaceSet);

public:
  /// A negative index ends a face; the last face needs no end.
  NkMFInt32 coordIndex;
  NkMFInt32 normalIndex;
  NkMFInt32 textureCoordIndex;

  NkIndexedFaceSet();

protected:
  ~NkIndexedFaceSet() override;
  void buildFaces(const NkState& state, arbora::FaceBuilder& builder) override;
};
