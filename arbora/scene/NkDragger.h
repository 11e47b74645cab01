#pragma once

#include <memory>

#include "arbora/base/NbLine.h"
#include "arbora/base/NbMatrix.h"
#include "arbora/base/NbVec2f.h"
#include "arbora/base/NbVec3f.h"
#include "arbora/scene/NkGetView.h"
#include "arbora/scene/NkInteractionKit.h"
#include "arbora/scene/NkPath.h"

class NkDragger;
class NkEvent;

using NkDraggerCB = void(void* data, NkDragger* dragger);

/// Interaction kit that is dragged. A press of mouse button 1, or of a tracker's trigger, on any of its geometry starts
/// a drag, unless a dragger inside this one was hit; until the release all further events of the pointer go to the
/// dragger. Subclasses and applications act in the callbacks.
///
/// The local space of a dragger is the space in which it stands: what a drag moves inside the dragger doesn't change
/// it. If the dragger is taken out of the scene in the middle of a drag, the drag ends without a callback.
class ARBORA_API NkDragger : public NkInteractionKit, public NkGetView {
  NK_KIT_ABSTRACT_HEADER(NkDragger);

public:
  /// True during a drag. Not written to files.
  NkSFBool isActive;

  /// Called at the press, at each motion and at the release. A callback may add and remove callbacks, and take the
  /// dragger out of the scene.
  void addStartCallback(NkDraggerCB* function, void* data = nullptr);
  void removeStartCallback(NkDraggerCB* function, void* data = nullptr);
  void addMotionCallback(NkDraggerCB* function, void* data = nullptr);
  void removeMotionCallback(NkDraggerCB* function, void* data = nullptr);
  void addFinishCallback(NkDraggerCB* function, void* data = nullptr);
  void removeFinishCallback(NkDraggerCB* function, void* data = nullptr);

  // What is going on. Outside a drag: NULL, the identity, zeros and a default view.

  /// The way from the head of the scene to what the press hit.
  NkPath* getPickPath() const;
  /// The event that is being handled; NULL between events.
  const NkEvent* getEvent() const;
  NkHandleEventAction* getHandleEventAction() const;
  NbMatrix getLocalToWorldMatrix() const;
  NbMatrix getWorldToLocalMatrix() const;
  /// The point that the press hit: fixed in local space, and in world space as it was at the press.
  NbVec3f getLocalStartingPoint() const;
  NbVec3f getWorldStartingPoint() const;
  /// The pointer within the viewport, from (0, 0) at the lower left to (1, 1).
  NbVec2f getNormalizedLocaterPosition() const;
  NbVec2f getStartLocaterPosition() const;
  /// The ray of a tracker's event, in world space.
  NbLine getTrackerRay() const;

  const NbViewVolume& getViewVolume() const override;
  const NbViewportRegion& getViewportRegion() const override;
  const NbVec2i32& getViewportSize() const override;

  void handleEvent(NkHandleEventAction* action) override;
  void setDefaultOnNonWritingFields() override;

  /// The event is one with which a drag begins.
  static bool isPress(const NkEvent* event) { return phaseOf(event) == Phase::PRESS; }

  /// Called by the action when the dragger gets the grab, and when it loses it: what is left of a drag then ends
  /// without a callback.
  virtual void grabEventsSetup();
  virtual void grabEventsCleanup();

  /// Takes down what a drag begins with, ahead of the start callbacks.
  virtual void saveStartParameters();

protected:
  NkDragger();
  ~NkDragger() override;

  bool isCopied(const NkField& field) const override;

  /// Called at each motion that a tracker makes, ahead of the motion callbacks. A class that moves otherwise for a
  /// tracker than for a mouse overrides it.
  virtual void applyTrackerMotion();
  /// Whether a press on a surrogate starts a drag. It does, unless what was hit is itself a dragger's.
  virtual bool shouldGrabBasedOnSurrogate(const NkPath* pickPath, const NkPath* surrogatePath) const;

private:
  struct Callbacks;
  struct Drag;
  enum class Phase { NONE, PRESS, MOTION, RELEASE, FURTHER_BUTTON };

  static Phase phaseOf(const NkEvent* event);
  Callbacks& callbacks();
  template <class List>
  void invoke(List& list);
  void handleGrabbedEvent(NkHandleEventAction* action);
  void tryToGrab(NkHandleEventAction* action, const NbMatrix& localToWorld);
  bool isInnermost(const NkHandleEventAction& action, const NkFullPath& pickPath) const;
  void takeEvent(const NkHandleEventAction& action);
  void letEventGo();
  void endDrag();

  std::unique_ptr<Callbacks> m_callbacks;
  std::unique_ptr<Drag> m_drag; // Only during a drag.
};
