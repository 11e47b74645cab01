#include "tests/scene/Trees.h"

#include <map>

#include "arbora/scene/NkChildList.h"
#include "arbora/scene/NkMField.h"
#include "arbora/scene/NkNode.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkSField.h"
#include "arbora/scene/NkWriteAction.h"

namespace {

class Comparison {
public:
  std::string compare(NkNode* a, NkNode* b, const std::string& where) {
    if (!a || !b) return a == b ? "" : where + ": one is NULL";
    const auto [pair, isNew] = m_pairs.emplace(a, b);
    if (!isNew) return pair->second == b ? "" : where + ": another object stands here";
    if (a->getTypeId() != b->getTypeId()) return where + ": types differ";
    if (a->getName() != b->getName())
      return where + ": names differ: " + a->getName().getString() + ", " + b->getName().getString();
    NkFieldList fieldsOfA;
    NkFieldList fieldsOfB;
    a->getAllFields(fieldsOfA);
    b->getAllFields(fieldsOfB);
    for (std::size_t i = 0; i < fieldsOfA.size(); ++i) {
      NbName name;
      a->getFieldName(fieldsOfA[i], name);
      const std::string difference =
          compareFields(*fieldsOfA[i], *fieldsOfB[i], where + "." + std::string(name.getString()));
      if (!difference.empty()) return difference;
    }
    const NkChildList* childrenOfA = a->getChildren();
    const NkChildList* childrenOfB = b->getChildren();
    if ((childrenOfA ? childrenOfA->getLength() : -1) != (childrenOfB ? childrenOfB->getLength() : -1))
      return where + ": numbers of children differ";
    for (int i = 0; childrenOfA && i < childrenOfA->getLength(); ++i) {
      const std::string difference =
          compare((*childrenOfA)[i], (*childrenOfB)[i], where + "[" + std::to_string(i) + "]");
      if (!difference.empty()) return difference;
    }
    return "";
  }

private:
  std::string compareFields(const NkField& a, const NkField& b, const std::string& where) {
    if (a.isDefault() != b.isDefault()) return where + ": default flags differ";
    if (a.isConnected() != b.isConnected()) return where + ": connections differ";
    if (a.isConnected() &&
        a.getConnectedField()->getContainer()->getName() != b.getConnectedField()->getContainer()->getName())
      return where + ": sources differ";
    if (a.getTypeId() == NkSFNode::getClassTypeId())
      return compare(static_cast<const NkSFNode&>(a).getValue(), static_cast<const NkSFNode&>(b).getValue(), where);
    if (a.getTypeId() == NkMFNode::getClassTypeId()) {
      const auto& nodesOfA = static_cast<const NkMFNode&>(a);
      const auto& nodesOfB = static_cast<const NkMFNode&>(b);
      if (nodesOfA.getNum() != nodesOfB.getNum()) return where + ": numbers of nodes differ";
      for (int i = 0; i < nodesOfA.getNum(); ++i) {
        const std::string difference = compare(nodesOfA[i], nodesOfB[i], where + "[" + std::to_string(i) + "]");
        if (!difference.empty()) return difference;
      }
      return "";
    }
    if (!a.isSame(b)) return where + ": values differ: " + a.get().toUtf8() + " and " + b.get().toUtf8();
    return "";
  }

  std::map<NkNode*, NkNode*> m_pairs;
};

} // namespace

std::string writeTree(NkNode* node, bool binary) {
  NkOutput out;
  out.setBinary(binary);
  NkWriteAction(&out).apply(node);
  return out.getString();
}

std::string treeDifference(NkNode* a, NkNode* b) { return Comparison().compare(a, b, "root"); }
