#pragma once

#include <memory>
#include <vector>

#include "arbora/gl/export.h"
#include "arbora/scene/RenderBackend.h"

namespace arbora {

/// Draws with OpenGL 3.3 into the framebuffer that is bound, in the context that is current: the same one for the life
/// of this object. Batches may be destroyed while no context is current: what they had goes at the next frame. A frame
/// leaves the tests, the blending, the depth mask, the program and the vertex array as they are in a fresh context.
class ARBORAGL_API GLBackend : public RenderBackend {
public:
  GLBackend();
  /// Frees the objects if their context is current; else they go with it.
  ~GLBackend() override;

  Handle createBatch(const BatchDescription& description) override;
  void destroyBatch(Handle batch) override;
  void updateBatch(Handle batch, const std::vector<Instance>& instances, const std::vector<Range>& changed) override;
  Handle createTables() override;
  void destroyTables(Handle tables) override;
  void updateTable(Handle tables, SetKind kind, const std::vector<NbVec4f>& texels, const Range& changed) override;
  void beginFrame(const Frame& frame, Handle tables) override;
  void drawBatch(Handle batch, std::size_t first, std::size_t count) override;
  void endFrame() override;

private:
  struct Objects;
  std::unique_ptr<Objects> m_objects;
};

} // namespace arbora
