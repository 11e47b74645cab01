#include "Panelix/NkDialogLabel.h"

#include <cmath>

#include "FormsTest.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTranslation.h"

using arbora::Ref;

TEST_F(DialogTest, LabelsStandOnTheLeft) {
  const Ref<NkDialogLabel> label(new NkDialogLabel);
  EXPECT_EQ(label->labelAlignment.getValue(), NkPanelix::LEFT);
  EXPECT_TRUE(label->labelAlignment.isDefault());
}

TEST_F(DialogTest, LabelsWriteTheirAlignmentOnlyWhenItWasSet) {
  const Ref<NkDialogLabel> unset = readOne<NkDialogLabel>("DialogLabel { label \"x\" }");
  ASSERT_TRUE(unset);
  EXPECT_EQ(unset->labelAlignment.getValue(), NkPanelix::LEFT);
  EXPECT_EQ(writeText(unset.get()).find("labelAlignment"), std::string::npos);

  const Ref<NkDialogLabel> set = readOne<NkDialogLabel>("DialogLabel { labelAlignment RIGHT }");
  ASSERT_TRUE(set);
  EXPECT_EQ(set->labelAlignment.getValue(), NkPanelix::RIGHT);
  EXPECT_NE(writeText(set.get()).find("labelAlignment RIGHT"), std::string::npos);
}

// Forms

namespace {

/// Opens a label's sizes and its 3D form.
class OpenedLabel : public NkDialogLabel {
public:
  explicit OpenedLabel(const char* text = "") { label = text; }
  void build(int x, int y) {
    NbVec2i32 size(x, y);
    NbVec2i32 corner(0, 0);
    buildWidget(nullptr, size, corner, 0);
  }
  void sizes(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) { getDefaultSize(size, min, max); }
  NbVec2i32 componentSize() const { return m_componentSize; }
  NkGroup* content() { return static_cast<NkGroup*>(getAnyPart("labelSep", false)); }
  NkText3* text() { return static_cast<NkText3*>(content()->getChild(2)); }
  NbVec3f place() { return static_cast<NkTranslation*>(content()->getChild(0))->translation.getValue(); }
  /// Of the text, in its own space.
  NbBox3f textBox() {
    const Ref<NkSeparator> scene(new NkSeparator);
    scene->addChild(content()->getChild(1));
    scene->addChild(text());
    NkGetBoundingBoxAction measure;
    measure.apply(scene.get());
    return measure.getBoundingBox();
  }
};

class DialogLabel : public FormsTest {};

} // namespace

TEST_F(DialogLabel, HasNoLabelArea) {
  const Ref<NkDialogLabel> label(new OpenedLabel("Some text"));
  EXPECT_EQ(label->getLabelInitSize(), NbVec2i32(0, 0));
  label->labelVisibility = false;
  EXPECT_EQ(label->getLabelInitSize(), NbVec2i32(0, 0));
}

TEST_F(DialogLabel, MeasuresItsTextOnce) {
  const Ref<OpenedLabel> label(new OpenedLabel("Some text"));
  const NbVec2i32 text = NkPanelix::getLabelPixelSize("Some text", nullptr);
  EXPECT_EQ(label->getComponentInitSize(), text + NbVec2i32(4, 0));
  label->label = "Some longer text";
  EXPECT_EQ(label->getComponentInitSize(), text + NbVec2i32(4, 0));
  label->resetSize();
  EXPECT_EQ(label->getComponentInitSize(), NkPanelix::getLabelPixelSize("Some longer text", nullptr) + NbVec2i32(4, 0));
  // Two lines are as high as both.
  label->label = "Some\\ntext";
  label->resetSize();
  EXPECT_EQ(label->getComponentInitSize()[1] - 3, 2 * (text[1] - 3));
}

TEST_F(DialogLabel, ItsLabelAreaNarrowsTheText) {
  const Ref<OpenedLabel> label(new OpenedLabel("Some text"));
  NbVec2i32 area(30, 20);
  label->setLabelSize(area);
  EXPECT_EQ(label->getComponentInitSize()[0], NkPanelix::getLabelPixelSize("Some text", nullptr)[0] + 4 - 30);
}

TEST_F(DialogLabel, TakesWhatItIsGivenAndWhatItsTextNeeds) {
  const Ref<OpenedLabel> label(new OpenedLabel("One\\ntwo\\nthree\\nfour"));
  NbVec2i32 size;
  NbVec2i32 min;
  NbVec2i32 max;
  NbVec2i32 given(10, 10);
  label->setComponentSize(given);
  label->sizes(size, min, max);
  // The area grows to the least size, for good.
  EXPECT_EQ(size, NbVec2i32(25, 25));
  EXPECT_EQ(min, NbVec2i32(25, 25));
  EXPECT_EQ(max, NbVec2i32(panelix::kUnbounded, panelix::kUnbounded));
  EXPECT_EQ(label->componentSize(), NbVec2i32(25, 25));
  const NbVec2i32 text = label->getComponentInitSize();
  label->sizes(size, min, max);
  EXPECT_EQ(size, NbVec2i32(25, text[1]));
  given = {300, 200};
  label->setComponentSize(given);
  label->sizes(size, min, max);
  EXPECT_EQ(size, given);
}

TEST_F(DialogLabel, IsATextInFrontOfItsFrame) {
  const Ref<OpenedLabel> label(new OpenedLabel("Some text"));
  label->build(300, 31);
  ASSERT_EQ(label->content()->getNumChildren(), 3);
  EXPECT_EQ(label->content()->getChild(1)->getName(), "DialogTextProperties");
  EXPECT_EQ(label->text()->string.getNum(), 1);
  EXPECT_EQ(label->text()->string[0], "Some text");
  EXPECT_EQ(label->text()->parts.getValue(), NkText3::FRONT);
  EXPECT_EQ(label->text()->justification.getValue(), NkText3::LEFT);
  label->build(300, 31);
  EXPECT_EQ(label->content()->getNumChildren(), 3);
}

TEST_F(DialogLabel, StandsWhereItsAlignmentSays) {
  const Ref<OpenedLabel> label(new OpenedLabel("Some text"));
  label->build(301, 31);
  const NbBox3f box = label->textBox();
  const float y = -(box.getMin()[1] + box.getMax()[1]) / 2;
  // Whole pixels, towards the middle.
  EXPECT_EQ(label->place()[0], -147);
  EXPECT_NEAR(label->place()[1], y, 1e-3);
  label->labelAlignment = NkPanelix::RIGHT;
  EXPECT_EQ(label->text()->justification.getValue(), NkText3::RIGHT);
  label->build(301, 31);
  EXPECT_EQ(label->place()[0], std::trunc(147.5F - box.getSize()[0]));
  label->labelAlignment = NkPanelix::CENTER;
  EXPECT_EQ(label->text()->justification.getValue(), NkText3::CENTER);
  label->change3DLabel();
  label->build(301, 31);
  EXPECT_EQ(label->place()[0], 0);
}

TEST_F(DialogLabel, AnotherTextIsPlacedByItsOwnWidth) {
  const Ref<OpenedLabel> label(new OpenedLabel("old"));
  label->labelAlignment = NkPanelix::RIGHT;
  label->build(300, 30);
  const float width = label->textBox().getSize()[0];
  label->label = "another text";
  label->build(300, 30);
  EXPECT_GT(label->textBox().getSize()[0], width + 10);
  EXPECT_EQ(label->place()[0], std::trunc(147 - label->textBox().getSize()[0]));
}

TEST_F(DialogLabel, WhatItsPropertiesShiftIsCentredAllTheSame) {
  const Ref<OpenedLabel> label(new OpenedLabel("Some text"));
  label->labelAlignment = NkPanelix::CENTER;
  const Ref<NkSeparator> properties = read("Group { Translation { translation 30.5 7 0 } }");
  ASSERT_TRUE(label->setPart("labelProp", properties->getChild(0)));
  label->build(300, 30);
  const NbVec3f middle = label->textBox().getCenter();
  ASSERT_NEAR(middle[0], 30.5F, 0.1F);
  EXPECT_EQ(label->place()[0], std::trunc(-middle[0]));
  EXPECT_NEAR(label->place()[1], -middle[1], 1e-3);
}

TEST_F(DialogLabel, AnEmptyTextHasAPlaceToo) {
  for (const int alignment : {NkPanelix::LEFT, NkPanelix::CENTER, NkPanelix::RIGHT}) {
    const Ref<OpenedLabel> label(new OpenedLabel);
    label->labelAlignment = alignment;
    label->build(100, 30);
    const NbBox3f box = label->textBox();
    EXPECT_EQ(label->place()[0], alignment == NkPanelix::LEFT ? -47 : alignment == NkPanelix::CENTER ? 0 : 47);
    EXPECT_NEAR(label->place()[1], -(box.getMin()[1] + box.getMax()[1]) / 2, 1e-3);
  }
}

TEST_F(DialogLabel, BreaksLinesAtItsWidth) {
  const Ref<OpenedLabel> label(new OpenedLabel("one\\ntwo"));
  label->build(300, 60);
  ASSERT_EQ(label->text()->string.getNum(), 2);
  EXPECT_EQ(label->text()->string[1], "two");
  const Ref<OpenedLabel> narrow(new OpenedLabel("a text that is wider than its label is"));
  narrow->build(60, 60);
  EXPECT_GT(narrow->text()->string.getNum(), 2);
  EXPECT_LT(narrow->textBox().getSize()[0], 80);
  // What comes behind a line feed comes behind all pieces.
  const int pieces = narrow->text()->string.getNum();
  const Ref<OpenedLabel> both(new OpenedLabel("a text that is wider than its label is\\nnext"));
  both->build(60, 60);
  ASSERT_EQ(both->text()->string.getNum(), pieces + 1);
  EXPECT_EQ(both->text()->string[pieces], "next");
}

TEST_F(DialogLabel, ALineMayBeAsWideAsItsLabelWithinTheFrame) {
  const Ref<OpenedLabel> label(new OpenedLabel("Some text"));
  label->build(300, 30);
  const int widest = static_cast<int>(std::ceil(label->textBox().getSize()[0]));
  for (const int missing : {0, 1}) {
    const Ref<OpenedLabel> other(new OpenedLabel("Some text"));
    other->build(widest + 6 - missing, 30);
    EXPECT_EQ(other->text()->string.getNum(), 1 + missing);
  }
}

TEST_F(DialogLabel, ATextOverAnOlderOneMerges) {
  const Ref<OpenedLabel> label(new OpenedLabel("old"));
  label->build(300, 30);
  label->label = "new";
  ASSERT_EQ(label->text()->string.getNum(), 1);
  // The first character of the old text stands on both sides.
  EXPECT_EQ(label->text()->string[0], "onewold");
}

TEST_F(DialogLabel, WithoutAFormAChangeIsJustThat) {
  const Ref<OpenedLabel> label(new OpenedLabel("old"));
  label->label = "new";
  label->change3DLabel();
  label->change3DLabelAlignment();
  EXPECT_FALSE(label->isBuilt3D());
}
