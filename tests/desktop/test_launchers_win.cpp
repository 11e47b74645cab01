#include "Panelix/NkDialogCheckBoxLauncher.h"
#include "Panelix/NkDialogPushButtonLauncher.h"
#include "tests/desktop/ActingTest_win.h"
#include "tests/dialog/Listeners.h"

namespace {

/// A dialog that notes the windows that it is built for.
class LaunchedDialog : public Opened<NkTopLevelDialog> {
public:
  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& corner, int is2D) override {
    parents.push_back(parent);
    NkTopLevelDialog::buildWidget(parent, size, corner, is2D);
  }
  void show3D(int on) override {
    onShow3D();
    NkTopLevelDialog::show3D(on);
  }

  std::vector<HWND> parents;
  std::function<void()> onShow3D = [] {};
};

class LauncherWindows : public ActingTest {
protected:
  /// Opens a dialog with a launcher of that name, which has `fields` and holds two dialogs, "one" and "two".
  template <class Launcher>
  Launcher* openLauncher(const std::string& keyword, const std::string& fields = "") {
    dialog = open("TopLevelDialog { position 50 50 width 300 height 150 " + keyword + " { auditorID \"launcher\" " +
                  fields + childText("one", "400 50") + childText("two", "400 300") + "} }");
    auto* launcher = find<Launcher>(dialog, "launcher");
    one = launcher->getChild(0);
    two = launcher->getChild(1);
    return launcher;
  }
  NkDialogPushButtonLauncher* openButton() {
    return openLauncher<NkDialogPushButtonLauncher>("DialogPushButtonLauncher", "buttonLabel \"open\"");
  }
  NkDialogCheckBoxLauncher* openBox(const std::string& fields = "onString \"open\"") {
    return openLauncher<NkDialogCheckBoxLauncher>("DialogCheckBoxLauncher", fields);
  }

  /// A click builds a dialog that has no window, and nothing builds it again.
  template <class Launcher>
  void expectOneBuild(Launcher* launcher) {
    ASSERT_NE(NkWin::getTopLevelWidget(), nullptr);
    auto* late = new LaunchedDialog;
    late->position = NbVec2i32(700, 300);
    launcher->addChild(late);
    EXPECT_EQ(late->getBaseWidget(), nullptr);
    clickOn(controlOf(launcher));
    EXPECT_TRUE(isOpen(late));
    clickOn(controlOf(launcher));
    dialog->updateAfterSceneGraphChange();
    EXPECT_EQ(late->parents, std::vector<HWND>{NkWin::getTopLevelWidget()});
  }

  static bool isOpen(NkTopLevelDialog* child) { return isVisible(child->getBaseWidget()); }
  void expectOpen(bool areOpen) {
    EXPECT_EQ(isOpen(one), areOpen);
    EXPECT_EQ(isOpen(two), areOpen);
  }
  static void closeByUser(NkTopLevelDialog* child) {
    const RECT frame = outlineOf(child->getBaseWidget());
    click(frame.right - GetSystemMetrics(SM_CXFRAME) - 8, frame.top + GetSystemMetrics(SM_CYFRAME) + 8);
    EXPECT_FALSE(isOpen(child));
  }
  /// Whether one window stands above another on the screen.
  static bool isAbove(NkTopLevelDialog* upper, NkTopLevelDialog* lower) {
    for (HWND window = lower->getBaseWidget(); window; window = GetWindow(window, GW_HWNDPREV)) {
      if (window == upper->getBaseWidget()) return true;
    }
    return false;
  }

  NkTopLevelDialog* dialog = nullptr;
  NkTopLevelDialog* one = nullptr;
  NkTopLevelDialog* two = nullptr;

private:
  static std::string childText(const std::string& name, const std::string& position) {
    return " TopLevelDialog { auditorID \"" + name + "\" label \"" + name + "\" position " + position +
           " width 200 height 120 DialogLabel { label \"" + name + "\" } } ";
  }
};

/// A launcher with a dialog that both stand on the screen and in a scene.
template <class Launcher>
class LauncherTwice : public ActingTest {
protected:
  LauncherTwice() {
    launched->width = 120;
    launched->height = 80;
    launched->position = NbVec2i32(500, 300);
    launched->position3D = NbVec3f(400, 0, 0);
    launched->addChild(new NkDialogPushButton);
    launcher->label = "Name";
    launcher->addChild(launched);
    dialog->width = 300;
    dialog->height = 150;
    dialog->addChild(launcher);
    openBoth(dialog);
  }
  HWND control() { return controlOf(launcher); }
  bool isOpen() { return isVisible(launched->getBaseWidget()); }

  Opened<NkTopLevelDialog>* dialog = new Opened<NkTopLevelDialog>;
  LaunchedDialog* launched = new LaunchedDialog;
  Opened<Launcher>* launcher = new Opened<Launcher>;
};

using PushButtonLauncherTwice = LauncherTwice<NkDialogPushButtonLauncher>;
using CheckBoxLauncherTwice = LauncherTwice<NkDialogCheckBoxLauncher>;

} // namespace

// Push button

TEST_F(LauncherWindows, AButtonBuildsItsDialogsClosed) {
  auto* launcher = openButton();
  for (NkTopLevelDialog* child : {one, two}) {
    EXPECT_TRUE(IsWindow(child->getBaseWidget()));
    EXPECT_EQ(child->getParent(), launcher);
    EXPECT_EQ(GetParent(child->getBaseWidget()), nullptr);
  }
  expectOpen(false);
  EXPECT_EQ(textOf(one->getBaseWidget()), "one");
}

TEST_F(LauncherWindows, AButtonOpensThem) {
  auto* launcher = openButton();
  PushButtonListener listener([&] { expectOpen(false); });
  launcher->addAuditor(&listener);
  clickOn(controlOf(launcher));
  expectOpen(true);
  EXPECT_EQ(listener.heard, std::vector<NkPanelix*>{launcher});
  EXPECT_EQ(rectangleOf(one->getBaseWidget()), rectangle(400, 50, 200, 120));
}

TEST_F(LauncherWindows, AButtonRaisesWhatIsOpen) {
  auto* launcher = openButton();
  clickOn(controlOf(launcher));
  const HWND windows[] = {one->getBaseWidget(), two->getBaseWidget()};
  // Each comes to the top in its turn.
  EXPECT_TRUE(isAbove(two, one));
  EXPECT_TRUE(isAbove(one, dialog));
  SetWindowPos(dialog->getBaseWidget(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  ASSERT_TRUE(isAbove(dialog, two));
  clickOn(controlOf(launcher));
  EXPECT_TRUE(isAbove(one, dialog));
  EXPECT_TRUE(isAbove(two, one));
  EXPECT_EQ(one->getBaseWidget(), windows[0]);
  EXPECT_EQ(two->getBaseWidget(), windows[1]);
  EXPECT_EQ(rectangleOf(two->getBaseWidget()), rectangle(400, 300, 200, 120));
}

TEST_F(LauncherWindows, AButtonOpensAgainWhatItsUserClosed) {
  auto* launcher = openButton();
  clickOn(controlOf(launcher));
  closeByUser(one);
  EXPECT_TRUE(isOpen(two));
  clickOn(controlOf(launcher));
  expectOpen(true);
}

TEST_F(LauncherWindows, AButtonBuildsAnewWhatTheSystemHasDestroyed) {
  auto* launcher = openButton();
  DestroyWindow(one->getBaseWidget());
  one->setParent(nullptr);
  clickOn(controlOf(launcher));
  expectOpen(true);
  EXPECT_EQ(one->getParent(), launcher);
}

TEST_F(LauncherWindows, AnyNotificationOpensTheDialogsOfAButton) {
  auto* launcher = openButton();
  PushButtonListener listener;
  launcher->addAuditor(&listener);
  launcher->eventNotify(BN_DOUBLECLICKED, 0);
  expectOpen(true);
  EXPECT_TRUE(listener.heard.empty());
}

TEST_F(LauncherWindows, AButtonBuildsADialogThatComesLaterOnce) { expectOneBuild(openButton()); }

TEST_F(LauncherWindows, DialogsThatGoTakeTheirWindowsAlong) {
  auto* launcher = openButton();
  clickOn(controlOf(launcher));
  const HWND windows[] = {one->getBaseWidget(), two->getBaseWidget()};
  launcher->removeChild(one);
  EXPECT_FALSE(IsWindow(windows[0]));
  EXPECT_TRUE(IsWindow(windows[1]));
  launcher->removeAllChildren();
  EXPECT_FALSE(IsWindow(windows[1]));
  EXPECT_EQ(launcher->getNumChildren(), 0);
  clickOn(controlOf(launcher));
}

// Check box

TEST_F(LauncherWindows, ABoxShowsAndHidesItsDialogs) {
  auto* launcher = openBox();
  expectOpen(false);
  CheckBoxListener listener([&] { expectOpen(!launcher->state.getValue()); });
  launcher->addAuditor(&listener);
  for (const bool isOn : {true, false, true}) {
    clickOn(controlOf(launcher));
    EXPECT_EQ(launcher->state.getValue(), isOn);
    expectOpen(isOn);
  }
  EXPECT_EQ(listener.heard.size(), 3U);
}

TEST_F(LauncherWindows, ABoxReadAsCheckedOpensThemAtOnce) {
  auto* launcher = openBox("state TRUE onString \"open\"");
  expectOpen(true);
  EXPECT_EQ(one->getParent(), launcher);
  // They stand where they are to stand.
  EXPECT_EQ(rectangleOf(one->getBaseWidget()), rectangle(400, 50, 200, 120));
  clickOn(controlOf(launcher));
  expectOpen(false);
  clickOn(controlOf(launcher));
  expectOpen(true);
}

TEST_F(LauncherWindows, ABoxBuildsADialogThatComesLaterOnce) { expectOneBuild(openBox()); }

TEST_F(LauncherWindows, TheStateOfABoxDoesntFollowItsDialogs) {
  auto* launcher = openBox("state TRUE onString \"open\"");
  closeByUser(one);
  EXPECT_TRUE(launcher->state.getValue());
  EXPECT_TRUE(isOpen(two));
  clickOn(controlOf(launcher));
  expectOpen(false);
  clickOn(controlOf(launcher));
  expectOpen(true);
}

TEST_F(LauncherWindows, TheProgramShowsNoDialogByTheStateOfABox) {
  auto* launcher = openBox();
  launcher->state = TRUE;
  EXPECT_TRUE(isChecked(controlOf(launcher)));
  expectOpen(false);
  // Until the box is built again or acted on.
  launcher->eventNotify(BN_DOUBLECLICKED, 0);
  expectOpen(true);
  launcher->state = FALSE;
  expectOpen(true);
  dialog->updateAfterSceneGraphChange();
  expectOpen(false);
}

TEST_F(LauncherWindows, LaunchersInTheirDialogs) {
  dialog = open(R"(TopLevelDialog { position 50 50 width 200 height 100
    DialogCheckBoxLauncher { auditorID "outer" onString "open"
      TopLevelDialog { auditorID "one" position 50 250 width 200 height 100
        DialogPushButtonLauncher { auditorID "inner" buttonLabel "open"
          TopLevelDialog { auditorID "two" position 400 250 width 200 height 100 DialogLabel { } } } } } })");
  auto* outer = find<NkDialogCheckBoxLauncher>(dialog, "outer");
  auto* inner = find<NkDialogPushButtonLauncher>(dialog, "inner");
  one = find<NkTopLevelDialog>(dialog, "one");
  two = find<NkTopLevelDialog>(dialog, "two");
  expectOpen(false);
  clickOn(controlOf(outer));
  EXPECT_TRUE(isOpen(one));
  EXPECT_FALSE(isOpen(two));
  DialogListener listener;
  dialog->addAuditor(&listener);
  clickOn(controlOf(inner));
  expectOpen(true);
  // What it has brought up stays.
  clickOn(controlOf(outer));
  EXPECT_FALSE(isOpen(one));
  EXPECT_TRUE(isOpen(two));
}

// Ends in the middle of things

TEST_F(LauncherWindows, AnAuditorMayRemoveDialogs) {
  auto* launcher = openButton();
  PushButtonListener listener([&] { launcher->removeChild(one); });
  launcher->addAuditor(&listener);
  clickOn(controlOf(launcher));
  EXPECT_TRUE(isOpen(two));
  listener.react = [&] { launcher->removeAllChildren(); };
  clickOn(controlOf(launcher));
  EXPECT_EQ(launcher->getNumChildren(), 0);
}

TEST_F(LauncherWindows, AnAuditorMayEndAll) {
  openBox();
  DialogListener listener([&] { release(); });
  dialog->addAuditor(&listener);
  const HWND windows[] = {dialog->getBaseWidget(), one->getBaseWidget(), two->getBaseWidget()};
  clickOn(controlOf(find<NkDialogCheckBoxLauncher>(dialog, "launcher")));
  for (HWND window : windows) EXPECT_FALSE(IsWindow(window));
}

TEST_F(LauncherWindows, ADialogMayEndAllFromItsOwnButton) {
  dialog = open(R"(TopLevelDialog { position 50 50 width 200 height 100
    DialogPushButtonLauncher { auditorID "launcher" buttonLabel "open"
      TopLevelDialog { auditorID "one" position 50 250 width 200 height 100
        DialogPushButton { auditorID "end" buttonLabel "end" } } } })");
  one = find<NkTopLevelDialog>(dialog, "one");
  auto* end = find<NkDialogPushButton>(dialog, "end");
  DialogListener listener([&] { release(); });
  one->addAuditor(&listener);
  clickOn(controlOf(find<NkDialogPushButtonLauncher>(dialog, "launcher")));
  const HWND window = one->getBaseWidget();
  clickOn(controlOf(end));
  EXPECT_EQ(listener.heard.size(), 1U);
  EXPECT_FALSE(IsWindow(window));
}

// Both forms

TEST_F(PushButtonLauncherTwice, FromTheSceneAButtonOpensNothing) {
  PushButtonListener listener;
  launcher->addAuditor(&listener);
  EXPECT_FALSE(launched->isShown());
  scene.click(launcher->part("frameSep"));
  EXPECT_EQ(listener.heard.size(), 1U);
  EXPECT_FALSE(isOpen());
  EXPECT_FALSE(launched->isShown());
  // From the screen it opens the window alone.
  clickOn(control());
  EXPECT_TRUE(isOpen());
  EXPECT_FALSE(launched->isShown());
}

TEST_F(PushButtonLauncherTwice, TheFormInTheSceneBuildsTheDialogsAgain) {
  const HWND application = NkWin::getTopLevelWidget();
  // The last build is that of the dialog's own form in the scene.
  EXPECT_EQ(launched->parents, (std::vector<HWND>{application, application, nullptr}));
}

TEST_F(CheckBoxLauncherTwice, ABoxShowsItsDialogsInBothForms) {
  const auto expectOpen = [&](bool isOn) {
    EXPECT_EQ(isOpen(), isOn);
    EXPECT_EQ(launched->isShown(), isOn);
    EXPECT_EQ(launcher->state.getValue(), isOn);
    EXPECT_EQ(isChecked(control()), isOn);
    EXPECT_EQ(launcher->chosen("stateSwitch"), isOn);
  };
  expectOpen(false);
  clickOn(control());
  expectOpen(true);
  clickOn(control());
  expectOpen(false);
}

TEST_F(CheckBoxLauncherTwice, APressInTheSceneBuildsNoWindow) {
  DestroyWindow(launched->getBaseWidget());
  scene.click(launcher->part("frameSep"));
  EXPECT_TRUE(launched->isShown());
  EXPECT_FALSE(IsWindow(launched->getBaseWidget()));
  launcher->eventNotify(BN_DOUBLECLICKED, 0);
  EXPECT_TRUE(isOpen());
}

TEST_F(CheckBoxLauncherTwice, AWriteWhileItsDialogsAppearIsHeard) {
  int shown = 0;
  launched->onShow3D = [&] {
    launcher->state.touch();
    shown = launcher->chosen("stateSwitch");
  };
  scene.click(launcher->part("frameSep"));
  EXPECT_EQ(shown, 1);
  EXPECT_TRUE(isChecked(control()));
  launched->onShow3D = [] {};
}

TEST_F(CheckBoxLauncherTwice, APressInTheSceneOpensTheWindowsAndLeavesTheBoxOnTheScreen) {
  launcher->onString = "open";
  launcher->offString = "closed";
  scene.click(launcher->group("labelSwitch")->getChild(2));
  EXPECT_TRUE(launcher->state.getValue());
  EXPECT_TRUE(isOpen());
  EXPECT_TRUE(launched->isShown());
  EXPECT_EQ(launcher->chosen("stateSwitch"), 1);
  EXPECT_EQ(textOf(control()), "open");
  // The state's sensor was off, and of the window only the caption is told.
  EXPECT_FALSE(isChecked(control()));
  scene.click(launcher->part("frameSep"));
  EXPECT_FALSE(isOpen());
  EXPECT_FALSE(launched->isShown());
  EXPECT_EQ(textOf(control()), "closed");
}
