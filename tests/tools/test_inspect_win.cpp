#include "tests/tools/Inspect.h"

namespace {

const std::string kDialog = "TopLevelDialog { label \"Gr\xC3\xBC\xC3\x9F\" width 300 height 200 margin 5 position 70 80"
                            "  RowDialog { edgeStyle SHADOW_IN margin 7 DialogLabel { label \"text\" } } }";

} // namespace

TEST_F(Inspect, EachNodeTellsItsWindows) {
  const Json dialog = inspect(kDialog, {"--form", "2d"});
  const std::vector<std::string> names{"class", "style", "extendedStyle", "rectangle", "text"};
  EXPECT_EQ(numbers(dialog["position"]), "70 80");
  const std::vector<Json>& frame = dialog["windows"].items;
  ASSERT_EQ(frame.size(), 2u);
  for (const Json& window : frame) EXPECT_EQ(window.names, names);
  EXPECT_EQ(frame[0]["class"].string, "NkTopLevelDialogBase");
  EXPECT_EQ(frame[0]["text"].string, "Gr\xC3\xBC\xC3\x9F");
  EXPECT_EQ(numbers(frame[0]["rectangle"]), "70 80 300 200");
  // Nothing is shown.
  EXPECT_EQ(frame[0]["style"].string, "0x06cf0000");
  EXPECT_EQ(frame[0]["extendedStyle"].string, "0x00000100");
  EXPECT_EQ(frame[1]["class"].string, "NkTopLevelDialog");
  EXPECT_EQ(frame[1]["style"].string, "0x56000000");

  const Json& row = childOf(dialog, 0);
  ASSERT_EQ(row["windows"].items.size(), 1u);
  const Json& edge = row["windows"].items[0];
  EXPECT_EQ(edge["class"].string, "NkDialogComponent");
  EXPECT_EQ(edge["extendedStyle"].string, "0x00030000");
  EXPECT_EQ(numbers(edge["rectangle"]), "5 5 " + sizeOf(row));

  const Json& label = childOf(row, 0);
  ASSERT_EQ(label["windows"].items.size(), 2u);
  EXPECT_EQ(numbers(label["windows"].items[0]["rectangle"]), "9 9 " + sizeOf(label));
  EXPECT_EQ(label["windows"].items[1]["class"].string, "Static");
  EXPECT_EQ(label["windows"].items[1]["text"].string, "text");
}

TEST_F(Inspect, WithoutA2DFormThereAreNoWindows) { EXPECT_EQ(inspect(kDialog)["windows"].kind, Json::INVALID); }
