#include "DialogTest.h"
#include "Panelix/NkDialogPushButton.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkSearchAction.h"

namespace {

/// z of what would follow the last node of a group.
float endOf(NkNode* group) {
  NkSearchAction search;
  search.setInterest(NkSearchAction::LAST);
  search.setType(NkNode::getClassTypeId(), true);
  search.apply(group);
  NkGetMatrixAction matrix;
  matrix.apply(search.getPath());
  NbVec3f end;
  matrix.getMatrix().multVecMatrix(NbVec3f(0, 0, 0), end);
  return end[2];
}

float frontOf(NkNode* group) {
  NkGetBoundingBoxAction box;
  box.apply(group);
  return box.getBoundingBox().getMax()[2];
}

} // namespace

TEST_F(DialogTest, PressingTheBuiltInButtonSinksItsFaceAndCaptionByOne) {
  const auto skin = read(NkDialogPushButton::DialogPushButton);
  ASSERT_TRUE(skin);
  ASSERT_EQ(skin->getNumChildren(), 2);
  NkNode* pressed = skin->getChild(0);
  NkNode* released = skin->getChild(1);
  EXPECT_EQ(pressed->getName(), NbName("DialogPushButtonPressed"));
  EXPECT_EQ(released->getName(), NbName("DialogPushButtonReleased"));
  EXPECT_FLOAT_EQ(endOf(pressed), 1);
  EXPECT_FLOAT_EQ(endOf(released), 2);
  EXPECT_FLOAT_EQ(frontOf(pressed), 1);
  EXPECT_FLOAT_EQ(frontOf(released), 1.5F);
}
