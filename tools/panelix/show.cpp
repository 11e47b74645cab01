#include <cstdio>
#include <string>

#include "arbora/base/NbFileHelper.h"
#include "arbora/base/NbViewportRegion.h"
#include "arbora/scene/NkDragger.h"
#include "arbora/win/NkRenderArea.h"
#include "arbora/win/NkWin.h"
#include "tools/panelix/Commands.h"
#include "tools/panelix/Messages.h"
#include "tools/panelix/SceneFile.h"

namespace panelix {
namespace {

void printFinish(void* /*data*/, NkDragger* dragger) {
  std::string line = dragger->getFileFormatName();
  if (dragger->getName().getLength() > 0) line += std::string(" ") + dragger->getName().getString();
  std::puts((line + ": finish").c_str());
  // At once, for who reads it from a pipe.
  std::fflush(stdout);
}

} // namespace

int show(const ShowOptions& options) {
  Messages messages;
  messages.setFile(options.file);
  SceneFile scene(options.file);
  if (!scene.root()) return FAILED;
  // A window without a light in its scene lights it from the front, wherever the user turns it.
  scene.addMissingCamera(NbViewportRegion(options.size));
  for (const auto& node : scene.findAll(NkDragger::getClassTypeId())) {
    static_cast<NkDragger*>(node.get())->addFinishCallback(printFinish);
  }

  messages.setFile("");
  int result = UNUSABLE;
  {
    NkRenderArea area(nullptr, NbFileHelper::getBaseName(NbString::fromUtf8(options.file)) + " - Panelix");
    if (area.isOpen()) {
      area.setSize(options.size);
      area.setSceneGraph(scene.root());
      area.show();
      result = NkWin::mainLoop();
    }
  }
  NkWin::finish();
  return result;
}

} // namespace panelix
