#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "arbora/scene/NkAction.h"
#include "arbora/scene/NkNode.h"
#include "arbora/scene/NkNodeSensor.h"

class NkEvent;
class NkPickedPoint;
class NkRayPickAction;

/// Takes an event of the user through the scene. The node that has grabbed the pointer gets it first; if it doesn't
/// handle it, all nodes get it in order until one does. A grab lasts from event to event on the same action. The action
/// may go in the middle of a grab, but not from inside `apply`.
class ARBORA_API NkHandleEventAction : public NkAction {
public:
  explicit NkHandleEventAction(const NbViewportRegion& viewport = NbViewportRegion());
  /// Ends a grab.
  ~NkHandleEventAction() override;
  static NkType getClassTypeId();
  NkType getTypeId() const override;
  static void initClass();
  static void exitClass();

  /// The event that the next `apply` hands out. It belongs to the caller and has to live as long as that.
  void setEvent(const NkEvent* event);
  const NkEvent* getEvent() const { return m_event; }

  /// An event that comes while another one is on its way, from inside a callback, is dropped. Paths from several heads
  /// are scenes that get the event in turn.
  void apply(NkNode* root) override;
  void apply(NkPath* path) override;
  void apply(const NkPathList& paths) override;

  /// For nodes: the event is dealt with and goes no further.
  void setHandled();
  bool isHandled() const { return m_handled; }

  /// What the nodes of a subgraph take of the events that come to them.
  enum Interest { NOTHING = 0, PRESSES = 1, EVERYTHING = 2 };
  /// For nodes that override `handleEvent`, in each call: the node is to be visited by further events, or only by
  /// presses that hit it. Subgraphs in which no node has said so are left out, until something in them changes.
  void setInterest(Interest interest) { m_interest = m_interest < interest ? interest : m_interest; }
  /// What an event has learnt of a subgraph, as it was then.
  struct Learnt {
    std::uint64_t nodeId = 0;
    int switchChild = 0; // Decides for switches that inherit it.
    Interest interest = EVERYTHING;
  };

  /// For nodes that keep what was learnt: visits the content of the node that the traversal has come to, as far as it
  /// takes the event.
  template <class Visit>
  void visitContent(const NkNode* node, Learnt& learnt, Visit&& visit) {
    // On a path not all of the content is visited.
    if (getPathCode() == IN_PATH || getPathCode() == OFF_PATH) {
      visit();
      return;
    }
    const std::uint64_t nodeId = node->getNodeId();
    const int switchChild = getState()->switchChild;
    const Interest outer = m_interest;
    const bool isKnown = learnt.nodeId == nodeId && learnt.switchChild == switchChild;
    if (!isKnown || isOfInterest(learnt.interest)) {
      m_interest = NOTHING;
      visit();
      // What was ended early was not seen whole.
      learnt = hasTerminated() ? Learnt() : Learnt{nodeId, switchChild, m_interest};
    } else {
      m_interest = learnt.interest;
    }
    setInterest(outer);
  }

  /// The node that gets the events first; the one that had them before is told. NULL takes the grab off. A node that
  /// goes loses it.
  void setGrabber(NkNode* node);
  void releaseGrabber() { setGrabber(nullptr); }
  NkNode* getGrabber() const { return m_grabber; }

  /// In pixels around the pointer.
  void setPickRadius(float pixels);
  float getPickRadius() const { return m_pickRadius; }

  /// Inside `apply`, the node that it began with; NULL otherwise.
  NkNode* getRoot() const { return m_root; }
  /// What lies under the pointer, or on the event's ray: the nearest, and all of it from the near to the far. The scene
  /// is picked when it is first asked for in an event. NULL and none outside `apply`.
  const NkPickedPoint* getPickedPoint();
  const std::vector<NkPickedPoint*>& getPickedPointList();

protected:
  void dispatch(NkNode* node) override;
  /// Callbacks may run dialogs of their own.
  bool holdsNodes() const override { return false; }

private:
  struct Applying;
  bool begin();
  void offerToGrabber();
  template <class Target>
  void applyTo(Target* target, NkNode* root);
  const NkRayPickAction* pick(bool all);

  bool isOfInterest(Interest interest);
  /// What was picked lies in the node, in the place that the traversal has come to.
  bool isPickedBelow();
  static void grabberDies(void* data, NkSensor* sensor);

  static NkType s_classTypeId;
  const NkEvent* m_event = nullptr;
  NkNode* m_root = nullptr;
  bool m_handled = false;
  Interest m_interest = NOTHING;         // Of what has been visited so far.
  NkNode* m_grabber = nullptr;           // Not owned; watched, so that it is forgotten when it goes.
  const NkNode* m_grabberRoot = nullptr; // Head of the scene in which it has grabbed; compared only.
  NkNodeSensor m_grabberWatch;
  float m_pickRadius = 0.0F;
  // What was picked for the present event.
  std::unique_ptr<NkRayPickAction> m_pickNearest;
  std::unique_ptr<NkRayPickAction> m_pickAll;
};
