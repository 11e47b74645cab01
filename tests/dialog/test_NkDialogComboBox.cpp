#include "DialogTest.h"
#include "Panelix/NkDialogComboBox.h"
#include "tests/dialog/BevelledButton.h"

TEST_F(DialogTest, BuiltInButtonsOfComboBoxesAreRaisedAndSunkWhenPressed) {
  const auto skin = read(NkDialogComboBox::DialogComboBox);
  ASSERT_TRUE(skin);
  ASSERT_EQ(skin->getNumChildren(), 4);
  EXPECT_EQ(skin->getChild(0)->getName(), NbName("DialogComboBoxFrame"));
  EXPECT_EQ(skin->getChild(1)->getName(), NbName("DialogComboBoxItemFrame"));
  EXPECT_EQ(skin->getChild(2)->getName(), NbName("DialogComboBoxButtonReleased"));
  EXPECT_EQ(skin->getChild(3)->getName(), NbName("DialogComboBoxButtonPressed"));
  const NbColor black(0, 0, 0);
  const NbColor dark(0.2F, 0.2F, 0.2F);
  const NbColor grey(0.5F, 0.5F, 0.5F);
  const NbColor light(0.7F, 0.7F, 0.7F);
  const NbColor white(1, 1, 1);
  expectBevelledButton(skin->getChild(2), {light, dark, white, grey, light});
  expectBevelledButton(skin->getChild(3), {grey, white, dark, light, black});
}
