#include "Panelix/NkMessageDialog.h"

#include "ClassTables.h"
#include "DialogTest.h"

using arbora::Ref;

class MessageDialog : public DialogTest {};

TEST_F(MessageDialog, HasItsDefaultsAndItsFieldsInOrder) {
  const Ref<NkMessageDialog> dialog(new NkMessageDialog);
  EXPECT_EQ(dialog->title.getValue(), "");
  EXPECT_EQ(dialog->type.getValue(), NkMessageDialog::MD_MESSAGE);
  EXPECT_EQ(ownFields(dialog.get(), *NkPanelix::getFieldDataPtr()), "title type ");
  EXPECT_EQ(ownParts(dialog.get(), NkPanelix::getClassNodekitCatalog()), "");
}

TEST_F(MessageDialog, ReadsItsTypes) {
  const char* const names[] = {"MD_ERROR", "MD_INFORMATION", "MD_MESSAGE", "MD_QUESTION", "MD_WARNING", "MD_WORKING"};
  int value = 0;
  for (const char* name : names) {
    const auto dialog =
        readOne<NkMessageDialog>(std::string("MessageDialog { title \"t\" label \"l\" type ") + name + " }");
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->type.getValue(), value++) << name;
    EXPECT_EQ(dialog->title.getValue(), "t");
    EXPECT_EQ(dialog->label.getValue(), "l");
  }
}
