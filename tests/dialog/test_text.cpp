#include <random>

#include "DialogTest.h"
#include "Panelix/NkDialogComboBox.h"
#include "Panelix/NkDialogEditText.h"
#include "Panelix/NkDialogLabel.h"
#include "arbora/scene/NkFieldSensor.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkText3.h"

namespace {

using arbora::Ref;

/// Opens up what the classes of the toolkit use.
struct Panelix : NkPanelix {
  using NkPanelix::convertFromCString;
  using NkPanelix::convertToCString;
  using NkPanelix::getNumLines;
  using NkPanelix::insertTextTo3DText;
  using NkPanelix::setStringToText3;
  using NkPanelix::wrap3DTextLine;
};

using Lines = std::vector<std::string>;

Lines linesOf(const NkText3* text3) {
  Lines lines;
  for (int i = 0; i < text3->string.getNum(); ++i) lines.push_back(text3->string[i].toLatin1());
  return lines;
}

Ref<NkText3> makeText3(const Lines& lines) {
  Ref<NkText3> text3(new NkText3);
  text3->string.setValues(std::vector<NbString>(lines.begin(), lines.end()));
  return text3;
}

class Text : public DialogTest {};

// Conversion

TEST_F(Text, EscapesAndLineEnds) {
  const Ref<NkDialogLabel> label(new NkDialogLabel);
  const Ref<NkDialogEditText> editText(new NkDialogEditText);
  struct Row {
    const char* text;
    const char* shown;
    const char* edited;
  };
  const Row rows[] = {
      {"", "", ""},
      {"plain", "plain", "plain"},
      {"a\r\nb", "a\nb", "a\r\nb"},
      {"a\nb", "a\nb", "a\r\nb"},
      {"a\rb", "ab", "ab"},
      {"\r", "", ""},
      {"a\\nb", "a\nb", "a\r\nb"},
      {"a\\tb", "a\tb", "a\tb"},
      {"\\\"a\\\"", "\"a\"", "\"a\""},
      {"a\\\\nb", "a\\nb", "a\\nb"},
      {"\\x\\r", "xr", "xr"},
      {"a\\\nb", "a\nb", "a\nb"},
      {"\xe9\\n\xe9", "\xe9\n\xe9", "\xe9\r\n\xe9"},
      {"ends in\\", "ends in", "ends in"},
      {"\\", "", ""},
      {"\\\\", "\\", "\\"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(Panelix::convertToCString(row.text, nullptr), row.shown);
    EXPECT_EQ(Panelix::convertToCString(row.text, label.get()), row.shown);
    EXPECT_EQ(Panelix::convertToCString(row.text, editText.get()), row.edited);
  }
}

TEST_F(Text, WideTextIsConvertedToBytes) {
  const NbString converted = Panelix::convertToCString(NbString(L"\x20ac\\n\xe9"), nullptr);
  EXPECT_FALSE(converted.isUnicode());
  EXPECT_EQ(converted, "?\n\xe9");
}

TEST_F(Text, ComboBoxShowsItsTextAsWritten) {
  const Ref<NkDialogComboBox> box(new NkDialogComboBox);
  EXPECT_EQ(Panelix::convertToCString("a\\n\r\nb\\", box.get()), "a\\n\r\nb\\");
  const NbString wide(L"\x20ac");
  EXPECT_EQ(Panelix::convertToCString(wide, box.get()), wide);
}

TEST_F(Text, NothingIsConvertedBack) {
  EXPECT_TRUE(Panelix::convertFromCString("text", 1).isEmpty());
  EXPECT_TRUE(Panelix::convertFromCString("", 0).isEmpty());
}

TEST_F(Text, NumLinesCountsLineFeeds) {
  EXPECT_EQ(Panelix::getNumLines(""), 0);
  EXPECT_EQ(Panelix::getNumLines("one"), 0);
  EXPECT_EQ(Panelix::getNumLines("one\r\ntwo\n"), 2);
  EXPECT_EQ(Panelix::getNumLines("one\\ntwo"), 0);
  EXPECT_EQ(Panelix::getNumLines(NbString(L"one\ntwo")), 1);
}

// Size

/// What the screen itself measures.
NbVec2i32 extentOf(const std::string& line) {
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, NkPanelix::getPanelixFont());
  SIZE size{};
  EXPECT_TRUE(GetTextExtentPoint32A(screen, line.c_str(), static_cast<int>(line.size()), &size));
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  return {size.cx, size.cy};
}

TEST_F(Text, EmptyLabelHasNoSize) { EXPECT_EQ(NkPanelix::getLabelPixelSize("", nullptr), NbVec2i32(0, 0)); }

TEST_F(Text, SizeOfALine) {
  const NbVec2i32 extent = extentOf("Panel 1");
  ASSERT_GT(extent[0], 7);
  EXPECT_EQ(NkPanelix::getLabelPixelSize("Panel 1", nullptr), extent + NbVec2i32(3, 3));
  EXPECT_EQ(NkPanelix::getLabelPixelSize("Panel\\ 1", nullptr), extent + NbVec2i32(3, 3));
}

TEST_F(Text, SizeOfSeveralLinesIsThatOfTheWidest) {
  const NbVec2i32 widest = extentOf("the widest");
  const NbVec2i32 size(widest[0] + 3, 3 * widest[1] + 3);
  EXPECT_EQ(NkPanelix::getLabelPixelSize("first\\nthe widest\\n", nullptr), size);
  EXPECT_EQ(NkPanelix::getLabelPixelSize("the widest\r\n\r\nlast", nullptr), size);
}

TEST_F(Text, ComboBoxMeasuresItsTextAsWritten) {
  const Ref<NkDialogComboBox> box(new NkDialogComboBox);
  EXPECT_EQ(NkPanelix::getLabelPixelSize("a\\nb", box.get()), extentOf("a\\nb") + NbVec2i32(3, 3));
}

TEST_F(Text, EditTextMeasuresOneLineUnlessItHasSeveral) {
  const Ref<NkDialogEditText> editText(new NkDialogEditText);
  EXPECT_EQ(NkPanelix::getLabelPixelSize("a\\nb", editText.get()), extentOf("a\r\nb") + NbVec2i32(3, 3));
  editText->multiLine = TRUE;
  const NbVec2i32 widest = extentOf("a\r");
  EXPECT_EQ(NkPanelix::getLabelPixelSize("a\\nb", editText.get()), NbVec2i32(widest[0] + 3, 2 * widest[1] + 3));
}

// Lines of a 3D text

TEST_F(Text, LinesThatAreLeftOverStay) {
  const Ref<NkText3> text3 = makeText3({"one", "two", "three"});
  Panelix::setStringToText3(text3.get(), "new");
  EXPECT_EQ(linesOf(text3.get()), (Lines{"new", "two", "three"}));
}

TEST_F(Text, TextIsSplitAtLineFeeds) {
  const Ref<NkText3> text3(new NkText3);
  Panelix::setStringToText3(text3.get(), "one\r\n\ntwo\n");
  EXPECT_EQ(linesOf(text3.get()), (Lines{"one\r", "", "two", ""}));
  Panelix::setStringToText3(text3.get(), "");
  EXPECT_EQ(linesOf(text3.get()), (Lines{"", "", "two", ""}));
}

TEST_F(Text, SettingTheLinesNotifiesOnce) {
  const Ref<NkText3> text3(new NkText3);
  int writes = 0;
  NkFieldSensor sensor([](void* data, NkSensor*) { ++*static_cast<int*>(data); }, &writes);
  sensor.setPriority(0);
  sensor.attach(&text3->string);
  Panelix::setStringToText3(text3.get(), "one\ntwo\nthree");
  EXPECT_EQ(writes, 1);
}

struct Insertion {
  Lines lines;
  const char* text;
  int line;
  int column;
  Lines result;
  int lastLine;
};

TEST_F(Text, InsertionIntoALine) {
  const Insertion insertions[] = {
      {{""}, "text", 0, 0, {"text"}, 0},
      {{""}, "text", 0, -1, {"text"}, 0},
      {{"line"}, "text", 0, -1, {"linetext"}, 0},
      // The character at the column is doubled.
      {{"line"}, "-", 0, 0, {"l-line"}, 0},
      {{"line"}, "-", 0, 2, {"lin-ne"}, 0},
      {{"line"}, "-", 0, 3, {"line-e"}, 0},
      {{"line"}, "-", 0, 4, {"line-"}, 0},
      {{"line"}, "", 0, -1, {"line"}, 0},
      {{"line"}, "text", 1, 0, {"line", "text"}, 1},
      {{"line"}, "text", 3, 0, {"line", "", "", "text"}, 3},
      {{"one", "two"}, "-", 1, -1, {"one", "two-"}, 1},
  };
  for (const Insertion& insertion : insertions) {
    const Ref<NkText3> text3 = makeText3(insertion.lines);
    EXPECT_EQ(Panelix::insertTextTo3DText(insertion.text, text3.get(), insertion.line, insertion.column),
              insertion.lastLine);
    EXPECT_EQ(linesOf(text3.get()), insertion.result);
  }
}

TEST_F(Text, InsertionOfALineFeedBreaksTheLine) {
  const Insertion insertions[] = {
      {{"0"}, "\n", 0, -1, {"0", ""}, 1},
      {{"0"}, "a\nb", 0, -1, {"0", ""}, 1},
      {{"0", "1"}, "\n", 0, -1, {"0", ""}, 1},
      {{"0", "1", "2"}, "\n", 0, -1, {"0", "", "2", "1"}, 1},
      {{"0", "1", "2", "3", "4"}, "\n", 0, -1, {"0", "", "2", "1", "2", "3"}, 1},
      {{"0", "1", "2", "3", "4"}, "\n", 1, -1, {"0", "1", "", "3", "2", "3"}, 2},
      {{"0", "1"}, "\n", 4, -1, {"0", "1", "", "", "", ""}, 5},
  };
  for (const Insertion& insertion : insertions) {
    const Ref<NkText3> text3 = makeText3(insertion.lines);
    EXPECT_EQ(Panelix::insertTextTo3DText(insertion.text, text3.get(), insertion.line, insertion.column),
              insertion.lastLine);
    EXPECT_EQ(linesOf(text3.get()), insertion.result);
  }
}

TEST_F(Text, NegativeLineIsRefused) {
  const Ref<NkText3> text3 = makeText3({"line"});
  expectMessage("NkMField::set1Value");
  Panelix::insertTextTo3DText("text", text3.get(), -1, 0);
  expectMessage("NkMField::set1Value");
  Panelix::insertTextTo3DText("\n", text3.get(), -3, 0);
  EXPECT_EQ(linesOf(text3.get()), Lines{"line"});
}

// Wrapping

/// Counts how often its children are measured.
class CountedGroup : public NkGroup {
public:
  int count = 0;
  void getBoundingBox(NkGetBoundingBoxAction* action) override {
    ++count;
    NkGroup::getBoundingBox(action);
  }
};

class Wrapping : public Text {
protected:
  Wrapping() { useProperties("Font { name \"Tahoma\" size 11 }"); }

  void useProperties(const std::string& text) {
    properties = readOne<NkGroup>("Group { " + text + " }");
    ASSERT_TRUE(properties);
    measured = Ref<NkSeparator>(new NkSeparator);
    measured->addChild(properties.get());
    measured->addChild(measuredText.get());
  }

  float widthOf(const std::string& text) {
    measuredText->string.setValue(text);
    NkGetBoundingBoxAction action;
    action.apply(measured.get());
    return action.getBoundingBox().getSize()[0];
  }

  int wrap(NkText3* text3, int line, float maxWidth) {
    return Panelix::wrap3DTextLine(text3, line, maxWidth, properties.get(), node.get());
  }

  /// The same, one character after the other.
  Lines wrapPlainly(std::string rest, float maxWidth) {
    Lines lines;
    for (;;) {
      std::size_t end = 0;
      float width = 0;
      while (width < maxWidth && end < rest.size()) width = widthOf(rest.substr(0, ++end));
      const std::size_t next = width > maxWidth ? end - 1 : end;
      if (next == 0 || next == rest.size()) break;
      lines.push_back(rest.substr(0, end));
      rest.erase(0, next);
    }
    lines.push_back(rest);
    return lines;
  }

  const Ref<NkDialogLabel> node{new NkDialogLabel};
  const Ref<NkText3> measuredText{new NkText3};
  Ref<NkGroup> properties;
  Ref<NkSeparator> measured;
};

TEST_F(Wrapping, LineThatFitsStays) {
  const Ref<NkText3> text3 = makeText3({"first", "second"});
  int writes = 0;
  NkFieldSensor sensor([](void* data, NkSensor*) { ++*static_cast<int*>(data); }, &writes);
  sensor.setPriority(0);
  sensor.attach(&text3->string);
  EXPECT_EQ(wrap(text3.get(), 1, 1000), 1);
  EXPECT_EQ(wrap(text3.get(), 0, widthOf("first")), 0);
  EXPECT_EQ(writes, 0);
}

TEST_F(Wrapping, CharacterThatBreaksTheLimitStandsOnBothLines) {
  const Ref<NkText3> text3 = makeText3({"before", "abcdef", "after"});
  const float limit = (widthOf("abc") + widthOf("abcd")) / 2;
  EXPECT_EQ(wrap(text3.get(), 1, limit), 2);
  EXPECT_EQ(linesOf(text3.get()), (Lines{"before", "abcd", "def", "after"}));
}

TEST_F(Wrapping, LineOfJustTheLimitDoublesNothing) {
  const Ref<NkText3> text3 = makeText3({"abcdef"});
  EXPECT_EQ(wrap(text3.get(), 0, widthOf("abcd")), 1);
  EXPECT_EQ(linesOf(text3.get()), (Lines{"abcd", "ef"}));
}

TEST_F(Wrapping, LastCharacterThatBreaksTheLimitIsRepeated) {
  const Ref<NkText3> text3 = makeText3({"abcd"});
  EXPECT_EQ(wrap(text3.get(), 0, (widthOf("abc") + widthOf("abcd")) / 2), 1);
  EXPECT_EQ(linesOf(text3.get()), (Lines{"abcd", "d"}));
}

TEST_F(Wrapping, EndsWhereACharacterDoesNotFit) {
  const Ref<NkText3> text3 = makeText3({"wide"});
  for (const float limit : {widthOf("w") / 2, 0.0f, -5.0f, std::numeric_limits<float>::quiet_NaN()}) {
    EXPECT_EQ(wrap(text3.get(), 0, limit), 0);
    EXPECT_EQ(linesOf(text3.get()), Lines{"wide"});
  }
  // Narrow letters fit two by two, the wide one doesn't.
  text3->string.setValue("iiiiWii");
  EXPECT_EQ(wrap(text3.get(), 0, widthOf("ii")), 2);
  EXPECT_EQ(linesOf(text3.get()), (Lines{"ii", "ii", "Wii"}));
}

TEST_F(Wrapping, EmptyLineAndLineThatIsNotThere) {
  const Ref<NkText3> text3 = makeText3({""});
  EXPECT_EQ(wrap(text3.get(), 0, 1), 0);
  EXPECT_EQ(wrap(text3.get(), 1, 1), 1);
  EXPECT_EQ(wrap(text3.get(), -1, 1), -1);
  EXPECT_EQ(linesOf(text3.get()), Lines{""});
}

TEST_F(Wrapping, WithoutProperties) {
  const Ref<NkText3> text3 = makeText3({"a few words"});
  useProperties("");
  const Lines expected = wrapPlainly("a few words", 30);
  ASSERT_GT(expected.size(), 1U);
  Panelix::wrap3DTextLine(text3.get(), 0, 30, nullptr, node.get());
  EXPECT_EQ(linesOf(text3.get()), expected);
}

TEST_F(Wrapping, SameAsOneCharacterAfterTheOther) {
  const char* const allProperties[] = {
      NkPanelix::TextProperties,
      "",
      "Font { size 1 }",
      "Font { size 0 }",
      "Font { name \"Tahoma\" size 11 } Scale { scaleFactor 2.5 1 1 }",
      "Scale { scaleFactor 0.3 7 1 } Font { size 40 }",
      "Scale { scaleFactor -1.7 1 1 } Translation { translation 3 4 5 }",
      "Rotation { rotation 0 0 1 0.7 }",
      "Transform { rotation 1 2 3 2.5 scaleFactor 1 2 3 }",
      "Separator { Scale { scaleFactor 9 9 9 } } Group { Font { size 7 } }",
      "Separator { Cube { width 40 } }",
      "Translation { translation 20 0 0 } Sphere { radius 12 }",
      "Switch { whichChild 0 Font { size 25 } Font { size 5 } }",
  };
  std::mt19937 random(7);
  const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  const std::string letters = "iilltW m.eno\t\x01\xe9";
  int broken = 0;
  for (const char* text : allProperties) {
    SCOPED_TRACE(text);
    useProperties(text);
    for (int round = 0; round < 60; ++round) {
      std::string line;
      for (int length = below(round % 10 == 0 ? 200 : 40); length > 0; --length)
        line += letters[static_cast<std::size_t>(below(static_cast<int>(letters.size())))];
      // Often just the width of a beginning, where a rounding error would show.
      float limit = widthOf(line.substr(0, static_cast<std::size_t>(below(30))));
      if (round % 3 == 0) limit *= 1.01f;
      const Lines expected = wrapPlainly(line, limit);
      broken += expected.size() > 1 ? 1 : 0;
      const Ref<NkText3> text3 = makeText3({"before", line, "after"});
      EXPECT_EQ(wrap(text3.get(), 1, limit), static_cast<int>(expected.size()));
      Lines all{"before"};
      all.insert(all.end(), expected.begin(), expected.end());
      all.push_back("after");
      ASSERT_EQ(linesOf(text3.get()), all) << "width " << limit;
    }
  }
  EXPECT_GT(broken, 100);
}

TEST_F(Wrapping, LongLineTakesFewMeasurings) {
  std::string line;
  for (int i = 0; line.size() < 100000; ++i) line += "word" + std::to_string(i) + ' ';
  const Ref<NkText3> text3 = makeText3({line});
  const Ref<CountedGroup> counted(new CountedGroup);
  counted->addChild(properties.get());
  const float limit = 200.25f;
  const int last = Panelix::wrap3DTextLine(text3.get(), 0, limit, counted.get(), node.get());
  ASSERT_EQ(last + 1, text3->string.getNum());
  EXPECT_GT(last, 2000);
  EXPECT_LT(counted->count, 10 * last);
  std::string joined;
  for (const std::string& piece : linesOf(text3.get())) {
    if (!joined.empty()) joined.pop_back();
    joined += piece;
  }
  EXPECT_TRUE(joined == line);
}

} // namespace
