#pragma once

#include <string>
#include <vector>

#include "arbora/base/NbString.h"
#include "arbora/scene/NkRefCounter.h"
#include "arbora/scene/NkSeparator.h"

class NbViewportRegion;
class NkType;

namespace panelix {

/// A scene from a file. While it lives, images with a relative name are looked for in the file's folder first.
class SceneFile {
public:
  /// What is wrong with the file is posted.
  explicit SceneFile(const std::string& path);
  ~SceneFile();
  SceneFile(const SceneFile&) = delete;
  SceneFile& operator=(const SceneFile&) = delete;

  /// NULL after an error.
  NkSeparator* root() const { return m_root.get(); }

  /// All nodes of a type and of those derived from it, also in switches and inside of kits; each once, in the order of
  /// the file.
  std::vector<arbora::Ref<NkNode>> findAll(NkType type) const;

  /// Puts a camera ahead of a scene without one: it sees all of the scene, from a little above and to the right.
  void addMissingCamera(const NbViewportRegion& viewport);
  /// Puts a light ahead of a scene without one: over the right shoulder of who looks through the scene's camera.
  void addMissingLight();

private:
  NbString m_folder;
  arbora::Ref<NkSeparator> m_root;
};

} // namespace panelix
