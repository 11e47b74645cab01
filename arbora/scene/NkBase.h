#pragma once

#include "arbora/base/NbName.h"
#include "arbora/base/NbString.h"
#include "arbora/scene/NkRefCounter.h"
#include "arbora/scene/NkTypedObject.h"

class NkInput;
class NkOutput;

namespace arbora {
class ObjectReader;
}

/// Named, readable, writable, reference-counted object with a run-time type.
class ARBORA_API NkBase : public NkRefCounter, public NkTypedObject {
public:
  static NkType getClassTypeId();
  static void initClass();
  static void exitClass();

  /// The name given with `DEF` or `setName`; empty if there is none. Names need not be unique.
  virtual NbName getName() const;
  virtual void setName(const NbName& name);

  /// Reads one object whose class derives from `expectedType`. True with `object` NULL when no object follows
  /// (a closing brace, the end of the text). False after an error, which is reported.
  static bool read(NkInput* in, NkBase*& object, NkType expectedType, int readPathsToo = 1);

  /// Name under which the class is written: the file keyword.
  virtual const char* getFileFormatName() const;

  /// Counts one use of this object by the tree that is being written.
  virtual void addWriteReference(NkOutput* out, bool fromField = false);
  /// More than 0 if the object takes part in the present writing: the counting stage has reached it.
  int shouldWrite() const;
  bool hasMultipleWriteRefs() const;

  /// Name on a cluster's network: generated on demand, settable.
  const char* getNetName();
  void setNetName(const NbString& name);
  void generateNetName();

  /// True for objects that are written with children behind their fields.
  virtual bool isGroup() const;

  /// Count of live objects, for leak checks.
  static int getLiveCount();

protected:
  NkBase();
  ~NkBase() override;

  void destroy() override;
  /// Tells everything that watches this object that it is about to go.
  virtual void notifyDelete();

  /// Writes `DEF`, name, class and opening brace, or `USE` and the name. True if the object stood in the output
  /// already, so that nothing else is to be written for it.
  bool writeHeader(NkOutput* out, bool isGroup, bool isEngine = false);
  void writeFooter(NkOutput* out) const;

  /// Reads the object's contents after its opening brace.
  virtual bool readInstance(NkInput* in, unsigned short flags) = 0;

private:
  friend class NkOutput;
  friend class arbora::ObjectReader;
  static NkType s_classTypeId;
  NbName m_name;
  NbName m_netName;
  // Bookkeeping of the writer. Valid while `m_writeId` is the id of the output's present pass.
  unsigned m_writeId = 0;
  int m_writeRefs = 0;
};
