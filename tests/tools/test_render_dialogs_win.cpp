#include <gtest/gtest.h>

#include "src/platform/Win32.h"
#include "tests/support/TestSupport.h"
#include "tests/tools/Picture.h"
#include "tests/tools/Program.h"

namespace {

Picture::Pixel colorOf(int index) {
  const COLORREF color = GetSysColor(index);
  return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

Picture drawWindow(const std::string& text, const std::vector<std::string>& options = {}) {
  const std::string picture = outputDir() + "/tools/window.png";
  std::vector<std::string> words{"render", writeScene("window.arb", text), "-o", picture, "--form", "2d"};
  words.insert(words.end(), options.begin(), options.end());
  const Result result = runPanelix(words);
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.out + result.err, "");
  return Picture(picture);
}

} // namespace

TEST(RenderDialogs, AWindowIsShownWithItsFrame) {
  const std::string dialog = "TopLevelDialog { label \"Pump\" width 300 height 200 position 5000 5000"
                             "  DialogLabel { label \"text\" } }";
  const Picture picture = drawWindow(dialog);
  EXPECT_EQ(picture.width, 300);
  EXPECT_EQ(picture.height, 200);
  const auto countOf = [&](Picture::Pixel color) {
    return picture.count([=](Picture::Pixel pixel) { return pixel == color; });
  };
  EXPECT_GT(countOf(colorOf(COLOR_BTNFACE)), 300 * 140);
  EXPECT_GT(countOf(colorOf(COLOR_ACTIVECAPTION)) + countOf(colorOf(COLOR_GRADIENTACTIVECAPTION)), 300 * 8);
  EXPECT_GT(countOf(colorOf(COLOR_BTNTEXT)), 20);
  EXPECT_EQ(countOf({0, 0, 0}) > 300 * 20, false);
}

TEST(RenderDialogs, AWindowTakesTheSizeThatItsLimitsLet) {
  const Picture picture =
      drawWindow("TopLevelDialog { minWidth 250 maxHeight 150 DialogLabel { } }", {"--size", "100x400"});
  EXPECT_EQ(picture.width, 250);
  EXPECT_EQ(picture.height, 150);
}

TEST(RenderDialogs, AWindowThatDoesNotFitOnTheScreenIsTold) {
  const std::string picture = outputDir() + "/tools/never.png";
  const int width = GetSystemMetrics(SM_CXSCREEN) + 1;
  const Result result = runPanelix({"render", writeScene("large.arb", "TopLevelDialog { DialogLabel { } }"), "-o",
                                    picture, "--form", "2d", "--size", std::to_string(width) + "x100"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.err.find("the window has " + std::to_string(width) + "x100 pixels"), std::string::npos)
      << result.err;
}
