#include "arbora/gl/NkGLContext.h"

NkGLContext::~NkGLContext() = default;

NkGLContext::Scope::Scope(NkGLContext& context) : m_context(context), m_isCurrent(context.enter()) {}

NkGLContext::Scope::~Scope() {
  if (m_isCurrent) m_context.leave();
}
