#include <atomic>
#include <string>

#include "arbora/scene/NkBase.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/ObjectReader.h"

namespace {

// In the flags of an object in the binary form: its children stand behind its fields.
constexpr int kHasChildren = 2;

} // namespace

// Reading

bool NkBase::read(NkInput* in, NkBase*& object, NkType expectedType, int readPathsToo) {
  return in->reader().read(object, expectedType, readPathsToo != 0);
}

// Writing

const char* NkBase::getFileFormatName() const { return getTypeId().getName().getString(); }

bool NkBase::isGroup() const { return false; }

void NkBase::addWriteReference(NkOutput* out, bool fromField) {
  if (fromField) {
    // A field follows one of this object's: that names the object, and doesn't write it.
    out->requireName(this);
    return;
  }
  const unsigned pass = arbora::WritePass::current();
  if (m_writeId != pass) {
    m_writeId = pass;
    m_writeRefs = 0;
  }
  ++m_writeRefs;
}

int NkBase::shouldWrite() const {
  const unsigned pass = arbora::WritePass::current();
  return pass != 0 && m_writeId == pass ? m_writeRefs : 0;
}

bool NkBase::hasMultipleWriteRefs() const { return shouldWrite() > 1; }

bool NkBase::writeHeader(NkOutput* out, bool isGroup, bool /*isEngine*/) {
  out->startLine();
  const bool isBinary = out->isBinary();
  const auto writeWord = [out, isBinary](std::string_view word) {
    if (isBinary) {
      out->writeText(word);
    } else {
      out->writeRaw(word);
      out->writeRaw(" ");
    }
  };
  if (hasMultipleWriteRefs() || !!getName() || out->needsName(this)) {
    const std::string& name = out->getFileName(this);
    const bool isWritten = out->markWritten(this);
    writeWord(isWritten ? "USE" : "DEF");
    out->writeObjectName(name);
    if (isWritten) return true;
    out->writeRaw(" ");
  }
  writeWord(getFileFormatName());
  if (isBinary) out->write(isGroup ? kHasChildren : 0);
  out->openBrace('{');
  return false;
}

void NkBase::writeFooter(NkOutput* out) const { out->closeBrace('}'); }

// Names on the network

const char* NkBase::getNetName() {
  if (!m_netName) generateNetName();
  return m_netName.getString();
}

void NkBase::setNetName(const NbString& name) { m_netName = NbName(name); }

void NkBase::generateNetName() {
  static std::atomic<unsigned> s_lastNumber{0};
  m_netName = NbName(NbString(std::string(getFileFormatName()) + "_" + std::to_string(++s_lastNumber)));
}
