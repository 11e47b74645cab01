#pragma once

#include <cstdlib>

#include "Panelix/NkTopLevelDialog.h"
#include "arbora/win/NkWin.h"

/// Windows by bare calls, as dialogs make them.

inline constexpr int kRows = 1000;
inline constexpr int kRowHeight = 25;
inline constexpr int kRowWidth = 200;
inline constexpr int kLabelWidth = 60;
inline constexpr DWORD kFrameStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;

inline HWND makeWindow(DWORD extendedStyle, const char* className, DWORD style, HWND parent) {
  const HWND window = CreateWindowExA(extendedStyle, className, "Panel", style, 0, 0, 0, 0, parent, nullptr,
                                      NkWin::getInstance(), nullptr);
  if (!window) std::abort();
  return window;
}

inline HWND makeControl(const wchar_t* className, DWORD style, HWND parent) {
  const HWND window =
      CreateWindowExW(0, className, L"Panel", style, 0, 0, 0, 0, parent, nullptr, NkWin::getInstance(), nullptr);
  if (!window) std::abort();
  SendMessageA(window, WM_SETFONT, reinterpret_cast<WPARAM>(NkPanelix::getPanelixFont()), TRUE);
  return window;
}

inline HWND makeButton(DWORD style, HWND parent) {
  return makeControl(L"BUTTON", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_TABSTOP | BS_MULTILINE | style, parent);
}

/// A frame window with a window that fills it.
struct Frame {
  Frame() {
    NbString name = "BenchmarkFrame";
    WNDCLASSA record{};
    record.style = CS_PARENTDC | CS_HREDRAW | CS_VREDRAW;
    record.lpfnWndProc = DefWindowProcA;
    record.cbWndExtra = sizeof(void*);
    record.hInstance = NkWin::getInstance();
    record.lpszClassName = "BenchmarkFrame";
    NkWin::registerClass(record, name);
    base = makeWindow(WS_EX_WINDOWEDGE, "BenchmarkFrame", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, nullptr);
    inside = makeWindow(0, "BenchmarkFrame", kFrameStyle, base);
    SetWindowPos(base, nullptr, 0, 0, kRowWidth, kRows * kRowHeight, SWP_NOZORDER | SWP_NOMOVE);
    SetWindowPos(inside, nullptr, 0, 0, kRowWidth, kRows * kRowHeight, SWP_NOMOVE);
  }
  ~Frame() { DestroyWindow(base); }
  Frame(const Frame&) = delete;
  Frame& operator=(const Frame&) = delete;

  HWND base;
  HWND inside;
};
