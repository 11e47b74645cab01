#pragma once

#include "Panelix/NkDialogComponent.h"

namespace panelix {

/// The style of a text control for an alignment of `NkPanelix::LabelAlignment`.
DWORD alignmentStyle(int alignment);

/// Puts a procedure ahead of a control's own, which goes to `saved`, and the component into the control's user data.
void subclassControl(HWND control, NkDialogComponent* component, WNDPROC procedure, WNDPROC& saved);

/// The component whose control it is; NULL when it has gone.
template <class Component>
Component* componentOf(HWND control) {
  return static_cast<Component*>(reinterpret_cast<NkDialogComponent*>(GetWindowLongPtrA(control, GWLP_USERDATA)));
}

/// Destroys a control, if it is there; what it says meanwhile finds no component any more.
void destroyControl(HWND& control);

/// Tab and Shift belong to the dialog, which moves the focus: hands a message on if it is about one of these keys.
void forwardFocusKeys(NkDialogComponent& component, UINT message, WPARAM wParam, LPARAM lParam);

/// From this control the Tab key goes on.
void setFocusedControl(NkDialogComponent& component, HWND control);

} // namespace panelix
