#include <cstdio>
#include <string>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkTexture2.h"
#include "tools/panelix/Commands.h"
#include "tools/panelix/DialogCheck.h"
#include "tools/panelix/Messages.h"
#include "tools/panelix/SceneFile.h"

namespace panelix {
namespace {

/// What would be missed only when the scene is drawn.
void checkImages(const SceneFile& scene) {
  // An image that can't be loaded is posted where it is asked for.
  for (const auto& node : scene.findAll(NkTexture2::getClassTypeId())) static_cast<NkTexture2*>(node.get())->getImage();
}

std::string counted(std::size_t count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

int check(const CheckOptions& options) {
  Messages messages(!options.json);
  for (const std::string& file : options.files) {
    messages.setFile(file);
    const SceneFile scene(file);
    if (!scene.root()) continue;
    checkImages(scene);
    checkDialogs(scene.root(), messages);
  }

  if (options.json) std::fputs(toJson(messages.all()).c_str(), stdout);
  const int errors = messages.count(NkDebugError::ERROR_);
  const int warnings = messages.count(NkDebugError::WARNING);
  const std::string summary = counted(options.files.size(), "file") + ": " +
                              counted(static_cast<std::size_t>(errors), "error") + ", " +
                              counted(static_cast<std::size_t>(warnings), "warning") + "\n";
  std::fputs(summary.c_str(), stderr);
  return errors > 0 || (options.strict && warnings > 0) ? FAILED : GOOD;
}

} // namespace panelix
