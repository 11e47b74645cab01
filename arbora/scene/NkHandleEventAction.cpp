#include "arbora/scene/NkHandleEventAction.h"

#include <algorithm>

#include "arbora/scene/NkDragger.h"
#include "arbora/scene/NkEvent.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkPickedPoint.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkTrackerEvent.h"

NkType NkHandleEventAction::s_classTypeId;

NkType NkHandleEventAction::getClassTypeId() { return s_classTypeId; }

NkType NkHandleEventAction::getTypeId() const { return s_classTypeId; }

void NkHandleEventAction::initClass() {
  s_classTypeId = NkType::createType(NkAction::getClassTypeId(), "HandleEventAction");
}

void NkHandleEventAction::exitClass() {
  NkType::removeType("HandleEventAction");
  s_classTypeId = NkType::badType();
}

NkHandleEventAction::NkHandleEventAction(const NbViewportRegion& viewport) : NkAction(viewport) {
  m_grabberWatch.setPriority(0);
  m_grabberWatch.setDeleteCallback(grabberDies, this);
}

NkHandleEventAction::~NkHandleEventAction() { releaseGrabber(); }

void NkHandleEventAction::setEvent(const NkEvent* event) { m_event = event; }

void NkHandleEventAction::setPickRadius(float pixels) { m_pickRadius = pixels; }

void NkHandleEventAction::setHandled() {
  m_handled = true;
  setTerminated(true);
}

// Grabbing

void NkHandleEventAction::setGrabber(NkNode* node) {
  if (node == m_grabber) return;
  NkNode* const previous = m_grabber;
  const arbora::KeepAlive alive(previous);
  m_grabberWatch.detach();
  m_grabber = node;
  m_grabberRoot = m_root;
  if (node) m_grabberWatch.attach(node);
  if (previous && previous->isOfType(NkDragger::getClassTypeId()))
    static_cast<NkDragger*>(previous)->grabEventsCleanup();
  // The one before may have been told of its end and have grabbed again.
  if (node && node == m_grabber && node->isOfType(NkDragger::getClassTypeId()))
    static_cast<NkDragger*>(node)->grabEventsSetup();
}

void NkHandleEventAction::grabberDies(void* data, NkSensor*) {
  static_cast<NkHandleEventAction*>(data)->m_grabber = nullptr;
}

// Applying

// The event on its way through one scene.
struct NkHandleEventAction::Applying {
  Applying(NkHandleEventAction* a, NkNode* root) : action(a), alive(root) { action->m_root = root; }
  ~Applying() {
    action->m_root = nullptr;
    action->m_pickNearest.reset();
    action->m_pickAll.reset();
  }
  NkHandleEventAction* action;
  arbora::KeepAlive alive;
};

bool NkHandleEventAction::begin() {
  if (!m_event || m_root) return false;
  m_handled = false;
  return true;
}

void NkHandleEventAction::offerToGrabber() {
  NkNode* const grabber = m_grabber;
  if (!grabber) return;
  const arbora::KeepAlive alive(grabber);
  invalidateState();
  setTerminated(false);
  grabber->handleEvent(this);
}

template <class Target>
void NkHandleEventAction::applyTo(Target* target, NkNode* root) {
  if (!root || !begin()) return;
  const Applying applying(this, root);
  offerToGrabber();
  if (!m_handled) NkAction::apply(target);
}

void NkHandleEventAction::apply(NkNode* root) { applyTo(root, root); }

void NkHandleEventAction::apply(NkPath* path) {
  const arbora::KeepAlive alive(path);
  applyTo(path, path ? path->getHead() : nullptr);
}

void NkHandleEventAction::apply(const NkPathList& paths) {
  const std::vector<NkPathList> scenes = paths.splitByHead();
  if (scenes.empty() || !begin()) return;
  const auto headOf = [](const NkPathList& scene) { return scene[0]->getHead(); };
  // What is dragged is dragged in its own scene.
  const auto own = std::find_if(scenes.begin(), scenes.end(),
                                [&](const NkPathList& scene) { return headOf(scene) == m_grabberRoot; });
  {
    const Applying applying(this, headOf(own == scenes.end() ? scenes.front() : *own));
    offerToGrabber();
  }
  for (const NkPathList& scene : scenes) {
    if (m_handled) return;
    const Applying applying(this, headOf(scene));
    NkAction::apply(scene);
  }
}

void NkHandleEventAction::dispatch(NkNode* node) {
  if (!m_handled) node->handleEvent(this);
}

// Leaving out

bool NkHandleEventAction::isOfInterest(Interest interest) {
  if (interest != PRESSES) return interest == EVERYTHING;
  return NkDragger::isPress(m_event) && isPickedBelow();
}

bool NkHandleEventAction::isPickedBelow() {
  const NkPickedPoint* point = getPickedPoint();
  if (!point) return false;
  const NkFullPath* path = point->getPath()->full();
  const int depth = getCurPathLength();
  if (path->getLength() < depth) return false;
  // The same node can stand in several places.
  for (int i = depth - 1; i >= 0; --i) {
    if (path->getNode(i) != getCurPathNode(i) || path->getIndex(i) != getCurPathIndex(i)) return false;
  }
  return true;
}

// Picking

const NkRayPickAction* NkHandleEventAction::pick(bool all) {
  if (!m_root) return nullptr;
  std::unique_ptr<NkRayPickAction>& action = all ? m_pickAll : m_pickNearest;
  if (action) return action.get();
  action = std::make_unique<NkRayPickAction>(getViewportRegion());
  action->setPickAll(all);
  action->setRadius(m_pickRadius);
  if (m_event->isTrackerEvent()) {
    const NbLine& ray = static_cast<const NkTrackerEvent*>(m_event)->getRay();
    action->setRay(ray.getPosition(), ray.getDirection());
  } else {
    action->setNormalizedPoint(m_event->getNormalizedPosition(getViewportRegion()));
  }
  action->apply(m_root);
  return action.get();
}

const NkPickedPoint* NkHandleEventAction::getPickedPoint() {
  const NkRayPickAction* action = pick(false);
  return action ? action->getPickedPoint() : nullptr;
}

const std::vector<NkPickedPoint*>& NkHandleEventAction::getPickedPointList() {
  static const std::vector<NkPickedPoint*> s_none;
  const NkRayPickAction* action = pick(true);
  return action ? action->getPickedPointList() : s_none;
}
