#include <optional>

#include "arbora/base/NbFileHelper.h"
#include "arbora/base/NbViewportRegion.h"
#include "arbora/win/NkRenderArea.h"
#include "arbora/win/NkWin.h"
#include "tools/panelix/ActionPrinter.h"
#include "tools/panelix/Commands.h"
#include "tools/panelix/Dialog.h"
#include "tools/panelix/Messages.h"
#include "tools/panelix/SceneFile.h"

namespace panelix {
namespace {

/// Shows a scene until the user closes its window, which stands right of another one if there is any.
int showScene(NkSeparator* scene, const NbVec2i32& size, const std::string& file, HWND other = nullptr) {
  NkRenderArea area(nullptr, NbFileHelper::getBaseName(NbString::fromUtf8(file)) + " - Panelix");
  if (!area.isOpen()) return UNUSABLE;
  area.setSize(size);
  area.setSceneGraph(scene);
  RECT taken{};
  if (GetWindowRect(other, &taken))
    SetWindowPos(area.getWindow(), nullptr, taken.right, taken.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  area.show();
  return NkWin::mainLoop();
}

/// The same for forms of a dialog.
int showDialog(Dialog& dialog, const ShowOptions& options, Messages& messages) {
  const Form form = options.dialog.form.value_or(Form::IN_3D);
  if (form != Form::IN_3D) {
    if (options.size && !setSize(*dialog.top(), *options.size, messages)) return UNUSABLE;
    if (!dialog.open2D(messages)) return UNUSABLE;
  }
  if (form == Form::IN_2D) return NkWin::mainLoop();
  NkSeparator* const scene = dialog.build3D();
  return showScene(scene, dialog.addCamera(options.size), options.file, dialog.top()->getBaseWidget());
}

int showFile(const ShowOptions& options, Messages& messages) {
  // Outlives what it listens to.
  ActionPrinter printer;
  SceneFile scene(options.file);
  if (!scene.root()) return FAILED;
  printer.listenTo(scene);
  if (isDialogMeant(options.dialog, scene)) {
    Dialog dialog(scene, options.dialog, messages);
    if (!dialog.component()) return UNUSABLE;
    printer.listenTo(*dialog.top());
    messages.setFile("");
    return showDialog(dialog, options, messages);
  }
  // A window without a light in its scene lights it from the front, wherever the user turns it.
  const NbVec2i32 size = options.size.value_or(kSceneSize);
  scene.addMissingCamera(NbViewportRegion(size));
  messages.setFile("");
  return showScene(scene.root(), size, options.file);
}

} // namespace

int show(const ShowOptions& options) {
  Messages messages;
  if (!setSkin(options.skin, messages)) return UNUSABLE;
  messages.setFile(options.file);
  const int result = showFile(options, messages);
  NkWin::finish();
  return result;
}

} // namespace panelix
