#pragma once

#include "arbora/base/export.h"

#include <atomic>

/// A mutex that may be an object of static duration: it's made at compile time and holds nothing of the system, so that
/// it works before and after the static objects around it.
class ARBORABASE_API NbThreadMutex {
public:
  /// With a recursion flag other than 0, the thread that holds the mutex may lock it again.
  constexpr explicit NbThreadMutex(int recursionFlag = 0) : m_recursive(recursionFlag != 0) {}
  NbThreadMutex(const NbThreadMutex&) = delete;
  NbThreadMutex& operator=(const NbThreadMutex&) = delete;

  void lock();
  void unlock();
  /// False if another thread, or without recursion any thread, holds it.
  bool tryLock();

private:
  std::atomic<int> m_state{0}; // 0 free, 1 held, 2 held and waited for
  bool m_recursive;
  std::atomic<const void*> m_owner{nullptr}; // used with recursion only
  int m_depth = 0;                           // touched by the owner only

  void acquire();
};

/// Holds a mutex for the time of a scope. A null mutex is let pass.
class ARBORABASE_API NbThreadAutoLock {
public:
  explicit NbThreadAutoLock(NbThreadMutex* mutex);
  ~NbThreadAutoLock();
  NbThreadAutoLock(const NbThreadAutoLock&) = delete;
  NbThreadAutoLock& operator=(const NbThreadAutoLock&) = delete;

private:
  NbThreadMutex* m_mutex; // not owned
};
