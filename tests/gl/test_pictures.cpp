#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include "arbora/base/NbFileHelper.h"
#include "arbora/gl/NkGLContext.h"
#include "arbora/gl/NkOffscreenRenderer.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkSwitch.h"
#include "tests/scene/SceneTest.h"

using arbora::Ref;

namespace {

/// Red, green, blue and opacity, 0 to 255.
using Pixel = std::array<int, 4>;

constexpr int kSize = 100;

/// Scenes from text, drawn into pictures of 100 by 100 pixels. In front of each stands a camera that sees x and y from
/// -5 to 5, so that one unit is 10 pixels.
class Pictures : public SceneTest {
protected:
  bool draw(const std::string& text) {
    scene = read(
        "#Arbora V2.1 ascii\nOrthographicCamera { position 0 0 20 height 10 nearDistance 1 farDistance 100 }\n" + text);
    if (!scene) return false;
    return drawAgain();
  }

  bool drawAgain() {
    const bool drawn = renderer.render(scene.get());
    // For those who want to see what a test saw.
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    if (drawn) renderer.writePng((outputDir() + "/" + test->name() + ".png").c_str());
    return drawn;
  }

  Pixel at(float x, float y) const {
    const int column = std::clamp(static_cast<int>(std::floor(50 + 10 * x)), 0, kSize - 1);
    const int row = std::clamp(static_cast<int>(std::floor(50 + 10 * y)), 0, kSize - 1);
    const unsigned char* pixel = renderer.getBuffer() + (row * kSize + column) * 4;
    return {pixel[0], pixel[1], pixel[2], pixel[3]};
  }

  /// How many square units the picture shows something on.
  float coverage() const {
    int count = 0;
    for (int i = 0; i < kSize * kSize; ++i) {
      const unsigned char* pixel = renderer.getBuffer() + i * 4;
      count += pixel[0] + pixel[1] + pixel[2] > 30 ? 1 : 0;
    }
    return static_cast<float>(count) / 100.0f;
  }

  NkOffscreenRenderer renderer{NbViewportRegion(kSize, kSize)};
  Ref<NkSeparator> scene;
};

void expectNear(const Pixel& pixel, int red, int green, int blue, int tolerance = 2) {
  EXPECT_NEAR(pixel[0], red, tolerance);
  EXPECT_NEAR(pixel[1], green, tolerance);
  EXPECT_NEAR(pixel[2], blue, tolerance);
}

const std::string kEmissive = "Material { diffuseColor 0 0 0 ambientColor 0 0 0 emissiveColor ";

} // namespace

TEST_F(Pictures, AnEmptySceneShowsTheBackground) {
  renderer.setBackgroundColor(NbColor(0.2f, 0.4f, 1.0f), 0.5f);
  ASSERT_TRUE(draw(""));
  EXPECT_EQ(at(0, 0), (Pixel{51, 102, 255, 128}));
  EXPECT_EQ(at(-5, 4.9f), (Pixel{51, 102, 255, 128}));
}

TEST_F(Pictures, EveryShapeIsThereAndLit) {
  struct Shape {
    const char* text;
    float area;
  };
  for (const Shape& shape :
       {Shape{"Cube { width 4 height 3 }", 12}, Shape{"Sphere { radius 2 }", 12.57f},
        Shape{"Cone { bottomRadius 2 height 4 }", 8}, Shape{"Cylinder { radius 2 height 3 }", 12},
        Shape{"Coordinate3 { point [ -2 -2 0, 2 -2 0, 2 2 0, -2 2 0 ] } FaceSet { numVertices 4 }", 16},
        Shape{"Coordinate3 { point [ -2 -2 0, 2 -2 0, 0 2 0 ] } IndexedFaceSet { coordIndex [ 0 1 2 -1 ] }", 8}}) {
    ASSERT_TRUE(draw(std::string("BaseColor { rgb 1 0.5 0 } ") + shape.text)) << shape.text;
    EXPECT_NEAR(coverage(), shape.area, 0.05f * shape.area) << shape.text;
    const Pixel middle = at(0, 0);
    EXPECT_GT(middle[0], 150) << shape.text;
    EXPECT_NEAR(middle[1], middle[0] / 2, 12) << shape.text;
    EXPECT_LT(middle[2], 20) << shape.text;
    EXPECT_EQ(middle[3], 255);
  }
}

TEST_F(Pictures, TheHeadlightShowsTheForm) {
  ASSERT_TRUE(draw("Material { diffuseColor 1 1 1 ambientColor 0 0 0 } Sphere { radius 4 }"));
  expectNear(at(0, 0), 255, 255, 255, 3);
  // At 0.6 of the radius the surface is turned by the angle whose cosine is 0.8.
  EXPECT_NEAR(at(2.4f, 0)[0], 204, 6);
  EXPECT_NEAR(at(0, -2.4f)[0], 204, 6);
}

TEST_F(Pictures, ALightShinesFromItsSide) {
  ASSERT_TRUE(draw("DirectionalLight { direction -1 0 0 color 1 0 0 intensity 0.5 }"
                   "Material { diffuseColor 1 1 1 ambientColor 0 0 0 } Sphere { radius 4 }"));
  // From the right: there the surface is turned to it.
  EXPECT_NEAR(at(3.2f, 0)[0], 102, 8);
  expectNear(at(-2, 0), 0, 0, 0);
  EXPECT_EQ(at(3.2f, 0)[1], 0);
}

TEST_F(Pictures, BothSidesOfAFaceAreLit) {
  ASSERT_TRUE(draw("BaseColor { rgb 0 1 0 } Coordinate3 { point [ -4 -4 0, 0 -4 0, 0 4 0, -4 4 0, 4 -4 0, 4 4 0 ] }"
                   "IndexedFaceSet { coordIndex [ 0 1 2 3 -1 1 2 5 4 -1 ] }"));
  EXPECT_GT(at(-2, 0)[1], 240);
  EXPECT_GT(at(2, 0)[1], 240);
}

TEST_F(Pictures, AMirroringOrFlatteningTransformKeepsTheLight) {
  ASSERT_TRUE(
      draw("Material { diffuseColor 1 1 1 ambientColor 0 0 0 }"
           "Separator { Translation { translation -2.5 0 0 } Scale { scaleFactor -1 1 1 } Sphere { radius 2 } }"
           "Separator { Translation { translation 2.5 0 0 } Scale { scaleFactor 1 1 0 } Cube { width 4 height 4 } }"));
  EXPECT_GT(at(-2.5f, 0)[0], 240);
  EXPECT_NEAR(at(-3.7f, 0)[0], 204, 10);
  EXPECT_NEAR(at(-1.3f, 0)[0], 204, 10);
  EXPECT_GT(at(2.5f, 0)[0], 240);
}

TEST_F(Pictures, MaterialsAddUp) {
  ASSERT_TRUE(draw("Material { diffuseColor 0.2 0 0 ambientColor 0 0 0 emissiveColor 0 0.4 0 specularColor 0 0 0.6 "
                   "shininess 1 } Cube { width 6 height 6 }"));
  // Seen and lit from the front, the highlight is full everywhere.
  expectNear(at(0, 0), 51, 102, 153);
  ASSERT_TRUE(draw("Material { diffuseColor 0 0 0 ambientColor 1 0.5 0 } Cube { width 6 height 6 }"));
  expectNear(at(0, 0), 51, 26, 0);
}

TEST_F(Pictures, AClipPlaneCuts) {
  ASSERT_TRUE(draw("Separator { ClipPlane { plane 1 0 0 1 } " + kEmissive + "1 1 1 } Cube { width 8 height 2 } }" +
                   "Translation { translation 0 -3 0 } Cube { width 8 height 2 }"));
  expectNear(at(2, 0), 255, 255, 255);
  expectNear(at(0.9f, 0), 0, 0, 0);
  expectNear(at(1.1f, 0), 255, 255, 255);
  EXPECT_GT(at(-3, -3)[0], 100);
}

TEST_F(Pictures, ClipPlanesCutTogether) {
  ASSERT_TRUE(
      draw("Separator { Translation { translation 1 1 0 } ClipPlane { plane 1 0 0 0 } ClipPlane { plane 0 1 0 0 } "
           "ClipPlane { plane -1 0 0 -2 } ClipPlane { plane 0 -1 0 -2 } " +
           kEmissive + "1 1 1 } Cube { width 20 height 20 } }"));
  EXPECT_NEAR(coverage(), 4, 0.1f);
  expectNear(at(2, 2), 255, 255, 255);
}

TEST_F(Pictures, TexturesAreLaidOnTheShape) {
  ASSERT_TRUE(draw(kEmissive +
                   "1 1 1 } Texture2 { image 2 2 3 0xff0000 0x00ff00 0x0000ff 0xffffff wrapS CLAMP wrapT CLAMP }"
                   "Cube { width 8 height 8 }"));
  expectNear(at(-3, -3), 255, 0, 0);
  expectNear(at(3, -3), 0, 255, 0);
  expectNear(at(-3, 3), 0, 0, 255);
  expectNear(at(3, 3), 255, 255, 255);
  // Half way between the pixels' middles.
  expectNear(at(0, 3), 128, 128, 255, 10);
  // One component is grey; the shape's colour counts as well.
  ASSERT_TRUE(draw(kEmissive + "1 0.5 0 } Texture2 { image 1 1 1 0x80 } Cube { width 8 height 8 }"));
  expectNear(at(0, 0), 128, 64, 0);
}

TEST_F(Pictures, TransparentThingsShowWhatIsBehind) {
  const auto square = [](const char* color, const char* size, const char* z) {
    return std::string("Separator { Translation { translation 0 0 ") + z +
           " } Material { diffuseColor 0 0 0 ambientColor 0 0 0 transparency 0.5 emissiveColor " + color +
           " } Scale { scaleFactor " + size + " " + size +
           " 1 } Coordinate3 { point [ -1 -1 0, 1 -1 0, 1 1 0, -1 1 0 ] } FaceSet { numVertices 4 } }";
  };
  const std::string red = square("1 0 0", "3", "2");
  const std::string blue = square("0 0 1", "2", "-2");
  const std::string white =
      "Separator { Translation { translation 0 0 -5 } " + kEmissive + "1 1 1 } Cube { width 8 height 1 } }";
  // In whichever order they stand in the scene.
  for (const std::string& text : {red + blue + white, white + blue + red, blue + red + white}) {
    ASSERT_TRUE(draw(text));
    expectNear(at(2.5f, 2.5f), 128, 0, 0);
    expectNear(at(2.5f, 0), 255, 128, 128, 3);
    expectNear(at(0, 1), 128, 0, 64);
    expectNear(at(0, 0), 191, 64, 128, 3);
    expectNear(at(3.5f, 0), 255, 255, 255);
  }
}

TEST_F(Pictures, TheNearerHidesTheFarther) {
  ASSERT_TRUE(draw("Separator { Translation { translation 0 0 3 } " + kEmissive + "1 0 0 } Cube { } }" +
                   "Separator { " + kEmissive + "0 1 0 } Cube { width 6 height 6 } }"));
  expectNear(at(0, 0), 255, 0, 0);
  expectNear(at(2, 2), 0, 255, 0);
}

TEST_F(Pictures, ChangesShowWithoutANewTraversal) {
  ASSERT_TRUE(draw("DEF CHOICE Switch { whichChild 0 Separator { DEF LOOK " + kEmissive + "1 0 0 } Cube { } }" +
                   "Separator { " + kEmissive + "0 0 1 } Sphere { } } }"));
  expectNear(at(0, 0), 255, 0, 0);
  auto* look = static_cast<NkMaterial*>(NkNode::getByName("LOOK"));
  look->emissiveColor.setValue(NbColor(0, 1, 0));
  ASSERT_TRUE(drawAgain());
  expectNear(at(0, 0), 0, 255, 0);
  EXPECT_EQ(renderer.getGLRenderAction()->getStatistics().compiledSegments, 1);
  ASSERT_TRUE(drawAgain());
  expectNear(at(0, 0), 0, 255, 0);
  EXPECT_EQ(renderer.getGLRenderAction()->getStatistics().visitedNodes, 0);
  auto* choice = static_cast<NkSwitch*>(NkNode::getByName("CHOICE"));
  choice->whichChild = 1;
  ASSERT_TRUE(drawAgain());
  expectNear(at(0, 0), 0, 0, 255);
  choice->whichChild = NK_SWITCH_NONE;
  ASSERT_TRUE(drawAgain());
  expectNear(at(0, 0), 0, 0, 0);
}

TEST_F(Pictures, AThousandCubesAreOneCall) {
  std::string text = kEmissive + "1 1 1 } ";
  for (int i = 0; i < 1000; ++i) {
    text += "Separator { Translation { translation " + std::to_string(-4.75 + 0.25 * (i % 40)) + " " +
            std::to_string(-3 + 0.25 * (i / 40)) + " 0 } Cube { width 0.2 height 0.2 } }";
  }
  ASSERT_TRUE(draw(text));
  EXPECT_EQ(renderer.getGLRenderAction()->getStatistics().drawCalls, 1);
  expectNear(at(-4.75f, -3), 255, 255, 255);
  expectNear(at(4.98f, 3), 255, 255, 255);
  EXPECT_LT(at(-4.6f, 4)[0], 10);
}

TEST_F(Pictures, TextIsLegible) {
  ASSERT_TRUE(
      draw(kEmissive + "1 1 1 } Font { size 4 } Translation { translation -4 -1.5 0 } Text3 { string \"IL\" }"));
  const float covered = coverage();
  EXPECT_GT(covered, 1);
  EXPECT_LT(covered, 12);
  // Each letter is an instance of its glyph's mesh.
  EXPECT_EQ(renderer.getGLRenderAction()->getStatistics().drawCalls, 2);
}

TEST_F(Pictures, EdgesAreSmooth) {
  const std::string slanted =
      kEmissive + "1 1 1 } Coordinate3 { point [ -4 -4 0, 4 -4 0, 3 4 0 ] } FaceSet { numVertices 3 }";
  const auto countGrey = [this] {
    int count = 0;
    for (int i = 0; i < kSize * kSize; ++i) {
      const int value = renderer.getBuffer()[i * 4];
      count += value > 20 && value < 235 ? 1 : 0;
    }
    return count;
  };
  ASSERT_TRUE(draw(slanted));
  EXPECT_GT(countGrey(), 60);
  renderer.setNumSamples(1);
  ASSERT_TRUE(draw(slanted));
  EXPECT_EQ(countGrey(), 0);
}

TEST_F(Pictures, AViewportIsAPartOfThePicture) {
  NbViewportRegion viewport(kSize, kSize);
  viewport.setViewportPixels(50, 0, 50, 50);
  renderer.setViewportRegion(viewport);
  ASSERT_TRUE(draw(kEmissive + "1 1 1 } Cube { width 20 height 20 }"));
  expectNear(at(2, -2), 255, 255, 255);
  expectNear(at(-2, -2), 0, 0, 0);
  expectNear(at(2, 2), 0, 0, 0);
}

TEST_F(Pictures, APerspectiveCameraSeesNearThingsLarger) {
  scene = read(
      "#Arbora V2.1 ascii\nPerspectiveCamera { position 0 0 10 heightAngle 1.0472 nearDistance 1 farDistance 100 }" +
      kEmissive + "1 1 1 } Separator { Translation { translation -2 0 0 } Cube { depth 0 } }" +
      "Separator { Translation { translation 4 0 -10 } Cube { depth 0 } }");
  ASSERT_TRUE(scene);
  ASSERT_TRUE(drawAgain());
  int left = 0;
  int right = 0;
  for (int i = 0; i < kSize * kSize; ++i) (i % kSize < kSize / 2 ? left : right) += renderer.getBuffer()[i * 4] > 127;
  // At half the distance it covers four times the area: 2 of the 11.55 units of the picture's height, each way.
  EXPECT_NEAR(left, 300, 25);
  EXPECT_NEAR(right, 75, 15);
}

TEST_F(Pictures, OnePathOfAScene) {
  scene = read("#Arbora V2.1 ascii\n" + kEmissive +
               "1 0 0 } Translation { translation -0.5 0 0 } Separator { Cube { width 0.5 height 0.5 } }" +
               "Translation { translation 1 0 0 } Separator { Cube { width 0.5 height 0.5 } }");
  ASSERT_TRUE(scene);
  const Ref<NkPath> path(NkPath::create(scene.get()));
  ASSERT_TRUE(path->append(4));
  ASSERT_TRUE(renderer.render(path.get()));
  expectNear(at(2.5f, 0), 255, 0, 0);
  expectNear(at(-2.5f, 0), 0, 0, 0);
}

TEST_F(Pictures, ThePictureIsWrittenAsAPngFile) {
  const std::string path = outputDir() + "/written.png";
  {
    const ExpectMessages messages({"no picture yet"});
    EXPECT_EQ(renderer.getBuffer(), nullptr);
    EXPECT_FALSE(renderer.writePng(path.c_str()));
  }
  renderer.setComponents(NkOffscreenRenderer::RGB);
  renderer.setBackgroundColor(NbColor(1, 0, 0));
  scene = new NkSeparator;
  ASSERT_TRUE(renderer.render(scene.get()));
  EXPECT_EQ(renderer.getBuffer()[0], 255);
  EXPECT_EQ(renderer.getBuffer()[kSize * kSize * 3 - 3], 255);
  ASSERT_TRUE(renderer.writePng(path.c_str()));
  std::ifstream file(path, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  EXPECT_EQ(bytes.substr(0, 8), "\x89PNG\r\n\x1a\n");
  const ExpectMessages messages({"can't be written"});
  EXPECT_FALSE(renderer.writePng((outputDir() + "/no/such/folder/x.png").c_str()));
}

TEST_F(Pictures, ATooLargePictureIsRefusedOnce) {
  scene = new NkSeparator;
  renderer.setViewportRegion(NbViewportRegion(1 << 20, 10));
  const ExpectMessages messages({"No picture of 1048576 by 10 pixels"});
  EXPECT_FALSE(renderer.render(scene.get()));
  EXPECT_FALSE(renderer.render(scene.get()));
  renderer.setViewportRegion(NbViewportRegion(kSize, kSize));
  EXPECT_TRUE(renderer.render(scene.get()));
}

TEST_F(Pictures, TheContextThatWasCurrentStaysSo) {
  EXPECT_EQ(NkGLContext::getCurrent(), nullptr);
  NbString why;
  const auto context = NkGLContext::createOffscreen(why);
  ASSERT_TRUE(context) << why.toLatin1();
  EXPECT_EQ(NkGLContext::getCurrent(), nullptr);
  const NkGLContext::Scope scope(*context);
  ASSERT_TRUE(scope.isCurrent());
  void* const current = NkGLContext::getCurrent();
  EXPECT_NE(current, nullptr);
  {
    NkOffscreenRenderer other(NbViewportRegion(10, 10));
    const Ref<NkSeparator> empty(new NkSeparator);
    EXPECT_TRUE(other.render(empty.get()));
    EXPECT_EQ(NkGLContext::getCurrent(), current);
  }
  EXPECT_EQ(NkGLContext::getCurrent(), current);
}
