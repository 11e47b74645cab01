#include "DialogTest.h"
#include "Panelix/NkDialogLabel.h"

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
