#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Panelix/NkTopLevelDialog.h"
#include "arbora/win/NkWin.h"
#include "tests/support/TestSupport.h"
#include "tests/win/Desktop.h"

/// Fixture with the toolkit in use on a real screen. Objects, windows and drawing objects that outlive their test fail
/// it, so does an error dialog that the test doesn't ask for by `takeErrors`. Dialogs come from text.
class DesktopTest : public ::testing::Test {
protected:
  DesktopTest();
  ~DesktopTest() override;

  /// The first component of a scene text, held to the end of the test.
  template <class Component>
  Component* read(const std::string& text) {
    auto* component = dynamic_cast<Component*>(readFirst(text));
    if (!component) ADD_FAILURE() << "not read: " << text;
    return component;
  }
  /// The same, built as a window; shown unless told otherwise.
  NkTopLevelDialog* open(const std::string& text, bool shown = true);
  /// Gives up what `read` and `open` hold.
  void release() { m_roots.clear(); }
  /// The component with that `auditorID` below.
  template <class Component>
  static Component* find(NkTopLevelDialog* dialog, const char* id) {
    auto* component = dynamic_cast<Component*>(dialog->searchForAuditorId(id));
    if (!component) ADD_FAILURE() << "no such component: " << id;
    return component;
  }
  /// Keeps the error dialogs for `takeErrors`, which the end of the window layer has given up.
  void hearErrors() { NkWin::setErrorDialogHook(noteError, this); }
  /// The error dialogs so far, each as "title: text".
  std::vector<std::string> takeErrors();
  /// Makes a window of the application's own, which goes with the test.
  HWND makeApplicationWindow();

  static std::string classOf(HWND window);
  static std::string textOf(HWND window);
  static DWORD styleOf(HWND window) { return static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE)); }
  static DWORD extendedStyleOf(HWND window) { return static_cast<DWORD>(GetWindowLongPtrA(window, GWL_EXSTYLE)); }
  /// Within the parent's client area, or on the screen for a top-level window: x, y, width and height as "x y w h".
  static std::string rectangleOf(HWND window);
  static std::string rectangle(int x, int y, int width, int height);
  /// On the screen.
  static RECT outlineOf(HWND window);
  /// Width and height.
  static NbVec2i32 sizeOf(HWND window);
  static void resize(HWND window, int width, int height);
  /// Range, page and position of a bar as "min max page position"; "off" if it doesn't show.
  static std::string barOf(HWND window, int bar);

  // The user's acts, at places on the screen
  static void click(int x, int y);
  static void drag(int x, int y, int byX, int byY);

private:
  NkPanelix* readFirst(const std::string& text);
  static void noteError(void* data, HWND parent, const char* title, const char* line1, const char* line2);

  std::vector<arbora::Ref<NkNode>> m_roots;
  std::vector<std::string> m_errors;
  std::vector<HWND> m_windows;
};

/// While it lives the system makes no windows of a class whose name begins so.
class WindowRefusal {
public:
  explicit WindowRefusal(std::string classPrefix);
  ~WindowRefusal();
  WindowRefusal(const WindowRefusal&) = delete;
  WindowRefusal& operator=(const WindowRefusal&) = delete;

private:
  HHOOK m_hook;
};
