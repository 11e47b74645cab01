#pragma once

#include "arbora/base/export.h"

#include <memory>

/// A thread of execution.
class ARBORABASE_API NbThread {
public:
  using Function = void*(void* data);

  /// Starts a thread that runs the function. NULL if the system has none left.
  static NbThread* create(Function* function, void* data);
  /// Waits for the thread's end and deletes the object. Not from the thread itself.
  static void destroy(NbThread* thread);

  /// Waits for the end and gives what the function returned. A second call gives it again.
  void* join();

  /// The system's number of the calling thread.
  static unsigned long getCurrentThreadId();
  /// Names the calling thread for debuggers; systems cut long names.
  static void setName(const char* name);

private:
  struct Body;
  std::unique_ptr<Body> m_body;

  NbThread();
  ~NbThread();
  NbThread(const NbThread&) = delete;
  NbThread& operator=(const NbThread&) = delete;
};
