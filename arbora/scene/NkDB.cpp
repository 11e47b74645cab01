#include "arbora/scene/NkDB.h"

#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/ObjectReader.h"
#include "arbora/scene/SceneClasses.h"

namespace {
int s_initCount = 0;
}

void NkDB::init() {
  if (s_initCount++ == 0) arbora::initSceneClasses();
}

void NkDB::finish() {
  if (s_initCount > 0 && --s_initCount == 0) arbora::exitSceneClasses();
}

bool NkDB::isInitialized() { return s_initCount > 0; }

const char* NkDB::getVersion() { return "Arbora 2.1"; }

NkSeparator* NkDB::readAll(NkInput* in) {
  arbora::Ref<NkSeparator> root(new NkSeparator);
  const auto take = [&root](NkBase* object) { root->addChild(static_cast<NkNode*>(object)); };
  if (!in->reader().readAll(NkNode::getClassTypeId(), take)) return nullptr;
  NkSeparator* result = root.get();
  result->ref();
  root = nullptr;
  result->unrefNoDelete();
  return result;
}

bool NkDB::read(NkInput* in, NkNode*& node) {
  node = nullptr;
  NkBase* object = nullptr;
  if (!NkBase::read(in, object, NkNode::getClassTypeId(), 0)) return false;
  node = static_cast<NkNode*>(object);
  return true;
}
