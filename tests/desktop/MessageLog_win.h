#pragma once

#include <map>
#include <string>

#include "src/platform/Win32.h"

/// Notes which messages reach certain windows of this thread, in order.
class MessageLog {
public:
  /// Names the windows that it watches and the messages that it notes.
  MessageLog(const std::map<HWND, std::string>& windows, std::map<UINT, std::string> messages);
  ~MessageLog();
  MessageLog(const MessageLog&) = delete;
  MessageLog& operator=(const MessageLog&) = delete;

  /// The notes since the last call, each as "window message"; that of WM_SETTEXT has the text behind it.
  std::string take();

private:
  static LRESULT CALLBACK note(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  struct Watched {
    std::string name;
    WNDPROC procedure;
  };
  std::map<HWND, Watched> m_windows;
  std::map<UINT, std::string> m_messages;
  std::string m_notes;
};
