#pragma once

#include "arbora/scene/NkKeyboardEvent.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/win/NativeView.h"

namespace arbora {

/// A view in a window of Windows, with a context of WGL.
class WindowView : public NativeView {
public:
  explicit WindowView(NativeViewClient& client) : NativeView(client) {}
  ~WindowView() override;

  /// False, with the reason, if there can be no such window.
  bool open(HWND parent, const NbString& title, const NbVec2i32& size, NbString& why);

  void close(const std::function<void()>& free) override;
  HWND getWindow() const override { return m_window; }
  void show() override;
  void hide() override;
  bool isVisible() const override { return IsWindowVisible(m_window) != FALSE; }
  void setTitle(const NbString& title) override;
  void setSize(const NbVec2i32& size) override;
  NbVec2i32 getSize() const override;
  void requestPaint() override { InvalidateRect(m_window, nullptr, FALSE); }
  void paint() override;

private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static bool registerClass();
  bool createContext();
  void releaseContext();

  /// True if the message needs nothing more.
  bool handleMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void handleButton(NkMouseButtonEvent::Button button, bool isDown, LPARAM position);
  void handleKey(bool isDown, WPARAM virtualKey, LPARAM flags);
  void handleCharacter(NkKeyboardEvent::Key key, unsigned character);
  void loseButtons();
  /// `position` counts from the upper left corner of the drawn area.
  void send(NkEvent& event, POINT position);

  HWND m_window = nullptr;
  HDC m_deviceContext = nullptr;
  HGLRC m_context = nullptr;
  bool m_isChild = false;
  bool m_isGoing = false; // The system destroys the window.
  unsigned m_pressed = 0; // A bit for each mouse button that's down.
};

} // namespace arbora
