#include "Panelix/NkMenuBar.h"
#include "Panelix/NkTopLevelAuditor.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/scene/NkDBImpl.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/win/NkWin.h"
#include "src/dialog/support/SensorPause.h"
#include "src/dialog/support/TopLevelLayout.h"
#include "src/dialog/support/Windows.h"

// The 2D form: a framed window and, filling it, the window that holds the components.

namespace {

constexpr const char* kErrorTitle = "NkTopLevelDialog Error";

// Of all dialogs: the keyboard and the wheel are the user's.
bool s_isShiftDown = false;
int s_wheelStep = 0; // Wheel movement for one line; 0 while the wheel is off.
int s_wheelWay = 0;  // What hasn't made up a line yet.

struct Style {
  DWORD style;
  DWORD extended;
};

Style styleOf(const NkTopLevelDialog& dialog) {
  constexpr DWORD kClipped = WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
  if (dialog.modalFrame.getValue()) {
    return {WS_POPUP | kClipped | WS_CAPTION | WS_SYSMENU,
            WS_EX_DLGMODALFRAME | WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_WINDOWEDGE};
  }
  if (dialog.resizable.getValue()) return {kClipped | WS_OVERLAPPEDWINDOW, WS_EX_WINDOWEDGE};
  return {kClipped | WS_VISIBLE | WS_CAPTION | WS_SYSMENU, WS_EX_WINDOWEDGE};
}

/// The icon of the running program.
HICON programIcon() {
  constexpr DWORD kPathSize = 1000;
  char path[kPathSize] = "";
  GetModuleFileNameA(nullptr, path, kPathSize);
  SHFILEINFOA info{};
  SHGetFileInfoA(path, FILE_ATTRIBUTE_NORMAL, &info, sizeof info, SHGFI_ICON);
  return info.hIcon;
}

void setDialogOf(HWND window, NkTopLevelDialog* dialog) {
  SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(dialog));
}

NkTopLevelDialog* dialogOf(HWND window) {
  return reinterpret_cast<NkTopLevelDialog*>(GetWindowLongPtrA(window, GWLP_USERDATA));
}

NbVec2i32 signedPoint(LPARAM lParam) {
  return NbVec2i32(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
}

void takeWheelSetting() {
  const int lines = panelix::wheelScrollLines();
  s_wheelStep = lines > 0 ? WHEEL_DELTA / lines : 0;
}

/// Sends one scroll message per line that the wheel has made.
void turnWheel(HWND window, int way) {
  constexpr LPARAM kFromWheel = 10;
  // The setting may change while the window scrolls.
  const int step = s_wheelStep;
  s_wheelWay += way;
  for (; s_wheelWay >= step; s_wheelWay -= step) SendMessageA(window, WM_VSCROLL, SB_LINEUP, kFromWheel);
  for (; s_wheelWay <= -step; s_wheelWay += step) SendMessageA(window, WM_VSCROLL, SB_LINEDOWN, kFromWheel);
}

/// The menu entry that a command of the dialog's menu bar stands for; NULL if it is none.
NkMenuItem* entryOf(HMENU menu, UINT id) {
  MENUITEMINFOA info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_ID | MIIM_SUBMENU | MIIM_DATA;
  GetMenuItemInfoA(menu, id, FALSE, &info);
  return info.hSubMenu ? nullptr : reinterpret_cast<NkMenuItem*>(info.dwItemData);
}

} // namespace

/// The window procedures. The messages come to the dialog that stands in the window's user data.
struct NkTopLevelDialog::Procedures {
  static LRESULT CALLBACK base(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    NkWin::isArboraMessage(window, message, wParam, lParam);
    NkTopLevelDialog* dialog = dialogOf(window);
    if (dialog) {
      const arbora::KeepAlive alive(dialog);
      if (handleBase(*dialog, window, message, wParam, lParam)) return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
  }

  static LRESULT CALLBACK topLevel(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    NkTopLevelDialog* dialog = dialogOf(window);
    if (dialog) {
      const arbora::KeepAlive alive(dialog);
      if (handleTopLevel(*dialog, window, message, wParam, lParam)) return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
  }

private:
  /// True if the system has nothing left to do.
  static bool handleBase(NkTopLevelDialog& dialog, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    // What the frame takes at the left and at the top of a window's own area.
    constexpr int kFrameLeft = 4;
    constexpr int kFrameTop = 23;
    const bool scrollsTopLevel = dialog.m_currentScrolledWidget == dialog.m_topLevelWidget;
    switch (message) {
      case WM_CREATE:
      case WM_WININICHANGE:
        if (scrollsTopLevel) takeWheelSetting();
        return false;
      case WM_MOVE:
        // A moved frame tells its place with its next size.
        if (window == dialog.m_topLevelWidget)
          dialog.setPosition(signedPoint(lParam) - NbVec2i32(kFrameLeft, kFrameTop));
        return false;
      case WM_SIZE: {
        RECT rectangle{};
        GetWindowRect(window, &rectangle);
        dialog.setSize(rectangle.right - rectangle.left, rectangle.bottom - rectangle.top, dialog.minWidth.getValue(),
                       dialog.minHeight.getValue(), dialog.maxWidth.getValue(), dialog.maxHeight.getValue());
        dialog.setPosition(NbVec2i32(rectangle.left, rectangle.top));
        if (wParam != SIZE_MINIMIZED) dialog.updateTopLevelWidget();
        return false;
      }
      case WM_GETMINMAXINFO: {
        const auto limit = [](int max) { return max == 0 ? panelix::kUnbounded : max; };
        auto* info = reinterpret_cast<MINMAXINFO*>(lParam);
        info->ptMinTrackSize = POINT{dialog.minWidth.getValue(), dialog.minHeight.getValue()};
        info->ptMaxTrackSize = POINT{limit(dialog.maxWidth.getValue()), limit(dialog.maxHeight.getValue())};
        return false;
      }
      case WM_KEYDOWN:
        if (wParam == VK_TAB) dialog.focusNext(!s_isShiftDown);
        if (wParam == VK_SHIFT) s_isShiftDown = true;
        return false;
      case WM_KEYUP:
        if (wParam == VK_SHIFT) s_isShiftDown = false;
        return false;
      case WM_COMMAND: {
        const HMENU menu = GetMenu(dialog.m_baseWidget);
        if (NkMenuItem* entry = entryOf(menu, LOWORD(wParam))) entry->menuEvent(menu, static_cast<int>(LOWORD(wParam)));
        return true;
      }
      case WM_SYSCOMMAND:
        if (wParam != SC_CLOSE) return false;
        dialog.destroyDialog();
        return true;
      case WM_MOUSEWHEEL:
        if (scrollsTopLevel && s_wheelStep != 0) turnWheel(dialog.m_topLevelWidget, static_cast<short>(HIWORD(wParam)));
        return false;
      default:
        return false;
    }
  }

  static bool handleTopLevel(NkTopLevelDialog& dialog, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
      case WM_SIZE:
        if (wParam == SIZE_MINIMIZED) return false;
        dialog.setScrollProperties();
        dialog.updateTopLevelWidgetScrollPosition();
        dialog.updateChildren();
        return false;
      case WM_KEYDOWN:
      case WM_KEYUP:
        SendMessageA(dialog.m_baseWidget, message, wParam, lParam);
        return false;
      case WM_HSCROLL:
      case WM_VSCROLL:
        dialog.setCurrentScrolledWidget(window);
        panelix::scroll(window, message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(wParam));
        return true;
      default:
        return false;
    }
  }
};

// The windows

NkTopLevelDialog::~NkTopLevelDialog() {
  // Nothing that the windows say while they go finds the dialog any more.
  if (dialogOf(m_baseWidget) == this) setDialogOf(m_baseWidget, nullptr);
  if (existWidget(m_topLevelWidget)) setDialogOf(m_topLevelWidget, nullptr);
  forEachChild([](NkTopComponent* child) {
    if (!child->isOfType(NkMenuBar::getClassTypeId())) child->destroyWidget();
  });
  if (existWidget(m_topLevelWidget)) DestroyWindow(m_topLevelWidget);
  if (existWidget(m_currentFocusedWidget)) DestroyWindow(m_currentFocusedWidget);
  if (existWidget(m_currentScrolledWidget)) DestroyWindow(m_currentScrolledWidget);
  if (!m_adoptParent && existWidget(m_baseWidget)) DestroyWindow(m_baseWidget);
}

void NkTopLevelDialog::createBaseWidget(HWND parent) {
  static const panelix::WindowClass kClass{"NkTopLevelDialogBase", CS_VREDRAW | CS_HREDRAW | CS_OWNDC, Procedures::base,
                                           nullptr, programIcon};
  const Style style = styleOf(*this);
  if (m_adoptParent) {
    m_baseWidget = parent;
    SetWindowLongPtrA(m_baseWidget, GWL_STYLE, static_cast<LONG_PTR>(style.style));
    SetWindowLongPtrA(m_baseWidget, GWL_EXSTYLE, static_cast<LONG_PTR>(style.extended));
    SetWindowLongPtrA(m_baseWidget, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedures::base));
  } else {
    const NbString name = panelix::useWindowClass(kClass, kErrorTitle, "Register Base Class failed");
    m_baseWidget = CreateWindowExA(style.extended, name.toLatin1().c_str(), kClass.name, style.style, 0, 0, 0, 0,
                                   nullptr, nullptr, NkWin::getInstance(), nullptr);
    if (!existWidget(m_baseWidget))
      NkWin::createSimpleErrorDialog(nullptr, kErrorTitle, "Create Base Window failed", nullptr);
  }
  if (existWidget(m_baseWidget)) {
    setDialogOf(m_baseWidget, this);
    changeLabel();
  }
  TITLEBARINFO info{};
  info.cbSize = sizeof info;
  GetTitleBarInfo(m_baseWidget, &info);
  m_captionHeight = info.rcTitleBar.bottom - info.rcTitleBar.top;
}

void NkTopLevelDialog::createTopLevelWidget() {
  static const panelix::WindowClass kClass{"NkTopLevelDialog", CS_VREDRAW | CS_HREDRAW | CS_PARENTDC,
                                           Procedures::topLevel, nullptr, nullptr};
  const NbString name = panelix::useWindowClass(kClass, kErrorTitle, "RegisterClass failed");
  m_topLevelWidget = CreateWindowExA(0, name.toLatin1().c_str(), kClass.name,
                                     WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, 0, 0, 0, 0,
                                     m_baseWidget, nullptr, NkWin::getInstance(), nullptr);
  if (!existWidget(m_topLevelWidget))
    NkWin::createSimpleErrorDialog(nullptr, kErrorTitle, "Create TopLevel Window failed", nullptr);
  setWidgetFont(m_topLevelWidget);
  setDialogOf(m_topLevelWidget, this);
  m_currentScrolledWidget = m_topLevelWidget;
}

void NkTopLevelDialog::show() {
  if (!m_adoptParent && existWidget(m_baseWidget)) NkWin::show(m_baseWidget);
}

void NkTopLevelDialog::hide() {
  if (!m_adoptParent && existWidget(m_baseWidget)) NkWin::hide(m_baseWidget);
}

void NkTopLevelDialog::close() {
  hide();
  unref();
}

int NkTopLevelDialog::destroyDialog() {
  hide();
  if (m_adoptParent) PostQuitMessage(0);
  return 0;
}

// Places and sizes

void NkTopLevelDialog::setPosition(const NbVec2i32& corner) {
  const panelix::SensorPause quiet(m_positionSensor, position);
  position = corner;
  if (corner == NbVec2i32(0, 0)) position.setDefault(true);
}

void NkTopLevelDialog::changePosition() {
  const NbVec2i32 corner = position.getValue();
  SetWindowPos(m_baseWidget, nullptr, corner[0], corner[1], 0, 0, SWP_DEFERERASE | SWP_NOSIZE);
}

void NkTopLevelDialog::updateBaseWidget() {
  if (maxWidth.getValue() < width.getValue()) width = maxWidth.getValue();
  if (maxHeight.getValue() < height.getValue()) height = maxHeight.getValue();
  SetWindowPos(m_baseWidget, nullptr, 0, 0, width.getValue(), height.getValue(),
               SWP_DEFERERASE | SWP_NOZORDER | SWP_NOMOVE);
}

void NkTopLevelDialog::updateTopLevelWidget() {
  NbVec2i32 size(width.getValue(), height.getValue());
  fixSizeWithBorder(size, -1);
  computeNewChildrenHeight(size);
  // The window's area includes its own bars.
  if (m_vScrollOn || vScrollVisibility.getValue() == ALWAYS) size[0] += m_scrollBarSize;
  if (m_hScrollOn || hScrollVisibility.getValue() == ALWAYS) size[1] += m_scrollBarSize;
  SetWindowPos(m_topLevelWidget, nullptr, 0, 0, size[0], size[1], SWP_DEFERERASE | SWP_NOMOVE);
}

void NkTopLevelDialog::updateChildren() {
  const int is2D = NkDBImpl::m_isVerra ? 0 : 1;
  placeChildren([&](NkTopComponent* child, NbVec2i32& size, NbVec2i32& corner, bool isMenuBar) {
    child->buildWidget(isMenuBar ? m_baseWidget : m_topLevelWidget, size, corner, is2D);
  });
}

void NkTopLevelDialog::setScrollProperties() {
  panelix::SizeTriple content;
  getDefaultSize(content.size, content.min, content.max);
  const NbVec2i32 windowSize = panelix::outerSize(m_topLevelWidget);
  m_vScrollOn = vScrollVisibility.getValue() == ALWAYS;
  m_hScrollOn = hScrollVisibility.getValue() == ALWAYS;
  if (vScrollVisibility.getValue() == AUTO && content.min[1] > windowSize[1]) m_vScrollOn = TRUE;
  if (hScrollVisibility.getValue() == AUTO && content.min[0] > windowSize[0]) m_hScrollOn = TRUE;
  // A window too small to hold its bars shows none.
  if (windowSize[1] <= 2 * m_scrollBarSize) m_hScrollOn = FALSE;
  if (windowSize[0] <= 2 * m_scrollBarSize) m_vScrollOn = FALSE;
  // A new range goes back to its start.
  const auto setRange = [this](int bar, int max, int page) {
    panelix::setScrollRange(m_topLevelWidget, bar, max, page, 0);
  };
  if (m_vScrollOn)
    setRange(SB_VERT, panelix::addSaturating(content.min[1], m_hScrollOn ? m_scrollBarSize : 0), windowSize[1]);
  if (m_hScrollOn)
    setRange(SB_HORZ, panelix::addSaturating(content.min[0], m_vScrollOn ? m_scrollBarSize : 0), windowSize[0]);
  ShowScrollBar(m_topLevelWidget, SB_VERT, m_vScrollOn);
  ShowScrollBar(m_topLevelWidget, SB_HORZ, m_hScrollOn);
}

void NkTopLevelDialog::updateTopLevelWidgetScrollPosition() {
  if (m_vScrollOn) panelix::scrollToPosition(m_topLevelWidget, SB_VERT);
  if (m_hScrollOn) panelix::scrollToPosition(m_topLevelWidget, SB_HORZ);
}

// Fields and keys

void NkTopLevelDialog::changeEnable() {
  EnableWindow(m_baseWidget, enable.getValue());
  EnableWindow(m_topLevelWidget, enable.getValue());
}

void NkTopLevelDialog::changeLabel() { setWindowTextOf(m_baseWidget, label.getValue()); }

void NkTopLevelDialog::changeResizable() {
  if (!existWidget(m_baseWidget)) return;
  constexpr DWORD kClipped = WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
  const DWORD style =
      resizable.getValue() ? kClipped | WS_OVERLAPPEDWINDOW : kClipped | WS_VISIBLE | WS_CAPTION | WS_SYSMENU;
  SetWindowLongPtrA(m_baseWidget, GWL_STYLE, static_cast<LONG_PTR>(style));
  SetWindowPos(m_baseWidget, nullptr, 0, 0, 0, 0, SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE);
  panelix::SizeTriple content;
  getDefaultSize(content.size, content.min, content.max);
  minWidth = content.min[0];
  minHeight = content.min[1];
  const auto setMax = [](NkSFInt32& field, int max) {
    field = max == panelix::kUnbounded ? 0 : max;
    if (max == panelix::kUnbounded) field.setDefault(true);
  };
  setMax(maxWidth, content.max[0]);
  setMax(maxHeight, content.max[1]);
  ShowWindow(m_baseWidget, SW_HIDE);
  ShowWindow(m_baseWidget, SW_SHOW);
}

void NkTopLevelDialog::changeModalFrame() {
  if (!existWidget(m_baseWidget)) return;
  const bool isModal = modalFrame.getValue();
  const DWORD style = isModal ? WS_EX_WINDOWEDGE | WS_EX_TOPMOST : WS_EX_WINDOWEDGE;
  SetWindowLongPtrA(m_baseWidget, GWL_EXSTYLE, static_cast<LONG_PTR>(style));
  SetWindowPos(m_baseWidget, isModal ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE);
}

void NkTopLevelDialog::focusNext(bool backwards) {
  m_currentFocusedWidget = GetNextDlgTabItem(m_topLevelWidget, m_currentFocusedWidget, backwards);
  SetFocus(m_currentFocusedWidget);
}
