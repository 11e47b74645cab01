#pragma once

#include <string>

#include "tests/tools/Picture.h"
#include "tests/tools/Program.h"
#include "tests/win/Desktop.h"

/// The window in which a program shows a scene.
class SceneWindow {
public:
  /// Waits for the window; `isOpen` is false if it doesn't come.
  SceneWindow(Program& program, const std::string& title) {
    waitUntil([&] {
      m_place = placeOfWindow(title);
      return isOpen() || !program.isRunning();
    });
  }

  bool isOpen() const { return m_place.x >= 0; }
  Picture::Pixel at(int x, int y) const {
    return Picture(desktop::takePicture("show")).at(m_place.x + x, m_place.y + y);
  }
  /// Words of xdotool.
  std::string moveTo(int x, int y) const {
    return "mousemove " + std::to_string(m_place.x + x) + " " + std::to_string(m_place.y + y) + " sleep 0.1 ";
  }

private:
  WindowPlace m_place;
};
