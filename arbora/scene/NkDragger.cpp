#include "arbora/scene/NkDragger.h"

#include "arbora/scene/CallbackList.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/scene/NkPickedPoint.h"
#include "arbora/scene/NkTrackerEvent.h"
#include "arbora/scene/WeakPath.h"

NK_KIT_ABSTRACT_SOURCE(NkDragger, NkInteractionKit, "Dragger");

namespace {

struct DraggerCallback {
  NkDraggerCB* function;
  void* data;
  friend bool operator==(const DraggerCallback&, const DraggerCallback&) = default;
};

} // namespace

struct NkDragger::Callbacks {
  arbora::CallbackList<DraggerCallback> start;
  arbora::CallbackList<DraggerCallback> motion;
  arbora::CallbackList<DraggerCallback> finish;
};

struct NkDragger::Drag {
  NkHandleEventAction* action = nullptr; // Tells the dragger when it goes.
  const NkEvent* event = nullptr;        // Set while an event is handled.
  // The way to the dragger, and the way to what was picked. They would keep the dragger alive from inside if they
  // counted. Both go through the dragger, but for a pick of a surrogate, which its owner keeps.
  arbora::WeakPath ownPath;
  int ownIndex = 0;
  arbora::WeakPath pickPath;
  int pickIndex = 0;
  arbora::Ref<NkNode> surrogate;
  arbora::Ref<NkFullPath> shownPickPath; // What `getPickPath` gives, until the event is done.
  NbVec3f localStart;
  NbVec3f worldStart;
  NbVec2f startLocater;
  NbVec2f locater;
  NbLine ray;
  NbViewVolume viewVolume;
  NbViewportRegion viewport;
};

NkDragger::NkDragger() {
  NK_KIT_CONSTRUCTOR(NkDragger);
  NK_NODE_ADD_FIELD(isActive, (false));
  NK_KIT_INIT_INSTANCE();
}

NkDragger::~NkDragger() = default;

// Callbacks

NkDragger::Callbacks& NkDragger::callbacks() {
  if (!m_callbacks) m_callbacks = std::make_unique<Callbacks>();
  return *m_callbacks;
}

void NkDragger::addStartCallback(NkDraggerCB* function, void* data) { callbacks().start.add({function, data}); }

void NkDragger::removeStartCallback(NkDraggerCB* function, void* data) { callbacks().start.remove({function, data}); }

void NkDragger::addMotionCallback(NkDraggerCB* function, void* data) { callbacks().motion.add({function, data}); }

void NkDragger::removeMotionCallback(NkDraggerCB* function, void* data) { callbacks().motion.remove({function, data}); }

void NkDragger::addFinishCallback(NkDraggerCB* function, void* data) { callbacks().finish.add({function, data}); }

void NkDragger::removeFinishCallback(NkDraggerCB* function, void* data) { callbacks().finish.remove({function, data}); }

template <class List>
void NkDragger::invoke(List& list) {
  // A callback may end the drag, and even another one may have begun inside it.
  const Drag* const drag = m_drag.get();
  list.forEach([&](const DraggerCallback& callback) {
    if (drag && m_drag.get() == drag && callback.function) callback.function(callback.data, this);
  });
}

// Queries

namespace {

// What the queries give outside a drag.
const NbViewVolume s_noView;
const NbViewportRegion s_noViewport;

} // namespace

NkPath* NkDragger::getPickPath() const {
  if (!m_drag) return nullptr;
  if (!m_drag->shownPickPath) {
    NkNode* live = m_drag->surrogate ? m_drag->surrogate.get() : const_cast<NkDragger*>(this);
    m_drag->shownPickPath = m_drag->pickPath.lock(live, m_drag->pickIndex);
  }
  return m_drag->shownPickPath.get();
}

const NkEvent* NkDragger::getEvent() const { return m_drag ? m_drag->event : nullptr; }

NkHandleEventAction* NkDragger::getHandleEventAction() const { return m_drag ? m_drag->action : nullptr; }

NbMatrix NkDragger::getLocalToWorldMatrix() const {
  if (!m_drag) return NbMatrix();
  const arbora::Ref<NkFullPath> path = m_drag->ownPath.lock(const_cast<NkDragger*>(this), m_drag->ownIndex);
  if (!path) return NbMatrix();
  NkGetMatrixAction action(m_drag->viewport);
  action.apply(path.get());
  return action.getMatrix();
}

NbMatrix NkDragger::getWorldToLocalMatrix() const { return getLocalToWorldMatrix().inverse(); }

NbVec3f NkDragger::getLocalStartingPoint() const { return m_drag ? m_drag->localStart : NbVec3f(); }

NbVec3f NkDragger::getWorldStartingPoint() const { return m_drag ? m_drag->worldStart : NbVec3f(); }

NbVec2f NkDragger::getNormalizedLocaterPosition() const { return m_drag ? m_drag->locater : NbVec2f(); }

NbVec2f NkDragger::getStartLocaterPosition() const { return m_drag ? m_drag->startLocater : NbVec2f(); }

NbLine NkDragger::getTrackerRay() const { return m_drag ? m_drag->ray : NbLine(); }

const NbViewVolume& NkDragger::getViewVolume() const { return m_drag ? m_drag->viewVolume : s_noView; }

const NbViewportRegion& NkDragger::getViewportRegion() const { return m_drag ? m_drag->viewport : s_noViewport; }

const NbVec2i32& NkDragger::getViewportSize() const { return getViewportRegion().getViewportSizePixels(); }

// Events

NkDragger::Phase NkDragger::phaseOf(const NkEvent* event) {
  if (!event) return Phase::NONE;
  const bool isTracker = event->isTrackerEvent();
  if (isTracker || event->isOfType(NkMouseButtonEvent::getClassTypeId())) {
    const auto* button = static_cast<const NkButtonEvent*>(event);
    if (!isTracker && static_cast<const NkMouseButtonEvent*>(event)->getButton() != NkMouseButtonEvent::BUTTON1)
      return Phase::FURTHER_BUTTON;
    if (button->getState() == NkButtonEvent::DOWN) return Phase::PRESS;
    if (button->getState() == NkButtonEvent::UP) return Phase::RELEASE;
    return isTracker ? Phase::MOTION : Phase::NONE;
  }
  return event->isOfType(NkLocation2Event::getClassTypeId()) ? Phase::MOTION : Phase::NONE;
}

void NkDragger::handleEvent(NkHandleEventAction* action) {
  const arbora::KeepAlive alive(this);
  if (action->getCurPathLength() == 0) {
    // As the grabber, ahead of the scene.
    if (m_drag && m_drag->action == action) handleGrabbedEvent(action);
    return;
  }
  const bool isPress = !m_drag && phaseOf(action->getEvent()) == Phase::PRESS;
  const NbMatrix localToWorld = isPress ? action->getState()->model : NbMatrix();
  action->setInterest(hasSurrogates() ? NkHandleEventAction::EVERYTHING : NkHandleEventAction::PRESSES);
  NkInteractionKit::handleEvent(action);
  if (isPress && !m_drag && !action->isHandled()) tryToGrab(action, localToWorld);
}

bool NkDragger::isInnermost(const NkHandleEventAction& action, const NkFullPath& pickPath) const {
  const int depth = action.getCurPathLength();
  if (pickPath.getLength() < depth) return false;
  // The same node can stand in several places: it is hit only in the place that the traversal has come to.
  for (int i = 0; i < depth; ++i) {
    if (pickPath.getNode(i) != action.getCurPathNode(i) || pickPath.getIndex(i) != action.getCurPathIndex(i))
      return false;
  }
  for (int i = depth; i < pickPath.getLength(); ++i) {
    if (pickPath.getNode(i)->isOfType(NkDragger::getClassTypeId())) return false;
  }
  return true;
}

bool NkDragger::shouldGrabBasedOnSurrogate(const NkPath* pickPath, const NkPath* surrogatePath) const {
  const NkFullPath* full = pickPath->full();
  for (int i = surrogatePath->full()->getLength() - 1; i < full->getLength(); ++i) {
    if (full->getNode(i)->isOfType(NkDragger::getClassTypeId())) return false;
  }
  return true;
}

void NkDragger::tryToGrab(NkHandleEventAction* action, const NbMatrix& localToWorld) {
  const NkPickedPoint* point = action->getPickedPoint();
  if (!point || action->getCurPathTail() != this) return;
  const NkFullPath* pickPath = point->getPath()->full();
  auto drag = std::make_unique<Drag>();
  drag->ownIndex = action->getCurPathLength() - 1;
  drag->pickIndex = drag->ownIndex;
  if (!isInnermost(*action, *pickPath)) {
    const arbora::Ref<NkPath> surrogate = findSurrogate(point->getPath());
    if (!surrogate || !shouldGrabBasedOnSurrogate(pickPath, surrogate.get())) return;
    drag->surrogate = arbora::Ref<NkNode>(surrogate->getTail());
    drag->pickIndex = surrogate->getLength() - 1;
  }
  drag->action = action;
  drag->ownPath.assign(*arbora::Ref<NkFullPath>(action->copyCurPath()));
  drag->pickPath.assign(*pickPath);
  drag->worldStart = point->getPoint();
  localToWorld.inverse().multVecMatrix(drag->worldStart, drag->localStart);
  if (NkViewVolumeElement::isSet(action->getState())) drag->viewVolume = NkViewVolumeElement::get(action->getState());
  m_drag = std::move(drag);
  takeEvent(*action);
  m_drag->startLocater = m_drag->locater;
  action->setHandled();
  action->setGrabber(this);
  if (!m_drag) return;
  saveStartParameters();
  isActive = true;
  if (m_callbacks) invoke(m_callbacks->start);
  letEventGo();
}

void NkDragger::handleGrabbedEvent(NkHandleEventAction* action) {
  const Phase phase = phaseOf(action->getEvent());
  if (phase == Phase::NONE) return;
  const arbora::Ref<NkFullPath> path = m_drag->ownPath.lock(this, m_drag->ownIndex);
  m_drag->shownPickPath = {};
  if (!path || !getPickPath()) {
    endDrag();
    return;
  }
  // One action may serve several scenes; the drag goes on in its own.
  if (path->getHead() != action->getRoot()) {
    letEventGo();
    return;
  }
  action->setHandled();
  if (phase == Phase::MOTION) {
    takeEvent(*action);
    if (m_drag->event->isTrackerEvent()) applyTrackerMotion();
    if (m_callbacks) invoke(m_callbacks->motion);
  } else if (phase == Phase::RELEASE) {
    takeEvent(*action);
    const Drag* const drag = m_drag.get();
    isActive = false;
    if (m_callbacks) invoke(m_callbacks->finish);
    if (m_drag.get() == drag) endDrag();
  }
  letEventGo();
}

void NkDragger::takeEvent(const NkHandleEventAction& action) {
  m_drag->event = action.getEvent();
  m_drag->viewport = action.getViewportRegion();
  m_drag->locater = m_drag->event->getNormalizedPosition(m_drag->viewport);
  if (m_drag->event->isTrackerEvent()) m_drag->ray = static_cast<const NkTrackerEvent*>(m_drag->event)->getRay();
}

void NkDragger::letEventGo() {
  if (!m_drag) return;
  m_drag->event = nullptr;
  m_drag->shownPickPath = {};
}

void NkDragger::endDrag() {
  if (!m_drag) return;
  const arbora::KeepAlive alive(this);
  NkHandleEventAction* action = m_drag->action;
  m_drag.reset();
  if (action->getGrabber() == this) action->releaseGrabber();
  if (isActive.getValue()) isActive = false;
}

void NkDragger::grabEventsSetup() {}

void NkDragger::grabEventsCleanup() { endDrag(); }

void NkDragger::saveStartParameters() {}

void NkDragger::applyTrackerMotion() {}

// Writing and copying

void NkDragger::setDefaultOnNonWritingFields() {
  isActive.setDefault(true);
  NkInteractionKit::setDefaultOnNonWritingFields();
}

bool NkDragger::isCopied(const NkField& field) const {
  // Nobody drags the copy.
  return &field != &isActive && NkInteractionKit::isCopied(field);
}
