#include "arbora/base/NbThreadMutex.h"

namespace {

constexpr int kFree = 0;
constexpr int kHeld = 1;
constexpr int kWaitedFor = 2;

// An address that is different in each thread: cheaper to get than the thread's number.
const void* thisThread() {
  thread_local const char s_mark = 0;
  return &s_mark;
}

} // namespace

void NbThreadMutex::acquire() {
  int expected = kFree;
  if (m_state.compare_exchange_strong(expected, kHeld, std::memory_order_acquire, std::memory_order_relaxed)) {
    return;
  }
  // Whoever got here has waited, and others may still: the holder must wake one when it leaves.
  while (m_state.exchange(kWaitedFor, std::memory_order_acquire) != kFree) {
    m_state.wait(kWaitedFor, std::memory_order_relaxed);
  }
}

void NbThreadMutex::lock() {
  if (!m_recursive) {
    acquire();
    return;
  }
  if (m_owner.load(std::memory_order_relaxed) != thisThread()) {
    acquire();
    m_owner.store(thisThread(), std::memory_order_relaxed);
  }
  ++m_depth;
}

void NbThreadMutex::unlock() {
  if (m_recursive) {
    if (--m_depth > 0) {
      return;
    }
    m_owner.store(nullptr, std::memory_order_relaxed);
  }
  if (m_state.exchange(kFree, std::memory_order_release) == kWaitedFor) {
    m_state.notify_one();
  }
}

bool NbThreadMutex::tryLock() {
  if (m_recursive && m_owner.load(std::memory_order_relaxed) == thisThread()) {
    ++m_depth;
    return true;
  }
  int expected = kFree;
  if (!m_state.compare_exchange_strong(expected, kHeld, std::memory_order_acquire, std::memory_order_relaxed)) {
    return false;
  }
  if (m_recursive) {
    m_owner.store(thisThread(), std::memory_order_relaxed);
    m_depth = 1;
  }
  return true;
}

NbThreadAutoLock::NbThreadAutoLock(NbThreadMutex* mutex) : m_mutex(mutex) {
  if (m_mutex) {
    m_mutex->lock();
  }
}

NbThreadAutoLock::~NbThreadAutoLock() {
  if (m_mutex) {
    m_mutex->unlock();
  }
}
