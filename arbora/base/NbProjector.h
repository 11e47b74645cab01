#pragma once

#include "arbora/base/NbLine.h"
#include "arbora/base/NbMatrix.h"
#include "arbora/base/NbVec2f.h"
#include "arbora/base/NbVec3f.h"
#include "arbora/base/NbViewVolume.h"
#include "arbora/base/export.h"

/// Turns a pointer's position on the screen, or a ray of a tracker, into a point on some geometry. The geometry and the
/// results are in the working space; the view volume and rays are in world space.
class ARBORABASE_API NbProjector {
public:
  virtual ~NbProjector();

  void setViewVolume(const NbViewVolume& volume) { m_viewVolume = volume; }
  const NbViewVolume& getViewVolume() const { return m_viewVolume; }

  /// The matrix from working space to world space. A singular one is taken as the identity.
  void setWorkingSpace(const NbMatrix& workingToWorld);
  const NbMatrix& getWorkingSpace() const { return m_workingToWorld; }

  /// False if the line of sight misses the geometry; `result` is then a sensible point on it all the same.
  virtual bool project(const NbVec2f& normalized, NbVec3f& result) const = 0;
  NbVec3f project(const NbVec2f& normalized) const;
  /// The same for a ray in world space.
  virtual bool intersect(const NbLine& rayInWorld, NbVec3f& result) const = 0;
  NbVec3f intersect(const NbLine& rayInWorld) const;

  /// A new projector with the same settings; it belongs to the caller.
  virtual NbProjector* copy() const = 0;

protected:
  NbProjector() = default;
  NbProjector(const NbProjector&) = default;
  NbProjector& operator=(const NbProjector&) = default;

  /// The line of sight, or the ray, in working space.
  NbLine getWorkingLine(const NbVec2f& normalized) const;
  NbLine getWorkingLine(const NbLine& lineInWorld) const;

private:
  NbViewVolume m_viewVolume;
  NbMatrix m_workingToWorld;
  NbMatrix m_worldToWorking;
};
