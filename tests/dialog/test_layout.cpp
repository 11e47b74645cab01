#include <climits>
#include <deque>
#include <random>
#include <utility>
#include <vector>

#include "FormsTest.h"
#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkRowDialog.h"

// Sizes and places, in the form that needs no window.

using arbora::Ref;
using panelix::kUnbounded;
using panelix::SizeTriple;

namespace {

/// The triple that a component asks for.
template <class Component>
SizeTriple sizesOf(Component& component) {
  SizeTriple triple;
  component.getSize(triple.size, triple.min, triple.max);
  return triple;
}

void expectSizes(const SizeTriple& sizes, NbVec2i32 size, NbVec2i32 min, NbVec2i32 max) {
  EXPECT_EQ(sizes.size, size);
  EXPECT_EQ(sizes.min, min);
  EXPECT_EQ(sizes.max, max);
}

/// A block of that height, free to grow and to shrink.
Block* high(int height, int min = 1, int max = 1000) { return new Block({{100, height}, {1, min}, {1000, max}}); }

/// A block of that width.
Block* wide(int width, int min = 1, int max = 1000) { return new Block({{width, 30}, {min, 1}, {max, 1000}}); }

template <class Stack>
Ref<Stack> stackOf(std::initializer_list<NkDialogComponent*> children) {
  const Ref<Stack> stack(new Stack);
  for (NkDialogComponent* child : children) stack->addChild(child);
  return stack;
}

Ref<NkRowDialog> rowOf(std::initializer_list<NkDialogComponent*> children) { return stackOf<NkRowDialog>(children); }

Ref<NkColumnDialog> columnOf(std::initializer_list<NkDialogComponent*> children) {
  return stackOf<NkColumnDialog>(children);
}

/// Builds the 3D form with that size.
void build(NkPanelix& component, int width, int height) {
  NbVec2i32 size(width, height);
  NbVec2i32 corner(0, 0);
  component.buildWidget(nullptr, size, corner, 0);
}

template <class Container>
Block& blockOf(const Container& container, int index) {
  return static_cast<Block&>(*container.getChild(index));
}

template <class Container>
std::string heightsOf(const Container& container) {
  std::string text;
  for (int i = 0; i < container.getNumChildren(); ++i)
    text += std::to_string(blockOf(container, i).height.getValue()) + " ";
  return text;
}

std::string widthsOf(const NkDialogGroup& group) {
  std::string text;
  for (int i = 0; i < group.getNumChildren(); ++i) text += std::to_string(blockOf(group, i).width.getValue()) + " ";
  return text;
}

using SizeFields = std::vector<NkSFInt32*>;

/// The six, in the order in which they are written.
template <class Component>
SizeFields sizeFieldsOf(Component& component) {
  return {&component.width,     &component.height,   &component.minWidth,
          &component.minHeight, &component.maxWidth, &component.maxHeight};
}

/// Notes the order in which the size fields are written, as their indices.
class SizeWrites {
public:
  explicit SizeWrites(const SizeFields& fields) {
    for (NkSFInt32* field : fields)
      m_sensors.emplace_back(*field, [this, i = m_sensors.size()] { m_order += std::to_string(i) + " "; });
  }
  /// Since the last call.
  std::string order() { return std::exchange(m_order, {}); }

private:
  std::string m_order;
  std::deque<OnWrite> m_sensors;
};

/// The application writes one field of a built component after the other.
template <class Component>
void expectStateToFollow(Component& component) {
  SizeTriple expected = stateOf(component);
  int value = 500;
  const SizeFields fields = sizeFieldsOf(component);
  for (std::size_t i = 0; i < fields.size(); ++i) {
    *fields[i] = ++value;
    if (i < 2) {
      expected.size[static_cast<int>(i)] = value;
    } else {
      // The limits follow together, those that a layout has found with them.
      expected.min = NbVec2i32(component.minWidth.getValue(), component.minHeight.getValue());
      expected.max = NbVec2i32(component.maxWidth.getValue(), component.maxHeight.getValue());
    }
    SCOPED_TRACE(i);
    expectSizes(stateOf(component), expected.size, expected.min, expected.max);
  }
}

/// A component whose sizes are all set, whose `block` is asked as soon as one isn't.
template <class Component>
void expectToAskForEachSize(Component& component, const Block& block) {
  const SizeFields fields = sizeFieldsOf(component);
  for (NkSFInt32* field : fields) *field = 50;
  int asked = block.asked;
  sizesOf(component);
  EXPECT_EQ(block.asked, asked);
  for (NkSFInt32* field : fields) {
    *field = 0;
    sizesOf(component);
    EXPECT_EQ(block.asked, ++asked);
    *field = 50;
  }
}

} // namespace

class Layout : public FormsTest {};

// Sizes of a component

TEST_F(Layout, WhatIsSetIsNotAskedFor) {
  const Ref<Block> block(new Block);
  block->width = 120;
  block->height = 40;
  block->minWidth = block->minHeight = 5;
  block->maxWidth = block->maxHeight = 500;
  expectSizes(sizesOf(*block), {120, 40}, {5, 5}, {500, 500});
  EXPECT_EQ(block->asked, 0);
  block->maxHeight = 0;
  expectSizes(sizesOf(*block), {120, 40}, {5, 5}, {500, 1000});
}

TEST_F(Layout, EachSizeThatIsNotSetIsAskedFor) {
  const Ref<Block> block(new Block);
  expectToAskForEachSize(*block, *block);
  auto* child = new Block;
  const Ref<NkRowDialog> row = rowOf({child});
  expectToAskForEachSize(*row, *child);
}

TEST_F(Layout, AComponentHasStandardSizes) {
  const Ref<NkDialogComponent> component(new NkDialogComponent);
  expectSizes(sizesOf(*component), {200, 28}, {25, 25}, {kUnbounded, kUnbounded});
}

TEST_F(Layout, OfLimitsOutOfOrderMaxWinsForTheOwnSizeAndMinForAnOfferedOne) {
  const Ref<Block> block(new Block);
  block->minWidth = 300;
  block->maxWidth = 200;
  block->width = 250;
  expectSizes(sizesOf(*block), {200, 30}, {300, 10}, {200, 1000});
  block->build(0);
  EXPECT_EQ(block->width.getValue(), 200);
  EXPECT_EQ(block->min()[0], 300);
  EXPECT_EQ(block->max()[0], 200);
  block->build(0, {250, 0});
  EXPECT_EQ(block->width.getValue(), 300);
}

TEST_F(Layout, AFixedSizeIsItsOwnLimit) {
  const Ref<Block> block(new Block);
  block->fixedWidth = true;
  expectSizes(sizesOf(*block), {100, 30}, {100, 10}, {100, 1000});
  block->build(0, {400, 400});
  // What is offered counts before the limits close.
  EXPECT_EQ(block->size(), NbVec2i32(100, 400));
  EXPECT_EQ(block->min(), NbVec2i32(100, 10));
  EXPECT_EQ(block->max(), NbVec2i32(100, 1000));

  const Ref<Block> fixed(new Block);
  fixed->fixedWidth = fixed->fixedHeight = true;
  fixed->minWidth = 300;
  fixed->maxWidth = 200;
  fixed->width = 250;
  expectSizes(sizesOf(*fixed), {200, 30}, {200, 30}, {200, 30});
}

TEST_F(Layout, ASizeOfTheFileCountsWhereNoneIsOffered) {
  const Ref<Block> block(new Block);
  block->width = 2000;
  block->height = 5;
  block->build(0);
  EXPECT_EQ(block->size(), NbVec2i32(1000, 10));
  block->build(0, {70, 0});
  EXPECT_EQ(block->size(), NbVec2i32(70, 10));
}

TEST_F(Layout, NegotiatedSizesStayOutOfFiles) {
  const auto without = readOne<NkDialogComponent>("DialogComponent { label \"x\" minHeight 20 }");
  ASSERT_TRUE(without);
  const std::string before = writeText(without.get());
  build(*without, 300, 300);
  EXPECT_EQ(without->width.getValue(), 300);
  EXPECT_EQ(writeText(without.get()), before);

  const auto with = readOne<NkDialogComponent>("DialogComponent { width 90 maxHeight 2147483647 maxWidth 800 }");
  ASSERT_TRUE(with);
  build(*with, 300, 300);
  const std::string text = writeText(with.get());
  EXPECT_NE(text.find("width 300"), std::string::npos);
  EXPECT_NE(text.find("maxWidth 800"), std::string::npos);
  EXPECT_EQ(text.find("height"), std::string::npos);
  EXPECT_EQ(text.find("maxHeight"), std::string::npos);

  const auto fixed = readOne<NkDialogComponent>("DialogComponent { width 90 minWidth 50 maxWidth 80 fixedWidth TRUE }");
  ASSERT_TRUE(fixed);
  build(*fixed, 0, 0);
  EXPECT_EQ(writeText(fixed.get()).find("Width 5"), std::string::npos);
  EXPECT_EQ(writeText(fixed.get()).find("maxWidth"), std::string::npos);
}

TEST_F(Layout, ASizeThatTheApplicationSetsLaterIsItsOwn) {
  const auto component = readOne<NkDialogComponent>("DialogComponent { }");
  ASSERT_TRUE(component);
  build(*component, 0, 0);
  component->width = 120;
  component->maxHeight = 50;
  EXPECT_EQ(component->height.getValue(), 28);
  build(*component, 0, 0);
  EXPECT_EQ(component->width.getValue(), 120);
  const std::string text = writeText(component.get());
  EXPECT_NE(text.find("width 120"), std::string::npos);
  EXPECT_NE(text.find("maxHeight 50"), std::string::npos);
  EXPECT_EQ(text.find("height"), std::string::npos);
}

TEST_F(Layout, ResetStartsFromTheDefaults) {
  const Ref<Block> block(new Block);
  block->width = 120;
  block->minWidth = 60;
  NbVec2i32 given(33, 44);
  block->setLabelSize(given);
  block->setComponentSize(given);
  block->build(0);
  block->resetSize();
  EXPECT_EQ(block->size(), NbVec2i32(0, 0));
  EXPECT_EQ(block->labelSize(), NbVec2i32(0, 0));
  EXPECT_EQ(block->componentSize(), NbVec2i32(0, 0));
  // The limits stay.
  expectSizes(sizesOf(*block), {100, 30}, {60, 10}, {1000, 1000});
}

TEST_F(Layout, AResetForgetsTheSizeThatWasGivenAndKeepsTheLimits) {
  const Ref<Alone<Block>> block(new Alone<Block>);
  block->width = 120;
  block->height = 50;
  block->minWidth = 60;
  block->maxHeight = 500;
  block->build(0, 0);
  expectSizes(stateOf(*block), {120, 50}, {60, 0}, {0, 500});
  SizeWrites writes(sizeFieldsOf(*block));
  block->resetSize();
  EXPECT_EQ(writes.order(), "1 0 ");
  expectSizes(stateOf(*block), {0, 0}, {60, 0}, {0, 500});
}

TEST_F(Layout, AResetReachesTheChildren) {
  auto* block = new Block;
  block->natural = {70, 20};
  block->naturalLabel = {40, 20};
  const Ref<NkRowDialog> row = rowOf({columnOf({block}).get()});
  build(*row, 300, 200);
  ASSERT_NE(block->size(), NbVec2i32(0, 0));
  ASSERT_EQ(block->labelSize(), NbVec2i32(40, 20));
  ASSERT_EQ(block->componentSize(), NbVec2i32(70, 20));
  row->resetSize();
  EXPECT_EQ(row->height.getValue(), 0);
  EXPECT_EQ(block->size(), NbVec2i32(0, 0));
  EXPECT_EQ(block->labelSize(), NbVec2i32(0, 0));
  EXPECT_EQ(block->componentSize(), NbVec2i32(0, 0));
}

TEST_F(Layout, WhatTheApplicationSetsLaterIsWhatWasGiven) {
  const Ref<Alone<Block>> block(new Alone<Block>);
  block->build(0, 0);
  expectStateToFollow(*block);
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->addChild(high(30));
  dialog->buildDialog(nullptr, 0);
  expectStateToFollow(*dialog);
}

TEST_F(Layout, SizesAreWrittenInOneOrder) {
  const Ref<NkRowDialog> row = rowOf({high(30)});
  SizeWrites ofRow(sizeFieldsOf(*row));
  build(*row, 100, 100);
  EXPECT_EQ(ofRow.order(), "0 1 2 3 4 5 ");
  row->addChild(high(30));
  EXPECT_EQ(ofRow.order(), "0 1 2 3 4 5 ");

  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->addChild(high(30));
  dialog->windowResizedByChildren = true;
  SizeWrites ofDialog(sizeFieldsOf(*dialog));
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(ofDialog.order(), "0 1 2 3 4 5 ");
  // What was given comes back ahead of what is computed.
  dialog->addChild(high(30));
  EXPECT_EQ(ofDialog.order(), "0 1 2 3 4 5 0 1 2 3 4 5 ");
}

TEST_F(Layout, AComponentWithoutParentMeasuresItsAreas) {
  const Ref<Block> block(new Block);
  block->natural = {70, 20};
  block->naturalLabel = {40, 25};
  block->build(0);
  EXPECT_EQ(block->labelSize(), NbVec2i32(40, 25));
  EXPECT_EQ(block->componentSize(), NbVec2i32(70, 25));
  block->labelVisibility = false;
  block->natural = {-1, 20};
  block->build(0);
  EXPECT_EQ(block->componentSize(), NbVec2i32(0, 20));

  auto* child = new Block;
  const Ref<NkRowDialog> row = rowOf({child});
  child->naturalLabel = {40, 25};
  child->build(0);
  EXPECT_EQ(child->labelSize(), NbVec2i32(0, 0));
  EXPECT_EQ(child->componentSize(), NbVec2i32(0, 0));
}

TEST_F(Layout, TheAreasStandBesideEachOther) {
  const Ref<Block> block(new Block);
  block->naturalLabel = {40, 20};
  block->build(0, {101, 31});
  NbVec2i32 size;
  NbVec2i32 corner;
  const auto expectArea = [&](NbVec2i32 areaSize, NbVec2i32 areaCorner) {
    block->get2DComponentSize(size, corner);
    EXPECT_EQ(size, areaSize);
    EXPECT_EQ(corner, areaCorner);
  };
  expectArea({53, 25}, {45, 3});
  block->edgeStyle = NkDialogComponent::SHADOW_IN;
  expectArea({53, 25}, {44, 2});
  block->edgeStyle = NkDialogComponent::SHADOW_OUT;
  expectArea({53, 25}, {42, 0});
  block->labelVisibility = false;
  expectArea({95, 25}, {0, 0});
}

TEST_F(Layout, TheAreaIn3DCountsFromTheMiddle) {
  const Ref<Block> block(new Block);
  block->naturalLabel = {40, 20};
  block->build(0, {100, 31});
  NbVec2i32 size;
  NbVec2i32 middle;
  block->get3DComponentSize(size, middle);
  EXPECT_EQ(size, NbVec2i32(52, 25));
  EXPECT_EQ(middle, NbVec2i32(21, 0));
  // Halves go towards the middle, on either side of it.
  NbVec2i32 odd(41, 20);
  block->setLabelSize(odd);
  block->get3DComponentSize(size, middle);
  EXPECT_EQ(middle, NbVec2i32(21, 0));
  NbVec2i32 negative(-47, 20);
  block->setLabelSize(negative);
  block->get3DComponentSize(size, middle);
  EXPECT_EQ(size, NbVec2i32(139, 25));
  EXPECT_EQ(middle, NbVec2i32(-22, 0));
  block->labelVisibility = false;
  block->get3DComponentSize(size, middle);
  EXPECT_EQ(size, NbVec2i32(94, 25));
  EXPECT_EQ(middle, NbVec2i32(0, 0));
}

// Sizes of a stack

TEST_F(Layout, AStackIsAsLongAsAllAndAsBroadAsTheBroadest) {
  const Ref<NkRowDialog> row =
      rowOf({new Block({{100, 30}, {10, 5}, {400, 60}}), new Block({{80, 20}, {30, 6}, {300, 70}})});
  row->margin = 4;
  row->rowSpacing = 3;
  expectSizes(sizesOf(*row), {100 + 8 + 6, 50 + 8 + 3 + 6}, {30 + 14, 11 + 17}, {400 + 14, 130 + 17});
  const Ref<NkColumnDialog> column =
      columnOf({new Block({{100, 30}, {10, 5}, {400, 60}}), new Block({{80, 20}, {30, 6}, {300, 70}})});
  column->margin = 4;
  column->columnSpacing = 3;
  expectSizes(sizesOf(*column), {180 + 17, 30 + 14}, {40 + 17, 6 + 14}, {700 + 17, 70 + 14});
}

TEST_F(Layout, AnEmptyStackIsUnbounded) {
  const Ref<NkRowDialog> row(new NkRowDialog);
  row->margin = 10;
  row->rowSpacing = 4;
  expectSizes(sizesOf(*row), {26, 22}, {26, 22}, {kUnbounded, kUnbounded});
  // Spacing that is larger than the margins, too.
  row->rowSpacing = 40;
  expectSizes(sizesOf(*row), {26, -14}, {26, -14}, {kUnbounded, kUnbounded});
  build(*row, 100, 100);
  EXPECT_EQ(row->height.getValue(), 100);
}

TEST_F(Layout, SpacingNeedsTwo) {
  const Ref<NkRowDialog> row = rowOf({high(30)});
  row->rowSpacing = 50;
  EXPECT_EQ(sizesOf(*row).size, NbVec2i32(106, 36));
}

TEST_F(Layout, OneUnboundedChildMakesTheWholeUnbounded) {
  const Ref<NkRowDialog> row = rowOf({high(30, 1, 50), high(30, 1, kUnbounded), high(30, 1, 50)});
  EXPECT_EQ(sizesOf(*row).max, NbVec2i32(1006, kUnbounded));
  row->margin = 100;
  EXPECT_EQ(sizesOf(*row).max[1], kUnbounded);
}

TEST_F(Layout, ASumOfBoundsEndsAtTheLastThatFits) {
  const Ref<NkRowDialog> row = rowOf({high(30, 1, 2'000'000'000), high(30, 1, 200'000'000), high(30, 1, 100'000'000)});
  EXPECT_EQ(sizesOf(*row).max[1], 2'100'000'006);
  row->margin = 30'000'000;
  EXPECT_EQ(sizesOf(*row).max[1], kUnbounded);
}

TEST_F(Layout, BarsThatAlwaysShowTakeTheirRoom) {
  const Ref<NkRowDialog> row = rowOf({high(30, 1, kUnbounded)});
  row->vScrollVisibility = NkDialogGroup::ALWAYS;
  expectSizes(sizesOf(*row), {100 + 22, 36}, {1 + 22, 7}, {1000 + 22, kUnbounded});
  row->hScrollVisibility = NkDialogGroup::ALWAYS;
  expectSizes(sizesOf(*row), {122, 30 + 22}, {23, 23}, {1022, kUnbounded});
  NbVec2i32 size(100, 100);
  row->fixSizeWithBorder(size, -1);
  EXPECT_EQ(size, NbVec2i32(78, 78));
  NbVec2i32 limit(kUnbounded, kUnbounded - 10);
  row->fixSizeWithBorder(limit, 1);
  EXPECT_EQ(limit, NbVec2i32(kUnbounded, kUnbounded));
  // In 3D there is nothing to scroll, but the room is taken all the same.
  build(*row, 200, 200);
  EXPECT_EQ(blockOf(*row, 0).offered, NbVec2i32(184, 184));
}

TEST_F(Layout, WithoutAWindowNoBarComesByItself) {
  const Ref<NkRowDialog> row = rowOf({high(300, 300, 300)});
  row->maxHeight = 100;
  build(*row, 50, 50);
  EXPECT_EQ(blockOf(*row, 0).offered, NbVec2i32(50, 300));
  NbVec2i32 size(0, 0);
  row->fixSizeWithBorder(size, 1);
  EXPECT_EQ(size, NbVec2i32(6, 6));
}

TEST_F(Layout, AFixedGroupIsItsOwnLimit) {
  const Ref<NkRowDialog> inner = rowOf({high(30)});
  inner->fixedWidth = true;
  expectSizes(sizesOf(*inner), {106, 36}, {106, 7}, {106, 1006});
  inner->fixedWidth = false;
  inner->fixedHeight = true;
  expectSizes(sizesOf(*inner), {106, 36}, {7, 36}, {1006, 36});
  auto* free = high(30);
  const Ref<NkRowDialog> outer = rowOf({inner.get(), free});
  build(*outer, 200, 150);
  EXPECT_EQ(inner->height.getValue(), 36);
  EXPECT_EQ(free->height.getValue(), 150 - 36);
}

TEST_F(Layout, TheNaturalSizeOfAStack) {
  auto* first = new Block;
  auto* second = new Block;
  first->natural = {50, 20};
  second->natural = {70, 30};
  const Ref<NkRowDialog> row = rowOf({first, second});
  row->rowSpacing = 5;
  row->margin = 10;
  EXPECT_EQ(row->getComponentInitSize(), NbVec2i32(70, 20 + 50 + 5));
  // It is kept until sizes are reset.
  first->natural = {500, 500};
  EXPECT_EQ(row->getComponentInitSize(), NbVec2i32(70, 75));
  row->resetSize();
  EXPECT_EQ(row->getComponentInitSize(), NbVec2i32(500, 555));
  // Across the margin only sets a floor.
  row->margin = 400;
  row->resetSize();
  EXPECT_EQ(row->getComponentInitSize()[0], 800);

  auto* left = new Block;
  left->natural = {50, 20};
  const Ref<NkColumnDialog> column = columnOf({left});
  column->margin = 10;
  column->columnSpacing = 5;
  EXPECT_EQ(column->getComponentInitSize(), NbVec2i32(70, 20));
  EXPECT_EQ(column->getLabelInitSize(), NbVec2i32(0, 0));
}

TEST_F(Layout, ASeparatorLiesInARowAndStandsInAColumn) {
  const Ref<NkDialogSeparator> line(new NkDialogSeparator);
  expectSizes(sizesOf(*line), {0, 8}, {0, 8}, {kUnbounded, 8});
  const Ref<NkColumnDialog> column = columnOf({line.get()});
  column->getComponentInitSize();
  expectSizes(sizesOf(*line), {8, 0}, {8, 0}, {8, kUnbounded});
  column->removeChild(line.get());
  const Ref<NkRowDialog> row = rowOf({line.get()});
  expectSizes(sizesOf(*line), {8, 0}, {8, 0}, {8, kUnbounded});
  row->getComponentInitSize();
  expectSizes(sizesOf(*line), {0, 8}, {0, 8}, {kUnbounded, 8});
}

// Labels and areas of a form

TEST_F(Layout, ARowAlignsLabelsAndAreas) {
  auto* first = new Block;
  auto* second = new Block;
  auto* hidden = new Block;
  first->naturalLabel = {40, 15};
  first->natural = {60, 10};
  second->naturalLabel = {55, 16};
  second->natural = {90, 30};
  hidden->naturalLabel = {200, 17};
  hidden->natural = {70, 12};
  hidden->labelVisibility = false;
  const Ref<NkRowDialog> row = rowOf({first, second, hidden});
  row->setChildrenLabelSize();
  EXPECT_EQ(first->labelSize(), NbVec2i32(55, 15));
  EXPECT_EQ(second->labelSize(), NbVec2i32(55, 16));
  EXPECT_EQ(hidden->labelSize(), NbVec2i32(55, 17));
  row->setChildrenComponentSize();
  EXPECT_EQ(first->componentSize(), NbVec2i32(90, 15));
  EXPECT_EQ(second->componentSize(), NbVec2i32(90, 30));
  EXPECT_EQ(hidden->componentSize(), NbVec2i32(90, 12));
}

TEST_F(Layout, AColumnAlignsNothing) {
  auto* first = new Block;
  auto* hidden = new Block;
  first->naturalLabel = {40, 15};
  first->natural = {60, 10};
  hidden->naturalLabel = {200, 17};
  hidden->natural = {70, 12};
  hidden->labelVisibility = false;
  const Ref<NkColumnDialog> column = columnOf({first, hidden});
  column->setChildrenLabelSize();
  EXPECT_EQ(first->labelSize(), NbVec2i32(40, 15));
  EXPECT_EQ(hidden->labelSize(), NbVec2i32(0, 0));
  column->setChildrenComponentSize();
  EXPECT_EQ(first->componentSize(), NbVec2i32(60, 15));
  EXPECT_EQ(hidden->componentSize(), NbVec2i32(70, 12));
}

TEST_F(Layout, ADialogAlignsAllTheWayDown) {
  auto* outer = new Block;
  auto* hidden = new Block;
  auto* inner = new Block;
  outer->naturalLabel = {40, 15};
  hidden->naturalLabel = {90, 15};
  hidden->labelVisibility = false;
  inner->naturalLabel = {70, 15};
  inner->natural = {33, 5};
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->addChild(outer);
  dialog->addChild(hidden);
  dialog->addChild(rowOf({inner}).get());
  dialog->buildDialog(nullptr, 0);
  // The labels of a row are its own matter.
  EXPECT_EQ(outer->labelSize(), NbVec2i32(40, 15));
  EXPECT_EQ(hidden->labelSize(), NbVec2i32(40, 0));
  EXPECT_EQ(inner->labelSize(), NbVec2i32(70, 15));
  EXPECT_EQ(outer->componentSize(), NbVec2i32(33, 15));
  EXPECT_EQ(inner->componentSize(), NbVec2i32(33, 15));
}

// Sharing out

TEST_F(Layout, ASurplusIsSharedOutInTurns) {
  const Ref<NkRowDialog> row = rowOf({high(40), high(30), high(30)});
  build(*row, 200, 110);
  EXPECT_EQ(heightsOf(*row), "44 33 33 ");
  EXPECT_EQ(blockOf(*row, 0).place, NbVec2i32(0, 0));
  EXPECT_EQ(blockOf(*row, 1).place, NbVec2i32(0, 44));
  EXPECT_EQ(blockOf(*row, 2).place, NbVec2i32(0, 77));
  EXPECT_EQ(blockOf(*row, 2).offered, NbVec2i32(200, 33));
  // The next odd pixel goes to the next.
  build(*row, 200, 111);
  EXPECT_EQ(heightsOf(*row), "44 34 33 ");
  build(*row, 200, 109);
  EXPECT_EQ(heightsOf(*row), "43 34 32 ");

  const Ref<NkColumnDialog> column = columnOf({wide(40), wide(30), wide(30)});
  build(*column, 110, 200);
  EXPECT_EQ(widthsOf(*column), "44 33 33 ");
  EXPECT_EQ(blockOf(*column, 2).place, NbVec2i32(77, 0));
  EXPECT_EQ(blockOf(*column, 2).offered, NbVec2i32(33, 200));
}

TEST_F(Layout, AChangeOfTheChildrenBeginsTheTurnsAnew) {
  for (const bool resized : {true, false}) {
    const Ref<NkRowDialog> row = rowOf({high(30), high(30)});
    row->windowResizedByChildren = resized;
    build(*row, 100, 61);
    EXPECT_EQ(heightsOf(*row), "31 30 ");
    row->addChild(high(30));
    build(*row, 100, 92);
    EXPECT_EQ(heightsOf(*row), "32 30 30 ");
  }
}

TEST_F(Layout, AChildAtItsLimitLeavesItToTheOthers) {
  const Ref<NkRowDialog> row = rowOf({high(30), high(30, 1, 32), high(30)});
  build(*row, 100, 150);
  EXPECT_EQ(heightsOf(*row), "59 32 59 ");

  auto* fixed = high(30);
  fixed->fixedHeight = true;
  const Ref<NkRowDialog> other = rowOf({fixed, high(30)});
  build(*other, 100, 100);
  EXPECT_EQ(heightsOf(*other), "30 70 ");
  build(*other, 100, 40);
  EXPECT_EQ(heightsOf(*other), "30 10 ");
}

TEST_F(Layout, NobodyLeavesItsLimits) {
  const Ref<NkRowDialog> row = rowOf({high(30, 20, 40), high(30, 20, 40)});
  row->minHeight = 1;
  row->maxHeight = 1000;
  build(*row, 100, 10);
  EXPECT_EQ(heightsOf(*row), "20 20 ");
  EXPECT_EQ(blockOf(*row, 1).place, NbVec2i32(0, 20));
  // Room that nobody takes is left at the end.
  build(*row, 100, 500);
  EXPECT_EQ(heightsOf(*row), "40 40 ");
  EXPECT_EQ(blockOf(*row, 1).place, NbVec2i32(0, 40));
}

TEST_F(Layout, AChildsOwnSizeMovesThoseBehindIt) {
  // Between limits out of order the child takes more than it is offered.
  const Ref<NkRowDialog> row = rowOf({high(30, 50, 40), high(30)});
  row->rowSpacing = 5;
  build(*row, 100, 75);
  EXPECT_EQ(blockOf(*row, 0).offered[1], 40);
  EXPECT_EQ(heightsOf(*row), "50 30 ");
  EXPECT_EQ(blockOf(*row, 1).place, NbVec2i32(0, 55));
}

TEST_F(Layout, WhatIsOfferedNothingKeepsItsSize) {
  const Ref<NkRowDialog> row = rowOf({high(30)});
  row->margin = 20;
  row->minWidth = 1;
  build(*row, 40, 70);
  EXPECT_EQ(blockOf(*row, 0).offered, NbVec2i32(0, 30));
  EXPECT_EQ(blockOf(*row, 0).size(), NbVec2i32(100, 30));
  // Less than nothing gives the least.
  build(*row, 30, 70);
  EXPECT_EQ(blockOf(*row, 0).offered, NbVec2i32(-10, 30));
  EXPECT_EQ(blockOf(*row, 0).size(), NbVec2i32(1, 30));
}

TEST_F(Layout, EdgesMarginsAndSpacingTakeTheirRoom) {
  const Ref<NkRowDialog> row = rowOf({high(30), high(30)});
  row->margin = 7;
  row->rowSpacing = 4;
  build(*row, 100, 200);
  EXPECT_EQ(blockOf(*row, 0).place, NbVec2i32(7, 7));
  EXPECT_EQ(blockOf(*row, 0).offered[0], 86);
  EXPECT_EQ(heightsOf(*row), "91 91 ");
  EXPECT_EQ(blockOf(*row, 1).place, NbVec2i32(7, 102));
  for (const int style : {NkDialogComponent::SHADOW_IN, NkDialogComponent::SHADOW_OUT}) {
    row->edgeStyle = style;
    build(*row, 100, 200);
    EXPECT_EQ(blockOf(*row, 0).place, NbVec2i32(10, 10));
    EXPECT_EQ(blockOf(*row, 0).offered[0], 80);
    EXPECT_EQ(heightsOf(*row), "88 88 ");
  }
  const Ref<NkColumnDialog> column = columnOf({wide(30), wide(30)});
  column->margin = 7;
  column->columnSpacing = 4;
  column->edgeStyle = NkDialogComponent::SHADOW_IN;
  build(*column, 200, 100);
  EXPECT_EQ(blockOf(*column, 1).place, NbVec2i32(10 + 88 + 4, 10));
  EXPECT_EQ(blockOf(*column, 1).offered, NbVec2i32(88, 80));
}

TEST_F(Layout, ASpacingThatChangesWaitsForTheNextLayout) {
  const Ref<NkRowDialog> row = rowOf({high(30), high(30)});
  build(*row, 100, 100);
  const int builds = blockOf(*row, 0).builds;
  row->rowSpacing = 20;
  EXPECT_EQ(blockOf(*row, 0).builds, builds);
  build(*row, 100, 100);
  EXPECT_EQ(heightsOf(*row), "40 40 ");
}

TEST_F(Layout, HugeSizesAreNoTrouble) {
  for (const int size : {INT_MAX, INT_MIN, INT_MAX - 3, INT_MIN + 3}) {
    const Ref<NkRowDialog> row =
        rowOf({high(30, 1, kUnbounded), columnOf({wide(30), new NkDialogLabel}).get(), new NkDialogSeparator});
    row->minWidth = row->minHeight = row->maxWidth = row->maxHeight = size;
    build(*row, size, size);
    EXPECT_EQ(row->width.getValue(), size);
    row->margin = size;
    row->rowSpacing = size;
    build(*row, size, size);
    row->getComponentInitSize();
    static_cast<NkDialogGroup*>(row->getChild(1))->margin = size;
    row->resetSize();
    row->getComponentInitSize();
    build(*row, 0, 0);
    NbVec2i32 area;
    NbVec2i32 corner;
    NbVec2i32 label(size, size);
    row->NkDialogComponent::setLabelSize(label);
    row->get2DComponentSize(area, corner);
    row->get3DComponentSize(area, corner);

    const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
    dialog->addChild(high(30, 1, kUnbounded));
    dialog->margin = size;
    dialog->rowSpacing = size;
    dialog->width = dialog->height = dialog->minWidth = dialog->maxHeight = size;
    dialog->buildDialog(nullptr, 0);
    dialog->minimized = true;
    dialog->minimized = false;
  }
}

// Changes of the tree

TEST_F(Layout, AheadOfTheFirstBuildNothingFollowsFromAChild) {
  const Ref<NkRowDialog> row = rowOf({high(30)});
  row->width = 300;
  row->addChild(high(30));
  EXPECT_EQ(row->width.getValue(), 300);
  EXPECT_FALSE(row->getChild(0)->isBuilt3D());
}

TEST_F(Layout, ANewChildGivesUpTheSizesOfItsGroup) {
  for (const bool resized : {true, false}) {
    const Ref<NkRowDialog> row = rowOf({high(30)});
    row->windowResizedByChildren = resized;
    row->maxWidth = 700;
    build(*row, 300, 200);
    EXPECT_EQ(row->getComponentInitSize(), NbVec2i32(0, 0));
    auto* added = high(30);
    added->natural = {70, 7};
    row->addChild(added);
    EXPECT_EQ(row->width.getValue(), resized ? 0 : 300);
    EXPECT_EQ(row->height.getValue(), resized ? 0 : 200);
    EXPECT_EQ(row->minHeight.getValue(), resized ? 0 : 7);
    EXPECT_EQ(row->maxHeight.getValue(), resized ? 0 : 1006);
    EXPECT_EQ(row->maxWidth.getValue(), 700);
    // What was measured is forgotten in both cases.
    EXPECT_EQ(row->getComponentInitSize(), NbVec2i32(70, 7));
  }
}

TEST_F(Layout, ADialogFollowsAChangeDeepInIt) {
  auto* first = high(30);
  const Ref<NkRowDialog> row = rowOf({first});
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->addChild(columnOf({row.get()}).get());
  dialog->windowResizedByChildren = true;
  dialog->buildDialog(nullptr, 0);
  const int before = dialog->height.getValue();
  auto* added = high(40);
  row->addChild(added);
  EXPECT_TRUE(added->isBuilt3D());
  EXPECT_EQ(dialog->height.getValue(), before + 40);
  EXPECT_EQ(added->place, NbVec2i32(0, first->height.getValue()));
  const int builds = added->builds;
  row->removeChild(first);
  EXPECT_EQ(dialog->height.getValue(), before + 10);
  EXPECT_GT(added->builds, builds);
  EXPECT_EQ(added->place, NbVec2i32(0, 0));
}

TEST_F(Layout, AGroupFollowsEachKindOfChange) {
  auto* second = high(40);
  const Ref<NkRowDialog> row = rowOf({high(30), second});
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->addChild(row.get());
  dialog->windowResizedByChildren = true;
  dialog->buildDialog(nullptr, 0);
  const int withoutChildren = dialog->height.getValue() - 70;
  const auto expectLaidOut = [&](int heightOfChildren) {
    EXPECT_EQ(dialog->height.getValue(), withoutChildren + heightOfChildren);
    int y = 0;
    for (int i = 0; i < row->getNumChildren(); ++i) {
      EXPECT_TRUE(blockOf(*row, i).isBuilt3D());
      EXPECT_EQ(blockOf(*row, i).place, NbVec2i32(0, y));
      y += blockOf(*row, i).height.getValue();
    }
    EXPECT_EQ(y, row->getNumChildren() > 0 ? row->height.getValue() : 0);
  };
  row->insertChild(high(10), 1);
  expectLaidOut(80);
  row->replaceChild(0, high(50));
  expectLaidOut(100);
  row->replaceChild(second, high(25));
  expectLaidOut(85);
  row->removeAllChildren();
  expectLaidOut(0);
}

TEST_F(Layout, AGroupForgetsTheSizesOfItsAreasOnAChange) {
  class Row : public NkRowDialog {
  public:
    NbVec2i32 labelSize() const { return m_labelSize; }
    NbVec2i32 componentSize() const { return m_componentSize; }
  };
  const Ref<Row> row(new Row);
  build(*row, 100, 100);
  NbVec2i32 label(40, 16);
  NbVec2i32 component(70, 20);
  row->setLabelSize(label);
  row->setComponentSize(component);
  EXPECT_EQ(row->labelSize(), label);
  EXPECT_EQ(row->componentSize(), component);
  row->addChild(high(30));
  EXPECT_EQ(row->labelSize(), NbVec2i32(0, 0));
  EXPECT_EQ(row->componentSize(), NbVec2i32(0, 0));
}

TEST_F(Layout, AGroupOfTheApplicationsOwnHasTheStandardSizes) {
  auto* child = high(300);
  child->natural = {50, 20};
  const Ref<NkDialogGroup> group = stackOf<NkDialogGroup>({child});
  EXPECT_EQ(group->getComponentInitSize(), NbVec2i32(0, 0));
  expectSizes(sizesOf(*group), {200, 28}, {25, 25}, {kUnbounded, kUnbounded});
  group->vScrollVisibility = NkDialogGroup::ALWAYS;
  expectSizes(sizesOf(*group), {216, 28}, {41, 25}, {kUnbounded, kUnbounded});
  build(*group, 0, 0);
  EXPECT_FALSE(group->getChild(0)->isBuilt3D());
}

// The dialog

namespace {

/// What the frame takes of a dialog, as the system draws.
NbVec2i32 frameSize() {
  constexpr int kCaption = 24;
  return NbVec2i32(2 * GetSystemMetrics(SM_CXFRAME), kCaption + 2 * GetSystemMetrics(SM_CYFRAME));
}

Ref<NkTopLevelDialog> dialogOf(std::initializer_list<NkTopComponent*> children) {
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  for (NkTopComponent* child : children) dialog->addChild(child);
  return dialog;
}

} // namespace

TEST_F(Layout, ADialogAddsItsFrameAndCaption) {
  const Ref<NkTopLevelDialog> dialog =
      dialogOf({new Block({{100, 30}, {10, 5}, {400, 60}}), new Block({{80, 20}, {30, 6}, {300, kUnbounded}})});
  dialog->margin = 4;
  dialog->rowSpacing = 3;
  const NbVec2i32 frame = frameSize();
  expectSizes(sizesOf(*dialog), frame + NbVec2i32(108, 61), frame + NbVec2i32(38, 22),
              {400 + 8 + frame[0], kUnbounded});
  const int bar = GetSystemMetrics(SM_CXHSCROLL);
  dialog->vScrollVisibility = NkTopLevelDialog::ALWAYS;
  EXPECT_EQ(sizesOf(*dialog).size, frame + NbVec2i32(108 + bar, 61));
  dialog->hScrollVisibility = NkTopLevelDialog::ALWAYS;
  EXPECT_EQ(sizesOf(*dialog).size, frame + NbVec2i32(108 + bar, 61 + bar));
}

TEST_F(Layout, AMenuBarTakesItsHeightAndNoGap) {
  const Ref<NkTopLevelDialog> dialog = dialogOf({high(30), new NkMenuBar});
  dialog->rowSpacing = 9;
  EXPECT_EQ(sizesOf(*dialog).size[1], 30 + frameSize()[1] + GetSystemMetrics(SM_CYMENU));
  dialog->addChild(high(20));
  EXPECT_EQ(sizesOf(*dialog).size[1], 59 + frameSize()[1] + GetSystemMetrics(SM_CYMENU));
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(static_cast<Block*>(dialog->getChild(0))->place, NbVec2i32(0, 0));
  EXPECT_EQ(static_cast<Block*>(dialog->getChild(2))->place, NbVec2i32(0, 39));
}

TEST_F(Layout, TheHeightOfAMenuBarIsNotShared) {
  class Bar : public NkMenuBar {
  public:
    void getSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) override {
      size = min = NbVec2i32(100, 10);
      max = NbVec2i32(1000, 500);
    }
  };
  auto* first = new Bar;
  auto* child = high(30);
  const Ref<NkTopLevelDialog> dialog = dialogOf({first, child});
  dialog->height = 500;
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(child->height.getValue(), 500 - frameSize()[1] - GetSystemMetrics(SM_CYMENU) - 10);

  const Ref<NkTopLevelDialog> withTwo = dialogOf({high(30), first, new NkMenuBar});
  withTwo->rowSpacing = 9;
  EXPECT_EQ(withTwo->widgetHasMenuBar(), first);
  EXPECT_EQ(sizesOf(*withTwo).size[1], 30 + 10 + 9 + frameSize()[1] + GetSystemMetrics(SM_CYMENU));
}

TEST_F(Layout, OfferedSizesOfADialogAreHeldWithinItsLimits) {
  const Ref<NkTopLevelDialog> dialog = dialogOf({high(30)});
  dialog->minWidth = dialog->minHeight = 100;
  dialog->maxWidth = dialog->maxHeight = 400;
  const int offered[] = {250, 20, 700};
  const int taken[] = {250, 100, 400};
  for (int i = 0; i < 3; ++i) {
    build(*dialog, offered[i], offered[(i + 1) % 3]);
    EXPECT_EQ(dialog->width.getValue(), taken[i]);
    EXPECT_EQ(dialog->height.getValue(), taken[(i + 1) % 3]);
  }
  // Of limits out of order, min wins.
  dialog->minWidth = dialog->minHeight = 300;
  dialog->maxWidth = dialog->maxHeight = 200;
  build(*dialog, 250, 250);
  EXPECT_EQ(dialog->width.getValue(), 300);
  EXPECT_EQ(dialog->height.getValue(), 300);

  const Ref<NkTopLevelDialog> fixed = dialogOf({high(30)});
  fixed->resizable = false;
  build(*fixed, 250, 260);
  for (const NkSFInt32* field : {&fixed->width, &fixed->minWidth, &fixed->maxWidth}) EXPECT_EQ(field->getValue(), 250);
  for (const NkSFInt32* field : {&fixed->height, &fixed->minHeight, &fixed->maxHeight})
    EXPECT_EQ(field->getValue(), 260);
}

TEST_F(Layout, ADialogKeepsItsTurnsUntilItsChildrenChange) {
  const Ref<NkTopLevelDialog> dialog = dialogOf({high(30), high(30), high(30)});
  const int border = frameSize()[1];
  build(*dialog, 300, border + 91);
  EXPECT_EQ(heightsOf(*dialog), "31 30 30 ");
  build(*dialog, 300, border + 92);
  EXPECT_EQ(heightsOf(*dialog), "31 31 30 ");
  dialog->updateAfterSceneGraphChange();
  EXPECT_EQ(heightsOf(*dialog), "31 31 30 ");
  dialog->height = border + 91;
  dialog->updateDialogBuild(0);
  EXPECT_EQ(heightsOf(*dialog), "31 30 30 ");
}

TEST_F(Layout, AChangeSharesTheHeightOfADialogOutAnew) {
  auto* grown = high(30);
  const Ref<NkTopLevelDialog> dialog = dialogOf({grown});
  dialog->height = 500;
  dialog->buildDialog(nullptr, 0);
  const int room = 500 - frameSize()[1];
  EXPECT_EQ(grown->height.getValue(), room);
  auto* added = high(30);
  dialog->addChild(added);
  EXPECT_EQ(grown->height.getValue() + added->height.getValue(), room);
  EXPECT_NEAR(grown->height.getValue(), added->height.getValue(), 1);
}

TEST_F(Layout, AnEmptyDialogIsBounded) {
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->margin = 10;
  dialog->rowSpacing = 4;
  const NbVec2i32 size = frameSize() + NbVec2i32(20, 16);
  expectSizes(sizesOf(*dialog), size, size, size);
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(dialog->maxHeight.getValue(), size[1]);
}

TEST_F(Layout, ADialogIsNoSmallerThanItsMin) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { width 5 height 2000 DialogComponent { } }");
  ASSERT_TRUE(dialog);
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(dialog->width.getValue(), 25 + frameSize()[0]);
  EXPECT_EQ(dialog->height.getValue(), 2000);
  const auto* child = static_cast<NkDialogComponent*>(dialog->getChild(0));
  EXPECT_EQ(child->width.getValue(), 25);
  EXPECT_EQ(child->height.getValue(), 2000 - frameSize()[1]);
}

TEST_F(Layout, AFixedDialogHasOneSizeAndWritesNoLimit) {
  const auto dialog =
      readOne<NkTopLevelDialog>("TopLevelDialog { resizable FALSE minWidth 20 maxHeight 900 DialogComponent { } }");
  ASSERT_TRUE(dialog);
  dialog->buildDialog(nullptr, 0);
  const int width = 200 + frameSize()[0];
  const int height = 28 + frameSize()[1];
  EXPECT_EQ(dialog->minWidth.getValue(), width);
  EXPECT_EQ(dialog->maxWidth.getValue(), width);
  EXPECT_EQ(dialog->minHeight.getValue(), height);
  EXPECT_EQ(dialog->maxHeight.getValue(), height);
  const std::string text = writeText(dialog.get());
  for (const char* field : {"minWidth", "maxWidth", "minHeight", "maxHeight", "width", "height"})
    EXPECT_EQ(text.find(std::string(" ") + field), std::string::npos) << field;
  expectSizes(stateOf(*dialog), {0, 0}, {20, 0}, {0, 900});
  // With a size of its own the limits close before any build.
  const auto sized = readOne<NkTopLevelDialog>("TopLevelDialog { resizable FALSE width 500 DialogComponent { } }");
  expectSizes(sizesOf(*sized), {500, height}, {500, 25 + frameSize()[1]}, {500, kUnbounded});
}

TEST_F(Layout, ADialogWritesOnlyTheSizesThatItWasGiven) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { width 333 DialogComponent { height 50 } }");
  ASSERT_TRUE(dialog);
  const std::string before = writeText(dialog.get());
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(writeText(dialog.get()), before);
  EXPECT_EQ(dialog->width.getValue(), 333);
}

TEST_F(Layout, AMarginThatChangesWaitsForTheNextLayout) {
  auto* child = high(30);
  const Ref<NkTopLevelDialog> dialog = dialogOf({child});
  dialog->windowResizedByChildren = true;
  dialog->buildDialog(nullptr, 0);
  const int height = dialog->height.getValue();
  const int builds = child->builds;
  dialog->margin = 10;
  dialog->rowSpacing = 5;
  dialog->width = 700;
  EXPECT_EQ(child->builds, builds);
  dialog->addChild(high(40));
  EXPECT_EQ(dialog->height.getValue(), height + 20 + 5 + 40);
  EXPECT_EQ(dialog->width.getValue(), 700);
  EXPECT_EQ(child->place, NbVec2i32(10, 10));
  EXPECT_EQ(child->offered[0], 700 - frameSize()[0] - 20);
}

TEST_F(Layout, ADialogKeepsItsSizesThroughAChangeUnlessTold) {
  const Ref<NkTopLevelDialog> dialog = dialogOf({high(30)});
  dialog->buildDialog(nullptr, 0);
  const int height = dialog->height.getValue();
  dialog->addChild(high(100));
  EXPECT_EQ(dialog->height.getValue(), height);
}

TEST_F(Layout, ComponentsMayChangeTheTreeWhileTheyAreAsked) {
  /// Removes what stands behind it when it is asked for its size.
  class Impatient : public Block {
  public:
    void getSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) override {
      Block::getSize(size, min, max);
      if (auto* group = dynamic_cast<NkDialogGroup*>(getParent())) {
        if (group->getNumChildren() > 1) group->removeChild(1);
      } else if (auto* dialog = dynamic_cast<NkTopLevelDialog*>(getParent())) {
        if (dialog->getNumChildren() > 1) dialog->removeChild(1);
      }
    }
  };
  const Ref<NkRowDialog> row = rowOf({new Impatient, high(30), high(30)});
  build(*row, 100, 100);
  EXPECT_EQ(row->getNumChildren(), 1);
  const Ref<NkTopLevelDialog> dialog = dialogOf({new Impatient, high(30), high(30)});
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(dialog->getNumChildren(), 1);
}

TEST_F(Layout, AThousandGroupsStandInEachOther) {
  constexpr int kDepth = 1000;
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  Ref<NkDialogGroup> group(new NkRowDialog);
  auto* innermost = group.get();
  auto* block = high(30);
  innermost->addChild(block);
  for (int i = 1; i < kDepth; ++i) {
    const Ref<NkDialogGroup> outer(i % 2 == 0 ? static_cast<NkDialogGroup*>(new NkRowDialog) : new NkColumnDialog);
    outer->addChild(group.get());
    group = outer;
  }
  dialog->addChild(group.get());
  dialog->windowResizedByChildren = true;
  dialog->buildDialog(nullptr, 0);
  // Each level asks for a border of 6; without an edge it isn't drawn, and the innermost one gets it all.
  EXPECT_EQ(group->height.getValue(), 30 + 6 * kDepth);
  EXPECT_EQ(block->size()[1], 1000);
  auto* added = high(40);
  innermost->addChild(added);
  EXPECT_TRUE(added->isBuilt3D());
  EXPECT_EQ(group->height.getValue(), 70 + 6 * kDepth);
  dialog->enable = false;
  dialog->position3D = NbVec3f(1, 2, 3);
  added->auditorID = "added";
  EXPECT_EQ(dialog->searchForAuditorId("added"), added);
  innermost->removeChild(added);
  EXPECT_EQ(group->height.getValue(), 30 + 6 * kDepth);
}

TEST_F(Layout, AComponentInTwoGroupsIsTheLastOnes) {
  auto* shared = high(30);
  const Ref<NkRowDialog> first = rowOf({shared});
  const Ref<NkRowDialog> last = rowOf({high(50), shared});
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->addChild(first.get());
  dialog->addChild(last.get());
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(shared->getParent(), last.get());
  EXPECT_EQ(shared->builds, 2);
  EXPECT_EQ(shared->place[1], blockOf(*last, 0).height.getValue());
  // Each group gives it up for itself.
  first->removeChild(shared);
  EXPECT_EQ(shared->builds, 3);
  EXPECT_EQ(last->findChild(shared), 1);
  dialog->removeChild(last.get());
  first->addChild(shared);
  EXPECT_EQ(shared->getParent(), first.get());
  EXPECT_EQ(shared->place, NbVec2i32(0, 0));
}

// Any tree

namespace {

class RandomTree {
public:
  explicit RandomTree(unsigned seed) : m_random(seed) {}

  NkDialogComponent* make(int depth) {
    NkDialogComponent* made = nullptr;
    if (depth == 0 || upTo(3) == 0) {
      // What may shrink to nothing would be offered nothing, and take its own size.
      made = new Block({{upTo(200), upTo(80)}, {1 + upTo(60), 1 + upTo(40)}, {limit(), limit()}});
    } else if (upTo(1) == 0) {
      auto* row = new NkRowDialog;
      row->rowSpacing = upTo(6);
      made = fill(row, depth);
    } else {
      auto* column = new NkColumnDialog;
      column->columnSpacing = upTo(6);
      made = fill(column, depth);
    }
    made->edgeStyle = upTo(2);
    made->fixedWidth = upTo(7) == 0;
    made->fixedHeight = upTo(7) == 0;
    if (upTo(5) == 0) made->width = upTo(300);
    if (upTo(5) == 0) made->minHeight = upTo(50);
    if (upTo(5) == 0) made->maxWidth = upTo(300);
    return made;
  }
  int upTo(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit + 1)); }

private:
  int limit() { return upTo(2) == 0 ? kUnbounded : upTo(400); }
  NkDialogGroup* fill(NkDialogGroup* group, int depth) {
    // An empty group whose spacing outweighs its margins shrinks to nothing, too.
    group->margin = 3 + upTo(8);
    if (upTo(4) == 0) group->vScrollVisibility = NkDialogGroup::ALWAYS;
    for (int i = upTo(4); i > 0; --i) group->addChild(make(depth - 1));
    return group;
  }

  std::mt19937 m_random;
};

using Sizes = std::vector<NbVec2i32>;

/// Looks at a tree after a layout, and notes its sizes.
void checkTree(const NkDialogComponent& component, Sizes& sizes) {
  const NbVec2i32 size(component.width.getValue(), component.height.getValue());
  const NbVec2i32 min(component.minWidth.getValue(), component.minHeight.getValue());
  const NbVec2i32 max(component.maxWidth.getValue(), component.maxHeight.getValue());
  sizes.push_back(size);
  for (int axis = 0; axis < 2; ++axis) {
    if (min[axis] > max[axis]) continue;
    EXPECT_GE(size[axis], min[axis]);
    EXPECT_LE(size[axis], max[axis]);
  }
  const auto* group = dynamic_cast<const NkDialogGroup*>(&component);
  if (!group || group->getNumChildren() == 0) return;
  const auto* row = dynamic_cast<const NkRowDialog*>(group);
  const int along = row ? 1 : 0;
  const int spacing = (row ? row->rowSpacing : static_cast<const NkColumnDialog*>(group)->columnSpacing).getValue();
  const bool hasEdge = group->edgeStyle.getValue() != NkDialogComponent::NONE;
  const bool hasBar = group->vScrollVisibility.getValue() == NkDialogGroup::ALWAYS;
  NbVec2i32 room = size - NbVec2i32(hasBar ? 16 : 0, 0);
  if (hasEdge) room -= NbVec2i32(6, 6);
  long long used = 2LL * group->margin.getValue() + (group->getNumChildren() - 1LL) * spacing;
  bool canGrow = false;
  bool canShrink = false;
  bool isInOrder = true;
  for (int i = 0; i < group->getNumChildren(); ++i) {
    const auto& child = static_cast<const NkDialogComponent&>(*group->getChild(i));
    const int childSize = (row ? child.height : child.width).getValue();
    const int childMin = (row ? child.minHeight : child.minWidth).getValue();
    const int childMax = (row ? child.maxHeight : child.maxWidth).getValue();
    used += childSize;
    canGrow |= childSize < childMax;
    canShrink |= childSize > childMin;
    isInOrder &= childMin <= childMax;
    checkTree(child, sizes);
  }
  // All room is taken, unless nobody can take it or give it.
  if (!isInOrder) return;
  EXPECT_FALSE(used < room[along] && canGrow) << used << " of " << room[along];
  EXPECT_FALSE(used > room[along] && canShrink) << used << " of " << room[along];
}

} // namespace

TEST_F(Layout, AnyTreeIsLaidOutWithinItsLimits) {
  for (unsigned seed = 0; seed < 150; ++seed) {
    RandomTree tree(seed);
    const Ref<NkDialogComponent> root(tree.make(3));
    for (int pass = 0; pass < 3; ++pass) {
      const int width = 1 + tree.upTo(900);
      const int height = 1 + tree.upTo(700);
      build(*root, width, height);
      Sizes first;
      checkTree(*root, first);
      // The same layout again changes nothing.
      build(*root, width, height);
      Sizes second;
      checkTree(*root, second);
      EXPECT_EQ(first, second);
      if (HasFailure()) FAIL() << "seed " << seed << ", pass " << pass;
    }
  }
}
