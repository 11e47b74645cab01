// Reads any bytes as a scene, writes what could be read, and reads that again: which must work then. The first byte
// tells the form: text by itself, or with the header of the text form or of the binary one.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkInteraction.h"
#include "arbora/scene/NkNodeKit.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkWriteAction.h"

namespace {

using arbora::Ref;

constexpr const char* kHeaders[] = {"", "#Arbora V2.1 ascii\n", "#Arbora V2.1 binary\n", "#Arbora V1.0 binary\n"};

Ref<NkSeparator> read(const std::string& file) {
  NkInput in;
  in.setBuffer(file.data(), file.size());
  return Ref<NkSeparator>(NkDB::readAll(&in));
}

std::string written(NkNode* root, bool binary) {
  NkOutput out;
  out.setBinary(binary);
  NkWriteAction(&out).apply(root);
  return out.getString();
}

void ignore(int /*severity*/, const char* /*location*/, const char* /*text*/, void* /*data*/) {}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  NkDB::init();
  NkNodeKit::init();
  NkInteraction::init();
  NkDebugError::setHandler(ignore, nullptr);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string file = kHeaders[data[0] % 4] + std::string(reinterpret_cast<const char*>(data + 1), size - 1);
  const int before = NkBase::getLiveCount();
  if (const Ref<NkSeparator> root = read(file)) {
    for (int i = 0; i < root->getNumChildren(); ++i) {
      for (const bool binary : {false, true}) {
        const std::string copy = written(root->getChild(i), binary);
        const Ref<NkSeparator> again = read(copy);
        if (!again || written(again->getChild(0), binary) != copy) std::abort();
      }
    }
  }
  if (NkBase::getLiveCount() != before) std::abort();
  return 0;
}
