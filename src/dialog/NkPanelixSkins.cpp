#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogComboBox.h"
#include "Panelix/NkDialogEditText.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkDialogRadioButtons.h"
#include "Panelix/NkDialogSeparator.h"
#include "Panelix/NkDialogSlider.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkMenuCheckBox.h"
#include "Panelix/NkMenuItem.h"
#include "Panelix/NkMenuPopup.h"
#include "Panelix/NkMenuPushButton.h"
#include "Panelix/NkMenuRadioButtons.h"
#include "Panelix/NkMenuSeparator.h"
#include "Panelix/NkPanelix.h"
#include "Panelix/NkTabDialog.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/base/NbFileHelper.h"
#include "arbora/base/NkDebugError.h"
#include "arbora/base/NkPreferences.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkSeparator.h"

namespace {

constexpr const char* kDirectories = "PANELIX_SKINS_DIR";

bool s_isReading = false;
bool s_isChangeDue = false;

/// Reads parts. What asks for another skin meanwhile, such as the search for the first one, the handler of a message or
/// a sensor on a part, gets it afterwards: until then a part may bear its temporary name, or share its name.
template <class Read>
void readUndisturbed(Read&& read) {
  const bool isOutermost = !std::exchange(s_isReading, true);
  read();
  if (!isOutermost) return;
  s_isReading = false;
  if (std::exchange(s_isChangeDue, false)) NkPanelix::change3DSkin();
}

NbString temporaryName(const NbString& partName) { return "_Rmx_Tmp_" + partName; }

/// Keeps the parts of a file for the life of the process: they may come to stand in any scene.
void keep(NkGroup* root) {
  static auto* const s_roots = new std::vector<NkGroup*>;
  root->ref();
  s_roots->push_back(root);
}

/// Empties the list of directories that all readers share, and puts them back at its end.
class DirectoriesAside {
public:
  DirectoriesAside() {
    const NbStringList& directories = NkInput::getDirectories();
    for (int i = 0; i < directories.getLength(); ++i) m_directories.push_back(*directories[i]);
    NkInput::clearDirectories();
  }
  ~DirectoriesAside() {
    NkInput::clearDirectories();
    for (const NbString& directory : m_directories) NkInput::addDirectoryLast(directory);
  }
  DirectoriesAside(const DirectoriesAside&) = delete;
  DirectoriesAside& operator=(const DirectoriesAside&) = delete;

private:
  std::vector<NbString> m_directories;
};

} // namespace

const char* NkPanelix::TextProperties = "DEF DialogTextProperties NkGroup {"
                                        "  BaseColor { rgb 0 0 0 }"
                                        "  Translation { translation 0 0 0.1 }"
                                        "  Font { size 11 name \"Tahoma\"}"
                                        "}";

NbString NkPanelix::s_skinsPath;
int NkPanelix::m_errorMsgDelivered = 1;
panelix::Skin NkPanelix::s_skin{"TextProperties.arb", NkPanelix::TextProperties, {"DialogTextProperties"}};

int NkPanelix::isSkinLoaded() { return s_skin.isLoaded; }

void NkPanelix::setSkinLoaded(int isLoaded) { s_skin.isLoaded = isLoaded; }

// Where a skin is

NbString NkPanelix::getSkinsDirectories() {
  NbString directories;
  const NbString* home = NkPreferences::getStringValue("ARBORAHOME");
  if (home && !home->isEmpty()) directories = *home + "/data/Panelix/skins/";
  const NbString* own = NkPreferences::getStringValue(kDirectories);
  if (own && !own->isEmpty()) {
    if (!directories.isEmpty()) directories += ";";
    directories += *own;
  }
  return directories;
}

void NkPanelix::setSkinsDirectories(NbString directories) { NkPreferences::setString(kDirectories, directories); }

NbString NkPanelix::getSkinsDirectory() { return getSkinsDirectories(); }

int NkPanelix::setSkinsDirectory(NbString nameOrPath) {
  setSkin(nameOrPath);
  return 1;
}

void NkPanelix::setSkin(NbString nameOrPath) {
  const NbString path = pathOfSkin(nameOrPath);
  if (path.isEmpty()) return;
  s_skinsPath = path;
  change3DSkin();
}

int NkPanelix::existSkin(NbString nameOrPath) { return !pathOfSkin(nameOrPath).isEmpty(); }

NbString NkPanelix::pathOfSkin(const NbString& nameOrPath) {
  if (NbFileHelper::isAccessible(nameOrPath, 0)) return nameOrPath;
  NbString path = "./" + nameOrPath;
  if (NbFileHelper::isAccessible(path, 0)) return path;
  NbStringList directories;
  NbStringList::split(directories, NbFileHelper::toUnixPath(getSkinsDirectories()), ";");
  path = "";
  for (int i = 0; i < directories.getLength() && path.isEmpty(); ++i) {
    const NbString candidate = *directories[i] + "/" + nameOrPath;
    if (NbFileHelper::isAccessible(candidate, 0)) path = candidate;
  }
  directories.deleteStrings();
  return path;
}

void NkPanelix::findSkin() {
  if (s_skinsPath.isEmpty()) setSkin(NkPreferences::getString("PANELIX_SKIN", "default"));
}

// Reading

NkGroup* NkPanelix::readFromFile(const NbString& fileName) {
  NkInput in;
  const DirectoriesAside aside;
  findSkin();
  NkInput::addDirectoryFirst(s_skinsPath);
  if (!in.openFile(fileName, true)) return nullptr;
  NkGroup* root = NkDB::readAll(&in);
  in.closeFile();
  return root;
}

void NkPanelix::readDefaultSkinsParts(const NbString& fileName, const char* builtInText) {
  if (NkGroup* root = readFromFile(fileName)) {
    keep(root);
    return;
  }
  NbString message = "The skin file : <" + fileName + "> cannot be found.";
  if (std::exchange(m_errorMsgDelivered, 0)) {
    message += "\nIMPORTANT : Internal Panelix component skin is loaded to prevent from your application to exit.\n";
    message += "For loading your own Panelix skins, please verify the PANELIX_SKINS_DIR environment variable.";
  }
  NkDebugError::post("Panelix::readDefaultSkinsParts", "%s", message.toUtf8().c_str());
  NkInput in;
  in.setBuffer(builtInText, std::strlen(builtInText));
  if (NkGroup* root = NkDB::readAll(&in)) keep(root);
}

void NkPanelix::useSkin(panelix::Skin& skin) {
  if (!skin.isFirstUse || skin.isLoaded) return;
  readUndisturbed([&] { readDefaultSkinsParts(skin.fileName, skin.builtInText); });
  skin.isLoaded = 1;
  skin.isFirstUse = 0;
}

void NkPanelix::loadFontProperties() { useSkin(s_skin); }

// Exchange: scenes keep the nodes of the parts and get new contents in them

void NkPanelix::free3DSkin(NbString partName) {
  const arbora::Ref<NkNode> part(NkNode::getByName(partName));
  if (!part) return;
  NkGroup* group = arbora::as<NkGroup>(part.get());
  // What has no children can't be filled again: it stays as it is, and the new part takes its name.
  part->setName(group ? temporaryName(partName) : "");
  if (group) group->removeAllChildren();
}

void NkPanelix::load3DSkin(NbString partName) {
  const arbora::Ref<NkGroup> oldPart(arbora::as<NkGroup>(NkNode::getByName(temporaryName(partName))));
  const arbora::Ref<NkNode> newPart(NkNode::getByName(partName));
  if (!oldPart || !newPart) return;
  if (const NkGroup* group = arbora::as<NkGroup>(newPart.get())) {
    for (int i = 0; i < group->getNumChildren(); ++i) oldPart->addChild(group->getChild(i));
  } else {
    oldPart->addChild(newPart.get());
  }
  newPart->setName("");
  oldPart->setName(partName);
}

void NkPanelix::exchangeSkin(panelix::Skin& skin) {
  if (s_isReading) {
    s_isChangeDue = true;
    return;
  }
  readUndisturbed([&] {
    for (const char* partName : skin.partNames) free3DSkin(partName);
    readDefaultSkinsParts(skin.fileName, skin.builtInText);
    for (const char* partName : skin.partNames) load3DSkin(partName);
    skin.isLoaded = 1;
  });
}

void NkPanelix::change3DSkin() {
  exchangeSkin(s_skin);
  NkMenuItem::change3DSkin();
  NkMenuCheckBox::change3DSkin();
  NkMenuPopup::change3DSkin();
  NkMenuPushButton::change3DSkin();
  NkMenuRadioButtons::change3DSkin();
  NkMenuSeparator::change3DSkin();
  NkDialogComponent::change3DSkin();
  NkDialogCheckBox::change3DSkin();
  NkDialogComboBox::change3DSkin();
  NkDialogRadioButtons::change3DSkin();
  NkDialogEditText::change3DSkin();
  NkTabDialog::change3DSkin();
  NkDialogPushButton::change3DSkin();
  NkDialogSeparator::change3DSkin();
  NkDialogSlider::change3DSkin();
  NkMenuBar::change3DSkin();
  NkTopLevelDialog::change3DSkin();
}
