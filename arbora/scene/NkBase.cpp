#include "arbora/scene/NkBase.h"

#include <atomic>

#include "arbora/scene/NameTable.h"

NkType NkBase::s_classTypeId;

namespace {
// Nodes are made on any thread.
std::atomic<int> s_liveCount = 0;
} // namespace

NkBase::NkBase() { s_liveCount.fetch_add(1, std::memory_order_relaxed); }

NkBase::~NkBase() {
  if (!!m_name) arbora::NameTable::get().remove(m_name, this);
  s_liveCount.fetch_sub(1, std::memory_order_relaxed);
}

NkType NkBase::getClassTypeId() { return s_classTypeId; }

void NkBase::initClass() {
  if (NkTypedObject::getClassTypeId().isBad()) NkTypedObject::initClass();
  s_classTypeId = NkType::createType(NkTypedObject::getClassTypeId(), "Base");
}

void NkBase::exitClass() {
  NkType::removeType("Base");
  s_classTypeId = NkType::badType();
}

NbName NkBase::getName() const { return m_name; }

void NkBase::setName(const NbName& name) {
  if (name == m_name) return;
  arbora::NameTable& names = arbora::NameTable::get();
  if (!!m_name) names.remove(m_name, this);
  m_name = name;
  if (!!m_name) names.add(m_name, this);
}

void NkBase::destroy() {
  notifyDelete();
  delete this;
}

void NkBase::notifyDelete() {}

int NkBase::getLiveCount() { return s_liveCount; }
