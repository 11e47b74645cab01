#include "src/dialog/support/Controls.h"

#include "Panelix/NkTopLevelDialog.h"

namespace panelix {
namespace {

NkTopLevelDialog* dialogAbove(NkDialogComponent& component) {
  return arbora::as<NkTopLevelDialog>(component.getFirstTopParent(1, 0));
}

} // namespace

DWORD alignmentStyle(int alignment) {
  switch (alignment) {
    case NkPanelix::LEFT:
      return SS_LEFT;
    case NkPanelix::RIGHT:
      return SS_RIGHT;
    default:
      return SS_CENTER;
  }
}

void subclassControl(HWND control, NkDialogComponent* component, WNDPROC procedure, WNDPROC& saved) {
  const LONG_PTR before = SetWindowLongPtrA(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
  // A control that couldn't be made says nothing about the others.
  if (before) saved = reinterpret_cast<WNDPROC>(before);
  SetWindowLongPtrA(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(component));
}

void destroyControl(HWND& control) {
  if (!IsWindow(control)) return;
  SetWindowLongPtrA(control, GWLP_USERDATA, 0);
  DestroyWindow(control);
  control = nullptr;
}

void forwardFocusKeys(NkDialogComponent& component, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_KEYDOWN && message != WM_KEYUP) return;
  if (wParam != VK_TAB && wParam != VK_SHIFT) return;
  if (NkTopLevelDialog* dialog = dialogAbove(component)) SendMessageA(dialog->getWidget(), message, wParam, lParam);
}

void setFocusedControl(NkDialogComponent& component, HWND control) {
  if (NkTopLevelDialog* dialog = dialogAbove(component)) dialog->setCurrentFocusedWidget(control);
}

} // namespace panelix
