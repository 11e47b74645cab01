#include "arbora/scene/NkField.h"
#include "arbora/scene/NkFieldContainer.h"
#include "arbora/scene/NkFieldData.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/ObjectReader.h"

namespace {

// In the flags of a field in the binary form: the field follows another one, which is named behind the value.
constexpr int kIsConnected = 1;

constexpr std::size_t kSmallestField = 8; // Bytes in the binary form: the length of the name, and the flags.

/// Field `index` of the table is the one that a name most often stands for: files have fields in the table's order.
int findFrom(const NkFieldData& table, std::string_view name, int index) {
  const int count = table.getNumFields();
  for (int i = 0; i < count; ++i) {
    const int candidate = index + i < count ? index + i : index + i - count;
    if (table.getFieldName(candidate).getView() == name) return candidate;
  }
  return -1;
}

// Apart, to keep the frame of the text form small: it stands on the stack once for each level of nodes in fields.
[[gnu::noinline]] bool readBinary(const NkFieldData& table, NkInput* in, NkFieldContainer* container) {
  int count = 0;
  if (!in->readCount(count, kSmallestField)) return false;
  int next = 0;
  for (int i = 0; i < count; ++i) {
    std::string_view name;
    int flags = 0;
    if (!in->read(name)) return false;
    const std::size_t position = in->getTokenPosition();
    const int index = findFrom(table, name, next);
    if (index < 0) {
      in->reader().reportUnknownField(container, name, position);
      in->giveUp();
      return false;
    }
    next = index + 1;
    NkField* field = table.getField(container, index);
    if (!in->read(flags) || !field->readValue(in)) return false;
    if (flags & kIsConnected) {
      std::string_view text;
      if (!in->read(text)) return false;
      const std::string source(text);
      if (!in->read(text)) return false;
      in->reader().addConnection(container, field, source, text, in->getTokenPosition());
    }
  }
  return true;
}

/// The field that this one follows, if that is part of what is written.
const NkField* writtenSource(const NkField* field, NbName& name) {
  const NkField* source = field->getConnectedField();
  const NkFieldContainer* container = source ? source->getContainer() : nullptr;
  return container && container->shouldWrite() > 0 && container->getFieldName(source, name) ? source : nullptr;
}

} // namespace

bool NkFieldData::read(NkInput* in, NkFieldContainer* container, bool errorOnUnknownField) const {
  if (in->isBinary()) return readBinary(*this, in, container);
  int next = 0;
  while (!in->hasGivenUp()) {
    const std::string_view name = in->peekName();
    if (name.empty()) return true;
    const int index = findFrom(*this, name, next);
    if (index < 0) {
      if (!errorOnUnknownField) return true;
      in->reader().reportUnknownField(container, name, in->getTokenPosition());
      in->take(name);
      in->reader().resume(this);
      continue;
    }
    in->take(name);
    next = index + 1;
    // A bad value has failed the reading, which goes on only for what else may be wrong.
    if (!in->reader().readField(container, getField(container, index))) in->reader().resume(this);
  }
  return false;
}

void NkFieldData::write(NkOutput* out, const NkFieldContainer* container) const {
  if (out->getStage() != NkOutput::WRITE) return;
  const bool isBinary = out->isBinary();
  if (isBinary) {
    int count = 0;
    for (int i = 0; i < getNumFields(); ++i) count += getField(container, i)->shouldWrite() ? 1 : 0;
    out->write(count);
  }
  for (int i = 0; i < getNumFields(); ++i) {
    const NkField* field = getField(container, i);
    if (!field->shouldWrite()) continue;
    NbName sourceField;
    const NkField* source = writtenSource(field, sourceField);
    if (isBinary) {
      out->writeText(getFieldName(i).getView());
      out->write(source ? kIsConnected : 0);
    } else {
      out->startLine();
      out->writeRaw(getFieldName(i).getView());
      out->writeRaw(" ");
    }
    field->writeValue(out);
    if (!source) continue;
    out->writeRaw(" = ");
    out->writeObjectName(out->getFileName(source->getContainer()));
    if (isBinary) {
      out->writeText(sourceField.getView());
    } else {
      out->writeRaw(".");
      out->writeRaw(sourceField.getView());
    }
  }
}
