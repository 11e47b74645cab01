#include "tests/tools/Inspect.h"

TEST_F(Inspect, WithoutWindowsTheLayoutStands) {
  const Json dialog = inspect("TopLevelDialog { width 300 height 200 margin 5 position 70 80"
                              "  RowDialog { edgeStyle SHADOW_IN margin 7 DialogLabel { label \"text\" } } }",
                              {"--form", "2d"});
  EXPECT_EQ(dialog.names.at(14), "windows");
  EXPECT_TRUE(dialog["windows"].items.empty());
  EXPECT_EQ(numbers(dialog["position"]), "70 80");
  const Json& row = childOf(dialog, 0);
  EXPECT_EQ(numbers(row["position"]), "5 5");
  EXPECT_EQ(sizeOf(row), "282 158");
  // As the window's edge has it.
  EXPECT_EQ(numbers(childOf(row, 0)["position"]), "9 9");
}
