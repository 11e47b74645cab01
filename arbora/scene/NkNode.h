#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "arbora/scene/NkFieldContainer.h"
#include "arbora/scene/NkNotification.h"

class NkAction;
class NkCallbackAction;
class NkChildList;
class NkDataSensor;
class NkGLRenderAction;
class NkGetBoundingBoxAction;
class NkGetMatrixAction;
class NkHandleEventAction;
class NkNodeList;
class NkRayPickAction;
class NkSearchAction;
class NkWriteAction;

namespace arbora {

/// The containers that hold a node, each as often as it holds it. Taking one out costs the same however many there are.
class ParentList {
public:
  void add(NkNode* parent);
  void remove(NkNode* parent);
  bool isEmpty() const { return !m_first && (!m_more || (m_more->few.empty() && m_more->many.empty())); }
  template <class F>
  void forEach(F&& f) const {
    if (m_first) f(m_first);
    if (!m_more) return;
    for (NkNode* parent : m_more->few) f(parent);
    for (const auto& [parent, count] : m_more->many) f(parent);
  }

private:
  static constexpr std::size_t kFew = 16;
  struct More {
    std::vector<NkNode*> few;
    std::unordered_map<NkNode*, int> many;
  };
  NkNode* m_first = nullptr;
  std::unique_ptr<More> m_more; // Made on demand: most nodes have one parent.
};

} // namespace arbora

/// Element of a scene. A node may stand in several places of a scene; it lives as long as it is referenced.
///
/// Each action has an operation here. All of them come down to `doAction`, which does nothing in a plain node: a
/// property overrides `doAction` to change the traversal state, a group to traverse its children, and a shape
/// overrides the operations that concern shapes.
class ARBORA_API NkNode : public NkFieldContainer {
public:
  static NkType getClassTypeId();
  static void initClass();
  static void exitClass();

  /// The node that bears a name; of several the one that was named last. NULL if there is none.
  static NkNode* getByName(const NbName& name);
  /// Appends the nodes that bear a name, the one that was named last ahead, and gives their number.
  static int getByName(const NbName& name, NkNodeList& nodes);

  /// Indices that tell classes apart for the tables of actions: handed out while classes are registered.
  static int getNextActionMethodIndex();
  static void incNextActionMethodIndex();

  virtual void doAction(NkAction* action);
  virtual void callback(NkCallbackAction* action);
  virtual void GLRender(NkGLRenderAction* action);
  virtual void getBoundingBox(NkGetBoundingBoxAction* action);
  virtual void getMatrix(NkGetMatrixAction* action);
  virtual void handleEvent(NkHandleEventAction* action);
  virtual void rayPick(NkRayPickAction* action);
  virtual void search(NkSearchAction* action);
  virtual void write(NkWriteAction* action);

  /// False for nodes that leave the traversal state as it was: they are skipped beside a path.
  virtual bool affectsState() const;
  /// The list of children that traversals walk; NULL for a node without children.
  virtual NkChildList* getChildren() const;

  /// Changes with every change of the node itself; and, once a traversal has visited them, with the next change of
  /// anything below it. So a cache made by a traversal can be kept as long as the id stays.
  std::uint64_t getNodeId() const { return m_changeId; }

  /// Notifies as a write of a field does.
  void touch();

  /// A nameless copy with reference count 0. What is below is copied too, shared nodes once; connections aren't. A kit
  /// may leave out what it makes for itself.
  NkNode* copy() const;

  // For containers, sensors and traversals of this library.
  void addParent(NkNode* parent);
  void removeParent(NkNode* parent);
  const arbora::ParentList& getParents() const { return m_parents; }
  /// Marks the node as one on whose state something above depends (a cache, a sensor).
  void arm() { m_armed = true; }
  void armSubgraph();
  /// The child list of this node changed; `added` is the child that came, if one did.
  void childrenChanged(NkNode* added = nullptr);

  static const NkFieldData** getFieldDataPtr();
  const NkFieldData* getFieldData() const override;

protected:
  NkNode();
  ~NkNode() override;

  void notifyDelete() override;
  bool readInstance(NkInput* in, unsigned short flags) override;

  /// Drops what this node has cached of itself and of what is below it. Gives true if something here must be told of
  /// the next change too.
  virtual bool dropCaches(NkNotification& notification);

  /// Whether a copy gets the value of a field; otherwise it has what its class gives it.
  virtual bool isCopied(const NkField& field) const;
  /// Copies what the fields don't hold; called on the copy. `NkGroup` copies its children here.
  virtual void copyContents(const NkNode* original);
  /// Inside `copyContents`: the copy of another node of the copied scene, made once.
  static NkNode* copyOf(const NkNode* original);
  /// True inside `copy`, while copies don't have all their contents yet.
  static bool isCopying();

private:
  friend class NkNodeSensor;
  void notifyAbove(NkNotification& notification) override;
  /// A change in this node or below it. Gives true if the next one must be told too.
  bool notifyAll(NkNotification& notification);
  /// The part of it that goes up on the call stack.
  bool notify(NkNotification& notification);
  void copyFields(const NkNode* original);
  void addSensor(NkDataSensor* sensor);
  void removeSensor(NkDataSensor* sensor);

  static NkType s_classTypeId;
  arbora::ParentList m_parents;
  std::unique_ptr<std::vector<NkDataSensor*>> m_sensors; // Made on demand: most nodes are watched by nobody.
  std::uint64_t m_stamp = 0;
  // How the change of that stamp came by so far: silent each time, told to the draw lists each time.
  bool m_toldSilent = false;
  bool m_toldDrawn = false;
};

/// List of referenced nodes.
class ARBORA_API NkNodeList {
public:
  NkNodeList() = default;
  explicit NkNodeList(int capacity) { m_nodes.reserve(static_cast<std::size_t>(capacity > 0 ? capacity : 0)); }

  void append(NkNode* node) { m_nodes.emplace_back(node); }
  void insert(NkNode* node, int index);
  /// -1 if absent.
  int find(const NkNode* node) const;
  void remove(int index);
  void truncate(int length);
  void set(int index, NkNode* node);
  int getLength() const { return static_cast<int>(m_nodes.size()); }
  /// NULL outside the list.
  NkNode* operator[](int index) const;
  NkNode* get(int index) const { return (*this)[index]; }

private:
  std::vector<arbora::Ref<NkNode>> m_nodes;
};
