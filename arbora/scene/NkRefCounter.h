#pragma once

#include "arbora/scene/export.h"

namespace arbora {
class DeathPause;
}

/// Intrusive reference count. A new object has the count 0; it is deleted through `destroy` when the count
/// returns to 0. The count is not atomic: an object belongs to the thread that uses its scene.
class ARBORA_API NkRefCounter {
public:
  void ref() const { ++m_refCount; }
  void unref() const {
    if (--m_refCount <= 0) die();
  }
  /// Takes a reference off without deleting: hands an object on with the count that it had before `ref`.
  void unrefNoDelete() const { --m_refCount; }
  int getRefCount() const { return m_refCount; }
  /// True from the moment at which the last reference went.
  bool isDying() const { return m_refCount >= kDyingCount / 2; }

  NkRefCounter(const NkRefCounter&) = delete;
  NkRefCounter& operator=(const NkRefCounter&) = delete;

protected:
  NkRefCounter() = default;
  virtual ~NkRefCounter();
  /// Called once, when the count returns to 0; deletes the object.
  virtual void destroy();

private:
  // While an object dies, references that come and go must not kill it again.
  static constexpr int kDyingCount = 1 << 30;
  friend class arbora::DeathPause;
  void die() const;
  static void endWaiting();
  mutable int m_refCount = 0;
};

namespace arbora {

/// Owning smart reference to a reference-counted object.
template <class T>
class Ref {
public:
  Ref() = default;
  Ref(T* object) : m_object(object) {
    if (m_object) m_object->ref();
  }
  Ref(const Ref& other) : Ref(other.m_object) {}
  Ref(Ref&& other) noexcept : m_object(other.m_object) { other.m_object = nullptr; }
  ~Ref() {
    if (m_object) m_object->unref();
  }
  Ref& operator=(Ref other) noexcept {
    T* previous = m_object;
    m_object = other.m_object;
    other.m_object = previous;
    return *this;
  }
  T* get() const { return m_object; }
  T* operator->() const { return m_object; }
  T& operator*() const { return *m_object; }
  explicit operator bool() const { return m_object != nullptr; }

private:
  T* m_object = nullptr;
};

/// While one lives, objects of this thread that lose their last reference wait with dying until it goes, and may be
/// taken up again. A traversal whose state has plain pointers to nodes holds one, for the sake of nodes that change the
/// scene when they are visited.
class ARBORA_API DeathPause {
public:
  DeathPause();
  ~DeathPause();
  DeathPause(const DeathPause&) = delete;
  DeathPause& operator=(const DeathPause&) = delete;
};

/// Keeps an object alive over a call that leaves the library. An object that nobody has referenced yet stays so: a
/// reference that comes and goes inside the call doesn't delete it under the caller's hands.
class KeepAlive {
public:
  explicit KeepAlive(const NkRefCounter* object)
      : m_object(object), m_isUnreferenced(object && object->getRefCount() == 0) {
    if (m_object) m_object->ref();
  }
  ~KeepAlive() {
    if (!m_object) return;
    if (m_isUnreferenced && m_object->getRefCount() == 1)
      m_object->unrefNoDelete();
    else
      m_object->unref();
  }
  KeepAlive(const KeepAlive&) = delete;
  KeepAlive& operator=(const KeepAlive&) = delete;

private:
  const NkRefCounter* m_object;
  bool m_isUnreferenced;
};

} // namespace arbora
