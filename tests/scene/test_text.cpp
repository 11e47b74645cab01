#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "SceneTest.h"
#include "arbora/scene/NkFont.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkPickStyle.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/text/GlyphCache.h"
#include "arbora/scene/text/Tessellator.h"
#include "tests/support/TestSupport.h"

namespace {

using arbora::FontStyle;
using arbora::Ref;

// Of every Linux that the tests run on, and of Wine on it.
constexpr const char* kInstalled = "DejaVu Sans";
constexpr const char* kMissing = "No Such Typeface";

constexpr float kTolerance = 1e-4f;

/// A face with round measures: characters are squares with a wide margin, "i" is half as wide, "@" rises far above the
/// ascent and a blank is empty.
class PlainGlyphs : public arbora::GlyphSource {
public:
  arbora::VerticalMetrics getVerticalMetrics() const override { return {0.75f, 0.25f, 0.25f}; }
  float getAdvance(char32_t character) override { return character == U'i' ? 0.25f : 0.5f; }
  arbora::GlyphOutline getOutline(char32_t character) override {
    ++s_outlines;
    const float top = character == U'@' ? 2.0f : 0.4f;
    arbora::OutlineBuilder builder(1.0f);
    if (character != U' ') {
      builder.moveTo({0.1f, 0.1f});
      builder.lineTo({0.4f, 0.1f});
      builder.lineTo({0.4f, top});
      builder.lineTo({0.1f, top});
    }
    return builder.finish();
  }
  static int s_outlines;
};
int PlainGlyphs::s_outlines = 0;

arbora::OpenedFace openPlainFace(const NbName&) { return {std::make_unique<PlainGlyphs>(), "Plain", true}; }
arbora::OpenedFace openNothing(const NbName&) { return {nullptr, "", false}; }

/// Text in the real fonts of the system.
class SystemText : public SceneTest {
protected:
  void SetUp() override { m_meshesBefore = arbora::Mesh::getPoolSize(); }
  void TearDown() override {
    m_text = nullptr;
    arbora::setFaceOpener(nullptr);
    EXPECT_EQ(arbora::Mesh::getPoolSize(), m_meshesBefore);
  }

  NkText3& text(const NbString& line) {
    m_text = new NkText3;
    m_text->string.setValue(line);
    return *m_text;
  }
  static NkState stateWith(const char* face, float size) {
    NkState state;
    state.font = {NbName(face), size};
    return state;
  }
  static NbBox3f boxOf(NkText3& node, const char* face = "", float size = 8.0f) {
    NkState state = stateWith(face, size);
    return node.computeBox(state);
  }
  static float widthOf(NkText3& node, const char* face = "", float size = 8.0f) {
    return boxOf(node, face, size).getSize()[0];
  }
  static const std::vector<arbora::PlacedMesh>& meshesOf(NkText3& node, const char* face = "", float size = 8.0f) {
    NkState state = stateWith(face, size);
    return node.getMeshes(state);
  }

private:
  Ref<NkText3> m_text;
  int m_meshesBefore = 0;
};

/// Text in the face with round measures.
class Text : public SystemText {
protected:
  void SetUp() override {
    SystemText::SetUp();
    arbora::setFaceOpener(&openPlainFace);
    PlainGlyphs::s_outlines = 0;
  }
};

/// Whether a ray along -z at that point of the glyph hits its front.
bool hasInkAt(const arbora::PlacedMesh& placed, float x, float y) {
  arbora::Mesh::Hit hit;
  return placed.mesh->intersect(NbVec3f(x, y, 1.0f), NbVec3f(0, 0, -1), 10.0f, hit);
}

NbVec3f corner(const arbora::Mesh& mesh, std::size_t index) {
  return mesh.getVertices()[mesh.getIndices()[index]].position;
}

float areaOf(const arbora::TessellatedPolygon& polygon) {
  float area = 0;
  for (std::size_t i = 0; i < polygon.triangles.size(); i += 3) {
    const NbVec2f a = polygon.points[polygon.triangles[i]];
    const NbVec2f b = polygon.points[polygon.triangles[i + 1]] - a;
    const NbVec2f c = polygon.points[polygon.triangles[i + 2]] - a;
    area += (b[0] * c[1] - b[1] * c[0]) / 2;
  }
  return area;
}

std::vector<NbVec2f> square(float low, float high) { return {{low, low}, {high, low}, {high, high}, {low, high}}; }
std::vector<NbVec2f> reversed(std::vector<NbVec2f> contour) { return {contour.rbegin(), contour.rend()}; }

NbBox3f box(float x0, float y0, float z0, float x1, float y1, float z1) { return NbBox3f(x0, y0, z0, x1, y1, z1); }

TEST_F(Text, FieldsBeginAsOneEmptyLineOfFrontFaces) {
  NkText3& node = text("");
  EXPECT_EQ(node.string.getNum(), 1);
  EXPECT_EQ(node.spacing.getValue(), 1.0f);
  EXPECT_EQ(node.justification.getValue(), 1);
  EXPECT_EQ(node.parts.getValue(), 1);
  EXPECT_EQ(NkType::fromName("Text3"), NkText3::getClassTypeId());
}

TEST_F(Text, ALineReachesFromZeroToItsAdvanceAndFromDescentToAscent) {
  EXPECT_EQ(boxOf(text("abci")), box(0, -2, 0, 14, 6, 0));
}

TEST_F(Text, TheInkDoesNotChangeTheLinesHeight) {
  EXPECT_EQ(boxOf(text("@")), boxOf(text("x")));
  EXPECT_EQ(boxOf(text(" ")), boxOf(text("x")));
}

TEST_F(Text, JustificationMovesEachLine) {
  NkText3& node = text("aaaa");
  node.string.set1Value(1, "aa");
  node.justification = NkText3::RIGHT;
  EXPECT_EQ(boxOf(node).getMin()[0], 0);
  EXPECT_EQ(boxOf(node).getMax()[0], 16);
  EXPECT_EQ(meshesOf(node)[4].offset, NbVec3f(8, -10, 0));
  node.justification = NkText3::CENTER;
  EXPECT_EQ(boxOf(node).getMin()[0], -8);
  EXPECT_EQ(boxOf(node).getMax()[0], 8);
  EXPECT_EQ(meshesOf(node)[4].offset, NbVec3f(-4, -10, 0));
}

TEST_F(Text, LinesFollowBelowEachOther) {
  NkText3& node = text("a");
  node.string.set1Value(2, "b");
  // One line height is 0.75 + 0.25 + 0.25 ems.
  EXPECT_EQ(boxOf(node), box(0, -22, 0, 4, 6, 0));
  node.spacing = 2.0f;
  EXPECT_EQ(boxOf(node), box(0, -42, 0, 4, 6, 0));
  node.spacing = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(boxOf(node), box(0, -22, 0, 4, 6, 0));
}

TEST_F(Text, NoLinesAreAnEmptyBoxAndAnEmptyLineKeepsItsHeight) {
  NkText3& node = text("");
  EXPECT_EQ(boxOf(node), box(0, -2, 0, 0, 6, 0));
  EXPECT_TRUE(meshesOf(node).empty());
  node.string.deleteValues(0);
  EXPECT_TRUE(boxOf(node).isEmpty());
  EXPECT_TRUE(meshesOf(node).empty());
}

TEST_F(Text, PartsDecideOnTheDepth) {
  NkText3& node = text("a");
  const auto depth = [&](int parts) {
    node.parts = parts;
    return boxOf(node).getMin()[2];
  };
  EXPECT_EQ(depth(NkText3::FRONT), 0);
  EXPECT_EQ(depth(NkText3::SIDES), -1);
  EXPECT_EQ(depth(NkText3::BACK), -1);
  EXPECT_EQ(depth(NkText3::ALL), -1);
  EXPECT_EQ(meshesOf(node).size(), 3u);
  node.parts = 0;
  EXPECT_TRUE(boxOf(node).isEmpty());
  EXPECT_TRUE(meshesOf(node).empty());
}

TEST_F(Text, TheDepthOfTheSidesDoesNotGrowWithTheFont) {
  NkText3& node = text("a");
  node.parts = NkText3::SIDES;
  const arbora::PlacedMesh& placed = meshesOf(node, "", 30.0f).front();
  EXPECT_EQ(placed.scale, NbVec3f(30, 30, 1));
  EXPECT_EQ(placed.mesh->getBox().getMin()[2], -1);
}

TEST_F(Text, GlyphsAreMadeOnceForAllSizesAndTexts) {
  const int before = arbora::Mesh::getPoolSize();
  const Ref<NkText3> other(new NkText3);
  other->string = "aba";
  const arbora::Mesh* mesh = meshesOf(text("a"), "", 5.0f).front().mesh.get();
  const auto& placed = meshesOf(*other, "", 50.0f);
  EXPECT_EQ(placed[0].mesh.get(), mesh);
  EXPECT_EQ(placed[2].mesh.get(), mesh);
  EXPECT_EQ(PlainGlyphs::s_outlines, 2);
  // Both letters are the same square: one mesh each for front, sides and back.
  EXPECT_EQ(arbora::Mesh::getPoolSize(), before + 3);
}

TEST_F(Text, MeasuringMakesNoMeshes) {
  boxOf(text("abcdef"));
  NkText3::lineWidth("xyz", {NbName(), 3.0f});
  EXPECT_EQ(PlainGlyphs::s_outlines, 0);
}

TEST_F(Text, TheFontsSizeScales) {
  NkText3& node = text("ab");
  EXPECT_EQ(boxOf(node, "", 8.0f), box(0, -2, 0, 8, 6, 0));
  EXPECT_EQ(boxOf(node, "", 16.0f), box(0, -4, 0, 16, 12, 0));
  EXPECT_EQ(meshesOf(node, "", 16.0f)[1].offset, NbVec3f(8, 0, 0));
  EXPECT_EQ(meshesOf(node, "", 8.0f)[1].offset, NbVec3f(4, 0, 0));
}

TEST_F(Text, ASizeThatIsNoneShowsNothing) {
  for (const float size : {0.0f, -5.0f, std::numeric_limits<float>::quiet_NaN(), INFINITY}) {
    NkText3& node = text("ab");
    EXPECT_EQ(boxOf(node, "", size), box(0, 0, 0, 0, 0, 0)) << size;
    EXPECT_TRUE(meshesOf(node, "", size).empty()) << size;
  }
}

TEST_F(Text, EveryFieldChangesTheText) {
  NkText3& node = text("ab");
  EXPECT_EQ(meshesOf(node).size(), 2u);
  node.string.set1Value(1, "cde");
  EXPECT_EQ(meshesOf(node).size(), 5u);
  EXPECT_EQ(boxOf(node).getMax()[0], 12);
  node.parts = NkText3::ALL;
  EXPECT_EQ(meshesOf(node).size(), 15u);
  EXPECT_EQ(boxOf(node).getMin()[2], -1);
  node.spacing = 3.0f;
  EXPECT_EQ(meshesOf(node)[6].offset[1], -30);
}

TEST_F(Text, TabsAreFourBlanksAndOtherControlsNothing) {
  EXPECT_EQ(widthOf(text("a\tb")), widthOf(text("a    b")));
  EXPECT_EQ(widthOf(text("a\r\n\x01\x7F\x85"
                         "b")),
            widthOf(text("ab")));
  EXPECT_EQ(meshesOf(text("a\t\rb")).size(), 2u);
  EXPECT_EQ(widthOf(text(NbString::fromUtf8("a\u200B\uFEFFb"))), widthOf(text("ab")));
}

TEST_F(Text, WideAndNarrowTextsAreTheSame) {
  NbString wide;
  wide.fromWideChar(L"caf\u00E9 i");
  EXPECT_EQ(boxOf(text(wide)), boxOf(text("caf\xE9 i")));
}

TEST_F(Text, ACharacterBeyondTheFirst65536IsOne) {
  EXPECT_EQ(meshesOf(text(NbString::fromUtf8("a\U0001D538"))).size(), 2u);
}

TEST_F(Text, HalfOfASurrogatePairIsOneCharacter) {
  std::wstring broken(1, static_cast<wchar_t>(0xD835));
  EXPECT_EQ(widthOf(text(NbString(broken))), 4);
  broken.push_back(L'a');
  EXPECT_EQ(widthOf(text(NbString(broken))), 8);
  EXPECT_EQ(widthOf(text(NbString(std::wstring(2, static_cast<wchar_t>(0xDC00))))), 8);
}

TEST_F(Text, TheFontNodeCountsInATraversal) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* font = new NkFont;
  font->size = 20.0f;
  root->addChild(font);
  root->addChild(&text("ab"));
  NkGetBoundingBoxAction action;
  action.apply(root.get());
  EXPECT_EQ(action.getBoundingBox(), box(0, -5, 0, 20, 15, 0));
  font->size = 4.0f;
  action.apply(root.get());
  EXPECT_EQ(action.getBoundingBox(), box(0, -1, 0, 4, 3, 0));
}

TEST_F(Text, AnInheritedFontIsMarked) {
  NkState state = stateWith("", 8.0f);
  text("a").computeBox(state);
  EXPECT_TRUE(state.usedInherited & NkState::FONT);
}

class PickedText : public Text {
protected:
  void SetUp() override {
    Text::SetUp();
    m_root = new NkSeparator;
    m_style = new NkPickStyle;
    auto* font = new NkFont;
    font->size = 8.0f;
    m_root->addChild(m_style);
    m_root->addChild(font);
    m_node = new NkText3;
    m_node->string = "ab";
    m_node->string.set1Value(2, "abcd");
    m_root->addChild(m_node);
  }
  void TearDown() override {
    m_root = nullptr;
    Text::TearDown();
  }
  int hitsAt(const NbVec3f& start, const NbVec3f& direction = NbVec3f(0, 0, -1)) {
    NkRayPickAction action{NbViewportRegion()};
    action.setPickAll(true);
    action.setRay(start, direction);
    action.apply(m_root.get());
    m_point = action.getPickedPoint() ? action.getPickedPoint()->getPoint() : NbVec3f();
    return action.getPickedPointsListLength();
  }

  Ref<NkSeparator> m_root;
  NkPickStyle* m_style = nullptr;
  NkText3* m_node = nullptr;
  NbVec3f m_point;
};

TEST_F(PickedText, TheWholeBoxOfALineIsHit) {
  EXPECT_EQ(hitsAt({2, 2, 5}), 1) << "in a letter";
  EXPECT_EQ(hitsAt({4, 2, 5}), 1) << "between two letters";
  EXPECT_EQ(hitsAt({0.1f, 5.9f, 5}), 1) << "above the letter";
  EXPECT_EQ(hitsAt({12, -18, 5}), 1) << "on the last line";
  EXPECT_EQ(hitsAt({12, 2, 5}), 0) << "right of the first line";
  EXPECT_EQ(hitsAt({2, -10, 5}), 0) << "on the empty line";
}

TEST_F(PickedText, AThickTextCountsOnceWithItsNearestLine) {
  m_node->parts = NkText3::ALL;
  m_node->spacing = 0.8f;
  m_node->string.set1Value(1, "ab");
  // Flat along the lines, so that the ray passes through all of them.
  EXPECT_EQ(hitsAt({2, 20, -0.5f}, {0, -1, 0}), 1);
  EXPECT_NEAR(m_point[1], 6.0f, kTolerance);
  EXPECT_EQ(hitsAt({2, -60, -0.5f}, {0, 1, 0}), 1);
  EXPECT_NEAR(m_point[1], -18.0f, kTolerance);
}

TEST_F(PickedText, ThePickStyleIsObeyed) {
  m_style->style = NkPickStyle::UNPICKABLE;
  EXPECT_EQ(hitsAt({2, 2, 5}), 0);
  m_style->style = NkPickStyle::BOUNDING_BOX;
  EXPECT_EQ(hitsAt({12, 2, 5}), 1);
}

TEST_F(PickedText, WhatIsNotShownIsNotPicked) {
  m_node->parts = 0;
  EXPECT_EQ(hitsAt({2, 2, 5}), 0);
}

TEST_F(SystemText, WidthsAddUp) {
  const char* const line = "The quick (brown) fox, AVATAR; To 0123.";
  for (const char* face : {"", kInstalled, "monospace"}) {
    const arbora::FontMetrics metrics({NbName(face), 11.0f});
    float sum = 0;
    for (int i = 0; line[i]; ++i) {
      sum += metrics.getAdvance(static_cast<char32_t>(line[i]));
      const std::string prefix(line, static_cast<std::size_t>(i) + 1);
      EXPECT_NEAR(widthOf(text(prefix), face, 11.0f), sum, kTolerance) << face << ": " << prefix;
      EXPECT_EQ(NkText3::lineWidth(prefix, {NbName(face), 11.0f}), widthOf(text(prefix), face, 11.0f));
    }
    EXPECT_GT(sum, 100.0f);
    EXPECT_LT(sum, 400.0f);
  }
}

TEST_F(SystemText, MeasuresAreThoseOfAFont) {
  const arbora::FontMetrics metrics({NbName(kInstalled), 100.0f});
  EXPECT_NEAR(metrics.getAscent(), 92.8f, 0.1f);
  EXPECT_NEAR(metrics.getDescent(), 23.6f, 0.1f);
  EXPECT_NEAR(metrics.getAdvance(U'i'), 27.8f, 0.1f);
  EXPECT_NEAR(metrics.getAdvance(U'W'), 98.9f, 0.1f);
}

TEST_F(SystemText, LettersHaveTheirShape) {
  const arbora::PlacedMesh o = meshesOf(text("O"), kInstalled).front();
  const NbVec3f middle = o.mesh->getBox().getCenter();
  EXPECT_FALSE(hasInkAt(o, middle[0], middle[1]));
  EXPECT_TRUE(hasInkAt(o, o.mesh->getBox().getMin()[0] + 0.02f, middle[1]));
  EXPECT_NEAR(o.mesh->getBox().getMin()[1], 0.0f, 0.03f) << "the O stands on the baseline";
  EXPECT_NEAR(o.mesh->getBox().getMax()[1], 0.73f, 0.03f);

  const arbora::PlacedMesh i = meshesOf(text("I"), kInstalled).front();
  const NbVec3f stem = i.mesh->getBox().getCenter();
  EXPECT_TRUE(hasInkAt(i, stem[0], stem[1]));

  // The dot of the i lies apart.
  const arbora::PlacedMesh small = meshesOf(text("i"), kInstalled).front();
  const float x = small.mesh->getBox().getCenter()[0];
  EXPECT_TRUE(hasInkAt(small, x, 0.3f));
  EXPECT_FALSE(hasInkAt(small, x, 0.6f));
  EXPECT_TRUE(hasInkAt(small, x, 0.7f));

  const arbora::PlacedMesh g = meshesOf(text("g"), kInstalled).front();
  EXPECT_LT(g.mesh->getBox().getMin()[1], -0.15f);
}

TEST_F(SystemText, SidesAndFacesEncloseASolid) {
  for (const char* letter : {"O", "B", "S", "%", "i", "@"}) {
    NkText3& node = text(letter);
    node.parts = NkText3::ALL;
    float volume = 0;
    float frontArea = 0;
    for (const arbora::PlacedMesh& placed : meshesOf(node, kInstalled)) {
      const arbora::Mesh& mesh = *placed.mesh;
      for (std::size_t i = 0; i < mesh.getIndices().size(); i += 3) {
        const NbVec3f a = corner(mesh, i);
        const NbVec3f normal = (corner(mesh, i + 1) - a).cross(corner(mesh, i + 2) - a);
        volume += a.dot(normal) / 6;
        const NbVec3f given = mesh.getVertices()[mesh.getIndices()[i]].normal;
        EXPECT_GE(given.dot(normal), 0.0f) << letter;
        EXPECT_NEAR(given.length(), 1.0f, kTolerance);
        if (given[2] > 0.5f) frontArea += normal.length() / 2;
      }
    }
    EXPECT_GT(frontArea, 0.03f) << letter;
    // The depth is 1. A wall that faces inwards, or a gap, would show here.
    EXPECT_NEAR(volume, frontArea, 1e-4f) << letter;
  }
}

TEST_F(SystemText, AMissingFaceIsReplacedWithOneMessage) {
  {
    ExpectMessages one({"The font \"No Such Typeface\" is missing"});
    boxOf(text("abc"), kMissing, 8.0f);
    boxOf(text("def"), kMissing, 12.0f);
    meshesOf(text("def"), kMissing, 12.0f);
  }
  EXPECT_EQ(boxOf(text("abc"), kMissing), boxOf(text("abc"), ""));
}

TEST_F(SystemText, GenericFamiliesAreNeverMissing) {
  for (const char* face : {"", "sans-serif", "Sans", "serif", "monospace"})
    EXPECT_GT(widthOf(text("abc"), face), 0.0f) << face;
  EXPECT_EQ(boxOf(text("abc"), "sans-serif"), boxOf(text("abc"), ""));
  EXPECT_EQ(widthOf(text("iii"), "monospace"), widthOf(text("WWW"), "monospace"));
  EXPECT_LT(widthOf(text("iii"), "sans-serif"), widthOf(text("WWW"), "sans-serif"));
}

TEST_F(SystemText, AFaceIsFoundWithItsStyleInAnyCase) {
  EXPECT_GT(widthOf(text("word"), "DejaVu Sans Bold"), widthOf(text("word"), kInstalled));
  EXPECT_EQ(widthOf(text("word"), "dejavu sans"), widthOf(text("word"), kInstalled));
}

TEST_F(SystemText, WithoutAnyFontCharactersAreBoxes) {
  arbora::setFaceOpener(&openNothing);
  expectMessage("no font with outlines");
  NkText3& node = text("ab i");
  EXPECT_EQ(widthOf(node, "", 10.0f), 20.0f);
  ASSERT_EQ(meshesOf(node, "", 10.0f).size(), 3u);
  const arbora::PlacedMesh frame = meshesOf(node, "", 10.0f).front();
  const NbVec3f middle = frame.mesh->getBox().getCenter();
  EXPECT_FALSE(hasInkAt(frame, middle[0], middle[1]));
  EXPECT_TRUE(hasInkAt(frame, frame.mesh->getBox().getMin()[0] + 0.01f, middle[1]));
}

TEST_F(SystemText, AnUnknownCharacterIsTheFontsBox) {
  // Private use: no font on the machines has them.
  NkText3& unknown = text(NbString::fromUtf8("\U00102345"));
  EXPECT_GT(widthOf(unknown, kInstalled), 0.0f);
  EXPECT_EQ(meshesOf(unknown, kInstalled).size(), 1u);
}

TEST_F(SystemText, CharactersBeyondTheFirst65536HaveTheirGlyph) {
  // The double-struck A, which has an open middle below its bar, and the box of a missing glyph.
  const Ref<arbora::Mesh> letter = meshesOf(text(NbString::fromUtf8("\U0001D538")), kInstalled).front().mesh;
  const Ref<arbora::Mesh> missing = meshesOf(text(NbString::fromUtf8("\U00102345")), kInstalled).front().mesh;
  EXPECT_NE(letter.get(), missing.get());
  EXPECT_NEAR(letter->getBox().getMax()[1], 0.73f, 0.05f);
}

TEST_F(SystemText, AClearedCacheLeavesTextsAsTheyAre) {
  NkText3& node = text("abc");
  const float width = widthOf(node, kInstalled);
  ASSERT_EQ(meshesOf(node, kInstalled).size(), 3u);
  arbora::clearGlyphCache();
  EXPECT_EQ(widthOf(node, kInstalled), width);
  EXPECT_FALSE(meshesOf(node, kInstalled)[0].mesh->getVertices().empty());
  node.string = "abcd";
  EXPECT_GT(widthOf(node, kInstalled), width);
  EXPECT_EQ(meshesOf(node, kInstalled).size(), 4u);
}

TEST(Tessellator, HolesAndOverlapsAreFilledByTheNonzeroRule) {
  EXPECT_NEAR(areaOf(arbora::tessellate({square(0, 4)})), 16.0f, kTolerance);
  EXPECT_NEAR(areaOf(arbora::tessellate({reversed(square(0, 4))})), 16.0f, kTolerance);
  EXPECT_NEAR(areaOf(arbora::tessellate({square(0, 4), reversed(square(1, 3))})), 12.0f, kTolerance);
  EXPECT_NEAR(areaOf(arbora::tessellate({square(0, 4), square(2, 6)})), 28.0f, kTolerance);
}

TEST(Tessellator, CrossingsGiveNewPoints) {
  const arbora::TessellatedPolygon polygon = arbora::tessellate({{{0, 0}, {2, 2}, {2, 0}, {0, 2}}});
  EXPECT_NEAR(areaOf(polygon), 2.0f, kTolerance);
  for (const std::uint32_t index : polygon.triangles) EXPECT_LT(index, polygon.points.size());
}

TEST(Tessellator, WithoutAnAreaThereIsNothing) {
  EXPECT_TRUE(arbora::tessellate({}).triangles.empty());
  EXPECT_TRUE(arbora::tessellate({{{0, 0}, {1, 1}}}).triangles.empty());
  EXPECT_TRUE(arbora::tessellate({{{0, 0}, {1, 1}, {2, 2}}}).triangles.empty());
}

TEST(OutlineBuilder, FlattensCurvesAsFinelyAsTheyShow) {
  // A circle of four quarter curves, radius 0.5 em in units of 1/1000 em.
  constexpr float r = 500.0f;
  constexpr float k = r * 0.5523f;
  arbora::OutlineBuilder builder(0.001f);
  builder.moveTo({r, 0});
  builder.cubicTo({r, k}, {k, r}, {0, r});
  builder.cubicTo({-k, r}, {-r, k}, {-r, 0});
  builder.cubicTo({-r, -k}, {-k, -r}, {0, -r});
  builder.cubicTo({k, -r}, {r, -k}, {r, 0});
  const arbora::GlyphOutline circle = builder.finish();
  ASSERT_EQ(circle.contours.size(), 1u);
  EXPECT_LT(circle.contours[0].size(), 60u);
  EXPECT_NE(circle.contours[0].front(), circle.contours[0].back());
  for (const NbVec2f& point : circle.contours[0]) EXPECT_NEAR(point.length(), 0.5f, 0.001f);
  EXPECT_NEAR(areaOf(arbora::tessellate(circle.contours)), std::numbers::pi_v<float> / 4, 0.01f);
}

TEST(OutlineBuilder, DropsWhatEnclosesNothing) {
  arbora::OutlineBuilder builder(1.0f);
  builder.lineTo({1, 1});
  builder.moveTo({0, 0});
  builder.lineTo({1, 0});
  builder.moveTo({0, 0});
  builder.lineTo({1, 0});
  builder.lineTo({1, 1});
  builder.lineTo({std::numeric_limits<float>::quiet_NaN(), 1});
  builder.lineTo({0, 0});
  const arbora::GlyphOutline outline = builder.finish();
  ASSERT_EQ(outline.contours.size(), 1u);
  EXPECT_EQ(outline.contours[0].size(), 3u);
}

} // namespace
