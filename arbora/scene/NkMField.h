#pragma once

#include <algorithm>
#include <vector>

#include "arbora/scene/NkSField.h"

/// What the fields with any number of values have in common. Every change notifies once.
class ARBORA_API NkMField : public NkField {
public:
  virtual int getNum() const = 0;
  /// Shortens, or lengthens with default values; a negative number counts as 0.
  virtual void setNum(int count) = 0;
  /// Opens a gap of `count` default values at `start`. A start outside 0 to the number of values does nothing.
  virtual void insertSpace(int start, int count) = 0;
  /// Takes `count` values out, -1 for all from `start` on. A range outside the values is held within them.
  virtual void deleteValues(int start, int count = -1) = 0;

  static NkType getClassTypeId();
  static void initClass();
  static void exitClass();

protected:
  /// Posts a message for an index that no list of values of that size can have.
  static bool checkIndex(const char* operation, int index, std::size_t valueSize);

private:
  static NkType s_classTypeId;
};

/// Fields with any number of values of one type.
template <class T>
class NkMFieldOf : public NkMField {
public:
  using Value = T;
  int getNum() const override { return static_cast<int>(m_values.size()); }
  void setNum(int count) override {
    if (!checkIndex("NkMField::setNum", std::max(count, 0), sizeof(T))) return;
    m_values.resize(static_cast<std::size_t>(std::max(count, 0)));
    valueChanged();
  }
  /// The values from `start` on; valid until the field changes.
  const T* getValues(int start = 0) const { return m_values.data() + start; }
  const T& operator[](int index) const { return m_values[static_cast<std::size_t>(index)]; }

  /// Leaves just this value.
  void setValue(const T& value) {
    T copy(value);
    m_values.assign(1, std::move(copy));
    valueChanged();
  }
  /// Writes one value; past the end the field grows, with default values between.
  void set1Value(int index, const T& value) {
    if (!checkIndex("NkMField::set1Value", index, sizeof(T))) return;
    T copy(value);
    if (static_cast<std::size_t>(index) >= m_values.size()) m_values.resize(static_cast<std::size_t>(index) + 1);
    m_values[static_cast<std::size_t>(index)] = std::move(copy);
    valueChanged();
  }
  void setValues(int start, int count, const T* values) {
    const char* const operation = "NkMField::setValues";
    if (count <= 0 || !checkIndex(operation, start, sizeof(T)) || !checkIndex(operation, count, sizeof(T))) return;
    const std::vector<T> copy(values, values + count);
    const std::size_t end = static_cast<std::size_t>(start) + copy.size();
    if (end > m_values.size()) m_values.resize(end);
    std::copy(copy.begin(), copy.end(), m_values.begin() + start);
    valueChanged();
  }
  void setValues(std::vector<T> values) {
    m_values = std::move(values);
    valueChanged();
  }
  void insertSpace(int start, int count) override {
    if (start < 0 || start > getNum() || count <= 0 || !checkIndex("NkMField::insertSpace", count, sizeof(T))) return;
    m_values.insert(m_values.begin() + start, static_cast<std::size_t>(count), T());
    valueChanged();
  }
  void deleteValues(int start, int count = -1) override {
    const int first = std::clamp(start, 0, getNum());
    const int available = getNum() - first;
    const int number = count < 0 ? available : std::min(count, available);
    m_values.erase(m_values.begin() + first, m_values.begin() + first + number);
    valueChanged();
  }
  /// Index of the first equal value, or -1.
  int find(const T& value) const {
    const auto it = std::find(m_values.begin(), m_values.end(), value);
    return it == m_values.end() ? -1 : static_cast<int>(it - m_values.begin());
  }
  bool isSame(const NkField& other) const override {
    return getTypeId() == other.getTypeId() && m_values == static_cast<const NkMFieldOf&>(other).m_values;
  }
  void copyFrom(const NkField& other) override {
    if (getTypeId() == other.getTypeId()) setValues(static_cast<const NkMFieldOf&>(other).m_values);
  }
  bool readValue(NkInput* in) override {
    std::vector<T> values;
    if (!arbora::readFieldValues(in, values)) return false;
    setValues(std::move(values));
    return true;
  }
  void writeValue(NkOutput* out) const override { arbora::writeFieldValues(out, m_values); }

protected:
  std::vector<T> m_values;
};

// clang-format off
#define NK_MFIELD_HEADER(Class)                                                              \
  NK_FIELD_HEADER(Class);                                                                    \
                                                                                             \
 public:                                                                                     \
  Class() = default;                                                                         \
  Class& operator=(const Value& value) { setValue(value); return *this; }                    \
  Class& operator=(const Class& other) { copyFrom(other); return *this; }                    \
  static_assert(true)
// clang-format on

class ARBORA_API NkMFInt32 : public NkMFieldOf<int> {
  NK_MFIELD_HEADER(NkMFInt32);
};

class ARBORA_API NkMFFloat : public NkMFieldOf<float> {
  NK_MFIELD_HEADER(NkMFFloat);
};

class ARBORA_API NkMFString : public NkMFieldOf<NbString> {
  NK_MFIELD_HEADER(NkMFString);
  NkMFString& operator=(const char* value) {
    setValue(NbString(value));
    return *this;
  }
};

class ARBORA_API NkMFVec2f : public NkMFieldOf<NbVec2f> {
  NK_MFIELD_HEADER(NkMFVec2f);
};

class ARBORA_API NkMFVec3f : public NkMFieldOf<NbVec3f> {
  NK_MFIELD_HEADER(NkMFVec3f);
};

class ARBORA_API NkMFColor : public NkMFieldOf<NbColor> {
  NK_MFIELD_HEADER(NkMFColor);
};

/// References to nodes. Changes below them are passed up through the field's container.
class ARBORA_API NkMFNode : public NkMField {
  NK_FIELD_HEADER(NkMFNode);

public:
  NkMFNode() = default;
  ~NkMFNode() override;
  NkMFNode& operator=(const NkMFNode& other) {
    copyFrom(other);
    return *this;
  }
  int getNum() const override { return static_cast<int>(m_values.size()); }
  void setNum(int count) override;
  NkNode* operator[](int index) const { return m_values[static_cast<std::size_t>(index)]; }
  void setValue(NkNode* node);
  void set1Value(int index, NkNode* node);
  void insertSpace(int start, int count) override;
  void deleteValues(int start, int count = -1) override;
  int find(const NkNode* node) const;
  bool isSame(const NkField& other) const override;
  void copyFrom(const NkField& other) override;
  bool readValue(NkInput* in) override;
  void writeValue(NkOutput* out) const override;
  void countWriteRefs(NkOutput* out) const override;

private:
  void setAll(std::vector<NkNode*> values);
  std::vector<NkNode*> m_values;
  NkNode* m_linked = nullptr;
};
