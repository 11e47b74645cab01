#pragma once

#include <memory>
#include <vector>

#include "arbora/scene/NkState.h"
#include "arbora/scene/NkTypedObject.h"

class NkChildList;
class NkFullPath;
class NkNode;
class NkPath;
class NkPathList;

/// A traversal of a scene. Applying an action visits the nodes in order and gives each the chance to act; what it
/// carries from node to node is the state.
class ARBORA_API NkAction : public NkTypedObject {
public:
  ~NkAction() override;
  NkAction(const NkAction&) = delete;
  NkAction& operator=(const NkAction&) = delete;

  static NkType getClassTypeId();
  static void initClass();
  static void exitClass();

  /// Where the traversal stands in relation to the paths that the action is applied to.
  enum PathCode { NO_PATH = 0, IN_PATH = 1, BELOW_PATH = 2, OFF_PATH = 3 };

  /// Nodes deeper than this aren't visited; the first one is posted.
  static constexpr int kMaxDepth = 2000;

  virtual void apply(NkNode* root);
  /// Visits the nodes of the path, what lies below its end, and beside it what changes the state for the path.
  virtual void apply(NkPath* path);
  virtual void apply(const NkPathList& paths);

  /// In a path, `indices` are the children that it goes through next, in order.
  PathCode getPathCode(int& count, const int*& indices) const;
  PathCode getPathCode() const { return m_pathCode; }

  NkState* getState() { return &m_state; }
  const NkState* getState() const { return &m_state; }
  /// Puts the state back to what it is at the head of a traversal.
  void invalidateState();

  /// The node that is visited now; NULL between traversals.
  NkNode* getCurPathTail() const { return m_steps.empty() ? nullptr : m_steps.back().node; }
  /// A copy of the way to the node that is visited now.
  NkFullPath* copyCurPath() const;
  int getCurPathLength() const { return static_cast<int>(m_steps.size()); }
  NkNode* getCurPathNode(int index) const { return m_steps[static_cast<std::size_t>(index)].node; }
  int getCurPathIndex(int index) const { return m_steps[static_cast<std::size_t>(index)].index; }

  bool hasTerminated() const { return m_terminated; }
  void setTerminated(bool flag) { m_terminated = flag; }

  const NbViewportRegion& getViewportRegion() const { return m_viewport; }
  virtual void setViewportRegion(const NbViewportRegion& region) { m_viewport = region; }

  /// Visits a node that isn't a child of the present one as if it stood in its place.
  void forwardTraversal(NkNode* node);
  /// Visits child `index` of the present node.
  void traverseChild(NkNode* child, int index);
  /// Visits the children `first` to `last` of the present node; in a path, those that it goes through and those that
  /// change the state for them. The list may change under the traversal.
  void traverseChildren(NkChildList& children, int first, int last);

  /// Keeps the state over the traversal of what must not change it.
  class ARBORA_API StateScope {
  public:
    explicit StateScope(NkAction* action);
    ~StateScope();
    StateScope(const StateScope&) = delete;
    StateScope& operator=(const StateScope&) = delete;

  private:
    NkAction* m_action;
  };

  /// Gives the state a view volume, which the action keeps as long as the traversal lasts.
  void setViewVolume(const NbViewVolume& volume);

protected:
  NkAction();
  explicit NkAction(const NbViewportRegion& viewport);

  /// Calls the node's operation for this action.
  virtual void dispatch(NkNode* node) = 0;
  /// Run ahead of and behind each traversal.
  virtual void beginTraversal() {}
  virtual void endTraversal() {}
  /// Whether children are visited off or behind the paths, too.
  virtual bool visitsBelowPath() const { return true; }
  /// Whether nodes that go in the middle of a traversal die at its end only. They do, so that what the state points to
  /// stays, unless a traversal may last as long as the user wants it to.
  virtual bool holdsNodes() const { return true; }
  /// True, with a message, inside a traversal of this action, in which it can't begin another one.
  bool isBusy() const;

  struct Step {
    NkNode* node;
    int index;
  };
  const std::vector<Step>& getSteps() const { return m_steps; }
  static NkFullPath* makePath(const std::vector<Step>& steps);

  NkState m_state;

private:
  void traverseRoot(NkNode* root);
  void visit(NkNode* node, int index);
  void visitInPath(NkNode* node, int index);
  // Apart, to keep the frames small of what stands on the call stack once for each level of a scene.
  [[gnu::noinline]] bool mayEnter(const NkNode* child);
  [[gnu::noinline]] void enterNode(NkNode* node, int index);
  [[gnu::noinline]] void enterPlace(int index);
  [[gnu::noinline]] void leavePlace();
  void enterPath(int index);

  static NkType s_classTypeId;
  NbViewportRegion m_viewport;
  std::vector<Step> m_steps;
  std::vector<const NkFullPath*> m_paths; // Those of the applied paths that go through the present node.
  std::vector<int> m_nextIndices;         // Children that they go through next, in order.
  struct Place {
    std::vector<const NkFullPath*> paths;
    std::vector<int> nextIndices;
  };
  std::vector<Place> m_placeStack; // The same for the nodes above, which are the first of these; the rest is memory.
  std::size_t m_placeDepth = 0;    // How many they are.
  PathCode m_pathCode = NO_PATH;
  std::vector<NkState> m_stateStack; // On the heap, so that a deep scene takes little of the call stack.
  std::vector<std::unique_ptr<NbViewVolume>> m_viewVolumes;
  bool m_terminated = false;
  bool m_depthReported = false;
};
