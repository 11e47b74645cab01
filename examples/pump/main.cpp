// The program of docs/tutorial.md: a dialog as a window and as a panel in a scene.
//
//   pump                     opens both; on Linux, where dialogs have no windows, the scene alone
//   pump --picture OUT.png   draws the scene into a file

#include <string_view>

#include "Panelix/NkDialogAuditor.h"
#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/gl/NkOffscreenRenderer.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/win/NkRenderArea.h"
#include "arbora/win/NkWin.h"

/// Runs the pump as the user says.
class Operator : public NkDialogAuditor {
public:
  explicit Operator(NkTopLevelDialog* dialog) : m_dialog(dialog) {}

  void dialogPushButton(NkDialogPushButton* button) override {
    const NbString id = button->auditorID.getValue();
    if (id == "faster") m_turns += 100;
    if (id == "slower" && m_turns > 0) m_turns -= 100;
    if (id == "stop") m_turns = 0;
    tellState();
  }

  void dialogCheckBox(NkDialogCheckBox* valve) override {
    m_isOpen = valve->state.getValue();
    tellState();
  }

private:
  void tellState() {
    NkPanelix* state = m_dialog->searchForAuditorId("state");
    const NbString turns = NbString().setNum(m_turns) + " turns";
    if (m_turns == 0)
      state->label = "The pump stands still.";
    else
      state->label = turns + (m_isOpen ? " per minute." : " against a closed valve!");
  }

  NkTopLevelDialog* m_dialog;
  int m_turns = 0;
  bool m_isOpen = false;
};

arbora::Ref<NkSeparator> makeScene(NkTopLevelDialog* dialog) {
  NkInput input;
  if (!input.openFile(PUMP_DIRECTORY "/4-scene.arb")) return {};
  arbora::Ref<NkSeparator> scene(NkDB::readAll(&input));
  if (scene) scene->addChild(dialog);
  return scene;
}

bool show(NkTopLevelDialog* dialog, NkSeparator* scene) {
  NkRenderArea area(nullptr, "The pump");
  if (!area.isOpen()) return false;
  area.setSceneGraph(scene);
  area.show();
  // Beside it.
  dialog->position = NbVec2i32(660, 0);
  dialog->buildDialog(nullptr, 0);
  dialog->show();
  return NkWin::mainLoop() == 0;
}

bool draw(NkSeparator* scene, const char* picture) {
  NkOffscreenRenderer renderer{NbViewportRegion(560, 400)};
  renderer.setBackgroundColor(NbColor(1, 1, 1));
  return renderer.render(scene) && renderer.writePng(picture);
}

int main(int argc, char** argv) {
  const bool isDrawn = argc == 3 && std::string_view(argv[1]) == "--picture";
  bool done = false;
  NkPanelix::init();
  NkPanelix::setSkinsDirectories(SKINS_DIRECTORY);
  if (auto* dialog = dynamic_cast<NkTopLevelDialog*>(NkPanelix::loadFromFile(PUMP_DIRECTORY "/3-layout.arb", "pump"))) {
    Operator pumpOperator(dialog);
    dialog->addAuditor(&pumpOperator);
    const arbora::Ref<NkSeparator> scene = makeScene(dialog);
    if (scene) done = isDrawn ? draw(scene.get(), argv[2]) : show(dialog, scene.get());
    dialog->removeAuditor(&pumpOperator);
    dialog->close();
  }
  NkWin::finish();
  NkPanelix::finish();
  return done ? 0 : 1;
}
