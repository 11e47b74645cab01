#include "arbora/scene/NkRefCounter.h"

#include <vector>

namespace {

// Objects die inside the death of what held them. Past this depth they wait for the outermost one to finish, so that a
// chain of any length can be released.
constexpr int kMaxDepth = 200;

struct Deaths {
  int depth = 0;
  std::vector<NkRefCounter*> waiting;
};

Deaths& deaths() {
  thread_local Deaths s_deaths;
  return s_deaths;
}

// While an object dies, references that come and go must not kill it again.
constexpr int kDyingCount = 1 << 30;

}  // namespace

NkRefCounter::~NkRefCounter() = default;

void NkRefCounter::destroy() {
  delete this;
}

void NkRefCounter::die() const {
  m_refCount = kDyingCount;
  auto* self = const_cast<NkRefCounter*>(this);
  Deaths& state = deaths();
  if (state.depth >= kMaxDepth) {
    state.waiting.push_back(self);
    return;
  }
  ++state.depth;
  self->destroy();
  while (state.depth == 1 && !state.waiting.empty()) {
    NkRefCounter* next = state.waiting.back();
    state.waiting.pop_back();
    next->destroy();
  }
  --state.depth;
}
