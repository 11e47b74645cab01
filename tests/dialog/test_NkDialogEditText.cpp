#include "DialogTest.h"
#include "Panelix/NkDialogEditText.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"

using arbora::Ref;

TEST_F(DialogTest, EditTextsKeepEscapesAndLineEndsAsTheyAreGiven) {
  const std::string text = "one\\ntwo\\tthree\r\nfour\nfive";
  const Ref<NkDialogEditText> made(new NkDialogEditText);
  made->editText = text.c_str();
  for (const std::string& file : {writeText(made.get()), writeBinary(made.get())}) {
    const Ref<NkDialogEditText> back = readOne<NkDialogEditText>(file);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->editText.getValue().toUtf8(), text);
  }
}

TEST_F(DialogTest, BuiltInPressedPartsOfEditTextsAreHalfAsDeep) {
  const auto skin = read(NkDialogEditText::DialogEditText);
  ASSERT_TRUE(skin);
  ASSERT_EQ(skin->getNumChildren(), 9);
  for (int i = 0; i < skin->getNumChildren(); ++i) {
    const std::string name = skin->getChild(i)->getName().getString();
    const bool isFlat = name.find("Pressed") != name.npos || name.find("Caret") != name.npos;
    NkGetBoundingBoxAction action;
    action.apply(skin->getChild(i));
    EXPECT_FLOAT_EQ(action.getBoundingBox().getMin()[2], 0) << name;
    EXPECT_FLOAT_EQ(action.getBoundingBox().getMax()[2], isFlat ? 0.5F : 1.0F) << name;
  }
}
