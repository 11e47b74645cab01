#include <cmath>
#include <utility>

#include "FormsTest.h"
#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogAuditor.h"
#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkRowDialog.h"
#include "arbora/scene/NkChildList.h"
#include "arbora/scene/NkNodeSensor.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkTrackerEvent.h"

// The 3D form in a scene, used as a user does.

using arbora::Ref;

namespace {

using Panel = Opened<NkTopLevelDialog>;
using Part = Opened<Block>;

Part* high(int height) { return new Part(panelix::SizeTriple{{100, height}, {1, 1}, {1000, 1000}}); }

} // namespace

/// A panel with a component in it.
class Forms3D : public PanelTest {
protected:
  Forms3D() { panel->addChild(child); }

  /// The frame of a component, as x, y, width and height in pixels, y downwards.
  Pixels frameOf(Opened<Block>* component) { return inPixels(worldBoxOf(component->part("edgeStyleSwitch"))); }
  Pixels panelFrame() { return inPixels(worldBoxOf(panel->part("frame"))); }

  Part* child = high(30);
};

// What it is made of

TEST_F(Forms3D, APanelIsMadeOfFrameTitleAndButton) {
  build();
  EXPECT_EQ(typesOf(panel->group("geomSwitch")), "Translation Separator Transform Separator Separator ");
  EXPECT_EQ(typesOf(panel->group("frameSep")), "Scale Group ");
  EXPECT_EQ(typesOf(panel->group("labelSep")), "Translation Group Text3 ");
  EXPECT_EQ(typesOf(panel->group("minSep")), "Translation Scale Switch ");
  EXPECT_EQ(typesOf(panel->group("minSwtch")), "Group Group ");
  EXPECT_EQ(panel->part("frame")->getName(), "TopLevelDialogFrame");
  EXPECT_EQ(panel->part("labelProp")->getName(), "DialogTextProperties");
  EXPECT_EQ(panel->part("minReleased")->getName(), "TopLevelDialogMinReleased");
  EXPECT_EQ(panel->part("minPressed")->getName(), "TopLevelDialogMinPressed");
  EXPECT_EQ(panel->choice("minSwtch")->whichChild.getValue(), 0);
  EXPECT_EQ(static_cast<NkScale*>(panel->group("minSep")->getChild(1))->scaleFactor.getValue(), NbVec3f(14, 14, 1));
  EXPECT_EQ(static_cast<NkText3*>(panel->group("labelSep")->getChild(2))->parts.getValue(), NkText3::FRONT);
}

TEST_F(Forms3D, AComponentIsMadeOfItsFrame) {
  build();
  auto* geometry = child->group("geomSwitch");
  EXPECT_EQ(typesOf(geometry), "Material PickStyle Translation Separator Transform ");
  EXPECT_EQ(geometry->getChild(3), child->part("mainCptSeparator"));
  EXPECT_EQ(typesOf(child->group("mainCptSeparator")), "Scale Switch ");
  EXPECT_EQ(typesOf(child->group("edgeStyleSwitch")), "Group Group Group ");
  EXPECT_EQ(child->group("edgeStyleSwitch")->getChild(NkDialogComponent::NONE)->getName(),
            "DialogComponentEdgeStyleNone");
  EXPECT_EQ(child->group("edgeStyleSwitch")->getChild(NkDialogComponent::SHADOW_IN)->getName(),
            "DialogComponentEdgeStyleShadowIn");
  EXPECT_EQ(child->group("edgeStyleSwitch")->getChild(NkDialogComponent::SHADOW_OUT)->getName(),
            "DialogComponentEdgeStyleShadowOut");
  auto* offset = child->group("geomSeparator")->getChild(0);
  EXPECT_EQ(translationOf(offset), NbVec3f(4, -23, 1));
  // What stands behind the frame stands at its front.
  EXPECT_EQ(static_cast<NkTransform*>(geometry->getChild(4))->translation.getValue(), NbVec3f(0, 0, 1));
  EXPECT_EQ(static_cast<NkTransform*>(geometry->getChild(4))->scaleFactor.getValue(), NbVec3f(1, 1, 1));
}

TEST_F(Forms3D, AStackHasNothingBehindItsFrame) {
  const auto expectGeometry = [this](auto* group, const char* types) {
    panel->addChild(group);
    build();
    EXPECT_EQ(typesOf(group->group("geomSwitch")), types);
  };
  expectGeometry(new Opened<NkRowDialog>, "Material PickStyle Translation Separator ");
  expectGeometry(new Opened<NkColumnDialog>, "Material PickStyle Translation Separator ");
  expectGeometry(new Opened<NkDialogGroup>, "Material PickStyle Translation Separator Transform ");
}

TEST_F(Forms3D, APartPutAheadOfTheBuildStandsWhereItsDefaultDoes) {
  auto* usual = new Opened<NkDialogPushButton>;
  auto* other = new Opened<NkDialogPushButton>;
  panel->addChild(usual);
  panel->addChild(other);
  other->setPart("labelProp", new NkGroup);
  build();
  EXPECT_EQ(typesOf(other->group("geomSwitch")), typesOf(usual->group("geomSwitch")));
  EXPECT_EQ(other->group("geomSwitch")->findChild(other->part("labelSep")),
            usual->group("geomSwitch")->findChild(usual->part("labelSep")));
}

TEST_F(Forms3D, PartsAreMadeOnce) {
  build();
  const int children = child->group("geomSwitch")->getNumChildren();
  const int outer = child->group("geomSeparator")->getNumChildren();
  build();
  panel->addChild(high(20));
  EXPECT_EQ(child->group("geomSwitch")->getNumChildren(), children);
  EXPECT_EQ(child->group("geomSeparator")->getNumChildren(), outer);
  EXPECT_EQ(panel->group("geomSwitch")->getNumChildren(), 5);
  EXPECT_EQ(panel->group("labelSep")->getNumChildren(), 3);
}

TEST_F(Forms3D, PartsOfTheProgramStay) {
  const char* const names[] = {"frame", "labelProp", "minReleased", "minPressed"};
  std::vector<NkNode*> own;
  for (const char* name : names) {
    own.push_back(new NkGroup);
    ASSERT_TRUE(panel->setPart(name, own.back()));
  }
  build();
  for (std::size_t i = 0; i < own.size(); ++i) EXPECT_EQ(panel->part(names[i]), own[i]) << names[i];
}

TEST_F(Forms3D, AnEdgeThatChangesChangesTheSwitchAlone) {
  build();
  const Pixels before = frameOf(child);
  const int builds = child->builds;
  EXPECT_EQ(child->choice("edgeStyleSwitch")->whichChild.getValue(), NkDialogComponent::NONE);
  child->edgeStyle = NkDialogComponent::SHADOW_OUT;
  EXPECT_EQ(child->choice("edgeStyleSwitch")->whichChild.getValue(), NkDialogComponent::SHADOW_OUT);
  expectPixels(frameOf(child), before);
  EXPECT_EQ(child->builds, builds);
  child->setCanBeTraversed(0);
  child->edgeStyle = NkDialogComponent::SHADOW_IN;
  EXPECT_EQ(child->choice("edgeStyleSwitch")->whichChild.getValue(), NkDialogComponent::SHADOW_OUT);
}

TEST_F(Forms3D, AComponentWithoutALabelHasNothingToHide) {
  build();
  const std::string before = writeText(child->part("geomSeparator"));
  child->labelVisibility = false;
  EXPECT_EQ(writeText(child->part("geomSeparator")), before);
}

// Where it stands

TEST_F(Forms3D, APanelHangsFromItsCorner) {
  build();
  expectPixels(panelFrame(), {0, 0, 200, 150});
  EXPECT_EQ(translationOf(panel->group("geomSwitch")->getChild(0)), NbVec3f(100, -75, 0));
  EXPECT_EQ(panel->getTopLevelSize(), NbVec3f(200, 150, 1));
  EXPECT_EQ(translationOf(panel->group("minSep")->getChild(0)), NbVec3f(88, 63, 0));
  // The button is 14 pixels wide and stands on the front of the frame.
  const NbBox3f button = worldBoxOf(panel->part("minReleased"));
  expectPixels(inPixels(button), {181, 5, 14, 14});
  EXPECT_GT(button.getMin()[2], 1);

  panel->position3D = NbVec3f(30, 40, 5);
  expectPixels(panelFrame(), {30, 40, 200, 150});
  EXPECT_EQ(worldBoxOf(panel->part("frame")).getMin()[2], 5);
}

TEST_F(Forms3D, AFieldMovesAPanelByWholeHalves) {
  panel->width = 201;
  panel->height = 151;
  build();
  const auto centre = [this] { return translationOf(panel->group("geomSwitch")->getChild(0)); };
  EXPECT_EQ(centre(), NbVec3f(100.5F, -75.5F, 0));
  panel->position3D = NbVec3f(10, 20, 0);
  EXPECT_EQ(centre(), NbVec3f(110, -95, 0));
  panel->minimized = true;
  EXPECT_EQ(centre(), NbVec3f(110.5F, -30, 0));
  panel->minimized3DPosition = NbVec3f(30, 40, 0);
  EXPECT_EQ(centre(), NbVec3f(130, -50, 0));
}

TEST_F(Forms3D, ThePlaceOfTheWindowMovesAPanelInASceneOnly) {
  class Placed : public Panel {
  public:
    void change3DPosition() override {
      ++changes;
      Panel::change3DPosition();
    }
    int changes = 0;
  };
  auto* placed = new Placed;
  root->addChild(placed);
  placed->buildDialog(nullptr, 0);
  placed->position = NbVec2i32(5, 6);
  EXPECT_EQ(placed->changes, 1);
  placed->setCanBeTraversed(0);
  placed->position = NbVec2i32(7, 8);
  EXPECT_EQ(placed->changes, 1);
}

TEST_F(Forms3D, ChildrenStandInFrontOfThePanel) {
  panel->margin = 10;
  panel->rowSpacing = 5;
  auto* second = high(30);
  panel->addChild(second);
  panel->position3D = NbVec3f(30, 40, 5);
  build();
  const float width = static_cast<float>(child->width.getValue());
  const float height = static_cast<float>(child->height.getValue());
  expectPixels(frameOf(child), {30 + 4 + 10, 40 + 23 + 10, width, height});
  EXPECT_EQ(frameOf(second)[1], 73 + height + 5);
  EXPECT_EQ(worldBoxOf(child->part("edgeStyleNone")).getMin()[2], 6);
  EXPECT_EQ(worldBoxOf(child->part("edgeStyleNone")).getMax()[2], 7);
  // They go where it goes.
  panel->position3D = NbVec3f(0, 0, 0);
  expectPixels(frameOf(child), {14, 33, width, height});
}

TEST_F(Forms3D, AMenuBarPushesTheChildrenDown) {
  panel->insertChild(new NkMenuBar, 0);
  build();
  EXPECT_EQ(frameOf(child)[1], 23 + 18);
  EXPECT_EQ(child->place, NbVec2i32(0, 0));
}

TEST_F(Forms3D, GroupsStandInGroups) {
  auto* left = high(30);
  auto* right = high(30);
  auto* column = new Opened<NkColumnDialog>;
  column->addChild(left);
  column->addChild(right);
  column->margin = 6;
  column->columnSpacing = 10;
  auto* row = new Opened<NkRowDialog>;
  row->edgeStyle = NkDialogComponent::SHADOW_IN;
  row->addChild(column);
  panel->replaceChild(child, row);
  panel->width = 308;
  build();
  const auto at = [&](Part* part) {
    const NbBox3f box = worldBoxOf(part->part("edgeStyleSwitch"));
    return NbVec3f(box.getMin()[0], -box.getMax()[1], box.getMin()[2]);
  };
  EXPECT_EQ(row->width.getValue(), 300);
  EXPECT_EQ(column->width.getValue(), 294);
  EXPECT_EQ(left->width.getValue(), 136);
  // The panel, the row and the column are one deep each.
  EXPECT_EQ(at(left), NbVec3f(4 + 3 + 6, 23 + 3 + 6, 3));
  EXPECT_EQ(at(right), NbVec3f(4 + 3 + 6 + 136 + 10, 23 + 3 + 6, 3));
  panel->position3D = NbVec3f(100, 200, 7);
  EXPECT_EQ(at(right), NbVec3f(104 + 3 + 6 + 136 + 10, 223 + 3 + 6, 10));
}

TEST_F(Forms3D, ATitleStandsAtTheTopLeft) {
  panel->label = "Title\\nin two lines";
  build();
  auto* text = static_cast<NkText3*>(panel->group("labelSep")->getChild(2));
  EXPECT_EQ(linesOf(text), "Title\nin two lines");
  const NbBox3f box = worldBoxOf(text);
  EXPECT_NEAR(box.getMin()[0], 12, 0.01);
  // Centred 12 below the upper edge, in front of the frame.
  EXPECT_NEAR((box.getMin()[1] + box.getMax()[1]) / 2, -12, 0.01);
  EXPECT_GT(box.getMin()[2], 1);
  panel->label = "Other";
  EXPECT_EQ(text->string[0], "Other");
}

TEST_F(Forms3D, AnotherTitleIsMeasuredAnew) {
  auto* properties = new NkGroup;
  ASSERT_TRUE(panel->setPart("labelProp", properties));
  panel->label = "Title";
  build();
  auto* shift = new NkTranslation;
  shift->translation = NbVec3f(0, 7, 0);
  properties->addChild(shift);
  const auto expectMiddle = [&](float y) {
    build();
    const NbBox3f box = worldBoxOf(panel->group("labelSep")->getChild(2));
    EXPECT_NEAR((box.getMin()[1] + box.getMax()[1]) / 2, y, 0.01);
  };
  expectMiddle(-12 + 7);
  panel->label = "Other";
  expectMiddle(-12);
}

TEST_F(Forms3D, AHalfPixelIsNoTrouble) {
  Part* odd = high(31);
  panel->replaceChild(child, odd);
  child = odd;
  panel->width = 207;
  build();
  EXPECT_EQ(frameOf(child)[0], 4);
  EXPECT_EQ(frameOf(child)[1], 23);
  EXPECT_EQ(frameOf(child)[2], static_cast<float>(child->width.getValue()));
}

TEST_F(Forms3D, AHalfPixelIsNoTroubleInAStack) {
  auto* row = new Opened<NkRowDialog>;
  auto* top = high(31);
  auto* bottom = high(30);
  row->addChild(top);
  row->addChild(bottom);
  root->replaceChild(panel, row);
  NbVec2i32 size(101, 71);
  NbVec2i32 corner(0, 0);
  row->buildWidget(nullptr, size, corner, 0);
  expectPixels(inPixels(worldBoxOf(row->part("edgeStyleSwitch"))), {0, 0, 101, 71});
  expectPixels(frameOf(top), {0, 0, 101, 36});
  expectPixels(frameOf(bottom), {0, 36, 101, 35});
}

TEST_F(Forms3D, AComponentOfNoExtentHasABox) {
  const Ref<NkDialogComponent> flat(new Part(panelix::SizeTriple{{0, 0}, {0, 0}, {100, 100}}));
  const NbBox3f box = boxOf(flat.get());
  for (int axis = 0; axis < 3; ++axis) EXPECT_TRUE(std::isfinite(box.getMax()[axis]));
  EXPECT_TRUE(flat->isBuilt3D());
}

// Built when it is wanted

TEST_F(Forms3D, ABoxBuildsThePanel) {
  const NbBox3f box = boxOf(root.get());
  EXPECT_TRUE(panel->isBuilt3D());
  EXPECT_TRUE(child->isBuilt3D());
  EXPECT_TRUE(panel->canBeTraversed());
  EXPECT_EQ(box.getMin()[0], 0);
  EXPECT_EQ(box.getMax()[0], 200);
  EXPECT_EQ(box.getMin()[1], -150);
  // The same as that of a panel that was built before.
  const Ref<Panel> shown(new Panel);
  shown->width = 200;
  shown->height = 150;
  shown->addChild(high(30));
  shown->buildDialog(nullptr, 0);
  EXPECT_EQ(boxOf(shown.get()), boxOf(panel));
}

TEST_F(Forms3D, APanelThatIsOnlyClickedIsBuilt) {
  click(188, 12);
  EXPECT_TRUE(panel->isBuilt3D());
  EXPECT_TRUE(panel->minimized.getValue());
}

TEST_F(Forms3D, AComponentUnderAPlainGroupIsBuiltByAPick) {
  for (const bool inPanel : {true, false}) {
    const Ref<NkGroup> scene(new NkGroup);
    scene->addChild(root->getChild(0));
    NkPanelix* picked = inPanel ? static_cast<NkPanelix*>(panel) : high(30);
    scene->addChild(picked);
    NkRayPickAction pick(NbViewportRegion(800, 600));
    pick.setPoint(NbVec2i32(50, 595));
    pick.apply(scene.get());
    EXPECT_TRUE(picked->isBuilt3D());
    EXPECT_NE(pick.getPickedPoint(), nullptr);
  }
}

TEST_F(Forms3D, ABoxOfAComponentLeavesItsUnbuiltDialogOut) {
  boxOf(child);
  EXPECT_TRUE(child->isBuilt3D());
  EXPECT_FALSE(panel->isBuilt3D());
  EXPECT_FALSE(panel->canBeTraversed());
  // The dialog's own form isn't there yet.
  panel->position3D = NbVec3f(1, 2, 3);
  panel->minimized = true;
  panel->minimized = false;
  panel->label = "x";
  panel->change3DPosition();
  build();
  expectPixels(panelFrame(), {1, 2, 200, 150});
}

TEST_F(Forms3D, ABoxOfAComponentLeavesItsUnbuiltRowOut) {
  const Ref<NkRowDialog> row(new NkRowDialog);
  row->width = 60;
  row->height = 40;
  auto* inner = high(30);
  row->addChild(inner);
  boxOf(inner);
  EXPECT_FALSE(row->isBuilt3D());
  EXPECT_FALSE(row->canBeTraversed());
  // As if it stood alone.
  EXPECT_EQ(translationOf(inner->group("geomSwitch")->getChild(2)), NbVec3f(50, -15, 0));
}

TEST_F(Forms3D, ABoxOfAComponentLeavesTheDialogAboveItsRowOut) {
  auto* row = new NkRowDialog;
  row->width = 60;
  row->height = 40;
  auto* inner = high(30);
  row->addChild(inner);
  panel->addChild(row);
  boxOf(inner);
  EXPECT_FALSE(panel->canBeTraversed());
  EXPECT_TRUE(row->canBeTraversed());
  EXPECT_EQ(translationOf(inner->group("geomSwitch")->getChild(2)), NbVec3f(50 - 30, -15 + 20, 0));
}

TEST_F(Forms3D, ABoxOfARowAloneLeavesNothingOut) {
  const Ref<NkRowDialog> row(new NkRowDialog);
  boxOf(row.get());
  EXPECT_TRUE(row->isBuilt3D());
  EXPECT_TRUE(row->canBeTraversed());
}

TEST_F(Forms3D, ABoxOfAGroupLaysItOut) {
  auto* row = new NkRowDialog;
  auto* inner = high(30);
  inner->natural = {44, 5};
  inner->naturalLabel = {22, 6};
  row->addChild(inner);
  panel->addChild(row);
  boxOf(row);
  EXPECT_TRUE(inner->isBuilt3D());
  EXPECT_EQ(inner->componentSize(), NbVec2i32(44, 6));
  EXPECT_EQ(inner->labelSize(), NbVec2i32(22, 6));
  EXPECT_FALSE(panel->isBuilt3D());
  EXPECT_FALSE(panel->canBeTraversed());
}

TEST_F(Forms3D, WhatComesWithoutALayoutIsBuiltWhenItIsSeen) {
  auto* row = new NkRowDialog;
  panel->addChild(row);
  boxOf(child);
  ASSERT_FALSE(panel->canBeTraversed());
  build();
  auto* late = new NkRowDialog;
  late->addChild(high(10));
  row->addChild(late);
  EXPECT_FALSE(late->isBuilt3D());
  panel->position3D = NbVec3f(10, 10, 0);
  late->show3D(1);
  late->enable = false;
  panel->enable = false;
  EXPECT_FALSE(late->isBuilt3D());
  boxOf(root.get());
  EXPECT_TRUE(late->isBuilt3D());
  EXPECT_TRUE(late->getChild(0)->isBuilt3D());
}

TEST_F(Forms3D, APanelThatIsHiddenStaysHiddenWhenItIsMeasured) {
  panel->show3D(0);
  EXPECT_TRUE(boxOf(panel).isEmpty());
  EXPECT_TRUE(panel->isBuilt3D());
  EXPECT_FALSE(panel->isShown());
  EXPECT_FALSE(child->isShown());
  panel->show3D(1);
  EXPECT_FALSE(boxOf(panel).isEmpty());
}

TEST_F(Forms3D, MeasuringIsNoChangeOfTheScene) {
  int changes = 0;
  NkNodeSensor sensor([](void* data, NkSensor*) { ++*static_cast<int*>(data); }, &changes);
  sensor.setPriority(0);
  sensor.attach(root.get());
  boxOf(panel);
  EXPECT_TRUE(child->isBuilt3D());
  EXPECT_EQ(changes, 0);
  panel->position3D = NbVec3f(1, 0, 0);
  EXPECT_GT(changes, 0);
}

TEST_F(Forms3D, WithoutAFormAChangeIsJustThat) {
  panel->label = "Title";
  panel->change3DLabel();
  panel->change3DPosition();
  panel->show3D(0);
  panel->show3D(1);
  panel->change3DEnable();
  child->edgeStyle = NkDialogComponent::SHADOW_IN;
  EXPECT_EQ(panel->getTopLevelSize(), NbVec3f(1, 1, 1));
  EXPECT_FALSE(panel->isBuilt3D());
  build();
  EXPECT_EQ(static_cast<NkText3*>(panel->group("labelSep")->getChild(2))->string[0], "Title");
  EXPECT_EQ(child->choice("edgeStyleSwitch")->whichChild.getValue(), NkDialogComponent::SHADOW_IN);
}

// Showing and enabling

TEST_F(Forms3D, ShowingGoesAllTheWayDown) {
  auto* row = new Opened<NkRowDialog>;
  auto* inner = high(30);
  row->addChild(inner);
  panel->addChild(row);
  build();
  panel->show3D(0);
  EXPECT_FALSE(panel->isShown());
  EXPECT_FALSE(row->isShown());
  EXPECT_FALSE(inner->isShown());
  EXPECT_TRUE(boxOf(root.get()).isEmpty());
  row->show3D(1);
  EXPECT_TRUE(inner->isShown());
  EXPECT_FALSE(child->isShown());
}

TEST_F(Forms3D, ABuildShowsAComponent) {
  const Ref<Part> alone(new Part);
  alone->show3D(0);
  alone->build(0);
  EXPECT_TRUE(alone->isShown());
}

TEST_F(Forms3D, WhatIsDisabledAheadOfTheBuildIsBuiltDisabled) {
  auto* row = new Opened<NkRowDialog>;
  row->enable = false;
  panel->addChild(row);
  child->enable = false;
  build();
  EXPECT_EQ(child->pickStyle(), NkPickStyle::UNPICKABLE);
  EXPECT_EQ(child->glow(), NbColor(0.5F, 0.5F, 0.5F));
  EXPECT_EQ(row->pickStyle(), NkPickStyle::UNPICKABLE);
  child->enable = true;
  EXPECT_EQ(child->pickStyle(), NkPickStyle::BOUNDING_BOX);
  EXPECT_EQ(child->glow(), NbColor(0, 0, 0));
}

TEST_F(Forms3D, AGroupEnablesWhatItHolds) {
  auto* outer = new Opened<NkRowDialog>;
  auto* inner = new Opened<NkRowDialog>;
  auto* on = high(30);
  auto* off = high(30);
  off->enable = false;
  inner->addChild(on);
  inner->addChild(off);
  outer->addChild(inner);
  outer->enable = false;
  panel->addChild(outer);
  build();
  EXPECT_EQ(on->pickStyle(), NkPickStyle::UNPICKABLE);
  EXPECT_EQ(on->glow(), NbColor(0.5F, 0.5F, 0.5F));
  outer->enable = true;
  EXPECT_EQ(outer->pickStyle(), NkPickStyle::BOUNDING_BOX);
  EXPECT_EQ(on->pickStyle(), NkPickStyle::SHAPE);
  EXPECT_EQ(on->glow(), NbColor(0, 0, 0));
  EXPECT_EQ(off->pickStyle(), NkPickStyle::UNPICKABLE);
  inner->enable = false;
  outer->enable = false;
  outer->enable = true;
  EXPECT_EQ(on->pickStyle(), NkPickStyle::UNPICKABLE);
  inner->enable = true;
  EXPECT_EQ(on->pickStyle(), NkPickStyle::SHAPE);
  EXPECT_TRUE(on->enable.getValue());
}

TEST_F(Forms3D, AGroupHandsItsEnableDownWithItsFirstBuild) {
  auto* row = new Opened<NkRowDialog>;
  auto* inner = high(30);
  row->addChild(inner);
  row->enable = false;
  panel->addChild(row);
  build();
  EXPECT_EQ(inner->pickStyle(), NkPickStyle::UNPICKABLE);
  inner->change3DWidgetEnable(1);
  build();
  EXPECT_EQ(inner->pickStyle(), NkPickStyle::SHAPE);
  auto* late = high(30);
  row->addChild(late);
  EXPECT_TRUE(late->isBuilt3D());
  EXPECT_EQ(late->pickStyle(), NkPickStyle::SHAPE);
  EXPECT_EQ(late->glow(), NbColor(0, 0, 0));
}

// Dragging

TEST_F(Forms3D, AFrameIsDragged) {
  panel->position3D = NbVec3f(100, 100, 5);
  build();
  press(150, 105);
  EXPECT_EQ(panel->position3D.getValue(), NbVec3f(100, 100, 5));
  move(160, 125);
  expectPixels(panelFrame(), {110, 120, 200, 150});
  EXPECT_EQ(frameOf(child)[0], 114);
  move(50, 105);
  release(50, 105);
  move(500, 500);
  EXPECT_TRUE(panel->position3D.getValue().equals(NbVec3f(0, 100, 5), 0.01F));
  EXPECT_EQ(panel->minimized3DPosition.getValue(), NbVec3f(0, 0, 0));
  EXPECT_FALSE(panel->isActive.getValue());
}

TEST_F(Forms3D, ADragFollowsThePlaneOfThePanel) {
  // Turned by a quarter and twice as large.
  place->rotation.setValue(NbVec3f(0, 0, 1), 3.14159265F / 2);
  place->scaleFactor.setValue(2, 2, 1);
  place->translation.setValue(400, -300, 0);
  build();
  // The panel's x runs up the screen, its y to the right.
  press(405, 250);
  move(425, 210);
  release(425, 210);
  EXPECT_TRUE(panel->position3D.getValue().equals(NbVec3f(20, 10, 0), 0.01F));
}

TEST_F(Forms3D, ATrackerDragsAPanelAlongItsRay) {
  build();
  NkHandleEventAction action(NbViewportRegion(800, 600));
  const auto track = [&](NkButtonEvent::State state, float x, float y) {
    NkTrackerEvent event;
    event.setState(state);
    // Aslant, through the point on the front of the panel.
    event.setRay(NbLine(NbVec3f(x + 10, y - 20, 11), NbVec3f(x, y, 1)));
    action.setEvent(&event);
    action.apply(root.get());
  };
  track(NkButtonEvent::DOWN, 100, -5);
  track(NkButtonEvent::UNKNOWN, 130, -45);
  EXPECT_TRUE(panel->position3D.getValue().equals(NbVec3f(30, 40, 0), 0.01F));
  track(NkButtonEvent::UNKNOWN, 110, 5);
  track(NkButtonEvent::UP, 110, 5);
  EXPECT_TRUE(panel->position3D.getValue().equals(NbVec3f(10, -10, 0), 0.01F));
}

TEST_F(Forms3D, ComponentsTitleAndSceneryDragNothing) {
  panel->label = "A long title";
  build();
  drag(50, 60, 90, 90);
  EXPECT_EQ(panel->position3D.getValue(), NbVec3f(0, 0, 0));
  drag(20, 12, 60, 60);
  EXPECT_EQ(panel->position3D.getValue(), NbVec3f(0, 0, 0));
  drag(500, 500, 550, 550);
  EXPECT_EQ(panel->position3D.getValue(), NbVec3f(0, 0, 0));
}

TEST_F(Forms3D, ChildrenMayHideFromADrag) {
  panel->hideChildren = true;
  build();
  const Pixels before = frameOf(child);
  press(100, 5);
  EXPECT_FALSE(child->isShown());
  EXPECT_TRUE(panel->isShown());
  move(150, 55);
  release(150, 55);
  // They stay away, and where they were.
  EXPECT_FALSE(child->isShown());
  EXPECT_EQ(child->get3DParentTranslation(), NbVec3f(4, -23, 1));
  expectPixels(panelFrame(), {50, 50, 200, 150});
  // Folding and unfolding brings them back.
  click(50 + 188, 50 + 12);
  EXPECT_FALSE(child->isShown());
  click(50 + 188, 50 + 10);
  EXPECT_TRUE(child->isShown());
  EXPECT_EQ(frameOf(child)[0], before[0] + 50);
}

TEST_F(Forms3D, HiddenChildrenStayBehindWhenThePanelUnfolds) {
  panel->hideChildren = true;
  build();
  panel->minimized = true;
  panel->position3D = NbVec3f(50, 50, 0);
  panel->minimized = false;
  expectPixels(panelFrame(), {50, 50, 200, 150});
  EXPECT_EQ(child->get3DParentTranslation(), NbVec3f(4, -23, 1));
}

TEST_F(Forms3D, APanelThatMovesIsNotBuiltAnew) {
  build();
  const int builds = child->builds;
  panel->position3D = NbVec3f(50, 50, 0);
  drag(100, 55, 200, 100);
  panel->minimized = true;
  panel->minimized = false;
  EXPECT_NE(panel->position3D.getValue(), NbVec3f(50, 50, 0));
  EXPECT_EQ(child->builds, builds);
}

TEST_F(Forms3D, APressOnThePanelTakesTheInput) {
  panel->label = "A long title";
  auto* holder = new Holder;
  panel->addChild(holder);
  build();
  const auto expectTold = [&](int told) {
    EXPECT_EQ(holder->told, told);
    EXPECT_EQ(Panel::holderOf3D(), told ? static_cast<NkPanelix*>(panel) : holder);
    release();
    holder->told = 0;
  };
  // The last one folds the panel.
  for (NkNode* node : {panel->part("frameSep"), panel->group("labelSep")->getChild(2), panel->part("minSep")}) {
    holder->take();
    press(node);
    expectTold(1);
  }
  holder->take();
  press(500, 500);
  expectTold(0);
}

// Folding

TEST_F(Forms3D, AClickOnTheButtonFoldsThePanel) {
  panel->label = "Title";
  panel->position3D = NbVec3f(100, 50, 0);
  panel->minimized3DPosition = NbVec3f(7, 7, 7);
  build();
  press(288, 62);
  EXPECT_EQ(panel->choice("minSwtch")->whichChild.getValue(), 1);
  EXPECT_FALSE(panel->minimized.getValue());
  // Wherever the mouse goes meanwhile.
  move(500, 500);
  release(500, 500);
  EXPECT_EQ(panel->choice("minSwtch")->whichChild.getValue(), 0);
  EXPECT_TRUE(panel->minimized.getValue());
  // The strip opens where the panel stood, whatever the field said.
  EXPECT_EQ(panel->minimized3DPosition.getValue(), NbVec3f(100, 50, 0));
  EXPECT_EQ(panel->position3D.getValue(), NbVec3f(100, 50, 0));
  expectPixels(panelFrame(), {100, 50, 200, 20});
  EXPECT_FALSE(child->isShown());
  expectPixels(inPixels(worldBoxOf(panel->part("minReleased"))), {281, 53, 14, 14});
  const NbBox3f title = worldBoxOf(panel->group("labelSep")->getChild(2));
  EXPECT_NEAR(title.getMin()[0], 112, 0.01);
  EXPECT_NEAR((title.getMin()[1] + title.getMax()[1]) / 2, -60, 0.01);

  click(288, 60);
  EXPECT_FALSE(panel->minimized.getValue());
  expectPixels(panelFrame(), {100, 50, 200, 150});
  EXPECT_TRUE(child->isShown());
}

TEST_F(Forms3D, TheApplicationFoldsThePanel) {
  build();
  panel->minimized = true;
  expectPixels(panelFrame(), {0, 0, 200, 20});
  EXPECT_FALSE(child->isShown());
  panel->minimized = false;
  expectPixels(panelFrame(), {0, 0, 200, 150});
  EXPECT_TRUE(child->isShown());
  EXPECT_EQ(frameOf(child)[1], 23);
}

TEST_F(Forms3D, ChildrenAreShownAndHiddenAroundTheFold) {
  class Noting : public Part {
  public:
    void show3D(int on) override {
      shown += on ? "1 " : "0 ";
      Part::show3D(on);
    }
    std::string shown;
  };
  auto* noting = new Noting;
  panel->replaceChild(child, noting);
  build();
  const auto shown = [&] { return std::exchange(noting->shown, {}); };
  shown();
  panel->minimized = true;
  EXPECT_EQ(shown(), "1 0 ");
  panel->minimized = false;
  EXPECT_EQ(shown(), "0 1 ");
  click(panel->part("minSep"));
  EXPECT_EQ(shown(), "0 1 0 ");
  click(panel->part("minSep"));
  EXPECT_EQ(shown(), "1 0 1 ");
}

TEST_F(Forms3D, APanelReadAsFoldedFoldsWithTheNextChange) {
  panel->minimized = true;
  panel->label = "Title";
  build();
  expectPixels(panelFrame(), {0, 0, 200, 150});
  const NbBox3f title = worldBoxOf(panel->group("labelSep")->getChild(2));
  EXPECT_NEAR((title.getMin()[1] + title.getMax()[1]) / 2, -75, 0.01);
  panel->minimized = false;
  panel->minimized = true;
  expectPixels(panelFrame(), {0, 0, 200, 20});
}

TEST_F(Forms3D, StripAndPanelHavePlacesOfTheirOwn) {
  build();
  panel->minimized = true;
  drag(100, 5, 300, 105);
  EXPECT_TRUE(panel->minimized3DPosition.getValue().equals(NbVec3f(200, 100, 0), 0.01F));
  EXPECT_EQ(panel->position3D.getValue(), NbVec3f(0, 0, 0));
  expectPixels(panelFrame(), {200, 100, 200, 20});
  // A write of the other position moves nothing now.
  panel->position3D = NbVec3f(50, 50, 0);
  expectPixels(panelFrame(), {200, 100, 200, 20});
  panel->minimized = false;
  expectPixels(panelFrame(), {50, 50, 200, 150});
  // Only the first folding takes the place over.
  panel->minimized = true;
  expectPixels(panelFrame(), {200, 100, 200, 20});
}

TEST_F(Forms3D, ConnectedPlacesMoveTogether) {
  panel->independentMinimizedPosition = false;
  build();
  panel->minimized = true;
  drag(100, 5, 300, 105);
  EXPECT_TRUE(panel->minimized3DPosition.getValue().equals(NbVec3f(200, 100, 0), 0.01F));
  EXPECT_EQ(panel->position3D.getValue(), panel->minimized3DPosition.getValue());
  EXPECT_TRUE(panel->position3D.isConnected());
  EXPECT_FALSE(panel->minimized3DPosition.isConnected());
  panel->minimized = false;
  expectPixels(panelFrame(), {200, 100, 200, 150});
  EXPECT_EQ(frameOf(child)[0], 204);
  EXPECT_FALSE(panel->position3D.isConnected());
  EXPECT_TRUE(panel->minimized3DPosition.isConnected());
  drag(300, 105, 200, 105);
  EXPECT_TRUE(panel->position3D.getValue().equals(NbVec3f(100, 100, 0), 0.01F));
  EXPECT_EQ(panel->minimized3DPosition.getValue(), panel->position3D.getValue());
}

TEST_F(Forms3D, PlacesAreConnectedAndPartedAtAnyTime) {
  build();
  panel->independentMinimizedPosition = false;
  EXPECT_TRUE(panel->minimized3DPosition.isConnected());
  panel->position3D = NbVec3f(10, 20, 0);
  EXPECT_EQ(panel->minimized3DPosition.getValue(), NbVec3f(10, 20, 0));
  panel->independentMinimizedPosition = true;
  EXPECT_FALSE(panel->minimized3DPosition.isConnected());
  panel->position3D = NbVec3f(30, 20, 0);
  EXPECT_EQ(panel->minimized3DPosition.getValue(), NbVec3f(10, 20, 0));
  panel->minimized = true;
  panel->independentMinimizedPosition = false;
  EXPECT_TRUE(panel->position3D.isConnected());
  panel->minimized3DPosition = NbVec3f(1, 2, 3);
  EXPECT_EQ(panel->position3D.getValue(), NbVec3f(1, 2, 3));
  panel->independentMinimizedPosition = true;
  EXPECT_FALSE(panel->position3D.isConnected());
}

// Picking

TEST_F(Forms3D, APickTellsTheComponentAndItsPart) {
  auto* row = new Opened<NkRowDialog>;
  auto* inner = high(30);
  row->addChild(inner);
  panel->replaceChild(child, row);
  build();
  expectPick({100, 60}, inner, "edgeStyleNone");
  expectPick({100, 5}, panel, "frame");
  expectPick({188, 12}, panel, "minReleased");
  // With the child out of the way the row is hit.
  inner->show3D(0);
  expectPick({100, 60}, row, "edgeStyleNone");
}

// The end in the middle of things

TEST_F(Forms3D, APanelMayGoInTheMiddleOfADrag) {
  build();
  const OnWrite gone(panel->position3D, [&] { root->removeChild(panel); });
  press(100, 5);
  move(150, 55);
  move(160, 65);
  release(160, 65);
  EXPECT_EQ(root->getNumChildren(), 2);
}

TEST_F(Forms3D, APanelMayGoWhenItFolds) {
  build();
  const OnWrite gone(panel->minimized, [&] { root->removeChild(panel); });
  click(188, 12);
  EXPECT_EQ(root->getNumChildren(), 2);
}

TEST_F(Forms3D, APanelMayGoWhileItIsBuilt) {
  {
    const OnWrite gone(child->width, [&] { root->removeChild(panel); });
    panel->buildDialog(nullptr, 0);
  }
  EXPECT_EQ(root->getNumChildren(), 2);

  auto* own = new Panel;
  root->addChild(own);
  const OnWrite gone(own->height, [&] { root->removeChild(own); });
  own->buildDialog(nullptr, 0);
  EXPECT_EQ(root->getNumChildren(), 2);
}

TEST_F(Forms3D, AComponentMayGoWhileItIsBuilt) {
  auto* row = new NkRowDialog;
  auto* inner = high(30);
  auto* last = high(30);
  row->addChild(inner);
  row->addChild(last);
  panel->addChild(row);
  {
    const OnWrite gone(inner->height, [&] { row->removeChild(inner); });
    build();
  }
  EXPECT_EQ(row->getNumChildren(), 1);
  const OnWrite all(last->height, [&] { panel->removeChild(row); });
  panel->addChild(high(5));
  EXPECT_EQ(panel->findChild(row), -1);
}

TEST_F(Forms3D, ComponentsMayGoWhenAnAuditorHearsOfThem) {
  class Ending : public NkDialogAuditor {
  public:
    explicit Ending(std::function<void(NkDialogCheckBox*)> act) : m_act(std::move(act)) {}
    void dialogCheckBox(NkDialogCheckBox* box) override { m_act(box); }

  private:
    std::function<void(NkDialogCheckBox*)> m_act;
  };
  auto* row = new NkRowDialog;
  for (int i = 0; i < 3; ++i) row->addChild(new NkDialogCheckBox);
  panel->addChild(row);
  build();
  const int builds = child->builds;
  Ending one([&](NkDialogCheckBox* box) { row->removeChild(box); });
  panel->addAuditor(&one);
  static_cast<NkDialogCheckBox*>(row->getChild(1))->applyDlgCptAuditor();
  EXPECT_EQ(row->getNumChildren(), 2);
  EXPECT_GT(child->builds, builds) << "the dialog is laid out within the auditor";
  panel->applyAuditors();
  EXPECT_EQ(row->getNumChildren(), 0);
  panel->removeAuditor(&one);

  row->addChild(new NkDialogCheckBox);
  Ending all([&](NkDialogCheckBox*) { panel->removeAllChildren(); });
  row->addAuditor(&all);
  static_cast<NkDialogCheckBox*>(row->getChild(0))->applyDlgCptAuditor();
  EXPECT_EQ(panel->getNumChildren(), 0);
}

TEST_F(Forms3D, AChildMayGoWhenItIsEnabled) {
  build();
  const OnWrite gone(child->enable, [&] { panel->removeChild(child); });
  child->enable = false;
  EXPECT_EQ(panel->getNumChildren(), 0);
}

TEST_F(Forms3D, AStackWithoutParentMayGoWhileItIsBuilt) {
  Ref<NkRowDialog> row(new NkRowDialog);
  auto* inner = high(30);
  row->addChild(inner);
  const OnWrite gone(inner->height, [&] { row = {}; });
  NbVec2i32 size(100, 100);
  NbVec2i32 corner(0, 0);
  row->buildWidget(nullptr, size, corner, 0);
  EXPECT_FALSE(row);
}

// Fields

TEST_F(Forms3D, ALayoutIsNoChangeByTheApplication) {
  build();
  NbVec2i32 size;
  NbVec2i32 min;
  NbVec2i32 max;
  panel->addChild(high(40));
  panel->getDefaultState(size, min, max);
  EXPECT_EQ(size, NbVec2i32(200, 150));
  EXPECT_EQ(min, NbVec2i32(0, 0));
  EXPECT_EQ(max, NbVec2i32(0, 0));
  panel->width = 300;
  panel->maxHeight = 500;
  panel->getDefaultState(size, min, max);
  EXPECT_EQ(size, NbVec2i32(300, 150));
  EXPECT_EQ(max[1], 500);
}

TEST_F(Forms3D, ALayoutThatChangesNothingIsNoChangeOfTheScene) {
  auto* row = new NkRowDialog;
  row->addChild(new NkDialogLabel);
  row->addChild(high(30));
  panel->addChild(row);
  panel->label = "Title";
  build();
  boxOf(root.get());
  int changes = 0;
  NkNodeSensor sensor([](void* data, NkSensor*) { ++*static_cast<int*>(data); }, &changes);
  sensor.setPriority(0);
  sensor.attach(root.get());
  build();
  EXPECT_EQ(changes, 0);
  panel->width = 300;
  build();
  EXPECT_GT(changes, 1);
}

TEST_F(Forms3D, AFileOfABuiltDialogIsThatOfTheUnbuiltOne) {
  const std::string text =
      "TopLevelDialog { label \"a\" margin 3 maxWidth 2000 RowDialog { ColumnDialog { DialogLabel { label \"b\" } "
      "DialogSeparator { } } DialogLabel { width 70 } DialogComponent { fixedHeight TRUE minHeight 50 } } }";
  const auto dialog = readOne<NkTopLevelDialog>(text);
  ASSERT_TRUE(dialog);
  // A fixed size is its own limit from the first layout on.
  const auto again = readOne<NkTopLevelDialog>(text);
  static_cast<NkDialogComponent*>(static_cast<NkRowDialog*>(again->getChild(0))->getChild(2))
      ->minHeight.setDefault(true);
  dialog->buildDialog(nullptr, 0);
  std::string built = writeText(dialog.get());
  // The label's width is the file's, with the value that the layout gave it.
  const auto* label = static_cast<NkRowDialog*>(dialog->getChild(0))->getChild(1);
  const std::string width = "width " + std::to_string(label->width.getValue());
  const std::size_t at = built.find(width);
  ASSERT_NE(at, std::string::npos);
  built.replace(at, width.size(), "width 70");
  EXPECT_EQ(built, writeText(again.get()));
  ASSERT_TRUE(readOne<NkTopLevelDialog>(writeBinary(dialog.get())));
}
