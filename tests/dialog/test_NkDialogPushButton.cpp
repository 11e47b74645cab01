#include "Panelix/NkDialogPushButton.h"

#include "FormsTest.h"
#include "Listeners.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkScale.h"

using arbora::Ref;

namespace {

/// z of what would follow the last node of a group.
float endOf(NkNode* group) {
  NkSearchAction search;
  search.setInterest(NkSearchAction::LAST);
  search.setType(NkNode::getClassTypeId(), true);
  search.apply(group);
  NkGetMatrixAction matrix;
  matrix.apply(search.getPath());
  NbVec3f end;
  matrix.getMatrix().multVecMatrix(NbVec3f(0, 0, 0), end);
  return end[2];
}

float frontOf(NkNode* group) {
  NkGetBoundingBoxAction box;
  box.apply(group);
  return box.getBoundingBox().getMax()[2];
}

} // namespace

TEST_F(DialogTest, PressingTheBuiltInButtonSinksItsFaceAndCaptionByOne) {
  const auto skin = read(NkDialogPushButton::DialogPushButton);
  ASSERT_TRUE(skin);
  ASSERT_EQ(skin->getNumChildren(), 2);
  NkNode* pressed = skin->getChild(0);
  NkNode* released = skin->getChild(1);
  EXPECT_EQ(pressed->getName(), NbName("DialogPushButtonPressed"));
  EXPECT_EQ(released->getName(), NbName("DialogPushButtonReleased"));
  EXPECT_FLOAT_EQ(endOf(pressed), 1);
  EXPECT_FLOAT_EQ(endOf(released), 2);
  EXPECT_FLOAT_EQ(frontOf(pressed), 1);
  EXPECT_FLOAT_EQ(frontOf(released), 1.5F);
}

TEST_F(DialogTest, TheTextOfTheBuiltInButton) {
  EXPECT_STREQ(NkDialogPushButton::DialogPushButton,
               "DEF DialogPushButtonPressed Group {  Material { diffuseColor 1 0.6 0.6 }"
               "  Translation { translation 0 0 0.5 }  Cube { width 1 height 1 depth 1 }"
               "  Translation { translation 0 0 0.5 }}"
               "DEF DialogPushButtonReleased Group {  Material { diffuseColor 0.7 0.7 0.7 }"
               "  Translation { translation 0 0 1 }  Cube { width 1 height 1 depth 1 }"
               "  Translation { translation 0 0 1 }}");
}

// Forms

namespace {

constexpr int kReleased = 0;
constexpr int kPressed = 1;

/// The nodes that a push button adds to its parts.
template <class Base>
class ButtonOf : public Base {
public:
  NkNode* inGeometry(int index) { return this->group("geomSwitch")->getChild(index); }
  NkNode* labelText() { return this->group("labelSwitch")->getChild(2); }
  NbVec3f labelPlace() { return translationOf(this->group("labelSwitch")->getChild(0)); }
  NbVec3f frameSize() { return static_cast<NkScale*>(this->group("frameSep")->getChild(0))->scaleFactor.getValue(); }
  NbVec3f framePlace() { return translationOf(inGeometry(6)); }
  NkTransform* captionTransform() { return static_cast<NkTransform*>(inGeometry(8)); }
  float captionDepth() { return captionTransform()->translation.getValue()[2]; }
  NbVec3f captionPlace() { return translationOf(this->group("buttonLabelSep")->getChild(0)); }
  NkNode* caption() { return this->group("buttonLabelSep")->getChild(2); }
  NbBox3f captionBox() { return boxOfText(this->part("buttonLabelProp"), caption()); }
  NbBox3f labelBox() { return boxOfText(this->part("labelProp"), labelText()); }
};

using Button = ButtonOf<Opened<NkDialogPushButton>>;
using LoneButton = ButtonOf<Alone<NkDialogPushButton>>;

class PushButtonForm : public FormsTest {
protected:
  const Ref<LoneButton> button{new LoneButton};
};

/// A button in a panel.
class PushButtonInScene : public PanelTest {
protected:
  PushButtonInScene() {
    button->label = "Name";
    button->buttonLabel = "Press";
    panel->addChild(button);
  }
  void pressAtCentre() {
    const Pixels box = inPixels(worldBoxOf(button->part("frameSep")));
    click(static_cast<int>(box[0] + box[2] / 2), static_cast<int>(box[1] + box[3] / 2));
  }

  Button* button = new Button;
  PushButtonListener listener;
};

} // namespace

// Sizes

TEST_F(PushButtonForm, IsTheCaptionAndSomeRoom) {
  EXPECT_EQ(button->getComponentInitSize(), NbVec2i32(12, 12));
  button->buttonLabel = "Press\\nme";
  // Measured once.
  EXPECT_EQ(button->getComponentInitSize(), NbVec2i32(12, 12));
  button->resetSize();
  EXPECT_EQ(button->getComponentInitSize(), NkPanelix::getLabelPixelSize("Press\nme", nullptr) + NbVec2i32(12, 12));
}

TEST_F(PushButtonForm, AHiddenLabelIsTakenOffTheCaption) {
  button->buttonLabel = "Press";
  button->labelVisibility = false;
  button->setLabelSize(button->labelArea);
  const NbVec2i32 caption = NkPanelix::getLabelPixelSize("Press", nullptr);
  EXPECT_EQ(button->getComponentInitSize(), caption + NbVec2i32(12 - 40, 12));
  button->resetSize();
  button->labelVisibility = true;
  button->setLabelSize(button->labelArea);
  EXPECT_EQ(button->getComponentInitSize(), caption + NbVec2i32(12, 12));
}

TEST_F(PushButtonForm, ItsDefaultSizeIsThatOfItsAreas) {
  NbVec2i32 given(70, 5);
  button->setLabelSize(button->labelArea);
  button->setComponentSize(given);
  EXPECT_EQ(button->defaults().size, NbVec2i32(40 + 70 + 2, 5));
  EXPECT_EQ(button->defaults().min, NbVec2i32(25, 25));
  EXPECT_EQ(button->defaults().max, NbVec2i32(panelix::kUnbounded, panelix::kUnbounded));
  button->labelVisibility = false;
  EXPECT_EQ(button->defaults().size, NbVec2i32(70, 5));
  // The caption has to fit in, as soon as it was measured.
  button->buttonLabel = "One\\ntwo";
  EXPECT_EQ(button->defaults().size[1], 5);
  const int height = button->getComponentInitSize()[1];
  EXPECT_EQ(button->defaults().size, NbVec2i32(70, height));
  given[1] = height + 1;
  button->setComponentSize(given);
  EXPECT_EQ(button->defaults().size[1], height + 1);
}

// What it is made of

TEST_F(PushButtonForm, IsMadeOfLabelBodyAndCaption) {
  button->label = "Na\\nme";
  button->buttonLabel = "Press\\nme";
  button->build(300, 30);
  EXPECT_EQ(typesOf(button->group("geomSwitch")),
            "Material PickStyle Translation Separator Transform Separator Translation Separator Transform Separator ");
  EXPECT_EQ(button->inGeometry(3), button->part("mainCptSeparator"));
  EXPECT_EQ(button->inGeometry(5), button->part("labelSep"));
  EXPECT_EQ(button->inGeometry(7), button->part("frameSep"));
  EXPECT_EQ(button->inGeometry(9), button->part("buttonLabelSep"));
  EXPECT_EQ(typesOf(button->group("labelSep")), "Switch ");
  EXPECT_EQ(typesOf(button->group("labelSwitch")), "Translation Group Text3 ");
  EXPECT_EQ(typesOf(button->group("frameSep")), "Scale Switch ");
  EXPECT_EQ(typesOf(button->group("frameSwitch")), "Group Group ");
  EXPECT_EQ(typesOf(button->group("buttonLabelSep")), "Translation Group Text3 ");
  EXPECT_EQ(button->group("labelSwitch")->getChild(1)->getName(), "DialogTextProperties");
  EXPECT_EQ(button->group("buttonLabelSep")->getChild(1)->getName(), "DialogTextProperties");
  EXPECT_EQ(button->group("frameSwitch")->getChild(kReleased)->getName(), "DialogPushButtonReleased");
  EXPECT_EQ(button->group("frameSwitch")->getChild(kPressed)->getName(), "DialogPushButtonPressed");
  EXPECT_EQ(button->chosen("frameSwitch"), kReleased);
  EXPECT_EQ(button->chosen("labelSwitch"), NK_SWITCH_ALL);
  for (NkNode* text : {button->labelText(), button->caption()})
    EXPECT_EQ(static_cast<NkText3*>(text)->parts.getValue(), NkText3::FRONT);
  // A label is one text, whatever is in it; a caption has lines.
  EXPECT_EQ(linesOf(button->labelText()), "Na\nme");
  EXPECT_EQ(linesOf(button->caption()), "Press|me");
}

TEST_F(PushButtonForm, PartsAreMadeOnce) {
  button->build(300, 30);
  button->buttonLabel = "once";
  int writes = 0;
  const OnWrite count(static_cast<NkText3*>(button->caption())->string, [&] { ++writes; });
  button->build(200, 30);
  button->buttonLabel = "twice";
  EXPECT_EQ(writes, 1);
  EXPECT_EQ(button->group("geomSwitch")->getNumChildren(), 10);
  EXPECT_EQ(button->group("labelSwitch")->getNumChildren(), 3);
  EXPECT_EQ(button->group("frameSep")->getNumChildren(), 2);
  EXPECT_EQ(button->group("buttonLabelSep")->getNumChildren(), 3);
}

TEST_F(PushButtonForm, PartsOfTheProgramStay) {
  for (const char* name : {"labelProp", "released", "pressed"}) {
    const Ref<NkGroup> own(new NkGroup);
    const Ref<LoneButton> other(new LoneButton);
    ASSERT_TRUE(other->setPart(name, own.get()));
    other->build(300, 30);
    EXPECT_EQ(other->part(name), own.get()) << name;
  }
}

TEST_F(PushButtonForm, ABoxBuildsIt) {
  const Ref<NkSeparator> scene(new NkSeparator);
  scene->addChild(button.get());
  NkGetBoundingBoxAction measure;
  measure.apply(scene.get());
  EXPECT_TRUE(button->isBuilt3D());
  EXPECT_EQ(button->group("geomSwitch")->getNumChildren(), 10);
}

// Where it stands

TEST_F(PushButtonForm, ItsBodyFillsTheAreaRightOfTheLabel) {
  button->labelArea[0] = 41;
  button->build(301, 31);
  EXPECT_EQ(button->frameSize(), NbVec3f(301 - 6 - 41 - 2, 25, 1));
  // A whole number of pixels, towards the middle: the area's centre is at 21.5.
  EXPECT_EQ(button->framePlace(), NbVec3f(21, 0, 0));
  button->labelVisibility = false;
  button->build(301, 31);
  EXPECT_EQ(button->frameSize(), NbVec3f(295, 25, 1));
  EXPECT_EQ(button->framePlace(), NbVec3f(0, 0, 0));
}

TEST_F(PushButtonForm, ItsCaptionStandsInTheMiddleOfTheBody) {
  button->buttonLabel = "Jumping";
  button->build(300, 30);
  const NbBox3f box = button->captionBox();
  EXPECT_NEAR(button->captionPlace()[0], -box.getSize()[0] / 2, 1e-3);
  EXPECT_NEAR(button->captionPlace()[1], -(box.getMin()[1] + box.getMax()[1]) / 2, 1e-3);
  EXPECT_EQ(button->captionPlace()[2], 0);
  EXPECT_TRUE(button->captionTransform()->translation.getValue().equals(NbVec3f(0, 0, 2), 1e-5F));
  EXPECT_TRUE(button->captionTransform()->scaleFactor.getValue().equals(NbVec3f(1, 1, 1), 1e-5F));
}

TEST_F(PushButtonForm, WhatItsPropertiesShiftIsCentredInHeightAlone) {
  button->buttonLabel = "Jumping";
  const Ref<NkSeparator> properties = read("Group { Translation { translation 30 7 0 } }");
  ASSERT_TRUE(button->setPart("buttonLabelProp", properties->getChild(0)));
  button->build(300, 30);
  const NbBox3f box = button->captionBox();
  ASSERT_EQ(box.getMin()[0], 30);
  EXPECT_NEAR(button->captionPlace()[0], -(box.getMax()[0] - 30) / 2, 1e-3);
  EXPECT_NEAR(button->captionPlace()[1], -(box.getMin()[1] + box.getMax()[1]) / 2, 1e-3);
}

TEST_F(PushButtonForm, AnotherCaptionIsCentredAtTheNextBuild) {
  button->buttonLabel = "i";
  button->build(300, 30);
  const NbVec3f before = button->captionPlace();
  button->buttonLabel = "A longer caption";
  EXPECT_EQ(linesOf(button->caption()), "A longer caption");
  EXPECT_EQ(button->captionPlace(), before);
  button->build(300, 30);
  EXPECT_NEAR(button->captionPlace()[0], -button->captionBox().getSize()[0] / 2, 1e-3);
  EXPECT_LT(button->captionPlace()[0], before[0] - 10);
}

TEST_F(PushButtonForm, ItsLabelStandsAtTheLeftAsItsAlignmentSays) {
  button->label = "Name";
  button->labelArea = {81, 16};
  button->labelAlignment = NkPanelix::LEFT;
  button->build(301, 31);
  const NbBox3f box = button->labelBox();
  const int width = static_cast<int>(box.getSize()[0]);
  ASSERT_GT(width, 10);
  ASSERT_LT(width, 81);
  const float y = -(box.getMin()[1] + box.getMax()[1]) / 2;
  const auto expectAt = [&](float x) {
    button->change3DLabelAlignment();
    EXPECT_EQ(button->labelPlace()[0], x);
    EXPECT_NEAR(button->labelPlace()[1], y, 1e-3);
    EXPECT_EQ(button->labelPlace()[2], 0);
  };
  expectAt(3 - 150.5F);
  button->labelAlignment = NkPanelix::CENTER;
  expectAt(static_cast<float>(3 + (81 - width) / 2) - 150.5F);
  button->labelAlignment = NkPanelix::RIGHT;
  expectAt(static_cast<float>(3 + static_cast<int>(81 - box.getSize()[0])) - 150.5F);
}

TEST_F(PushButtonForm, ALabelWiderThanItsAreaStandsOutAtTheLeft) {
  button->label = "A name that is long";
  button->labelArea = {10, 16};
  button->build(300, 30);
  const float width = button->labelBox().getSize()[0];
  ASSERT_GT(width, 30);
  EXPECT_EQ(button->labelPlace()[0], static_cast<float>(3 + static_cast<int>(10 - width) - 150));
  button->labelAlignment = NkPanelix::CENTER;
  button->change3DLabelAlignment();
  EXPECT_EQ(button->labelPlace()[0], static_cast<float>(3 + (10 - static_cast<int>(width)) / 2 - 150));
}

TEST_F(PushButtonForm, ALabelThatIsHiddenGivesItsRoom) {
  button->build(300, 30);
  EXPECT_EQ(button->frameSize()[0], 300 - 6 - 42);
  button->labelVisibility = false;
  button->change3DLabelVisibility();
  EXPECT_EQ(button->chosen("labelSwitch"), NK_SWITCH_NONE);
  EXPECT_EQ(button->frameSize()[0], 294);
  button->labelVisibility = true;
  button->change3DLabelVisibility();
  EXPECT_EQ(button->chosen("labelSwitch"), NK_SWITCH_ALL);
  EXPECT_EQ(button->frameSize()[0], 300 - 6 - 42);

  const Ref<LoneButton> hidden(new LoneButton);
  hidden->labelVisibility = false;
  hidden->build(300, 30);
  EXPECT_EQ(hidden->chosen("labelSwitch"), NK_SWITCH_NONE);
}

TEST_F(PushButtonForm, TheEdgeMovesNothing) {
  for (const int edge : {NkDialogComponent::NONE, NkDialogComponent::SHADOW_IN, NkDialogComponent::SHADOW_OUT}) {
    const Ref<LoneButton> other(new LoneButton);
    other->edgeStyle = edge;
    other->build(300, 30);
    EXPECT_EQ(other->framePlace(), NbVec3f(21, 0, 0));
    EXPECT_EQ(other->frameSize(), NbVec3f(300 - 6 - 42, 24, 1));
    EXPECT_EQ(other->labelPlace()[0], 3 + 40 - 150);
    EXPECT_EQ(other->chosen("edgeStyleSwitch"), edge);
  }
}

// Fields

TEST_F(PushButtonForm, AChangeInASceneIsSeenByTheCaptionAlone) {
  button->label = "before";
  button->build(300, 30);
  int captions = 0;
  const OnWrite count(static_cast<NkText3*>(button->caption())->string, [&] { ++captions; });
  button->enable = false;
  EXPECT_EQ(button->pickStyle(), NkPickStyle::SHAPE);
  EXPECT_EQ(button->glow(), NbColor(0, 0, 0));
  button->label = "after";
  EXPECT_EQ(linesOf(button->labelText()), "before");
  const NbVec3f place = button->labelPlace();
  button->labelAlignment = NkPanelix::LEFT;
  EXPECT_EQ(button->labelPlace(), place);
  button->labelVisibility = false;
  EXPECT_EQ(button->chosen("labelSwitch"), NK_SWITCH_ALL);
  button->edgeStyle = NkDialogComponent::SHADOW_IN;
  EXPECT_EQ(button->chosen("edgeStyleSwitch"), NkDialogComponent::NONE);
  button->width = 500;
  NbVec2i32 size, min, max;
  button->getDefaultState(size, min, max);
  EXPECT_EQ(size[0], 0);
  EXPECT_EQ(captions, 6);
}

TEST_F(PushButtonForm, OutOfTheSceneTheBaseHearsOfChanges) {
  button->build(300, 30);
  button->setCanBeTraversed(0);
  int captions = 0;
  const OnWrite count(static_cast<NkText3*>(button->caption())->string, [&] { ++captions; });
  button->width = 500;
  button->buttonLabel = "other";
  NbVec2i32 size, min, max;
  button->getDefaultState(size, min, max);
  EXPECT_EQ(size[0], 500);
  EXPECT_EQ(captions, 0);
}

TEST_F(PushButtonForm, WithoutAFormAChangeIsJustThat) {
  button->buttonLabel = "text";
  button->label = "text";
  button->change3DLabel();
  button->change3DLabelAlignment();
  const Ref<NkGroup> geometry(new NkGroup);
  button->set3DPressedGeometry(geometry.get());
  button->set3DReleasedGeometry(geometry.get());
  EXPECT_FALSE(button->isBuilt3D());
  EXPECT_EQ(geometry->getRefCount(), 1);
}

// The user

TEST_F(PushButtonInScene, GoesDownAndUpAgain) {
  button->addAuditor(&listener);
  listener.react = [this] {
    EXPECT_EQ(button->chosen("frameSwitch"), kReleased);
    EXPECT_EQ(button->holderOf3D(), nullptr);
  };
  build();
  EXPECT_EQ(button->captionDepth(), 2);
  const float front = worldBoxOf(button->caption()).getMax()[2];
  press(button->part("frameSep"));
  EXPECT_EQ(button->chosen("frameSwitch"), kPressed);
  EXPECT_EQ(button->captionDepth(), 1);
  EXPECT_FLOAT_EQ(worldBoxOf(button->caption()).getMax()[2], front - 1);
  EXPECT_EQ(button->holderOf3D(), button);
  EXPECT_TRUE(listener.heard.empty());
  move(300, 300);
  EXPECT_EQ(button->chosen("frameSwitch"), kPressed);
  release();
  EXPECT_EQ(button->chosen("frameSwitch"), kReleased);
  EXPECT_EQ(button->captionDepth(), 2);
  EXPECT_FLOAT_EQ(worldBoxOf(button->caption()).getMax()[2], front);
  EXPECT_EQ(button->holderOf3D(), nullptr);
  // Wherever the pointer was.
  EXPECT_EQ(listener.heard, std::vector<NkPanelix*>{button});
}

TEST_F(PushButtonInScene, ItsCaptionIsPressedToo) {
  button->addAuditor(&listener);
  build();
  press(button->caption());
  EXPECT_EQ(button->chosen("frameSwitch"), kPressed);
  release();
  EXPECT_EQ(listener.heard.size(), 1U);
}

TEST_F(PushButtonInScene, ItsLabelAndItsEdgeAreNot) {
  button->addAuditor(&listener);
  build();
  for (NkNode* node : {button->labelText(), button->part("mainCptSeparator")}) {
    press(node);
    EXPECT_EQ(button->chosen("frameSwitch"), kReleased);
    EXPECT_EQ(button->holderOf3D(), nullptr);
    // Not even if the pointer comes to the button.
    const NbVec2i32 at = pixelOf(button->part("frameSep"));
    release(at[0], at[1]);
  }
  EXPECT_TRUE(listener.heard.empty());
}

TEST_F(PushButtonInScene, TakesNoPressWhileItIsDisabled) {
  button->enable = false;
  button->addAuditor(&listener);
  build();
  pressAtCentre();
  EXPECT_TRUE(listener.heard.empty());
  button->change3DWidgetEnable(1);
  pressAtCentre();
  EXPECT_TRUE(listener.heard.empty());
  button->enable = true;
  button->change3DWidgetEnable(1);
  pressAtCentre();
  EXPECT_EQ(listener.heard.size(), 1U);
}

TEST_F(PushButtonInScene, TakesTheInputFromAnother) {
  auto* holder = new Holder;
  panel->addChild(holder);
  build();
  holder->take();
  press(button->part("frameSep"));
  EXPECT_EQ(holder->told, 1);
  EXPECT_EQ(button->holderOf3D(), button);
  root->removeChild(panel);
  EXPECT_EQ(Button::holderOf3D(), nullptr);
}

TEST_F(PushButtonInScene, AGeometryGoesIntoThePlaceOfTheOtherState) {
  build();
  const Ref<NkSeparator> low = read("Group { Cube { } Translation { translation 0 0 3 } }");
  const Ref<NkSeparator> high = read("Group { Cube { } Translation { translation 0 0 7 } }");
  button->set3DPressedGeometry(low->getChild(0));
  button->set3DReleasedGeometry(high->getChild(0));
  EXPECT_EQ(button->group("frameSwitch")->getChild(kReleased), low->getChild(0));
  EXPECT_EQ(button->group("frameSwitch")->getChild(kPressed), high->getChild(0));
  EXPECT_EQ(button->group("frameSwitch")->getNumChildren(), 2);
  press(low->getChild(0));
  EXPECT_EQ(button->captionDepth(), 7);
  release();
  EXPECT_EQ(button->captionDepth(), 3);
}

// Auditors

TEST_F(PushButtonInScene, TellsItsAuditorsInOrderAndNobodyElse) {
  std::string order;
  PushButtonListener first([&] { order += "first "; });
  PushButtonListener second([&] { order += "second "; });
  DialogListener dialog([&] { order += "dialog "; });
  button->addAuditor(&first);
  button->addAuditor(&second);
  panel->addAuditor(&dialog);
  build();
  click(button->part("frameSep"));
  EXPECT_EQ(order, "first second ");
  button->removeAuditor(&first);
  click(button->part("frameSep"));
  EXPECT_EQ(order, "first second second ");
  button->removeAuditor(&second);
  click(button->part("frameSep"));
  EXPECT_EQ(order, "first second second dialog ");
  EXPECT_EQ(dialog.heard, std::vector<NkPanelix*>{button});
}

TEST_F(PushButtonInScene, APressThatNobodyListensToIsReported) {
  NkPreferences::setString("DEBUG_PANELIX_AUDITORS", "1");
  build();
  expectMessage(
      "NkDialogAuditor::dialogPushButton(): WARNING ! The DialogAuditor does not define the NkDialogPushButton "
      "component :\n\t\t -> label \"Name\"\n\t\t -> buttonLabel \"Press\"");
  click(button->part("frameSep"));
  NkPreferences::removeValue("DEBUG_PANELIX_AUDITORS");
}

TEST_F(PushButtonInScene, WithNobodyToTellItIsJustPressed) {
  auto* lone = new Button;
  root->replaceChild(panel, lone);
  boxOf(root.get());
  click(lone->part("frameSep"));
  EXPECT_EQ(lone->chosen("frameSwitch"), kReleased);
}

TEST_F(PushButtonInScene, AnAuditorMayChangeTheButton) {
  button->addAuditor(&listener);
  build();
  listener.react = [&] {
    button->buttonLabel = "Pressed";
    button->removeAuditor(&listener);
    panel->addChild(new NkDialogPushButton);
  };
  click(button->part("frameSep"));
  EXPECT_EQ(linesOf(button->caption()), "Pressed");
  EXPECT_EQ(panel->getNumChildren(), 2);
  click(button->part("frameSep"));
  EXPECT_EQ(listener.heard.size(), 1U);
}

TEST_F(PushButtonInScene, AnAuditorMayRemoveTheButton) {
  PushButtonListener second;
  button->addAuditor(&listener);
  button->addAuditor(&second);
  build();
  listener.react = [&] { panel->removeChild(button); };
  click(button->part("frameSep"));
  EXPECT_EQ(panel->getNumChildren(), 0);
  EXPECT_EQ(second.heard.size(), 1U);
}

TEST_F(PushButtonInScene, AnAuditorMayEndTheDialog) {
  DialogListener dialog([&] { root->removeChild(panel); });
  panel->addAuditor(&dialog);
  build();
  const int live = NkBase::getLiveCount();
  click(button->part("frameSep"));
  EXPECT_EQ(dialog.heard.size(), 1U);
  EXPECT_EQ(root->getNumChildren(), 2);
  EXPECT_LT(NkBase::getLiveCount(), live);
}
