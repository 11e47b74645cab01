#include "src/platform/Win32.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstring>
#include <cwchar>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>

#include <sys/syscall.h>
#include <unistd.h>

#include "arbora/scene/text/GuiText_linux.h"

namespace {

constexpr int kScreenWidth = 1280;
constexpr int kScreenHeight = 1024;

/// How much of a line's height stands above the baseline, as the controls' font has it.
constexpr double kAscentShare = 10.0 / 13.0;

thread_local DWORD s_lastError = 0;

/// Handles that stand for something and are never followed: each is the address of a byte.
std::array<char, DEFAULT_GUI_FONT + 1> s_stockObjects{};
char s_screenContext = 0;
char s_programModule = 0;

struct Metric {
  int index;
  int value;
};

/// Those of a screen of 1280 by 1024 at 96 dots per inch.
constexpr Metric kMetrics[] = {
    {SM_CXSCREEN, kScreenWidth},
    {SM_CYSCREEN, kScreenHeight},
    {SM_CXVSCROLL, 17},
    {SM_CYHSCROLL, 17},
    {SM_CYCAPTION, 19},
    {SM_CXBORDER, 1},
    {SM_CYBORDER, 1},
    {SM_CXDLGFRAME, 3},
    {SM_CYDLGFRAME, 3},
    {SM_CYVTHUMB, 17},
    {SM_CXHTHUMB, 17},
    {SM_CXICON, 32},
    {SM_CYICON, 32},
    {SM_CXCURSOR, 32},
    {SM_CYCURSOR, 32},
    {SM_CYMENU, 19},
    {SM_CXFULLSCREEN, kScreenWidth},
    {SM_CYFULLSCREEN, kScreenHeight - 19},
    {SM_CYVSCROLL, 17},
    {SM_CXHSCROLL, 17},
    {SM_CXMIN, 116},
    {SM_CYMIN, 27},
    {SM_CXSIZE, 18},
    {SM_CYSIZE, 18},
    {SM_CXFRAME, 4},
    {SM_CYFRAME, 4},
    {SM_CXMINTRACK, 116},
    {SM_CYMINTRACK, 27},
    {SM_CXDOUBLECLK, 4},
    {SM_CYDOUBLECLK, 4},
    {SM_CXEDGE, 2},
    {SM_CYEDGE, 2},
    {SM_CXSMICON, 16},
    {SM_CYSMICON, 16},
    {SM_CYSMCAPTION, 16},
    {SM_CXMENUSIZE, 18},
    {SM_CYMENUSIZE, 18},
    {SM_CXMAXIMIZED, kScreenWidth + 8},
    {SM_CYMAXIMIZED, kScreenHeight + 8},
    {SM_CXDRAG, 4},
    {SM_CYDRAG, 4},
    {SM_CXMENUCHECK, 13},
    {SM_CYMENUCHECK, 13},
    {SM_CXVIRTUALSCREEN, kScreenWidth},
    {SM_CYVIRTUALSCREEN, kScreenHeight},
    {SM_CMONITORS, 1},
};

/// The classic grey palette, by colour index.
constexpr std::array<COLORREF, 25> kColors = {
    RGB(192, 192, 192), // scroll bar
    RGB(0, 128, 128),   // desktop
    RGB(0, 0, 128),     // active caption
    RGB(128, 128, 128), // inactive caption
    RGB(192, 192, 192), // menu
    RGB(255, 255, 255), // window
    RGB(0, 0, 0),       // window frame
    RGB(0, 0, 0),       // menu text
    RGB(0, 0, 0),       // window text
    RGB(255, 255, 255), // caption text
    RGB(192, 192, 192), // active border
    RGB(192, 192, 192), // inactive border
    RGB(128, 128, 128), // application workspace
    RGB(0, 0, 128),     // highlight
    RGB(255, 255, 255), // highlighted text
    RGB(192, 192, 192), // button face
    RGB(128, 128, 128), // button shadow
    RGB(128, 128, 128), // grey text
    RGB(0, 0, 0),       // button text
    RGB(192, 192, 192), // inactive caption text
    RGB(255, 255, 255), // button highlight
    RGB(0, 0, 0),       // 3D dark shadow
    RGB(223, 223, 223), // 3D light
    RGB(0, 0, 0),       // tool tip text
    RGB(255, 255, 225), // tool tip background
};

SIZE textExtent(const wchar_t* text, int length) {
  const arbora::PixelExtent extent = arbora::measureGuiText(text, length);
  return {extent.width, extent.height};
}

/// A call that would fill in `*result` leaves zeros: callers that do not check still see something definite.
template <class T>
BOOL failClearing(T* result) {
  if (result != nullptr) *result = T{};
  return FALSE;
}

} // namespace

// Windows and their classes
ATOM RegisterClassA(const WNDCLASSA*) { return 0; }
ATOM RegisterClassW(const WNDCLASSW*) { return 0; }
ATOM RegisterClassExA(const WNDCLASSEXA*) { return 0; }
BOOL UnregisterClassA(LPCSTR, HINSTANCE) { return FALSE; }

BOOL GetClassInfoA(HINSTANCE, LPCSTR, WNDCLASSA* record) { return failClearing(record); }

int GetClassNameA(HWND, LPSTR name, int size) {
  if (name != nullptr && size > 0) *name = '\0';
  return 0;
}

HWND CreateWindowExA(DWORD, LPCSTR, LPCSTR, DWORD, int, int, int, int, HWND, HMENU, HINSTANCE, LPVOID) {
  return nullptr;
}
HWND CreateWindowExW(DWORD, LPCWSTR, LPCWSTR, DWORD, int, int, int, int, HWND, HMENU, HINSTANCE, LPVOID) {
  return nullptr;
}
BOOL DestroyWindow(HWND) { return FALSE; }
BOOL IsWindow(HWND) { return FALSE; }
BOOL IsWindowVisible(HWND) { return FALSE; }
BOOL IsWindowEnabled(HWND) { return FALSE; }
BOOL IsWindowUnicode(HWND) { return FALSE; }
BOOL IsChild(HWND, HWND) { return FALSE; }
BOOL IsIconic(HWND) { return FALSE; }
BOOL IsZoomed(HWND) { return FALSE; }
BOOL ShowWindow(HWND, int) { return FALSE; }
BOOL UpdateWindow(HWND) { return FALSE; }
BOOL EnableWindow(HWND, BOOL) { return FALSE; }
BOOL CloseWindow(HWND) { return FALSE; }
BOOL BringWindowToTop(HWND) { return FALSE; }
BOOL SetForegroundWindow(HWND) { return FALSE; }
HWND GetForegroundWindow() { return nullptr; }
HWND GetDesktopWindow() { return nullptr; }
HWND GetActiveWindow() { return nullptr; }
HWND SetActiveWindow(HWND) { return nullptr; }
HWND GetParent(HWND) { return nullptr; }
HWND SetParent(HWND, HWND) { return nullptr; }
HWND GetAncestor(HWND, UINT) { return nullptr; }
HWND GetWindow(HWND, UINT) { return nullptr; }
HWND GetTopWindow(HWND) { return nullptr; }
HWND FindWindowA(LPCSTR, LPCSTR) { return nullptr; }
HWND GetDlgItem(HWND, int) { return nullptr; }
int GetDlgCtrlID(HWND) { return 0; }
HWND GetNextDlgTabItem(HWND, HWND, BOOL) { return nullptr; }
HWND WindowFromPoint(POINT) { return nullptr; }
HWND ChildWindowFromPoint(HWND, POINT) { return nullptr; }
BOOL EnumChildWindows(HWND, WNDENUMPROC, LPARAM) { return FALSE; }
BOOL EnumThreadWindows(DWORD, WNDENUMPROC, LPARAM) { return FALSE; }

DWORD GetWindowThreadProcessId(HWND, DWORD* process) {
  failClearing(process);
  return 0;
}

BOOL SetWindowPos(HWND, HWND, int, int, int, int, UINT) { return FALSE; }
BOOL MoveWindow(HWND, int, int, int, int, BOOL) { return FALSE; }
HDWP BeginDeferWindowPos(int) { return nullptr; }
HDWP DeferWindowPos(HDWP, HWND, HWND, int, int, int, int, UINT) { return nullptr; }
BOOL EndDeferWindowPos(HDWP) { return FALSE; }

BOOL GetWindowRect(HWND, RECT* rectangle) { return failClearing(rectangle); }

BOOL GetClientRect(HWND, RECT* rectangle) { return failClearing(rectangle); }

BOOL GetWindowPlacement(HWND, WINDOWPLACEMENT* placement) { return failClearing(placement); }

BOOL GetTitleBarInfo(HWND, TITLEBARINFO* info) { return failClearing(info); }

BOOL AdjustWindowRect(RECT* rectangle, DWORD style, BOOL menu) { return AdjustWindowRectEx(rectangle, style, menu, 0); }

BOOL AdjustWindowRectEx(RECT* rectangle, DWORD style, BOOL menu, DWORD extendedStyle) {
  if (rectangle == nullptr) return FALSE;
  int frame = 0;
  if ((style & WS_THICKFRAME) != 0) {
    frame = GetSystemMetrics(SM_CXFRAME);
  } else if ((style & WS_DLGFRAME) != 0 || (extendedStyle & WS_EX_DLGMODALFRAME) != 0) {
    frame = GetSystemMetrics(SM_CXDLGFRAME);
  } else if ((style & WS_BORDER) != 0) {
    frame = GetSystemMetrics(SM_CXBORDER);
  }
  if ((extendedStyle & WS_EX_CLIENTEDGE) != 0) frame += GetSystemMetrics(SM_CXEDGE);
  InflateRect(rectangle, frame, frame);
  if ((style & WS_CAPTION) == WS_CAPTION) {
    rectangle->top -= GetSystemMetrics((extendedStyle & WS_EX_TOOLWINDOW) != 0 ? SM_CYSMCAPTION : SM_CYCAPTION);
  }
  if (menu) rectangle->top -= GetSystemMetrics(SM_CYMENU);
  return TRUE;
}

BOOL ClientToScreen(HWND, POINT*) { return FALSE; }
BOOL ScreenToClient(HWND, POINT*) { return FALSE; }
int MapWindowPoints(HWND, HWND, POINT*, UINT) { return 0; }
BOOL SetWindowTextA(HWND, LPCSTR) { return FALSE; }
BOOL SetWindowTextW(HWND, LPCWSTR) { return FALSE; }

int GetWindowTextA(HWND, LPSTR text, int size) {
  if (text != nullptr && size > 0) *text = '\0';
  return 0;
}

int GetWindowTextW(HWND, LPWSTR text, int size) {
  if (text != nullptr && size > 0) *text = L'\0';
  return 0;
}

int GetWindowTextLengthA(HWND) { return 0; }
int GetWindowTextLengthW(HWND) { return 0; }
LONG GetWindowLongA(HWND, int) { return 0; }
LONG GetWindowLongW(HWND, int) { return 0; }
LONG SetWindowLongA(HWND, int, LONG) { return 0; }
LONG SetWindowLongW(HWND, int, LONG) { return 0; }
LONG_PTR GetWindowLongPtrA(HWND, int) { return 0; }
LONG_PTR GetWindowLongPtrW(HWND, int) { return 0; }
LONG_PTR SetWindowLongPtrA(HWND, int, LONG_PTR) { return 0; }
LONG_PTR SetWindowLongPtrW(HWND, int, LONG_PTR) { return 0; }
ULONG_PTR GetClassLongPtrA(HWND, int) { return 0; }
ULONG_PTR SetClassLongPtrA(HWND, int, LONG_PTR) { return 0; }
BOOL SetPropA(HWND, LPCSTR, HANDLE) { return FALSE; }
HANDLE GetPropA(HWND, LPCSTR) { return nullptr; }
HANDLE RemovePropA(HWND, LPCSTR) { return nullptr; }
HWND CreateDialogParamA(HINSTANCE, LPCSTR, HWND, DLGPROC, LPARAM) { return nullptr; }
BOOL EndDialog(HWND, INT_PTR) { return FALSE; }
void InitCommonControls() {}
BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX*) { return FALSE; }

// Messages and the loop
LRESULT SendMessageA(HWND, UINT, WPARAM, LPARAM) { return 0; }
LRESULT SendMessageW(HWND, UINT, WPARAM, LPARAM) { return 0; }
LRESULT SendDlgItemMessageA(HWND, int, UINT, WPARAM, LPARAM) { return 0; }
BOOL PostMessageA(HWND, UINT, WPARAM, LPARAM) { return FALSE; }
BOOL PostMessageW(HWND, UINT, WPARAM, LPARAM) { return FALSE; }
BOOL PostThreadMessageA(DWORD, UINT, WPARAM, LPARAM) { return FALSE; }
void PostQuitMessage(int) {}

BOOL GetMessageA(MSG* message, HWND, UINT, UINT) {
  failClearing(message);
  if (message != nullptr) message->message = WM_QUIT;
  return FALSE;
}

BOOL GetMessageW(MSG* message, HWND window, UINT first, UINT last) { return GetMessageA(message, window, first, last); }

BOOL PeekMessageA(MSG* message, HWND, UINT, UINT, UINT) { return failClearing(message); }

BOOL PeekMessageW(MSG* message, HWND, UINT, UINT, UINT) { return failClearing(message); }

BOOL TranslateMessage(const MSG*) { return FALSE; }
LRESULT DispatchMessageA(const MSG*) { return 0; }
LRESULT DispatchMessageW(const MSG*) { return 0; }
BOOL IsDialogMessageA(HWND, MSG*) { return FALSE; }
BOOL WaitMessage() { return FALSE; }

DWORD MsgWaitForMultipleObjects(DWORD, const HANDLE*, BOOL, DWORD milliseconds, DWORD) {
  // Without handles or messages there is nothing to wait for but the time; endless waiting would never end.
  if (milliseconds == INFINITE) return WAIT_FAILED;
  Sleep(milliseconds);
  return WAIT_TIMEOUT;
}

DWORD GetMessagePos() { return 0; }
LONG GetMessageTime() { return 0; }
UINT RegisterWindowMessageA(LPCSTR) { return 0; }
LRESULT DefWindowProcA(HWND, UINT, WPARAM, LPARAM) { return 0; }
LRESULT DefWindowProcW(HWND, UINT, WPARAM, LPARAM) { return 0; }
LRESULT DefDlgProcA(HWND, UINT, WPARAM, LPARAM) { return 0; }

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return procedure != nullptr ? procedure(window, message, wParam, lParam) : 0;
}

LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return CallWindowProcA(procedure, window, message, wParam, lParam);
}

HACCEL CreateAcceleratorTableA(ACCEL*, int) { return nullptr; }
BOOL DestroyAcceleratorTable(HACCEL) { return FALSE; }
int CopyAcceleratorTableA(HACCEL, ACCEL*, int) { return 0; }
int TranslateAcceleratorA(HWND, HACCEL, MSG*) { return 0; }
UINT_PTR SetTimer(HWND, UINT_PTR, UINT, TIMERPROC) { return 0; }
BOOL KillTimer(HWND, UINT_PTR) { return FALSE; }

// Keyboard and mouse
HWND SetFocus(HWND) { return nullptr; }
HWND GetFocus() { return nullptr; }
HWND SetCapture(HWND) { return nullptr; }
HWND GetCapture() { return nullptr; }
BOOL ReleaseCapture() { return FALSE; }
SHORT GetKeyState(int) { return 0; }
SHORT GetAsyncKeyState(int) { return 0; }

BOOL GetCursorPos(POINT* point) { return failClearing(point); }

BOOL SetCursorPos(int, int) { return FALSE; }
HCURSOR SetCursor(HCURSOR) { return nullptr; }
int ShowCursor(BOOL) { return 0; }
BOOL TrackMouseEvent(TRACKMOUSEEVENT*) { return FALSE; }

UINT GetDoubleClickTime() { return 500; }

BOOL DragDetect(HWND, POINT) { return FALSE; }
SHORT VkKeyScanA(CHAR) { return 0; }
UINT MapVirtualKeyA(UINT, UINT) { return 0; }

// Scroll bars
int SetScrollInfo(HWND, int, const SCROLLINFO*, BOOL) { return 0; }

BOOL GetScrollInfo(HWND, int, SCROLLINFO* info) {
  if (info != nullptr) *info = {info->cbSize, info->fMask, 0, 0, 0, 0, 0};
  return FALSE;
}

int SetScrollPos(HWND, int, int, BOOL) { return 0; }
int GetScrollPos(HWND, int) { return 0; }
BOOL SetScrollRange(HWND, int, int, int, BOOL) { return FALSE; }
BOOL ShowScrollBar(HWND, int, BOOL) { return FALSE; }
BOOL EnableScrollBar(HWND, UINT, UINT) { return FALSE; }
BOOL ScrollWindow(HWND, int, int, const RECT*, const RECT*) { return FALSE; }
int ScrollWindowEx(HWND, int, int, const RECT*, const RECT*, HRGN, RECT*, UINT) { return 0; }

// Menus
HMENU CreateMenu() { return nullptr; }
HMENU CreatePopupMenu() { return nullptr; }
BOOL DestroyMenu(HMENU) { return FALSE; }
BOOL IsMenu(HMENU) { return FALSE; }
HMENU GetMenu(HWND) { return nullptr; }
BOOL SetMenu(HWND, HMENU) { return FALSE; }
BOOL DrawMenuBar(HWND) { return FALSE; }
HMENU GetSubMenu(HMENU, int) { return nullptr; }
HMENU GetSystemMenu(HWND, BOOL) { return nullptr; }

int GetMenuItemCount(HMENU) { return -1; }

UINT GetMenuItemID(HMENU, int) { return static_cast<UINT>(-1); }

UINT GetMenuState(HMENU, UINT, UINT) { return static_cast<UINT>(-1); }

int GetMenuStringA(HMENU, UINT, LPSTR text, int size, UINT) {
  if (text != nullptr && size > 0) *text = '\0';
  return 0;
}

BOOL InsertMenuItemA(HMENU, UINT, BOOL, const MENUITEMINFOA*) { return FALSE; }
BOOL InsertMenuItemW(HMENU, UINT, BOOL, const MENUITEMINFOW*) { return FALSE; }
BOOL SetMenuItemInfoA(HMENU, UINT, BOOL, const MENUITEMINFOA*) { return FALSE; }
BOOL SetMenuItemInfoW(HMENU, UINT, BOOL, const MENUITEMINFOW*) { return FALSE; }
BOOL GetMenuItemInfoA(HMENU, UINT, BOOL, MENUITEMINFOA*) { return FALSE; }
BOOL GetMenuItemInfoW(HMENU, UINT, BOOL, MENUITEMINFOW*) { return FALSE; }
BOOL AppendMenuA(HMENU, UINT, UINT_PTR, LPCSTR) { return FALSE; }
BOOL AppendMenuW(HMENU, UINT, UINT_PTR, LPCWSTR) { return FALSE; }
BOOL RemoveMenu(HMENU, UINT, UINT) { return FALSE; }
BOOL DeleteMenu(HMENU, UINT, UINT) { return FALSE; }

BOOL EnableMenuItem(HMENU, UINT, UINT) { return -1; }

DWORD CheckMenuItem(HMENU, UINT, UINT) { return static_cast<DWORD>(-1); }

BOOL CheckMenuRadioItem(HMENU, UINT, UINT, UINT, UINT) { return FALSE; }
BOOL TrackPopupMenu(HMENU, UINT, int, int, int, HWND, const RECT*) { return FALSE; }

// Drawing

HDC GetDC(HWND) { return reinterpret_cast<HDC>(&s_screenContext); }

HDC GetWindowDC(HWND) { return reinterpret_cast<HDC>(&s_screenContext); }

int ReleaseDC(HWND, HDC context) { return context == reinterpret_cast<HDC>(&s_screenContext); }

// Only measuring works in a context, and what is measured is the same in all.
HDC CreateCompatibleDC(HDC) { return reinterpret_cast<HDC>(&s_screenContext); }
BOOL DeleteDC(HDC context) { return context == reinterpret_cast<HDC>(&s_screenContext); }

HDC BeginPaint(HWND, PAINTSTRUCT* paint) {
  failClearing(paint);
  return nullptr;
}

BOOL EndPaint(HWND, const PAINTSTRUCT*) { return FALSE; }
BOOL InvalidateRect(HWND, const RECT*, BOOL) { return FALSE; }
BOOL ValidateRect(HWND, const RECT*) { return FALSE; }
BOOL RedrawWindow(HWND, const RECT*, HRGN, UINT) { return FALSE; }

BOOL GetUpdateRect(HWND, RECT* area, BOOL) { return failClearing(area); }

HGDIOBJ GetStockObject(int object) {
  // 9 is the one number that Windows leaves out.
  if (object < WHITE_BRUSH || object > DEFAULT_GUI_FONT || object == 9) return nullptr;
  return &s_stockObjects[static_cast<std::size_t>(object)];
}

HGDIOBJ SelectObject(HDC context, HGDIOBJ object) {
  // The screen always holds the toolkit's font, whichever object comes: putting the old one back changes nothing.
  return context != nullptr && object != nullptr ? GetStockObject(DEFAULT_GUI_FONT) : nullptr;
}

BOOL DeleteObject(HGDIOBJ) { return FALSE; }

int GetObjectA(HANDLE object, int size, LPVOID record) {
  if (object != GetStockObject(DEFAULT_GUI_FONT) || size < static_cast<int>(sizeof(LOGFONTA)) || record == nullptr) {
    return 0;
  }
  LOGFONTA font{};
  font.lfHeight = -11;
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = DEFAULT_CHARSET;
  std::strncpy(font.lfFaceName, "MS Shell Dlg", sizeof font.lfFaceName - 1);
  std::memcpy(record, &font, sizeof font);
  return static_cast<int>(sizeof font);
}

HFONT CreateFontIndirectA(const LOGFONTA*) { return nullptr; }
HBRUSH CreateSolidBrush(COLORREF) { return nullptr; }
HBRUSH GetSysColorBrush(int) { return nullptr; }
HPEN CreatePen(int, int, COLORREF) { return nullptr; }
HBITMAP CreateBitmap(int, int, UINT, UINT, const void*) { return nullptr; }
HBITMAP CreateCompatibleBitmap(HDC, int, int) { return nullptr; }
BOOL BitBlt(HDC, int, int, int, int, HDC, int, int, DWORD) { return FALSE; }
int SetBkMode(HDC, int) { return 0; }

COLORREF SetBkColor(HDC, COLORREF) { return CLR_INVALID; }

COLORREF SetTextColor(HDC, COLORREF) { return CLR_INVALID; }

UINT SetTextAlign(HDC, UINT) { return 0; }
int FillRect(HDC, const RECT*, HBRUSH) { return 0; }
int FrameRect(HDC, const RECT*, HBRUSH) { return 0; }
BOOL Rectangle(HDC, int, int, int, int) { return FALSE; }
BOOL Ellipse(HDC, int, int, int, int) { return FALSE; }

BOOL MoveToEx(HDC, int, int, POINT* previous) { return failClearing(previous); }

BOOL LineTo(HDC, int, int) { return FALSE; }
BOOL Polyline(HDC, const POINT*, int) { return FALSE; }
BOOL Polygon(HDC, const POINT*, int) { return FALSE; }
BOOL PatBlt(HDC, int, int, int, int, DWORD) { return FALSE; }
BOOL DrawEdge(HDC, RECT*, UINT, UINT) { return FALSE; }
BOOL DrawFocusRect(HDC, const RECT*) { return FALSE; }
BOOL DrawFrameControl(HDC, RECT*, UINT, UINT) { return FALSE; }
BOOL DrawIcon(HDC, int, int, HICON) { return FALSE; }
int DrawTextA(HDC, LPCSTR, int, RECT*, UINT) { return 0; }
int DrawTextW(HDC, LPCWSTR, int, RECT*, UINT) { return 0; }
BOOL TextOutA(HDC, int, int, LPCSTR, int) { return FALSE; }
BOOL TextOutW(HDC, int, int, LPCWSTR, int) { return FALSE; }

BOOL GetTextExtentPoint32A(HDC context, LPCSTR text, int length, SIZE* extent) {
  if (context == nullptr || text == nullptr || length < 0 || extent == nullptr) return failClearing(extent);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  std::transform(text, text + length, wide.begin(),
                 [](char character) { return static_cast<wchar_t>(static_cast<unsigned char>(character)); });
  return GetTextExtentPoint32W(context, wide.c_str(), length, extent);
}

BOOL GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, SIZE* extent) {
  if (context == nullptr || text == nullptr || length < 0 || extent == nullptr) return failClearing(extent);
  *extent = textExtent(text, length);
  return TRUE;
}

BOOL GetTextMetricsA(HDC context, TEXTMETRICA* metrics) {
  failClearing(metrics);
  if (context == nullptr || metrics == nullptr) return FALSE;
  constexpr std::wstring_view alphabet = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  constexpr LONG letters = alphabet.size();
  const SIZE all = textExtent(alphabet.data(), letters);
  metrics->tmHeight = all.cy;
  metrics->tmAscent = static_cast<LONG>(std::lround(static_cast<double>(all.cy) * kAscentShare));
  metrics->tmDescent = metrics->tmHeight - metrics->tmAscent;
  metrics->tmAveCharWidth = (all.cx + letters / 2) / letters;
  metrics->tmMaxCharWidth = textExtent(L"W", 1).cx;
  metrics->tmWeight = FW_NORMAL;
  metrics->tmDigitizedAspectX = 96;
  metrics->tmDigitizedAspectY = 96;
  metrics->tmFirstChar = ' ';
  metrics->tmLastChar = 255;
  metrics->tmDefaultChar = '?';
  metrics->tmBreakChar = ' ';
  return TRUE;
}

int GetDeviceCaps(HDC context, int index) {
  if (context == nullptr) return 0;
  switch (index) {
    case LOGPIXELSX:
    case LOGPIXELSY:
      return 96;
    case BITSPIXEL:
      return 32;
    case HORZRES:
      return kScreenWidth;
    case VERTRES:
      return kScreenHeight;
    default:
      return 0;
  }
}

int SaveDC(HDC) { return 0; }
BOOL RestoreDC(HDC, int) { return FALSE; }
HRGN CreateRectRgn(int, int, int, int) { return nullptr; }
int SelectClipRgn(HDC, HRGN) { return 0; }
int IntersectClipRect(HDC, int, int, int, int) { return 0; }
int ChoosePixelFormat(HDC, const PIXELFORMATDESCRIPTOR*) { return 0; }
BOOL SetPixelFormat(HDC, int, const PIXELFORMATDESCRIPTOR*) { return FALSE; }
BOOL SwapBuffers(HDC) { return FALSE; }
HGLRC wglCreateContext(HDC) { return nullptr; }
BOOL wglDeleteContext(HGLRC) { return FALSE; }
BOOL wglMakeCurrent(HDC, HGLRC) { return FALSE; }
HGLRC wglGetCurrentContext() { return nullptr; }
HDC wglGetCurrentDC() { return nullptr; }

// Rectangles

BOOL SetRect(RECT* rectangle, int left, int top, int right, int bottom) {
  if (rectangle == nullptr) return FALSE;
  *rectangle = {left, top, right, bottom};
  return TRUE;
}

BOOL SetRectEmpty(RECT* rectangle) { return SetRect(rectangle, 0, 0, 0, 0); }

BOOL CopyRect(RECT* to, const RECT* from) {
  if (to == nullptr || from == nullptr) return FALSE;
  *to = *from;
  return TRUE;
}

BOOL InflateRect(RECT* rectangle, int x, int y) {
  if (rectangle == nullptr) return FALSE;
  *rectangle = {rectangle->left - x, rectangle->top - y, rectangle->right + x, rectangle->bottom + y};
  return TRUE;
}

BOOL OffsetRect(RECT* rectangle, int x, int y) {
  if (rectangle == nullptr) return FALSE;
  *rectangle = {rectangle->left + x, rectangle->top + y, rectangle->right + x, rectangle->bottom + y};
  return TRUE;
}

BOOL IntersectRect(RECT* result, const RECT* first, const RECT* second) {
  if (result == nullptr || first == nullptr || second == nullptr) return failClearing(result);
  const RECT common = {std::max(first->left, second->left), std::max(first->top, second->top),
                       std::min(first->right, second->right), std::min(first->bottom, second->bottom)};
  if (IsRectEmpty(first) || IsRectEmpty(second) || IsRectEmpty(&common)) return failClearing(result);
  *result = common;
  return TRUE;
}

BOOL UnionRect(RECT* result, const RECT* first, const RECT* second) {
  if (result == nullptr || first == nullptr || second == nullptr) return failClearing(result);
  if (IsRectEmpty(first) && IsRectEmpty(second)) return failClearing(result);
  if (IsRectEmpty(first)) return CopyRect(result, second);
  if (IsRectEmpty(second)) return CopyRect(result, first);
  *result = {std::min(first->left, second->left), std::min(first->top, second->top),
             std::max(first->right, second->right), std::max(first->bottom, second->bottom)};
  return TRUE;
}

BOOL IsRectEmpty(const RECT* rectangle) {
  return rectangle == nullptr || rectangle->left >= rectangle->right || rectangle->top >= rectangle->bottom;
}

BOOL EqualRect(const RECT* first, const RECT* second) {
  return first != nullptr && second != nullptr && first->left == second->left && first->top == second->top &&
         first->right == second->right && first->bottom == second->bottom;
}

BOOL PtInRect(const RECT* rectangle, POINT point) {
  return rectangle != nullptr && point.x >= rectangle->left && point.x < rectangle->right &&
         point.y >= rectangle->top && point.y < rectangle->bottom;
}

// Icons, cursors and other resources
HICON LoadIconA(HINSTANCE, LPCSTR) { return nullptr; }
HCURSOR LoadCursorA(HINSTANCE, LPCSTR) { return nullptr; }
HBITMAP LoadBitmapA(HINSTANCE, LPCSTR) { return nullptr; }
HANDLE LoadImageA(HINSTANCE, LPCSTR, UINT, int, int, UINT) { return nullptr; }
BOOL DestroyIcon(HICON) { return FALSE; }
BOOL DestroyCursor(HCURSOR) { return FALSE; }
HMODULE LoadLibraryA(LPCSTR) { return nullptr; }
BOOL FreeLibrary(HMODULE) { return FALSE; }
FARPROC GetProcAddress(HMODULE, LPCSTR) { return nullptr; }

HMODULE GetModuleHandleA(LPCSTR name) {
  return name == nullptr ? reinterpret_cast<HMODULE>(&s_programModule) : nullptr;
}

DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD size) {
  if (path == nullptr || size == 0) return 0;
  *path = '\0';
  if (module != nullptr && module != GetModuleHandleA(nullptr)) return 0;
  std::error_code error;
  const std::string program = std::filesystem::read_symlink("/proc/self/exe", error).string();
  if (error) return 0;
  const std::size_t length = std::min<std::size_t>(program.size(), size - 1);
  program.copy(path, length);
  path[length] = '\0';
  // A path that was cut off counts as filling the whole buffer.
  return program.size() > length ? size : static_cast<DWORD>(length);
}

// System

int GetSystemMetrics(int index) {
  const auto* metric = std::find_if(std::begin(kMetrics), std::end(kMetrics),
                                    [index](const Metric& candidate) { return candidate.index == index; });
  return metric != std::end(kMetrics) ? metric->value : 0;
}

DWORD GetSysColor(int index) {
  return index >= 0 && index < static_cast<int>(kColors.size()) ? kColors[static_cast<std::size_t>(index)] : 0;
}

BOOL SystemParametersInfoA(UINT parameter, UINT, LPVOID result, UINT) {
  if (result == nullptr) return FALSE;
  if (parameter == SPI_GETWORKAREA) return SetRect(static_cast<RECT*>(result), 0, 0, kScreenWidth, kScreenHeight);
  if (parameter != SPI_GETWHEELSCROLLLINES) return FALSE;
  *static_cast<UINT*>(result) = 3;
  return TRUE;
}

BOOL GetVersionExA(OSVERSIONINFOA*) { return FALSE; }
HMONITOR MonitorFromWindow(HWND, DWORD) { return nullptr; }
BOOL GetMonitorInfoA(HMONITOR, MONITORINFO*) { return FALSE; }
int MessageBoxA(HWND, LPCSTR, LPCSTR, UINT) { return 0; }
int MessageBoxW(HWND, LPCWSTR, LPCWSTR, UINT) { return 0; }
BOOL MessageBeep(UINT) { return FALSE; }
BOOL GetOpenFileNameA(OPENFILENAMEA*) { return FALSE; }
BOOL GetSaveFileNameA(OPENFILENAMEA*) { return FALSE; }
DWORD CommDlgExtendedError() { return 0; }

DWORD_PTR SHGetFileInfoA(LPCSTR, DWORD, SHFILEINFOA* info, UINT, UINT) {
  failClearing(info);
  return 0;
}

DWORD GetLastError() { return s_lastError; }

void SetLastError(DWORD error) { s_lastError = error; }

DWORD GetTickCount() {
  const auto since = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<DWORD>(std::chrono::duration_cast<std::chrono::milliseconds>(since).count());
}

void Sleep(DWORD milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }

DWORD GetCurrentThreadId() { return static_cast<DWORD>(syscall(SYS_gettid)); }

DWORD GetCurrentProcessId() { return static_cast<DWORD>(getpid()); }
