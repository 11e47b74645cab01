#pragma once

#include <memory>

#include "arbora/base/NbString.h"
#include "arbora/gl/export.h"

/// An OpenGL context of this library's own, without a window that anybody sees; and the query of the current one.
class ARBORAGL_API NkGLContext {
public:
  virtual ~NkGLContext();
  NkGLContext(const NkGLContext&) = delete;
  NkGLContext& operator=(const NkGLContext&) = delete;

  /// A context of OpenGL 3.3 or later; NULL if there can be none, with the reason and what to do in `why`.
  static std::unique_ptr<NkGLContext> createOffscreen(NbString& why);

  /// The system's handle of the context that is current in this thread; NULL if there is none.
  static void* getCurrent();

  /// Makes this context current in this thread for as long as the object lives, then the one that was.
  class ARBORAGL_API Scope {
  public:
    explicit Scope(NkGLContext& context);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    /// False if the system refused.
    bool isCurrent() const { return m_isCurrent; }

  private:
    NkGLContext& m_context;
    bool m_isCurrent;
  };

protected:
  NkGLContext() = default;
  /// Remembers what is current and makes this one current.
  virtual bool enter() = 0;
  virtual void leave() = 0;
};

namespace arbora {

/// Looks up the OpenGL functions through the context that is current. True if it has OpenGL 3.3.
ARBORAGL_API bool loadGL();

} // namespace arbora
