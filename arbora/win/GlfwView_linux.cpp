#include "arbora/win/GlfwView_linux.h"

#include <algorithm>
#include <cmath>

#include <GLFW/glfw3.h>

#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkMouseWheelEvent.h"
#include "arbora/win/Keys.h"

namespace arbora {
namespace {

constexpr int kSamples = 4;

constexpr KeyRow kKeys[] = {
    {GLFW_KEY_BACKSPACE, NkKeyboardEvent::BACKSPACE},
    {GLFW_KEY_TAB, NkKeyboardEvent::TAB},
    {GLFW_KEY_ENTER, NkKeyboardEvent::RETURN},
    {GLFW_KEY_PAUSE, NkKeyboardEvent::PAUSE},
    {GLFW_KEY_SCROLL_LOCK, NkKeyboardEvent::SCROLL_LOCK},
    {GLFW_KEY_ESCAPE, NkKeyboardEvent::ESCAPE},
    {GLFW_KEY_HOME, NkKeyboardEvent::HOME},
    {GLFW_KEY_LEFT, NkKeyboardEvent::LEFT_ARROW},
    {GLFW_KEY_UP, NkKeyboardEvent::UP_ARROW},
    {GLFW_KEY_RIGHT, NkKeyboardEvent::RIGHT_ARROW},
    {GLFW_KEY_DOWN, NkKeyboardEvent::DOWN_ARROW},
    {GLFW_KEY_PAGE_UP, NkKeyboardEvent::PAGE_UP},
    {GLFW_KEY_PAGE_DOWN, NkKeyboardEvent::PAGE_DOWN},
    {GLFW_KEY_END, NkKeyboardEvent::END},
    {GLFW_KEY_PRINT_SCREEN, NkKeyboardEvent::PRINT},
    {GLFW_KEY_INSERT, NkKeyboardEvent::INSERT},
    {GLFW_KEY_DELETE, NkKeyboardEvent::DELETE_},
    {GLFW_KEY_NUM_LOCK, NkKeyboardEvent::NUM_LOCK},
    {GLFW_KEY_CAPS_LOCK, NkKeyboardEvent::CAPS_LOCK},
    {GLFW_KEY_KP_0, NkKeyboardEvent::PAD_0},
    {GLFW_KEY_KP_1, NkKeyboardEvent::PAD_1},
    {GLFW_KEY_KP_2, NkKeyboardEvent::PAD_2},
    {GLFW_KEY_KP_3, NkKeyboardEvent::PAD_3},
    {GLFW_KEY_KP_4, NkKeyboardEvent::PAD_4},
    {GLFW_KEY_KP_5, NkKeyboardEvent::PAD_5},
    {GLFW_KEY_KP_6, NkKeyboardEvent::PAD_6},
    {GLFW_KEY_KP_7, NkKeyboardEvent::PAD_7},
    {GLFW_KEY_KP_8, NkKeyboardEvent::PAD_8},
    {GLFW_KEY_KP_9, NkKeyboardEvent::PAD_9},
    {GLFW_KEY_KP_DECIMAL, NkKeyboardEvent::PAD_PERIOD},
    {GLFW_KEY_KP_MULTIPLY, NkKeyboardEvent::PAD_MULTIPLY},
    {GLFW_KEY_KP_ADD, NkKeyboardEvent::PAD_ADD},
    {GLFW_KEY_KP_SUBTRACT, NkKeyboardEvent::PAD_SUBTRACT},
    {GLFW_KEY_KP_DIVIDE, NkKeyboardEvent::PAD_DIVIDE},
    {GLFW_KEY_KP_ENTER, NkKeyboardEvent::PAD_ENTER},
    {GLFW_KEY_F1, NkKeyboardEvent::F1},
    {GLFW_KEY_F2, NkKeyboardEvent::F2},
    {GLFW_KEY_F3, NkKeyboardEvent::F3},
    {GLFW_KEY_F4, NkKeyboardEvent::F4},
    {GLFW_KEY_F5, NkKeyboardEvent::F5},
    {GLFW_KEY_F6, NkKeyboardEvent::F6},
    {GLFW_KEY_F7, NkKeyboardEvent::F7},
    {GLFW_KEY_F8, NkKeyboardEvent::F8},
    {GLFW_KEY_F9, NkKeyboardEvent::F9},
    {GLFW_KEY_F10, NkKeyboardEvent::F10},
    {GLFW_KEY_F11, NkKeyboardEvent::F11},
    {GLFW_KEY_F12, NkKeyboardEvent::F12},
    {GLFW_KEY_LEFT_SHIFT, NkKeyboardEvent::LEFT_SHIFT},
    {GLFW_KEY_RIGHT_SHIFT, NkKeyboardEvent::RIGHT_SHIFT},
    {GLFW_KEY_LEFT_CONTROL, NkKeyboardEvent::LEFT_CONTROL},
    {GLFW_KEY_RIGHT_CONTROL, NkKeyboardEvent::RIGHT_CONTROL},
    {GLFW_KEY_LEFT_ALT, NkKeyboardEvent::LEFT_ALT},
    {GLFW_KEY_RIGHT_ALT, NkKeyboardEvent::RIGHT_ALT},
};

/// What the keyboard layout prints on a key.
NkKeyboardEvent::Key keyOf(int systemKey, int scancode) {
  const NkKeyboardEvent::Key key = findKey(kKeys, systemKey);
  if (key != NkKeyboardEvent::ANY) return key;
  if (const char* name = glfwGetKeyName(systemKey, scancode)) {
    const std::wstring text = NbString::fromUtf8(name).toWideChar();
    if (text.size() == 1) return printingKey(static_cast<unsigned>(text[0]));
  }
  return systemKey > 0 && systemKey <= 0xFF ? printingKey(static_cast<unsigned>(systemKey)) : NkKeyboardEvent::ANY;
}

NkMouseButtonEvent::Button buttonOf(int button) {
  switch (button) {
    case GLFW_MOUSE_BUTTON_LEFT:
      return NkMouseButtonEvent::BUTTON1;
    case GLFW_MOUSE_BUTTON_MIDDLE:
      return NkMouseButtonEvent::BUTTON2;
    case GLFW_MOUSE_BUTTON_RIGHT:
      return NkMouseButtonEvent::BUTTON3;
    case GLFW_MOUSE_BUTTON_4:
      return NkMouseButtonEvent::BUTTON4;
    default:
      return NkMouseButtonEvent::BUTTON5;
  }
}

struct GlfwState {
  std::vector<GlfwView*> open;
  /// Windows that were closed inside a call of GLFW, which may not lose them there.
  std::vector<GLFWwindow*> dead;
  bool isProcessing = false;
};

GlfwState& state() {
  static GlfwState instance;
  return instance;
}

NbString lastError() {
  const char* text = nullptr;
  glfwGetError(&text);
  return text != nullptr ? text : "the reason is unknown";
}

GLFWwindow* createWindow(const NbString& title, const NbVec2i32& size) {
  glfwDefaultWindowHints();
  glfwWindowHint(GLFW_VISIBLE, GLFW_FALSE);
  glfwWindowHint(GLFW_CONTEXT_VERSION_MAJOR, 3);
  glfwWindowHint(GLFW_CONTEXT_VERSION_MINOR, 3);
  glfwWindowHint(GLFW_OPENGL_PROFILE, GLFW_OPENGL_CORE_PROFILE);
  const std::string text = title.toUtf8();
  for (const int samples : {kSamples, 0}) {
    glfwWindowHint(GLFW_SAMPLES, samples);
    if (GLFWwindow* window = glfwCreateWindow(size[0], size[1], text.c_str(), nullptr, nullptr)) return window;
  }
  return nullptr;
}

} // namespace

/// Makes a view's context current, and at the end the one that was.
class GlfwView::CurrentContext {
public:
  explicit CurrentContext(GLFWwindow* window) : m_before(glfwGetCurrentContext()), m_window(window) {
    glfwMakeContextCurrent(window);
  }
  ~CurrentContext() { glfwMakeContextCurrent(m_before != m_window ? m_before : nullptr); }
  CurrentContext(const CurrentContext&) = delete;
  CurrentContext& operator=(const CurrentContext&) = delete;

private:
  GLFWwindow* m_before;
  GLFWwindow* m_window;
};

std::shared_ptr<NativeView> NativeView::create(NativeViewClient& client, HWND /*parent*/, const NbString& title,
                                               const NbVec2i32& size, NbString& why) {
  // Not ended before the program: the drivers that it loads don't bear being unloaded and loaded again.
  if (!glfwInit()) {
    why = NbString("No display: set DISPLAY to that of an X server, or start one without a screen "
                   "(Xvfb :1 & export DISPLAY=:1); ") +
          lastError();
    return nullptr;
  }
  GLFWwindow* window = createWindow(title, size);
  if (window == nullptr) {
    why =
        NbString("No window with OpenGL 3.3 can be made; install a driver (for Mesa: libgl1-mesa-dri); ") + lastError();
    return nullptr;
  }
  return std::make_shared<GlfwView>(client, window);
}

GlfwView::GlfwView(NativeViewClient& client, GLFWwindow* window) : NativeView(client), m_window(window) {
  state().open.push_back(this);
  {
    // No more pictures than the screen can show.
    const CurrentContext current(window);
    glfwSwapInterval(1);
  }
  glfwGetCursorPos(window, &m_pointerX, &m_pointerY);
  glfwSetWindowUserPointer(window, this);
  glfwSetWindowCloseCallback(window, closeCalled);
  glfwSetFramebufferSizeCallback(window, sizeCalled);
  glfwSetWindowRefreshCallback(window, refreshCalled);
  glfwSetCursorPosCallback(window, moveCalled);
  glfwSetMouseButtonCallback(window, buttonCalled);
  glfwSetScrollCallback(window, wheelCalled);
  glfwSetKeyCallback(window, keyCalled);
  glfwSetCharCallback(window, characterCalled);
}

GlfwView::~GlfwView() {
  close([] {});
}

void GlfwView::close(const std::function<void()>& free) {
  if (m_window == nullptr) return;
  {
    const CurrentContext current(m_window);
    free();
  }
  glfwHideWindow(m_window);
  glfwSetWindowUserPointer(m_window, nullptr);
  std::erase(state().open, this);
  state().dead.push_back(m_window);
  m_window = nullptr;
  m_client = nullptr;
  destroyDead();
}

void GlfwView::destroyDead() {
  GlfwState& all = state();
  if (all.isProcessing || all.dead.empty()) return;
  for (GLFWwindow* window : all.dead) glfwDestroyWindow(window);
  all.dead.clear();
}

void GlfwView::show() { glfwShowWindow(m_window); }

void GlfwView::hide() { glfwHideWindow(m_window); }

bool GlfwView::isVisible() const { return glfwGetWindowAttrib(m_window, GLFW_VISIBLE) != 0; }

void GlfwView::setTitle(const NbString& title) { glfwSetWindowTitle(m_window, title.toUtf8().c_str()); }

void GlfwView::setSize(const NbVec2i32& size) {
  const NbVec2i32 pixels = getSize();
  NbVec2i32 units;
  glfwGetWindowSize(m_window, &units[0], &units[1]);
  for (int axis = 0; axis < 2; ++axis) {
    units[axis] = pixels[axis] > 0 ? size[axis] * units[axis] / pixels[axis] : size[axis];
  }
  glfwSetWindowSize(m_window, units[0], units[1]);
}

NbVec2i32 GlfwView::getSize() const {
  NbVec2i32 size;
  glfwGetFramebufferSize(m_window, &size[0], &size[1]);
  return size;
}

void GlfwView::paint() {
  m_needsPaint = false;
  const auto keep = shared_from_this();
  const CurrentContext current(m_window);
  m_client->paintView();
  if (m_window != nullptr) glfwSwapBuffers(m_window);
}

// The loop

bool GlfwView::isAnyOpen() { return !state().open.empty(); }

void GlfwView::paintAll() {
  // By number: painting may close views, and open some.
  for (std::size_t i = 0; i < state().open.size(); ++i) {
    GlfwView* view = state().open[i];
    if (view->m_needsPaint && view->isVisible()) view->paint();
  }
}

void GlfwView::processEvents(bool wait) {
  GlfwState& all = state();
  if (all.isProcessing || (all.open.empty() && all.dead.empty())) return;
  const bool isPainted = std::none_of(all.open.begin(), all.open.end(),
                                      [](const GlfwView* view) { return view->m_needsPaint && view->isVisible(); });
  all.isProcessing = true;
  if (wait && isPainted) {
    glfwWaitEvents();
  } else {
    glfwPollEvents();
  }
  for (std::size_t i = 0; i < all.open.size(); ++i) all.open[i]->sendKey();
  all.isProcessing = false;
  destroyDead();
}

void GlfwView::wakeUp() {
  if (isAnyOpen()) glfwPostEmptyEvent();
}

// Events

std::shared_ptr<GlfwView> GlfwView::enter(GLFWwindow* window) {
  auto* view = static_cast<GlfwView*>(glfwGetWindowUserPointer(window));
  if (view == nullptr) return nullptr;
  auto keep = std::static_pointer_cast<GlfwView>(view->shared_from_this());
  view->sendKey();
  return view->m_window != nullptr ? keep : nullptr;
}

void GlfwView::place(NkEvent& event) const {
  NbVec2i32 units;
  glfwGetWindowSize(m_window, &units[0], &units[1]);
  const NbVec2i32 pixels = getSize();
  // GLFW counts from the upper left corner, on some screens in units of several pixels.
  if (units[0] > 0 && units[1] > 0) {
    event.setPosition({static_cast<int>(std::floor(m_pointerX * pixels[0] / units[0])),
                       pixels[1] - 1 - static_cast<int>(std::floor(m_pointerY * pixels[1] / units[1]))});
  }
  event.setTime(glfwGetTime());
  event.setShiftDown((m_modifiers & GLFW_MOD_SHIFT) != 0);
  event.setCtrlDown((m_modifiers & GLFW_MOD_CONTROL) != 0);
  event.setAltDown((m_modifiers & GLFW_MOD_ALT) != 0);
}

void GlfwView::send(NkEvent& event) {
  place(event);
  m_client->handleViewEvent(event);
}

void GlfwView::sendKey() {
  if (!m_key) return;
  NkKeyboardEvent event;
  event.setKey(*m_key);
  event.setState(NkButtonEvent::DOWN);
  m_key.reset();
  send(event);
}

void GlfwView::closeCalled(GLFWwindow* window) {
  if (const auto view = enter(window)) view->m_client->closeView();
}

void GlfwView::sizeCalled(GLFWwindow* window, int width, int height) {
  // A minimised window has no size worth knowing.
  if (width <= 0 || height <= 0) return;
  if (const auto view = enter(window)) view->m_client->resizeView();
}

void GlfwView::refreshCalled(GLFWwindow* window) {
  if (const auto view = enter(window)) view->m_needsPaint = true;
}

void GlfwView::moveCalled(GLFWwindow* window, double x, double y) {
  if (const auto view = enter(window)) {
    view->m_pointerX = x;
    view->m_pointerY = y;
    NkLocation2Event event;
    view->send(event);
  }
}

void GlfwView::buttonCalled(GLFWwindow* window, int button, int action, int modifiers) {
  if (const auto view = enter(window)) {
    view->m_modifiers = modifiers;
    NkMouseButtonEvent event;
    event.setButton(buttonOf(button));
    event.setState(action == GLFW_RELEASE ? NkButtonEvent::UP : NkButtonEvent::DOWN);
    view->send(event);
  }
}

void GlfwView::wheelCalled(GLFWwindow* window, double /*x*/, double y) {
  if (const auto view = enter(window)) {
    NkMouseWheelEvent event;
    event.setDelta(static_cast<int>(std::lround(y * NkMouseWheelEvent::kNotch)));
    if (event.getDelta() != 0) view->send(event);
  }
}

void GlfwView::keyCalled(GLFWwindow* window, int key, int scancode, int action, int modifiers) {
  if (const auto view = enter(window)) {
    view->m_modifiers = modifiers;
    const NkKeyboardEvent::Key sceneKey = keyOf(key, scancode);
    if (action != GLFW_RELEASE) {
      view->m_key = sceneKey;
      return;
    }
    NkKeyboardEvent event;
    event.setKey(sceneKey);
    event.setState(NkButtonEvent::UP);
    view->send(event);
  }
}

void GlfwView::characterCalled(GLFWwindow* window, unsigned character) {
  auto* view = static_cast<GlfwView*>(glfwGetWindowUserPointer(window));
  if (view == nullptr) return;
  const auto keep = view->shared_from_this();
  NkKeyboardEvent event;
  // A character that comes without its key, as from an input method, stands for the key that prints it.
  event.setKey(view->m_key ? *view->m_key : printingKey(character));
  event.setState(NkButtonEvent::DOWN);
  event.setPrintableCharacter(printableCharacter(character));
  view->m_key.reset();
  view->send(event);
}

} // namespace arbora
