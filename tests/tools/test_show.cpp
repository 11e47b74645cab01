#include <gtest/gtest.h>

#include "tests/support/TestSupport.h"
#include "tests/tools/Picture.h"
#include "tests/tools/Program.h"
#include "tests/win/Desktop.h"

namespace {

bool isRed(Picture::Pixel pixel) { return pixel[0] > 150 && pixel[1] < 60 && pixel[2] < 60; }

} // namespace

TEST(Show, WhatTheUserDragsIsPrinted) {
  desktop::start();
  const std::string scene = outputDir() + "/tools/drag.arb";
  // A red disc in the middle of the window, 100 pixels a unit, and another dragger without a name beside it.
  writeFile(scene, "#Arbora V2.1 ascii\nOrthographicCamera { height 4 position 0 0 5 }"
                   "Material { diffuseColor 0 0 0 emissiveColor 0.8 0 0 } DEF Disc PlaneDragger { geometry Sphere { "
                   "radius 0.5 } } Material { emissiveColor 0 0 0.8 } Translation { translation 2 0 0 } PlaneDragger { "
                   "geometry Cube { width 0.5 height 0.5 } }");
  Program program(PANELIX_PROGRAM, {"show", scene, "--size", "600x400"});
  WindowPlace place;
  ASSERT_TRUE(waitUntil([&] {
    place = placeOfWindow("drag.arb - Panelix");
    return place.x >= 0 || !program.isRunning();
  }));
  ASSERT_TRUE(program.isRunning()) << program.err();
  const auto onScreen = [&](int x, int y) {
    return Picture(desktop::takePicture("show")).at(place.x + x, place.y + y);
  };
  ASSERT_TRUE(waitUntil([&] { return isRed(onScreen(300, 200)); }));
  const auto moveTo = [&](int x, int y) {
    return "mousemove " + std::to_string(place.x + x) + " " + std::to_string(place.y + y) + " sleep 0.1 ";
  };
  ASSERT_TRUE(desktop::act(moveTo(300, 200) + "mousedown 1 " + moveTo(250, 250) + moveTo(200, 300) + "mouseup 1"));
  EXPECT_TRUE(waitUntil([&] { return program.out() == "PlaneDragger Disc: finish\n"; })) << program.out();
  EXPECT_TRUE(waitUntil([&] { return isRed(onScreen(200, 300)); }));
  EXPECT_FALSE(isRed(onScreen(300, 200)));
  ASSERT_TRUE(desktop::act(moveTo(500, 200) + "click 1"));
  EXPECT_TRUE(waitUntil([&] { return program.out() == "PlaneDragger Disc: finish\nPlaneDragger: finish\n"; }))
      << program.out();
  // A press beside the draggers is nobody's.
  ASSERT_TRUE(desktop::act(moveTo(50, 50) + "click 1"));
  EXPECT_TRUE(program.isRunning());
  EXPECT_EQ(program.out(), "PlaneDragger Disc: finish\nPlaneDragger: finish\n");
  EXPECT_EQ(program.err(), "");
}
