#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "arbora/base/NbMatrix.h"
#include "arbora/base/NbVec4f.h"
#include "arbora/base/NbViewportRegion.h"
#include "arbora/scene/FieldIO.h"
#include "arbora/scene/Mesh.h"
#include "arbora/scene/export.h"

namespace arbora {

/// One occurrence of a mesh, in the layout that goes to the graphics card.
struct Instance {
  float columns[3][4];    // World x, y and z of a local point (x, y, z, 1): one dot product each.
  std::uint32_t diffuse;  // Colours have red in the lowest byte; here the highest is the opacity.
  std::uint32_t emissive; // The highest byte is unused.
  std::uint32_t specular; // The highest byte is the shininess.
  std::uint32_t ambient;  // The highest byte is unused.
  std::uint32_t clipSet;  // Number of the set of clip planes; 0 has none.
  std::uint32_t lightSet; // Number of the set of lights; 0 has none.
  friend bool operator==(const Instance&, const Instance&) = default;
};
static_assert(sizeof(Instance) == 72);

/// Four floats each: 8 planes (normal, minus distance) of a clip set; what lies behind one isn't drawn.
constexpr std::size_t kClipSetTexels = 8;
/// Direction towards the light with 1, then the colour, for up to 8 lights; zeros behind the last.
constexpr std::size_t kLightSetTexels = 16;

/// The pixels of a texture. `id` is unique for the process: equal ids have equal pixels.
struct Texture {
  std::uint64_t id = 0;
  const Image* image = nullptr; // Valid during the call.
  bool repeatS = true;
  bool repeatT = true;
};

/// What one call draws: a mesh in many places, with what must be the same for all of them.
struct BatchDescription {
  const Mesh* mesh = nullptr; // Valid as long as the batch.
  Texture texture;            // With id 0: none.
  bool transparent = false;
  bool clipped = false; // Some instance has a clip set.
};

/// What holds for all that is drawn in a frame.
struct Frame {
  NbMatrix worldToClip;
  /// The eye (x, y, z, 1), or the direction towards it (x, y, z, 0).
  NbVec4f eye;
  NbViewportRegion viewport;
  bool clear = true;
  NbVec4f clearColor;
  /// A white light from the viewer's side, for a scene that has none: in this direction lies the viewer.
  bool headlight = false;
  NbVec3f towardsViewer;
};

/// Where a draw list sends what it draws. Handles are given by the back end and are never 0.
class ARBORA_API RenderBackend {
public:
  using Handle = std::uint32_t;
  enum SetKind { CLIP_SETS = 0, LIGHT_SETS = 1 };
  struct Range {
    std::size_t first;
    std::size_t count;
  };

  RenderBackend() = default;
  virtual ~RenderBackend();
  RenderBackend(const RenderBackend&) = delete;
  RenderBackend& operator=(const RenderBackend&) = delete;

  virtual Handle createBatch(const BatchDescription& description) = 0;
  virtual void destroyBatch(Handle batch) = 0;
  /// `instances` are all of the batch; those in `changed` aren't yet known to the back end.
  virtual void updateBatch(Handle batch, const std::vector<Instance>& instances, const std::vector<Range>& changed) = 0;

  /// The clip and light sets of one draw list.
  virtual Handle createTables() = 0;
  virtual void destroyTables(Handle tables) = 0;
  /// `texels` are all sets of that kind; the changed texels aren't yet known to the back end.
  virtual void updateTable(Handle tables, SetKind kind, const std::vector<NbVec4f>& texels, const Range& changed) = 0;

  virtual void beginFrame(const Frame& frame, Handle tables) = 0;
  /// Draws `count` instances of the batch from `first` on. Transparent batches follow the others.
  virtual void drawBatch(Handle batch, std::size_t first, std::size_t count) = 0;
  virtual void endFrame() = 0;
};

} // namespace arbora
