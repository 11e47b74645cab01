#include <algorithm>
#include <random>
#include <vector>

#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkRowDialog.h"
#include "tests/desktop/ActingTest_win.h"

// What a user and an application do by turns with a dialog that stands on the screen and in a scene. Whatever they do,
// the fields, the controls and the scene say the same.

namespace {

using CheckBox = Opened<NkDialogCheckBox>;
using Button = Opened<NkDialogPushButton>;

class RandomActs : public ActingTest, public ::testing::WithParamInterface<unsigned> {
protected:
  RandomActs() : m_random(GetParam()) {
    dialog->width = 400;
    dialog->height = 400;
    dialog->addChild(rows);
    for (int i = 0; i < 4; ++i) addComponent();
    openBoth(dialog);
  }

  int below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

  void act() {
    const int components = rows->getNumChildren();
    if (components == 0 || (components < kMostComponents && below(12) == 0)) {
      addComponent();
      dialog->updateAfterSceneGraphChange();
      return;
    }
    NkDialogComponent* component = rows->getChild(below(components));
    switch (below(12)) {
      case 0:
        forget(component);
        rows->removeChild(component);
        dialog->updateAfterSceneGraphChange();
        break;
      case 1:
        component->destroyWidget();
        dialog->updateAfterSceneGraphChange();
        break;
      case 2:
        write(component);
        break;
      default:
        if (auto* box = dynamic_cast<CheckBox*>(component)) act(*box);
        if (auto* button = dynamic_cast<Button*>(component)) act(*button);
    }
  }

  void expectAgreement() {
    for (CheckBox* box : m_boxes) {
      const bool isOn = box->state.getValue();
      const std::string caption =
          (isOn || box->offString.getValue().isEmpty() ? box->onString : box->offString).getValue().toLatin1();
      EXPECT_EQ(isChecked(controlOf(box)), isOn);
      EXPECT_EQ(textOf(controlOf(box)), caption);
      EXPECT_EQ(box->chosen("stateSwitch"), isOn);
      EXPECT_EQ(linesOf(box->group("onOffStringSep")->getChild(2)), caption);
    }
    for (Button* button : m_buttons) {
      const std::string caption = button->buttonLabel.getValue().toLatin1();
      EXPECT_FALSE(isPushed(controlOf(button)));
      EXPECT_EQ(textOf(controlOf(button)), caption);
      EXPECT_EQ(button->chosen("frameSwitch"), 0);
      EXPECT_EQ(linesOf(button->group("buttonLabelSep")->getChild(2)), caption);
    }
  }

  Opened<NkTopLevelDialog>* dialog = new Opened<NkTopLevelDialog>;
  NkRowDialog* rows = new NkRowDialog;

private:
  static constexpr int kMostComponents = 8;

  NbString caption() {
    constexpr const char* kCaptions[] = {"yes", "no", "a long caption", "i"};
    return kCaptions[below(4)];
  }

  void addComponent() {
    NkDialogComponent* component = nullptr;
    if (below(2)) {
      m_boxes.push_back(new CheckBox);
      m_boxes.back()->onString = caption();
      component = m_boxes.back();
    } else {
      m_buttons.push_back(new Button);
      m_buttons.back()->buttonLabel = caption();
      component = m_buttons.back();
    }
    component->label = caption();
    rows->insertChild(component, below(rows->getNumChildren() + 1));
  }

  void forget(NkDialogComponent* component) {
    std::erase(m_boxes, component);
    std::erase(m_buttons, component);
  }

  /// A field that both kinds have.
  void write(NkDialogComponent* component) {
    switch (below(4)) {
      case 0:
        component->enable = below(3) != 0;
        break;
      case 1:
        component->label = caption();
        break;
      case 2:
        component->labelVisibility = below(2) != 0;
        break;
      default:
        component->edgeStyle = below(3);
    }
  }

  void act(CheckBox& box) {
    switch (below(6)) {
      case 0:
        box.state = below(2) != 0;
        break;
      case 1:
        box.onString = caption();
        break;
      case 2:
        box.offString = below(3) ? caption() : NbString("");
        break;
      case 3:
        pressInScene(box.part("stateSep"));
        break;
      default:
        useControl(controlOf(&box));
    }
  }

  void act(Button& button) {
    switch (below(4)) {
      case 0:
        button.buttonLabel = caption();
        break;
      case 1:
        pressInScene(button.part("frameSep"));
        break;
      default:
        useControl(controlOf(&button));
    }
  }

  /// What is disabled doesn't take it.
  void pressInScene(NkNode* part) {
    const NbVec3f middle = scene.worldBoxOf(part).getCenter();
    scene.press(static_cast<int>(middle[0]), static_cast<int>(-middle[1]));
    scene.release();
  }

  /// A click, or the Space key.
  void useControl(HWND control) {
    if (!isEnabled(control)) return;
    if (below(2)) {
      SendMessageA(control, BM_CLICK, 0, 0);
    } else {
      SetFocus(control);
      SendMessageA(control, WM_KEYDOWN, VK_SPACE, 0);
      SendMessageA(control, WM_KEYUP, VK_SPACE, 0);
    }
  }

  std::minstd_rand m_random;
  std::vector<CheckBox*> m_boxes;
  std::vector<Button*> m_buttons;
};

} // namespace

TEST_P(RandomActs, LeaveFieldsControlsAndSceneOfOneMind) {
  for (int i = 0; i < 120 && !HasFailure(); ++i) {
    act();
    desktop::serveUntil([] { return true; });
    SCOPED_TRACE(i);
    expectAgreement();
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomActs, ::testing::Range(1U, 7U));
