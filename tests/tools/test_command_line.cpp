#include <gtest/gtest.h>

#include <filesystem>

#include "tests/base/Environment.h"
#include "tests/support/TestSupport.h"
#include "tests/tools/Json.h"
#include "tests/tools/Picture.h"
#include "tests/tools/Program.h"

namespace {

constexpr Picture::Pixel kBlack{0, 0, 0};

/// Tests that run the program as a user does.
class CommandLine : public ::testing::Test {
protected:
  static bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }

  /// Draws a scene; fails the test if that fails or says anything.
  static Picture draw(const std::string& path, const std::vector<std::string>& options = {}) {
    const std::string picture =
        outputDir() + "/tools/" + testing::UnitTest::GetInstance()->current_test_info()->name() + ".png";
    std::filesystem::remove(picture);
    std::vector<std::string> words{"render", path, "-o", picture};
    words.insert(words.end(), options.begin(), options.end());
    const Result result = runPanelix(words);
    EXPECT_EQ(result.exitCode, 0) << path;
    EXPECT_EQ(result.out, "") << path;
    EXPECT_EQ(result.err, "") << path;
    return Picture(picture);
  }
};

} // namespace

TEST_F(CommandLine, TellsItsVersionAndItsHelp) {
  const Result version = runPanelix({"--version"});
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_EQ(version.out.substr(0, 8), "panelix ");
  EXPECT_EQ(version.err, "");
  for (const std::vector<std::string>& words : {std::vector<std::string>{"--help"},
                                                {"render", "--help"},
                                                {"show", "--help"},
                                                {"inspect", "--help"},
                                                {"check", "--help"}}) {
    const Result help = runPanelix(words);
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(contains(help.out, "Usage: panelix")) << help.out;
    EXPECT_EQ(help.err, "");
  }
}

TEST_F(CommandLine, WrongUsageIsToldAndGivesTwo) {
  const std::string good = writeScene("usage.arb", "Cube { }");
  const std::string picture = outputDir() + "/tools/usage.png";
  struct Wrong {
    std::vector<std::string> words;
    std::string message;
  };
  for (const Wrong& wrong : {Wrong{{}, "A command is required"},
                             Wrong{{"paint"}, "paint"},
                             Wrong{{"render"}, "FILE"},
                             Wrong{{"render", good}, "--output"},
                             Wrong{{"render", good, "-o"}, "-o"},
                             Wrong{{"render", good, good, "-o", picture}, "usage.arb"},
                             Wrong{{"render", good, "-o", picture, "--size", "0x10"}, "0x10"},
                             Wrong{{"render", good, "-o", picture, "--size", "16385x10"}, "16385x10"},
                             Wrong{{"render", good, "-o", picture, "--size", "640"}, "'640'"},
                             Wrong{{"render", good, "-o", picture, "--size", "640x480x1"}, "640x480x1"},
                             Wrong{{"render", good, "-o", picture, "--size", "99999999999x1"}, "99999999999x1"},
                             Wrong{{"render", good, "-o", picture, "--background", "1,0"}, "'1,0'"},
                             Wrong{{"render", good, "-o", picture, "--background", "1,0,1.01"}, "1,0,1.01"},
                             Wrong{{"render", good, "-o", picture, "--background", "nan,0,0"}, "nan,0,0"},
                             Wrong{{"render", good, "-o", picture, "--colour", "1"}, "--colour"},
                             Wrong{{"render", good, "-o", picture, "--form", "4d"}, "4d"},
                             Wrong{{"render", good, "-o", picture, "--form", "both"}, "both"},
                             Wrong{{"render", good, "-o", picture, "--id"}, "--id"},
                             Wrong{{"show"}, "FILE"},
                             Wrong{{"show", good, "--size", "big"}, "'big'"},
                             Wrong{{"show", good, "--form", "2D"}, "2D"},
                             Wrong{{"show", good, "--skin"}, "--skin"},
                             Wrong{{"inspect"}, "FILE"},
                             Wrong{{"inspect", good, "--form", "both"}, "both"},
                             Wrong{{"inspect", good, "--size", "3"}, "'3'"},
                             Wrong{{"inspect", good, "--skin", "dark"}, "--skin"},
                             Wrong{{"check"}, "FILE"},
                             Wrong{{"check", good, "--format=xml"}, "xml"}}) {
    const Result result = runPanelix(wrong.words);
    EXPECT_EQ(result.exitCode, 2) << wrong.message;
    EXPECT_EQ(result.out, "") << wrong.message;
    EXPECT_TRUE(contains(result.err, wrong.message)) << wrong.message << " in\n" << result.err;
  }
  EXPECT_FALSE(std::filesystem::exists(picture));
}

TEST_F(CommandLine, APictureHasTheSizeAndTheBackgroundAskedFor) {
  const std::string path =
      writeScene("card.arb", "OrthographicCamera { height 4 position 0 0 5 }"
                             "Material { diffuseColor 0 0 0 ambientColor 0 0 0 emissiveColor 0 0 1 }"
                             "Cube { width 2 height 2 depth 0 }");
  const Picture asked = draw(path, {"--size", "300x200", "--background", "1,0.5,0"});
  EXPECT_EQ(asked.width, 300);
  EXPECT_EQ(asked.height, 200);
  EXPECT_EQ(asked.at(150, 100), (Picture::Pixel{0, 0, 255}));
  EXPECT_EQ(asked.at(5, 5), (Picture::Pixel{255, 128, 0}));
  // The scene's own camera shows 50 pixels a unit.
  EXPECT_NEAR(asked.countOther({255, 128, 0}), 100 * 100, 100);
  const Picture plain = draw(path);
  EXPECT_EQ(plain.width, 640);
  EXPECT_EQ(plain.height, 480);
  EXPECT_EQ(plain.at(5, 5), kBlack);
}

TEST_F(CommandLine, ASceneWithoutACameraIsSeenWholeFromAboveAndTheRight) {
  // Each side has its own light; the sides that are turned away would be black.
  const Picture picture =
      draw(writeScene("sides.arb", "Translation { translation 100 -40 7 } Material { diffuseColor 1 1 1 }"
                                   "DirectionalLight { direction 0 0 -1 color 1 0 0 }"
                                   "DirectionalLight { direction -1 0 0 color 0 1 0 }"
                                   "DirectionalLight { direction 0 -1 0 color 0 0 1 } Cube { }"));
  const auto isMostly = [](int index) {
    return [=](Picture::Pixel pixel) {
      const auto i = static_cast<std::size_t>(index);
      return pixel[i] > 100 && pixel[(i + 1) % 3] < 100 && pixel[(i + 2) % 3] < 100;
    };
  };
  const int front = picture.count(isMostly(0));
  const int right = picture.count(isMostly(1));
  const int top = picture.count(isMostly(2));
  EXPECT_GT(front, 20000);
  EXPECT_GT(right, 3000);
  EXPECT_GT(top, 3000);
  EXPECT_GT(front, right + top);
  // Nothing is cut off.
  for (int x = 0; x < picture.width; ++x) {
    EXPECT_EQ(picture.at(x, 0), kBlack);
    EXPECT_EQ(picture.at(x, picture.height - 1), kBlack);
  }
}

TEST_F(CommandLine, ASceneWithoutALightGetsOne) {
  const std::string camera = "OrthographicCamera { height 4 position 0 0 5 }";
  const std::string ball = "Material { diffuseColor 1 1 1 ambientColor 0 0 0 } Sphere { }";
  const Picture lit = draw(writeScene("lit.arb", camera + ball), {"--size", "100x100"});
  // From above and the right.
  EXPECT_GT(lit.at(57, 39)[0], 240);
  EXPECT_LT(lit.at(35, 65)[0], 180);
  EXPECT_GT(lit.at(50, 50)[0], 180);
  const Picture dark =
      draw(writeScene("dark.arb", "DirectionalLight { intensity 0 }" + camera + ball), {"--size", "100x100"});
  EXPECT_EQ(dark.at(57, 39), kBlack);
}

TEST_F(CommandLine, TheAddedLightGoesWithTheCameraOfTheScene) {
  // The camera looks at the ball from behind, within a turned space.
  const Picture picture =
      draw(writeScene("behind.arb", "Separator { Rotation { rotation 0 1 0 1.570796 } OrthographicCamera { height 4 "
                                    "position -5 0 0 orientation 0 1 0 -1.570796 } } Material { diffuseColor 1 1 1 "
                                    "ambientColor 0 0 0 } Sphere { }"),
           {"--size", "100x100"});
  EXPECT_GT(picture.at(50, 50)[0], 100);
}

TEST_F(CommandLine, AFileThatFailsIsToldAndGivesOne) {
  const std::string picture = outputDir() + "/tools/never.png";
  const Result missing = runPanelix({"render", "no-such-file.arb", "-o", picture});
  EXPECT_EQ(missing.exitCode, 1);
  EXPECT_EQ(missing.out, "");
  EXPECT_EQ(missing.err.substr(0, 24), "no-such-file.arb: error:");

  const std::string path = writeScene("broken.arb", "Cube {\n  width wide\n}\nSpere { }\n");
  const std::string expected = path + ":3:9: error: a number expected, found 'wide'\n" + path +
                               ":5:1: error: there is no node type 'Spere'; did you mean 'Sphere'?\n";
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"render", path, "-o", picture}, {"show", path}}) {
    const Result broken = runPanelix(words);
    EXPECT_EQ(broken.exitCode, 1);
    EXPECT_EQ(broken.out, "");
    EXPECT_EQ(broken.err, expected);
  }
  EXPECT_FALSE(std::filesystem::exists(picture));

  const std::string nowhere = outputDir() + "/no/such/folder/picture.png";
  const Result unwritable = runPanelix({"render", writeScene("good.arb", "Cube { }"), "-o", nowhere});
  EXPECT_EQ(unwritable.exitCode, 1);
  EXPECT_EQ(unwritable.out, "");
  EXPECT_TRUE(contains(unwritable.err, nowhere)) << unwritable.err;
}

TEST_F(CommandLine, NamesOfFilesMayHaveAnyLetters) {
  // "Grüße, Ελλάδα"
  const std::string path = writeScene("Gr\xC3\xBC\xC3\x9F"
                                      "e, \xCE\x95\xCE\xBB\xCE\xBB\xCE\xAC\xCE\xB4\xCE\xB1.arb",
                                      "Cube { }");
  EXPECT_GT(draw(path, {"--size", "50x50"}).countOther(kBlack), 100);
  const std::string gone = outputDir() + "/tools/\xCE\x95\xCE\xBB.arb";
  const Result result = runPanelix({"check", gone});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(contains(result.err, gone)) << result.err;
}

TEST_F(CommandLine, ImagesAreLookedForBesideTheScene) {
  // The tests run in another folder.
  const Picture picture = draw(sourceDir() + "/examples/nodes/TextureCoordinate2.arb");
  const auto isGrey = [](Picture::Pixel pixel) { return pixel[0] == pixel[1] && pixel[1] == pixel[2]; };
  // White without the image; the tiles are not.
  EXPECT_GT(picture.width * picture.height - picture.count(isGrey), 10000);
}

TEST_F(CommandLine, WithoutASkinADialogHasTheBuiltInLook) {
  const std::string dialog =
      writeScene("without skin.arb",
                 "TopLevelDialog { label \"Title\" width 220 height 160 margin 6 rowSpacing 4"
                 "  RowDialog { edgeStyle SHADOW_IN DialogLabel { label \"one\" } DialogSeparator { } }"
                 "  ColumnDialog { edgeStyle SHADOW_OUT DialogLabel { label \"two\" } DialogSeparator { } } }");
  const Picture withSkin = draw(dialog);
  const std::string path = outputDir() + "/tools/without skin.png";
  const EnvironmentVariable home("ARBORAHOME", "/nowhere");
  const Result result = runPanelix({"render", dialog, "-o", path});
  EXPECT_EQ(result.exitCode, 0);
  for (const char* file : {"TextProperties", "TopLevelDialog", "DialogComponent", "DialogSeparator"})
    EXPECT_TRUE(contains(result.err, std::string("The skin file : <") + file + ".arb> cannot be found.")) << file;
  const std::size_t explained = result.err.find("IMPORTANT");
  EXPECT_NE(explained, std::string::npos);
  EXPECT_EQ(result.err.find("IMPORTANT", explained + 1), std::string::npos);
  // The default skin is that of the built-in texts.
  EXPECT_GT(withSkin.countOther(kBlack), 1000);
  EXPECT_EQ(Picture(path).pixels, withSkin.pixels);
}

TEST_F(CommandLine, CheckReadsAllFilesAndReportsInTextOnStandardError) {
  const std::string good = writeScene("check-good.arb", "Cube { }");
  const std::string broken = writeScene("check-broken.arb", "Sphere { radius }");
  const std::string dull = writeScene("check-dull.arb", "Texture2 { filename \"no-such-image.png\" } Cube { }");
  const Result result = runPanelix({"check", broken, "no-such-file.arb", dull, good});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_TRUE(contains(result.err, broken + ":2:17: error: ")) << result.err;
  EXPECT_TRUE(contains(result.err, "no-such-file.arb: error: ")) << result.err;
  EXPECT_TRUE(contains(result.err, dull + ": warning: ")) << result.err;
  EXPECT_TRUE(contains(result.err, "no-such-image.png")) << result.err;
  EXPECT_FALSE(contains(result.err, good)) << result.err;
  EXPECT_TRUE(contains(result.err, "\n4 files: 2 errors, 1 warning\n")) << result.err;

  const Result silent = runPanelix({"check", good});
  EXPECT_EQ(silent.exitCode, 0);
  EXPECT_EQ(silent.out + silent.err, "1 file: 0 errors, 0 warnings\n");
}

TEST_F(CommandLine, WarningsCountOnlyInAStrictCheck) {
  const std::string path = writeScene("strict.arb", "Switch { Texture2 { filename \"no-such-image.png\" } }");
  EXPECT_EQ(runPanelix({"check", path}).exitCode, 0);
  EXPECT_EQ(runPanelix({"check", "--strict", path}).exitCode, 1);
  // A picture can be made all the same.
  EXPECT_EQ(runPanelix({"render", path, "-o", outputDir() + "/tools/strict.png"}).exitCode, 0);
}

TEST_F(CommandLine, AnImageIsLookedForOncePerNode) {
  const std::string path = writeScene("shared.arb", "DEF A Texture2 { filename \"no-such-image.png\" } USE A USE A");
  EXPECT_TRUE(contains(runPanelix({"check", path}).err, "0 errors, 1 warning\n"));
}

TEST_F(CommandLine, CheckReportsInJsonOnStandardOutput) {
  const std::string broken = writeScene("json-broken.arb", "Cube {\n  width 1\n  heigth 2\n}\n");
  // A quote, a byte that is no UTF-8, and a control character, as the messages show them.
  const std::string odd = writeScene("json-odd.arb", "Cube { width \"a\\\"b\xFF\x01\" }");
  const Result result = runPanelix({"check", "--format=json", broken, odd, "no-such-file.arb"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err, "3 files: 3 errors, 0 warnings\n");
  const Json json = Json::parse(result.out);
  ASSERT_EQ(json.kind, Json::ARRAY) << result.out;
  ASSERT_EQ(json.items.size(), 3u) << result.out;
  const Json& first = json.items[0];
  ASSERT_EQ(first.names.size(), 5u);
  EXPECT_EQ(first["file"].string, broken);
  EXPECT_EQ(first["line"].number, 4);
  EXPECT_EQ(first["column"].number, 3);
  EXPECT_EQ(first["severity"].string, "error");
  EXPECT_TRUE(contains(first["message"].string, "heigth")) << result.out;
  EXPECT_TRUE(contains(first["message"].string, "'height'")) << result.out;
  EXPECT_EQ(json.items[1]["file"].string, odd);
  EXPECT_EQ(json.items[1]["line"].number, 2);
  EXPECT_EQ(json.items[2]["file"].string, "no-such-file.arb");
  EXPECT_EQ(json.items[2]["line"].kind, Json::NONE);
  EXPECT_EQ(json.items[2]["column"].kind, Json::NONE);

  const Result good = runPanelix({"check", "--format", "json", writeScene("json-good.arb", "Cube { }")});
  EXPECT_EQ(good.exitCode, 0);
  const Json empty = Json::parse(good.out);
  EXPECT_EQ(empty.kind, Json::ARRAY);
  EXPECT_TRUE(empty.items.empty());
}
