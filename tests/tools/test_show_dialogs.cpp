#include "tests/support/TestSupport.h"
#include "tests/tools/Inspect.h"
#include "tests/tools/Show.h"

namespace {

/// Around the panel, in pixels.
constexpr int kRoom = 8;

const std::string kText = "TopLevelDialog { auditorID \"pump\" width 220 height 160"
                          "  DialogPushButton { auditorID \"start\" buttonLabel \"Start\" labelVisibility FALSE }"
                          "  DialogCheckBox { auditorID \"valve\" onString \"open\" labelVisibility FALSE } }";

} // namespace

class ShowDialogs : public Inspect {
protected:
  /// The words that click on the middle of a component of the panel.
  static std::string clickOn(const SceneWindow& window, const Json& node) {
    const std::vector<Json>& corners = node["box"].items;
    const auto middle = [&](std::size_t axis) {
      return static_cast<int>(corners.at(0).items.at(axis).number + corners.at(1).items.at(axis).number) / 2;
    };
    return window.moveTo(kRoom + middle(0), kRoom - middle(1)) + "click 1";
  }
};

TEST_F(ShowDialogs, WhatTheUserDoesInThePanelIsPrinted) {
  desktop::start();
  const Json panel = inspect(kText);
  Program program(PANELIX_PROGRAM, {"show", writeScene("panel.arb", kText)});
  const SceneWindow window(program, "panel.arb - Panelix");
  ASSERT_TRUE(window.isOpen()) << program.err();
  // The caption.
  ASSERT_TRUE(waitUntil([&] { return window.at(kRoom + 100, kRoom + 12)[2] > 150; }));
  std::string lines;
  const auto expectLine = [&](const Json& node, const std::string& line) {
    ASSERT_TRUE(desktop::act(clickOn(window, node)));
    lines += line + "\n";
    EXPECT_TRUE(waitUntil([&] { return program.out() == lines; })) << program.out();
  };
  expectLine(childOf(panel, 0), "start\tDialogPushButton\t");
  expectLine(childOf(panel, 1), "valve\tDialogCheckBox\tTRUE");
  expectLine(childOf(panel, 1), "valve\tDialogCheckBox\tFALSE");
  EXPECT_EQ(program.err(), "");
}

TEST_F(ShowDialogs, ASceneTellsOfItsDialogsToo) {
  desktop::start();
  const std::string scene = "OrthographicCamera { height 160 position 110 -80 20 farDistance 40 } " + kText;
  Program program(PANELIX_PROGRAM, {"show", writeScene("panel-scene.arb", scene), "--size", "220x160"});
  const SceneWindow window(program, "panel-scene.arb - Panelix");
  ASSERT_TRUE(window.isOpen()) << program.err();
  ASSERT_TRUE(waitUntil([&] { return window.at(100, 12)[2] > 150; }));
  ASSERT_TRUE(desktop::act(window.moveTo(110, 50) + "click 1"));
  EXPECT_TRUE(waitUntil([&] { return program.out() == "start\tDialogPushButton\t\n"; })) << program.out();
}

TEST_F(ShowDialogs, WhatCanNotBeShownIsTold) {
  const std::string path = writeScene("show-dialogs.arb", kText);
  const Result id = runPanelix({"show", path, "--id", "pumb"});
  EXPECT_EQ(id.exitCode, 2);
  EXPECT_EQ(id.out, "");
  EXPECT_EQ(id.err, path + ": error: there is no dialog with the auditorID 'pumb'; did you mean 'pump'?\n");
  const Result skin = runPanelix({"show", path, "--skin", "none"});
  EXPECT_EQ(skin.exitCode, 2);
  EXPECT_EQ(skin.err.rfind("panelix: error: there is no skin 'none' ", 0), 0u);
  const Result missing = runPanelix({"show", "no-such-file.arb", "--form", "both"});
  EXPECT_EQ(missing.exitCode, 1);
  EXPECT_EQ(missing.err.substr(0, 24), "no-such-file.arb: error:");
}
