#include <algorithm>
#include <atomic>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkSubNode.h"

namespace arbora {

void initNodeClass(const NodeClass& nodeClass, NkType (*parentType)(), void (*initParent)(),
                   NkType::CreateInstance createInstance, const NkFieldData** (*parentFieldData)()) {
  const NbThreadAutoLock lock(&nodeClass.classMutex);
  if (parentType().isBad()) {
    NkDebugError::post((std::string(nodeClass.className) + "::initClass").c_str(),
                       "%s initialized before parent class %s\n", nodeClass.className, nodeClass.parentClassName);
    initParent();
  }
  const int index = NkNode::getNextActionMethodIndex();
  nodeClass.classTypeId = NkType::createType(parentType(), nodeClass.typeName, createInstance, index & 0xffff);
  if (!nodeClass.parentFieldData) NkNode::incNextActionMethodIndex();
  nodeClass.parentFieldData = parentFieldData();
}

void exitNodeClass(const NodeClass& nodeClass) {
  if (!NkType::removeType(nodeClass.typeName)) {
    NkDebugError::post((std::string(nodeClass.className) + "::exitClass").c_str(),
                       "Unable to remove type (%s) for this class. Check exitClass() method is implemented and is "
                       "called only once.\n",
                       nodeClass.typeName);
    return;
  }
  nodeClass.classTypeId = NkType::badType();
  delete nodeClass.fieldData;
  nodeClass.fieldData = nullptr;
  nodeClass.parentFieldData = nullptr;
  nodeClass.firstInstance = 1;
}

namespace {

constexpr const char* kNotConstructed =
    "Instance not properly constructed.\nDid you forget to put NK_NODE_CONSTRUCTOR() in the constructor?";

} // namespace

const NkFieldData* missingFieldData(const NodeClass& nodeClass) {
  // Not the class's own: its next node is to find none and to fill one.
  static const NkFieldData s_noFields;
  // A node from before `finish` lives on after the next `init`.
  if (nodeClass.classTypeId.isBad()) NkDebugError::post(nodeClass.className, "%s", kNotConstructed);
  return &s_noFields;
}

NodeConstruction::NodeConstruction(const NodeClass& nodeClass, NkFieldContainer* object, void (*initClass)(),
                                   NkType objectType)
    : m_class(nodeClass), m_object(object) {
  const std::atomic_ref<int> isFirst(m_class.firstInstance);
  if (isFirst.load(std::memory_order_acquire) == 0) {
    // The table is whole: nothing is left to guard.
    NkTypedObject::checkDatabase(m_class.className, object, objectType, m_class.classTypeId);
    return;
  }
  m_class.classMutex.lock();
  m_locked = true;
  if (m_class.classTypeId.isBad()) {
    NkDebugError::post("NK_NODE_CONSTRUCTOR", "Can't construct a node of type %s until initClass() has been called",
                       m_class.className);
    m_class.classMutex.unlock();
    initClass();
    m_class.classMutex.lock();
    objectType = object->getTypeId();
  }
  NkTypedObject::checkDatabase(m_class.className, object, objectType, m_class.classTypeId);
  if (!m_class.fieldData) {
    m_class.fieldData = new NkFieldData(m_class.parentFieldData ? *m_class.parentFieldData : nullptr);
  } else {
    // Later constructors, on whatever thread, only read it.
    isFirst.store(0, std::memory_order_release);
    m_class.classMutex.unlock();
    m_locked = false;
  }
}

NodeConstruction::~NodeConstruction() {
  if (m_locked) m_class.classMutex.unlock();
}

void NodeConstruction::addField(const char* name, NkField* field, const char* sourceFile) {
  if (!m_class.fieldData) {
    NkDebugError::post(sourceFile, "%s", kNotConstructed);
    m_class.fieldData = new NkFieldData(m_class.parentFieldData ? *m_class.parentFieldData : nullptr);
  }
  if (isFirst()) const_cast<NkFieldData*>(m_class.fieldData)->addField(m_object, name, field);
}

namespace {

// The enum types of the classes, by class and type. They live for the process: nodes may outlive the tables of their
// classes, as skin parts do, and an enum field knows its names by them.
std::shared_ptr<EnumData>& classEnum(const char* className, const char* typeName) {
  static std::map<std::pair<NbName, NbName>, std::shared_ptr<EnumData>> s_enums;
  std::shared_ptr<EnumData>& data = s_enums[{NbName(className), NbName(typeName)}];
  if (!data) data = std::make_shared<EnumData>(EnumData{NbName(typeName), {}, {}});
  return data;
}

NbThreadMutex s_enumMutex;

} // namespace

void NodeConstruction::addEnumValue(const char* typeName, const char* valueName, int value) {
  if (!isFirst() || !m_class.fieldData) return;
  const NbThreadAutoLock lock(&s_enumMutex);
  const std::shared_ptr<EnumData>& data = classEnum(m_class.className, typeName);
  const_cast<NkFieldData*>(m_class.fieldData)->addEnum(data);
  const NbName name(valueName);
  if (std::find(data->names.begin(), data->names.end(), name) != data->names.end()) return;
  data->names.push_back(name);
  data->values.push_back(value);
}

const EnumData* NodeConstruction::getEnum(const char* fieldName, const char* typeName, const char* sourceFile,
                                          int line) {
  const EnumData* data = m_class.fieldData ? m_class.fieldData->getEnumData(typeName) : nullptr;
  if (!data && isFirst()) {
    NkDebugError::post("NK_SET_SF_ENUM_TYPE",
                       "Field %s (%s, line %d): Did you forget to use NK_%s_DEFINE_ENUM_VALUE(%s, ...)?", fieldName,
                       sourceFile, line, "NODE", typeName);
  }
  return data;
}

} // namespace arbora
