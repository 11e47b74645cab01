#include "arbora/base/NbThread.h"

#include "arbora/base/NbThreadMutex.h"

#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace {

NbThreadMutex s_staticMutex;
constinit NbThreadMutex s_staticRecursiveMutex(1);

struct Counting {
  NbThreadMutex* mutex;
  int count = 0;
};

void* countUp(void* data) {
  auto* counting = static_cast<Counting*>(data);
  for (int i = 0; i < 20000; ++i) {
    const NbThreadAutoLock lock(counting->mutex);
    const int before = counting->count;
    if (i % 100 == 0) {
      std::this_thread::yield(); // invites another thread into the gap
    }
    counting->count = before + 1;
  }
  return data;
}

TEST(NbThread, RunsAndGivesTheResult) {
  unsigned long id = 0;
  NbThread* thread = NbThread::create(
      [](void* data) -> void* {
        NbThread::setName("a name that is longer than the system allows");
        *static_cast<unsigned long*>(data) = NbThread::getCurrentThreadId();
        return data;
      },
      &id);
  ASSERT_NE(thread, nullptr);
  EXPECT_EQ(thread->join(), &id);
  EXPECT_EQ(thread->join(), &id);
  NbThread::destroy(thread);
  EXPECT_NE(id, 0U);
  EXPECT_NE(id, NbThread::getCurrentThreadId());
  EXPECT_EQ(NbThread::getCurrentThreadId(), NbThread::getCurrentThreadId());
}

TEST(NbThread, DestroyWaits) {
  Counting counting{&s_staticMutex};
  NbThread::destroy(NbThread::create(countUp, &counting));
  EXPECT_EQ(counting.count, 20000);
  NbThread::destroy(nullptr);
}

TEST(NbThreadMutex, ExcludesOthers) {
  for (NbThreadMutex* mutex : {&s_staticMutex, &s_staticRecursiveMutex}) {
    Counting counting{mutex};
    std::vector<NbThread*> threads;
    for (int i = 0; i < 4; ++i) {
      threads.push_back(NbThread::create(countUp, &counting));
    }
    for (NbThread* thread : threads) {
      NbThread::destroy(thread);
    }
    EXPECT_EQ(counting.count, 80000);
  }
}

bool canOtherThreadLock(NbThreadMutex& mutex) {
  NbThread* thread = NbThread::create(
      [](void* data) -> void* {
        auto* tried = static_cast<NbThreadMutex*>(data);
        if (!tried->tryLock()) {
          return nullptr;
        }
        tried->unlock();
        return data;
      },
      &mutex);
  const bool could = thread->join() != nullptr;
  NbThread::destroy(thread);
  return could;
}

TEST(NbThreadMutex, TryLockTellsWhetherItIsHeld) {
  NbThreadMutex mutex(0);
  EXPECT_TRUE(mutex.tryLock());
  EXPECT_FALSE(mutex.tryLock());
  EXPECT_FALSE(canOtherThreadLock(mutex));
  mutex.unlock();
  EXPECT_TRUE(canOtherThreadLock(mutex));
}

TEST(NbThreadMutex, RecursionCounts) {
  NbThreadMutex mutex(1);
  mutex.lock();
  EXPECT_TRUE(mutex.tryLock());
  mutex.lock();
  mutex.unlock();
  mutex.unlock();
  EXPECT_FALSE(canOtherThreadLock(mutex));
  mutex.unlock();
  EXPECT_TRUE(canOtherThreadLock(mutex));
}

TEST(NbThreadAutoLock, HoldsForItsScope) {
  NbThreadMutex mutex;
  {
    const NbThreadAutoLock lock(&mutex);
    EXPECT_FALSE(mutex.tryLock());
  }
  EXPECT_TRUE(mutex.tryLock());
  mutex.unlock();
  const NbThreadAutoLock none(nullptr);
}

} // namespace
