#include "tests/pictures/DialogPictures.h"

namespace {

/// How far two colours are apart, at most, on one of the three.
int distance(Picture::Pixel a, Picture::Pixel b) {
  int most = 0;
  for (std::size_t i = 0; i < 3; ++i) most = std::max(most, std::abs(a[i] - b[i]));
  return most;
}

constexpr Picture::Pixel kBlack{0, 0, 0};

} // namespace

TEST_F(DialogPictures, APanelShowsItsTextsAtTheirPlaces) {
  draw("export-options", "3d");
  const Area panel = areaOf({});
  EXPECT_EQ(readIn({panel.x, panel.y, panel.width - 24, 24}), "export options");
  expectExportOptions();
  draw("nested-layout", "3d");
  expectNestedLayout();
}

TEST_F(DialogPictures, TheTextsOfADarkPanelAreLegible) {
  draw("export-options", "3d", {"--skin", "dark"});
  expectExportOptions();
}

TEST_F(DialogPictures, APanelShowsStatesAndEdges) {
  draw("export-options", "3d");
  const auto countIn = [&](const Area& area, Picture::Pixel color) {
    int count = 0;
    for (int y = area.y; y < area.y + area.height; ++y) {
      for (int x = area.x; x < area.x + area.width; ++x) count += distance(picture().at(x, y), color) < 12 ? 1 : 0;
    }
    return count;
  };
  // The mark of what is checked is black, that of what isn't white.
  constexpr Picture::Pixel kWhite{255, 255, 255};
  constexpr int kMark = 100;
  EXPECT_LT(countIn(areaOf({2, 0}), kWhite), kMark);
  EXPECT_GT(countIn(areaOf({2, 1}), kWhite), kMark);
  EXPECT_LT(countIn(areaOf({2, 2}), kWhite), kMark);
  EXPECT_GT(countIn(areaOf({2, 3}), kWhite), kMark);
  EXPECT_GT(countIn(areaOf({2, 0}), kBlack), kMark);

  // A sunken edge is darker than the component next to it, on all four sides.
  const Area edge = areaOf({2, 3});
  const Area above = areaOf({2, 2});
  const Picture::Pixel plain = picture().at(above.x + 1, above.y + above.height / 2);
  for (const auto& [x, y] :
       {std::array{edge.x + 1, edge.y + edge.height / 2}, std::array{edge.x + edge.width - 2, edge.y + edge.height / 2},
        std::array{edge.x + edge.width / 2, edge.y + 1},
        std::array{edge.x + edge.width / 2, edge.y + edge.height - 2}}) {
    EXPECT_GT(plain[0] - picture().at(x, y)[0], 40) << x << " " << y;
  }
}
