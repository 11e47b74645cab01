#pragma once

#include <optional>
#include <vector>

#include "arbora/scene/NkKeyboardEvent.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/win/NativeView.h"

struct GLFWwindow;

namespace arbora {

/// A view in a window of GLFW.
class GlfwView : public NativeView {
public:
  GlfwView(NativeViewClient& client, GLFWwindow* window);
  ~GlfwView() override;

  void close(const std::function<void()>& free) override;
  HWND getWindow() const override { return nullptr; }
  void show() override;
  void hide() override;
  bool isVisible() const override;
  void setTitle(const NbString& title) override;
  void setSize(const NbVec2i32& size) override;
  NbVec2i32 getSize() const override;
  void requestPaint() override { m_needsPaint = true; }
  void paint() override;

  // For the loop.
  static bool isAnyOpen();
  /// Paints the views that wait for it.
  static void paintAll();
  /// Hands out what the user did, after waiting for something if `wait` is set and nothing waits to be painted. GLFW
  /// can't do that inside a call that comes from here: nothing happens there.
  static void processEvents(bool wait);
  /// Ends a wait.
  static void wakeUp();

private:
  class CurrentContext;
  static void closeCalled(GLFWwindow* window);
  static void sizeCalled(GLFWwindow* window, int width, int height);
  static void refreshCalled(GLFWwindow* window);
  static void moveCalled(GLFWwindow* window, double x, double y);
  static void buttonCalled(GLFWwindow* window, int button, int action, int modifiers);
  static void wheelCalled(GLFWwindow* window, double x, double y);
  static void keyCalled(GLFWwindow* window, int key, int scancode, int action, int modifiers);
  static void characterCalled(GLFWwindow* window, unsigned character);

  /// The view of a window, kept while it's called; what it still holds back is handed out first.
  static std::shared_ptr<GlfwView> enter(GLFWwindow* window);
  void place(NkEvent& event) const;
  void send(NkEvent& event);
  void sendKey();
  static void destroyDead();

  GLFWwindow* m_window;
  bool m_needsPaint = true;
  int m_modifiers = 0;
  /// Where the pointer was at the last event, in units of the window. Asked for later, GLFW tells where it has got to
  /// since, which is elsewhere when a picture took long.
  double m_pointerX = 0;
  double m_pointerY = 0;
  /// A key that was pressed, held back until it's known which character it typed.
  std::optional<NkKeyboardEvent::Key> m_key;
};

} // namespace arbora
