#pragma once

#include "arbora/scene/CallbackList.h"
#include "arbora/scene/NkSubNode.h"

class NkEvent;
class NkEventCallback;
class NkPickedPoint;

using NkEventCallbackCB = void(void* data, NkEventCallback* node);

/// Calls functions of the application for the events that reach it in a traversal: what hides it from the traversal, a
/// switch for instance, hides it from events.
class ARBORA_API NkEventCallback : public NkNode {
  NK_NODE_HEADER(NkEventCallback);

public:
  NkEventCallback();

  /// Calls `function` for events whose class is `eventType` or derives from it.
  void addEventCallback(NkType eventType, NkEventCallbackCB* function, void* data = nullptr);
  void removeEventCallback(NkType eventType, NkEventCallbackCB* function, void* data = nullptr);

  // For the callbacks; NULL, false and without effect outside.

  const NkEvent* getEvent() const;
  NkHandleEventAction* getAction() const { return m_action; }
  const NkPickedPoint* getPickedPoint() const;
  /// The event goes no further than the callbacks of this node.
  void setHandled();
  bool isHandled() const;
  /// This node gets all further events first, until it lets go.
  void grabEvents();
  void releaseEvents();

  bool affectsState() const override { return false; }
  void handleEvent(NkHandleEventAction* action) override;

protected:
  ~NkEventCallback() override;

private:
  struct Callback {
    NkType type;
    NkEventCallbackCB* function;
    void* data;
    friend bool operator==(const Callback&, const Callback&) = default;
  };
  arbora::CallbackList<Callback> m_callbacks;
  NkHandleEventAction* m_action = nullptr;
};
