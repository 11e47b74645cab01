// A dialog from a file, as a window and as a panel in a scene. Both are forms of the same nodes, so what the user does
// in one shows in the other. It is printed.
//
//   export-options                     opens both; on Linux, where dialogs have no windows, the scene alone
//   export-options --picture OUT.png   draws the scene into a file

#include <cstdio>
#include <string_view>

#include "Panelix/NkDialogAuditor.h"
#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogCheckBoxAuditor.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/gl/NkOffscreenRenderer.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/win/NkRenderArea.h"
#include "arbora/win/NkWin.h"

namespace {

const NbVec2i32 kSize(640, 400);

/// What stands around the panel. A pixel of the dialog is one unit of the scene, and its top left corner is the origin.
/// Seen from here, a unit is a pixel again.
constexpr std::string_view kSurroundings = R"(#Arbora V2.1 ascii
PerspectiveCamera { position 75 -130 600 heightAngle 0.6435 nearDistance 100 farDistance 1000 }
DirectionalLight { direction 0.2 -0.3 -1 }
Separator {
  Translation { translation -100 -120 -40 }
  Material { diffuseColor 0.95 0.6 0.2 }
  Sphere { radius 80 }
}
)";

void print(NkPanelix* component, const char* what) {
  std::printf("%s: %s\n", component->auditorID.getValue().toUtf8().c_str(), what);
  std::fflush(stdout);
}

/// Hears of everything that the user does in a dialog, except where a component has an auditor of its own.
class ExportAuditor : public NkDialogAuditor {
public:
  void dialogPushButton(NkDialogPushButton* button) override { print(button, "pressed"); }
  void dialogCheckBox(NkDialogCheckBox* box) override { print(box, box->state.getValue() ? "on" : "off"); }
};

/// Hears of one check box.
class CompressionAuditor : public NkDialogCheckBoxAuditor {
public:
  void dialogCheckBox(NkDialogCheckBox* box) override {
    print(box, box->state.getValue() ? "the file will be small" : "the file will be large");
  }
};

/// Makes the scene, with the panel in it.
arbora::Ref<NkSeparator> makeScene(NkTopLevelDialog* dialog) {
  NkInput input;
  input.setBuffer(kSurroundings.data(), kSurroundings.size());
  arbora::Ref<NkSeparator> scene(NkDB::readAll(&input));
  scene->addChild(dialog);
  return scene;
}

bool draw(NkSeparator* scene, const char* picture) {
  NkOffscreenRenderer renderer{NbViewportRegion(kSize)};
  return renderer.render(scene) && renderer.writePng(picture);
}

/// Serves the user until the window with the scene is closed.
bool show(NkSeparator* scene, NkTopLevelDialog* dialog) {
  NkRenderArea area(nullptr, "Export options in a scene");
  if (!area.isOpen()) return false;
  area.setSize(kSize);
  area.setSceneGraph(scene);
  area.show();
  // Beside it.
  dialog->position = NbVec2i32(700, 60);
  dialog->buildDialog(nullptr, 0);
  dialog->show();
  return NkWin::mainLoop() == 0;
}

} // namespace

int main(int argc, char** argv) {
  const char* picture = argc == 3 && std::string_view(argv[1]) == "--picture" ? argv[2] : nullptr;
  if (argc > 1 && !picture) {
    std::fputs("usage: export-options [--picture OUT.png]\n", stderr);
    return 2;
  }

  // Auditors belong to the application and have to live as long as the dialog, which the library keeps until it ends.
  ExportAuditor exportAuditor;
  CompressionAuditor compressionAuditor;

  NkPanelix::init();
  NkPanelix::setSkinsDirectories(SKINS_DIRECTORY);
  bool done = false;
  if (auto* dialog = dynamic_cast<NkTopLevelDialog*>(NkPanelix::loadFromFile(DIALOG_FILE, "export"))) {
    dialog->addAuditor(&exportAuditor);
    // A dialog of its own, which the window of the first one opens.
    if (auto* advanced = dynamic_cast<NkTopLevelDialog*>(dialog->searchForAuditorId("advanced")))
      advanced->addAuditor(&exportAuditor);
    if (auto* compress = dynamic_cast<NkDialogCheckBox*>(dialog->searchForAuditorId("compress")))
      compress->addAuditor(&compressionAuditor);
    const arbora::Ref<NkSeparator> scene = makeScene(dialog);
    done = picture ? draw(scene.get(), picture) : show(scene.get(), dialog);
    dialog->close();
  }
  NkWin::finish();
  NkPanelix::finish();
  return done ? 0 : 1;
}
