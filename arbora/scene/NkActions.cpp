#include "arbora/scene/NkCallbackAction.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkNode.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkSearchAction.h"

#define NK_ACTION_SOURCE(Class, Name)                                                               \
  NkType Class::s_classTypeId;                                                                      \
  NkType Class::getClassTypeId() { return s_classTypeId; }                                          \
  NkType Class::getTypeId() const { return s_classTypeId; }                                         \
  void Class::initClass() { s_classTypeId = NkType::createType(NkAction::getClassTypeId(), Name); } \
  void Class::exitClass() {                                                                         \
    NkType::removeType(Name);                                                                       \
    s_classTypeId = NkType::badType();                                                              \
  }                                                                                                 \
  static_assert(true)

NK_ACTION_SOURCE(NkGetBoundingBoxAction, "GetBoundingBoxAction");
NK_ACTION_SOURCE(NkGetMatrixAction, "GetMatrixAction");
NK_ACTION_SOURCE(NkSearchAction, "SearchAction");
NK_ACTION_SOURCE(NkCallbackAction, "CallbackAction");

// What a node does unless its class knows better

void NkNode::GLRender(NkGLRenderAction* action) { doAction(action); }

void NkNode::getBoundingBox(NkGetBoundingBoxAction* action) { doAction(action); }

void NkNode::getMatrix(NkGetMatrixAction* action) { doAction(action); }

void NkNode::handleEvent(NkHandleEventAction* action) { doAction(action); }

void NkNode::rayPick(NkRayPickAction* action) { doAction(action); }

void NkNode::callback(NkCallbackAction* action) { doAction(action); }

void NkNode::search(NkSearchAction* action) { action->checkNode(this); }

// Bounding box

NkGetBoundingBoxAction::NkGetBoundingBoxAction(const NbViewportRegion& viewport) : NkAction(viewport) {}

void NkGetBoundingBoxAction::beginTraversal() {
  m_box.makeEmpty();
  m_outerBoxes.clear();
}

void NkGetBoundingBoxAction::beginLocalBox() {
  m_outerBoxes.push_back(m_box);
  m_box.makeEmpty();
  m_state.model.makeIdentity();
}

NbBox3f NkGetBoundingBoxAction::endLocalBox() {
  const NbBox3f box(m_box);
  m_box = m_outerBoxes.back();
  m_outerBoxes.pop_back();
  return box;
}

void NkGetBoundingBoxAction::dispatch(NkNode* node) { node->getBoundingBox(this); }

void NkGetBoundingBoxAction::extendBy(const NbBox3f& localBox) {
  // Beside a path only the state counts.
  if (localBox.isEmpty() || getPathCode() == IN_PATH || getPathCode() == OFF_PATH) return;
  NbBox3f box(localBox);
  box.transform(m_state.model);
  m_box.extendBy(box);
}

NbBox3f NkGetBoundingBoxAction::measure(NkNode* node, const NkState& state) {
  const arbora::DeathPause pause;
  m_box.makeEmpty();
  m_state = state;
  m_state.model.makeIdentity();
  traverseChild(node, 0);
  return m_box;
}

NbBox3f NkGetBoundingBoxAction::measureWithin(const NkAction& traversal, NkNode* node) {
  return NkGetBoundingBoxAction(traversal.getViewportRegion()).measure(node, *traversal.getState());
}

// Matrix

NkGetMatrixAction::NkGetMatrixAction(const NbViewportRegion& viewport) : NkAction(viewport) {}

void NkGetMatrixAction::applyToEnd(NkNode* root) {
  if (isBusy()) return;
  m_isGoingToEnd = true;
  apply(root);
  m_isGoingToEnd = false;
}

void NkGetMatrixAction::dispatch(NkNode* node) {
  const unsigned visit = ++m_visits;
  node->getMatrix(this);
  if (visit == m_visits) m_end = m_state.model;
}

void NkGetMatrixAction::endTraversal() {
  if (m_isGoingToEnd) m_state.model = m_end;
}

// Search

NkSearchAction::NkSearchAction() = default;

NkSearchAction::~NkSearchAction() = default;

void NkSearchAction::setType(NkType type, bool derivedToo) {
  m_type = type;
  m_derivedToo = derivedToo;
}

void NkSearchAction::setName(const NbName& name) { m_name = name; }

void NkSearchAction::setNode(NkNode* node) { m_node = arbora::Ref<NkNode>(node); }

void NkSearchAction::reset() {
  m_interest = FIRST;
  m_type = NkType::badType();
  m_derivedToo = true;
  m_name = NbName();
  m_node = arbora::Ref<NkNode>();
  m_searchingAll = false;
  beginTraversal();
}

void NkSearchAction::beginTraversal() {
  m_found = false;
  m_path = arbora::Ref<NkPath>();
  m_paths.truncate(0);
  m_lastMatch.clear();
}

void NkSearchAction::endTraversal() { getPath(); }

NkPath* NkSearchAction::getPath() {
  if (!m_lastMatch.empty()) {
    m_path = arbora::Ref<NkPath>(makePath(m_lastMatch));
    m_lastMatch.clear();
  }
  return m_path.get();
}

void NkSearchAction::setFound() {
  m_found = true;
  setTerminated(true);
}

void NkSearchAction::checkNode(NkNode* node) {
  if (m_type.isBad() && !m_name && !m_node) return;
  if (!m_type.isBad() && node->getTypeId() != m_type && !(m_derivedToo && node->isOfType(m_type))) return;
  if ((!!m_name && node->getName() != m_name) || (m_node && m_node.get() != node)) return;
  switch (m_interest) {
    case FIRST:
      m_path = arbora::Ref<NkPath>(copyCurPath());
      setFound();
      break;
    case LAST:
      m_lastMatch = getSteps();
      break;
    default:
      m_paths.append(copyCurPath());
      break;
  }
}

void NkSearchAction::dispatch(NkNode* node) { node->search(this); }

// Callbacks

NkCallbackAction::NkCallbackAction() = default;

void NkCallbackAction::addPreCallback(NkType type, Callback* callback, void* data) {
  m_pre.push_back({type, callback, data});
}

void NkCallbackAction::addPostCallback(NkType type, Callback* callback, void* data) {
  m_post.push_back({type, callback, data});
}

NkCallbackAction::Response NkCallbackAction::invoke(const std::vector<Entry>& entries, NkNode* node) {
  Response response = CONTINUE;
  for (const Entry& entry : std::vector<Entry>(entries)) {
    if (!node->isOfType(entry.type)) continue;
    const Response answer = entry.callback(entry.data, this, node);
    if (answer == ABORT) {
      setTerminated(true);
      return ABORT;
    }
    if (answer == PRUNE) response = PRUNE;
  }
  return response;
}

void NkCallbackAction::dispatch(NkNode* node) {
  const Response response = invoke(m_pre, node);
  if (response == CONTINUE) node->callback(this);
  if (!hasTerminated()) invoke(m_post, node);
}
