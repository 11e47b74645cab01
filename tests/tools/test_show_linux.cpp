#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "tests/support/TestSupport.h"
#include "tests/tools/Program.h"

namespace {

/// Takes a variable out of the environment for as long as it lives.
class Without {
public:
  explicit Without(const char* name) : m_name(name) {
    if (const char* value = std::getenv(name)) m_value = value;
    unsetenv(name);
  }
  ~Without() {
    if (m_value) setenv(m_name, m_value->c_str(), 1);
  }

private:
  const char* m_name;
  std::optional<std::string> m_value;
};

} // namespace

TEST(Show, WithoutADisplayItSaysWhatToDoAndGivesTwo) {
  const Without display("DISPLAY");
  const Without wayland("WAYLAND_DISPLAY");
  const Result result = runPanelix({"show", sourceDir() + "/examples/scene.arb"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.err.find("DISPLAY"), std::string::npos) << result.err;
}

TEST(Show, RenderNeedsNoDisplay) {
  const Without display("DISPLAY");
  const Without wayland("WAYLAND_DISPLAY");
  const Result result =
      runPanelix({"render", sourceDir() + "/examples/nodes/Cube.arb", "-o", outputDir() + "/no-display.png"});
  EXPECT_EQ(result.exitCode, 0) << result.err;
}
