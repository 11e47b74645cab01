#include "DialogTest.h"
#include "Panelix/NkDialogSeparator.h"
#include "arbora/scene/NkMaterial.h"

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
