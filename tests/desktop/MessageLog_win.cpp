#include "tests/desktop/MessageLog_win.h"

#include <utility>

namespace {

MessageLog* s_log = nullptr;

} // namespace

MessageLog::MessageLog(const std::map<HWND, std::string>& windows, std::map<UINT, std::string> messages)
    : m_messages(std::move(messages)) {
  s_log = this;
  for (const auto& [window, name] : windows) {
    const auto own = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(window, GWLP_WNDPROC));
    m_windows[window] = {name, own};
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(note));
  }
}

MessageLog::~MessageLog() {
  for (const auto& [window, watched] : m_windows)
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(watched.procedure));
  s_log = nullptr;
}

std::string MessageLog::take() { return std::exchange(m_notes, {}); }

LRESULT CALLBACK MessageLog::note(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const Watched watched = s_log->m_windows[window];
  const auto noted = s_log->m_messages.find(message);
  if (noted != s_log->m_messages.end()) {
    std::string& notes = s_log->m_notes;
    notes += (notes.empty() ? "" : ", ") + watched.name + " " + noted->second;
    if (message == WM_SETTEXT) notes += std::string(" '") + reinterpret_cast<const char*>(lParam) + "'";
  }
  return CallWindowProcA(watched.procedure, window, message, wParam, lParam);
}
