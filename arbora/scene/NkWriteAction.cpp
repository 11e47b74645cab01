#include "arbora/scene/NkWriteAction.h"

#include <algorithm>

#include "arbora/scene/NkNode.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkPath.h"

NkType NkWriteAction::s_classTypeId;

NkWriteAction::NkWriteAction(NkOutput* out)
    : m_ownOut(out ? nullptr : std::make_unique<NkOutput>()), m_out(out ? out : m_ownOut.get()) {}

NkWriteAction::~NkWriteAction() = default;

NkType NkWriteAction::getClassTypeId() { return s_classTypeId; }

NkType NkWriteAction::getTypeId() const { return s_classTypeId; }

void NkWriteAction::initClass() { s_classTypeId = NkType::createType(NkAction::getClassTypeId(), "WriteAction"); }

void NkWriteAction::exitClass() {
  NkType::removeType("WriteAction");
  s_classTypeId = NkType::badType();
}

template <class WriteStage>
void NkWriteAction::write(WriteStage writeStage) {
  if (isBusy()) return;
  const arbora::WritePass pass(m_out, this);
  writeStage();
  m_out->setStage(NkOutput::WRITE);
  m_out->writeFileHeader();
  writeStage();
  m_out->writeRaw("\n");
}

void NkWriteAction::apply(NkNode* root) {
  if (root) write([&] { NkAction::apply(root); });
}

void NkWriteAction::apply(NkPath* path) {
  if (path && path->getHead()) write([&] { path->write(this); });
}

void NkWriteAction::apply(const NkPathList& paths) {
  for (int i = 0; i < paths.getLength(); ++i) apply(paths[i]);
}

void NkWriteAction::dispatch(NkNode* node) { node->write(this); }

int NkWriteAction::getLastChild(int numChildren) const {
  int count = 0;
  const int* indices = nullptr;
  if (getPathCode(count, indices) != IN_PATH || count == 0) return numChildren - 1;
  return std::min(indices[count - 1], numChildren - 1);
}

void NkWriteAction::writeFieldNode(NkNode* node) {
  // Paths go through children: what they say about the present node is no concern of a node in its fields.
  if (getPathCode() != IN_PATH) {
    forwardTraversal(node);
    return;
  }
  NkWriteAction besidePath(m_out);
  besidePath.forwardTraversal(node);
}

void NkWriteAction::writePathNodes(NkPath* path) { NkAction::apply(path); }
