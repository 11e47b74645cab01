#include "tests/tools/Program.h"

#include <stdexcept>

#include "arbora/base/NbString.h"
#include "src/platform/Win32.h"

namespace {

std::wstring wide(const std::string& text) { return NbString::fromUtf8(text).toWideChar(); }

/// As programs take their command lines apart: a backslash counts double ahead of a quote.
std::wstring quoted(const std::string& word) {
  std::wstring result = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : wide(word)) {
    if (c == L'"') result.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    result += c;
  }
  return result.append(backslashes, L'\\') + L'"';
}

/// A file that the new program can write to.
HANDLE openOutput(const std::string& path) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  return CreateFileW(wide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, &inherited, CREATE_ALWAYS,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

} // namespace

void Program::start(const std::string& path, const std::vector<std::string>& words, const std::string& folder) {
  std::wstring line = quoted(path);
  for (const std::string& word : words) line += L" " + quoted(word);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = openOutput(m_outFile);
  startup.hStdError = openOutput(m_errFile);
  PROCESS_INFORMATION process{};
  const std::wstring wideFolder = wide(folder);
  const BOOL isStarted = CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                        folder.empty() ? nullptr : wideFolder.c_str(), &startup, &process);
  CloseHandle(startup.hStdOutput);
  CloseHandle(startup.hStdError);
  if (!isStarted) throw std::runtime_error("can't start " + path);
  CloseHandle(process.hThread);
  m_process = process.hProcess;
}

int Program::wait() {
  if (m_process) {
    WaitForSingleObject(m_process, INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(m_process, &code);
    m_exitCode = static_cast<int>(code);
    CloseHandle(m_process);
    m_process = nullptr;
  }
  return m_exitCode;
}

void Program::end() {
  if (!m_process) return;
  TerminateProcess(m_process, static_cast<UINT>(-1));
  wait();
}

bool Program::isRunning() { return m_process && WaitForSingleObject(m_process, 0) == WAIT_TIMEOUT; }

WindowPlace placeOfWindow(const std::string& title) {
  const HWND window = FindWindowA(nullptr, title.c_str());
  POINT corner{0, 0};
  if (!IsWindowVisible(window) || !ClientToScreen(window, &corner)) return {};
  return {static_cast<int>(corner.x), static_cast<int>(corner.y)};
}
