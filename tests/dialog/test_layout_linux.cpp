#include "FormsTest.h"
#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkRowDialog.h"
#include "arbora/win/NkWin.h"

// The 2D form where no window can be made: sizes and places are what they would be.

using arbora::Ref;

namespace {

class WindowlessLayout : public FormsTest {
protected:
  WindowlessLayout() {
    NkDBImpl::m_isVerra = false;
    NkWin::setErrorDialogHook(note, &errors);
  }
  ~WindowlessLayout() override { NkWin::setErrorDialogHook(nullptr, nullptr); }

  /// What the user was told.
  std::string errors;

private:
  static void note(void* errors, HWND, const char* title, const char* line1, const char*) {
    *static_cast<std::string*>(errors) += std::string(title) + ": " + line1 + "\n";
  }
};

Block* high(int height) { return new Block({{100, height}, {1, 1}, {1000, 1000}}); }

void build(NkPanelix& component, int width, int height, int is2D) {
  NbVec2i32 size(width, height);
  NbVec2i32 corner(0, 0);
  component.buildWidget(nullptr, size, corner, is2D);
}

} // namespace

TEST_F(WindowlessLayout, EachBuildTriesAgainToMakeTheWindow) {
  const Ref<Block> block(new Block);
  const std::string failure =
      "NkDialogComponent Error: RegisterClass failed\nNkDialogComponent Error: CreateWindow failed\n";
  block->build(1);
  EXPECT_EQ(errors, failure);
  block->build(1, {50, 0});
  EXPECT_EQ(errors, failure + failure);
  EXPECT_EQ(block->getWidget(), nullptr);
  EXPECT_EQ(block->width.getValue(), 50);

  errors.clear();
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(errors, "NkTopLevelDialog Error: Register Base Class failed\n"
                    "NkTopLevelDialog Error: Create Base Window failed\n"
                    "NkTopLevelDialog Error: RegisterClass failed\n"
                    "NkTopLevelDialog Error: Create TopLevel Window failed\n");
}

TEST_F(WindowlessLayout, EdgesMoveTheFirstChild) {
  const Ref<NkRowDialog> row(new NkRowDialog);
  auto* first = high(30);
  auto* second = high(30);
  row->addChild(first);
  row->addChild(second);
  row->margin = 7;
  row->rowSpacing = 4;
  build(*row, 100, 200, 1);
  EXPECT_EQ(first->place, NbVec2i32(7, 7));
  EXPECT_EQ(first->offered, NbVec2i32(86, 91));
  EXPECT_EQ(second->place, NbVec2i32(7, 102));
  row->edgeStyle = NkDialogComponent::SHADOW_IN;
  build(*row, 100, 200, 1);
  EXPECT_EQ(first->place, NbVec2i32(9, 9));
  EXPECT_EQ(first->offered, NbVec2i32(80, 88));
  row->edgeStyle = NkDialogComponent::SHADOW_OUT;
  build(*row, 100, 200, 1);
  EXPECT_EQ(first->place, NbVec2i32(7, 7));
  EXPECT_EQ(first->offered, NbVec2i32(80, 88));
  EXPECT_FALSE(row->isBuilt3D());
  EXPECT_FALSE(first->isBuilt3D());
}

TEST_F(WindowlessLayout, SpacingTakesEffectAtOnce) {
  const Ref<NkRowDialog> row(new NkRowDialog);
  auto* second = high(30);
  row->addChild(high(30));
  row->addChild(second);
  build(*row, 100, 100, 1);
  row->rowSpacing = 20;
  EXPECT_EQ(second->place, NbVec2i32(0, 60));
  EXPECT_EQ(second->height.getValue(), 40);
  row->destroyWidget();
  row->rowSpacing = 0;
  EXPECT_EQ(second->height.getValue(), 40);

  const Ref<NkColumnDialog> column(new NkColumnDialog);
  auto* right = high(30);
  column->addChild(high(30));
  column->addChild(right);
  build(*column, 300, 100, 1);
  column->columnSpacing = 20;
  EXPECT_EQ(right->place, NbVec2i32(160, 0));
}

TEST_F(WindowlessLayout, OfTwoFormsTheLastPassHolds) {
  const Ref<NkRowDialog> row(new NkRowDialog);
  auto* child = high(30);
  row->addChild(child);
  row->edgeStyle = NkDialogComponent::SHADOW_IN;
  build(*row, 100, 100, 1);
  EXPECT_EQ(child->place, NbVec2i32(2, 2));
  build(*row, 200, 150, 0);
  EXPECT_EQ(row->width.getValue(), 200);
  EXPECT_EQ(child->place, NbVec2i32(3, 3));
  EXPECT_EQ(child->size(), NbVec2i32(194, 144));
  build(*row, 120, 0, 1);
  EXPECT_EQ(row->width.getValue(), 120);
  EXPECT_EQ(row->height.getValue(), 150);
  EXPECT_EQ(child->size(), NbVec2i32(114, 144));
  // The sizes are nobody's but the layout's.
  const std::string text = writeText(row.get());
  EXPECT_EQ(text.find("idth"), std::string::npos);
  EXPECT_EQ(text.find("eight"), std::string::npos);
}

TEST_F(WindowlessLayout, InAVerraProcessTheChildrenOfAWindowAreBuiltIn3D) {
  const Ref<NkRowDialog> row(new NkRowDialog);
  auto* child = high(30);
  row->addChild(child);
  NkDBImpl::m_isVerra = true;
  build(*row, 100, 100, 1);
  EXPECT_TRUE(child->isBuilt3D());
}

TEST_F(WindowlessLayout, ADialogRecordsNoStateWhenItsFirstFormIsTheWindow) {
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->width = 300;
  dialog->position = NbVec2i32(30, 40);
  dialog->addChild(high(30));
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(stateOf(*dialog).size, NbVec2i32(0, 0));
  EXPECT_EQ(dialog->width.getValue(), 300);
  EXPECT_TRUE(dialog->width.isDefault());
  EXPECT_EQ(dialog->position.getValue(), NbVec2i32(30, 40));
  EXPECT_EQ(dialog->getWidget(), nullptr);
  dialog->show();
  dialog->hide();
  EXPECT_EQ(dialog->destroyDialog(), 0);
}

TEST_F(WindowlessLayout, OfTheFormsOfADialogTheFirstDecidesOnItsState) {
  for (const int is2DFirst : {1, 0}) {
    const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
    dialog->width = 300;
    dialog->addChild(high(30));
    build(*dialog, 0, 0, is2DFirst);
    build(*dialog, 0, 0, !is2DFirst);
    EXPECT_EQ(stateOf(*dialog).size, NbVec2i32(is2DFirst ? 0 : 300, 0));
  }
}

TEST_F(WindowlessLayout, ChangesOfTheChildrenWaitForTheBuildOfTheDialog) {
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  build(*dialog, 0, 0, 1);
  auto* early = high(30);
  dialog->addChild(early);
  EXPECT_EQ(early->builds, 0);
  dialog->buildDialog(nullptr, 0);
  auto* late = high(30);
  dialog->addChild(late);
  EXPECT_GT(late->builds, 0);

  /// Gets a sibling inside its first build.
  class Sociable : public Block {
  public:
    void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override {
      Block::buildWidget(parent, size, position, is2D);
      if (builds == 1) static_cast<NkTopLevelDialog*>(getParent())->addChild(high(30));
    }
  };
  const Ref<NkTopLevelDialog> other(new NkTopLevelDialog);
  auto* sociable = new Sociable;
  other->addChild(sociable);
  other->buildDialog(nullptr, 0);
  EXPECT_EQ(other->getNumChildren(), 2);
  EXPECT_EQ(sociable->builds, 1);
}

TEST_F(WindowlessLayout, ThePlacesOfADialogAreConnectedWithoutA3DForm) {
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->buildDialog(nullptr, 0);
  dialog->independentMinimizedPosition = false;
  dialog->position3D = NbVec3f(1, 2, 3);
  EXPECT_EQ(dialog->minimized3DPosition.getValue(), NbVec3f(1, 2, 3));
  EXPECT_FALSE(dialog->position3D.isConnected());
  dialog->independentMinimizedPosition = true;
  EXPECT_FALSE(dialog->minimized3DPosition.isConnected());
  dialog->minimized = true;
  dialog->independentMinimizedPosition = false;
  dialog->minimized3DPosition = NbVec3f(4, 5, 6);
  EXPECT_EQ(dialog->position3D.getValue(), NbVec3f(4, 5, 6));
  EXPECT_FALSE(dialog->minimized3DPosition.isConnected());
  EXPECT_FALSE(dialog->isBuilt3D());
}

TEST_F(WindowlessLayout, ADialogIsNoLargerThanItsMax) {
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->addChild(high(30));
  dialog->minWidth = dialog->minHeight = 400;
  dialog->maxWidth = dialog->maxHeight = 250;
  dialog->width = 300;
  // Offered sizes are raised to the least one; then the largest one holds.
  build(*dialog, 300, 300, 1);
  EXPECT_EQ(dialog->width.getValue(), 250);
  EXPECT_EQ(dialog->height.getValue(), 250);
}

TEST_F(WindowlessLayout, WithoutAWindowNoBarShows) {
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  auto* child = high(30);
  child->minHeight = 500;
  dialog->addChild(child);
  dialog->maxHeight = 100;
  dialog->buildDialog(nullptr, 0);
  dialog->updateDialogBuild(1);
  EXPECT_EQ(child->offered[0], child->width.getValue());
  EXPECT_EQ(child->height.getValue(), 500);
  EXPECT_EQ(dialog->width.getValue() - 2 * GetSystemMetrics(SM_CXFRAME), child->width.getValue());
}
