#include "arbora/scene/NkGLRenderAction.h"

#include <algorithm>

#include "arbora/scene/DrawList.h"
#include "arbora/scene/NkNode.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkSeparator.h"

NkType NkGLRenderAction::s_classTypeId;

NkGLRenderAction::NkGLRenderAction(const NbViewportRegion& viewport) : NkAction(viewport) {}

NkGLRenderAction::~NkGLRenderAction() = default;

NkType NkGLRenderAction::getClassTypeId() { return s_classTypeId; }

NkType NkGLRenderAction::getTypeId() const { return s_classTypeId; }

void NkGLRenderAction::initClass() { s_classTypeId = NkType::createType(NkAction::getClassTypeId(), "GLRenderAction"); }

void NkGLRenderAction::exitClass() {
  NkType::removeType("GLRenderAction");
  s_classTypeId = NkType::badType();
}

// Settings

void NkGLRenderAction::setBackend(arbora::RenderBackend* backend) {
  if (m_backend == backend) return;
  dropLists();
  m_backend = backend;
}

void NkGLRenderAction::setBackgroundColor(const NbColor& color, float alpha) {
  m_background = color;
  m_backgroundAlpha = alpha;
}

void NkGLRenderAction::dropLists() { m_lists.clear(); }

// Application

arbora::DrawList& NkGLRenderAction::findList(NkNode* root) {
  // Roots that aren't drawn any more would keep their lists for ever, as only separators tell when they go.
  constexpr std::size_t kMaxLists = 16;
  std::erase_if(m_lists, [](const Kept& kept) { return kept.list->isRootGone(); });
  const auto it = std::find_if(m_lists.begin(), m_lists.end(), [root](const Kept& kept) { return kept.root == root; });
  if (it != m_lists.end() && it->list->belongsTo(root)) {
    std::rotate(it, it + 1, m_lists.end());
    return *m_lists.back().list;
  }
  if (it != m_lists.end()) m_lists.erase(it);
  if (m_lists.size() == kMaxLists) m_lists.erase(m_lists.begin());
  m_lists.push_back({root, std::make_unique<arbora::DrawList>(*this, root)});
  return *m_lists.back().list;
}

void NkGLRenderAction::drawList(arbora::DrawList& list) {
  list.flush();
  arbora::Frame frame;
  frame.viewport = getViewportRegion();
  frame.clear = m_clearing;
  frame.clearColor.setValue(m_background[0], m_background[1], m_background[2], m_backgroundAlpha);
  list.draw(frame);
}

void NkGLRenderAction::apply(NkNode* root) {
  if (!root || isBusy()) return;
  // Until the frame is drawn: the list points to cameras and images.
  const arbora::DeathPause pause;
  const arbora::KeepAlive alive(root);
  m_statistics = Statistics();
  arbora::DrawList& list = findList(root);
  m_target = &list;
  list.update(root);
  m_target = nullptr;
  drawList(list);
}

template <class Target>
void NkGLRenderAction::drawUnkept(const Target& target) {
  if (isBusy()) return;
  const arbora::DeathPause pause;
  m_statistics = Statistics();
  arbora::DrawList list(*this);
  m_target = &list;
  list.fill([&] { NkAction::apply(target); });
  m_target = nullptr;
  drawList(list);
}

void NkGLRenderAction::apply(NkPath* path) { drawUnkept(path); }

void NkGLRenderAction::apply(const NkPathList& paths) { drawUnkept(paths); }

// Traversal

void NkGLRenderAction::beginTraversal() {
  if (m_target) m_target->startState(m_state);
}

void NkGLRenderAction::dispatch(NkNode* node) {
  ++m_statistics.visitedNodes;
  node->GLRender(this);
}

void NkGLRenderAction::drawMesh(const arbora::PlacedMesh& placed) {
  // Beside a path only the state counts.
  if (m_target && getPathCode() != IN_PATH && getPathCode() != OFF_PATH) m_target->addMesh(placed, m_state);
}

void NkGLRenderAction::useCamera(NkCamera* camera) {
  if (m_target) m_target->addCamera(camera, m_state.model);
}

void NkGLRenderAction::renderSeparator(NkSeparator* separator) {
  if (m_target) m_target->visitSeparator(separator, m_state);
}
