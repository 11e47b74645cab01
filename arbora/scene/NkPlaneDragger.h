#pragma once

#include "arbora/base/NbPlaneProjector.h"
#include "arbora/scene/NkDragger.h"

/// Dragger that moves its geometry in the plane z = constant of its space, through the point at which it was pressed.
class ARBORA_API NkPlaneDragger : public NkDragger {
  NK_KIT_HEADER(NkPlaneDragger);

public:
  /// How far the geometry has been moved. A drag leaves z alone.
  NkSFVec3f translation;

  NkPlaneDragger();

protected:
  ~NkPlaneDragger() override;

  void saveStartParameters() override;
  bool setUpConnections(bool onOff, bool doItAlways = false) override;

private:
  static void motionCB(void* data, NkDragger* dragger);
  void drag();

  NkSFNode translationNode;
  NkSFNode geometry;
  NbPlaneProjector m_projector;
  NbVec3f m_startTranslation;
};
