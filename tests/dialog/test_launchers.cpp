#include "FormsTest.h"
#include "Listeners.h"
#include "Panelix/NkDialogCheckBoxLauncher.h"
#include "Panelix/NkDialogPushButtonLauncher.h"
#include "arbora/scene/NkChildList.h"

// Dialogs in the scene that a button or a check box brings up. What launchers have in common with other containers is
// tested with those.

using arbora::Ref;

namespace {

/// Notes the calls that a test is about.
class Notes {
public:
  void add(const std::string& note) { m_text += m_text.empty() ? note : ", " + note; }
  std::string take() { return std::exchange(m_text, {}); }

private:
  std::string m_text;
};

class LaunchedDialog : public Opened<NkTopLevelDialog> {
public:
  explicit LaunchedDialog(Notes* notes = nullptr) : m_notes(notes) {
    width = 100;
    height = 80;
    position3D = NbVec3f(300, 0, 0);
    addChild(inside);
  }
  void show3D(int on) override {
    if (m_notes) m_notes->add(on ? "show" : "hide");
    NkTopLevelDialog::show3D(on);
  }

  Block* inside = new Block;

private:
  Notes* m_notes;
};

class CheckBoxLauncher : public Opened<NkDialogCheckBoxLauncher> {
public:
  explicit CheckBoxLauncher(Notes* notes = nullptr) : m_notes(notes) {}
  int shownState() { return chosen("stateSwitch"); }
  /// As after a build of the 2D form whose windows failed.
  void enter2DForm() { m_built2D = 1; }

protected:
  void change3DState() override {
    if (m_notes) m_notes->add("change3DState");
    NkDialogCheckBoxLauncher::change3DState();
  }

private:
  Notes* m_notes;
};

using PushButtonLauncher = Opened<NkDialogPushButtonLauncher>;

template <class Launcher>
class LauncherTest : public PanelTest {
protected:
  LauncherTest() {
    launcher->label = "Name";
    panel->addChild(launcher);
  }

  Launcher* launcher = new Launcher;
};

using PushButtonLauncherInScene = LauncherTest<PushButtonLauncher>;
using CheckBoxLauncherInScene = LauncherTest<CheckBoxLauncher>;

} // namespace

// Push button

TEST_F(PushButtonLauncherInScene, BuildsItsDialogsHidden) {
  auto* dialog = new LaunchedDialog;
  auto* second = new LaunchedDialog;
  launcher->addChild(dialog);
  launcher->addChild(second);
  build();
  for (LaunchedDialog* child : {dialog, second}) {
    EXPECT_TRUE(child->isBuilt3D());
    EXPECT_EQ(child->getParent(), launcher);
    EXPECT_FALSE(child->isShown());
    EXPECT_EQ(child->getBaseWidget(), nullptr);
  }
  EXPECT_TRUE(launcher->isShown());
}

TEST_F(PushButtonLauncherInScene, EachBuildBuildsAndHidesTheDialogs) {
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  build();
  const int builds = dialog->inside->builds;
  EXPECT_GT(builds, 0);
  dialog->show3D(1);
  build();
  EXPECT_GT(dialog->inside->builds, builds);
  EXPECT_FALSE(dialog->isShown());
}

TEST_F(PushButtonLauncherInScene, WhatItBuildsIsItsOwn) {
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  dialog->setParent(nullptr);
  build();
  EXPECT_EQ(dialog->getParent(), launcher);
  // Any notification of its window builds what has none.
  dialog->setParent(nullptr);
  const int builds = dialog->inside->builds;
  launcher->eventNotify(1, 0);
  EXPECT_GT(dialog->inside->builds, builds);
  EXPECT_EQ(dialog->getParent(), launcher);
}

TEST_F(PushButtonLauncherInScene, APickTellsItFromItsDialogs) {
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  build();
  dialog->show3D(1);
  expectPick(pixelOf(launcher->part("frameSep")), launcher, "released");
  expectPick(pixelOf(dialog->part("frameSep")), dialog, "frame");
}

TEST_F(PushButtonLauncherInScene, APressTellsTheAuditorAndOpensNothing) {
  PushButtonListener listener;
  launcher->addAuditor(&listener);
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  build();
  press(launcher->part("frameSep"));
  EXPECT_EQ(launcher->chosen("frameSwitch"), 1);
  release();
  EXPECT_EQ(launcher->chosen("frameSwitch"), 0);
  EXPECT_EQ(listener.heard, std::vector<NkPanelix*>{launcher});
  EXPECT_FALSE(dialog->isShown());
}

TEST_F(PushButtonLauncherInScene, TheProgramShowsItsDialogs) {
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  build();
  dialog->show3D(1);
  const NbBox3f box = worldBoxOf(dialog->part("frameSep"));
  EXPECT_EQ(box.getSize()[0], 100);
  // A press there is the dialog's.
  PushButtonListener listener;
  launcher->addAuditor(&listener);
  click(dialog->part("minSep"));
  EXPECT_TRUE(dialog->minimized.getValue());
  EXPECT_TRUE(listener.heard.empty());
}

TEST_F(PushButtonLauncherInScene, ADialogThatComesLaterIsBuiltWithTheNextLayout) {
  build();
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  EXPECT_FALSE(dialog->isBuilt3D());
  build();
  EXPECT_TRUE(dialog->isBuilt3D());
  EXPECT_FALSE(dialog->isShown());
}

TEST_F(PushButtonLauncherInScene, WithoutItsPartsThereIsNothingLeftToPress) {
  launcher->addChild(new LaunchedDialog);
  build();
  const NbVec2i32 at = pixelOf(launcher->part("frameSep"));
  PushButtonListener listener;
  launcher->addAuditor(&listener);
  launcher->removeAllChildren();
  EXPECT_EQ(launcher->getNumChildren(), 0);
  EXPECT_EQ(launcher->getChildren()->getLength(), 0);
  EXPECT_TRUE(boxOf(launcher).isEmpty());
  click(at[0], at[1]);
  EXPECT_TRUE(listener.heard.empty());
  launcher->buttonLabel = "other";
  build();
}

// Check box

TEST_F(CheckBoxLauncherInScene, ItsDialogsAreBuiltWhenTheyAreSeenFirst) {
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  launcher->state = true;
  build();
  EXPECT_FALSE(dialog->isBuilt3D());
  boxOf(root.get());
  EXPECT_TRUE(dialog->isBuilt3D());
  EXPECT_TRUE(dialog->isShown());
  EXPECT_EQ(worldBoxOf(dialog->part("frameSep")).getSize()[0], 100);
}

TEST_F(CheckBoxLauncherInScene, NotCheckedItKeepsThemHidden) {
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  build();
  boxOf(root.get());
  EXPECT_FALSE(dialog->isShown());
  // Built again it shows them as its state is.
  dialog->show3D(1);
  build();
  EXPECT_FALSE(dialog->isShown());
}

TEST_F(CheckBoxLauncherInScene, ReadAsCheckedItShowsThem) {
  const auto checked = readOne<NkDialogCheckBoxLauncher>(
      "DialogCheckBoxLauncher { state TRUE"
      "  TopLevelDialog { width 120 height 70 position3D 300 0 0 DialogLabel { } } }");
  ASSERT_TRUE(checked);
  panel->addChild(checked.get());
  build();
  boxOf(root.get());
  const NbBox3f box = worldBoxOf(checked->getChild(0));
  EXPECT_EQ(box.getSize()[0], 120);
  EXPECT_EQ(box.getSize()[1], 70);
}

TEST_F(CheckBoxLauncherInScene, APressShowsAndHidesThem) {
  auto* dialog = new LaunchedDialog;
  auto* second = new LaunchedDialog;
  launcher->addChild(dialog);
  launcher->addChild(second);
  launcher->onString = "open";
  launcher->offString = "closed";
  build();
  boxOf(root.get());
  for (const bool isOpen : {true, false, true}) {
    click(launcher->part("frameSep"));
    EXPECT_EQ(launcher->state.getValue(), isOpen);
    EXPECT_EQ(launcher->shownState(), isOpen);
    EXPECT_EQ(linesOf(launcher->group("onOffStringSep")->getChild(2)), isOpen ? "open" : "closed");
    EXPECT_EQ(dialog->isShown(), isOpen);
    EXPECT_EQ(second->isShown(), isOpen);
  }
}

TEST_F(CheckBoxLauncherInScene, APressAnywhereOnItCounts) {
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  build();
  boxOf(root.get());
  click(launcher->group("labelSwitch")->getChild(2));
  EXPECT_TRUE(launcher->state.getValue());
  EXPECT_TRUE(dialog->isShown());
  click(launcher->part("mainCptSeparator"));
  EXPECT_FALSE(launcher->state.getValue());
  EXPECT_FALSE(dialog->isShown());
  // But not one on its dialogs.
  click(launcher->part("stateSep"));
  click(dialog->part("minSep"));
  EXPECT_TRUE(launcher->state.getValue());
}

TEST_F(CheckBoxLauncherInScene, WhatItBuildsFor2DIsItsOwn) {
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  launcher->enter2DForm();
  const auto expectBuilt = [&](auto&& act) {
    const int builds = dialog->inside->builds;
    dialog->setParent(nullptr);
    act();
    EXPECT_GT(dialog->inside->builds, builds);
    EXPECT_EQ(dialog->getParent(), launcher);
  };
  expectBuilt([&] { build(); });
  // Any notification of its window builds what has none.
  expectBuilt([&] { launcher->eventNotify(1, 0); });
}

TEST_F(CheckBoxLauncherInScene, APickTellsItFromItsDialogs) {
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  launcher->state = true;
  build();
  expectPick(pixelOf(launcher->part("frameSep")), launcher, "frame");
  expectPick(pixelOf(dialog->part("minSep")), dialog, "minReleased");
}

TEST_F(CheckBoxLauncherInScene, OutOfTheSceneItShowsItsStateAllTheSame) {
  launcher->onString = "open";
  launcher->offString = "closed";
  build();
  launcher->setCanBeTraversed(0);
  click(launcher->part("frameSep"));
  EXPECT_EQ(launcher->shownState(), 1);
  EXPECT_EQ(linesOf(launcher->group("onOffStringSep")->getChild(2)), "open");
}

TEST_F(CheckBoxLauncherInScene, TakesNoInputFromAnother) {
  auto* holder = new Holder;
  panel->addChild(holder);
  build();
  holder->take();
  click(launcher->part("frameSep"));
  EXPECT_TRUE(launcher->state.getValue());
  EXPECT_EQ(holder->told, 0);
}

TEST_F(CheckBoxLauncherInScene, TellsAheadOfShowingAndItsMarkerComesLast) {
  Notes notes;
  auto* noted = new CheckBoxLauncher(&notes);
  panel->replaceChild(launcher, noted);
  noted->addChild(new LaunchedDialog(&notes));
  noted->addChild(new LaunchedDialog(&notes));
  noted->offString = "closed";
  noted->onString = "open";
  build();
  boxOf(root.get());
  CheckBoxListener listener([&] {
    notes.add("told of " + std::to_string(noted->state.getValue()));
    // The marker is still that of the other state, the caption isn't.
    EXPECT_NE(noted->shownState(), noted->state.getValue());
    EXPECT_EQ(linesOf(noted->group("onOffStringSep")->getChild(2)), noted->state.getValue() ? "open" : "closed");
  });
  noted->addAuditor(&listener);
  notes.take();
  click(noted->part("frameSep"));
  EXPECT_EQ(notes.take(), "told of 1, show, show, change3DState");
  click(noted->part("frameSep"));
  EXPECT_EQ(notes.take(), "told of 0, hide, hide, change3DState");
  // Its sensor hears again.
  noted->state = true;
  EXPECT_EQ(notes.take(), "change3DState");
}

TEST_F(CheckBoxLauncherInScene, TheProgramShowsNoDialogByItsState) {
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  build();
  boxOf(root.get());
  launcher->state = true;
  EXPECT_EQ(launcher->shownState(), 1);
  EXPECT_FALSE(dialog->isShown());
  // The next press turns the state off.
  click(launcher->part("frameSep"));
  EXPECT_FALSE(dialog->isShown());
  click(launcher->part("frameSep"));
  EXPECT_TRUE(dialog->isShown());
}

TEST_F(CheckBoxLauncherInScene, LaunchersInItsDialogs) {
  auto* dialog = new LaunchedDialog;
  auto* inner = new CheckBoxLauncher;
  auto* innerDialog = new LaunchedDialog;
  innerDialog->position3D = NbVec3f(500, 200, 0);
  dialog->height = 150;
  dialog->addChild(inner);
  inner->addChild(innerDialog);
  launcher->addChild(dialog);
  build();
  boxOf(root.get());
  EXPECT_FALSE(innerDialog->isShown());
  click(launcher->part("frameSep"));
  EXPECT_TRUE(dialog->isShown());
  EXPECT_FALSE(innerDialog->isShown());
  click(inner->part("frameSep"));
  EXPECT_TRUE(innerDialog->isShown());
  EXPECT_TRUE(launcher->state.getValue());
  // What it has brought up stays.
  click(launcher->part("frameSep"));
  EXPECT_FALSE(dialog->isShown());
  EXPECT_TRUE(innerDialog->isShown());
}

// Ends in the middle of things

TEST_F(CheckBoxLauncherInScene, AnAuditorMayRemoveItsDialogs) {
  CheckBoxListener listener;
  launcher->addAuditor(&listener);
  launcher->addChild(new LaunchedDialog);
  auto* second = new LaunchedDialog;
  launcher->addChild(second);
  build();
  boxOf(root.get());
  listener.react = [&] { launcher->removeChild(0); };
  click(launcher->part("frameSep"));
  EXPECT_EQ(launcher->getNumChildren(), 1);
  EXPECT_TRUE(second->isShown());
  listener.react = [&] { launcher->removeAllChildren(); };
  click(launcher->part("frameSep"));
  EXPECT_EQ(launcher->getNumChildren(), 0);
  EXPECT_FALSE(launcher->state.getValue());
}

TEST_F(CheckBoxLauncherInScene, AnAuditorMayRemoveTheLauncher) {
  CheckBoxListener listener([&] { panel->removeChild(launcher); });
  launcher->addAuditor(&listener);
  launcher->addChild(new LaunchedDialog);
  build();
  boxOf(root.get());
  click(launcher->part("frameSep"));
  EXPECT_EQ(panel->getNumChildren(), 0);
}

TEST_F(PushButtonLauncherInScene, AnAuditorMayEndTheDialog) {
  DialogListener listener([&] { root->removeChild(panel); });
  panel->addAuditor(&listener);
  launcher->addChild(new LaunchedDialog);
  build();
  click(launcher->part("frameSep"));
  EXPECT_EQ(root->getNumChildren(), 2);
}

TEST_F(PushButtonLauncherInScene, ADialogMayGoWhileItIsBuilt) {
  auto* dialog = new LaunchedDialog;
  launcher->addChild(dialog);
  launcher->addChild(new LaunchedDialog);
  {
    const OnWrite gone(dialog->minWidth, [&] { launcher->removeChild(dialog); });
    build();
  }
  EXPECT_EQ(launcher->getNumChildren(), 1);
}
