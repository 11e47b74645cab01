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

// Last, as it has macros for common words.
#include <X11/Xlib.h>

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
    // Without -noreset it would refuse new windows for a moment whenever the last one has gone.
    std::array<std::string, 9> words{"Xvfb",         "-displayfd", "1",   "-screen", "0",
                                     "1280x1024x24", "-nolisten",  "tcp", "-noreset"};
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

/// Words of xdotool that look for an area's window by its title, as areas have no handles here.
static std::string searchFor(const NkRenderArea& area) {
  return "xdotool search --onlyvisible --name '^" + area.getTitle().toUtf8() + "$' ";
}

std::array<int, 2> placeOf(const NkRenderArea& area) {
  const std::string file = outputDir() + "/place";
  run(searchFor(area) + "getwindowgeometry --shell | sed -n 's/^[XY]=//p' > " + file);
  std::array<int, 2> place{-1, -1};
  std::ifstream(file) >> place[0] >> place[1];
  return place;
}

/// Sends what a window manager sends for the close box: there is none here.
bool closeByUser(const NkRenderArea& area) {
  const std::string file = outputDir() + "/window";
  run(searchFor(area) + "> " + file);
  XEvent event{};
  XClientMessageEvent& message = event.xclient;
  Display* const display = XOpenDisplay(nullptr);
  if (display == nullptr || !(std::ifstream(file) >> message.window)) return false;
  message.type = ClientMessage;
  message.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
  message.format = 32;
  message.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
  const bool isSent = XSendEvent(display, message.window, False, NoEventMask, &event) != 0;
  XCloseDisplay(display);
  return isSent;
}

} // namespace desktop
