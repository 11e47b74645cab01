#include <gtest/gtest.h>

#include "tests/support/TestSupport.h"
#include "tests/tools/Picture.h"
#include "tests/tools/Program.h"
#include "tests/win/Desktop.h"

// The example export-options, used as a user does.

namespace {

/// The upper left corner of the panel in the window with the scene, where a unit of the scene is a pixel.
constexpr int kPanelX = 245;
constexpr int kPanelY = 70;

bool isWhite(Picture::Pixel pixel) { return pixel[0] > 200 && pixel[1] > 200 && pixel[2] > 200; }

} // namespace

TEST(ExportOptions, TellsWhatTheUserDoesInTheScene) {
  desktop::start();
  Program program(EXPORT_OPTIONS_PROGRAM, {});
  WindowPlace place;
  ASSERT_TRUE(waitUntil([&] {
    place = placeOfWindow("Export options in a scene");
    return place.x >= 0 || !program.isRunning();
  }));
  ASSERT_TRUE(program.isRunning()) << program.err();
  const auto onPanel = [&](int x, int y) {
    return Picture(desktop::takePicture("export-options")).at(place.x + kPanelX + x, place.y + kPanelY + y);
  };
  const auto click = [&](int x, int y) {
    return desktop::act("mousemove " + std::to_string(place.x + kPanelX + x) + " " +
                        std::to_string(place.y + kPanelY + y) + " sleep 0.1 click 1");
  };
  std::string out;
  const auto hears = [&](const std::string& line) {
    out += line + "\n";
    return waitUntil([&] { return program.out() == out; });
  };

  ASSERT_TRUE(waitUntil([&] { return isWhite(onPanel(22, 174)); }));
  ASSERT_TRUE(click(22, 174));
  EXPECT_TRUE(hears("compress: the file will be small")) << program.out();
  EXPECT_TRUE(waitUntil([&] { return !isWhite(onPanel(22, 174)); }));
  ASSERT_TRUE(click(22, 174));
  EXPECT_TRUE(hears("compress: the file will be large")) << program.out();
  ASSERT_TRUE(click(77, 88));
  EXPECT_TRUE(hears("normals: off")) << program.out();
  ASSERT_TRUE(click(34, 227));
  EXPECT_TRUE(hears("ok: pressed")) << program.out();
  EXPECT_EQ(program.err(), "");
}
