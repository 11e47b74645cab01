#include "arbora/scene/NkEventCallback.h"

#include "arbora/scene/NkEvent.h"
#include "arbora/scene/NkHandleEventAction.h"

NK_NODE_SOURCE(NkEventCallback, NkNode, "EventCallback");

NkEventCallback::NkEventCallback() { NK_NODE_CONSTRUCTOR(NkEventCallback); }

NkEventCallback::~NkEventCallback() = default;

void NkEventCallback::addEventCallback(NkType eventType, NkEventCallbackCB* function, void* data) {
  if (function) m_callbacks.add({eventType, function, data});
}

void NkEventCallback::removeEventCallback(NkType eventType, NkEventCallbackCB* function, void* data) {
  m_callbacks.remove({eventType, function, data});
}

const NkEvent* NkEventCallback::getEvent() const { return m_action ? m_action->getEvent() : nullptr; }

const NkPickedPoint* NkEventCallback::getPickedPoint() const { return m_action ? m_action->getPickedPoint() : nullptr; }

void NkEventCallback::setHandled() {
  if (m_action) m_action->setHandled();
}

bool NkEventCallback::isHandled() const { return m_action && m_action->isHandled(); }

void NkEventCallback::grabEvents() {
  if (m_action) m_action->setGrabber(this);
}

void NkEventCallback::releaseEvents() {
  if (m_action && m_action->getGrabber() == this) m_action->releaseGrabber();
}

void NkEventCallback::handleEvent(NkHandleEventAction* action) {
  action->setInterest(NkHandleEventAction::EVERYTHING);
  const NkEvent* event = action->getEvent();
  // The grabber had the event already, ahead of the scene.
  if (!event || m_callbacks.isEmpty() || (action->getGrabber() == this && action->getCurPathLength() > 0)) return;
  const arbora::KeepAlive alive(this);
  NkHandleEventAction* const outer = m_action;
  m_action = action;
  m_callbacks.forEach([&](const Callback& callback) {
    if (event->isOfType(callback.type)) callback.function(callback.data, this);
  });
  m_action = outer;
}
