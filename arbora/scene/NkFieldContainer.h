#pragma once

#include <cstdint>
#include <vector>

#include "arbora/scene/NkBase.h"

class NkField;
class NkFieldData;
class NkNode;
struct NkNotification;

using NkFieldList = std::vector<NkField*>;

/// Object with fields. Notification of a field's write goes through its container.
class ARBORA_API NkFieldContainer : public NkBase {
public:
  static NkType getClassTypeId();
  static void initClass();
  static void exitClass();

  /// Switches notification on or off and gives the previous state. While it is off, neither writes of this object's
  /// fields nor changes below it are told to sensors on nodes and to containers above; sensors and connections of the
  /// fields themselves go on, and cached boxes and draw lists above are dropped all the same.
  bool enableNotify(bool flag);
  bool isNotifyEnabled() const { return m_notifyEnabled; }

  virtual const NkFieldData* getFieldData() const = 0;

  /// The field of that name; NULL if there is none.
  NkField* getField(const NbName& name) const;
  /// The field that an incoming event (`name` or `set_name`) or outgoing event (`name` or `name_changed`) stands for.
  NkField* getEventIn(const NbName& name) const;
  NkField* getEventOut(const NbName& name) const;
  /// Appends the fields that an application sees, in order of registration; gives their number.
  virtual int getFields(NkFieldList& fields) const;
  /// As `getFields`, with the holders of catalog parts.
  virtual int getAllFields(NkFieldList& fields) const;
  /// Finds a field's name; false if it isn't a field of this object.
  bool getFieldName(const NkField* field, NbName& name) const;

  bool fieldsAreEqual(const NkFieldContainer* other) const;
  void copyFieldValues(const NkFieldContainer* other);
  bool hasDefaultValues() const;
  /// Sets fields from scene text, such as "width 2 height 3".
  bool set(const char* fieldText);

  void setUserData(void* data) { m_userData = data; }
  void* getUserData() const { return m_userData; }

  /// Asked by text readers ahead of a new value; the class may refuse it.
  virtual bool validateNewFieldValue(NkField* field, void* newValue);

  /// Called at every write of one of this object's fields, before anything else hears of it.
  virtual void fieldHasChanged(NkField* field);

  /// The first use counts the nodes that the fields hold, too.
  void addWriteReference(NkOutput* out, bool fromField = false) override;

  /// Reads the fields; a name that is no field of the class is left for the caller.
  bool readInstance(NkInput* in, unsigned short flags) override;

protected:
  NkFieldContainer() = default;
  ~NkFieldContainer() override;

  void notifyDelete() override;

private:
  friend class NkField;
  /// A field of this object was written: tells what stands above. Nodes carry it up to their parents.
  virtual void notifyAbove(NkNotification& notification);

  static NkType s_classTypeId;
  void* m_userData = nullptr;
  bool m_notifyEnabled = true;

protected:
  /// Whether something above depends on this object, so that a change must go up.
  bool m_armed = true;
  /// Stamp of the last change.
  std::uint64_t m_changeId = 0;
};
