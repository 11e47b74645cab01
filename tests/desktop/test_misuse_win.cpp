#include <climits>

#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkRowDialog.h"
#include "tests/desktop/Control_win.h"
#include "tests/desktop/DesktopTest_win.h"

// Windows of dialogs that make little sense: they stand somehow, answer and go.

namespace {

class Misuse : public DesktopTest {
protected:
  static void expectStands(NkTopLevelDialog* dialog, NkDialogComponent* component) {
    EXPECT_TRUE(IsWindow(dialog->getBaseWidget()));
    EXPECT_TRUE(IsWindow(dialog->getWidget()));
    // Where there is no room at all, nothing is placed.
    const HWND frame = component->getWidget();
    if (frame || sizeOf(dialog->getWidget()) != NbVec2i32(0, 0)) {
      EXPECT_EQ(GetAncestor(frame, GA_ROOT), dialog->getBaseWidget());
    }
  }
};

} // namespace

TEST_F(Misuse, SizesMayBeNegativeAndHuge) {
  const std::string component = "DialogLabel { auditorID \"label\" }";
  for (const int value : {-1, -1000, INT_MIN, INT_MIN + 3, 100000, INT_MAX - 3, INT_MAX}) {
    const std::string v = std::to_string(value);
    const std::string texts[] = {
        "TopLevelDialog { width " + v + " height " + v + " " + component + " }",
        "TopLevelDialog { minWidth " + v + " minHeight " + v + " " + component + " }",
        "TopLevelDialog { maxWidth " + v + " maxHeight " + v + " " + component + " }",
        "TopLevelDialog { resizable FALSE width " + v + " maxHeight " + v + " " + component + " }",
        "TopLevelDialog { margin " + v + " rowSpacing " + v + " " + component + " DialogSeparator { } }",
        "TopLevelDialog { position " + v + " " + v + " " + component + " }",
        "TopLevelDialog { width 300 height 200 RowDialog { width " + v + " height " + v + " " + component + " } }",
        "TopLevelDialog { width 300 height 200 RowDialog { margin " + v + " rowSpacing " + v + " " + component +
            " DialogSeparator { minWidth " + v + " } } }",
        "TopLevelDialog { ColumnDialog { columnSpacing " + v + " maxWidth " + v + " vScrollVisibility ALWAYS " +
            component + " DialogLabel { width " + v + " height " + v + " fixedWidth TRUE } } }",
    };
    for (const std::string& text : texts) {
      SCOPED_TRACE(text);
      auto* dialog = read<NkTopLevelDialog>(text);
      dialog->buildDialog(nullptr, 0);
      dialog->show();
      auto* label = find<NkDialogLabel>(dialog, "label");
      expectStands(dialog, label);
      resize(dialog->getBaseWidget(), 300, 200);
      dialog->addChild(new NkDialogLabel);
      expectStands(dialog, label);
      release();
    }
  }
}

TEST_F(Misuse, LimitsMayContradictEachOther) {
  auto* dialog = open("TopLevelDialog { position 50 50 minWidth 400 maxWidth 200 minHeight 300 maxHeight 100"
                      " DialogComponent { auditorID \"c\" minWidth 90 maxWidth 40 minHeight 60 maxHeight 50 } }");
  auto* component = find<NkDialogComponent>(dialog, "c");
  // The system lets no window be smaller than its min.
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), NbVec2i32(400, 300));
  // The width that the component is offered is above both limits, its share of the height below both.
  EXPECT_EQ(sizeOf(component->getWidget()), NbVec2i32(40, 60));
  EXPECT_EQ(component->minWidth.getValue(), 90);
  EXPECT_EQ(component->maxHeight.getValue(), 50);
}

TEST_F(Misuse, MarginsMayBeLargerThanTheWindow) {
  auto* dialog = open("TopLevelDialog { position 50 50 width 200 height 150 minWidth 100 minHeight 60 margin 400"
                      " RowDialog { auditorID \"row\" margin 300 minWidth 50 minHeight 50"
                      " DialogLabel { auditorID \"label\" } } }");
  auto* row = find<NkRowDialog>(dialog, "row");
  auto* label = find<NkDialogLabel>(dialog, "label");
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), NbVec2i32(200, 150));
  // What is left is less than nothing: each takes its min, where the margins end.
  EXPECT_EQ(rectangleOf(row->getWidget()), rectangle(400, 400, 50, 50));
  EXPECT_EQ(rectangleOf(label->getWidget()), rectangle(300, 300, 25, 25));
  EXPECT_NE(barOf(dialog->getWidget(), SB_VERT), "off");
  resize(dialog->getBaseWidget(), 1000, 900);
  EXPECT_EQ(rectangleOf(label->getWidget()), rectangle(300, 300, 25, 25));
}

TEST_F(Misuse, AThousandGroupsStandInEachOther) {
  constexpr int kDepth = 1000;
  const arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  auto* innermost = new NkRowDialog;
  arbora::Ref<NkDialogGroup> group(innermost);
  auto* control = new Control;
  innermost->addChild(control);
  for (int i = 1; i < kDepth; ++i) {
    const arbora::Ref<NkDialogGroup> outer(i % 2 == 0 ? static_cast<NkDialogGroup*>(new NkRowDialog)
                                                      : new NkColumnDialog);
    outer->addChild(group.get());
    group = outer;
  }
  dialog->addChild(group.get());
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(GetAncestor(control->getControl(), GA_ROOT), dialog->getBaseWidget());
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), control->getControl());
  // A change deep in it goes all the way up and down.
  auto* added = new NkDialogLabel;
  innermost->addChild(added);
  EXPECT_EQ(GetParent(added->getWidget()), innermost->getWidget());
  group->enable = FALSE;
  EXPECT_FALSE(IsWindowEnabled(control->getWidget()));
  innermost->removeChild(added);
  EXPECT_EQ(innermost->getNumChildren(), 1);
  resize(dialog->getBaseWidget(), 400, 300);
  dialog->show();
  desktop::serveAWhile();
  // Changes and the end of nested windows take Wine long while they show.
  dialog->hide();
}
