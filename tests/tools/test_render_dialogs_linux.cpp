#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/TestSupport.h"
#include "tests/tools/Program.h"

TEST(RenderDialogs, The2DFormNeedsWindows) {
  const std::string picture = outputDir() + "/tools/no-windows.png";
  const std::string dialog = writeScene("no-windows.arb", "TopLevelDialog { }");
  const std::string message = "panelix: error: the 2D form needs Windows; --form 3d is the one for this system\n";
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"render", dialog, "-o", picture, "--form", "2d"},
        {"show", dialog, "--form", "2d"},
        {"show", dialog, "--form", "both"}}) {
    const Result result = runPanelix(words);
    EXPECT_EQ(result.exitCode, 2) << words[0];
    EXPECT_EQ(result.out, "") << words[0];
    EXPECT_EQ(result.err, message) << words[0];
  }
  EXPECT_FALSE(std::filesystem::exists(picture));
}
