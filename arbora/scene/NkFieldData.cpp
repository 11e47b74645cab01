#include "arbora/scene/NkFieldData.h"

#include <algorithm>

#include "arbora/scene/NkField.h"
#include "arbora/scene/NkFieldContainer.h"

namespace {

// Fields are members of their container, so one offset finds the field in every instance of the class.
const char* address(const NkFieldContainer* container) { return reinterpret_cast<const char*>(container); }

} // namespace

NkFieldData::NkFieldData(const NkFieldData* parent) {
  if (parent) *this = *parent;
}

void NkFieldData::addField(NkFieldContainer* container, const char* name, const NkField* field) {
  m_fields.push_back({NbName(name), reinterpret_cast<const char*>(field) - address(container)});
}

NkField* NkFieldData::getField(const NkFieldContainer* container, int index) const {
  const char* field = address(container) + m_fields[static_cast<std::size_t>(index)].offset;
  return reinterpret_cast<NkField*>(const_cast<char*>(field));
}

int NkFieldData::findField(const NbName& name) const {
  for (std::size_t i = 0; i < m_fields.size(); ++i) {
    if (m_fields[i].name == name) return static_cast<int>(i);
  }
  return -1;
}

int NkFieldData::findField(const NkFieldContainer* container, const NkField* field) const {
  const std::ptrdiff_t offset = reinterpret_cast<const char*>(field) - address(container);
  for (std::size_t i = 0; i < m_fields.size(); ++i) {
    if (m_fields[i].offset == offset) return static_cast<int>(i);
  }
  return -1;
}

void NkFieldData::addEnumValue(const char* typeName, const char* valueName, int value) {
  const NbName type(typeName);
  for (const std::shared_ptr<arbora::EnumData>& data : m_enums) {
    if (data->typeName == type) {
      data->names.emplace_back(valueName);
      data->values.push_back(value);
      return;
    }
  }
  m_enums.push_back(std::make_shared<arbora::EnumData>(arbora::EnumData{type, {NbName(valueName)}, {value}}));
}

void NkFieldData::addEnum(const std::shared_ptr<arbora::EnumData>& data) {
  if (std::find(m_enums.begin(), m_enums.end(), data) == m_enums.end()) m_enums.push_back(data);
}

bool NkFieldData::getEnumData(const char* typeName, int& count, const int*& values, const NbName*& names) const {
  const arbora::EnumData* data = getEnumData(typeName);
  if (!data) return false;
  count = static_cast<int>(data->values.size());
  values = data->values.data();
  names = data->names.data();
  return true;
}

const arbora::EnumData* NkFieldData::getEnumData(const char* typeName) const {
  const std::string_view type(typeName);
  for (const std::shared_ptr<arbora::EnumData>& data : m_enums) {
    if (data->typeName.getView() == type) return data.get();
  }
  return nullptr;
}
