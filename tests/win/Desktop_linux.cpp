#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/TestSupport.h"
#include "tests/win/Desktop.h"

namespace desktop {
namespace {

/// An X server without a screen, on the first number that's free.
class Server {
public:
  Server() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    std::array<std::string, 8> words{"Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"};
    std::array<char*, words.size() + 1> arguments{};
    for (std::size_t i = 0; i < words.size(); ++i) arguments[i] = words[i].data();
    if (posix_spawnp(&m_process, "Xvfb", &actions, nullptr, arguments.data(), environ) != 0) m_process = 0;
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    std::string number;
    for (char character = 0; read(ends[0], &character, 1) == 1 && character != '\n';) number += character;
    close(ends[0]);
    if (number.empty()) throw std::runtime_error("Xvfb could not be started");
    setenv("DISPLAY", (":" + number).c_str(), 1);
    unsetenv("WAYLAND_DISPLAY");
  }
  ~Server() {
    if (m_process == 0) return;
    kill(m_process, SIGTERM);
    waitpid(m_process, nullptr, 0);
  }

private:
  pid_t m_process = 0;
};

} // namespace

void start() { static const Server s_server; }

void launch(const std::string& command) {
  if (std::system(("(" + command + ") > /dev/null 2>&1 &").c_str()) != 0) throw std::runtime_error("no shell");
}

std::string shellPath(const std::string& path) { return path; }

/// The window is asked for by its title, as areas have no handles here.
std::array<int, 2> placeOf(const NkRenderArea& area) {
  const std::string file = outputDir() + "/place";
  run("xdotool search --onlyvisible --name '^" + area.getTitle().toUtf8() +
      "$' getwindowgeometry --shell | sed -n 's/^[XY]=//p' > " + file);
  std::array<int, 2> place{-1, -1};
  std::ifstream(file) >> place[0] >> place[1];
  return place;
}

} // namespace desktop
