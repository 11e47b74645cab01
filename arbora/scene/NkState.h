#pragma once

#include <array>

#include "arbora/base/NbColor.h"
#include "arbora/base/NbMatrix.h"
#include "arbora/base/NbName.h"
#include "arbora/base/NbPlane.h"
#include "arbora/base/NbVec3f.h"
#include "arbora/base/NbViewVolume.h"
#include "arbora/base/NbViewportRegion.h"
#include "arbora/scene/export.h"

class NkCoordinate3;
class NkNormal;
class NkTexture2;
class NkTextureCoordinate2;

namespace arbora {

struct Material {
  NbColor diffuse{0.8f, 0.8f, 0.8f};
  NbColor ambient{0.2f, 0.2f, 0.2f};
  NbColor specular{0.0f, 0.0f, 0.0f};
  NbColor emissive{0.0f, 0.0f, 0.0f};
  float shininess = 0.2f;    // 0 to 1
  float transparency = 0.0f; // 0 opaque to 1 invisible
  friend bool operator==(const Material&, const Material&) = default;
};

struct FontStyle {
  NbName face;        // Empty: the system's sans serif.
  float size = 10.0f; // Height of the em square in scene units.
  friend bool operator==(const FontStyle&, const FontStyle&) = default;
};

/// Clip planes in world space. What lies in the half space of each is kept.
struct ARBORA_API ClipSet {
  static constexpr int kMaxPlanes = 8;
  int count = 0;
  std::array<NbPlane, kMaxPlanes> planes;
  bool contains(const NbVec3f& worldPoint) const;
  friend ARBORA_API bool operator==(const ClipSet& a, const ClipSet& b);
};

struct Light {
  NbVec3f direction; // World space, in which the light travels.
  NbColor color;     // Intensity included.
  friend bool operator==(const Light&, const Light&) = default;
};

struct ARBORA_API LightSet {
  static constexpr int kMaxLights = 8;
  int count = 0;
  std::array<Light, kMaxLights> lights;
  friend ARBORA_API bool operator==(const LightSet& a, const LightSet& b);
};

} // namespace arbora

/// What a traversal carries: copied at separators and put back behind them.
struct ARBORA_API NkState {
  NbMatrix model; // Local space to world space.
  arbora::Material material;
  arbora::FontStyle font;
  int pickStyle = 0; // 0 shapes, 1 bounding box, 2 unpickable
  int switchChild = -1;
  // Nodes whose contents the shapes behind them use; not owned, they stand in the scene that is traversed.
  const NkCoordinate3* coordinates = nullptr;
  const NkNormal* normals = nullptr;
  const NkTextureCoordinate2* textureCoordinates = nullptr;
  NkTexture2* texture = nullptr;
  /// Set once a camera was passed; owned by the action.
  const NbViewVolume* viewVolume = nullptr;
  arbora::ClipSet clip;
  arbora::LightSet lights;
  /// Which inherited values the content below the innermost caching separator has used so far, and which it has set
  /// itself: what a cached box depends on.
  unsigned usedInherited = 0;
  unsigned setBelow = 0;

  /// `CAMERA` is nothing inherited: it tells that a camera stands there, so that a pick ray from outside doesn't count.
  enum Element : unsigned { FONT = 1, COORDINATES = 2, SWITCH = 4, CAMERA = 8 };
  void markSet(Element element) { setBelow |= element; }
  void markUsed(Element element) {
    if (!(setBelow & element)) usedInherited |= element;
  }
};

/// Query of the view volume of a traversal.
class ARBORA_API NkViewVolumeElement {
public:
  /// Whether a camera was passed, so that a view volume is known.
  static bool isSet(const NkState* state) { return state && state->viewVolume; }
  static const NbViewVolume& get(const NkState* state);
};
