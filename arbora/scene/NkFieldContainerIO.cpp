#include <cstring>

#include "arbora/scene/NkField.h"
#include "arbora/scene/NkFieldContainer.h"
#include "arbora/scene/NkFieldData.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/ObjectReader.h"

bool NkFieldContainer::readInstance(NkInput* in, unsigned short /*flags*/) {
  const NkFieldData* fields = getFieldData();
  return !fields || fields->read(in, this);
}

bool NkFieldContainer::set(const char* fieldText) {
  const NkFieldData* fields = getFieldData();
  if (!fields) return false;
  NkInput in;
  in.setBuffer(fieldText, fieldText ? std::strlen(fieldText) : 0);
  return in.reader().readFields(fields, this);
}

void NkFieldContainer::addWriteReference(NkOutput* out, bool fromField) {
  NkBase::addWriteReference(out, fromField);
  const NkFieldData* fields = getFieldData();
  if (fromField || hasMultipleWriteRefs() || !fields) return;
  for (int i = 0; i < fields->getNumFields(); ++i) {
    const NkField* field = fields->getField(this, i);
    if (field->shouldWrite()) field->countWriteRefs(out);
  }
}
