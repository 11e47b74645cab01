#include <array>
#include <stdexcept>

#include "tests/win/Desktop.h"

namespace desktop {

// The screen is that of the system which Wine runs on, and so is the shell.

void start() {}

void launch(const std::string& command) {
  std::string line = "\\\\?\\unix\\bin\\sh -c \"" + command + "\"";
  STARTUPINFOA start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process)) {
    throw std::runtime_error("no shell");
  }
}

std::string shellPath(const std::string& path) { return path.rfind("Z:", 0) == 0 ? path.substr(2) : path; }

std::array<int, 2> placeOf(const NkRenderArea& area) {
  POINT corner{0, 0};
  ClientToScreen(area.getWindow(), &corner);
  return {corner.x, corner.y};
}

bool closeByUser(const NkRenderArea& /*area*/) { return act("key alt+F4"); }

} // namespace desktop
