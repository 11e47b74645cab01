#pragma once

#include "arbora/scene/Mesh.h"

namespace arbora {

/// The meshes that all cubes, spheres, cones and cylinders share. Each reaches from -0.5 to 0.5 along the axes on which
/// the shape has a width or a height, and from -1 to 1 on those on which it has a radius. A disc lies
/// in the plane y = 0 and looks the way that its name tells.
enum class UnitMesh { CUBE, SPHERE, CONE_SIDES, CYLINDER_SIDES, DISC_UP, DISC_DOWN };

/// The mesh, made when it is first asked for.
ARBORA_API const Ref<Mesh>& getUnitMesh(UnitMesh kind);
/// Releases all of them.
ARBORA_API void clearUnitMeshes();

/// A size as the shapes take it: its absolute value, and 0 for one that isn't finite.
float usableSize(float size);

} // namespace arbora
