#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkRowDialog.h"

#include "tests/desktop/ActingTest_win.h"
#include "tests/desktop/MessageLog_win.h"
#include "tests/dialog/Listeners.h"
#include "tests/dialog/OnWrite.h"

namespace {

class CheckBoxWindow : public ActingTest {
protected:
  NkDialogCheckBox* buildBox(const std::string& fields, NbVec2i32 size = NbVec2i32(0, 0)) {
    return build<NkDialogCheckBox>("DialogCheckBox { " + fields + " }", size);
  }
  /// As a user's click does.
  static void clickWindow(NkDialogCheckBox* box) { SendMessageA(controlOf(box), BM_CLICK, 0, 0); }
};

/// A check box that stands on the screen and in a scene.
class CheckBoxTwice : public ActingTest {
protected:
  CheckBoxTwice() {
    box->label = "Name";
    box->onString = "yes";
    box->offString = "no";
    dialog->width = 300;
    dialog->height = 150;
    dialog->addChild(box);
    box->addAuditor(&listener);
    openBoth(dialog);
  }
  HWND control() { return controlOf(box); }
  /// All that shows the state says the same.
  void expectState(bool isOn) {
    EXPECT_EQ(box->state.getValue(), isOn);
    EXPECT_EQ(isChecked(control()), isOn);
    EXPECT_EQ(box->chosen("stateSwitch"), isOn);
    EXPECT_EQ(textOf(control()), isOn ? "yes" : "no");
    EXPECT_EQ(linesOf(box->group("onOffStringSep")->getChild(2)), isOn ? "yes" : "no");
  }

  CheckBoxListener listener;
  Opened<NkTopLevelDialog>* dialog = new Opened<NkTopLevelDialog>;
  Opened<NkDialogCheckBox>* box = new Opened<NkDialogCheckBox>;
};

} // namespace

TEST_F(CheckBoxWindow, IsAButtonControlWithABox) {
  auto* box = buildBox("onString \"yes\"");
  const HWND control = controlOf(box);
  EXPECT_EQ(classOf(control), "Button");
  EXPECT_EQ(textOf(control), "yes");
  EXPECT_EQ(styleOf(control), 0x42012003U | WS_VISIBLE);
  EXPECT_EQ(extendedStyleOf(control), 0U);
  EXPECT_EQ(GetParent(control), box->getWidget());
  EXPECT_EQ(GetWindowLongPtrA(control, GWLP_USERDATA), reinterpret_cast<LONG_PTR>(box));
  EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0)), NkPanelix::getPanelixFont());
  EXPECT_FALSE(isChecked(control));
}

TEST_F(CheckBoxWindow, IsMadeInItsState) {
  auto* on = buildBox("state TRUE onString \"y\\nes\" offString \"no\"");
  EXPECT_TRUE(isChecked(controlOf(on)));
  EXPECT_EQ(textOf(controlOf(on)), "y\nes");
  auto* off = buildBox("onString \"yes\" offString \"no\"");
  EXPECT_FALSE(isChecked(controlOf(off)));
  EXPECT_EQ(textOf(controlOf(off)), "no");
}

TEST_F(CheckBoxWindow, IsAsLargeAsItsTexts) {
  auto* box = buildBox("label \"Name\" onString \"a long caption\" offString \"two\\nlines\\nor more\"");
  const int width = textSize("a long caption")[0];
  ASSERT_GT(width, textSize("two\nlines\nor more")[0]);
  EXPECT_EQ(sizeOf(box->getWidget()),
            NbVec2i32(textSize("Name")[0] + 2 + width + 26, textSize("two\nlines\nor more")[1] + 8));
}

TEST_F(CheckBoxWindow, ShowsTheCaptionOfItsState) {
  auto* box = buildBox("onString \"yes\"");
  const HWND control = controlOf(box);
  EXPECT_EQ(textOf(control), "yes");
  box->offString = "n\\no";
  EXPECT_EQ(textOf(control), "n\no");
  box->state = TRUE;
  EXPECT_EQ(textOf(control), "yes");
  EXPECT_TRUE(isChecked(control));
  box->offString = "never";
  EXPECT_EQ(textOf(control), "yes");
  box->onString = "always";
  EXPECT_EQ(textOf(control), "always");
  box->state = FALSE;
  EXPECT_EQ(textOf(control), "never");
  EXPECT_FALSE(isChecked(control));
  box->offString = "";
  EXPECT_EQ(textOf(control), "always");
}

TEST_F(CheckBoxWindow, AClickToOffEndsWithTheOnlyCaption) {
  auto* box = buildBox("onString \"yes\"");
  MessageLog log({{controlOf(box), "box"}}, {{WM_SETTEXT, "text"}});
  clickWindow(box);
  EXPECT_EQ(log.take(), "box text 'yes', box text 'yes'");
  clickWindow(box);
  EXPECT_FALSE(box->state.getValue());
  EXPECT_EQ(log.take(), "box text '', box text 'yes'");
  EXPECT_EQ(textOf(controlOf(box)), "yes");
}

TEST_F(CheckBoxWindow, AWriteOfTheStateChecksItAheadOfItsCaption) {
  auto* box = buildBox("onString \"yes\" offString \"no\"");
  MessageLog log({{controlOf(box), "box"}}, {{BM_SETCHECK, "check"}, {WM_SETTEXT, "text"}});
  box->state = TRUE;
  EXPECT_EQ(log.take(), "box check, box text 'yes', box text 'yes'");
}

TEST_F(CheckBoxWindow, ItsStateOutlivesItsWindows) {
  auto* box = buildBox("onString \"yes\" offString \"no\"");
  clickWindow(box);
  box->destroyWidget();
  EXPECT_TRUE(box->state.getValue());
  buildAgain(box);
  EXPECT_TRUE(isChecked(controlOf(box)));
  EXPECT_EQ(textOf(controlOf(box)), "yes");
  box->destroyWidget();
  box->state = FALSE;
  box->onString = "other";
  buildAgain(box);
  EXPECT_FALSE(isChecked(controlOf(box)));
  clickWindow(box);
  EXPECT_EQ(textOf(controlOf(box)), "other");
}

TEST_F(CheckBoxWindow, TheProgramTellsNoAuditor) {
  const arbora::Ref<NkRowDialog> row(new NkRowDialog);
  auto* box = new NkDialogCheckBox;
  row->addChild(box);
  buildAgain(row.get());
  CheckBoxListener own;
  DialogListener parents;
  box->addAuditor(&own);
  row->addAuditor(&parents);
  box->state = TRUE;
  box->state = FALSE;
  EXPECT_TRUE(own.heard.empty());
  EXPECT_TRUE(parents.heard.empty());
  clickWindow(box);
  EXPECT_EQ(own.heard, std::vector<NkPanelix*>{box});
  box->removeAuditor(&own);
  clickWindow(box);
  EXPECT_EQ(parents.heard, std::vector<NkPanelix*>{box});
}

TEST_F(CheckBoxWindow, EachBoxHasItsOwnComponent) {
  auto* first = buildBox("onString \"first\"");
  auto* second = buildBox("onString \"second\"");
  clickWindow(first);
  EXPECT_TRUE(first->state.getValue());
  EXPECT_FALSE(second->state.getValue());
  clickWindow(second);
  clickWindow(first);
  EXPECT_FALSE(first->state.getValue());
  EXPECT_TRUE(second->state.getValue());
}

TEST_F(CheckBoxWindow, OnlyAClickCounts) {
  auto* box = buildBox("");
  CheckBoxListener listener;
  box->addAuditor(&listener);
  SendMessageA(controlOf(box), BM_SETCHECK, BST_CHECKED, 0);
  for (const int code : {BN_SETFOCUS, BN_KILLFOCUS, BN_DOUBLECLICKED}) {
    SendMessageA(box->getWidget(), WM_COMMAND, MAKEWPARAM(0, code), reinterpret_cast<LPARAM>(controlOf(box)));
    box->eventNotify(code, 0);
  }
  EXPECT_TRUE(listener.heard.empty());
  EXPECT_FALSE(box->state.getValue());
  SendMessageA(box->getWidget(), WM_COMMAND, MAKEWPARAM(0, BN_CLICKED), reinterpret_cast<LPARAM>(controlOf(box)));
  EXPECT_TRUE(box->state.getValue());
}

// The order in which windows change

TEST_F(CheckBoxWindow, IsEnabledOutwards) {
  auto* box = buildBox("");
  MessageLog log({{box->getWidget(), "frame"}, {box->getLabelWidget(), "label"}, {controlOf(box), "box"}},
                 {{WM_ENABLE, "enable"}});
  box->enable = FALSE;
  EXPECT_EQ(log.take(), "label enable, box enable, frame enable");
  box->enable = TRUE;
  log.take();
  box->changeWidgetEnable(0);
  EXPECT_EQ(log.take(), "label enable, box enable, frame enable");
}

TEST_F(CheckBoxWindow, ItsEdgeChangesBehindThePlaces) {
  auto* box = buildBox("", NbVec2i32(100, 30));
  MessageLog log({{box->getWidget(), "frame"}, {box->getLabelWidget(), "label"}, {controlOf(box), "box"}},
                 {{WM_STYLECHANGED, "style"}, {WM_WINDOWPOSCHANGING, "place"}});
  box->edgeStyle = NkDialogComponent::SHADOW_IN;
  EXPECT_EQ(log.take(), "label place, box place, frame style, frame place, frame place");
}

// The user

TEST_F(CheckBoxWindow, AClickHasTheFocusAheadOfTheAuditors) {
  auto* dialog = open("TopLevelDialog { position 100 100 DialogCheckBox { } DialogCheckBox { auditorID \"box\" } }");
  auto* box = find<NkDialogCheckBox>(dialog, "box");
  const auto expectFocus = [&] {
    EXPECT_EQ(GetFocus(), controlOf(box));
    EXPECT_EQ(dialog->getCurrentFocusedWidget(), controlOf(box));
  };
  CheckBoxListener listener(expectFocus);
  box->addAuditor(&listener);
  SetFocus(nullptr);
  box->eventNotify(BN_CLICKED, 0);
  EXPECT_EQ(listener.heard.size(), 1U);
  expectFocus();
}

TEST_F(CheckBoxWindow, AClickChangesTheStateAndTakesTheFocus) {
  auto* dialog =
      open("TopLevelDialog { position 100 100 DialogCheckBox { auditorID \"first\" onString \"yes\" offString \"no\" }"
           " RowDialog { DialogCheckBox { auditorID \"second\" onString \"second\" } } }");
  auto* first = find<NkDialogCheckBox>(dialog, "first");
  auto* second = find<NkDialogCheckBox>(dialog, "second");
  DialogListener whole;
  dialog->addAuditor(&whole);
  clickOn(controlOf(first));
  EXPECT_TRUE(first->state.getValue());
  EXPECT_EQ(textOf(controlOf(first)), "yes");
  EXPECT_EQ(GetFocus(), controlOf(first));
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), controlOf(first));
  clickOn(controlOf(second));
  EXPECT_EQ(GetFocus(), controlOf(second));
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), controlOf(second));
  clickOn(controlOf(first));
  EXPECT_FALSE(first->state.getValue());
  EXPECT_EQ(textOf(controlOf(first)), "no");
  EXPECT_EQ(whole.heard, (std::vector<NkPanelix*>{first, second, first}));
}

TEST_F(CheckBoxWindow, TheSpaceBarChangesTheState) {
  auto* dialog = open("TopLevelDialog { position 100 100 DialogCheckBox { auditorID \"first\" onString \"first\" }"
                      " DialogCheckBox { auditorID \"second\" onString \"second\" } }");
  auto* first = find<NkDialogCheckBox>(dialog, "first");
  auto* second = find<NkDialogCheckBox>(dialog, "second");
  clickOn(controlOf(first));
  typeKeys("space");
  EXPECT_FALSE(first->state.getValue());
  typeKeys("Tab");
  typeKeys("space");
  EXPECT_FALSE(first->state.getValue());
  EXPECT_TRUE(second->state.getValue());
}

TEST_F(CheckBoxWindow, DisabledItTakesNoClick) {
  auto* dialog = open("TopLevelDialog { position 100 100 DialogCheckBox { auditorID \"a\" onString \"box\" } }");
  auto* box = find<NkDialogCheckBox>(dialog, "a");
  box->enable = FALSE;
  clickOn(controlOf(box));
  EXPECT_FALSE(box->state.getValue());
  EXPECT_FALSE(isChecked(controlOf(box)));
  box->enable = TRUE;
  clickOn(controlOf(box));
  EXPECT_TRUE(box->state.getValue());
}

// Both forms

TEST_F(CheckBoxTwice, AClickOnTheScreenShowsInTheScene) {
  listener.react = [&] { expectState(box->state.getValue()); };
  expectState(false);
  clickOn(control());
  expectState(true);
  typeKeys("space");
  expectState(false);
  EXPECT_EQ(listener.heard.size(), 2U);
}

TEST_F(CheckBoxTwice, APressInTheSceneShowsOnTheScreen) {
  listener.react = [&] { expectState(box->state.getValue()); };
  scene.press(box->part("frameSep"));
  EXPECT_FALSE(isPushed(control()));
  expectState(false);
  scene.release();
  expectState(true);
  scene.click(box->part("stateSep"));
  expectState(false);
  scene.click(box->group("labelSwitch")->getChild(2));
  expectState(false);
  EXPECT_EQ(listener.heard.size(), 2U);
}

TEST_F(CheckBoxTwice, TheProgramShowsInBoth) {
  box->state = TRUE;
  expectState(true);
  box->state = FALSE;
  expectState(false);
  box->enable = FALSE;
  EXPECT_FALSE(isEnabled(control()));
  EXPECT_EQ(box->pickStyle(), NkPickStyle::UNPICKABLE);
  EXPECT_TRUE(listener.heard.empty());
}

TEST_F(CheckBoxTwice, TheScreenChangesAheadOfTheScene) {
  std::string onScreen;
  const OnWrite note(static_cast<NkText3*>(box->group("onOffStringSep")->getChild(2))->string,
                     [&] { onScreen += textOf(control()) + " "; });
  box->offString = "never";
  EXPECT_EQ(onScreen, "never ");
  onScreen.clear();
  box->state = TRUE;
  EXPECT_EQ(onScreen, "yes yes yes ");
}

TEST_F(CheckBoxTwice, OutOfTheSceneOnlyTheScreenChanges) {
  box->setCanBeTraversed(0);
  clickOn(control());
  EXPECT_TRUE(box->state.getValue());
  EXPECT_EQ(box->chosen("stateSwitch"), 0);
  EXPECT_EQ(textOf(control()), "yes");
  EXPECT_EQ(linesOf(box->group("onOffStringSep")->getChild(2)), "no");
}

TEST_F(CheckBoxTwice, AClickIsOneWriteOfTheState) {
  int writes = 0;
  NkFieldSensor sensor([](void* data, NkSensor*) { ++*static_cast<int*>(data); }, &writes);
  sensor.setPriority(0);
  sensor.attach(&box->state);
  clickOn(control());
  EXPECT_EQ(writes, 1);
  scene.click(box->part("frameSep"));
  EXPECT_EQ(writes, 2);
  box->state = TRUE;
  EXPECT_EQ(writes, 3);
  expectState(true);
}

// Changes and ends in the middle of things

TEST_F(CheckBoxTwice, AnAuditorThatTurnsTheStateBackIsNotSeenUntilTheNextWrite) {
  // The sensor hears nothing until the click is over.
  listener.react = [&] { box->state = FALSE; };
  clickOn(control());
  EXPECT_FALSE(box->state.getValue());
  EXPECT_TRUE(isChecked(control()));
  // In the scene it hears.
  scene.click(box->part("frameSep"));
  expectState(false);
}

TEST_F(CheckBoxTwice, AnAuditorMayRemoveTheBox) {
  listener.react = [&] { dialog->removeChild(box); };
  const HWND frame = box->getWidget();
  clickOn(control());
  EXPECT_EQ(dialog->getNumChildren(), 0);
  EXPECT_FALSE(IsWindow(frame));
}

TEST_F(CheckBoxTwice, AnAuditorMayEndTheDialog) {
  listener.react = [&] { scene.root->removeChild(dialog); };
  const HWND base = dialog->getBaseWidget();
  clickOn(control());
  EXPECT_FALSE(IsWindow(base));
  EXPECT_EQ(listener.heard.size(), 1U);
}

TEST_F(CheckBoxTwice, AnAuditorMayEndTheDialogOfAPressInTheScene) {
  listener.react = [&] { scene.root->removeChild(dialog); };
  const HWND base = dialog->getBaseWidget();
  scene.click(box->part("frameSep"));
  EXPECT_FALSE(IsWindow(base));
}

TEST_F(CheckBoxTwice, AnAuditorMayTakeTheWindowsAway) {
  listener.react = [&] { box->destroyWidget(); };
  clickOn(control());
  EXPECT_EQ(box->getWidget(), nullptr);
  EXPECT_TRUE(box->state.getValue());
  box->state = FALSE;
  EXPECT_EQ(box->chosen("stateSwitch"), 0);
}
