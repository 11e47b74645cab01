#include "arbora/scene/NkPlaneDragger.h"

#include "arbora/scene/NkEvent.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkTranslation.h"

NK_KIT_SOURCE(NkPlaneDragger, NkDragger, "PlaneDragger");

NkPlaneDragger::NkPlaneDragger() {
  NK_KIT_CONSTRUCTOR(NkPlaneDragger);
  NK_NODE_ADD_FIELD(translation, (NbVec3f(0, 0, 0)));
  NK_KIT_ADD_CATALOG_ENTRY(translationNode, NkTranslation, false, "geomSeparator", "", false);
  NK_KIT_ADD_CATALOG_ABSTRACT_ENTRY(geometry, NkNode, NkSeparator, true, "geomSeparator", "", true);
  NK_KIT_INIT_INSTANCE();
  addMotionCallback(motionCB);
  setUpConnections(true);
}

NkPlaneDragger::~NkPlaneDragger() = default;

bool NkPlaneDragger::setUpConnections(bool onOff, bool doItAlways) {
  auto* node = static_cast<NkTranslation*>(getAnyPart("translationNode", onOff));
  if (node && (doItAlways || onOff != m_connectionsSetUp)) {
    if (onOff)
      node->translation.connectFrom(&translation);
    else
      node->translation.disconnect(&translation);
  }
  return NkDragger::setUpConnections(onOff, doItAlways);
}

void NkPlaneDragger::saveStartParameters() {
  m_startTranslation = translation.getValue();
  m_projector.setPlane(NbPlane(NbVec3f(0, 0, 1), getLocalStartingPoint()));
  m_projector.setViewVolume(getViewVolume());
}

void NkPlaneDragger::motionCB(void*, NkDragger* dragger) { static_cast<NkPlaneDragger*>(dragger)->drag(); }

void NkPlaneDragger::drag() {
  m_projector.setWorkingSpace(getLocalToWorldMatrix());
  NbVec3f point;
  const bool hit = getEvent()->isTrackerEvent() ? m_projector.intersect(getTrackerRay(), point)
                                                : m_projector.project(getNormalizedLocaterPosition(), point);
  // Where the line of sight runs along the plane there is no place to drag to.
  if (!hit) return;
  NbVec3f way = point - getLocalStartingPoint();
  way[2] = 0;
  translation = m_startTranslation + way;
}
