#include "arbora/gl/NkGLContext.h"

#include <array>
#include <cstring>

// Ahead of GLX, whose header would bring the system's own declarations of OpenGL in its place.
#include <glad/gl.h>

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/glx.h>

namespace {

struct EglState {
  EGLDisplay display = eglGetCurrentDisplay();
  EGLSurface draw = eglGetCurrentSurface(EGL_DRAW);
  EGLSurface read = eglGetCurrentSurface(EGL_READ);
  EGLContext context = eglGetCurrentContext();
};

class EglContext : public NkGLContext {
public:
  EglContext(EGLDisplay display, EGLSurface surface, EGLContext context)
      : m_display(display), m_surface(surface), m_context(context) {}
  ~EglContext() override {
    eglDestroyContext(m_display, m_context);
    if (m_surface != EGL_NO_SURFACE) eglDestroySurface(m_display, m_surface);
  }

protected:
  bool enter() override {
    m_before = EglState();
    // A context that isn't EGL's is the concern of its own system: it must be let go of first.
    m_glxContext = m_before.context == EGL_NO_CONTEXT ? glXGetCurrentContext() : nullptr;
    if (m_glxContext) {
      m_glxDisplay = glXGetCurrentDisplay();
      m_glxDraw = glXGetCurrentDrawable();
      m_glxRead = glXGetCurrentReadDrawable();
      glXMakeContextCurrent(m_glxDisplay, None, None, nullptr);
    }
    eglBindAPI(EGL_OPENGL_API);
    if (eglMakeCurrent(m_display, m_surface, m_surface, m_context)) return true;
    restore();
    return false;
  }
  void leave() override {
    eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    restore();
  }

private:
  void restore() const {
    if (m_before.context != EGL_NO_CONTEXT)
      eglMakeCurrent(m_before.display, m_before.draw, m_before.read, m_before.context);
    if (m_glxContext) glXMakeContextCurrent(m_glxDisplay, m_glxDraw, m_glxRead, m_glxContext);
  }

  EGLDisplay m_display;
  EGLSurface m_surface;
  EGLContext m_context;
  EglState m_before;
  Display* m_glxDisplay = nullptr;
  GLXContext m_glxContext = nullptr;
  GLXDrawable m_glxDraw = 0;
  GLXDrawable m_glxRead = 0;
};

bool hasExtension(const char* extensions, const char* name) {
  const std::size_t length = std::strlen(name);
  for (const char* at = extensions; at && (at = std::strstr(at, name)); at += length) {
    if ((at == extensions || at[-1] == ' ') && (at[length] == ' ' || at[length] == '\0')) return true;
  }
  return false;
}

/// A display that needs no window system; the default one where there is none of that sort.
EGLDisplay openDisplay(EGLenum platform) {
  EGLDisplay display = EGL_NO_DISPLAY;
  if (platform == EGL_NONE) {
    display = eglGetDisplay(EGL_DEFAULT_DISPLAY);
  } else if (hasExtension(eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS), "EGL_MESA_platform_surfaceless")) {
    display = eglGetPlatformDisplay(platform, EGL_DEFAULT_DISPLAY, nullptr);
  }
  if (display == EGL_NO_DISPLAY || !eglInitialize(display, nullptr, nullptr)) return EGL_NO_DISPLAY;
  return display;
}

std::unique_ptr<NkGLContext> createOn(EGLDisplay display) {
  const bool needsSurface = !hasExtension(eglQueryString(display, EGL_EXTENSIONS), "EGL_KHR_surfaceless_context");
  const std::array<EGLint, 5> wanted{EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_SURFACE_TYPE,
                                     needsSurface ? EGL_PBUFFER_BIT : 0, EGL_NONE};
  EGLConfig config = nullptr;
  EGLint count = 0;
  if (!eglBindAPI(EGL_OPENGL_API) || !eglChooseConfig(display, wanted.data(), &config, 1, &count) || count == 0)
    return nullptr;
  constexpr std::array<EGLint, 7> kAttributes{
      EGL_CONTEXT_MAJOR_VERSION,           3,       EGL_CONTEXT_MINOR_VERSION, 3, EGL_CONTEXT_OPENGL_PROFILE_MASK,
      EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT, EGL_NONE};
  const EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, kAttributes.data());
  if (context == EGL_NO_CONTEXT) return nullptr;
  EGLSurface surface = EGL_NO_SURFACE;
  if (needsSurface) {
    constexpr std::array<EGLint, 5> kSize{EGL_WIDTH, 1, EGL_HEIGHT, 1, EGL_NONE};
    surface = eglCreatePbufferSurface(display, config, kSize.data());
  }
  auto result = std::make_unique<EglContext>(display, surface, context);
  const NkGLContext::Scope scope(*result);
  if (!scope.isCurrent() || !arbora::loadGL()) return nullptr;
  return result;
}

} // namespace

std::unique_ptr<NkGLContext> NkGLContext::createOffscreen(NbString& why) {
  for (const EGLenum platform : {EGLenum{EGL_PLATFORM_SURFACELESS_MESA}, EGLenum{EGL_NONE}}) {
    const EGLDisplay display = openDisplay(platform);
    if (display == EGL_NO_DISPLAY) continue;
    if (std::unique_ptr<NkGLContext> context = createOn(display)) return context;
  }
  why = "No OpenGL 3.3 context can be made; install a driver for EGL (for Mesa: libegl1 and libgl1-mesa-dri)";
  return nullptr;
}

void* NkGLContext::getCurrent() {
  if (const EGLContext context = eglGetCurrentContext(); context != EGL_NO_CONTEXT) return context;
  return glXGetCurrentContext();
}

bool arbora::loadGL() {
  const int version =
      eglGetCurrentContext() != EGL_NO_CONTEXT
          ? gladLoadGL(reinterpret_cast<GLADloadfunc>(eglGetProcAddress))
          : gladLoadGL([](const char* name) {
              return reinterpret_cast<GLADapiproc>(glXGetProcAddress(reinterpret_cast<const GLubyte*>(name)));
            });
  return version >= GLAD_MAKE_VERSION(3, 3);
}
