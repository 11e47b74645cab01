#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "arbora/base/NbColor.h"
#include "arbora/scene/Mesh.h"
#include "arbora/scene/NkAction.h"

class NkCamera;
class NkSeparator;

namespace arbora {
class DrawList;
class RenderBackend;
} // namespace arbora

/// Draws a scene. The first time that the action is applied to a root it compiles the scene into a draw list, which it
/// keeps; from then on it visits only what changed, and nothing at all if nothing did. The first camera of the scene
/// decides what is seen; without one it is the cube from -1 to 1. Where the scene has no light at all, one shines from
/// the eye.
class ARBORA_API NkGLRenderAction : public NkAction {
public:
  explicit NkGLRenderAction(const NbViewportRegion& viewport);
  ~NkGLRenderAction() override;

  static NkType getClassTypeId();
  NkType getTypeId() const override;
  static void initClass();
  static void exitClass();

  /// Where the drawing goes; not owned, must outlive this action. Without one the action only compiles. A change drops
  /// all draw lists.
  void setBackend(arbora::RenderBackend* backend);
  arbora::RenderBackend* getBackend() const { return m_backend; }

  /// What the viewport is cleared to ahead of the drawing; black to begin with. `alpha` 0 is transparent.
  void setBackgroundColor(const NbColor& color, float alpha = 1.0f);
  /// Whether the viewport is cleared at all; true to begin with.
  void setClearing(bool flag) { m_clearing = flag; }

  void apply(NkNode* root) override;
  /// Draws what the path leads to. Nothing of it is kept for the next time.
  void apply(NkPath* path) override;
  void apply(const NkPathList& paths) override;

  /// Drops the draw lists of all roots, and with them what they hold at the back end.
  void dropLists();

  /// What the last `apply` did.
  struct Statistics {
    int visitedNodes = 0;     ///< nodes that were traversed
    int compiledSegments = 0; ///< separators (and roots) whose content was compiled anew
    int drawCalls = 0;
    int drawnInstances = 0; ///< meshes seen
  };
  const Statistics& getStatistics() const { return m_statistics; }

  // For the nodes.
  /// Draws a mesh under the present state.
  void drawMesh(const arbora::PlacedMesh& placed);
  /// The camera stands here under the present matrix.
  void useCamera(NkCamera* camera);
  /// Visits a separator's content, or leaves it at what the draw list has.
  void renderSeparator(NkSeparator* separator);

protected:
  void beginTraversal() override;
  void dispatch(NkNode* node) override;

private:
  friend class arbora::DrawList;
  struct Kept {
    const NkNode* root; // Never looked into: the node may be gone.
    std::unique_ptr<arbora::DrawList> list;
  };
  arbora::DrawList& findList(NkNode* root);
  void drawList(arbora::DrawList& list);
  template <class Target>
  void drawUnkept(const Target& target);

  static NkType s_classTypeId;
  arbora::RenderBackend* m_backend = nullptr;
  std::vector<Kept> m_lists;            // The one that was used last stands at the end.
  arbora::DrawList* m_target = nullptr; // The list that this traversal compiles into.
  Statistics m_statistics;
  NbColor m_background;
  float m_backgroundAlpha = 1.0f;
  bool m_clearing = true;
};
