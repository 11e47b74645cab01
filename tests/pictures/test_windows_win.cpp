#include "src/platform/Win32.h"
#include "tests/pictures/DialogPictures.h"

TEST_F(DialogPictures, AWindowShowsItsTextsAtTheirPlaces) {
  draw("export-options", "2d");
  expectExportOptions();
  draw("nested-layout", "2d");
  expectNestedLayout();
}

TEST_F(DialogPictures, AWindowShowsStates) {
  draw("export-options", "2d");
  // The tick is the only difference between the boxes of "Materials" and "Colours".
  const auto countIn = [&](const Area& area) {
    const COLORREF color = GetSysColor(COLOR_WINDOWTEXT);
    const Picture::Pixel dark{GetRValue(color), GetGValue(color), GetBValue(color)};
    int count = 0;
    for (int y = area.y; y < area.y + area.height; ++y) {
      for (int x = area.x; x < area.x + area.width; ++x) count += picture().at(x, y) == dark ? 1 : 0;
    }
    return count;
  };
  const auto mark = [&](std::size_t box) {
    Area area = areaOf({2, box});
    // Right of the labels, which are aligned.
    area.x += 60;
    area.width = 16;
    return area;
  };
  EXPECT_GT(countIn(mark(0)), countIn(mark(1)) + 5);
  EXPECT_EQ(countIn(mark(0)), countIn(mark(2)));
}
