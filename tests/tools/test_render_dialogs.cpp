#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/TestSupport.h"
#include "tests/tools/Picture.h"
#include "tests/tools/Program.h"

namespace {

constexpr Picture::Pixel kBlack{0, 0, 0};
/// Around the panel, in pixels.
constexpr int kRoom = 8;

const std::string kDialog = "TopLevelDialog { label \"Pump\" auditorID \"pump\" width 300 height 200 DialogLabel { } }"
                            "TopLevelDialog { auditorID \"valve\" width 120 height 90 DialogLabel { } }";

std::string pictureOfTest() {
  return outputDir() + "/tools/" + testing::UnitTest::GetInstance()->current_test_info()->name() + ".png";
}

Result render(const std::string& file, const std::vector<std::string>& options) {
  std::filesystem::remove(pictureOfTest());
  std::vector<std::string> words{"render", file, "-o", pictureOfTest()};
  words.insert(words.end(), options.begin(), options.end());
  return runPanelix(words);
}

/// The picture of a dialog; fails the test if there is none or anything is said.
Picture draw(const std::string& text, const std::vector<std::string>& options = {}) {
  const Result result = render(writeScene("render-dialogs.arb", text), options);
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.out + result.err, "");
  return Picture(pictureOfTest());
}

/// What is said where no picture can be made.
std::string refusal(const std::string& file, const std::vector<std::string>& options, int exitCode) {
  const Result result = render(file, options);
  EXPECT_EQ(result.exitCode, exitCode);
  EXPECT_EQ(result.out, "");
  EXPECT_FALSE(std::filesystem::exists(pictureOfTest()));
  return result.err;
}

bool isLight(Picture::Pixel pixel) { return pixel[0] > 150 && pixel[1] > 150; }
bool isDark(Picture::Pixel pixel) { return pixel != kBlack && pixel[0] < 100 && pixel[1] < 100; }

} // namespace

TEST(RenderDialogs, APanelIsSeenStraightFromTheFront) {
  const Picture picture = draw(kDialog);
  EXPECT_EQ(picture.width, 300 + 2 * kRoom);
  EXPECT_EQ(picture.height, 200 + 2 * kRoom);
  for (int x = 0; x < picture.width; ++x) {
    for (int y = 0; y < picture.height; ++y) {
      const bool isPanel = x >= kRoom && x < kRoom + 300 && y >= kRoom && y < kRoom + 200;
      ASSERT_EQ(picture.at(x, y) == kBlack, !isPanel) << x << " " << y;
    }
  }
}

TEST(RenderDialogs, ThePanelFillsAPictureOfAnySize) {
  const Picture wide = draw(kDialog, {"--size", "1000x432", "--background", "0,1,0"});
  EXPECT_EQ(wide.width, 1000);
  EXPECT_EQ(wide.height, 432);
  const auto isGreen = [](Picture::Pixel pixel) { return pixel == Picture::Pixel{0, 255, 0}; };
  // Twice as large, in the middle.
  EXPECT_TRUE(isGreen(wide.at(199, 216)));
  EXPECT_FALSE(isGreen(wide.at(201, 216)));
  EXPECT_FALSE(isGreen(wide.at(798, 216)));
  EXPECT_TRUE(isGreen(wide.at(801, 216)));
  EXPECT_TRUE(isGreen(wide.at(500, 15)));
  EXPECT_FALSE(isGreen(wide.at(500, 17)));
  const Picture high = draw(kDialog, {"--size", "158x400"});
  EXPECT_EQ(high.at(79, 149), kBlack);
  EXPECT_NE(high.at(79, 152), kBlack);
  EXPECT_NE(high.at(79, 248), kBlack);
  EXPECT_EQ(high.at(79, 251), kBlack);
}

TEST(RenderDialogs, ADialogIsNamedByItsAuditorID) {
  EXPECT_EQ(draw(kDialog, {"--id", "valve"}).width, 120 + 2 * kRoom);
  // In a scene, too.
  EXPECT_EQ(draw("Cube { } " + kDialog, {"--id", "valve"}).width, 120 + 2 * kRoom);
  EXPECT_EQ(draw("Cube { } " + kDialog, {"--form", "3d"}).width, 300 + 2 * kRoom);
  EXPECT_EQ(draw("Cube { } " + kDialog).width, 640);
  const std::string path = writeScene("render-dialogs.arb", kDialog);
  EXPECT_EQ(refusal(path, {"--id", "valv"}, 2),
            path + ": error: there is no dialog with the auditorID 'valv'; did you mean 'valve'?\n");
  const std::string scene = writeScene("render-none.arb", "Cube { }");
  EXPECT_EQ(refusal(scene, {"--form", "3d"}, 2), scene + ": error: there is no dialog in the file\n");
}

TEST(RenderDialogs, ASkinIsNamedOrGivenByItsPath) {
  const Picture plain = draw(kDialog);
  const Picture dark = draw(kDialog, {"--skin", "dark"});
  EXPECT_TRUE(isLight(plain.at(100, 13)));
  EXPECT_TRUE(isDark(dark.at(100, 13)));
  EXPECT_EQ(draw(kDialog, {"--skin", sourceDir() + "/data/Panelix/skins/dark"}).pixels, dark.pixels);
  EXPECT_EQ(draw(kDialog, {"--skin", "default"}).pixels, plain.pixels);
  // Dialogs in a scene have it, too.
  EXPECT_NE(draw("Group { } " + kDialog, {"--skin", "dark"}).pixels, draw("Group { } " + kDialog).pixels);
  const std::string path = writeScene("render-dialogs.arb", kDialog);
  EXPECT_EQ(refusal(path, {"--skin", "drak"}, 2).rfind("panelix: error: there is no skin 'drak' ", 0), 0u);
}

TEST(RenderDialogs, AComponentOutsideOfADialogGetsOne) {
  const Picture picture = draw("DialogLabel { label \"text\" width 150 height 50 }");
  EXPECT_EQ(picture.width, 158 + 2 * kRoom);
  EXPECT_GT(picture.countOther(kBlack), 150 * 50);
}

TEST(RenderDialogs, APictureThatCanNotBeWrittenIsTold) {
  const std::string nowhere = outputDir() + "/no/such/folder/picture.png";
  const Result result = runPanelix({"render", writeScene("render-dialogs.arb", kDialog), "-o", nowhere});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err, "panelix: error: " + nowhere + " can't be written\n");
  EXPECT_EQ(refusal("no-such-file.arb", {"--form", "3d"}, 1).substr(0, 24), "no-such-file.arb: error:");
}
