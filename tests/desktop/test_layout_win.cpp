#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkDialogSeparator.h"
#include "Panelix/NkRowDialog.h"
#include "tests/desktop/Control_win.h"
#include "tests/desktop/DesktopTest_win.h"

// Where rows and columns put their children's windows, and what groups hand down to them.

namespace {

class LayoutWindows : public DesktopTest {
protected:
  /// A group in a window of the application's, that much larger than its content.
  template <class Group>
  Group* build(const std::string& text, NbVec2i32 size) {
    auto* group = read<Group>(text);
    rebuild(group, size);
    return group;
  }
  void rebuild(NkDialogGroup* group, NbVec2i32 size) {
    if (!m_application) m_application = makeApplicationWindow();
    NbVec2i32 corner(0, 0);
    group->setChildrenLabelSize();
    group->setChildrenComponentSize();
    group->buildWidget(m_application, size, corner, 1);
  }
  static std::string placeOf(NkDialogGroup* group, int child) {
    return rectangleOf(group->getChild(child)->getWidget());
  }
  static int heightOf(NkDialogGroup* group, int child) { return group->getChild(child)->height.getValue(); }
  static int widthOf(NkDialogGroup* group, int child) { return group->getChild(child)->width.getValue(); }

  HWND m_application = nullptr;
};

} // namespace

TEST_F(LayoutWindows, ARowGivesItsWholeWidth) {
  const char* children = " DialogLabel { height 40 fixedHeight TRUE } DialogLabel { height 50 fixedHeight TRUE } }";
  auto* none = build<NkRowDialog>(std::string("RowDialog { margin 5 rowSpacing 7") + children, NbVec2i32(200, 150));
  EXPECT_EQ(placeOf(none, 0), rectangle(5, 5, 190, 40));
  EXPECT_EQ(placeOf(none, 1), rectangle(5, 52, 190, 50));
  EXPECT_EQ(GetParent(none->getChild(0)->getWidget()), none->getWidget());
  auto* in = build<NkRowDialog>(std::string("RowDialog { edgeStyle SHADOW_IN margin 5 rowSpacing 7") + children,
                                NbVec2i32(200, 150));
  EXPECT_EQ(placeOf(in, 0), rectangle(7, 7, 184, 40));
  EXPECT_EQ(placeOf(in, 1), rectangle(7, 54, 184, 50));
  auto* out = build<NkRowDialog>(std::string("RowDialog { edgeStyle SHADOW_OUT margin 5 rowSpacing 7") + children,
                                 NbVec2i32(200, 150));
  EXPECT_EQ(placeOf(out, 0), rectangle(5, 5, 184, 40));
  EXPECT_EQ(placeOf(out, 1), rectangle(5, 52, 184, 50));
}

TEST_F(LayoutWindows, AColumnGivesItsWholeHeight) {
  const char* children = " DialogLabel { width 40 fixedWidth TRUE } DialogLabel { width 50 fixedWidth TRUE } }";
  auto* none =
      build<NkColumnDialog>(std::string("ColumnDialog { margin 5 columnSpacing 7") + children, NbVec2i32(200, 150));
  EXPECT_EQ(placeOf(none, 0), rectangle(5, 5, 40, 140));
  EXPECT_EQ(placeOf(none, 1), rectangle(52, 5, 50, 140));
  auto* in = build<NkColumnDialog>(
      std::string("ColumnDialog { edgeStyle SHADOW_IN margin 5 columnSpacing 7") + children, NbVec2i32(200, 150));
  EXPECT_EQ(placeOf(in, 0), rectangle(7, 7, 40, 134));
  EXPECT_EQ(placeOf(in, 1), rectangle(54, 7, 50, 134));
  auto* out = build<NkColumnDialog>(
      std::string("ColumnDialog { edgeStyle SHADOW_OUT margin 5 columnSpacing 7") + children, NbVec2i32(200, 150));
  EXPECT_EQ(placeOf(out, 0), rectangle(5, 5, 40, 134));
}

TEST_F(LayoutWindows, BarsTakeRoomFromTheChildren) {
  auto* row = build<NkRowDialog>("RowDialog { vScrollVisibility ALWAYS hScrollVisibility ALWAYS DialogLabel { } }",
                                 NbVec2i32(200, 150));
  EXPECT_EQ(placeOf(row, 0), rectangle(0, 0, 184, 134));
}

TEST_F(LayoutWindows, TheChildrenShareToThePixel) {
  auto* row = build<NkRowDialog>("RowDialog { DialogLabel { } DialogLabel { } DialogLabel { } }", NbVec2i32(100, 110));
  EXPECT_EQ(heightOf(row, 0), 37);
  EXPECT_EQ(heightOf(row, 1), 37);
  EXPECT_EQ(heightOf(row, 2), 36);
  EXPECT_EQ(placeOf(row, 2), rectangle(0, 74, 100, 36));
  // The turn goes on where it ended.
  rebuild(row, NbVec2i32(100, 112));
  EXPECT_EQ(heightOf(row, 0), 38);
  EXPECT_EQ(heightOf(row, 1), 37);
  EXPECT_EQ(heightOf(row, 2), 37);
  row->minHeight = 10;
  rebuild(row, NbVec2i32(100, 20));
  EXPECT_EQ(row->height.getValue(), 20);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(heightOf(row, i), 25);
}

TEST_F(LayoutWindows, AChildAtItsLimitLeavesTheRestToTheOthers) {
  auto* row =
      build<NkRowDialog>("RowDialog { DialogLabel { } DialogLabel { maxHeight 27 } DialogLabel { fixedHeight TRUE } }",
                         NbVec2i32(100, 120));
  EXPECT_EQ(heightOf(row, 0), 68);
  EXPECT_EQ(heightOf(row, 1), 27);
  EXPECT_EQ(heightOf(row, 2), 25);
}

TEST_F(LayoutWindows, WhatNobodyTakesStaysFree) {
  auto* column = build<NkColumnDialog>(
      "ColumnDialog { maxWidth 500 DialogLabel { width 30 fixedWidth TRUE } DialogLabel { maxWidth 60 } }",
      NbVec2i32(300, 50));
  EXPECT_EQ(placeOf(column, 0), rectangle(0, 0, 30, 50));
  EXPECT_EQ(placeOf(column, 1), rectangle(30, 0, 60, 50));
}

TEST_F(LayoutWindows, AWidthOfNothingIsNoOffer) {
  auto* row = build<NkRowDialog>("RowDialog { margin 50 DialogLabel { width 70 } }", NbVec2i32(0, 0));
  EXPECT_EQ(widthOf(row, 0), row->width.getValue() - 100);
  row->width = 0;
  row->minWidth = 20;
  rebuild(row, NbVec2i32(100, 0));
  EXPECT_EQ(row->width.getValue(), 100);
  EXPECT_EQ(widthOf(row, 0), 76);
}

TEST_F(LayoutWindows, SeparatorsLieInARowAndStandInAColumn) {
  auto* row = build<NkRowDialog>("RowDialog { DialogLabel { } DialogSeparator { } }", NbVec2i32(120, 100));
  EXPECT_EQ(placeOf(row, 1), rectangle(0, 92, 120, 8));
  auto* column = build<NkColumnDialog>("ColumnDialog { DialogLabel { } DialogSeparator { } }", NbVec2i32(120, 100));
  column->getComponentInitSize();
  rebuild(column, NbVec2i32(120, 100));
  EXPECT_EQ(placeOf(column, 1), rectangle(112, 0, 8, 100));
}

TEST_F(LayoutWindows, SeparatorsOfADialogKnowTheirWay) {
  auto* dialog = open(
      "TopLevelDialog { width 300 height 200 ColumnDialog { auditorID \"column\" DialogLabel { } DialogSeparator { }"
      " RowDialog { auditorID \"row\" DialogSeparator { } DialogLabel { } } } }");
  auto* column = find<NkColumnDialog>(dialog, "column");
  EXPECT_EQ(widthOf(column, 1), 8);
  EXPECT_EQ(heightOf(column, 1), column->height.getValue());
  EXPECT_EQ(heightOf(find<NkRowDialog>(dialog, "row"), 0), 8);
  desktop::takePicture("separators");
}

TEST_F(LayoutWindows, TheSpacingMovesTheWindowsAndLeavesTheGroup) {
  auto* row = build<NkRowDialog>("RowDialog { DialogLabel { } DialogLabel { } }", NbVec2i32(100, 80));
  row->rowSpacing = 10;
  EXPECT_EQ(placeOf(row, 0), rectangle(0, 0, 100, 35));
  EXPECT_EQ(placeOf(row, 1), rectangle(0, 45, 100, 35));
  EXPECT_EQ(rectangleOf(row->getWidget()), rectangle(0, 0, 100, 80));
  auto* column = build<NkColumnDialog>("ColumnDialog { DialogLabel { } DialogLabel { } }", NbVec2i32(100, 80));
  column->columnSpacing = 10;
  EXPECT_EQ(placeOf(column, 1), rectangle(55, 0, 45, 80));
}

TEST_F(LayoutWindows, TheEdgeOfAGroupMovesItsChildrenWithTheNextLayout) {
  auto* row = build<NkRowDialog>("RowDialog { DialogLabel { } }", NbVec2i32(100, 80));
  row->edgeStyle = NkDialogComponent::SHADOW_IN;
  EXPECT_EQ(extendedStyleOf(row->getWidget()), 0x30000U);
  EXPECT_EQ(placeOf(row, 0), rectangle(0, 0, 100, 80));
  rebuild(row, NbVec2i32(100, 80));
  EXPECT_EQ(placeOf(row, 0), rectangle(2, 2, 94, 74));
}

TEST_F(LayoutWindows, ARowAlignsItsLabels) {
  auto* row = read<NkRowDialog>("RowDialog { }");
  const char* texts[] = {"short", "a label that is long", "unseen and even longer than that"};
  for (const char* text : texts) {
    auto* control = new Control;
    control->label = text;
    row->addChild(control);
  }
  row->getChild(2)->labelVisibility = FALSE;
  rebuild(row, NbVec2i32(400, 120));
  const int labelWidth = NkPanelix::getLabelPixelSize(texts[1], nullptr)[0];
  for (int i = 0; i < 2; ++i) {
    auto* control = static_cast<Control*>(row->getChild(i));
    EXPECT_EQ(rectangleOf(control->getControl()),
              rectangle(3 + labelWidth + 2, 3, 400 - 6 - labelWidth - 2, control->height.getValue() - 6));
  }
  EXPECT_EQ(rectangleOf(static_cast<Control*>(row->getChild(2))->getControl()), rectangle(3, 3, 394, 34));
}

TEST_F(LayoutWindows, AColumnAlignsNothing) {
  auto* column = read<NkColumnDialog>("ColumnDialog { }");
  for (const char* text : {"short", "a label that is long"}) {
    auto* control = new Control("control", NbVec2i32(200, 30));
    control->label = text;
    column->addChild(control);
  }
  rebuild(column, NbVec2i32(500, 60));
  for (int i = 0; i < 2; ++i) {
    auto* control = static_cast<Control*>(column->getChild(i));
    NbVec2i32 size, position;
    control->get2DComponentSize(size, position);
    EXPECT_EQ(position[0], 5 + NkPanelix::getLabelPixelSize(control->label.getValue(), nullptr)[0]);
  }
}

TEST_F(LayoutWindows, WhatIsPlacedLastStandsInFront) {
  auto* row = build<NkRowDialog>("RowDialog { DialogLabel { } DialogLabel { } }", NbVec2i32(100, 80));
  SetWindowPos(row->getChild(1)->getWidget(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  rebuild(row, NbVec2i32(100, 80));
  EXPECT_EQ(GetWindow(row->getWidget(), GW_CHILD), row->getChild(1)->getWidget());
}

// Enabling

TEST_F(LayoutWindows, ADisabledGroupDisablesAllBelow) {
  auto* row = read<NkRowDialog>("RowDialog { enable FALSE ColumnDialog { } }");
  auto* column = static_cast<NkColumnDialog*>(row->getChild(0));
  auto* plain = new Control;
  auto* disabled = new Control;
  disabled->enable = FALSE;
  column->addChild(plain);
  column->addChild(disabled);
  rebuild(row, NbVec2i32(300, 100));
  EXPECT_FALSE(IsWindowEnabled(row->getWidget()));
  EXPECT_FALSE(IsWindowEnabled(plain->getWidget()));
  EXPECT_TRUE(plain->enable.getValue());
  row->enable = TRUE;
  EXPECT_TRUE(IsWindowEnabled(row->getWidget()));
  EXPECT_TRUE(IsWindowEnabled(plain->getWidget()));
  EXPECT_FALSE(IsWindowEnabled(disabled->getWidget()));
  column->enable = FALSE;
  EXPECT_FALSE(IsWindowEnabled(plain->getWidget()));
  row->enable = FALSE;
  row->enable = TRUE;
  EXPECT_FALSE(IsWindowEnabled(plain->getWidget()));
  column->enable = TRUE;
  EXPECT_TRUE(IsWindowEnabled(plain->getWidget()));
}

TEST_F(LayoutWindows, OnlyItsFirstBuildHandsTheGroupsEnableDown) {
  auto* row = build<NkRowDialog>("RowDialog { enable FALSE DialogLabel { } }", NbVec2i32(100, 80));
  const HWND label = row->getChild(0)->getWidget();
  ASSERT_FALSE(IsWindowEnabled(label));
  EnableWindow(label, TRUE);
  auto* late = new Control;
  row->addChild(late);
  rebuild(row, NbVec2i32(100, 80));
  EXPECT_TRUE(IsWindowEnabled(label));
  EXPECT_TRUE(IsWindowEnabled(late->getWidget()));
}

// Changes of the children

TEST_F(LayoutWindows, AGroupOnShowTakesAChild) {
  auto* dialog =
      open("TopLevelDialog { width 300 height 300 RowDialog { auditorID \"row\" DialogLabel { } } DialogLabel { } }");
  auto* row = find<NkRowDialog>(dialog, "row");
  auto* control = new Control;
  row->addChild(control);
  EXPECT_TRUE(IsWindowVisible(control->getControl()));
  EXPECT_EQ(GetParent(control->getWidget()), row->getWidget());
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), NbVec2i32(300, 300));
  EXPECT_EQ(heightOf(row, 0) + heightOf(row, 1), row->height.getValue());
  row->removeChild(control);
  EXPECT_EQ(heightOf(row, 0), row->height.getValue());
}

TEST_F(LayoutWindows, AGroupOnShowFollowsEveryChangeOfItsChildren) {
  auto* dialog = open("TopLevelDialog { width 300 height 300 RowDialog { auditorID \"row\" DialogLabel { } } }");
  auto* row = find<NkRowDialog>(dialog, "row");
  auto* first = new Control;
  row->insertChild(first, 0);
  EXPECT_TRUE(IsWindowVisible(first->getControl()));
  EXPECT_EQ(placeOf(row, 1), rectangle(0, heightOf(row, 0), widthOf(row, 1), heightOf(row, 1)));
  const HWND replaced = row->getChild(1)->getWidget();
  auto* second = new Control;
  row->replaceChild(1, second);
  EXPECT_FALSE(IsWindow(replaced));
  EXPECT_TRUE(IsWindowVisible(second->getControl()));
  const int before = row->minHeight.getValue();
  row->removeAllChildren();
  EXPECT_EQ(row->minHeight.getValue(), before - 20);
  EXPECT_EQ(GetWindow(row->getWidget(), GW_CHILD), nullptr);
}

TEST_F(LayoutWindows, AGroupThatKeepsItsSizeDoesSoWhenItsChildrenChange) {
  const auto growthOf = [this](const char* policy) {
    auto* dialog = open(std::string("TopLevelDialog { windowResizedByChildren TRUE RowDialog { auditorID \"row\" ") +
                        policy + " DialogLabel { } } }");
    auto* row = find<NkRowDialog>(dialog, "row");
    const int before = row->minHeight.getValue();
    row->addChild(new Control);
    return row->minHeight.getValue() - before;
  };
  EXPECT_EQ(growthOf("windowResizedByChildren TRUE"), 10);
  EXPECT_EQ(growthOf("windowResizedByChildren FALSE"), 0);
}
