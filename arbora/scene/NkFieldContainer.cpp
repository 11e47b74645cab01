#include "arbora/scene/NkFieldContainer.h"

#include <string>

#include "arbora/scene/NkField.h"
#include "arbora/scene/NkFieldData.h"
#include "arbora/scene/NkSField.h"

NkType NkFieldContainer::s_classTypeId;

NkFieldContainer::~NkFieldContainer() = default;

NkType NkFieldContainer::getClassTypeId() { return s_classTypeId; }

void NkFieldContainer::initClass() { s_classTypeId = NkType::createType(NkBase::getClassTypeId(), "FieldContainer"); }

void NkFieldContainer::exitClass() {
  NkType::removeType("FieldContainer");
  s_classTypeId = NkType::badType();
}

bool NkFieldContainer::enableNotify(bool flag) {
  const bool previous = m_notifyEnabled;
  m_notifyEnabled = flag;
  return previous;
}

void NkFieldContainer::notifyDelete() {
  // While the object is whole, so that a delete callback finds its values. One that outlives the library has no table.
  if (const NkFieldData* data = getTypeId().isBad() ? nullptr : getFieldData()) {
    for (int i = 0; i < data->getNumFields(); ++i) {
      NkField* field = data->getField(this, i);
      if (field->m_listener) field->dropLinks();
    }
  }
  NkBase::notifyDelete();
}

void NkFieldContainer::notifyAbove(NkNotification&) {}

void NkFieldContainer::fieldHasChanged(NkField*) {}

bool NkFieldContainer::validateNewFieldValue(NkField*, void*) { return true; }

NkField* NkFieldContainer::getField(const NbName& name) const {
  const NkFieldData* data = getFieldData();
  const int index = data ? data->findField(name) : -1;
  return index < 0 ? nullptr : data->getField(this, index);
}

NkField* NkFieldContainer::getEventIn(const NbName& name) const {
  constexpr std::string_view kPrefix = "set_";
  if (NkField* field = getField(name)) return field;
  const std::string_view text = name.getView();
  return text.starts_with(kPrefix) ? getField(NbName(text.substr(kPrefix.size()))) : nullptr;
}

NkField* NkFieldContainer::getEventOut(const NbName& name) const {
  constexpr std::string_view kSuffix = "_changed";
  if (NkField* field = getField(name)) return field;
  const std::string_view text = name.getView();
  return text.ends_with(kSuffix) ? getField(NbName(text.substr(0, text.size() - kSuffix.size()))) : nullptr;
}

namespace {

bool isPartHolder(const NkField* field) {
  return field->getTypeId() == NkSFNode::getClassTypeId() && static_cast<const NkSFNode*>(field)->isPartHolder();
}

} // namespace

int NkFieldContainer::getFields(NkFieldList& fields) const {
  NkFieldList all;
  getAllFields(all);
  int count = 0;
  for (NkField* field : all) {
    if (isPartHolder(field)) continue;
    fields.push_back(field);
    ++count;
  }
  return count;
}

int NkFieldContainer::getAllFields(NkFieldList& fields) const {
  const NkFieldData* data = getFieldData();
  const int count = data ? data->getNumFields() : 0;
  for (int i = 0; i < count; ++i) fields.push_back(data->getField(this, i));
  return count;
}

bool NkFieldContainer::getFieldName(const NkField* field, NbName& name) const {
  const NkFieldData* data = getFieldData();
  const int index = data ? data->findField(this, field) : -1;
  if (index < 0) return false;
  name = data->getFieldName(index);
  return true;
}

bool NkFieldContainer::fieldsAreEqual(const NkFieldContainer* other) const {
  if (!other || other->getTypeId() != getTypeId()) return false;
  NkFieldList mine;
  NkFieldList theirs;
  getAllFields(mine);
  other->getAllFields(theirs);
  for (std::size_t i = 0; i < mine.size(); ++i) {
    if (!mine[i]->isSame(*theirs[i])) return false;
  }
  return true;
}

void NkFieldContainer::copyFieldValues(const NkFieldContainer* other) {
  if (!other || other->getTypeId() != getTypeId()) return;
  const arbora::KeepAlive alive(this);
  const arbora::KeepAlive otherAlive(other);
  NkFieldList mine;
  NkFieldList theirs;
  getAllFields(mine);
  other->getAllFields(theirs);
  for (std::size_t i = 0; i < mine.size(); ++i) {
    if (theirs[i]->isDefault() && mine[i]->isSame(*theirs[i])) continue;
    mine[i]->copyFrom(*theirs[i]);
    mine[i]->setDefault(theirs[i]->isDefault());
  }
}

bool NkFieldContainer::hasDefaultValues() const {
  NkFieldList fields;
  getAllFields(fields);
  for (const NkField* field : fields) {
    if (!field->isDefault()) return false;
  }
  return true;
}
