#include "DialogTest.h"
#include "Panelix/NkDialogRadioButtons.h"

using arbora::Ref;

TEST_F(DialogTest, RadioButtonsBearTheirLabelOnTheLeftAndWriteIt) {
  const Ref<NkDialogRadioButtons> made(new NkDialogRadioButtons);
  EXPECT_EQ(made->labelAlignment.getValue(), NkPanelix::LEFT);
  EXPECT_NE(writeText(made.get()).find("labelAlignment LEFT"), std::string::npos);

  const Ref<NkDialogRadioButtons> read = readOne<NkDialogRadioButtons>("DialogRadioButtons { items [ \"a\", \"b\" ] }");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->labelAlignment.getValue(), NkPanelix::LEFT);
}

TEST_F(DialogTest, RadioButtonsAreAChoice) {
  const Ref<NkDialogRadioButtons> buttons(new NkDialogRadioButtons);
  buttons->addItem("a");
  buttons->insertItem(0, "b");
  ASSERT_EQ(buttons->items.getNum(), 2);
  EXPECT_EQ(buttons->items[0], "b");
  EXPECT_EQ(buttons->items[1], "a");
}
