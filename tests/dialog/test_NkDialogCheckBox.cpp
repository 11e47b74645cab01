#include "Panelix/NkDialogCheckBox.h"

#include "FormsTest.h"
#include "Listeners.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkScale.h"

using arbora::Ref;

namespace {

constexpr int kOff = 0;
constexpr int kOn = 1;

/// The nodes that a check box adds to its parts.
template <class Base>
class CheckBoxOf : public Base {
public:
  void set3DInactive() override {
    ++inactive;
    Base::set3DInactive();
  }
  NkNode* inGeometry(int index) { return this->group("geomSwitch")->getChild(index); }
  NkNode* labelText() { return this->group("labelSwitch")->getChild(2); }
  NbVec3f labelPlace() { return translationOf(this->group("labelSwitch")->getChild(0)); }
  NbVec3f frameSize() { return static_cast<NkScale*>(this->group("frameSep")->getChild(0))->scaleFactor.getValue(); }
  NbVec3f framePlace() { return translationOf(inGeometry(6)); }
  NkTransform* frontTransform() { return static_cast<NkTransform*>(inGeometry(8)); }
  NbVec3f markerPlace() { return translationOf(this->group("stateSep")->getChild(0)); }
  NbVec3f captionPlace() { return translationOf(this->group("onOffStringSep")->getChild(0)); }
  NkNode* captionText() { return this->group("onOffStringSep")->getChild(2); }
  std::string shownCaption() { return linesOf(captionText()); }
  int shownState() { return this->chosen("stateSwitch"); }

  int inactive = 0; ///< How often it has lost the 3D input.
};

using CheckBox = CheckBoxOf<Opened<NkDialogCheckBox>>;
using LoneCheckBox = CheckBoxOf<Alone<NkDialogCheckBox>>;

class CheckBoxForm : public FormsTest {
protected:
  const Ref<LoneCheckBox> box{new LoneCheckBox};
};

/// A check box in a panel.
class CheckBoxInScene : public PanelTest {
protected:
  CheckBoxInScene() {
    box->label = "Name";
    box->onString = "yes";
    box->offString = "no";
    panel->addChild(box);
  }
  /// A place on its frame.
  void clickAtCentre() {
    const Pixels frame = inPixels(worldBoxOf(box->part("frameSep")));
    click(static_cast<int>(frame[0] + frame[2] / 2), static_cast<int>(frame[1] + frame[3] / 2));
  }

  CheckBox* box = new CheckBox;
  CheckBoxListener listener;
};

} // namespace

TEST_F(DialogTest, TheBuiltInMarkerIsWhiteWhenOffAndBlackWhenOn) {
  const auto skin = read(NkDialogCheckBox::DialogCheckBox);
  ASSERT_TRUE(skin);
  ASSERT_EQ(skin->getNumChildren(), 3);
  EXPECT_EQ(skin->getChild(0)->getName(), NbName("DialogCheckBoxFrame"));
  EXPECT_EQ(skin->getChild(1)->getName(), NbName("DialogCheckBoxStateOff"));
  EXPECT_EQ(skin->getChild(2)->getName(), NbName("DialogCheckBoxStateOn"));
  const auto colourOf = [&](int part) {
    return static_cast<NkMaterial*>(static_cast<NkGroup*>(skin->getChild(part))->getChild(0))->diffuseColor[0];
  };
  EXPECT_EQ(colourOf(1), NbColor(1, 1, 1));
  EXPECT_EQ(colourOf(2), NbColor(0, 0, 0));
}

TEST_F(DialogTest, TheTextOfTheBuiltInCheckBox) {
  EXPECT_STREQ(NkDialogCheckBox::DialogCheckBox,
               "DEF DialogCheckBoxFrame Group {  Material { diffuseColor 0.7 0.7 0.7 }"
               "  Translation { translation 0 0 0.5 }  Cube { width 1 height 1 depth 1}"
               "  Translation { translation 0 0 0.5 }}"
               "DEF DialogCheckBoxStateOff Group {  Material { diffuseColor 1 1 1 }"
               "  Translation { translation 0 0 0.5 }  Cube { width 1 height 1 depth 1}}"
               "DEF DialogCheckBoxStateOn Group {   Material { diffuseColor 0 0 0 }"
               "  Translation { translation 0 0 0.5 }  Cube { width 1 height 1 depth 1}}");
}

// Sizes

TEST_F(CheckBoxForm, WithoutCaptionsThereIsRoomForTheBox) { EXPECT_EQ(box->getComponentInitSize(), NbVec2i32(26, 8)); }

TEST_F(CheckBoxForm, IsAsLargeAsTheLargerOfItsCaptions) {
  box->onString = "a long caption";
  box->offString = "two\\nlines";
  const NbVec2i32 on = NkPanelix::getLabelPixelSize("a long caption", nullptr);
  const NbVec2i32 off = NkPanelix::getLabelPixelSize("two\nlines", nullptr);
  ASSERT_GT(on[0], off[0]);
  ASSERT_LT(on[1], off[1]);
  EXPECT_EQ(box->getComponentInitSize(), NbVec2i32(on[0] + 26, off[1] + 8));
  // Measured once.
  box->onString = "";
  EXPECT_EQ(box->getComponentInitSize(), NbVec2i32(on[0] + 26, off[1] + 8));
  box->resetSize();
  EXPECT_EQ(box->getComponentInitSize(), NbVec2i32(off[0] + 26, off[1] + 8));
}

TEST_F(CheckBoxForm, AHiddenLabelIsTakenOffTheCaption) {
  box->labelVisibility = false;
  box->setLabelSize(box->labelArea);
  EXPECT_EQ(box->getComponentInitSize(), NbVec2i32(26 - 40, 8));
  box->resetSize();
  box->labelVisibility = true;
  box->setLabelSize(box->labelArea);
  EXPECT_EQ(box->getComponentInitSize(), NbVec2i32(26, 8));
}

TEST_F(CheckBoxForm, ItsDefaultHeightIsThatOfTheTallerCaption) {
  NbVec2i32 given(70, 5);
  box->setLabelSize(box->labelArea);
  box->setComponentSize(given);
  EXPECT_EQ(box->defaults().size, NbVec2i32(40 + 70 + 2, 5));
  EXPECT_EQ(box->defaults().min, NbVec2i32(25, 25));
  EXPECT_EQ(box->defaults().max, NbVec2i32(panelix::kUnbounded, panelix::kUnbounded));
  box->labelVisibility = false;
  EXPECT_EQ(box->defaults().size[0], 70);
  const int twoLines = NkPanelix::getLabelPixelSize("two\nlines", nullptr)[1] + 8;
  // Whichever it shows.
  for (NkSFString* tall : {&box->onString, &box->offString}) {
    box->onString = "one";
    box->offString = "one";
    *tall = "two\\nlines";
    box->resetSize();
    box->getComponentInitSize();
    box->setComponentSize(given);
    EXPECT_EQ(box->defaults().size[1], twoLines);
  }
  given[1] = 300;
  box->setComponentSize(given);
  EXPECT_EQ(box->defaults().size[1], 300);
}

// What it is made of

TEST_F(CheckBoxForm, IsMadeOfLabelFrameMarkerAndCaption) {
  box->label = "Na\\nme";
  box->offString = "not\\nset";
  box->build(300, 30);
  EXPECT_EQ(typesOf(box->group("geomSwitch")), "Material PickStyle Translation Separator Transform "
                                               "Separator Translation Separator Transform Separator Separator ");
  EXPECT_EQ(box->inGeometry(5), box->part("labelSep"));
  EXPECT_EQ(box->inGeometry(7), box->part("frameSep"));
  EXPECT_EQ(box->inGeometry(9), box->part("stateSep"));
  EXPECT_EQ(box->inGeometry(10), box->part("onOffStringSep"));
  EXPECT_EQ(typesOf(box->group("labelSep")), "Switch ");
  EXPECT_EQ(typesOf(box->group("labelSwitch")), "Translation Group Text3 ");
  EXPECT_EQ(typesOf(box->group("frameSep")), "Scale Group ");
  EXPECT_EQ(typesOf(box->group("stateSep")), "Translation Scale Switch ");
  EXPECT_EQ(typesOf(box->group("stateSwitch")), "Group Group ");
  EXPECT_EQ(typesOf(box->group("onOffStringSep")), "Translation Group Text3 ");
  EXPECT_EQ(box->part("frame")->getName(), "DialogCheckBoxFrame");
  EXPECT_EQ(box->group("stateSwitch")->getChild(kOff)->getName(), "DialogCheckBoxStateOff");
  EXPECT_EQ(box->group("stateSwitch")->getChild(kOn)->getName(), "DialogCheckBoxStateOn");
  EXPECT_EQ(box->group("labelSwitch")->getChild(1)->getName(), "DialogTextProperties");
  EXPECT_EQ(box->group("onOffStringSep")->getChild(1)->getName(), "DialogTextProperties");
  EXPECT_EQ(static_cast<NkScale*>(box->group("stateSep")->getChild(1))->scaleFactor.getValue(), NbVec3f(14, 14, 1));
  EXPECT_EQ(box->shownState(), kOff);
  EXPECT_EQ(box->chosen("labelSwitch"), NK_SWITCH_ALL);
  for (NkNode* text : {box->labelText(), box->captionText()})
    EXPECT_EQ(static_cast<NkText3*>(text)->parts.getValue(), NkText3::FRONT);
  EXPECT_EQ(linesOf(box->labelText()), "Na\nme");
  EXPECT_EQ(box->shownCaption(), "not|set");
}

TEST_F(CheckBoxForm, PartsAreMadeOnce) {
  box->build(300, 30);
  box->build(200, 30);
  EXPECT_EQ(box->group("geomSwitch")->getNumChildren(), 11);
  EXPECT_EQ(box->group("labelSwitch")->getNumChildren(), 3);
  EXPECT_EQ(box->group("frameSep")->getNumChildren(), 2);
  EXPECT_EQ(box->group("stateSep")->getNumChildren(), 3);
  EXPECT_EQ(box->group("onOffStringSep")->getNumChildren(), 3);
}

TEST_F(CheckBoxForm, PartsOfTheProgramStay) {
  for (const char* name : {"frame", "labelProp", "stateOff", "stateOn", "onOffStringProp"}) {
    const Ref<NkGroup> own(new NkGroup);
    const Ref<LoneCheckBox> other(new LoneCheckBox);
    ASSERT_TRUE(other->setPart(name, own.get()));
    other->build(300, 30);
    EXPECT_EQ(other->part(name), own.get()) << name;
  }
}

// Where it stands

TEST_F(CheckBoxForm, ItsFrameFillsTheAreaRightOfTheLabel) {
  box->labelArea[0] = 41;
  box->build(301, 31);
  EXPECT_EQ(box->frameSize(), NbVec3f(301 - 6 - 41 - 2, 25, 1));
  // Other than a button's, to the half of a pixel.
  EXPECT_EQ(box->framePlace(), NbVec3f(21.5F, 0, 0));
  EXPECT_TRUE(box->frontTransform()->translation.getValue().equals(NbVec3f(0, 0, 1), 1e-5F));
  EXPECT_TRUE(box->frontTransform()->scaleFactor.getValue().equals(NbVec3f(1, 1, 1), 1e-5F));
  EXPECT_EQ(box->markerPlace(), NbVec3f(-126 + 10, 0, 0));
  EXPECT_EQ(box->captionPlace()[0], -126 + 20);
  box->labelArea[0] = 40;
  box->build(301, 31);
  EXPECT_EQ(box->framePlace(), NbVec3f(21, 0, 0));
  EXPECT_EQ(box->markerPlace(), NbVec3f(-126.5F + 10, 0, 0));
  EXPECT_EQ(box->captionPlace()[0], -126.5F + 20);
}

TEST_F(CheckBoxForm, ItsCaptionStandsAtHalfHeight) {
  box->onString = "Jumping";
  box->build(300, 30);
  const NbBox3f text = boxOfText(box->part("onOffStringProp"), box->captionText());
  EXPECT_NEAR(box->captionPlace()[1], -(text.getMin()[1] + text.getMax()[1]) / 2, 1e-3);
  EXPECT_EQ(box->captionPlace()[2], 0);
  // Another caption comes to its height at the next build.
  const NbVec3f before = box->captionPlace();
  box->onString = "two\\nlines";
  EXPECT_EQ(box->captionPlace(), before);
  box->build(300, 30);
  EXPECT_GT(box->captionPlace()[1], before[1] + 3);
}

TEST_F(CheckBoxForm, ItsLabelFollowsItsFields) {
  box->label = "Name";
  box->labelArea = {80, 16};
  box->build(300, 30);
  const NbBox3f text = boxOfText(box->part("labelProp"), box->labelText());
  EXPECT_EQ(box->labelPlace()[0], static_cast<float>(3 + static_cast<int>(80 - text.getSize()[0]) - 150));
  EXPECT_NEAR(box->labelPlace()[1], -(text.getMin()[1] + text.getMax()[1]) / 2, 1e-3);
  box->labelAlignment = NkPanelix::LEFT;
  EXPECT_EQ(box->labelPlace()[0], 3 - 150);
  box->labelAlignment = NkPanelix::CENTER;
  EXPECT_EQ(box->labelPlace()[0], static_cast<float>(3 + (80 - static_cast<int>(text.getSize()[0])) / 2 - 150));
  box->label = "Other\\nname";
  EXPECT_EQ(linesOf(box->labelText()), "Other\nname");
  // Another text is measured anew.
  const float width = boxOfText(box->part("labelProp"), box->labelText()).getSize()[0];
  ASSERT_GT(width, text.getSize()[0] + 10);
  box->labelAlignment = NkPanelix::RIGHT;
  EXPECT_EQ(box->labelPlace()[0], static_cast<float>(3 + static_cast<int>(80 - width) - 150));
}

TEST_F(CheckBoxForm, ALabelThatIsHiddenGivesItsRoom) {
  box->build(300, 30);
  EXPECT_EQ(box->frameSize()[0], 300 - 6 - 42);
  box->labelVisibility = false;
  EXPECT_EQ(box->chosen("labelSwitch"), NK_SWITCH_NONE);
  EXPECT_EQ(box->frameSize()[0], 294);
  EXPECT_EQ(box->framePlace()[0], 0);
  EXPECT_EQ(box->markerPlace()[0], -147 + 10);
  EXPECT_EQ(box->captionPlace()[0], -147 + 20);
  box->labelVisibility = true;
  EXPECT_EQ(box->chosen("labelSwitch"), NK_SWITCH_ALL);
  EXPECT_EQ(box->frameSize()[0], 300 - 6 - 42);
}

TEST_F(CheckBoxForm, TheEdgeMovesNothing) {
  box->build(300, 30);
  for (const int edge : {NkDialogComponent::SHADOW_IN, NkDialogComponent::SHADOW_OUT, NkDialogComponent::NONE}) {
    box->edgeStyle = edge;
    EXPECT_EQ(box->chosen("edgeStyleSwitch"), edge);
    box->build(300, 30);
    EXPECT_EQ(box->framePlace(), NbVec3f(21, 0, 0));
    EXPECT_EQ(box->frameSize(), NbVec3f(300 - 6 - 42, 24, 1));
  }
}

// Fields

TEST_F(CheckBoxForm, ShowsTheCaptionOfItsState) {
  box->onString = "yes";
  box->build(300, 30);
  EXPECT_EQ(box->shownCaption(), "yes");
  box->offString = "no";
  EXPECT_EQ(box->shownCaption(), "no");
  box->state = true;
  EXPECT_EQ(box->shownCaption(), "yes");
  EXPECT_EQ(box->shownState(), kOn);
  box->offString = "never";
  EXPECT_EQ(box->shownCaption(), "yes");
  box->onString = "always";
  EXPECT_EQ(box->shownCaption(), "always");
  box->state = false;
  EXPECT_EQ(box->shownCaption(), "never");
  EXPECT_EQ(box->shownState(), kOff);
  box->offString = "";
  EXPECT_EQ(box->shownCaption(), "always");
}

TEST_F(CheckBoxForm, IsBuiltInItsState) {
  box->state = true;
  box->onString = "yes";
  box->offString = "no";
  box->build(300, 30);
  EXPECT_EQ(box->shownState(), kOn);
  EXPECT_EQ(box->shownCaption(), "yes");
}

TEST_F(CheckBoxForm, TheBaseHearsOfTheOtherFields) {
  box->build(300, 30);
  box->enable = false;
  EXPECT_EQ(box->pickStyle(), NkPickStyle::UNPICKABLE);
  EXPECT_EQ(box->glow(), NbColor(0.5F, 0.5F, 0.5F));
  box->width = 500;
  NbVec2i32 size, min, max;
  box->getDefaultState(size, min, max);
  EXPECT_EQ(size[0], 500);
}

TEST_F(CheckBoxForm, OutOfTheSceneItShowsNoChange) {
  box->onString = "yes";
  box->offString = "no";
  box->build(300, 30);
  box->setCanBeTraversed(0);
  box->state = true;
  box->offString = "never";
  EXPECT_EQ(box->shownState(), kOff);
  EXPECT_EQ(box->shownCaption(), "no");
}

TEST_F(CheckBoxForm, WithoutAFormAChangeIsJustThat) {
  box->state = true;
  box->onString = "yes";
  box->label = "text";
  box->change3DLabel();
  box->change3DLabelAlignment();
  EXPECT_FALSE(box->isBuilt3D());
}

TEST_F(CheckBoxForm, KeepsItsStateWithoutAForm) {
  box->state = true;
  box->build(300, 30);
  box->destroyWidget();
  EXPECT_TRUE(box->state.getValue());
  box->build(300, 30);
  EXPECT_EQ(box->shownState(), kOn);
}

// The user

TEST_F(CheckBoxInScene, ChangesItsStateAtTheRelease) {
  box->addAuditor(&listener);
  build();
  std::string seen;
  listener.react = [&] {
    seen = std::to_string(box->state.getValue()) + std::to_string(box->shownState()) + box->shownCaption();
    // It held the input for the press alone.
    EXPECT_EQ(box->holderOf3D(), nullptr);
    EXPECT_EQ(box->inactive, 1);
  };
  press(box->part("frameSep"));
  EXPECT_FALSE(box->state.getValue());
  EXPECT_EQ(box->shownState(), kOff);
  EXPECT_EQ(box->holderOf3D(), nullptr);
  EXPECT_TRUE(listener.heard.empty());
  release();
  EXPECT_EQ(seen, "11yes");
  EXPECT_EQ(listener.heard, std::vector<NkPanelix*>{box});
  box->inactive = 0;
  // It has given the input up ahead of its change.
  const OnWrite change(box->state, [&] { EXPECT_EQ(box->inactive, 1); });
  click(box->part("frameSep"));
  EXPECT_EQ(seen, "00no");
  EXPECT_EQ(listener.heard.size(), 2U);
}

TEST_F(CheckBoxInScene, ItsMarkerAndItsCaptionArePressedToo) {
  box->addAuditor(&listener);
  build();
  click(box->part("stateSep"));
  EXPECT_TRUE(box->state.getValue());
  click(box->part("stateSep"));
  EXPECT_FALSE(box->state.getValue());
  click(box->captionText());
  EXPECT_TRUE(box->state.getValue());
  EXPECT_EQ(listener.heard.size(), 3U);
}

TEST_F(CheckBoxInScene, ItsLabelAndItsEdgeAreNot) {
  box->addAuditor(&listener);
  build();
  for (NkNode* node : {box->labelText(), box->part("mainCptSeparator")}) {
    press(node);
    const NbVec2i32 at = pixelOf(box->part("stateSep"));
    release(at[0], at[1]);
    EXPECT_FALSE(box->state.getValue());
  }
  EXPECT_EQ(box->inactive, 0);
  EXPECT_TRUE(listener.heard.empty());
}

TEST_F(CheckBoxInScene, TakesNoPressWhileItIsDisabled) {
  box->enable = false;
  box->addAuditor(&listener);
  build();
  clickAtCentre();
  EXPECT_TRUE(listener.heard.empty());
  box->enable = true;
  clickAtCentre();
  EXPECT_EQ(listener.heard.size(), 1U);
  box->enable = false;
  clickAtCentre();
  EXPECT_EQ(listener.heard.size(), 1U);
}

TEST_F(CheckBoxInScene, TakesTheInputFromAnother) {
  auto* holder = new Holder;
  panel->addChild(holder);
  build();
  holder->take();
  click(box->part("frameSep"));
  EXPECT_EQ(holder->told, 1);
  EXPECT_EQ(box->holderOf3D(), nullptr);
}

TEST_F(CheckBoxInScene, TheProgramTellsNoAuditor) {
  DialogListener dialog;
  panel->addAuditor(&dialog);
  box->addAuditor(&listener);
  build();
  box->state = true;
  EXPECT_EQ(box->shownState(), kOn);
  box->removeAuditor(&listener);
  box->state = false;
  box->onString = "other";
  EXPECT_TRUE(listener.heard.empty());
  EXPECT_TRUE(dialog.heard.empty());
}

TEST_F(CheckBoxInScene, OutOfTheSceneAPressChangesTheFieldAlone) {
  box->addAuditor(&listener);
  build();
  box->setCanBeTraversed(0);
  click(box->part("frameSep"));
  EXPECT_TRUE(box->state.getValue());
  EXPECT_EQ(box->shownState(), kOff);
  EXPECT_EQ(box->shownCaption(), "no");
  EXPECT_EQ(listener.heard.size(), 1U);
}

// Auditors

TEST_F(CheckBoxInScene, TellsItsAuditorsInOrderAndNobodyElse) {
  std::string order;
  CheckBoxListener first([&] { order += "first "; });
  CheckBoxListener second([&] { order += "second "; });
  DialogListener dialog([&] { order += "dialog "; });
  box->addAuditor(&first);
  box->addAuditor(&second);
  panel->addAuditor(&dialog);
  build();
  click(box->part("frameSep"));
  EXPECT_EQ(order, "first second ");
  box->removeAuditor(&first);
  box->removeAuditor(&second);
  click(box->part("frameSep"));
  EXPECT_EQ(order, "first second dialog ");
  EXPECT_EQ(dialog.heard, std::vector<NkPanelix*>{box});
}

TEST_F(CheckBoxInScene, WithNobodyToTellItChangesAllTheSame) {
  auto* lone = new CheckBox;
  root->replaceChild(panel, lone);
  boxOf(root.get());
  click(lone->part("frameSep"));
  EXPECT_TRUE(lone->state.getValue());
  EXPECT_EQ(lone->shownState(), kOn);
}

TEST_F(CheckBoxInScene, AnAuditorMayTurnTheStateBack) {
  box->addAuditor(&listener);
  build();
  listener.react = [&] {
    box->state = false;
    box->offString = "not now";
  };
  click(box->part("frameSep"));
  EXPECT_EQ(box->shownState(), kOff);
  EXPECT_EQ(box->shownCaption(), "not now");
  EXPECT_EQ(listener.heard.size(), 1U);
}

TEST_F(CheckBoxInScene, AnAuditorMayRemoveTheBox) {
  CheckBoxListener second;
  box->addAuditor(&listener);
  box->addAuditor(&second);
  build();
  listener.react = [&] { panel->removeChild(box); };
  click(box->part("frameSep"));
  EXPECT_EQ(panel->getNumChildren(), 0);
  EXPECT_EQ(second.heard.size(), 1U);
}

TEST_F(CheckBoxInScene, AnAuditorMayEndTheDialog) {
  DialogListener dialog([&] { root->removeChild(panel); });
  panel->addAuditor(&dialog);
  build();
  const int live = NkBase::getLiveCount();
  click(box->part("frameSep"));
  EXPECT_EQ(dialog.heard.size(), 1U);
  EXPECT_EQ(root->getNumChildren(), 2);
  EXPECT_LT(NkBase::getLiveCount(), live);
}

TEST_F(CheckBoxInScene, MayGoInsideTheWriteOfItsState) {
  build();
  {
    const OnWrite gone(box->state, [&] { panel->removeChild(box); });
    click(box->part("frameSep"));
  }
  EXPECT_EQ(panel->getNumChildren(), 0);
}
