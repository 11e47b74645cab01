#include <algorithm>
#include <cstring>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/ListIO.h"
#include "arbora/scene/NkField.h"
#include "arbora/scene/NkFieldContainer.h"
#include "arbora/scene/NkFieldData.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkMField.h"
#include "arbora/scene/NkNode.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkSField.h"
#include "arbora/scene/NkWriteAction.h"
#include "arbora/scene/ObjectReader.h"

// Values as text

bool NkField::set(const char* text) {
  NkInput in;
  in.setBuffer(text, text ? std::strlen(text) : 0);
  if (!readValue(&in)) return false;
  if (!in.atEnd()) in.error("the end expected behind the value, found %s", in.describeNext().c_str());
  return !in.hasErrors();
}

NbString NkField::get() const {
  NkOutput out;
  NkWriteAction action(&out);
  const arbora::WritePass pass(&out, &action);
  countWriteRefs(&out);
  out.setStage(NkOutput::WRITE);
  writeValue(&out);
  return NbString::fromUtf8(out.getString());
}

void NkField::countWriteRefs(NkOutput* out) const {
  const NkField* source = getConnectedField();
  if (source && source->getContainer()) source->getContainer()->addWriteReference(out, true);
}

// Enums

namespace {

int findValue(const arbora::EnumData& enums, int value) {
  const auto it = std::find(enums.values.begin(), enums.values.end(), value);
  return it == enums.values.end() ? -1 : static_cast<int>(it - enums.values.begin());
}

std::string listNames(const arbora::EnumData& enums) {
  std::string text;
  for (std::size_t i = 0; i < enums.names.size(); ++i) {
    if (i > 0) text += i + 1 == enums.names.size() ? " or " : ", ";
    text += enums.names[i].getString();
  }
  return text;
}

/// Reads one name of the enum type.
bool readName(NkInput* in, const arbora::EnumData& enums, int& value) {
  const std::string_view name = in->peekName();
  for (std::size_t i = 0; i < enums.names.size(); ++i) {
    if (!name.empty() && enums.names[i].getView() == name) {
      in->take(name);
      value = enums.values[i];
      return true;
    }
  }
  in->error("%s expected, found %s", listNames(enums).c_str(), in->describeNext().c_str());
  return false;
}

bool checkEnums(NkInput* in, const arbora::EnumData* enums) {
  if (enums && !enums->names.empty()) return true;
  in->error("this field has no names for its values");
  return false;
}

int allBits(const arbora::EnumData& enums) {
  int bits = 0;
  for (const int value : enums.values) bits |= value;
  return bits;
}

} // namespace

bool NkSFEnum::readValue(NkInput* in) {
  int value = 0;
  if (!checkEnums(in, m_enums)) return false;
  if (!in->isBinary()) {
    if (!readName(in, *m_enums, value)) return false;
  } else {
    if (!in->read(value)) return false;
    if (findValue(*m_enums, value) < 0) {
      in->fatal("%d is no value of %s", value, m_enums->typeName.getString());
      return false;
    }
  }
  setValue(value);
  return true;
}

void NkSFEnum::writeValue(NkOutput* out) const {
  int index = m_enums ? findValue(*m_enums, getValue()) : -1;
  if (index < 0) {
    // A value without a name could not be read again.
    if (!m_enums || m_enums->names.empty()) {
      NkDebugError::post("NkSFEnum::writeValue", "The field has no names for its values");
      out->write(getValue());
      return;
    }
    index = 0;
    NkDebugError::post("NkSFEnum::writeValue", "%d has no name in %s; %s is written", getValue(),
                       m_enums->typeName.getString(), m_enums->names.front().getString());
  }
  const auto entry = static_cast<std::size_t>(index);
  if (out->isBinary())
    out->write(m_enums->values[entry]);
  else
    out->writeRaw(m_enums->names[entry].getView());
}

bool NkSFBitMask::readValue(NkInput* in) {
  int value = 0;
  if (!checkEnums(in, m_enums)) return false;
  if (in->isBinary()) {
    if (!in->read(value)) return false;
    if (value & ~allBits(*m_enums)) {
      in->fatal("%d has bits that aren't part of %s", value, m_enums->typeName.getString());
      return false;
    }
  } else if (in->take('(')) {
    while (!in->take(')')) {
      int bits = 0;
      if (!readName(in, *m_enums, bits)) return false;
      value |= bits;
      if (!in->take('|') && in->peek() != ')') {
        in->error("'|' or ')' expected, found %s", in->describeNext().c_str());
        return false;
      }
    }
  } else if (!readName(in, *m_enums, value)) {
    return false;
  }
  setValue(value);
  return true;
}

void NkSFBitMask::writeValue(NkOutput* out) const {
  if (!m_enums) {
    NkDebugError::post("NkSFBitMask::writeValue", "The field has no names for its values");
    out->write(getValue());
    return;
  }
  int rest = getValue();
  if (const int unnamed = rest & ~allBits(*m_enums)) {
    NkDebugError::post("NkSFBitMask::writeValue", "Bits %d have no name in %s; they aren't written", unnamed,
                       m_enums->typeName.getString());
    rest &= ~unnamed;
  }
  if (out->isBinary()) {
    out->write(rest);
    return;
  }
  const int exact = findValue(*m_enums, rest);
  if (exact >= 0) {
    out->writeRaw(m_enums->names[static_cast<std::size_t>(exact)].getView());
    return;
  }
  const int value = rest;
  const char* separator = "(";
  for (std::size_t i = 0; i < m_enums->values.size() && rest != 0; ++i) {
    const int bits = m_enums->values[i];
    if ((bits & value) != bits || (bits & rest) == 0) continue;
    out->writeRaw(separator);
    out->writeRaw(m_enums->names[i].getView());
    separator = " | ";
    rest &= ~bits;
  }
  out->writeRaw(value == 0 ? "()" : ")");
}

// Nodes

namespace {

bool readNode(NkInput* in, arbora::Ref<NkNode>& node) {
  arbora::Ref<NkBase> object;
  if (!in->reader().readValue(object, NkNode::getClassTypeId())) return false;
  node = arbora::Ref<NkNode>(static_cast<NkNode*>(object.get()));
  return true;
}

void writeNode(NkOutput* out, NkNode* node) {
  if (!node) {
    if (out->isBinary())
      out->writeText({});
    else
      out->writeRaw("NULL");
    return;
  }
  if (NkWriteAction* action = out->getAction()) action->writeFieldNode(node);
}

void countNode(NkOutput* out, NkNode* node) {
  NkWriteAction* action = out->getAction();
  if (action && node) action->writeFieldNode(node);
}

constexpr std::size_t kSmallestNode = 4; // Bytes in the binary form.

} // namespace

bool NkSFNode::readValue(NkInput* in) {
  arbora::Ref<NkNode> node;
  in->atEnd(); // Goes on to the value.
  const std::size_t position = in->getPosition();
  if (!readNode(in, node)) return false;
  NkFieldContainer* container = getContainer();
  if (node && container && !container->validateNewFieldValue(this, node.get())) {
    NbName name;
    container->getFieldName(this, name);
    in->errorAt(position, "a node of type %s can't be the value of the field '%s'",
                node->getTypeId().getName().getString(), name.getString());
    return false;
  }
  setValue(node.get());
  return true;
}

void NkSFNode::writeValue(NkOutput* out) const {
  if (m_value) out->announceValue();
  writeNode(out, m_value);
}

void NkSFNode::countWriteRefs(NkOutput* out) const {
  NkField::countWriteRefs(out);
  countNode(out, m_value);
}

bool NkMFNode::readValue(NkInput* in) {
  std::vector<arbora::Ref<NkNode>> nodes;
  if (!arbora::readList(in, nodes, kSmallestNode, [in](arbora::Ref<NkNode>& node) { return readNode(in, node); }))
    return false;
  std::vector<NkNode*> values;
  values.reserve(nodes.size());
  for (const arbora::Ref<NkNode>& node : nodes) values.push_back(node.get());
  setAll(std::move(values));
  return true;
}

void NkMFNode::writeValue(NkOutput* out) const {
  if (out->isBinary()) out->write(getNum());
  out->openBrace('[');
  for (NkNode* node : m_values) {
    if (!node) out->startLine();
    writeNode(out, node);
  }
  out->closeBrace(']');
}

void NkMFNode::countWriteRefs(NkOutput* out) const {
  NkField::countWriteRefs(out);
  for (NkNode* node : m_values) countNode(out, node);
}
