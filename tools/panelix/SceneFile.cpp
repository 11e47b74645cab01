#include "tools/panelix/SceneFile.h"

#include <unordered_set>

#include "arbora/base/NbFileHelper.h"
#include "arbora/base/NbMatrix.h"
#include "arbora/base/NbViewportRegion.h"
#include "arbora/scene/NkChildList.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkDirectionalLight.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkPerspectiveCamera.h"
#include "arbora/scene/NkSearchAction.h"

namespace panelix {
namespace {

const NbVec3f kViewFrom(0.35f, 0.3f, 1);
/// The way the added light travels, as the camera sees it.
const NbVec3f kLightDirection(-0.15f, -0.3f, -1);
/// How many radii of the scene the clipping planes of the added camera stand from its middle.
constexpr float kSlack = 1.1f;

/// The way to the first node of a type that counts in a traversal; NULL if there is none.
NkPath* findFirst(NkSearchAction& search, NkType type, NkNode* root) {
  search.setType(type);
  search.apply(root);
  return search.getPath();
}

} // namespace

SceneFile::SceneFile(const std::string& path) {
  const NbString name = NbString::fromUtf8(path);
  NkInput input;
  if (!input.openFile(name)) return;
  m_folder = NbFileHelper::getDirName(input.getCurFileName());
  NkInput::addDirectoryFirst(m_folder);
  m_root = NkDB::readAll(&input);
}

SceneFile::~SceneFile() {
  m_root = nullptr;
  if (!m_folder.isEmpty()) NkInput::removeDirectory(m_folder);
}

std::vector<arbora::Ref<NkNode>> SceneFile::findAll(NkType type) const {
  std::vector<arbora::Ref<NkNode>> found;
  // Nodes, not the ways to them: a small file can hold more of these than anybody can follow.
  std::unordered_set<const NkNode*> seen;
  std::vector<NkNode*> open{m_root.get()};
  while (!open.empty()) {
    NkNode* const node = open.back();
    open.pop_back();
    if (!seen.insert(node).second) continue;
    if (node->isOfType(type)) found.emplace_back(node);
    const NkChildList* const children = node->getChildren();
    for (int i = children ? children->getLength() : 0; i-- > 0;) open.push_back((*children)[i]);
  }
  return found;
}

void SceneFile::addMissingCamera(const NbViewportRegion& viewport) {
  NkSearchAction search;
  if (findFirst(search, NkCamera::getClassTypeId(), m_root.get())) return;
  const arbora::Ref<NkPerspectiveCamera> camera(new NkPerspectiveCamera);
  camera->position = kViewFrom;
  camera->pointAt(NbVec3f(0, 0, 0));
  m_root->insertChild(camera.get(), 0);
  camera->viewAll(m_root.get(), viewport, kSlack);
}

void SceneFile::addMissingLight() {
  NkSearchAction search;
  if (findFirst(search, NkLight::getClassTypeId(), m_root.get())) return;
  NbVec3f direction = kLightDirection;
  search.reset();
  if (NkPath* path = findFirst(search, NkCamera::getClassTypeId(), m_root.get())) {
    const auto* camera = static_cast<const NkCamera*>(path->full()->getTail());
    NkGetMatrixAction place;
    place.apply(path);
    place.getMatrix().multDirMatrix(camera->orientation.getValue().multVec(kLightDirection), direction);
  }
  const arbora::Ref<NkDirectionalLight> light(new NkDirectionalLight);
  light->direction = direction;
  m_root->insertChild(light.get(), 0);
}

} // namespace panelix
