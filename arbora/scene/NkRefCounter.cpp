#include "arbora/scene/NkRefCounter.h"

#include <vector>

namespace {

// Objects die inside the death of what held them. Past this depth they wait for the outermost one to finish, so that a
// chain of any length can be released.
constexpr int kMaxDepth = 200;

struct Deaths {
  int depth = 0;
  int pauses = 0;
  std::vector<NkRefCounter*> waiting;
};

Deaths& deaths() {
  thread_local Deaths s_deaths;
  return s_deaths;
}

} // namespace

NkRefCounter::~NkRefCounter() = default;

void NkRefCounter::destroy() { delete this; }

void NkRefCounter::die() const {
  m_refCount = kDyingCount;
  auto* self = const_cast<NkRefCounter*>(this);
  Deaths& state = deaths();
  if (state.depth >= kMaxDepth || state.pauses > 0) {
    state.waiting.push_back(self);
    return;
  }
  ++state.depth;
  self->destroy();
  if (--state.depth == 0) endWaiting();
}

void NkRefCounter::endWaiting() {
  Deaths& state = deaths();
  ++state.depth;
  while (!state.waiting.empty() && state.pauses == 0) {
    NkRefCounter* next = state.waiting.back();
    state.waiting.pop_back();
    // Somebody may have taken it up again: a path that was found in the traversal, for instance.
    if (next->m_refCount > kDyingCount)
      next->m_refCount -= kDyingCount;
    else
      next->destroy();
  }
  --state.depth;
}

namespace arbora {

DeathPause::DeathPause() { ++deaths().pauses; }

DeathPause::~DeathPause() {
  const Deaths& state = deaths();
  if (--deaths().pauses == 0 && state.depth == 0 && !state.waiting.empty()) NkRefCounter::endWaiting();
}

} // namespace arbora
