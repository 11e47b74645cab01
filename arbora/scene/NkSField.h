#pragma once

#include <utility>

#include "arbora/base/NbColor.h"
#include "arbora/base/NbMatrix.h"
#include "arbora/base/NbPlane.h"
#include "arbora/base/NbRotation.h"
#include "arbora/base/NbVec2f.h"
#include "arbora/base/NbVec2i32.h"
#include "arbora/base/NbVec3f.h"
#include "arbora/scene/FieldIO.h"
#include "arbora/scene/NkField.h"

class NkNode;
namespace arbora {
struct EnumData;
}

/// Base of the fields with one value; every write notifies, also one that doesn't change the value.
template <class T>
class NkSField : public NkField {
public:
  using Value = T;
  const T& getValue() const { return m_value; }
  void setValue(const T& value) {
    m_value = value;
    valueChanged();
  }
  bool isSame(const NkField& other) const override {
    return getTypeId() == other.getTypeId() && m_value == static_cast<const NkSField&>(other).m_value;
  }
  void copyFrom(const NkField& other) override {
    if (getTypeId() == other.getTypeId()) setValue(static_cast<const NkSField&>(other).m_value);
  }
  bool readValue(NkInput* in) override {
    T value{};
    if (!arbora::readFieldValue(in, value)) return false;
    m_value = std::move(value);
    valueChanged();
    return true;
  }
  void writeValue(NkOutput* out) const override { arbora::writeFieldValue(out, m_value); }

  friend bool operator==(const NkSField& a, const NkSField& b) { return a.m_value == b.m_value; }
  friend bool operator!=(const NkSField& a, const NkSField& b) { return !(a.m_value == b.m_value); }

protected:
  NkSField() : m_value() {}
  T m_value;
};

// clang-format off
// What every field class carries beside its values.
#define NK_FIELD_HEADER(Class)                              \
 public:                                                    \
  static NkType getClassTypeId() { return classTypeId; }    \
  NkType getTypeId() const override { return classTypeId; } \
  static void initClass();                                  \
  static void exitClass();                                  \
                                                            \
 private:                                                   \
  static NkType classTypeId

#define NK_SFIELD_HEADER(Class)                                                             \
  NK_FIELD_HEADER(Class);                                                                   \
                                                                                            \
 public:                                                                                    \
  Class() = default;                                                                        \
  Class& operator=(const Value& value) { setValue(value); return *this; }                   \
  Class& operator=(const Class& other) { setValue(other.getValue()); return *this; }        \
  static_assert(true)
// clang-format on

class ARBORA_API NkSFBool : public NkSField<bool> {
  NK_SFIELD_HEADER(NkSFBool);
};

class ARBORA_API NkSFInt32 : public NkSField<int> {
  NK_SFIELD_HEADER(NkSFInt32);
};

class ARBORA_API NkSFFloat : public NkSField<float> {
  NK_SFIELD_HEADER(NkSFFloat);
};

class ARBORA_API NkSFString : public NkSField<NbString> {
  NK_SFIELD_HEADER(NkSFString);
  NkSFString& operator=(const char* value) {
    setValue(NbString(value));
    return *this;
  }
};

/// A string that names a file; written as it stands.
class ARBORA_API NkSFFilePathString : public NkSFString {
  NK_SFIELD_HEADER(NkSFFilePathString);
};

class ARBORA_API NkSFName : public NkSField<NbName> {
  NK_SFIELD_HEADER(NkSFName);
};

/// One of the named values of an enum type.
class ARBORA_API NkSFEnum : public NkSField<int> {
  NK_SFIELD_HEADER(NkSFEnum);
  void setEnums(const arbora::EnumData* enums) { m_enums = enums; }
  const arbora::EnumData* getEnums() const { return m_enums; }
  bool readValue(NkInput* in) override;
  void writeValue(NkOutput* out) const override;

protected:
  const arbora::EnumData* m_enums = nullptr; // Owned by the class's field table.
};

/// A set of named bits: `FRONT`, `(FRONT | SIDES)`, `ALL`, `NONE`.
class ARBORA_API NkSFBitMask : public NkSFEnum {
  NK_SFIELD_HEADER(NkSFBitMask);
  bool readValue(NkInput* in) override;
  void writeValue(NkOutput* out) const override;
};

class ARBORA_API NkSFVec2i32 : public NkSField<NbVec2i32> {
  NK_SFIELD_HEADER(NkSFVec2i32);
  using NkSField::setValue;
  void setValue(int x, int y) { setValue(NbVec2i32(x, y)); }
};

class ARBORA_API NkSFVec2f : public NkSField<NbVec2f> {
  NK_SFIELD_HEADER(NkSFVec2f);
  using NkSField::setValue;
  void setValue(float x, float y) { setValue(NbVec2f(x, y)); }
};

class ARBORA_API NkSFVec3f : public NkSField<NbVec3f> {
  NK_SFIELD_HEADER(NkSFVec3f);
  using NkSField::setValue;
  void setValue(float x, float y, float z) { setValue(NbVec3f(x, y, z)); }
};

class ARBORA_API NkSFColor : public NkSField<NbColor> {
  NK_SFIELD_HEADER(NkSFColor);
  using NkSField::setValue;
  void setValue(float red, float green, float blue) { setValue(NbColor(red, green, blue)); }
};

/// Written as an axis and an angle in radians.
class ARBORA_API NkSFRotation : public NkSField<NbRotation> {
  NK_SFIELD_HEADER(NkSFRotation);
  using NkSField::setValue;
  void setValue(const NbVec3f& axis, float radians) { setValue(NbRotation(axis, radians)); }
};

class ARBORA_API NkSFMatrix : public NkSField<NbMatrix> {
  NK_SFIELD_HEADER(NkSFMatrix);
};

/// Written as the normal and the distance from the origin.
class ARBORA_API NkSFPlane : public NkSField<NbPlane> {
  NK_SFIELD_HEADER(NkSFPlane);
};

/// An image: width, height, bytes per pixel (1 to 4) and the pixels, rows from the bottom up.
class ARBORA_API NkSFImage : public NkSField<arbora::Image> {
  NK_SFIELD_HEADER(NkSFImage);
};

/// A reference to a node, or NULL. A change below the node is passed up through the field's container.
class ARBORA_API NkSFNode : public NkField {
  NK_FIELD_HEADER(NkSFNode);

public:
  NkSFNode() = default;
  ~NkSFNode() override;
  NkNode* getValue() const { return m_value; }
  void setValue(NkNode* node);
  NkSFNode& operator=(NkNode* node) {
    setValue(node);
    return *this;
  }
  NkSFNode& operator=(const NkSFNode& other) {
    setValue(other.m_value);
    return *this;
  }
  bool isSame(const NkField& other) const override;
  void copyFrom(const NkField& other) override;
  bool readValue(NkInput* in) override;
  void writeValue(NkOutput* out) const override;
  void countWriteRefs(NkOutput* out) const override;

  /// Holder of a catalog part: the part stands in the kit's tree as well, which passes its changes up.
  void setPartHolder(bool flag) { m_partHolder = flag; }
  bool isPartHolder() const { return m_partHolder; }

private:
  NkNode* m_value = nullptr;
  NkNode* m_linked = nullptr; // The container, where it is told of changes.
  bool m_partHolder = false;
};
