#include "arbora/scene/NkGroup.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkWriteAction.h"

namespace {

// In the flags of an object in the binary form: its children stand behind its fields.
constexpr unsigned short kHasChildren = 2;

// What closed the children in the first version of the binary form.
constexpr float kVersionWithMark = 1.0F;
constexpr int kChildrenMark = -1;

} // namespace

// Reading

bool NkNode::readInstance(NkInput* in, unsigned short flags) {
  const bool wasEnabled = enableNotify(false);
  const bool ok = NkFieldContainer::readInstance(in, flags);
  enableNotify(wasEnabled);
  return ok;
}

bool NkGroup::readInstance(NkInput* in, unsigned short flags) {
  if (!NkNode::readInstance(in, flags)) return false;
  const bool wasEnabled = enableNotify(false);
  const bool ok = in->isBinary() && !(flags & kHasChildren) ? true : readChildren(in);
  enableNotify(wasEnabled);
  return ok;
}

bool NkGroup::readChildren(NkInput* in) {
  NkBase* child = nullptr;
  if (!in->isBinary()) {
    bool ok = true;
    for (;;) {
      ok = NkBase::read(in, child, NkNode::getClassTypeId()) && ok;
      if (!child) return ok;
      addChild(static_cast<NkNode*>(child));
    }
  }
  int count = 0;
  if (!in->read(count)) return false;
  for (int i = 0; i < count; ++i) {
    if (!NkBase::read(in, child, NkNode::getClassTypeId()) || !child) return false;
    addChild(static_cast<NkNode*>(child));
  }
  int mark = kChildrenMark;
  return in->getVersion() != kVersionWithMark || (in->read(mark) && mark == kChildrenMark);
}

// Writing

namespace {

// An object that was made ahead of the library's last `finish` has no table until another one of its class is made.
void writeFields(const NkNode* node, NkOutput* out) {
  if (const NkFieldData* fields = node->getFieldData())
    fields->write(out, node);
  else if (out->isBinary())
    out->write(0);
}

} // namespace

void NkNode::write(NkWriteAction* action) {
  NkOutput* out = action->getOutput();
  if (out->getStage() == NkOutput::COUNT_REFS) {
    addWriteReference(out);
    return;
  }
  if (writeHeader(out, false)) return;
  writeFields(this, out);
  writeFooter(out);
}

void NkGroup::write(NkWriteAction* action) {
  NkOutput* out = action->getOutput();
  const int last = action->getLastChild(getNumChildren());
  // Beside a path, too, all children up to it are written: the indices of the path stay right.
  if (out->getStage() == NkOutput::COUNT_REFS) {
    addWriteReference(out);
    for (int i = 0; i <= last && !hasMultipleWriteRefs(); ++i) action->traverseChild(m_children[i], i);
    return;
  }
  if (writeHeader(out, true)) return;
  writeFields(this, out);
  if (out->isBinary()) {
    int count = 0;
    for (int i = 0; i <= last; ++i) count += m_children[i]->shouldWrite() > 0 ? 1 : 0;
    out->write(count);
  }
  for (int i = 0; i <= last; ++i) {
    if (m_children[i]->shouldWrite() > 0) action->traverseChild(m_children[i], i);
  }
  writeFooter(out);
}

void NkSwitch::write(NkWriteAction* action) {
  // All children, whatever is shown.
  NkGroup::write(action);
}
