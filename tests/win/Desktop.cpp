#include "tests/win/Desktop.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <thread>

#define STB_IMAGE_IMPLEMENTATION
#define STBI_ONLY_PNG
#include <stb/stb_image.h>

#include "arbora/win/NkWin.h"
#include "tests/support/TestSupport.h"

namespace desktop {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience(10);
constexpr std::chrono::milliseconds kAWhile(200);
constexpr std::chrono::milliseconds kPause(2);

} // namespace

bool serveUntil(const std::function<bool()>& condition) {
  const auto end = Clock::now() + kPatience;
  while (!condition()) {
    if (Clock::now() > end) return false;
    NkWin::processPendingMessages();
    std::this_thread::sleep_for(kPause);
  }
  return true;
}

void serveAWhile() {
  const auto end = Clock::now() + kAWhile;
  serveUntil([&] { return Clock::now() > end; });
}

bool run(const std::string& command) {
  const std::string statusFile = outputDir() + "/status";
  std::remove(statusFile.c_str());
  const std::string name = shellPath(statusFile);
  // Written under another name first: the file is there when it's whole.
  launch(command + "; echo $? > " + name + ".part; mv " + name + ".part " + name);
  int status = -1;
  serveUntil([&] { return static_cast<bool>(std::ifstream(statusFile) >> status); });
  return status == 0;
}

bool act(const std::string& words) {
  const bool isDone = run("xdotool " + words);
  serveAWhile();
  return isDone;
}

std::string moveTo(const NkRenderArea& area, int x, int y) {
  const std::array<int, 2> place = placeOf(area);
  return "mousemove " + std::to_string(place[0] + x) + " " + std::to_string(place[1] + y) + " ";
}

std::string takePicture(const std::string& name) {
  const std::string path = outputDir() + "/" + name + ".png";
  return run("import -window root " + shellPath(path)) ? path : std::string();
}

std::array<int, 3> pixelOf(const std::string& picture, int x, int y) {
  int width = 0;
  int height = 0;
  int channels = 0;
  stbi_uc* pixels = stbi_load(picture.c_str(), &width, &height, &channels, 3);
  std::array<int, 3> color{-1, -1, -1};
  if (pixels != nullptr && x >= 0 && y >= 0 && x < width && y < height) {
    for (int i = 0; i < 3; ++i) color[static_cast<std::size_t>(i)] = pixels[3 * (y * width + x) + i];
  }
  stbi_image_free(pixels);
  return color;
}

std::array<int, 3> pixelOf(const NkRenderArea& area, int x, int y) {
  const std::array<int, 2> place = placeOf(area);
  return pixelOf(takePicture("screen"), place[0] + x, place[1] + y);
}

} // namespace desktop
