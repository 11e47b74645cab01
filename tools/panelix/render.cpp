#include "arbora/base/NbViewportRegion.h"
#include "arbora/base/NkDebugError.h"
#include "arbora/gl/NkOffscreenRenderer.h"
#include "arbora/gl/PngWriter.h"
#include "arbora/win/NkWin.h"
#include "tools/panelix/Commands.h"
#include "tools/panelix/Dialog.h"
#include "tools/panelix/Messages.h"
#include "tools/panelix/SceneFile.h"
#include "tools/panelix/WindowPicture.h"

namespace panelix {
namespace {

int renderScene(NkSeparator* scene, const NbVec2i32& size, const RenderOptions& options) {
  NkOffscreenRenderer renderer{NbViewportRegion(size)};
  renderer.setBackgroundColor(options.background);
  if (!renderer.render(scene)) return UNUSABLE;
  return renderer.writePng(NbString::fromUtf8(options.output)) ? GOOD : FAILED;
}

std::string text(const NbVec2i32& size) { return std::to_string(size[0]) + "x" + std::to_string(size[1]); }

int renderWindow(Dialog& dialog, const RenderOptions& options, Messages& messages) {
  NkTopLevelDialog& top = *dialog.top();
  if (options.size && !setSize(top, *options.size, messages)) return UNUSABLE;
  // Nothing of a window is drawn that lies off the screen.
  top.position = NbVec2i32(0, 0);
  if (!dialog.open2D(messages)) return UNUSABLE;
  NkWin::processPendingMessages();
  RedrawWindow(top.getBaseWidget(), nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
  const WindowPicture picture(top.getBaseWidget());
  const NbVec2i32 screen(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
  if (picture.size[0] > screen[0] || picture.size[1] > screen[1]) {
    messages.add(NkDebugError::ERROR_, "the window has " + text(picture.size) + " pixels, the screen only " +
                                           text(screen) + "; what is off the screen isn't drawn");
    return UNUSABLE;
  }
  return arbora::writePng(NbString::fromUtf8(options.output), picture.pixels.data(), picture.size, 3, "render")
             ? GOOD
             : FAILED;
}

int renderFile(const RenderOptions& options, Messages& messages) {
  SceneFile scene(options.file);
  if (!scene.root()) return FAILED;
  if (isDialogMeant(options.dialog, scene)) {
    Dialog dialog(scene, options.dialog, messages);
    if (!dialog.component()) return UNUSABLE;
    messages.setFile("");
    if (options.dialog.form == Form::IN_2D) return renderWindow(dialog, options, messages);
    NkSeparator* const panel = dialog.build3D();
    return renderScene(panel, dialog.addCamera(options.size), options);
  }
  const NbVec2i32 size = options.size.value_or(kSceneSize);
  scene.addMissingCamera(NbViewportRegion(size));
  scene.addMissingLight();
  messages.setFile("");
  return renderScene(scene.root(), size, options);
}

} // namespace

int render(const RenderOptions& options) {
  Messages messages;
  if (!setSkin(options.skin, messages)) return UNUSABLE;
  messages.setFile(options.file);
  const int result = renderFile(options, messages);
  NkWin::finish();
  return result;
}

} // namespace panelix
