#include "Panelix/NkTopLevelDialog.h"

#include "BevelledButton.h"
#include "ClassTables.h"
#include "DialogTest.h"
#include "Panelix/NkDialogAuditor.h"
#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkMenuCheckBox.h"
#include "Panelix/NkRowDialog.h"
#include "arbora/base/NkPreferences.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkMaterial.h"
#include "tests/dialog/SceneUser.h"

using arbora::Ref;

class TopLevelDialog : public DialogTest {};

TEST_F(TopLevelDialog, HasItsDefaults) {
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  EXPECT_EQ(dialog->width.getValue(), 0);
  EXPECT_EQ(dialog->height.getValue(), 0);
  EXPECT_EQ(dialog->position.getValue(), NbVec2i32(0, 0));
  EXPECT_EQ(dialog->position3D.getValue(), NbVec3f(0, 0, 0));
  EXPECT_TRUE(dialog->resizable.getValue());
  EXPECT_EQ(dialog->minWidth.getValue(), 0);
  EXPECT_EQ(dialog->minHeight.getValue(), 0);
  EXPECT_EQ(dialog->maxWidth.getValue(), 0);
  EXPECT_EQ(dialog->maxHeight.getValue(), 0);
  EXPECT_EQ(dialog->margin.getValue(), 0);
  EXPECT_EQ(dialog->rowSpacing.getValue(), 0);
  EXPECT_FALSE(dialog->modalFrame.getValue());
  EXPECT_FALSE(dialog->hideChildren.getValue());
  EXPECT_FALSE(dialog->minimized.getValue());
  EXPECT_EQ(dialog->minimized3DPosition.getValue(), NbVec3f(0, 0, 0));
  EXPECT_TRUE(dialog->independentMinimizedPosition.getValue());
  EXPECT_FALSE(dialog->windowResizedByChildren.getValue());
  EXPECT_EQ(dialog->vScrollVisibility.getValue(), NkTopLevelDialog::AUTO);
  EXPECT_EQ(dialog->hScrollVisibility.getValue(), NkTopLevelDialog::AUTO);
}

TEST_F(TopLevelDialog, HasItsFieldsAndPartsInOrder) {
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  EXPECT_EQ(ownFields(dialog.get(), *NkPanelix::getFieldDataPtr()),
            "width height position position3D resizable minWidth minHeight maxWidth maxHeight margin rowSpacing "
            "modalFrame hideChildren minimized minimized3DPosition independentMinimizedPosition "
            "windowResizedByChildren vScrollVisibility hScrollVisibility "
            "frameSep frame labelSep labelProp minSep minSwtch minReleased minPressed ");
  EXPECT_EQ(ownParts(dialog.get(), NkPanelix::getClassNodekitCatalog()), "Separator frameSep < geomSwitch\n"
                                                                         "Group frame < frameSep +\n"
                                                                         "Separator labelSep < geomSwitch\n"
                                                                         "Group labelProp < labelSep +\n"
                                                                         "Separator minSep < geomSwitch\n"
                                                                         "Switch minSwtch < minSep\n"
                                                                         "Group minReleased < minSwtch +\n"
                                                                         "Group minPressed < minSwtch +\n");
}

TEST_F(TopLevelDialog, ReadsItsFields) {
  const auto dialog = readOne<NkTopLevelDialog>(
      "TopLevelDialog { width 320 position 3 -4 position3D 1 2.5 -3 resizable FALSE modalFrame TRUE "
      "vScrollVisibility NEVER hScrollVisibility ALWAYS }");
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->width.getValue(), 320);
  EXPECT_EQ(dialog->position.getValue(), NbVec2i32(3, -4));
  EXPECT_EQ(dialog->position3D.getValue(), NbVec3f(1, 2.5F, -3));
  EXPECT_FALSE(dialog->resizable.getValue());
  EXPECT_TRUE(dialog->modalFrame.getValue());
  EXPECT_EQ(dialog->vScrollVisibility.getValue(), NkTopLevelDialog::NEVER);
  EXPECT_EQ(dialog->hScrollVisibility.getValue(), NkTopLevelDialog::ALWAYS);
}

TEST_F(TopLevelDialog, HoldsComponentsAndAMenuBarOnly) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { MenuBar { } RowDialog { } DialogLabel { } }");
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->getNumChildren(), 3);
  EXPECT_TRUE(dialog->getChild(0)->isOfType(NkMenuBar::getClassTypeId()));
  for (const char* other : {"TopLevelDialog", "MessageDialog", "MenuPopup", "Cube"}) {
    expectMessage(other);
    EXPECT_FALSE(read(std::string("TopLevelDialog { ") + other + " { } }")) << other;
  }
}

namespace {

/// Notes what it hears.
class Listener : public NkDialogAuditor {
public:
  std::string heard;
  void dialogCheckBox(NkDialogCheckBox* box) override { heard += "box " + box->label.getValue().toUtf8() + "; "; }
  void menuCheckBox(NkMenuCheckBox* box) override { heard += "entry " + box->label.getValue().toUtf8() + "; "; }
};

} // namespace

TEST_F(TopLevelDialog, TellsItsAuditorsOfWhatNobodyBelowHeard) {
  const auto dialog = readOne<NkTopLevelDialog>(
      "TopLevelDialog { MenuBar { MenuPopup { MenuCheckBox { label \"m\" auditorID \"m\" } } }"
      "  RowDialog { DialogCheckBox { label \"a\" auditorID \"a\" } }"
      "  DialogCheckBox { label \"b\" auditorID \"b\" } }");
  ASSERT_TRUE(dialog);
  Listener first;
  Listener second;
  dialog->addAuditor(&first);
  dialog->addAuditor(&second);
  dialog->addAuditor(&first);
  static_cast<NkDialogCheckBox*>(dialog->searchForAuditorId("a"))->applyDlgCptAuditor();
  static_cast<NkMenuCheckBox*>(dialog->searchForAuditorId("m"))->applyDlgCptAuditor();
  EXPECT_EQ(first.heard, "box a; entry m; ");
  EXPECT_EQ(second.heard, first.heard);

  Listener inner;
  static_cast<NkRowDialog*>(dialog->getChild(1))->addAuditor(&inner);
  first.heard.clear();
  dialog->applyAuditors();
  EXPECT_EQ(first.heard, "box b; ");
  EXPECT_EQ(inner.heard, "box a; ");
  dialog->removeAuditor(&first);
  first.heard.clear();
  dialog->applyAuditors();
  EXPECT_EQ(first.heard, "");
}

TEST_F(TopLevelDialog, ReportsWhatNoAuditorHeardOnDemand) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { DialogCheckBox { label \"a\" } }");
  ASSERT_TRUE(dialog);
  dialog->applyAuditors();
  NkPreferences::setString("DEBUG_PANELIX_AUDITORS", "1");
  expectMessage("NkDialogAuditor::dialogCheckBox");
  dialog->applyAuditors();
  NkPreferences::removeValue("DEBUG_PANELIX_AUDITORS");
  dialog->applyAuditors();
}

TEST_F(TopLevelDialog, FindsTheFirstComponentOfAnIdentifier) {
  const auto dialog =
      readOne<NkTopLevelDialog>("TopLevelDialog { auditorID \"x\" "
                                "  MenuBar { MenuPopup { MenuCheckBox { auditorID \"entry\" } } }"
                                "  RowDialog { DialogLabel { label \"in the row\" auditorID \"x\" } }"
                                "  DialogLabel { label \"behind\" auditorID \"x\" }"
                                "  DialogCheckBoxLauncher { TopLevelDialog { DialogLabel { auditorID \"far\" } } }"
                                "  DialogPushButtonLauncher { TopLevelDialog { auditorID \"dialog\" } } }");
  ASSERT_TRUE(dialog);
  ASSERT_NE(dialog->searchForAuditorId("x"), nullptr);
  EXPECT_EQ(dialog->searchForAuditorId("x")->label.getValue(), "in the row");
  EXPECT_NE(dialog->searchForAuditorId("entry"), nullptr);
  EXPECT_NE(dialog->searchForAuditorId("far"), nullptr);
  EXPECT_NE(dialog->searchForAuditorId("dialog"), nullptr);
  EXPECT_EQ(dialog->searchForAuditorId("none"), nullptr);
}

// Skin

TEST_F(TopLevelDialog, HasASkinOfThreeParts) {
  const std::string text = NkTopLevelDialog::TopLevelDialog;
  EXPECT_EQ(text.size(), 2471U);
  const Ref<NkSeparator> parts = read(text);
  ASSERT_TRUE(parts);
  ASSERT_EQ(parts->getNumChildren(), 3);
  EXPECT_EQ(parts->getChild(0)->getName(), "TopLevelDialogFrame");
  EXPECT_EQ(parts->getChild(1)->getName(), "TopLevelDialogMinReleased");
  EXPECT_EQ(parts->getChild(2)->getName(), "TopLevelDialogMinPressed");
  auto* frame = static_cast<NkGroup*>(parts->getChild(0));
  EXPECT_EQ(typesOf(frame), "Material Translation Cube Translation ");
  EXPECT_EQ(static_cast<NkMaterial*>(frame->getChild(0))->diffuseColor[0], NbColor(0.7F, 0.7F, 1));
  NkGetBoundingBoxAction box;
  box.apply(frame);
  EXPECT_EQ(box.getBoundingBox(), NbBox3f(-0.5F, -0.5F, 0, 0.5F, 0.5F, 1));
  expectBevelledButton(parts->getChild(1),
                       {{{0.7F, 0.7F, 1}, {0.2F, 0.2F, 1}, {1, 1, 1}, {0.5F, 0.5F, 1}, {0.7F, 0.7F, 1}}});
  expectBevelledButton(parts->getChild(2),
                       {{{0.5F, 0.5F, 1}, {1, 1, 1}, {0.2F, 0.2F, 1}, {0.7F, 0.7F, 1}, {0.7F, 0.7F, 1}}});
}
