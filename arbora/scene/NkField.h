#pragma once

#include <vector>

#include "arbora/base/NbName.h"
#include "arbora/base/NbString.h"
#include "arbora/scene/NkType.h"
#include "arbora/scene/export.h"

class NkDataSensor;
class NkFieldContainer;
class NkInput;
class NkOutput;

/// A value that belongs to a field container. Every write clears the default flag and notifies: first the
/// container, then the field's sensors and the fields connected from it, then everything above the container.
class ARBORA_API NkField {
public:
  virtual ~NkField();
  NkField(const NkField&) = delete;
  NkField& operator=(const NkField&) = delete;

  virtual NkType getTypeId() const = 0;

  NkFieldContainer* getContainer() const { return m_container; }
  void setContainer(NkFieldContainer* container) { m_container = container; }

  /// What sort of field it is to its class; 5 is an ordinary field that can be read, written and connected.
  int getFieldType() const { return m_fieldType; }
  void setFieldType(int type) { m_fieldType = static_cast<signed char>(type); }

  /// A field with the default flag isn't written out. Every write of a value clears the flag.
  bool isDefault() const { return m_isDefault; }
  void setDefault(bool isDefault) { m_isDefault = isDefault; }

  /// Makes this field follow `source`: it takes the value at once and at every later write. Both must be of one
  /// type; a field that follows itself over a ring of connections stops after one round. A field has one source. A
  /// change goes on over some hundred connections in a row; what is behind them doesn't follow, which is posted.
  bool connectFrom(NkField* source);
  void disconnect();
  /// Takes the connection off only if it comes from `source`.
  void disconnect(NkField* source);
  bool isConnected() const { return getConnectedField() != nullptr; }
  NkField* getConnectedField() const { return m_hasLinks ? static_cast<Links*>(m_listener)->source : nullptr; }

  /// Notifies as a write does, without a new value and without touching the default flag.
  void touch();

  /// Sets the value from scene text. False, with a message, if the text can't be read.
  bool set(const char* text);
  /// The value as scene text.
  NbString get() const;

  virtual bool isSame(const NkField& other) const = 0;
  /// Takes the value of a field of the same type; does nothing with another.
  virtual void copyFrom(const NkField& other) = 0;

  /// Reads or writes the value alone, without the field's name.
  virtual bool readValue(NkInput* in) = 0;
  virtual void writeValue(NkOutput* out) const = 0;
  /// Counts the references that the value makes to nodes, ahead of writing.
  virtual void countWriteRefs(NkOutput* out) const;
  bool shouldWrite() const { return !m_isDefault; }

  static NkType getClassTypeId();
  static void initClass();
  static void exitClass();

protected:
  NkField() = default;
  /// Every setter ends here.
  void valueChanged() {
    m_isDefault = false;
    if (m_container || m_listener) notify();
  }

private:
  friend class NkFieldContainer;
  friend class NkFieldSensor;

  // Made on demand: most fields have no listener, and most of the others a single sensor.
  struct Links {
    NkField* source = nullptr;
    // Slots are emptied, not removed, while `depth` isn't 0.
    std::vector<NkField*> targets;
    std::vector<NkDataSensor*> sensors;
    int depth = 0;
    bool notifying = false;
  };
  Links* links() const { return m_hasLinks ? static_cast<Links*>(m_listener) : nullptr; }
  Links& makeLinks();
  NkDataSensor* firstSensor() const;
  void addSensor(NkDataSensor* sensor);
  void removeSensor(NkDataSensor* sensor);
  void notify();
  void notifyLinks();
  void writeTargets(Links& state);
  void dropLinks();

  static NkType s_classTypeId;
  NkFieldContainer* m_container = nullptr;
  void* m_listener = nullptr; // The only sensor, or the links, which are owned.
  signed char m_fieldType = 0;
  bool m_isDefault = true;
  bool m_hasLinks = false;
};
