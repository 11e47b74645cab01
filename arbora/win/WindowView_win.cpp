#include "arbora/win/WindowView_win.h"

#include <array>
#include <cstring>

#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkMouseWheelEvent.h"
#include "arbora/win/Keys.h"
#include "arbora/win/NkWin.h"

namespace arbora {
namespace {

constexpr wchar_t kClass[] = L"NkRenderArea";
constexpr DWORD kTopLevelStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
constexpr DWORD kChildStyle = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;

// Of WGL_ARB_pixel_format, WGL_ARB_multisample and WGL_ARB_create_context.
constexpr int kDrawToWindow = 0x2001;
constexpr int kSupportOpenGL = 0x2010;
constexpr int kDoubleBuffer = 0x2011;
constexpr int kPixelType = 0x2013;
constexpr int kTypeRgba = 0x202B;
constexpr int kColorBits = 0x2014;
constexpr int kDepthBits = 0x2022;
constexpr int kSampleBuffers = 0x2041;
constexpr int kSamples = 0x2042;
constexpr int kContextMajorVersion = 0x2091;
constexpr int kContextMinorVersion = 0x2092;
constexpr int kContextProfileMask = 0x9126;
constexpr int kContextCoreProfileBit = 1;
using ChoosePixelFormatArb = BOOL(WINAPI*)(HDC, const int*, const FLOAT*, UINT, int*, UINT*);
using CreateContextAttribs = HGLRC(WINAPI*)(HDC, HGLRC, const int*);

template <class Function>
Function findExtension(const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(wglGetProcAddress(name)));
}

PIXELFORMATDESCRIPTOR plainFormat() {
  PIXELFORMATDESCRIPTOR format{};
  format.nSize = sizeof format;
  format.nVersion = 1;
  format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
  format.iPixelType = PFD_TYPE_RGBA;
  format.cColorBits = 24;
  format.cDepthBits = 24;
  return format;
}

/// The functions that choose a multisampled format and make a context of a certain version. They're found only while
/// another context is current, and a window's format can be set only once: so that one is in a window of its own.
struct Extensions {
  ChoosePixelFormatArb choosePixelFormat = nullptr;
  CreateContextAttribs createContext = nullptr;

  Extensions() {
    const HWND window =
        CreateWindowExW(0, kClass, L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, NkWin::getInstance(), nullptr);
    if (window == nullptr) return;
    const HDC deviceContext = GetDC(window);
    const PIXELFORMATDESCRIPTOR format = plainFormat();
    SetPixelFormat(deviceContext, ChoosePixelFormat(deviceContext, &format), &format);
    const HDC deviceContextBefore = wglGetCurrentDC();
    const HGLRC contextBefore = wglGetCurrentContext();
    if (const HGLRC context = wglCreateContext(deviceContext)) {
      if (wglMakeCurrent(deviceContext, context)) {
        choosePixelFormat = findExtension<ChoosePixelFormatArb>("wglChoosePixelFormatARB");
        createContext = findExtension<CreateContextAttribs>("wglCreateContextAttribsARB");
      }
      wglMakeCurrent(deviceContextBefore, contextBefore);
      wglDeleteContext(context);
    }
    ReleaseDC(window, deviceContext);
    DestroyWindow(window);
  }
};

const Extensions& extensions() {
  static const Extensions instance;
  return instance;
}

int chooseFormat(HDC deviceContext) {
  if (const ChoosePixelFormatArb choose = extensions().choosePixelFormat) {
    for (const int samples : {4, 0}) {
      const std::array<int, 17> wanted{
          kDrawToWindow, 1,  kSupportOpenGL, 1,           kDoubleBuffer, 1,       kPixelType, kTypeRgba, kColorBits, 24,
          kDepthBits,    24, kSampleBuffers, samples > 0, kSamples,      samples, 0};
      int format = 0;
      UINT count = 0;
      if (choose(deviceContext, wanted.data(), nullptr, 1, &format, &count) && count > 0) return format;
    }
  }
  const PIXELFORMATDESCRIPTOR format = plainFormat();
  return ChoosePixelFormat(deviceContext, &format);
}

constexpr KeyRow kKeys[] = {
    {VK_BACK, NkKeyboardEvent::BACKSPACE},
    {VK_TAB, NkKeyboardEvent::TAB},
    {VK_RETURN, NkKeyboardEvent::RETURN},
    {VK_PAUSE, NkKeyboardEvent::PAUSE},
    {VK_SCROLL, NkKeyboardEvent::SCROLL_LOCK},
    {VK_ESCAPE, NkKeyboardEvent::ESCAPE},
    {VK_HOME, NkKeyboardEvent::HOME},
    {VK_LEFT, NkKeyboardEvent::LEFT_ARROW},
    {VK_UP, NkKeyboardEvent::UP_ARROW},
    {VK_RIGHT, NkKeyboardEvent::RIGHT_ARROW},
    {VK_DOWN, NkKeyboardEvent::DOWN_ARROW},
    {VK_PRIOR, NkKeyboardEvent::PAGE_UP},
    {VK_NEXT, NkKeyboardEvent::PAGE_DOWN},
    {VK_END, NkKeyboardEvent::END},
    {VK_SNAPSHOT, NkKeyboardEvent::PRINT},
    {VK_INSERT, NkKeyboardEvent::INSERT},
    {VK_DELETE, NkKeyboardEvent::DELETE_},
    {VK_NUMLOCK, NkKeyboardEvent::NUM_LOCK},
    {VK_CAPITAL, NkKeyboardEvent::CAPS_LOCK},
    {VK_NUMPAD0, NkKeyboardEvent::PAD_0},
    {VK_NUMPAD1, NkKeyboardEvent::PAD_1},
    {VK_NUMPAD2, NkKeyboardEvent::PAD_2},
    {VK_NUMPAD3, NkKeyboardEvent::PAD_3},
    {VK_NUMPAD4, NkKeyboardEvent::PAD_4},
    {VK_NUMPAD5, NkKeyboardEvent::PAD_5},
    {VK_NUMPAD6, NkKeyboardEvent::PAD_6},
    {VK_NUMPAD7, NkKeyboardEvent::PAD_7},
    {VK_NUMPAD8, NkKeyboardEvent::PAD_8},
    {VK_NUMPAD9, NkKeyboardEvent::PAD_9},
    {VK_DECIMAL, NkKeyboardEvent::PAD_PERIOD},
    {VK_MULTIPLY, NkKeyboardEvent::PAD_MULTIPLY},
    {VK_ADD, NkKeyboardEvent::PAD_ADD},
    {VK_SUBTRACT, NkKeyboardEvent::PAD_SUBTRACT},
    {VK_DIVIDE, NkKeyboardEvent::PAD_DIVIDE},
    {VK_F1, NkKeyboardEvent::F1},
    {VK_F2, NkKeyboardEvent::F2},
    {VK_F3, NkKeyboardEvent::F3},
    {VK_F4, NkKeyboardEvent::F4},
    {VK_F5, NkKeyboardEvent::F5},
    {VK_F6, NkKeyboardEvent::F6},
    {VK_F7, NkKeyboardEvent::F7},
    {VK_F8, NkKeyboardEvent::F8},
    {VK_F9, NkKeyboardEvent::F9},
    {VK_F10, NkKeyboardEvent::F10},
    {VK_F11, NkKeyboardEvent::F11},
    {VK_F12, NkKeyboardEvent::F12},
    {VK_LSHIFT, NkKeyboardEvent::LEFT_SHIFT},
    {VK_RSHIFT, NkKeyboardEvent::RIGHT_SHIFT},
    {VK_LCONTROL, NkKeyboardEvent::LEFT_CONTROL},
    {VK_RCONTROL, NkKeyboardEvent::RIGHT_CONTROL},
    {VK_LMENU, NkKeyboardEvent::LEFT_ALT},
    {VK_RMENU, NkKeyboardEvent::RIGHT_ALT},
};

/// What the keyboard layout prints on a key. `flags` are those of the key's message: they tell left from right.
NkKeyboardEvent::Key keyOf(WPARAM virtualKey, LPARAM flags) {
  const bool isExtended = (HIWORD(static_cast<DWORD_PTR>(flags)) & KF_EXTENDED) != 0;
  const UINT scancode = HIWORD(static_cast<DWORD_PTR>(flags)) & 0xFF;
  int key = static_cast<int>(virtualKey);
  if (key == VK_RETURN && isExtended) return NkKeyboardEvent::PAD_ENTER;
  if (key == VK_SHIFT) key = MapVirtualKeyW(scancode, MAPVK_VSC_TO_VK_EX) == VK_RSHIFT ? VK_RSHIFT : VK_LSHIFT;
  if (key == VK_CONTROL) key = isExtended ? VK_RCONTROL : VK_LCONTROL;
  if (key == VK_MENU) key = isExtended ? VK_RMENU : VK_LMENU;
  const NkKeyboardEvent::Key found = findKey(kKeys, key);
  if (found != NkKeyboardEvent::ANY) return found;
  // The highest bit marks a dead key.
  return printingKey(MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_CHAR) & 0x7FFFFFFF);
}

bool isDown(int virtualKey) { return GetKeyState(virtualKey) < 0; }

POINT pointOf(LPARAM position) { return {GET_X_LPARAM(position), GET_Y_LPARAM(position)}; }

POINT cursorIn(HWND window) {
  const DWORD position = GetMessagePos();
  POINT point = pointOf(static_cast<LPARAM>(position));
  ScreenToClient(window, &point);
  return point;
}

/// Makes a context current, and at the end the one that was.
class Current {
public:
  Current(HDC deviceContext, HGLRC context)
      : m_deviceContext(wglGetCurrentDC()), m_before(wglGetCurrentContext()), m_context(context) {
    wglMakeCurrent(deviceContext, context);
  }
  ~Current() {
    const bool isOther = m_before != nullptr && m_before != m_context;
    wglMakeCurrent(isOther ? m_deviceContext : nullptr, isOther ? m_before : nullptr);
  }
  Current(const Current&) = delete;
  Current& operator=(const Current&) = delete;

private:
  HDC m_deviceContext;
  HGLRC m_before;
  HGLRC m_context;
};

} // namespace

std::shared_ptr<NativeView> NativeView::create(NativeViewClient& client, HWND parent, const NbString& title,
                                               const NbVec2i32& size, NbString& why) {
  auto view = std::make_shared<WindowView>(client);
  return view->open(parent, title, size, why) ? view : nullptr;
}

WindowView::~WindowView() {
  close([] {});
}

bool WindowView::registerClass() {
  WNDCLASSW record{};
  if (GetClassInfoW(NkWin::getInstance(), kClass, &record)) return true;
  record = WNDCLASSW{};
  record.style = CS_OWNDC | CS_HREDRAW | CS_VREDRAW;
  record.lpfnWndProc = procedure;
  record.hInstance = NkWin::getInstance();
  record.hCursor = LoadCursorA(nullptr, IDC_ARROW);
  record.lpszClassName = kClass;
  return RegisterClassW(&record) != 0;
}

bool WindowView::open(HWND parent, const NbString& title, const NbVec2i32& size, NbString& why) {
  m_isChild = parent != nullptr;
  RECT area = {0, 0, size[0], size[1]};
  if (m_isChild) {
    GetClientRect(parent, &area);
  } else {
    AdjustWindowRect(&area, kTopLevelStyle, FALSE);
  }
  const int place = m_isChild ? 0 : CW_USEDEFAULT;
  if (registerClass()) {
    m_window =
        CreateWindowExW(0, kClass, title.toWideChar().c_str(), m_isChild ? kChildStyle : kTopLevelStyle, place, place,
                        area.right - area.left, area.bottom - area.top, parent, nullptr, NkWin::getInstance(), nullptr);
  }
  if (m_window == nullptr) {
    why = "No window can be made: the program needs a desktop to show it on (under Wine: set DISPLAY, or start Xvfb)";
    return false;
  }
  if (!createContext()) {
    why = "No window with OpenGL 3.3 can be made; install the graphics card's driver (under Wine: libgl1-mesa-dri)";
    close([] {});
    return false;
  }
  // From here on the messages come to this object.
  SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  return true;
}

bool WindowView::createContext() {
  m_deviceContext = GetDC(m_window);
  const int format = chooseFormat(m_deviceContext);
  PIXELFORMATDESCRIPTOR description{};
  if (format == 0 || !DescribePixelFormat(m_deviceContext, format, sizeof description, &description) ||
      !SetPixelFormat(m_deviceContext, format, &description)) {
    return false;
  }
  if (extensions().createContext != nullptr) {
    constexpr std::array<int, 7> kWanted{kContextMajorVersion,   3, kContextMinorVersion, 3, kContextProfileMask,
                                         kContextCoreProfileBit, 0};
    m_context = extensions().createContext(m_deviceContext, nullptr, kWanted.data());
  }
  if (m_context == nullptr) m_context = wglCreateContext(m_deviceContext);
  return m_context != nullptr;
}

void WindowView::releaseContext() {
  if (m_context != nullptr) wglDeleteContext(m_context);
  if (m_deviceContext != nullptr) ReleaseDC(m_window, m_deviceContext);
  m_context = nullptr;
  m_deviceContext = nullptr;
}

void WindowView::close(const std::function<void()>& free) {
  m_client = nullptr;
  if (m_context != nullptr) {
    const Current current(m_deviceContext, m_context);
    free();
  }
  releaseContext();
  if (m_window == nullptr) return;
  const HWND window = m_window;
  m_window = nullptr;
  SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  if (GetCapture() == window) ReleaseCapture();
  if (!m_isGoing) DestroyWindow(window);
}

void WindowView::show() {
  if (m_isChild) {
    ShowWindow(m_window, SW_SHOW);
  } else {
    NkWin::show(m_window);
  }
}

void WindowView::hide() { ShowWindow(m_window, SW_HIDE); }

void WindowView::setTitle(const NbString& title) { SetWindowTextW(m_window, title.toWideChar().c_str()); }

void WindowView::setSize(const NbVec2i32& size) {
  RECT area = {0, 0, size[0], size[1]};
  if (!m_isChild) AdjustWindowRect(&area, kTopLevelStyle, FALSE);
  SetWindowPos(m_window, nullptr, 0, 0, area.right - area.left, area.bottom - area.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

NbVec2i32 WindowView::getSize() const {
  RECT area{};
  GetClientRect(m_window, &area);
  return {area.right, area.bottom};
}

void WindowView::paint() {
  const auto keep = shared_from_this();
  const Current current(m_deviceContext, m_context);
  m_client->paintView();
  if (m_client != nullptr) SwapBuffers(m_deviceContext);
}

// Messages

LRESULT CALLBACK WindowView::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  NkWin::isArboraMessage(window, message, wParam, lParam);
  if (auto* view = reinterpret_cast<WindowView*>(GetWindowLongPtrW(window, GWLP_USERDATA))) {
    const auto keep = view->shared_from_this();
    if (view->handleMessage(message, wParam, lParam)) return 0;
  }
  // All of the area is painted anyway: erasing it would flicker.
  if (message == WM_ERASEBKGND) return 1;
  if (message == WM_GETDLGCODE) return DLGC_WANTALLKEYS;
  return DefWindowProcW(window, message, wParam, lParam);
}

bool WindowView::handleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      ValidateRect(m_window, nullptr);
      paint();
      return true;
    case WM_SIZE:
      // A minimised window has no size worth knowing.
      if (LOWORD(static_cast<DWORD_PTR>(lParam)) > 0 && HIWORD(static_cast<DWORD_PTR>(lParam)) > 0) {
        m_client->resizeView();
      }
      return true;
    case WM_CLOSE:
      m_client->closeView();
      return true;
    case WM_DESTROY:
      // Not by `close`: the window around it goes, or somebody else destroys it.
      m_isGoing = true;
      m_client->closeView();
      return true;
    case WM_MOUSEMOVE: {
      NkLocation2Event event;
      send(event, pointOf(lParam));
      return true;
    }
    case WM_MOUSEWHEEL: {
      NkMouseWheelEvent event;
      event.setDelta(GET_WHEEL_DELTA_WPARAM(wParam));
      POINT point = pointOf(lParam);
      ScreenToClient(m_window, &point);
      send(event, point);
      return true;
    }
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
      handleButton(NkMouseButtonEvent::BUTTON1, message == WM_LBUTTONDOWN, lParam);
      return true;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
      handleButton(NkMouseButtonEvent::BUTTON2, message == WM_MBUTTONDOWN, lParam);
      return true;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
      handleButton(NkMouseButtonEvent::BUTTON3, message == WM_RBUTTONDOWN, lParam);
      return true;
    case WM_XBUTTONDOWN:
    case WM_XBUTTONUP:
      handleButton(HIWORD(wParam) == XBUTTON1 ? NkMouseButtonEvent::BUTTON4 : NkMouseButtonEvent::BUTTON5,
                   message == WM_XBUTTONDOWN, lParam);
      return true;
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(lParam) != m_window) loseButtons();
      return true;
    case WM_KEYDOWN:
    case WM_KEYUP:
      handleKey(message == WM_KEYDOWN, wParam, lParam);
      return true;
    case WM_SYSKEYDOWN:
    case WM_SYSKEYUP:
      // The system's own keys, such as Alt+F4, have to get to it.
      handleKey(message == WM_SYSKEYDOWN, wParam, lParam);
      return false;
    case WM_CHAR:
      // Without its key, as from an input method: it stands for the key that prints it.
      handleCharacter(printingKey(static_cast<unsigned>(wParam)), static_cast<unsigned>(wParam));
      return true;
    default:
      return false;
  }
}

void WindowView::send(NkEvent& event, POINT position) {
  event.setPosition({position.x, getSize()[1] - 1 - position.y});
  event.setTime(static_cast<double>(static_cast<DWORD>(GetMessageTime())) / 1000);
  event.setShiftDown(isDown(VK_SHIFT));
  event.setCtrlDown(isDown(VK_CONTROL));
  event.setAltDown(isDown(VK_MENU));
  m_client->handleViewEvent(event);
}

void WindowView::handleButton(NkMouseButtonEvent::Button button, bool isDown, LPARAM position) {
  const unsigned bit = 1U << button;
  if (isDown) {
    if (m_pressed == 0) SetCapture(m_window);
    SetFocus(m_window);
    m_pressed |= bit;
  } else {
    m_pressed &= ~bit;
    if (m_pressed == 0) ReleaseCapture();
  }
  NkMouseButtonEvent event;
  event.setButton(button);
  event.setState(isDown ? NkButtonEvent::DOWN : NkButtonEvent::UP);
  send(event, pointOf(position));
}

/// The releases will go to another window: a drag ends here instead of going on without a button.
void WindowView::loseButtons() {
  for (unsigned button = NkMouseButtonEvent::BUTTON1; button <= NkMouseButtonEvent::BUTTON5; ++button) {
    const unsigned bit = 1U << button;
    if ((m_pressed & bit) == 0 || m_client == nullptr) continue;
    m_pressed &= ~bit;
    NkMouseButtonEvent event;
    event.setButton(static_cast<NkMouseButtonEvent::Button>(button));
    event.setState(NkButtonEvent::UP);
    send(event, cursorIn(m_window));
  }
}

void WindowView::handleKey(bool isDown, WPARAM virtualKey, LPARAM flags) {
  const NkKeyboardEvent::Key key = keyOf(virtualKey, flags);
  if (!isDown) {
    NkKeyboardEvent event;
    event.setKey(key);
    event.setState(NkButtonEvent::UP);
    send(event, cursorIn(m_window));
    return;
  }
  // The loop has put the character that the key types behind it already.
  MSG message;
  unsigned character = 0;
  if (PeekMessageW(&message, m_window, WM_CHAR, WM_CHAR, PM_REMOVE)) character = static_cast<unsigned>(message.wParam);
  handleCharacter(key, character);
}

void WindowView::handleCharacter(NkKeyboardEvent::Key key, unsigned character) {
  NkKeyboardEvent event;
  event.setKey(key);
  event.setState(NkButtonEvent::DOWN);
  event.setPrintableCharacter(printableCharacter(character));
  send(event, cursorIn(m_window));
}

} // namespace arbora
