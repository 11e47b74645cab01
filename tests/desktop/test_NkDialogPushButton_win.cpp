#include "Panelix/NkDialogPushButton.h"

#include "tests/desktop/ActingTest_win.h"
#include "tests/desktop/MessageLog_win.h"
#include "tests/dialog/Listeners.h"
#include "tests/dialog/OnWrite.h"

namespace {

constexpr int kReleased = 0;
constexpr int kPressed = 1;

class PushButtonWindow : public ActingTest {
protected:
  NkDialogPushButton* buildButton(const std::string& fields, NbVec2i32 size = NbVec2i32(0, 0)) {
    return build<NkDialogPushButton>("DialogPushButton { " + fields + " }", size);
  }
};

class Button : public Opened<NkDialogPushButton> {
public:
  void set3DInactive() override {
    ++inactive;
    NkDialogPushButton::set3DInactive();
  }
  int inactive = 0; ///< How often it has lost the 3D input.
};

/// A button that stands on the screen and in a scene.
class PushButtonTwice : public ActingTest {
protected:
  PushButtonTwice() {
    button->buttonLabel = "Press";
    button->label = "Name";
    dialog->width = 300;
    dialog->height = 150;
    dialog->addChild(button);
    button->addAuditor(&listener);
    openBoth(dialog);
  }
  HWND control() { return controlOf(button); }
  void send(UINT message) { SendMessageA(control(), message, 0, MAKELPARAM(5, 5)); }

  PushButtonListener listener;
  Opened<NkTopLevelDialog>* dialog = new Opened<NkTopLevelDialog>;
  Button* button = new Button;
};

} // namespace

TEST_F(PushButtonWindow, IsAButtonControl) {
  auto* button = buildButton("buttonLabel \"Press\\nme\"");
  const HWND control = controlOf(button);
  EXPECT_EQ(classOf(control), "Button");
  EXPECT_EQ(textOf(control), "Press\nme");
  EXPECT_EQ(styleOf(control), 0x52012000U);
  EXPECT_EQ(extendedStyleOf(control), 0U);
  EXPECT_EQ(GetParent(control), button->getWidget());
  EXPECT_EQ(GetWindowLongPtrA(control, GWLP_USERDATA), reinterpret_cast<LONG_PTR>(button));
  EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0)), NkPanelix::getPanelixFont());
}

TEST_F(PushButtonWindow, IsAsLargeAsItsTexts) {
  auto* button = buildButton("label \"Name\" buttonLabel \"Press\\nme\"");
  const NbVec2i32 caption = textSize("Press\nme");
  EXPECT_EQ(sizeOf(button->getWidget()), NbVec2i32(textSize("Name")[0] + 2 + caption[0] + 12, caption[1] + 12));
  auto* empty = buildButton("");
  EXPECT_EQ(empty->getComponentInitSize(), NbVec2i32(12, 12));
  EXPECT_EQ(sizeOf(empty->getWidget()), NbVec2i32(25, 25));
}

TEST_F(PushButtonWindow, ItsCaptionIsTheControlsText) {
  auto* button = buildButton("buttonLabel \"before\"");
  button->buttonLabel = "after\\nit";
  EXPECT_EQ(textOf(controlOf(button)), "after\nit");
  button->buttonLabel = NbString("caf\xE9");
  wchar_t text[20] = L"";
  GetWindowTextW(controlOf(button), text, 20);
  EXPECT_STREQ(text, L"caf\u00E9");
  button->destroyWidget();
  button->buttonLabel = "meanwhile";
  buildAgain(button);
  EXPECT_EQ(textOf(controlOf(button)), "meanwhile");
}

TEST_F(PushButtonWindow, EachButtonHasItsOwnComponent) {
  // The procedure ahead of the subclass is kept once for all.
  auto* first = buildButton("buttonLabel \"first\"");
  auto* second = buildButton("buttonLabel \"second\"");
  PushButtonListener listener;
  first->addAuditor(&listener);
  second->addAuditor(&listener);
  for (NkDialogPushButton* button : {first, second, first}) SendMessageA(controlOf(button), BM_CLICK, 0, 0);
  EXPECT_EQ(listener.heard, (std::vector<NkPanelix*>{first, second, first}));
}

// The order in which windows change

TEST_F(PushButtonWindow, IsEnabledFromTheFrameInwardsAndByItsParentOutwards) {
  auto* button = buildButton("");
  MessageLog log({{button->getWidget(), "frame"}, {button->getLabelWidget(), "label"}, {controlOf(button), "button"}},
                 {{WM_ENABLE, "enable"}});
  button->enable = FALSE;
  EXPECT_EQ(log.take(), "frame enable, label enable, button enable");
  button->enable = TRUE;
  log.take();
  button->changeWidgetEnable(0);
  EXPECT_EQ(log.take(), "label enable, button enable, frame enable");
}

TEST_F(PushButtonWindow, ItsEdgeChangesAheadOfThePlaces) {
  auto* button = buildButton("", NbVec2i32(100, 30));
  MessageLog log({{button->getWidget(), "frame"}, {button->getLabelWidget(), "label"}, {controlOf(button), "button"}},
                 {{WM_STYLECHANGED, "style"}, {WM_WINDOWPOSCHANGING, "place"}});
  button->edgeStyle = NkDialogComponent::SHADOW_IN;
  EXPECT_EQ(log.take(), "frame style, frame place, frame place, label place, button place");
}

// The user

TEST_F(PushButtonWindow, OnlyAClickCounts) {
  auto* button = buildButton("");
  PushButtonListener listener;
  button->addAuditor(&listener);
  for (const int code : {BN_SETFOCUS, BN_KILLFOCUS, BN_DOUBLECLICKED}) {
    SendMessageA(button->getWidget(), WM_COMMAND, MAKEWPARAM(0, code), reinterpret_cast<LPARAM>(controlOf(button)));
    button->eventNotify(code, 0);
  }
  EXPECT_TRUE(listener.heard.empty());
  SendMessageA(button->getWidget(), WM_COMMAND, MAKEWPARAM(0, BN_CLICKED), reinterpret_cast<LPARAM>(controlOf(button)));
  EXPECT_EQ(listener.heard, std::vector<NkPanelix*>{button});
}

TEST_F(PushButtonWindow, AClickTellsTheAuditorsAndTakesTheFocus) {
  auto* dialog = open("TopLevelDialog { position 100 100 DialogPushButton { auditorID \"first\" buttonLabel \"first\" }"
                      " RowDialog { DialogPushButton { auditorID \"second\" buttonLabel \"second\" } } }");
  auto* first = find<NkDialogPushButton>(dialog, "first");
  auto* second = find<NkDialogPushButton>(dialog, "second");
  DialogListener whole;
  PushButtonListener own;
  dialog->addAuditor(&whole);
  clickOn(controlOf(first));
  EXPECT_EQ(whole.heard, std::vector<NkPanelix*>{first});
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), controlOf(first));
  clickOn(controlOf(second));
  EXPECT_EQ(whole.heard, (std::vector<NkPanelix*>{first, second}));
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), controlOf(second));
  second->addAuditor(&own);
  clickOn(controlOf(second));
  EXPECT_EQ(whole.heard.size(), 2U);
  EXPECT_EQ(own.heard, std::vector<NkPanelix*>{second});
  // The focus is in the dialog when the auditors hear of it.
  own.react = [&] { EXPECT_EQ(dialog->getCurrentFocusedWidget(), controlOf(second)); };
  dialog->setCurrentFocusedWidget(nullptr);
  clickOn(controlOf(second));
  EXPECT_EQ(own.heard.size(), 2U);
}

TEST_F(PushButtonWindow, TheSpaceBarPressesIt) {
  auto* dialog = open("TopLevelDialog { position 100 100 DialogPushButton { auditorID \"first\" buttonLabel \"first\" }"
                      " DialogPushButton { auditorID \"second\" buttonLabel \"second\" } }");
  auto* first = find<NkDialogPushButton>(dialog, "first");
  auto* second = find<NkDialogPushButton>(dialog, "second");
  DialogListener whole;
  dialog->addAuditor(&whole);
  clickOn(controlOf(first));
  typeKeys("space");
  EXPECT_EQ(whole.heard, (std::vector<NkPanelix*>{first, first}));
  typeKeys("Tab");
  typeKeys("space");
  EXPECT_EQ(whole.heard, (std::vector<NkPanelix*>{first, first, second}));
}

TEST_F(PushButtonWindow, DisabledItTakesNoClick) {
  auto* dialog = open("TopLevelDialog { position 100 100 DialogPushButton { auditorID \"a\" buttonLabel \"press\" } }");
  auto* button = find<NkDialogPushButton>(dialog, "a");
  PushButtonListener listener;
  button->addAuditor(&listener);
  button->enable = FALSE;
  clickOn(controlOf(button));
  EXPECT_TRUE(listener.heard.empty());
  button->enable = TRUE;
  clickOn(controlOf(button));
  EXPECT_EQ(listener.heard.size(), 1U);
}

TEST_F(PushButtonWindow, AReleaseElsewhereIsNoClick) {
  auto* dialog = open("TopLevelDialog { position 100 100 DialogPushButton { auditorID \"a\" buttonLabel \"press\" } }");
  auto* button = find<NkDialogPushButton>(dialog, "a");
  PushButtonListener listener;
  button->addAuditor(&listener);
  pressOn(controlOf(button));
  EXPECT_TRUE(isPushed(controlOf(button)));
  releaseElsewhere();
  EXPECT_TRUE(listener.heard.empty());
}

// Both forms

TEST_F(PushButtonTwice, GoesDownInTheSceneWithTheMouseOnTheScreen) {
  pressOn(control());
  EXPECT_EQ(button->chosen("frameSwitch"), kPressed);
  EXPECT_TRUE(listener.heard.empty());
  EXPECT_TRUE(desktop::act("mouseup 1"));
  EXPECT_EQ(button->chosen("frameSwitch"), kReleased);
  EXPECT_EQ(listener.heard, std::vector<NkPanelix*>{button});
  clickOn(control());
  EXPECT_EQ(button->chosen("frameSwitch"), kReleased);
  EXPECT_EQ(listener.heard.size(), 2U);
}

TEST_F(PushButtonTwice, IsUpInTheSceneWhenTheAuditorsHear) {
  listener.react = [&] { EXPECT_EQ(button->chosen("frameSwitch"), kReleased); };
  clickOn(control());
  EXPECT_EQ(listener.heard.size(), 1U);
}

TEST_F(PushButtonTwice, GoesDownOnTheScreenWithAPressInTheScene) {
  listener.react = [&] {
    EXPECT_FALSE(isPushed(control()));
    EXPECT_EQ(button->inactive, 1);
  };
  scene.press(button->part("frameSep"));
  EXPECT_TRUE(isPushed(control()));
  scene.release();
  EXPECT_FALSE(isPushed(control()));
  EXPECT_EQ(button->chosen("frameSwitch"), kReleased);
  EXPECT_EQ(listener.heard, std::vector<NkPanelix*>{button});
  // A press on the label is none.
  scene.press(button->group("labelSwitch")->getChild(2));
  EXPECT_FALSE(isPushed(control()));
  scene.release();
  EXPECT_EQ(listener.heard.size(), 1U);
}

TEST_F(PushButtonTwice, OnlyAButtonAtRestTakesItsTwinDown) {
  SetFocus(nullptr);
  ASSERT_EQ(SendMessageA(control(), BM_GETSTATE, 0, 0), 0);
  send(WM_LBUTTONDOWN);
  EXPECT_EQ(button->chosen("frameSwitch"), kPressed);
  send(WM_LBUTTONUP);
  EXPECT_EQ(button->chosen("frameSwitch"), kReleased);
  // With the focus it is at rest, too.
  ASSERT_EQ(SendMessageA(control(), BM_GETSTATE, 0, 0), BST_FOCUS);
  send(WM_LBUTTONDOWN);
  EXPECT_EQ(button->chosen("frameSwitch"), kPressed);
  send(WM_LBUTTONUP);
  EXPECT_EQ(listener.heard.size(), 2U);
  SendMessageA(control(), BM_SETSTATE, TRUE, 0);
  send(WM_LBUTTONDOWN);
  EXPECT_EQ(button->chosen("frameSwitch"), kReleased);
  send(WM_LBUTTONUP);
}

TEST_F(PushButtonTwice, TheSpaceBarLeavesItsTwinUp) {
  clickOn(control());
  EXPECT_TRUE(desktop::act("keydown space"));
  EXPECT_EQ(button->chosen("frameSwitch"), kReleased);
  EXPECT_TRUE(desktop::act("keyup space"));
  EXPECT_EQ(button->chosen("frameSwitch"), kReleased);
  EXPECT_EQ(listener.heard.size(), 2U);
}

TEST_F(PushButtonTwice, ItsCaptionChangesInBoth) {
  button->buttonLabel = "Other\\none";
  EXPECT_EQ(textOf(control()), "Other\none");
  EXPECT_EQ(linesOf(button->group("buttonLabelSep")->getChild(2)), "Other|one");
}

TEST_F(PushButtonTwice, ItsCaptionChangesOnTheScreenAheadOfTheScene) {
  std::string onScreen;
  const OnWrite note(static_cast<NkText3*>(button->group("buttonLabelSep")->getChild(2))->string,
                     [&] { onScreen = textOf(control()); });
  button->buttonLabel = "Other";
  EXPECT_EQ(onScreen, "Other");
}

TEST_F(PushButtonTwice, InASceneNothingElseChangesOnTheScreen) {
  button->enable = FALSE;
  button->label = "other";
  button->labelVisibility = FALSE;
  EXPECT_TRUE(isEnabled(control()));
  EXPECT_EQ(textOf(button->getLabelWidget()), "Name");
  EXPECT_TRUE(isVisible(button->getLabelWidget()));
  button->setCanBeTraversed(0);
  button->labelVisibility = TRUE;
  button->label = "another";
  button->enable = TRUE;
  button->enable = FALSE;
  EXPECT_FALSE(isEnabled(control()));
  EXPECT_EQ(textOf(button->getLabelWidget()), "another");
}

TEST_F(PushButtonTwice, WithoutItsWindowsThePanelGoesOn) {
  button->destroyWidget();
  scene.click(button->part("frameSep"));
  EXPECT_EQ(listener.heard.size(), 1U);
  button->buttonLabel = "other";
  EXPECT_EQ(linesOf(button->group("buttonLabelSep")->getChild(2)), "other");
}

// Ends in the middle of things

TEST_F(PushButtonTwice, AnAuditorMayRemoveTheButton) {
  listener.react = [&] { dialog->removeChild(button); };
  const HWND frame = button->getWidget();
  clickOn(control());
  EXPECT_EQ(dialog->getNumChildren(), 0);
  EXPECT_FALSE(IsWindow(frame));
}

TEST_F(PushButtonTwice, AnAuditorMayEndTheDialog) {
  listener.react = [&] { scene.root->removeChild(dialog); };
  const HWND base = dialog->getBaseWidget();
  clickOn(control());
  EXPECT_FALSE(IsWindow(base));
  EXPECT_EQ(listener.heard.size(), 1U);
}

TEST_F(PushButtonTwice, AnAuditorMayEndTheDialogOfAPressInTheScene) {
  listener.react = [&] { scene.root->removeChild(dialog); };
  const HWND base = dialog->getBaseWidget();
  scene.click(button->part("frameSep"));
  EXPECT_FALSE(IsWindow(base));
}

TEST_F(PushButtonTwice, AnAuditorMayEndTheDialogOfAKey) {
  clickOn(control());
  listener.react = [&] { scene.root->removeChild(dialog); };
  const HWND base = dialog->getBaseWidget();
  typeKeys("space");
  EXPECT_FALSE(IsWindow(base));
}

TEST_F(PushButtonTwice, AnAuditorMayChangeTheTree) {
  auto* other = new NkDialogPushButton;
  const arbora::Ref<NkDialogPushButton> keep(other);
  listener.react = [&] {
    dialog->addChild(other);
    button->buttonLabel = "pressed";
    button->removeAuditor(&listener);
  };
  clickOn(control());
  EXPECT_EQ(textOf(control()), "pressed");
  EXPECT_TRUE(isVisible(controlOf(other)));
  clickOn(control());
  EXPECT_EQ(listener.heard.size(), 1U);
}
