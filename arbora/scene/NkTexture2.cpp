#include "arbora/scene/NkTexture2.h"

#include <string>

#include "arbora/base/NbFileHelper.h"
#include "arbora/base/NkDebugError.h"
#include "arbora/scene/ImageFile.h"
#include "arbora/scene/NkAction.h"
#include "arbora/scene/NkInput.h"

NK_NODE_SOURCE(NkTexture2, NkNode, "Texture2");

NkTexture2::NkTexture2() {
  NK_NODE_CONSTRUCTOR(NkTexture2);
  NK_NODE_DEFINE_ENUM_VALUE(Wrap, REPEAT);
  NK_NODE_DEFINE_ENUM_VALUE(Wrap, CLAMP);
  NK_NODE_DEFINE_ENUM_VALUE(Model, MODULATE);
  NK_NODE_ADD_FIELD(filename, (""));
  NK_NODE_ADD_FIELD(image, (arbora::Image()));
  NK_NODE_ADD_FIELD(wrapS, (REPEAT));
  NK_NODE_ADD_FIELD(wrapT, (REPEAT));
  NK_NODE_ADD_FIELD(model, (MODULATE));
  NK_NODE_SET_SF_ENUM_TYPE(wrapS, Wrap);
  NK_NODE_SET_SF_ENUM_TYPE(wrapT, Wrap);
  NK_NODE_SET_SF_ENUM_TYPE(model, Model);
}

NkTexture2::~NkTexture2() = default;

void NkTexture2::doAction(NkAction* action) { action->getState()->texture = this; }

void NkTexture2::fieldHasChanged(NkField* field) {
  if (field == &filename || field == &image) m_valid = false;
  NkNode::fieldHasChanged(field);
}

namespace {

const arbora::Image kNoImage;

bool isWhole(const arbora::Image& image) {
  return image.width > 0 && image.height > 0 && image.components >= 1 && image.components <= 4 &&
         image.pixels.size() / static_cast<std::size_t>(image.components) / static_cast<std::size_t>(image.width) >=
             static_cast<std::size_t>(image.height);
}

bool isFile(const NbString& path) { return NbFileHelper::isAccessible(path) == 1 && !NbFileHelper::isDirectory(path); }

/// The path of a file in the folders of the reader; empty if it's in none.
NbString findFile(const NbString& name) {
  const NbString path = NbFileHelper::expandString(name);
  if (NbFileHelper::isAbsolutePath(path)) return isFile(path) ? path : NbString();
  const NbStringList& directories = NkInput::getDirectories();
  for (int i = 0; i < directories.getLength(); ++i) {
    const NbString candidate = directories[i]->isEmpty() ? path : *directories[i] + "/" + path;
    if (isFile(candidate)) return candidate;
  }
  return NbString();
}

} // namespace

const arbora::Image& NkTexture2::getImage() {
  if (!m_valid) load();
  if (!filename.getValue().isEmpty()) return m_loaded;
  return isWhole(image.getValue()) ? image.getValue() : kNoImage;
}

void NkTexture2::load() {
  m_valid = true;
  m_loaded = arbora::Image();
  const NbString& name = filename.getValue();
  if (name.isEmpty()) return;
  const std::string shownName = name.toUtf8();
  const NbString path = findFile(name);
  if (path.isEmpty()) {
    NkDebugError::postWarning("NkTexture2::filename", "can't find the image file \"%s\"; shapes stay without it",
                              shownName.c_str());
    return;
  }
  std::string bytes;
  std::string why;
  if (!NbFileHelper::readWholeFile(path, bytes, &why) || !arbora::decodeImage(bytes, m_loaded, why)) {
    NkDebugError::postWarning("NkTexture2::filename", "can't read the image file \"%s\" (%s); shapes stay without it",
                              shownName.c_str(), why.c_str());
  }
}
