#include "tests/pictures/DialogPictures.h"

#include <cctype>

#include "tests/support/TestSupport.h"
#include "tests/tools/Program.h"
#include "tests/win/Desktop.h"

namespace {

/// Around a panel, in pixels.
constexpr int kRoom = 8;
/// Edges, which a reader could take for letters, are no wider.
constexpr int kEdge2D = 2;
constexpr int kEdge3D = 3;

int numberIn(const Json& list, std::size_t index) { return static_cast<int>(list.items.at(index).number); }

/// Of the 3D form, in which a scene unit is a pixel.
Area areaOfBox(const Json& box, const Json& panel) {
  const Json& corner = box.items.at(0);
  const Json& opposite = box.items.at(1);
  return {kRoom + numberIn(corner, 0) - numberIn(panel.items.at(0), 0),
          kRoom + numberIn(panel.items.at(1), 1) - numberIn(opposite, 1), numberIn(opposite, 0) - numberIn(corner, 0),
          numberIn(opposite, 1) - numberIn(corner, 1)};
}

Area areaOfWindow(const Json& window) {
  const Json& rectangle = window["rectangle"];
  return {numberIn(rectangle, 0), numberIn(rectangle, 1), numberIn(rectangle, 2), numberIn(rectangle, 3)};
}

void expectPart(const std::string& text, const std::string& part) {
  EXPECT_NE(text.find(part), std::string::npos) << part << " in " << text;
}

std::string lettersOf(const std::string& text) {
  std::string letters;
  for (const char character : text) {
    if (std::isalnum(static_cast<unsigned char>(character)))
      letters += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    else if (!letters.empty() && letters.back() != ' ')
      letters += ' ';
  }
  if (letters.ends_with(' ')) letters.pop_back();
  return letters;
}

} // namespace

void DialogPictures::draw(const std::string& example, const std::string& form,
                          const std::vector<std::string>& options) {
  const std::string file = sourceDir() + "/examples/dialogs/" + example + ".arb";
  m_path = outputDir() + "/" + example + "-" + form + ".png";
  std::vector<std::string> words{"render", file, "-o", m_path, "--form", form};
  words.insert(words.end(), options.begin(), options.end());
  const Result drawn = runPanelix(words);
  ASSERT_EQ(drawn.exitCode, 0) << drawn.err;
  m_picture = Picture(m_path);
  ASSERT_GT(m_picture.width, 0);
  m_dialog = Json::parse(runPanelix({"inspect", file, "--form", form}).out);
  ASSERT_EQ(m_dialog.kind, Json::OBJECT);
}

Area DialogPictures::areaOf(const std::vector<std::size_t>& way) const {
  const Json* node = &m_dialog;
  Area area;
  if (!is3D()) {
    const Area frame = areaOfWindow(m_dialog["windows"].items.at(0));
    const Area content = areaOfWindow(m_dialog["windows"].items.at(1));
    area.x = (frame.width - content.width) / 2;
    area.y = frame.height - content.height - area.x;
  }
  for (const std::size_t index : way) {
    node = &(*node)["children"].items.at(index);
    if (is3D()) continue;
    const Area window = areaOfWindow((*node)["windows"].items.at(0));
    area = {area.x + window.x, area.y + window.y, window.width, window.height};
  }
  return is3D() ? areaOfBox((*node)["box"], m_dialog["box"]) : area;
}

std::string DialogPictures::readIn(const Area& area) const {
  const std::string part = outputDir() + "/part";
  const int edge = is3D() ? kEdge3D : kEdge2D;
  const auto number = [](int value) { return std::to_string(value); };
  const std::string crop = number(area.width - 2 * edge) + "x" + number(area.height - 2 * edge) + "+" +
                           number(area.x + edge) + "+" + number(area.y + edge);
  const std::string shellPart = desktop::shellPath(part);
  // Enlarged, as the reader expects the letters of a scanned page. One block of text on one thread.
  const bool isRead = desktop::run(
      "convert " + desktop::shellPath(m_path) + " -crop " + crop + " +repage -colorspace Gray -resize 300% " +
      shellPart + ".png && OMP_THREAD_LIMIT=1 tesseract " + shellPart + ".png " + shellPart + " --psm 6");
  EXPECT_TRUE(isRead) << crop << " of " << m_path;
  return lettersOf(readFile(part + ".txt"));
}

void DialogPictures::expectExportOptions() const {
  EXPECT_EQ(readAt({0}), "choose what goes into the file hidden parts are never written");
  const auto expectBox = [&](std::size_t index, const std::string& label, const std::string& caption) {
    const std::string text = readAt({2, index});
    expectPart(text, label);
    expectPart(text, caption);
  };
  expectBox(0, "normals", "written");
  expectBox(1, "colours", "one per part");
  expectBox(2, "materials", "written");
  expectBox(3, "", "compress the file");
  EXPECT_EQ(readAt({4, 0}), "export");
  EXPECT_EQ(readAt({4, 1}), "preview in the scene");
  EXPECT_EQ(readAt({4, 3}), "more advanced options");
}

void DialogPictures::expectNestedLayout() const {
  expectPart(readAt({0, 0, 0}), "alpha");
  expectPart(readAt({0, 0, 1}), "longer label b");
  expectPart(readAt({0, 0, 2}), "gamma");
  expectPart(readAt({0, 1, 0}), "off and rather long");
  EXPECT_EQ(readAt({0, 1, 2, 0}), "left");
  EXPECT_EQ(readAt({0, 1, 2, 2}), "centre");
  EXPECT_EQ(readAt({0, 1, 2, 4}), "right");
}
