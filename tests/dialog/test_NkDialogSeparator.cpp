#include "Panelix/NkDialogSeparator.h"

#include "FormsTest.h"
#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkRowDialog.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSwitch.h"

using arbora::Ref;

TEST_F(DialogTest, BuiltInSeparatorsAreGreyWhereTheyLieAndGreenWhereTheyStand) {
  const auto skin = read(NkDialogSeparator::DialogSeparator);
  ASSERT_TRUE(skin);
  ASSERT_EQ(skin->getNumChildren(), 2);
  const auto colour = [&](int part) {
    return static_cast<NkMaterial*>(static_cast<NkGroup*>(skin->getChild(part))->getChild(0))->diffuseColor[0];
  };
  EXPECT_EQ(skin->getChild(0)->getName(), NbName("DialogSeparatorHorizontal"));
  EXPECT_EQ(colour(0), NbColor(0.5F, 0.5F, 0.5F));
  EXPECT_EQ(skin->getChild(1)->getName(), NbName("DialogSeparatorVertical"));
  EXPECT_EQ(colour(1), NbColor(0, 1, 0));
}

// Forms

namespace {

/// Opens a separator's 3D form.
class OpenedSeparator : public NkDialogSeparator {
public:
  NkGroup* content() { return static_cast<NkGroup*>(getAnyPart("frameSep", false)); }
  NkSwitch* orientation() { return static_cast<NkSwitch*>(getAnyPart("frameSwitch", false)); }
  NbVec3f scale() { return static_cast<NkScale*>(content()->getChild(0))->scaleFactor.getValue(); }
};

class DialogSeparator : public FormsTest {};

void build(NkDialogComponent& component, int width, int height) {
  NbVec2i32 size(width, height);
  NbVec2i32 corner(0, 0);
  component.buildWidget(nullptr, size, corner, 0);
}

} // namespace

TEST_F(DialogSeparator, ByItselfHasNoLength) {
  const Ref<OpenedSeparator> line(new OpenedSeparator);
  build(*line, 0, 0);
  EXPECT_EQ(line->width.getValue(), 0);
  EXPECT_EQ(line->height.getValue(), 8);
  line->width = 50;
  build(*line, 0, 0);
  EXPECT_EQ(line->width.getValue(), 50);
  build(*line, 70, 70);
  EXPECT_EQ(line->width.getValue(), 70);
  EXPECT_EQ(line->height.getValue(), 8);
}

TEST_F(DialogSeparator, IsALineWithinItsFrame) {
  const Ref<OpenedSeparator> line(new OpenedSeparator);
  build(*line, 106, 8);
  EXPECT_EQ(line->content()->getNumChildren(), 2);
  EXPECT_EQ(line->scale(), NbVec3f(100, 2, 1));
  EXPECT_EQ(line->orientation()->getNumChildren(), 2);
  EXPECT_EQ(line->orientation()->getChild(0)->getName(), "DialogSeparatorVertical");
  EXPECT_EQ(line->orientation()->getChild(1)->getName(), "DialogSeparatorHorizontal");
  EXPECT_EQ(line->orientation()->whichChild.getValue(), 1);
  // Its direction shows with the next build.
  line->setOrientationHorz(0);
  EXPECT_EQ(line->orientation()->whichChild.getValue(), 1);
  build(*line, 106, 8);
  EXPECT_EQ(line->orientation()->whichChild.getValue(), 0);
  EXPECT_EQ(line->content()->getNumChildren(), 2);
}

TEST_F(DialogSeparator, TurnsWithItsContainer) {
  auto* line = new OpenedSeparator;
  auto* column = new NkColumnDialog;
  column->addChild(new NkDialogLabel);
  column->addChild(line);
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->addChild(column);
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(line->orientation()->whichChild.getValue(), 0);
  EXPECT_EQ(line->width.getValue(), 8);
  const Ref<NkDialogSeparator> keep(line);
  column->removeChild(line);
  dialog->addChild(line);
  // The dialog itself doesn't turn it, only a row does.
  EXPECT_EQ(line->width.getValue(), 8);
  dialog->removeChild(line);
  auto* row = new NkRowDialog;
  row->addChild(line);
  dialog->addChild(row);
  EXPECT_EQ(line->orientation()->whichChild.getValue(), 1);
}
