#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "arbora/base/NbName.h"
#include "arbora/scene/export.h"

class NkField;
class NkFieldContainer;
class NkInput;
class NkOutput;

namespace arbora {

/// Names and values of an enum or bit-mask type. `names[i]` stands for `values[i]`.
struct EnumData {
  NbName typeName;
  std::vector<NbName> names;
  std::vector<int> values;
};

} // namespace arbora

/// The table of fields and enum types of one class; made once per class from the table of its parent.
class ARBORA_API NkFieldData {
public:
  struct Entry {
    NbName name;
    std::ptrdiff_t offset;
  };

  NkFieldData() = default;
  explicit NkFieldData(const NkFieldData* parent);

  /// Adds a field, which must be a member of `container`.
  void addField(NkFieldContainer* container, const char* name, const NkField* field);
  int getNumFields() const { return static_cast<int>(m_fields.size()); }
  NbName getFieldName(int index) const { return m_fields[static_cast<std::size_t>(index)].name; }
  NkField* getField(const NkFieldContainer* container, int index) const;
  /// Index of the field of that name, or -1.
  int findField(const NbName& name) const;
  int findField(const NkFieldContainer* container, const NkField* field) const;

  void addEnumValue(const char* typeName, const char* valueName, int value);
  /// Adds an enum type whose values are kept elsewhere, too; the fields of that type may outlive this table.
  void addEnum(const std::shared_ptr<arbora::EnumData>& data);
  /// The values of an enum type. False if the type has none.
  bool getEnumData(const char* typeName, int& count, const int*& values, const NbName*& names) const;
  /// The same as one object, which lives as long as this table; NULL if the type has no values.
  const arbora::EnumData* getEnumData(const char* typeName) const;

  /// Reads fields up to the first name that is no field. With `errorOnUnknownField` such a name is an error.
  bool read(NkInput* in, NkFieldContainer* container, bool errorOnUnknownField = false) const;
  /// Writes all fields that don't have the default flag.
  void write(NkOutput* out, const NkFieldContainer* container) const;

private:
  std::vector<Entry> m_fields;
  std::vector<std::shared_ptr<arbora::EnumData>> m_enums;
};
