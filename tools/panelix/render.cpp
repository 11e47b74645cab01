#include "arbora/base/NbViewportRegion.h"
#include "arbora/gl/NkOffscreenRenderer.h"
#include "tools/panelix/Commands.h"
#include "tools/panelix/Messages.h"
#include "tools/panelix/SceneFile.h"

int panelix::render(const RenderOptions& options) {
  Messages messages;
  messages.setFile(options.file);
  SceneFile scene(options.file);
  if (!scene.root()) return FAILED;
  const NbViewportRegion viewport(options.size);
  scene.addMissingCamera(viewport);
  scene.addMissingLight();

  NkOffscreenRenderer renderer(viewport);
  renderer.setBackgroundColor(options.background);
  messages.setFile("");
  if (!renderer.render(scene.root())) return UNUSABLE;
  return renderer.writePng(NbString::fromUtf8(options.output)) ? GOOD : FAILED;
}
