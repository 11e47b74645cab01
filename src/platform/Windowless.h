#pragma once

#include "arbora/win/export.h"
#include "src/platform/WindowlessConstants.h"
#include "src/platform/WindowlessTypes.h"

/// The part of the Win32 interface that the toolkit uses, for a system where no window can be made. Do not include it
/// directly: platform/Win32.h chooses.
///
/// Names, constants and members are those of Windows; scripts/lint.sh compares the constants with the real headers.
/// Making a window, menu, icon or accelerator table gives NULL, IsWindow is FALSE, and every call on one of those
/// fails quietly: it gives 0, NULL or FALSE, and what it would fill in is zero or empty. These work: text extents and
/// metrics in the toolkit's font, system metrics, colours, parameters, stock objects, rectangles, ticks, the name of
/// the running program. GetMessage finds no message and never will, so it gives 0, which ends a message loop.

// What Windows has as macros

#define HWND_TOP (static_cast<HWND>(nullptr))
#define HWND_BOTTOM (reinterpret_cast<HWND>(LONG_PTR{1}))
#define HWND_TOPMOST (reinterpret_cast<HWND>(LONG_PTR{-1}))
#define HWND_NOTOPMOST (reinterpret_cast<HWND>(LONG_PTR{-2}))
#define HWND_DESKTOP (static_cast<HWND>(nullptr))
#define MAKEINTRESOURCEA(number) (reinterpret_cast<LPSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(number))))
#define RGB(red, green, blue) (static_cast<COLORREF>(((red)&0xff) | (((green)&0xff) << 8) | (((blue)&0xff) << 16)))
#define IDC_ARROW MAKEINTRESOURCEA(32512)
#define IDC_IBEAM MAKEINTRESOURCEA(32513)
#define IDC_WAIT MAKEINTRESOURCEA(32514)
#define IDC_CROSS MAKEINTRESOURCEA(32515)
#define IDC_SIZENWSE MAKEINTRESOURCEA(32642)
#define IDC_SIZENESW MAKEINTRESOURCEA(32643)
#define IDC_SIZEWE MAKEINTRESOURCEA(32644)
#define IDC_SIZENS MAKEINTRESOURCEA(32645)
#define IDC_SIZEALL MAKEINTRESOURCEA(32646)
#define IDC_NO MAKEINTRESOURCEA(32648)
#define IDC_HAND MAKEINTRESOURCEA(32649)
#define IDI_APPLICATION MAKEINTRESOURCEA(32512)
#define IDI_ERROR MAKEINTRESOURCEA(32513)
#define IDI_QUESTION MAKEINTRESOURCEA(32514)
#define IDI_WARNING MAKEINTRESOURCEA(32515)
#define IDI_INFORMATION MAKEINTRESOURCEA(32516)
#define WC_TABCONTROLA "SysTabControl32"
#define WC_BUTTONA "Button"
#define WC_STATICA "Static"
#define WC_EDITA "Edit"
#define WC_COMBOBOXA "ComboBox"
#define WC_SCROLLBARA "ScrollBar"
#define TOOLTIPS_CLASSA "tooltips_class32"

constexpr WORD LOWORD(DWORD_PTR value) { return static_cast<WORD>(value & 0xffff); }
constexpr WORD HIWORD(DWORD_PTR value) { return static_cast<WORD>((value >> 16) & 0xffff); }
constexpr BYTE LOBYTE(DWORD_PTR value) { return static_cast<BYTE>(value & 0xff); }
constexpr BYTE HIBYTE(DWORD_PTR value) { return static_cast<BYTE>((value >> 8) & 0xff); }
constexpr LONG MAKELONG(DWORD_PTR low, DWORD_PTR high) {
  return static_cast<LONG>((low & 0xffff) | ((high & 0xffff) << 16));
}
constexpr LPARAM MAKELPARAM(DWORD_PTR low, DWORD_PTR high) {
  return static_cast<LPARAM>((low & 0xffff) | ((high & 0xffff) << 16));
}
constexpr WPARAM MAKEWPARAM(DWORD_PTR low, DWORD_PTR high) { return (low & 0xffff) | ((high & 0xffff) << 16); }
constexpr int GET_X_LPARAM(LPARAM value) { return static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(value))); }
constexpr int GET_Y_LPARAM(LPARAM value) { return static_cast<SHORT>(HIWORD(static_cast<DWORD_PTR>(value))); }
constexpr SHORT GET_WHEEL_DELTA_WPARAM(WPARAM value) { return static_cast<SHORT>(HIWORD(value)); }
constexpr WORD GET_KEYSTATE_WPARAM(WPARAM value) { return LOWORD(value); }
constexpr BYTE GetRValue(COLORREF color) { return static_cast<BYTE>(color & 0xff); }
constexpr BYTE GetGValue(COLORREF color) { return static_cast<BYTE>((color >> 8) & 0xff); }
constexpr BYTE GetBValue(COLORREF color) { return static_cast<BYTE>((color >> 16) & 0xff); }

// Windows and their classes
ARBORAWIN_API ATOM RegisterClassA(const WNDCLASSA* record);
ARBORAWIN_API ATOM RegisterClassW(const WNDCLASSW* record);
ARBORAWIN_API ATOM RegisterClassExA(const WNDCLASSEXA* record);
ARBORAWIN_API BOOL UnregisterClassA(LPCSTR name, HINSTANCE instance);
ARBORAWIN_API BOOL GetClassInfoA(HINSTANCE instance, LPCSTR name, WNDCLASSA* record);
ARBORAWIN_API int GetClassNameA(HWND window, LPSTR name, int size);
ARBORAWIN_API HWND CreateWindowExA(DWORD extendedStyle, LPCSTR className, LPCSTR title, DWORD style, int x, int y,
                                   int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                                   LPVOID parameter);
ARBORAWIN_API HWND CreateWindowExW(DWORD extendedStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                                   int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                                   LPVOID parameter);
ARBORAWIN_API BOOL DestroyWindow(HWND window);
ARBORAWIN_API BOOL IsWindow(HWND window);
ARBORAWIN_API BOOL IsWindowVisible(HWND window);
ARBORAWIN_API BOOL IsWindowEnabled(HWND window);
ARBORAWIN_API BOOL IsWindowUnicode(HWND window);
ARBORAWIN_API BOOL IsChild(HWND parent, HWND window);
ARBORAWIN_API BOOL IsIconic(HWND window);
ARBORAWIN_API BOOL IsZoomed(HWND window);
ARBORAWIN_API BOOL ShowWindow(HWND window, int command);
ARBORAWIN_API BOOL UpdateWindow(HWND window);
ARBORAWIN_API BOOL EnableWindow(HWND window, BOOL enable);
ARBORAWIN_API BOOL CloseWindow(HWND window);
ARBORAWIN_API BOOL BringWindowToTop(HWND window);
ARBORAWIN_API BOOL SetForegroundWindow(HWND window);
ARBORAWIN_API HWND GetForegroundWindow();
ARBORAWIN_API HWND GetDesktopWindow();
ARBORAWIN_API HWND GetActiveWindow();
ARBORAWIN_API HWND SetActiveWindow(HWND window);
ARBORAWIN_API HWND GetParent(HWND window);
ARBORAWIN_API HWND SetParent(HWND window, HWND parent);
ARBORAWIN_API HWND GetAncestor(HWND window, UINT kind);
ARBORAWIN_API HWND GetWindow(HWND window, UINT kind);
ARBORAWIN_API HWND GetTopWindow(HWND window);
ARBORAWIN_API HWND FindWindowA(LPCSTR className, LPCSTR title);
ARBORAWIN_API HWND GetDlgItem(HWND dialog, int identifier);
ARBORAWIN_API int GetDlgCtrlID(HWND window);
ARBORAWIN_API HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
ARBORAWIN_API HWND WindowFromPoint(POINT point);
ARBORAWIN_API HWND ChildWindowFromPoint(HWND parent, POINT point);
ARBORAWIN_API BOOL EnumChildWindows(HWND parent, WNDENUMPROC callback, LPARAM data);
ARBORAWIN_API BOOL EnumThreadWindows(DWORD thread, WNDENUMPROC callback, LPARAM data);
ARBORAWIN_API DWORD GetWindowThreadProcessId(HWND window, DWORD* process);
ARBORAWIN_API BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
ARBORAWIN_API BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
ARBORAWIN_API HDWP BeginDeferWindowPos(int count);
ARBORAWIN_API HDWP DeferWindowPos(HDWP positions, HWND window, HWND after, int x, int y, int width, int height,
                                  UINT flags);
ARBORAWIN_API BOOL EndDeferWindowPos(HDWP positions);
ARBORAWIN_API BOOL GetWindowRect(HWND window, RECT* rectangle);
ARBORAWIN_API BOOL GetClientRect(HWND window, RECT* rectangle);
ARBORAWIN_API BOOL GetWindowPlacement(HWND window, WINDOWPLACEMENT* placement);
ARBORAWIN_API BOOL GetTitleBarInfo(HWND window, TITLEBARINFO* info);
ARBORAWIN_API BOOL AdjustWindowRect(RECT* rectangle, DWORD style, BOOL menu);
ARBORAWIN_API BOOL AdjustWindowRectEx(RECT* rectangle, DWORD style, BOOL menu, DWORD extendedStyle);
ARBORAWIN_API BOOL ClientToScreen(HWND window, POINT* point);
ARBORAWIN_API BOOL ScreenToClient(HWND window, POINT* point);
ARBORAWIN_API int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count);
ARBORAWIN_API BOOL SetWindowTextA(HWND window, LPCSTR text);
ARBORAWIN_API BOOL SetWindowTextW(HWND window, LPCWSTR text);
ARBORAWIN_API int GetWindowTextA(HWND window, LPSTR text, int size);
ARBORAWIN_API int GetWindowTextW(HWND window, LPWSTR text, int size);
ARBORAWIN_API int GetWindowTextLengthA(HWND window);
ARBORAWIN_API int GetWindowTextLengthW(HWND window);
ARBORAWIN_API LONG GetWindowLongA(HWND window, int index);
ARBORAWIN_API LONG GetWindowLongW(HWND window, int index);
ARBORAWIN_API LONG SetWindowLongA(HWND window, int index, LONG value);
ARBORAWIN_API LONG SetWindowLongW(HWND window, int index, LONG value);
ARBORAWIN_API LONG_PTR GetWindowLongPtrA(HWND window, int index);
ARBORAWIN_API LONG_PTR GetWindowLongPtrW(HWND window, int index);
ARBORAWIN_API LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
ARBORAWIN_API LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
ARBORAWIN_API ULONG_PTR GetClassLongPtrA(HWND window, int index);
ARBORAWIN_API ULONG_PTR SetClassLongPtrA(HWND window, int index, LONG_PTR value);
ARBORAWIN_API BOOL SetPropA(HWND window, LPCSTR name, HANDLE value);
ARBORAWIN_API HANDLE GetPropA(HWND window, LPCSTR name);
ARBORAWIN_API HANDLE RemovePropA(HWND window, LPCSTR name);
ARBORAWIN_API HWND CreateDialogParamA(HINSTANCE instance, LPCSTR name, HWND parent, DLGPROC procedure, LPARAM data);
ARBORAWIN_API BOOL EndDialog(HWND dialog, INT_PTR result);
ARBORAWIN_API void InitCommonControls();
ARBORAWIN_API BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes);

// Messages and the loop
ARBORAWIN_API LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
ARBORAWIN_API LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
ARBORAWIN_API LRESULT SendDlgItemMessageA(HWND dialog, int identifier, UINT message, WPARAM wParam, LPARAM lParam);
ARBORAWIN_API BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
ARBORAWIN_API BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
ARBORAWIN_API BOOL PostThreadMessageA(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam);
ARBORAWIN_API void PostQuitMessage(int exitCode);
ARBORAWIN_API BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last);
ARBORAWIN_API BOOL GetMessageW(MSG* message, HWND window, UINT first, UINT last);
ARBORAWIN_API BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove);
ARBORAWIN_API BOOL PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove);
ARBORAWIN_API BOOL TranslateMessage(const MSG* message);
ARBORAWIN_API LRESULT DispatchMessageA(const MSG* message);
ARBORAWIN_API LRESULT DispatchMessageW(const MSG* message);
ARBORAWIN_API BOOL IsDialogMessageA(HWND dialog, MSG* message);
ARBORAWIN_API BOOL WaitMessage();
ARBORAWIN_API DWORD MsgWaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL all, DWORD milliseconds,
                                              DWORD wakeMask);
ARBORAWIN_API DWORD GetMessagePos();
ARBORAWIN_API LONG GetMessageTime();
ARBORAWIN_API UINT RegisterWindowMessageA(LPCSTR name);
ARBORAWIN_API LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
ARBORAWIN_API LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
ARBORAWIN_API LRESULT DefDlgProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
ARBORAWIN_API LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
ARBORAWIN_API LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
ARBORAWIN_API HACCEL CreateAcceleratorTableA(ACCEL* records, int count);
ARBORAWIN_API BOOL DestroyAcceleratorTable(HACCEL table);
ARBORAWIN_API int CopyAcceleratorTableA(HACCEL table, ACCEL* records, int count);
ARBORAWIN_API int TranslateAcceleratorA(HWND window, HACCEL table, MSG* message);
ARBORAWIN_API UINT_PTR SetTimer(HWND window, UINT_PTR identifier, UINT milliseconds, TIMERPROC callback);
ARBORAWIN_API BOOL KillTimer(HWND window, UINT_PTR identifier);

// Keyboard and mouse
ARBORAWIN_API HWND SetFocus(HWND window);
ARBORAWIN_API HWND GetFocus();
ARBORAWIN_API HWND SetCapture(HWND window);
ARBORAWIN_API HWND GetCapture();
ARBORAWIN_API BOOL ReleaseCapture();
ARBORAWIN_API SHORT GetKeyState(int key);
ARBORAWIN_API SHORT GetAsyncKeyState(int key);
ARBORAWIN_API BOOL GetCursorPos(POINT* point);
ARBORAWIN_API BOOL SetCursorPos(int x, int y);
ARBORAWIN_API HCURSOR SetCursor(HCURSOR cursor);
ARBORAWIN_API int ShowCursor(BOOL show);
ARBORAWIN_API BOOL TrackMouseEvent(TRACKMOUSEEVENT* request);
ARBORAWIN_API UINT GetDoubleClickTime();
ARBORAWIN_API BOOL DragDetect(HWND window, POINT point);
ARBORAWIN_API SHORT VkKeyScanA(CHAR character);
ARBORAWIN_API UINT MapVirtualKeyA(UINT code, UINT kind);

// Scroll bars
ARBORAWIN_API int SetScrollInfo(HWND window, int bar, const SCROLLINFO* info, BOOL redraw);
ARBORAWIN_API BOOL GetScrollInfo(HWND window, int bar, SCROLLINFO* info);
ARBORAWIN_API int SetScrollPos(HWND window, int bar, int position, BOOL redraw);
ARBORAWIN_API int GetScrollPos(HWND window, int bar);
ARBORAWIN_API BOOL SetScrollRange(HWND window, int bar, int minimum, int maximum, BOOL redraw);
ARBORAWIN_API BOOL ShowScrollBar(HWND window, int bar, BOOL show);
ARBORAWIN_API BOOL EnableScrollBar(HWND window, UINT bar, UINT arrows);
ARBORAWIN_API BOOL ScrollWindow(HWND window, int x, int y, const RECT* area, const RECT* clip);
ARBORAWIN_API int ScrollWindowEx(HWND window, int x, int y, const RECT* area, const RECT* clip, HRGN updateRegion,
                                 RECT* updateArea, UINT flags);

// Menus
ARBORAWIN_API HMENU CreateMenu();
ARBORAWIN_API HMENU CreatePopupMenu();
ARBORAWIN_API BOOL DestroyMenu(HMENU menu);
ARBORAWIN_API BOOL IsMenu(HMENU menu);
ARBORAWIN_API HMENU GetMenu(HWND window);
ARBORAWIN_API BOOL SetMenu(HWND window, HMENU menu);
ARBORAWIN_API BOOL DrawMenuBar(HWND window);
ARBORAWIN_API HMENU GetSubMenu(HMENU menu, int position);
ARBORAWIN_API HMENU GetSystemMenu(HWND window, BOOL revert);
ARBORAWIN_API int GetMenuItemCount(HMENU menu);
ARBORAWIN_API UINT GetMenuItemID(HMENU menu, int position);
ARBORAWIN_API UINT GetMenuState(HMENU menu, UINT item, UINT flags);
ARBORAWIN_API int GetMenuStringA(HMENU menu, UINT item, LPSTR text, int size, UINT flags);
ARBORAWIN_API BOOL InsertMenuItemA(HMENU menu, UINT item, BOOL byPosition, const MENUITEMINFOA* info);
ARBORAWIN_API BOOL InsertMenuItemW(HMENU menu, UINT item, BOOL byPosition, const MENUITEMINFOW* info);
ARBORAWIN_API BOOL SetMenuItemInfoA(HMENU menu, UINT item, BOOL byPosition, const MENUITEMINFOA* info);
ARBORAWIN_API BOOL SetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, const MENUITEMINFOW* info);
ARBORAWIN_API BOOL GetMenuItemInfoA(HMENU menu, UINT item, BOOL byPosition, MENUITEMINFOA* info);
ARBORAWIN_API BOOL GetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, MENUITEMINFOW* info);
ARBORAWIN_API BOOL AppendMenuA(HMENU menu, UINT flags, UINT_PTR item, LPCSTR text);
ARBORAWIN_API BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR item, LPCWSTR text);
ARBORAWIN_API BOOL RemoveMenu(HMENU menu, UINT item, UINT flags);
ARBORAWIN_API BOOL DeleteMenu(HMENU menu, UINT item, UINT flags);
ARBORAWIN_API BOOL EnableMenuItem(HMENU menu, UINT item, UINT flags);
ARBORAWIN_API DWORD CheckMenuItem(HMENU menu, UINT item, UINT flags);
ARBORAWIN_API BOOL CheckMenuRadioItem(HMENU menu, UINT first, UINT last, UINT checked, UINT flags);
ARBORAWIN_API BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND window, const RECT* area);

// Drawing
ARBORAWIN_API HDC GetDC(HWND window);
ARBORAWIN_API HDC GetWindowDC(HWND window);
ARBORAWIN_API int ReleaseDC(HWND window, HDC context);
ARBORAWIN_API HDC CreateCompatibleDC(HDC context);
ARBORAWIN_API BOOL DeleteDC(HDC context);
ARBORAWIN_API HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
ARBORAWIN_API BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);
ARBORAWIN_API BOOL InvalidateRect(HWND window, const RECT* area, BOOL erase);
ARBORAWIN_API BOOL ValidateRect(HWND window, const RECT* area);
ARBORAWIN_API BOOL RedrawWindow(HWND window, const RECT* area, HRGN region, UINT flags);
ARBORAWIN_API BOOL GetUpdateRect(HWND window, RECT* area, BOOL erase);
ARBORAWIN_API HGDIOBJ GetStockObject(int object);
ARBORAWIN_API HGDIOBJ SelectObject(HDC context, HGDIOBJ object);
ARBORAWIN_API BOOL DeleteObject(HGDIOBJ object);
ARBORAWIN_API int GetObjectA(HANDLE object, int size, LPVOID record);
ARBORAWIN_API HFONT CreateFontIndirectA(const LOGFONTA* record);
ARBORAWIN_API HBRUSH CreateSolidBrush(COLORREF color);
ARBORAWIN_API HBRUSH GetSysColorBrush(int index);
ARBORAWIN_API HPEN CreatePen(int style, int width, COLORREF color);
ARBORAWIN_API HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bits, const void* data);
ARBORAWIN_API HBITMAP CreateCompatibleBitmap(HDC context, int width, int height);
ARBORAWIN_API BOOL BitBlt(HDC to, int x, int y, int width, int height, HDC from, int fromX, int fromY, DWORD operation);
ARBORAWIN_API int SetBkMode(HDC context, int mode);
ARBORAWIN_API COLORREF SetBkColor(HDC context, COLORREF color);
ARBORAWIN_API COLORREF SetTextColor(HDC context, COLORREF color);
ARBORAWIN_API UINT SetTextAlign(HDC context, UINT alignment);
ARBORAWIN_API int FillRect(HDC context, const RECT* area, HBRUSH brush);
ARBORAWIN_API int FrameRect(HDC context, const RECT* area, HBRUSH brush);
ARBORAWIN_API BOOL Rectangle(HDC context, int left, int top, int right, int bottom);
ARBORAWIN_API BOOL Ellipse(HDC context, int left, int top, int right, int bottom);
ARBORAWIN_API BOOL MoveToEx(HDC context, int x, int y, POINT* previous);
ARBORAWIN_API BOOL LineTo(HDC context, int x, int y);
ARBORAWIN_API BOOL Polyline(HDC context, const POINT* points, int count);
ARBORAWIN_API BOOL Polygon(HDC context, const POINT* points, int count);
ARBORAWIN_API BOOL PatBlt(HDC context, int x, int y, int width, int height, DWORD operation);
ARBORAWIN_API BOOL DrawEdge(HDC context, RECT* area, UINT edge, UINT flags);
ARBORAWIN_API BOOL DrawFocusRect(HDC context, const RECT* area);
ARBORAWIN_API BOOL DrawFrameControl(HDC context, RECT* area, UINT kind, UINT state);
ARBORAWIN_API BOOL DrawIcon(HDC context, int x, int y, HICON icon);
ARBORAWIN_API int DrawTextA(HDC context, LPCSTR text, int length, RECT* area, UINT format);
ARBORAWIN_API int DrawTextW(HDC context, LPCWSTR text, int length, RECT* area, UINT format);
ARBORAWIN_API BOOL TextOutA(HDC context, int x, int y, LPCSTR text, int length);
ARBORAWIN_API BOOL TextOutW(HDC context, int x, int y, LPCWSTR text, int length);
ARBORAWIN_API BOOL GetTextExtentPoint32A(HDC context, LPCSTR text, int length, SIZE* extent);
ARBORAWIN_API BOOL GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, SIZE* extent);
ARBORAWIN_API BOOL GetTextMetricsA(HDC context, TEXTMETRICA* metrics);
ARBORAWIN_API int GetDeviceCaps(HDC context, int index);
ARBORAWIN_API int SaveDC(HDC context);
ARBORAWIN_API BOOL RestoreDC(HDC context, int saved);
ARBORAWIN_API HRGN CreateRectRgn(int left, int top, int right, int bottom);
ARBORAWIN_API int SelectClipRgn(HDC context, HRGN region);
ARBORAWIN_API int IntersectClipRect(HDC context, int left, int top, int right, int bottom);
ARBORAWIN_API int ChoosePixelFormat(HDC context, const PIXELFORMATDESCRIPTOR* format);
ARBORAWIN_API BOOL SetPixelFormat(HDC context, int index, const PIXELFORMATDESCRIPTOR* format);
ARBORAWIN_API BOOL SwapBuffers(HDC context);
ARBORAWIN_API HGLRC wglCreateContext(HDC context);
ARBORAWIN_API BOOL wglDeleteContext(HGLRC glContext);
ARBORAWIN_API BOOL wglMakeCurrent(HDC context, HGLRC glContext);
ARBORAWIN_API HGLRC wglGetCurrentContext();
ARBORAWIN_API HDC wglGetCurrentDC();

// Rectangles
ARBORAWIN_API BOOL SetRect(RECT* rectangle, int left, int top, int right, int bottom);
ARBORAWIN_API BOOL SetRectEmpty(RECT* rectangle);
ARBORAWIN_API BOOL CopyRect(RECT* to, const RECT* from);
ARBORAWIN_API BOOL InflateRect(RECT* rectangle, int x, int y);
ARBORAWIN_API BOOL OffsetRect(RECT* rectangle, int x, int y);
ARBORAWIN_API BOOL IntersectRect(RECT* result, const RECT* first, const RECT* second);
ARBORAWIN_API BOOL UnionRect(RECT* result, const RECT* first, const RECT* second);
ARBORAWIN_API BOOL IsRectEmpty(const RECT* rectangle);
ARBORAWIN_API BOOL EqualRect(const RECT* first, const RECT* second);
ARBORAWIN_API BOOL PtInRect(const RECT* rectangle, POINT point);

// Icons, cursors and other resources
ARBORAWIN_API HICON LoadIconA(HINSTANCE instance, LPCSTR name);
ARBORAWIN_API HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name);
ARBORAWIN_API HBITMAP LoadBitmapA(HINSTANCE instance, LPCSTR name);
ARBORAWIN_API HANDLE LoadImageA(HINSTANCE instance, LPCSTR name, UINT kind, int width, int height, UINT flags);
ARBORAWIN_API BOOL DestroyIcon(HICON icon);
ARBORAWIN_API BOOL DestroyCursor(HCURSOR cursor);
ARBORAWIN_API HMODULE LoadLibraryA(LPCSTR name);
ARBORAWIN_API BOOL FreeLibrary(HMODULE module);
ARBORAWIN_API FARPROC GetProcAddress(HMODULE module, LPCSTR name);
ARBORAWIN_API HMODULE GetModuleHandleA(LPCSTR name);
ARBORAWIN_API DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD size);

// System
ARBORAWIN_API int GetSystemMetrics(int index);
ARBORAWIN_API DWORD GetSysColor(int index);
ARBORAWIN_API BOOL SystemParametersInfoA(UINT parameter, UINT value, LPVOID result, UINT update);
ARBORAWIN_API BOOL GetVersionExA(OSVERSIONINFOA* version);
ARBORAWIN_API HMONITOR MonitorFromWindow(HWND window, DWORD flags);
ARBORAWIN_API BOOL GetMonitorInfoA(HMONITOR monitor, MONITORINFO* info);
ARBORAWIN_API int MessageBoxA(HWND parent, LPCSTR text, LPCSTR title, UINT type);
ARBORAWIN_API int MessageBoxW(HWND parent, LPCWSTR text, LPCWSTR title, UINT type);
ARBORAWIN_API BOOL MessageBeep(UINT type);
ARBORAWIN_API BOOL GetOpenFileNameA(OPENFILENAMEA* request);
ARBORAWIN_API BOOL GetSaveFileNameA(OPENFILENAMEA* request);
ARBORAWIN_API DWORD CommDlgExtendedError();
ARBORAWIN_API DWORD_PTR SHGetFileInfoA(LPCSTR path, DWORD attributes, SHFILEINFOA* info, UINT size, UINT flags);
ARBORAWIN_API DWORD GetLastError();
ARBORAWIN_API void SetLastError(DWORD error);
ARBORAWIN_API DWORD GetTickCount();
ARBORAWIN_API void Sleep(DWORD milliseconds);
ARBORAWIN_API DWORD GetCurrentThreadId();
ARBORAWIN_API DWORD GetCurrentProcessId();
