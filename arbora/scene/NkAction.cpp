#include "arbora/scene/NkAction.h"

#include <algorithm>
#include <optional>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkChildList.h"
#include "arbora/scene/NkNode.h"
#include "arbora/scene/NkPath.h"

NkType NkAction::s_classTypeId;

NkAction::NkAction() = default;

NkAction::NkAction(const NbViewportRegion& viewport) : m_viewport(viewport) {}

NkAction::~NkAction() = default;

NkType NkAction::getClassTypeId() { return s_classTypeId; }

void NkAction::initClass() { s_classTypeId = NkType::createType(NkType::badType(), "Action"); }

void NkAction::exitClass() {
  NkType::removeType("Action");
  s_classTypeId = NkType::badType();
}

bool NkAction::isBusy() const {
  if (m_steps.empty()) return false;
  NkDebugError::post("NkAction::apply", "An action of type %s can't be applied from inside its own traversal",
                     getTypeId().getName().getString());
  return true;
}

void NkAction::apply(NkNode* root) {
  if (!root || isBusy()) return;
  m_paths.clear();
  m_nextIndices.clear();
  m_pathCode = NO_PATH;
  traverseRoot(root);
}

void NkAction::apply(NkPath* path) {
  if (!path || !path->getHead() || isBusy()) return;
  const arbora::Ref<NkPath> keep(path);
  m_paths.assign(1, path->full());
  m_pathCode = IN_PATH;
  enterPath(-1);
  traverseRoot(path->getHead());
}

void NkAction::apply(const NkPathList& paths) {
  if (isBusy()) return;
  // The paths from one head are walked together, so that what they share is visited once.
  for (const NkPathList& together : paths.splitByHead()) {
    m_paths.clear();
    for (int i = 0; i < together.getLength(); ++i) m_paths.push_back(together[i]->full());
    m_pathCode = IN_PATH;
    enterPath(-1);
    traverseRoot(together[0]->getHead());
  }
}

void NkAction::invalidateState() {
  m_state = NkState();
  m_viewVolumes.clear();
}

NkAction::PathCode NkAction::getPathCode(int& count, const int*& indices) const {
  count = static_cast<int>(m_nextIndices.size());
  indices = m_nextIndices.data();
  return m_pathCode;
}

NkFullPath* NkAction::makePath(const std::vector<Step>& steps) {
  NkFullPath* path = NkPath::create();
  for (const Step& step : steps) path->appendUnchecked(step.node, step.index);
  return path;
}

NkFullPath* NkAction::copyCurPath() const { return makePath(m_steps); }

void NkAction::setViewVolume(const NbViewVolume& volume) {
  m_viewVolumes.push_back(std::make_unique<NbViewVolume>(volume));
  m_state.viewVolume = m_viewVolumes.back().get();
}

void NkAction::traverseRoot(NkNode* root) {
  const arbora::KeepAlive alive(root);
  std::optional<arbora::DeathPause> pause;
  if (holdsNodes()) pause.emplace();
  invalidateState();
  m_terminated = false;
  m_depthReported = false;
  m_stateStack.clear();
  m_placeDepth = 0;
  beginTraversal();
  visit(root, -1);
  endTraversal();
  m_paths.clear();
  m_nextIndices.clear();
  m_pathCode = NO_PATH;
}

void NkAction::enterPath(int index) {
  // The paths that go through the child `index`, and where they go on from it.
  const std::size_t depth = m_steps.size(); // Of the node that is entered.
  if (index >= 0) {
    std::erase_if(m_paths, [&](const NkFullPath* path) {
      return path->getLength() <= static_cast<int>(depth) || path->getIndex(static_cast<int>(depth)) != index;
    });
  }
  m_nextIndices.clear();
  if (m_paths.empty()) {
    m_pathCode = OFF_PATH;
    return;
  }
  m_pathCode = IN_PATH;
  for (const NkFullPath* path : m_paths) {
    if (path->getLength() == static_cast<int>(depth) + 1) {
      // A path that ends here takes in all that is below.
      m_pathCode = BELOW_PATH;
      m_nextIndices.clear();
      return;
    }
    m_nextIndices.push_back(path->getIndex(static_cast<int>(depth) + 1));
  }
  std::sort(m_nextIndices.begin(), m_nextIndices.end());
  m_nextIndices.erase(std::unique(m_nextIndices.begin(), m_nextIndices.end()), m_nextIndices.end());
}

void NkAction::enterNode(NkNode* node, int index) {
  m_steps.push_back({node, index});
  node->arm();
}

void NkAction::visit(NkNode* node, int index) {
  enterNode(node, index);
  dispatch(node);
  m_steps.pop_back();
}

void NkAction::enterPlace(int index) {
  if (m_placeDepth == m_placeStack.size()) m_placeStack.emplace_back();
  Place& above = m_placeStack[m_placeDepth++];
  above.paths = m_paths;
  above.nextIndices = m_nextIndices;
  enterPath(index);
}

void NkAction::leavePlace() {
  Place& above = m_placeStack[--m_placeDepth];
  m_paths.swap(above.paths);
  m_nextIndices.swap(above.nextIndices);
  m_pathCode = IN_PATH;
}

void NkAction::visitInPath(NkNode* node, int index) {
  enterPlace(index);
  visit(node, index);
  leavePlace();
}

void NkAction::forwardTraversal(NkNode* node) {
  const arbora::KeepAlive alive(node);
  if (node) dispatch(node);
}

bool NkAction::mayEnter(const NkNode* child) {
  if (m_steps.size() >= static_cast<std::size_t>(kMaxDepth)) {
    if (!m_depthReported)
      NkDebugError::post("NkAction::traverse", "The scene is nested deeper than %d levels; what is below isn't visited",
                         kMaxDepth);
    m_depthReported = true;
    return false;
  }
  if (child->getChildren() &&
      std::any_of(m_steps.begin(), m_steps.end(), [child](const Step& step) { return step.node == child; })) {
    if (!m_depthReported)
      NkDebugError::post("NkAction::traverse", "A node of type %s contains itself; it isn't visited again",
                         child->getTypeId().getName().getString());
    m_depthReported = true;
    return false;
  }
  return true;
}

void NkAction::traverseChild(NkNode* child, int index) {
  if (!mayEnter(child)) return;
  // The visit may take the child out of the scene.
  const arbora::KeepAlive alive(child);
  if (m_pathCode == IN_PATH)
    visitInPath(child, index);
  else
    visit(child, index);
}

void NkAction::traverseChildren(NkChildList& children, int first, int last) {
  if (!visitsBelowPath() && (m_pathCode == BELOW_PATH || m_pathCode == NO_PATH)) return;
  if (m_pathCode != IN_PATH) {
    for (int i = std::max(first, 0); i <= last && i < children.getLength() && !m_terminated; ++i)
      traverseChild(children[i], i);
    return;
  }
  // A visit leaves the indices as they were.
  for (int i = std::max(first, 0);
       i <= std::min(last, m_nextIndices.back()) && i < children.getLength() && !m_terminated; ++i) {
    if (std::binary_search(m_nextIndices.begin(), m_nextIndices.end(), i) || children[i]->affectsState())
      traverseChild(children[i], i);
  }
}

NkAction::StateScope::StateScope(NkAction* action) : m_action(action) {
  action->m_stateStack.push_back(action->m_state);
}

NkAction::StateScope::~StateScope() {
  // What was used inside stays used.
  const unsigned used = m_action->m_state.usedInherited;
  m_action->m_state = m_action->m_stateStack.back();
  m_action->m_state.usedInherited |= used;
  m_action->m_stateStack.pop_back();
}
