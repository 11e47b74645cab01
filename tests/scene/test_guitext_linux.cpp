#include <gtest/gtest.h>

#include <cwchar>

#include "SceneTest.h"
#include "arbora/scene/text/GuiText_linux.h"

namespace {

arbora::PixelExtent measure(const wchar_t* text) {
  return arbora::measureGuiText(text, static_cast<int>(std::wcslen(text)));
}

class GuiText : public SceneTest {};

// The values are those that Wine's own text measuring gives with the same font.
TEST_F(GuiText, MeasuresAsAWindowSystemDoes) {
  const arbora::PixelExtent line = measure(L"The quick brown fox jumps over the lazy dog 0123456789");
  EXPECT_EQ(line.width, 294);
  EXPECT_EQ(line.height, 13);
  EXPECT_EQ(measure(L" ").width, 3);
  EXPECT_EQ(measure(L"W").width, 10);
  EXPECT_EQ(measure(L"i").width, 3);
  EXPECT_EQ(measure(L"0").width, 6);
}

TEST_F(GuiText, WidthsAddUpAndAnEmptyLineHasAHeight) {
  EXPECT_EQ(measure(L"To").width, measure(L"T").width + measure(L"o").width);
  EXPECT_EQ(measure(L"").width, 0);
  EXPECT_EQ(measure(L"").height, 13);
}

} // namespace
