#include "arbora/gl/NkGLContext.h"

#include <array>

#include <windows.h>

#include <glad/gl.h>

namespace {

constexpr const char* kWindowClass = "ArboraOffscreen";

// Of WGL_ARB_create_context.
constexpr int kContextMajorVersion = 0x2091;
constexpr int kContextMinorVersion = 0x2092;
constexpr int kContextProfileMask = 0x9126;
constexpr int kContextCoreProfileBit = 1;
using CreateContextAttribs = HGLRC(WINAPI*)(HDC, HGLRC, const int*);

struct WglState {
  HDC deviceContext = wglGetCurrentDC();
  HGLRC context = wglGetCurrentContext();
  void restore() const { wglMakeCurrent(deviceContext, context); }
};

class WglContext : public NkGLContext {
public:
  WglContext(HWND window, HDC deviceContext) : m_window(window), m_deviceContext(deviceContext) {}
  ~WglContext() override {
    if (m_context) wglDeleteContext(m_context);
    ReleaseDC(m_window, m_deviceContext);
    DestroyWindow(m_window);
  }

  /// A context of the old kind gives the function that makes one of the wanted version.
  bool create() {
    PIXELFORMATDESCRIPTOR format{};
    format.nSize = sizeof format;
    format.nVersion = 1;
    format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
    format.iPixelType = PFD_TYPE_RGBA;
    format.cColorBits = 24;
    format.cDepthBits = 24;
    const int number = ChoosePixelFormat(m_deviceContext, &format);
    if (number == 0 || !SetPixelFormat(m_deviceContext, number, &format)) return false;
    m_context = wglCreateContext(m_deviceContext);
    if (!m_context) return false;
    {
      const Scope scope(*this);
      if (!scope.isCurrent()) return false;
      const auto createContext = reinterpret_cast<CreateContextAttribs>(
          reinterpret_cast<void*>(wglGetProcAddress("wglCreateContextAttribsARB")));
      if (!createContext) return arbora::loadGL();
      constexpr std::array<int, 7> kAttributes{kContextMajorVersion,   3, kContextMinorVersion, 3, kContextProfileMask,
                                               kContextCoreProfileBit, 0};
      if (const HGLRC context = createContext(m_deviceContext, nullptr, kAttributes.data())) {
        wglMakeCurrent(nullptr, nullptr);
        wglDeleteContext(m_context);
        m_context = context;
      }
    }
    const Scope scope(*this);
    return scope.isCurrent() && arbora::loadGL();
  }

protected:
  bool enter() override {
    m_before = WglState();
    return wglMakeCurrent(m_deviceContext, m_context) != FALSE;
  }
  void leave() override { m_before.restore(); }

private:
  HWND m_window;
  HDC m_deviceContext;
  HGLRC m_context = nullptr;
  WglState m_before;
};

GLADapiproc findFunction(const char* name) {
  // Functions of OpenGL 1.1 come from the library itself, and some drivers answer small numbers for what they lack.
  const auto function = reinterpret_cast<INT_PTR>(reinterpret_cast<void*>(wglGetProcAddress(name)));
  if (function > 3 || function < -1) return reinterpret_cast<GLADapiproc>(function);
  return reinterpret_cast<GLADapiproc>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("opengl32.dll"), name)));
}

} // namespace

std::unique_ptr<NkGLContext> NkGLContext::createOffscreen(NbString& why) {
  HINSTANCE instance = GetModuleHandleA(nullptr);
  WNDCLASSA windowClass{};
  // A window class for a device context of its own; it stays registered for the process.
  if (!GetClassInfoA(instance, kWindowClass, &windowClass)) {
    windowClass = WNDCLASSA{};
    windowClass.style = CS_OWNDC;
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.hInstance = instance;
    windowClass.lpszClassName = kWindowClass;
    RegisterClassA(&windowClass);
  }
  const HWND window = CreateWindowExA(0, kWindowClass, "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, instance, nullptr);
  if (window) {
    auto context = std::make_unique<WglContext>(window, GetDC(window));
    if (context->create()) return context;
  }
  why = "No OpenGL 3.3 context can be made; install the graphics card's driver (under Wine: libgl1-mesa-dri, and a "
        "display)";
  return nullptr;
}

void* NkGLContext::getCurrent() { return wglGetCurrentContext(); }

bool arbora::loadGL() { return gladLoadGL(findFunction) >= GLAD_MAKE_VERSION(3, 3); }
