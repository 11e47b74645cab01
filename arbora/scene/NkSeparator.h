#pragma once

#include <memory>

#include "arbora/scene/NkGroup.h"

namespace arbora {
struct SeparatorCache;
}

/// Group whose children don't change the state of what follows it. It keeps its bounding box and its place in draw
/// lists until something below it changes.
class ARBORA_API NkSeparator : public NkGroup {
  NK_NODE_HEADER(NkSeparator);

public:
  NkSeparator();
  explicit NkSeparator(int expectedChildren);

  bool affectsState() const override { return false; }
  void doAction(NkAction* action) override;
  void GLRender(NkGLRenderAction* action) override;
  void getMatrix(NkGetMatrixAction* action) override;
  void getBoundingBox(NkGetBoundingBoxAction* action) override;
  void handleEvent(NkHandleEventAction* action) override;
  void rayPick(NkRayPickAction* action) override;

  /// Place of the caches; for the actions of this library.
  arbora::SeparatorCache& getCache();

protected:
  ~NkSeparator() override;
  bool dropCaches(NkNotification& notification) override;

private:
  std::unique_ptr<arbora::SeparatorCache> m_cache;
};
