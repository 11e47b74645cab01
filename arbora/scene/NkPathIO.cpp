#include "arbora/scene/FieldIO.h"
#include "arbora/scene/NkChildList.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkWriteAction.h"
#include "arbora/scene/ObjectReader.h"

// A path is written as its head, with as much below it as the path needs, and the indices of the children that it goes
// through.

bool NkPath::readInstance(NkInput* in, unsigned short /*flags*/) {
  arbora::Ref<NkBase> head;
  std::vector<int> indices;
  if (!in->reader().readValue(head, NkNode::getClassTypeId()) || !arbora::readFieldValues(in, indices)) return false;
  setHead(static_cast<NkNode*>(head.get()));
  for (const int index : indices) {
    const NkChildList* children = m_nodes.empty() ? nullptr : m_nodes.back().node->getChildren();
    NkNode* child = children ? children->get(index) : nullptr;
    if (!child) {
      in->error("the path leads to a child %d that isn't there", index);
      return false;
    }
    appendUnchecked(child, index);
  }
  return true;
}

void NkPath::write(NkWriteAction* action) {
  NkOutput* out = action->getOutput();
  if (out->getStage() == NkOutput::COUNT_REFS) {
    addWriteReference(out);
    if (!hasMultipleWriteRefs()) action->writePathNodes(this);
    return;
  }
  if (writeHeader(out, false)) return;
  action->writePathNodes(this);
  std::vector<int> indices;
  for (int i = 1; i < fullLength(); ++i) {
    // Children that aren't written don't count in the file.
    const NkChildList* children = getNode(i - 1)->getChildren();
    int index = 0;
    for (int sibling = 0; children && sibling < getIndex(i); ++sibling)
      index += (*children)[sibling]->shouldWrite() > 0 ? 1 : 0;
    indices.push_back(index);
  }
  out->startLine();
  arbora::writeFieldValues(out, indices);
  writeFooter(out);
}
