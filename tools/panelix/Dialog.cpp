#include "tools/panelix/Dialog.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkDBImpl.h"
#include "arbora/scene/NkDirectionalLight.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/Suggest.h"
#include "arbora/win/NkWin.h"
#include "tools/panelix/Commands.h"
#include "tools/panelix/Messages.h"
#include "tools/panelix/SceneFile.h"

namespace panelix {
namespace {

bool standsByItself(const NkPanelix& component) {
  return component.isOfType(NkTopLevelDialog::getClassTypeId()) ||
         (component.isOfType(NkTopComponent::getClassTypeId()) && !component.getParent());
}

/// Puts the error dialogs of the window layer among the messages.
void postError(void* data, HWND, const char* title, const char* line1, const char* line2) {
  static_cast<Messages*>(data)->add(NkDebugError::ERROR_, std::string(title) + ": " + line1 + line2);
}

void ignoreError(void*, HWND, const char*, const char*, const char*) {}

} // namespace

Dialog::Dialog(const SceneFile& scene, const DialogOptions& options, Messages& messages) {
  std::vector<std::string> ids;
  for (const auto& node : scene.findAll(NkPanelix::getClassTypeId())) {
    auto* component = static_cast<NkPanelix*>(node.get());
    if (!standsByItself(*component)) continue;
    ids.push_back(component->auditorID.getValue().toUtf8());
    if (!options.id.empty() && ids.back() != options.id) continue;
    m_component = arbora::Ref<NkPanelix>(component);
    break;
  }
  if (!m_component) {
    const std::vector<std::string_view> known(ids.begin(), ids.end());
    messages.add(NkDebugError::ERROR_, ids.empty() ? "there is no dialog in the file"
                                                   : "there is no dialog with the auditorID '" + options.id + "'" +
                                                         arbora::suggest(options.id, known));
    return;
  }
  if (auto* dialog = dynamic_cast<NkTopLevelDialog*>(m_component.get())) {
    m_top = arbora::Ref<NkTopLevelDialog>(dialog);
    return;
  }
  m_top = arbora::Ref<NkTopLevelDialog>(new NkTopLevelDialog);
  m_top->label = m_component->getFileFormatName();
  m_top->addChild(static_cast<NkTopComponent*>(m_component.get()));
}

bool Dialog::build2D(Messages& messages) {
  const bool hasWindows = !NkDBImpl::m_isVerra;
  NkDBImpl::m_isVerra = false;
  NkWin::setErrorDialogHook(hasWindows ? postError : ignoreError, &messages);
  m_top->buildDialog(nullptr, 0);
  return !hasWindows || NkPanelix::existWidget(m_top->getWidget());
}

bool Dialog::open2D(Messages& messages) {
  if (NkDBImpl::m_isVerra) {
    messages.add(NkDebugError::ERROR_, "the 2D form needs Windows; --form 3d is the one for this system");
    return false;
  }
  NkWin::setErrorDialogHook(postError, &messages);
  HWND window = NkWin::init("Panelix");
  m_top->buildDialog(window, 1);
  NkWin::show(window);
  return NkPanelix::existWidget(m_top->getWidget());
}

NkSeparator* Dialog::build3D() {
  m_scene = arbora::Ref<NkSeparator>(new NkSeparator);
  m_scene->addChild(m_top.get());
  // The form comes into being when it is measured.
  NkGetBoundingBoxAction measure;
  measure.apply(m_scene.get());
  m_box = measure.getBoundingBox();
  return m_scene.get();
}

NbVec2i32 Dialog::addCamera(const std::optional<NbVec2i32>& size) {
  constexpr float kRoom = 8; // On each side.
  const NbVec3f extent = m_box.getSize() + 2 * NbVec3f(kRoom, kRoom, kRoom);
  const auto pixels = [](float length) { return std::min(static_cast<int>(std::ceil(length)), kLargestSize); };
  const NbVec2i32 picture = size.value_or(NbVec2i32(pixels(extent[0]), pixels(extent[1])));
  const auto width = static_cast<float>(picture[0]);
  const auto height = static_cast<float>(picture[1]);

  const arbora::Ref<NkOrthographicCamera> camera(new NkOrthographicCamera);
  const NbVec3f middle = m_box.getCenter();
  camera->position = NbVec3f(middle[0], middle[1], m_box.getMax()[2] + kRoom);
  camera->nearDistance = kRoom / 2;
  camera->farDistance = extent[2];
  // The field counts for the shorter side.
  camera->height = std::max(extent[0] / width, extent[1] / height) * std::min(width, height);
  m_scene->insertChild(new NkDirectionalLight, 0);
  m_scene->insertChild(camera.get(), 0);
  return picture;
}

bool isDialogMeant(const DialogOptions& options, const SceneFile& scene) {
  if (!options.id.empty() || options.form) return true;
  for (int i = 0; i < scene.root()->getNumChildren(); ++i) {
    if (!scene.root()->getChild(i)->isOfType(NkPanelix::getClassTypeId())) return false;
  }
  return scene.root()->getNumChildren() > 0;
}

bool setSize(NkPanelix& component, const NbVec2i32& size, Messages& messages) {
  const char* const names[] = {"width", "height"};
  for (int axis = 0; axis < 2; ++axis) {
    auto* field = dynamic_cast<NkSFInt32*>(component.getField(names[axis]));
    if (!field) {
      messages.add(NkDebugError::ERROR_, std::string("a ") + component.getFileFormatName() + " has no size to set");
      return false;
    }
    *field = size[axis];
  }
  return true;
}

bool setSkin(const std::string& name, Messages& messages) {
  if (name.empty()) return true;
  const NbString skin = NbString::fromUtf8(name);
  const bool isThere = NkPanelix::existSkin(skin);
  if (isThere)
    NkPanelix::setSkin(skin);
  else
    messages.add(NkDebugError::ERROR_, "there is no skin '" + name + "' in the current folder or among the skins in " +
                                           NkPanelix::getSkinsDirectories().toUtf8());
  return isThere;
}

} // namespace panelix
