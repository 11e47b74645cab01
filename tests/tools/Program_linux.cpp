#include "tests/tools/Program.h"

#include <csignal>
#include <cstdint>
#include <stdexcept>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/TestSupport.h"
#include "tests/win/Desktop.h"

namespace {

pid_t idOf(void* process) { return static_cast<pid_t>(reinterpret_cast<std::intptr_t>(process)); }

} // namespace

void Program::start(const std::string& path, const std::vector<std::string>& words, const std::string& folder) {
  std::vector<std::string> arguments{path};
  arguments.insert(arguments.end(), words.begin(), words.end());
  std::vector<char*> pointers;
  for (std::string& word : arguments) pointers.push_back(word.data());
  pointers.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC;
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, m_outFile.c_str(), kFlags, 0666);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, m_errFile.c_str(), kFlags, 0666);
  if (!folder.empty()) posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
  pid_t id = 0;
  const int error = posix_spawn(&id, path.c_str(), &actions, nullptr, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("can't start " + path);
  m_process = reinterpret_cast<void*>(static_cast<std::intptr_t>(id));
}

int Program::wait() {
  if (m_process) {
    int status = 0;
    waitpid(idOf(m_process), &status, 0);
    m_process = nullptr;
    if (WIFEXITED(status)) m_exitCode = WEXITSTATUS(status);
  }
  return m_exitCode;
}

void Program::end() {
  if (!m_process) return;
  kill(idOf(m_process), SIGKILL);
  wait();
}

bool Program::isRunning() {
  if (!m_process) return false;
  siginfo_t info{};
  waitid(P_PID, static_cast<id_t>(idOf(m_process)), &info, WEXITED | WNOHANG | WNOWAIT);
  return info.si_pid == 0;
}

WindowPlace placeOfWindow(const std::string& title) {
  const std::string file = outputDir() + "/window-place";
  WindowPlace place;
  const bool isThere = desktop::run("xdotool search --onlyvisible --name '^" + title +
                                    "$' getwindowgeometry --shell | sed -n 's/^[XY]=//p' > " + file);
  const std::string text = readFile(file);
  if (isThere) std::sscanf(text.c_str(), "%d %d", &place.x, &place.y);
  return place;
}
