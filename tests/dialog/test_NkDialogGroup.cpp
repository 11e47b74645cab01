#include "Panelix/NkDialogGroup.h"

#include "ClassTables.h"
#include "DialogTest.h"
#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkRowDialog.h"
#include "Panelix/NkTopLevelDialog.h"

using arbora::Ref;

class DialogGroups : public DialogTest {};

TEST_F(DialogGroups, HaveTheirDefaults) {
  const Ref<NkDialogGroup> group(new NkDialogGroup);
  EXPECT_TRUE(group->windowResizedByChildren.getValue());
  EXPECT_EQ(group->margin.getValue(), 0);
  EXPECT_EQ(group->vScrollVisibility.getValue(), NkDialogGroup::AUTO);
  EXPECT_EQ(group->hScrollVisibility.getValue(), NkDialogGroup::AUTO);
  EXPECT_EQ(NkDialogGroup::NEVER, 0);
  EXPECT_EQ(NkDialogGroup::ALWAYS, 1);
  EXPECT_EQ(NkDialogGroup::AUTO, 2);
  const Ref<NkRowDialog> row(new NkRowDialog);
  EXPECT_EQ(row->rowSpacing.getValue(), 0);
  const Ref<NkColumnDialog> column(new NkColumnDialog);
  EXPECT_EQ(column->columnSpacing.getValue(), 0);
}

TEST_F(DialogGroups, HaveTheirFieldsInOrderAndNoPartsOfTheirOwn) {
  const Ref<NkDialogGroup> group(new NkDialogGroup);
  EXPECT_EQ(ownFields(group.get(), *NkDialogComponent::getFieldDataPtr()),
            "windowResizedByChildren margin vScrollVisibility hScrollVisibility ");
  EXPECT_EQ(ownParts(group.get(), NkDialogComponent::getClassNodekitCatalog()), "");
  const Ref<NkRowDialog> row(new NkRowDialog);
  EXPECT_EQ(ownFields(row.get(), *NkDialogGroup::getFieldDataPtr()), "rowSpacing ");
  EXPECT_EQ(ownParts(row.get(), NkDialogGroup::getClassNodekitCatalog()), "");
  const Ref<NkColumnDialog> column(new NkColumnDialog);
  EXPECT_EQ(ownFields(column.get(), *NkDialogGroup::getFieldDataPtr()), "columnSpacing ");
  EXPECT_EQ(ownParts(column.get(), NkDialogGroup::getClassNodekitCatalog()), "");
}

TEST_F(DialogGroups, ReadTheirFieldsAndTheInheritedOnes) {
  const auto row =
      readOne<NkRowDialog>("RowDialog { rowSpacing 4 margin 2 vScrollVisibility ALWAYS hScrollVisibility NEVER "
                           "windowResizedByChildren FALSE "
                           "edgeStyle SHADOW_IN width 300 ColumnDialog { columnSpacing 7 DialogLabel { } } }");
  ASSERT_TRUE(row);
  EXPECT_EQ(row->rowSpacing.getValue(), 4);
  EXPECT_EQ(row->margin.getValue(), 2);
  EXPECT_EQ(row->vScrollVisibility.getValue(), NkDialogGroup::ALWAYS);
  EXPECT_EQ(row->hScrollVisibility.getValue(), NkDialogGroup::NEVER);
  EXPECT_FALSE(row->windowResizedByChildren.getValue());
  EXPECT_EQ(row->edgeStyle.getValue(), NkDialogComponent::SHADOW_IN);
  EXPECT_EQ(row->width.getValue(), 300);
  ASSERT_EQ(row->getNumChildren(), 1);
  EXPECT_EQ(static_cast<NkColumnDialog*>(row->getChild(0))->columnSpacing.getValue(), 7);
}

TEST_F(DialogGroups, HoldComponentsOnly) {
  for (const char* other : {"TopLevelDialog", "MenuBar", "MessageDialog", "TopComponent", "Cube"}) {
    expectMessage(other);
    EXPECT_FALSE(read(std::string("RowDialog { ") + other + " { } }")) << other;
  }
}

TEST_F(DialogGroups, LeaveTheirSizesAloneAheadOfTheFirstBuild) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { width 300 RowDialog { width 200 maxHeight 90 } }");
  ASSERT_TRUE(dialog);
  auto* row = static_cast<NkRowDialog*>(dialog->getChild(0));
  row->addChild(new NkDialogComponent);
  row->removeAllChildren();
  EXPECT_EQ(row->width.getValue(), 200);
  EXPECT_EQ(row->maxHeight.getValue(), 90);
  EXPECT_EQ(dialog->width.getValue(), 300);
}

TEST_F(DialogGroups, KnowTheDialogAbove) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { RowDialog { ColumnDialog { DialogLabel { } } } }");
  ASSERT_TRUE(dialog);
  auto* row = static_cast<NkDialogGroup*>(dialog->getChild(0));
  auto* column = static_cast<NkDialogGroup*>(row->getChild(0));
  NkDialogComponent* label = column->getChild(0);
  EXPECT_EQ(label->getFirstTopParent(0, 0), dialog.get());
  row->setCanBeTraversed(0);
  EXPECT_EQ(label->getFirstTopParent(0, 0), nullptr);
  EXPECT_EQ(label->getFirstTopParent(0, 1), column);
  EXPECT_EQ(label->getFirstTopParent(1, 0), dialog.get());
}
