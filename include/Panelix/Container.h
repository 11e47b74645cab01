#pragma once

#include <string>
#include <vector>

#include "Panelix/NkPanelix.h"
#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkWriteAction.h"

namespace panelix {

/// What containers differ in.
struct ContainerRules {
  const char* className;       ///< In messages.
  const char* getChildMessage; ///< What `getChild` posts for an index that is too large.
  bool takesOtherNodes;        ///< The kit's own operations give nodes of other types to the kit.
  bool staysAloneInCluster;    ///< For the other processes of a cluster it is written without its children.
  bool endsAtNumber = false;   ///< The range that `getChild` posts ends with the number of children.
};

inline constexpr const char* kNullChild = "NULL child node";
inline constexpr const char* kHoldsContainer = "The child node is this container or holds it";
inline constexpr const char* kOutOfRange = "Index %d is out of range %d - %d";
inline constexpr const char* kOutOfRangeBeCareful = "Index %d is out of range %d - %d; Be careful";

/// Those of the launchers, which hold dialogs.
constexpr ContainerRules launcherRules(const char* className) {
  return {className, kOutOfRangeBeCareful, false, false, true};
}

/// The children of a container. They stand at the front of the kit's child list, ahead of the kit's own parts, and are
/// counted apart. Misuse is posted under the name of the container's class and changes nothing.
class PANELIX_API Children {
public:
  Children(NkPanelix* owner, const ContainerRules& rules) : m_owner(owner), m_rules(rules) {}

  int getNum() const { return m_num; }
  NkPanelix* get(int index) const;
  int find(const NkPanelix* child) const;
  /// These three give false if nothing was changed.
  bool insert(NkPanelix* child, int index, const char* operation);
  bool remove(int index);
  bool replace(int index, NkPanelix* child);
  void clear();
  /// The child list has become a copy of one with that many children.
  void takeOver(int num);

  /// A walk through the children that stand there at its start. One that leaves meanwhile loses its turn, one that
  /// comes meanwhile gets none.
  class PANELIX_API Walk {
  public:
    explicit Walk(const Children& children);
    ~Walk();
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;
    /// NULL behind the last child.
    NkPanelix* next();

  private:
    friend class Children;
    void come(int index);
    void leave(int index);

    const Children& m_children;
    Walk* const m_outer; // Walks are nested as the calls are.
    int m_next = 0;
    int m_end;
    std::vector<int> m_newcomers; // Their places ahead of the end.
  };

  bool takesOtherNodes() const { return m_rules.takesOtherNodes; }
  /// In the writing stage, behind the fields.
  void writeChildren(NkWriteAction* action) const;
  /// What is below the container, itself looked at already.
  void search(NkSearchAction* action) const;
  void rayPick(NkRayPickAction* action) const;

private:
  bool endWindows(int index);
  bool checkChild(const NkPanelix* child, const char* operation) const;
  bool checkIndex(int index, int last, const char* operation) const;
  void postOutOfRange(const char* operation, const char* message, int index, int last) const;
  std::string locationOf(const char* operation) const;
  NkChildList& list() const { return *m_owner->getChildren(); }
  void come(int index);
  void leave(int index);

  NkPanelix* m_owner; ///< Holds this object.
  const ContainerRules& m_rules;
  int m_num = 0;
  mutable Walk* m_walk = nullptr; ///< The innermost one.
};

/// Reads the children of a container, which are of the given type; `addChild` gets each.
template <class Child, class AddChild>
bool readChildren(NkInput* in, AddChild&& addChild) {
  NkBase* child = nullptr;
  if (!in->isBinary()) {
    bool ok = true;
    for (;;) {
      ok = NkBase::read(in, child, Child::getClassTypeId()) && ok;
      if (!child) return ok;
      addChild(static_cast<Child*>(child));
    }
  }
  int count = 0;
  if (!in->read(count)) return false;
  for (int i = 0; i < count; ++i) {
    if (!NkBase::read(in, child, Child::getClassTypeId()) || !child) return false;
    addChild(static_cast<Child*>(child));
  }
  // The first version of the binary form closed the children with a mark.
  constexpr float kVersionWithMark = 1.0F;
  constexpr int kMark = -1;
  int mark = kMark;
  return in->getVersion() != kVersionWithMark || (in->read(mark) && mark == kMark);
}

/// A component of class `Base` that holds children of class `Child`: the operations on its children, and the ways of
/// the actions through them. What a class does after a change stands in its `afterChange`.
template <class Base, class Child>
class Container : public Base {
public:
  NkChildList* getChildren() const override { return Base::getChildren(); }
  bool isGroup() const override { return true; }

  void search(NkSearchAction* action) override {
    NkNode::search(action);
    m_childNodes.search(action);
  }
  void rayPick(NkRayPickAction* action) override {
    if (!this->isMissed(action)) m_childNodes.rayPick(action);
  }

  void write(NkWriteAction* action) override {
    NkOutput* out = action->getOutput();
    if (out->getStage() == NkOutput::COUNT_REFS) {
      this->addWriteReference(out);
      if (!this->hasMultipleWriteRefs()) action->traverseChildren(*getChildren(), 0, m_childNodes.getNum() - 1);
      return;
    }
    if (this->writeHeader(out, true)) return;
    this->getFieldData()->write(out, this);
    m_childNodes.writeChildren(action);
    this->endWrite(out);
  }

  // A sensor that hears of a change may drop the container and the child.

  /// A child goes behind the others, or ahead of the one at `index`; it is the container's from then on.
  virtual void addChild(Child* child) {
    const arbora::KeepAlive alive(this), childAlive(child);
    if (m_childNodes.insert(child, m_childNodes.getNum(), "addChild")) afterChange(Change::ADDED, child, -1);
  }
  virtual void insertChild(Child* child, int index) {
    const arbora::KeepAlive alive(this), childAlive(child);
    if (m_childNodes.insert(child, index, "insertChild")) afterChange(Change::INSERTED, child, index);
  }
  /// NULL, with a message, behind the last child.
  virtual Child* getChild(int index) const { return static_cast<Child*>(m_childNodes.get(index)); }
  virtual int getNumChildren() const { return m_childNodes.getNum(); }
  /// -1 if it isn't a child.
  virtual int findChild(const Child* child) const { return m_childNodes.find(child); }
  /// The child's windows go before its place does.
  virtual void removeChild(Child* child) { removeChild(findChild(child)); }
  virtual void removeChild(int index) {
    const arbora::KeepAlive alive(this);
    if (m_childNodes.remove(index)) afterChange(Change::REMOVED, nullptr, index);
  }
  /// The kit's own parts go, too.
  virtual void removeAllChildren() {
    const arbora::KeepAlive alive(this);
    m_childNodes.clear();
    afterChange(Change::CLEARED, nullptr, -1);
  }
  virtual void replaceChild(Child* oldChild, Child* newChild) { replaceChild(findChild(oldChild), newChild); }
  virtual void replaceChild(int index, Child* child) {
    const arbora::KeepAlive alive(this), childAlive(child);
    if (m_childNodes.replace(index, child)) afterChange(Change::REPLACED, child, index);
  }

protected:
  enum class Change { ADDED, INSERTED, REPLACED, REMOVED, CLEARED };

  explicit Container(const ContainerRules& rules) : m_childNodes(this, rules) {}
  ~Container() override = default;

  virtual bool readChildren(NkInput* in) {
    return panelix::readChildren<Child>(in, [this](Child* child) { addChild(child); });
  }

  /// Calls `use` with each child, in order. They may change meanwhile: what leaves isn't visited any more, what comes
  /// isn't visited yet.
  template <class Use>
  void forEachChild(Use&& use) const {
    Children::Walk walk(m_childNodes);
    while (auto* child = static_cast<Child*>(walk.next())) {
      const arbora::KeepAlive alive(child);
      use(child);
    }
  }

  /// The children have changed; `child` is the one that came, if one did.
  virtual void afterChange(Change, Child*, int) {}

  bool readInstance(NkInput* in, unsigned short flags) override {
    constexpr unsigned short kHasChildren = 2;
    const bool wasEnabled = this->enableNotify(false);
    // After a failure the node stays silent: it is thrown away.
    if (!this->getFieldData()->read(in, this)) return false;
    const bool ok = in->isBinary() && !(flags & kHasChildren) ? true : readChildren(in);
    this->enableNotify(wasEnabled);
    return ok;
  }

  void copyContents(const NkNode* original) override {
    Base::copyContents(original);
    // A child that can't be copied is missing.
    int num = 0;
    while (dynamic_cast<const Child*>(getChildren()->get(num))) ++num;
    m_childNodes.takeOver(num);
  }

  // How the kit's own operations reach the children. A node of another type counts as NULL, or it is the kit's; then it
  // stays behind the children.

  void internalAddChild(NkNode* node) override {
    if (goesToKit(node))
      Base::internalAddChild(node);
    else
      addChild(asChild(node));
  }
  void internalInsertChild(NkNode* node, int index) override {
    if (goesToKit(node))
      Base::internalInsertChild(node, isChildIndex(index) ? m_childNodes.getNum() : index);
    else
      insertChild(asChild(node), index);
  }
  int internalFindChild(const NkNode* node) const override {
    return goesToKit(node) ? Base::internalFindChild(node) : findChild(dynamic_cast<const Child*>(node));
  }
  void internalReplaceChild(int index, NkNode* node) override {
    if (!goesToKit(node)) {
      replaceChild(index, asChild(node));
    } else if (node && isChildIndex(index)) {
      const arbora::KeepAlive alive(this), nodeAlive(node);
      removeChild(index);
      Base::internalInsertChild(node, m_childNodes.getNum());
    } else {
      Base::internalReplaceChild(index, node);
    }
  }
  NkNode* internalGetChild(int index) const override { return getChild(index); }
  void internalRemoveChild(int index) override { removeChild(index); }
  void internalRemoveChild(NkNode* node) override { removeChild(asChild(node)); }
  void internalRemoveAllChildren() override { removeAllChildren(); }
  void internalReplaceChild(NkNode* oldNode, NkNode* newNode) override {
    replaceChild(asChild(oldNode), asChild(newNode));
  }

private:
  bool isChildIndex(int index) const { return index >= 0 && index < m_childNodes.getNum(); }
  static Child* asChild(NkNode* node) { return dynamic_cast<Child*>(node); }
  bool goesToKit(const NkNode* node) const {
    return m_childNodes.takesOtherNodes() && !dynamic_cast<const Child*>(node);
  }

  Children m_childNodes;
};

} // namespace panelix
