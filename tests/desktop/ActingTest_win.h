#pragma once

#include "tests/desktop/DesktopTest_win.h"
#include "tests/dialog/SceneUser.h"

/// Fixture for components with a label and a control that acts: alone in a window of the application, in a dialog, and
/// in a dialog that stands on the screen and in a scene at once.
class ActingTest : public DesktopTest {
protected:
  /// A component of its own in the application's window.
  template <class Component>
  Component* build(const std::string& text, NbVec2i32 size = NbVec2i32(0, 0)) {
    auto* component = read<Component>(text);
    buildAgain(component, size);
    return component;
  }
  void buildAgain(NkDialogComponent* component, NbVec2i32 size = NbVec2i32(0, 0)) {
    if (!m_application) m_application = makeApplicationWindow();
    NbVec2i32 corner(0, 0);
    component->buildWidget(m_application, size, corner, 1);
  }
  /// Opens a dialog whose only reference is the scene's, and builds its panel there.
  void openBoth(NkTopLevelDialog* dialog) {
    scene.root->addChild(dialog);
    dialog->position = NbVec2i32(100, 100);
    dialog->buildDialog(nullptr, 0);
    dialog->show();
    desktop::serveAWhile();
    SceneUser::boxOf(scene.root.get());
  }

  static HWND controlOf(NkDialogComponent* component) {
    return FindWindowExA(component->getWidget(), nullptr, "Button", nullptr);
  }
  static NbVec2i32 textSize(const char* text) { return NkPanelix::getLabelPixelSize(text, nullptr); }
  static bool isEnabled(HWND window) { return IsWindowEnabled(window) != 0; }
  static bool isVisible(HWND window) { return IsWindowVisible(window) != 0; }
  static bool isPushed(HWND control) { return (SendMessageA(control, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0; }
  static bool isChecked(HWND control) { return SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED; }

  // The user's acts on the screen

  static void clickOn(HWND window) { EXPECT_TRUE(desktop::act(moveToMiddle(window) + "click 1")); }
  static void pressOn(HWND window) { EXPECT_TRUE(desktop::act(moveToMiddle(window) + "mousedown 1")); }
  static void typeKeys(const char* keys) { EXPECT_TRUE(desktop::act(std::string("key ") + keys)); }
  /// A place where nothing of a dialog is.
  static void releaseElsewhere() { EXPECT_TRUE(desktop::act("mousemove 5 5 mouseup 1")); }

  SceneUser scene;

private:
  static std::string moveToMiddle(HWND window) {
    const RECT area = outlineOf(window);
    return "mousemove " + std::to_string((area.left + area.right) / 2) + " " +
           std::to_string((area.top + area.bottom) / 2) + " ";
  }

  HWND m_application = nullptr;
};
