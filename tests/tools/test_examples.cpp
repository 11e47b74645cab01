#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <vector>

#include "Panelix/NkPanelix.h"
#include "tests/support/TestSupport.h"
#include "tests/tools/Picture.h"
#include "tests/tools/Program.h"

namespace {

const std::string kNodes = sourceDir() + "/examples/nodes";
const std::string kPictures = outputDir() + "/examples";
constexpr Picture::Pixel kBlack{0, 0, 0};

std::string render(const std::string& scene, const std::string& picture, const std::string& size) {
  std::filesystem::create_directories(kPictures);
  std::filesystem::remove(picture);
  const Result result = runPanelix({"render", scene, "-o", picture, "--size", size});
  return result.exitCode == 0 ? result.err : "exit code " + std::to_string(result.exitCode) + "\n" + result.err;
}

/// The names of the node classes of which files can hold objects.
std::set<std::string> nodeNames() {
  NkPanelix::init();
  std::vector<NkType> types;
  NkType::getAllDerivedFrom(NkNode::getClassTypeId(), types);
  std::set<std::string> names;
  for (const NkType type : types) {
    if (type.canCreateInstance()) names.insert(type.getName().getString());
  }
  NkPanelix::finish();
  return names;
}

/// The blocks of a page that begin with this line.
std::vector<std::string> blocks(const std::string& page, const std::string& firstLine) {
  const std::string begin = "\n```" + firstLine + "\n";
  const std::string end = "```\n";
  std::vector<std::string> found;
  for (std::size_t at = page.find(begin); at != page.npos; at = page.find(begin, at)) {
    at += begin.size();
    found.push_back(page.substr(at, page.find(end, at) - at));
  }
  return found;
}

} // namespace

TEST(Examples, EachNodeHasAnExampleThatShowsSomething) {
  std::set<std::string> examples;
  for (const auto& entry : std::filesystem::directory_iterator(kNodes)) {
    if (entry.path().extension() == ".arb") examples.insert(entry.path().stem().string());
  }
  EXPECT_EQ(examples, nodeNames());
  for (const std::string& name : examples) {
    const std::string scene = kNodes + "/" + name + ".arb";
    const std::string text = readFile(scene);
    EXPECT_TRUE(text.find("\n" + name + " {") != text.npos || text.find(" " + name + " {") != text.npos)
        << name << " isn't in its example";
    const std::string picture = kPictures + "/" + name + ".png";
    EXPECT_EQ(render(scene, picture, "120x90"), "") << name;
    EXPECT_GT(Picture(picture).countOther(kBlack), 300) << name;
  }
}

TEST(Examples, NothingIsWrongInAnyExample) {
  std::vector<std::string> words{"check", "--strict"};
  for (const auto& entry : std::filesystem::recursive_directory_iterator(sourceDir() + "/examples")) {
    if (entry.path().extension() == ".arb") words.push_back(entry.path().generic_string());
  }
  ASSERT_GT(words.size(), 30u);
  const Result result = runPanelix(words);
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, std::to_string(words.size() - 2) + " files: 0 errors, 0 warnings\n");
}

TEST(Examples, TheSceneShowsItsThings) {
  const std::string picture = kPictures + "/scene.png";
  ASSERT_EQ(render(sourceDir() + "/examples/scene.arb", picture, "640x480"), "");
  const Picture scene(picture);
  ASSERT_EQ(scene.width, 640);
  ASSERT_EQ(scene.height, 480);
  const auto count = [&](int red, int green, int blue) {
    return scene.count([=](Picture::Pixel pixel) {
      return std::abs(pixel[0] - red) < 40 && std::abs(pixel[1] - green) < 40 && std::abs(pixel[2] - blue) < 40;
    });
  };
  EXPECT_GT(count(205, 100, 25), 2000) << "title";
  EXPECT_GT(count(30, 100, 55), 2000) << "trees";
  EXPECT_GT(count(45, 100, 170), 1000) << "shell of the globe";
  EXPECT_GT(count(255, 150, 35), 1000) << "its core";
  EXPECT_GT(count(255, 35, 35), 200) << "the lamp that is lit";
  EXPECT_EQ(count(50, 220, 80), 0) << "a lamp that is dark";
  EXPECT_GT(count(190, 155, 45), 1000) << "figure";
  EXPECT_GT(count(165, 160, 145), 10000) << "light tiles";
  EXPECT_GT(count(105, 120, 125), 10000) << "dark tiles";
}

TEST(Examples, TheProgramOfTheReadmeMakesItsPicture) {
  const std::string folder = outputDir() + "/example-render";
  std::filesystem::remove_all(folder);
  writeFile(folder + "/scene.arb", "#Arbora V2.1 ascii\nMaterial { emissiveColor 1 0 0 } Sphere { radius 0.5 }");
  Program program(EXAMPLE_PROGRAM, {}, folder);
  EXPECT_EQ(program.wait(), 0) << program.err();
  const Picture picture(folder + "/scene.png");
  EXPECT_EQ(picture.width, 640);
  EXPECT_GT(picture.countOther(kBlack), 1000);
}

TEST(Examples, TheReadmeShowsTheProgramAsItIs) {
  std::string code = readFile(sourceDir() + "/examples/render/main.cpp");
  ASSERT_FALSE(code.empty());
  EXPECT_NE(readFile(sourceDir() + "/README.md").find("```cpp\n" + code + "```\n"), std::string::npos);
}

TEST(Examples, TheTutorialShowsItsProgramsAndPicturesAsTheyAre) {
  const std::string examples = sourceDir() + "/examples/";
  const std::string page = readFile(sourceDir() + "/docs/tutorial.md");
  const std::string programs = readFile(examples + "empty/main.cpp") + readFile(examples + "pump/main.cpp");
  const std::vector<std::string> code = blocks(page, "cpp");
  EXPECT_EQ(code.size(), 6u);
  for (const std::string& block : code) EXPECT_NE(programs.find(block), std::string::npos) << block;
  EXPECT_NE(page.find("```\n" + readFile(examples + "pump/1-label.arb") + "```\n"), std::string::npos);
  for (const auto& entry : std::filesystem::directory_iterator(sourceDir() + "/docs/images/tutorial")) {
    const std::string name = entry.path().filename().generic_string();
    EXPECT_NE(page.find("(images/tutorial/" + name + ")"), std::string::npos) << name;
  }
}

TEST(Examples, TheProgramsOfTheTutorialRun) {
  Program empty(EMPTY_PROGRAM, {});
  EXPECT_EQ(empty.wait(), 0) << empty.err();
  EXPECT_EQ(empty.out(), std::string(NkPanelix::getVersion()) + "\n");

  std::filesystem::create_directories(kPictures);
  const std::string path = kPictures + "/pump.png";
  std::filesystem::remove(path);
  Program pump(PUMP_PROGRAM, {"--picture", path});
  EXPECT_EQ(pump.wait(), 0);
  EXPECT_EQ(pump.out() + pump.err(), "");
  const Picture picture(path);
  const auto count = [&](const std::function<bool(Picture::Pixel)>& isOfKind) { return picture.count(isOfKind); };
  EXPECT_GT(count([](Picture::Pixel pixel) { return pixel[2] > pixel[0] + 40; }), 10000) << "panel";
  EXPECT_GT(count([](Picture::Pixel pixel) { return pixel[1] > pixel[0] + 40; }), 10000) << "pump";
}
