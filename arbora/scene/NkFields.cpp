#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkFieldContainer.h"
#include "arbora/scene/NkMField.h"
#include "arbora/scene/NkNode.h"
#include "arbora/scene/NkSField.h"

#define NK_FIELD_SOURCE(Class, Parent, Name)                                                    \
  NkType Class::classTypeId;                                                                    \
  void Class::initClass() { classTypeId = NkType::createType(Parent::getClassTypeId(), Name); } \
  void Class::exitClass() {                                                                     \
    NkType::removeType(Name);                                                                   \
    classTypeId = NkType::badType();                                                            \
  }                                                                                             \
  static_assert(true)

NK_FIELD_SOURCE(NkSFBool, NkField, "SFBool");
NK_FIELD_SOURCE(NkSFInt32, NkField, "SFInt32");
NK_FIELD_SOURCE(NkSFFloat, NkField, "SFFloat");
NK_FIELD_SOURCE(NkSFString, NkField, "SFString");
NK_FIELD_SOURCE(NkSFFilePathString, NkSFString, "SFFilePathString");
NK_FIELD_SOURCE(NkSFName, NkField, "SFName");
NK_FIELD_SOURCE(NkSFEnum, NkField, "SFEnum");
NK_FIELD_SOURCE(NkSFBitMask, NkSFEnum, "SFBitMask");
NK_FIELD_SOURCE(NkSFVec2i32, NkField, "SFVec2i32");
NK_FIELD_SOURCE(NkSFVec2f, NkField, "SFVec2f");
NK_FIELD_SOURCE(NkSFVec3f, NkField, "SFVec3f");
NK_FIELD_SOURCE(NkSFColor, NkField, "SFColor");
NK_FIELD_SOURCE(NkSFRotation, NkField, "SFRotation");
NK_FIELD_SOURCE(NkSFMatrix, NkField, "SFMatrix");
NK_FIELD_SOURCE(NkSFPlane, NkField, "SFPlane");
NK_FIELD_SOURCE(NkSFImage, NkField, "SFImage");
NK_FIELD_SOURCE(NkSFNode, NkField, "SFNode");
NK_FIELD_SOURCE(NkMFInt32, NkMField, "MFInt32");
NK_FIELD_SOURCE(NkMFFloat, NkMField, "MFFloat");
NK_FIELD_SOURCE(NkMFString, NkMField, "MFString");
NK_FIELD_SOURCE(NkMFVec2f, NkMField, "MFVec2f");
NK_FIELD_SOURCE(NkMFVec3f, NkMField, "MFVec3f");
NK_FIELD_SOURCE(NkMFColor, NkMField, "MFColor");
NK_FIELD_SOURCE(NkMFNode, NkMField, "MFNode");

NkType NkMField::s_classTypeId;

NkType NkMField::getClassTypeId() { return s_classTypeId; }

void NkMField::initClass() { s_classTypeId = NkType::createType(NkField::getClassTypeId(), "MField"); }

void NkMField::exitClass() {
  NkType::removeType("MField");
  s_classTypeId = NkType::badType();
}

bool NkMField::checkIndex(const char* operation, int index, std::size_t valueSize) {
  // Far above what a scene holds, and low enough that a stray index can't fill the memory.
  constexpr std::size_t kMostBytes = std::size_t{1} << 30U;
  const int limit = static_cast<int>(kMostBytes / std::max(valueSize, std::size_t{8}));
  if (index >= 0 && index < limit) return true;
  NkDebugError::post(operation, "Index %d is out of range %d - %d", index, 0, limit - 1);
  return false;
}

namespace {

// The node that a field belongs to, for being told of changes below the field's value.
NkNode* containerNode(const NkField& field) { return arbora::as<NkNode>(field.getContainer()); }

} // namespace

NkSFNode::~NkSFNode() {
  if (!m_value) return;
  if (m_linked) m_value->removeParent(m_linked);
  m_value->unref();
}

void NkSFNode::setValue(NkNode* node) {
  NkNode* previous = m_value;
  NkNode* previousLink = m_linked;
  m_linked = node && !m_partHolder ? containerNode(*this) : nullptr;
  m_value = node;
  if (node) node->ref();
  if (m_linked) node->addParent(m_linked);
  if (previous && previousLink) previous->removeParent(previousLink);
  valueChanged();
  // Last: the old value may be what kept this field's container alive.
  if (previous) previous->unref();
}

bool NkSFNode::isSame(const NkField& other) const {
  return getTypeId() == other.getTypeId() && m_value == static_cast<const NkSFNode&>(other).m_value;
}

void NkSFNode::copyFrom(const NkField& other) {
  if (getTypeId() == other.getTypeId()) setValue(static_cast<const NkSFNode&>(other).m_value);
}

NkMFNode::~NkMFNode() {
  for (NkNode* node : m_values) {
    if (node && m_linked) node->removeParent(m_linked);
    if (node) node->unref();
  }
}

void NkMFNode::setAll(std::vector<NkNode*> values) {
  NkNode* const previousLink = m_linked;
  m_linked = containerNode(*this);
  for (NkNode* node : values) {
    if (node) node->ref();
    if (node && m_linked) node->addParent(m_linked);
  }
  values.swap(m_values);
  for (NkNode* node : values) {
    if (node && previousLink) node->removeParent(previousLink);
  }
  valueChanged();
  // Last: the old values may be what kept this field's container alive.
  for (NkNode* node : values) {
    if (node) node->unref();
  }
}

void NkMFNode::setNum(int count) {
  if (!checkIndex("NkMFNode::setNum", std::max(count, 0), sizeof(NkNode*))) return;
  std::vector<NkNode*> values(m_values);
  values.resize(static_cast<std::size_t>(std::max(count, 0)));
  setAll(std::move(values));
}

void NkMFNode::setValue(NkNode* node) { setAll({node}); }

void NkMFNode::set1Value(int index, NkNode* node) {
  if (!checkIndex("NkMFNode::set1Value", index, sizeof(NkNode*))) return;
  std::vector<NkNode*> values(m_values);
  if (static_cast<std::size_t>(index) >= values.size()) values.resize(static_cast<std::size_t>(index) + 1);
  values[static_cast<std::size_t>(index)] = node;
  setAll(std::move(values));
}

void NkMFNode::insertSpace(int start, int count) {
  if (start < 0 || start > getNum() || count <= 0 || !checkIndex("NkMFNode::insertSpace", count, sizeof(NkNode*)))
    return;
  std::vector<NkNode*> values(m_values);
  values.insert(values.begin() + start, static_cast<std::size_t>(count), nullptr);
  setAll(std::move(values));
}

void NkMFNode::deleteValues(int start, int count) {
  const int first = std::clamp(start, 0, getNum());
  const int available = getNum() - first;
  const int number = count < 0 ? available : std::min(count, available);
  std::vector<NkNode*> values(m_values);
  values.erase(values.begin() + first, values.begin() + first + number);
  setAll(std::move(values));
}

int NkMFNode::find(const NkNode* node) const {
  const auto it = std::find(m_values.begin(), m_values.end(), node);
  return it == m_values.end() ? -1 : static_cast<int>(it - m_values.begin());
}

bool NkMFNode::isSame(const NkField& other) const {
  return getTypeId() == other.getTypeId() && m_values == static_cast<const NkMFNode&>(other).m_values;
}

void NkMFNode::copyFrom(const NkField& other) {
  if (getTypeId() == other.getTypeId()) setAll(static_cast<const NkMFNode&>(other).m_values);
}
