#include "tests/desktop/Control_win.h"

#include "Panelix/NkTopLevelDialog.h"
#include "arbora/win/NkWin.h"

namespace {

WNDPROC s_buttonProcedure = nullptr;

/// Keys that move the focus are the dialog's.
LRESULT CALLBACK handleControl(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if ((message == WM_KEYDOWN || message == WM_KEYUP) && (wParam == VK_TAB || wParam == VK_SHIFT)) {
    auto* control = reinterpret_cast<Control*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    auto* dialog = dynamic_cast<NkTopLevelDialog*>(control->getFirstTopParent(1, 0));
    if (dialog) return SendMessageA(dialog->getWidget(), message, wParam, lParam);
  }
  return CallWindowProcA(s_buttonProcedure, window, message, wParam, lParam);
}

} // namespace

Control::Control(const char* text, NbVec2i32 naturalSize) : m_text(text), m_naturalSize(naturalSize) {}

Control::~Control() {
  if (existWidget(m_control)) DestroyWindow(m_control);
}

void Control::getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) {
  ++numSizesAsked;
  size = m_naturalSize;
  min = minDefault;
  max = maxDefault;
}

NbVec2i32 Control::getLabelInitSize() {
  ++numLabelsAsked;
  return NkDialogComponent::getLabelInitSize();
}

void Control::buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) {
  NkDialogComponent::buildWidget(parent, size, position, is2D);
  ++numBuilds;
  if (!is2D) return;
  if (!existWidget(m_control)) {
    m_control = CreateWindowExA(0, "BUTTON", m_text, WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0, m_widget, nullptr,
                                NkWin::getInstance(), nullptr);
    SetWindowLongPtrA(m_control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    s_buttonProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(m_control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(handleControl)));
  }
  NbVec2i32 area(0, 0);
  NbVec2i32 corner(0, 0);
  get2DComponentSize(area, corner);
  SetWindowPos(m_control, nullptr, corner[0], corner[1], area[0], area[1], SWP_NOZORDER);
}

void Control::eventNotify(unsigned int message, std::uint64_t value) {
  notes.push_back(std::to_string(message) + " " + std::to_string(value));
  if (onNotify) onNotify(message);
}
