#include "arbora/base/NbThread.h"

#include "arbora/base/Platform.h"

#include <system_error>
#include <thread>

struct NbThread::Body {
  std::thread thread;
  void* result = nullptr;
};

NbThread::NbThread() : m_body(std::make_unique<Body>()) {}

NbThread::~NbThread() { join(); }

NbThread* NbThread::create(Function* function, void* data) {
  auto* thread = new NbThread;
  Body* body = thread->m_body.get();
  try {
    body->thread = std::thread([body, function, data] { body->result = function(data); });
  } catch (const std::system_error&) {
    destroy(thread);
    return nullptr;
  }
  return thread;
}

void NbThread::destroy(NbThread* thread) { delete thread; }

void* NbThread::join() {
  if (m_body->thread.joinable()) {
    m_body->thread.join();
  }
  return m_body->result;
}

unsigned long NbThread::getCurrentThreadId() { return arbora::threadNumber(); }

void NbThread::setName(const char* name) { arbora::nameThisThread(name ? name : ""); }
