#include <gtest/gtest.h>

#include "tests/support/TestSupport.h"
#include "tests/tools/Show.h"

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
  const SceneWindow window(program, "drag.arb - Panelix");
  ASSERT_TRUE(window.isOpen()) << program.err();
  ASSERT_TRUE(waitUntil([&] { return isRed(window.at(300, 200)); }));
  ASSERT_TRUE(desktop::act(window.moveTo(300, 200) + "mousedown 1 " + window.moveTo(250, 250) +
                           window.moveTo(200, 300) + "mouseup 1"));
  EXPECT_TRUE(waitUntil([&] { return program.out() == "PlaneDragger Disc: finish\n"; })) << program.out();
  EXPECT_TRUE(waitUntil([&] { return isRed(window.at(200, 300)); }));
  EXPECT_FALSE(isRed(window.at(300, 200)));
  ASSERT_TRUE(desktop::act(window.moveTo(500, 200) + "click 1"));
  EXPECT_TRUE(waitUntil([&] { return program.out() == "PlaneDragger Disc: finish\nPlaneDragger: finish\n"; }))
      << program.out();
  // A press beside the draggers is nobody's.
  ASSERT_TRUE(desktop::act(window.moveTo(50, 50) + "click 1"));
  EXPECT_TRUE(program.isRunning());
  EXPECT_EQ(program.out(), "PlaneDragger Disc: finish\nPlaneDragger: finish\n");
  EXPECT_EQ(program.err(), "");
}
