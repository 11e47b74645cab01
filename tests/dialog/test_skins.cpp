#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogCheckBoxLauncher.h"
#include "Panelix/NkDialogComboBox.h"
#include "Panelix/NkDialogEditText.h"
#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkDialogPushButtonLauncher.h"
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
#include "Panelix/NkTabDialog.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/base/NkDebugError.h"
#include "arbora/base/NkPreferences.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkFont.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/scene/NkNodeSensor.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkPlaneDragger.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/RecordingBackend.h"
#include "tests/base/Environment.h"
#include "tests/dialog/DialogTest.h"

using arbora::Ref;

namespace {

// The classes

struct SkinnedClass {
  const char* fileName;
  const char** builtInText;
  void (*change)();
  int (*isLoaded)();
  std::vector<const char*> parts;
};

/// In the order in which all of them change.
const std::vector<SkinnedClass>& skinnedClasses() {
#define CLASS(Class, Text, ...)                                                             \
  {                                                                                         \
#Text ".arb", &Class::Text, &Class::change3DSkin, &Class::isSkinLoaded, { __VA_ARGS__ } \
  }
  static const std::vector<SkinnedClass> s_classes = {
      CLASS(NkPanelix, TextProperties, "DialogTextProperties"),
      CLASS(NkMenuItem, MenuItem, "MenuItemFrame"),
      CLASS(NkMenuCheckBox, MenuCheckBox, "MenuCheckBoxStateOn", "MenuCheckBoxStateOff"),
      CLASS(NkMenuPopup, MenuPopup, "MenuPopupPressedFrame", "MenuPopupReleasedFrame", "MenuPopupReleasedShape",
            "MenuPopupPressedShape"),
      CLASS(NkMenuPushButton, MenuPushButton, "MenuPushButtonReleased", "MenuPushButtonPressed"),
      CLASS(NkMenuRadioButtons, MenuRadioButtons, "MenuRadioButtonsStateOn", "MenuRadioButtonsStateOff"),
      CLASS(NkMenuSeparator, MenuSeparator, "MenuSeparatorFrame"),
      CLASS(NkDialogComponent, DialogComponent, "DialogComponentEdgeStyleNone", "DialogComponentEdgeStyleShadowIn",
            "DialogComponentEdgeStyleShadowOut"),
      CLASS(NkDialogCheckBox, DialogCheckBox, "DialogCheckBoxFrame", "DialogCheckBoxStateOff", "DialogCheckBoxStateOn"),
      CLASS(NkDialogComboBox, DialogComboBox, "DialogComboBoxFrame", "DialogComboBoxItemFrame",
            "DialogComboBoxButtonReleased", "DialogComboBoxButtonPressed"),
      CLASS(NkDialogRadioButtons, DialogRadioButtons, "DialogRadioButtonsFrame", "DialogRadioButtonsItemFrame",
            "DialogRadioButtonsStateOff", "DialogRadioButtonsStateOn"),
      CLASS(NkDialogEditText, DialogEditText, "DialogEditTextFrame", "DialogEditTextEditingFrame",
            "DialogEditTextDownButtonPressed", "DialogEditTextDownButtonReleased", "DialogEditTextUpButtonPressed",
            "DialogEditTextUpButtonReleased", "DialogEditTextScrollFrame", "DialogEditTextCursorFrame",
            "DialogEditTextCaretFrame"),
      CLASS(NkTabDialog, TabDialog, "TabDialogSelectedTabFrame", "TabDialogUnselectedTabFrame",
            "TabDialogLeftButtonPressed", "TabDialogLeftButtonReleased", "TabDialogRightButtonPressed",
            "TabDialogRightButtonReleased", "TabDialogFrame"),
      CLASS(NkDialogPushButton, DialogPushButton, "DialogPushButtonReleased", "DialogPushButtonPressed"),
      CLASS(NkDialogSeparator, DialogSeparator, "DialogSeparatorVertical", "DialogSeparatorHorizontal"),
      CLASS(NkDialogSlider, DialogSlider, "DialogSliderFrame", "DialogSliderCursor"),
      CLASS(NkMenuBar, MenuBar, "MenuBarFrame"),
      CLASS(NkTopLevelDialog, TopLevelDialog, "TopLevelDialogFrame", "TopLevelDialogMinReleased",
            "TopLevelDialogMinPressed"),
  };
#undef CLASS
  return s_classes;
}

/// What the classes do with their skins when their 3D form is built for the first time.
struct Root : NkPanelix {
  using NkPanelix::loadFontProperties;
  using NkPanelix::readDefaultSkinsParts;
};
struct CheckBox : NkDialogCheckBox {
  static void firstUse() { useSkin(s_skin); }
};
struct PushButton : NkDialogPushButton {
  static void firstUse() { useSkin(s_skin); }
};

// Messages

std::size_t s_seenMessages = 0;

/// Those since the last call.
std::vector<std::string> takeMessages() {
  std::vector<std::string> messages = postedMessages();
  messages.erase(messages.begin(), messages.begin() + static_cast<std::ptrdiff_t>(s_seenMessages));
  s_seenMessages += messages.size();
  return messages;
}

std::string notFound(const std::string& fileName) {
  return "Panelix::readDefaultSkinsParts(): The skin file : <" + fileName + "> cannot be found.";
}

const char* const kExplanation =
    "\nIMPORTANT : Internal Panelix component skin is loaded to prevent from your application to exit.\n"
    "For loading your own Panelix skins, please verify the PANELIX_SKINS_DIR environment variable.";

using Messages = std::vector<std::string>;

// A process for each test: what was read of a skin, and which one is used, holds for the life of the process

std::string skinDir(const std::string& name) { return sourceDir() + "/data/Panelix/skins/" + name; }

[[noreturn]] void leave() {
  const testing::TestResult* result = testing::UnitTest::GetInstance()->current_test_info()->result();
  for (int i = 0; i < result->total_part_count(); ++i) {
    const testing::TestPartResult& part = result->GetTestPartResult(i);
    if (part.failed()) std::fprintf(stderr, "%s:%d: %s\n", part.file_name(), part.line_number(), part.message());
  }
  std::exit(result->Failed() ? 1 : 0);
}

/// In an empty directory, without settings.
void runTest(void (*test)()) {
  namespace fs = std::filesystem;
  const fs::path folder =
      fs::path(outputDir()) / "skins" / testing::UnitTest::GetInstance()->current_test_info()->name();
  fs::remove_all(folder);
  fs::create_directories(folder);
  fs::current_path(folder);
  std::ofstream("settings") << "";
  const EnvironmentVariable settings("ARBORA_SETTINGS", (folder / "settings").string().c_str());
  const EnvironmentVariable home("ARBORAHOME", nullptr);
  const EnvironmentVariable directories("PANELIX_SKINS_DIR", nullptr);
  const EnvironmentVariable skin("PANELIX_SKIN", nullptr);
  NkPanelix::init();
  test();
  NkPanelix::finish();
  EXPECT_EQ(takeMessages(), Messages());
}

void runAlone(void (*test)()) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT((runTest(test), leave()), testing::ExitedWithCode(0), "");
}

#define SKIN_TEST(name)                        \
  void skin##name();                           \
  TEST(Skins, name) { runAlone(&skin##name); } \
  void skin##name()

// Skins of a test's own

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::string& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

/// The file of a check box whose parts are cubes of that width.
std::string checkBoxText(float width) {
  std::string text;
  for (const char* part : {"DialogCheckBoxFrame", "DialogCheckBoxStateOff", "DialogCheckBoxStateOn"})
    text += std::string("DEF ") + part + " Group { Cube { width " + std::to_string(width) + " } }\n";
  return text;
}

/// Makes a copy of the default skin in the current directory.
void copyDefaultSkin(const std::string& name) {
  std::filesystem::create_directories(name);
  for (const SkinnedClass& skinned : skinnedClasses())
    writeFile(name + "/" + skinned.fileName, readFile(skinDir("default") + "/" + skinned.fileName));
}

/// The default skin, with a check box of that width.
void makeSkin(const std::string& name, float width) {
  copyDefaultSkin(name);
  writeFile(name + "/DialogCheckBox.arb", checkBoxText(width));
}

NkGroup* part(const char* name) { return dynamic_cast<NkGroup*>(NkNode::getByName(name)); }

/// Width of the first cube of a part; 0 without one.
float widthOf(const NkGroup* group) {
  if (!group) return 0;
  for (int i = 0; i < group->getNumChildren(); ++i) {
    if (const auto* cube = dynamic_cast<const NkCube*>(group->getChild(i))) return cube->width.getValue();
  }
  return 0;
}
float widthOf(const char* name) { return widthOf(part(name)); }

int countOf(const char* name) {
  NkNodeList nodes;
  return NkNode::getByName(name, nodes);
}

std::string partAsText(const char* name) {
  NkNode* node = NkNode::getByName(name);
  return node ? writeTree(node, false) : std::string();
}

template <class Use>
void forEachPart(Use&& use) {
  for (const SkinnedClass& skinned : skinnedClasses()) {
    for (const char* name : skinned.parts) use(name);
  }
}

// Where a skin is looked for

SKIN_TEST(TheSearchListJoinsTheInstallationAndTheSettings) {
  EXPECT_EQ(NkPanelix::getSkinsDirectories(), "");
  EnvironmentVariable home("ARBORAHOME", "/opt/arbora");
  EXPECT_EQ(NkPanelix::getSkinsDirectories(), "/opt/arbora/data/Panelix/skins/");
  EnvironmentVariable directories("PANELIX_SKINS_DIR", "/a;/b");
  EXPECT_EQ(NkPanelix::getSkinsDirectories(), "/opt/arbora/data/Panelix/skins/;/a;/b");
  EXPECT_EQ(NkPanelix::getSkinsDirectory(), NkPanelix::getSkinsDirectories());
  home.set(nullptr);
  EXPECT_EQ(NkPanelix::getSkinsDirectories(), "/a;/b");
  directories.set("");
  EXPECT_EQ(NkPanelix::getSkinsDirectories(), "");
}

SKIN_TEST(TheProgramSetsTheDirectories) {
  const EnvironmentVariable directories("PANELIX_SKINS_DIR", "/a");
  NkPanelix::setSkinsDirectories("/b;/c");
  EXPECT_EQ(NkPanelix::getSkinsDirectories(), "/b;/c");
}

SKIN_TEST(AListOfDirectoriesReadsNothing) {
  makeSkin("here/mine", 3);
  makeSkin("there/mine", 4);
  NkPanelix::setSkinsDirectories("here");
  NkPanelix::setSkin("mine");
  NkPanelix::setSkinsDirectories("there");
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 3);
  NkPanelix::setSkin("mine");
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 4);
}

SKIN_TEST(TheFirstDirectoryThatHasTheSkinWins) {
  makeSkin("home/data/Panelix/skins/a", 2);
  makeSkin("first/b", 3);
  makeSkin("second/a", 4);
  makeSkin("second/b", 5);
  makeSkin("second/c", 6);
  const EnvironmentVariable home("ARBORAHOME", "home");
  const EnvironmentVariable directories("PANELIX_SKINS_DIR", "first;.\\second");
  const std::map<const char*, float> expected{{"a", 2.F}, {"b", 3.F}, {"c", 6.F}};
  for (const auto& [name, width] : expected) {
    NkPanelix::setSkin(name);
    EXPECT_EQ(widthOf("DialogCheckBoxFrame"), width) << name;
  }
}

SKIN_TEST(APathIsNotLookedFor) {
  makeSkin("mine", 2);
  makeSkin("other/mine", 3);
  makeSkin("home/data/Panelix/skins/mine", 4);
  const EnvironmentVariable home("ARBORAHOME", "home");
  const EnvironmentVariable directories("PANELIX_SKINS_DIR", "other");
  NkPanelix::setSkin("mine");
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 2);
  NkPanelix::setSkin("other/mine");
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 3);
  NkPanelix::setSkin(std::filesystem::absolute("mine").string().c_str());
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 2);
}

SKIN_TEST(TheEmptyNameIsTheCurrentDirectory) {
  makeSkin("mine", 2);
  std::filesystem::current_path("mine");
  NkPanelix::setSkin("");
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 2);
}

SKIN_TEST(ANameMayBeWide) {
  const NbString name(std::wstring(L"mine\u00E9\u20AC"));
  copyDefaultSkin("plain");
  std::filesystem::rename("plain", std::filesystem::path(u8"mine\u00E9\u20AC"));
  NkPanelix::setSkin(name);
  EXPECT_TRUE(part("DialogCheckBoxFrame"));
}

SKIN_TEST(ANameThatIsNowhereChangesNothing) {
  makeSkin("mine", 2);
  NkPanelix::setSkin("mine");
  NkPanelix::setSkinsDirectories("mine;nowhere");
  NkGroup* const frame = part("DialogCheckBoxFrame");
  NkNode* const cube = frame->getChild(0);
  NkPanelix::setSkin("yours");
  EXPECT_EQ(frame->getChild(0), cube);
  // The skin that is read again is still the old one.
  writeFile("mine/DialogCheckBox.arb", checkBoxText(3));
  NkPanelix::change3DSkin();
  EXPECT_EQ(widthOf(frame), 3);
}

SKIN_TEST(TheOlderNameSetsTheSkin) {
  makeSkin("mine", 2);
  EXPECT_EQ(NkPanelix::setSkinsDirectory("mine"), 1);
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 2);
  EXPECT_EQ(NkPanelix::setSkinsDirectory("yours"), 1);
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 2);
}

// First use

SKIN_TEST(NothingIsReadUntilItIsNeeded) {
  for (const SkinnedClass& skinned : skinnedClasses()) EXPECT_FALSE(skinned.isLoaded()) << skinned.fileName;
  forEachPart([](const char* name) { EXPECT_EQ(countOf(name), 0) << name; });
}

SKIN_TEST(WithoutASkinTheBuiltInTextsServe) {
  Root::loadFontProperties();
  EXPECT_EQ(takeMessages(), Messages{notFound("TextProperties.arb") + kExplanation});
  CheckBox::firstUse();
  EXPECT_EQ(takeMessages(), Messages{notFound("DialogCheckBox.arb")});
  for (const char* name :
       {"DialogTextProperties", "DialogCheckBoxFrame", "DialogCheckBoxStateOff", "DialogCheckBoxStateOn"})
    EXPECT_EQ(countOf(name), 1) << name;
  EXPECT_TRUE(NkPanelix::isSkinLoaded());
  EXPECT_TRUE(NkDialogCheckBox::isSkinLoaded());
  EXPECT_FALSE(NkDialogPushButton::isSkinLoaded());
}

SKIN_TEST(FirstUseIsOnlyOnce) {
  Root::loadFontProperties();
  takeMessages();
  Root::loadFontProperties();
  NkPanelix::setSkinLoaded(0);
  Root::loadFontProperties();
  EXPECT_FALSE(NkPanelix::isSkinLoaded());
  EXPECT_EQ(countOf("DialogTextProperties"), 1);
}

SKIN_TEST(AClassWhoseSkinIsLoadedReadsNone) {
  NkDialogCheckBox::setSkinLoaded(1);
  CheckBox::firstUse();
  EXPECT_EQ(countOf("DialogCheckBoxFrame"), 0);
  NkDialogCheckBox::setSkinLoaded(0);
  CheckBox::firstUse();
  EXPECT_EQ(countOf("DialogCheckBoxFrame"), 1);
  EXPECT_EQ(takeMessages().size(), 1U);
}

SKIN_TEST(FirstUseReadsTheWholeSkinOfTheSettings) {
  makeSkin("skins/mine", 2);
  const EnvironmentVariable directories("PANELIX_SKINS_DIR", "skins");
  const EnvironmentVariable skin("PANELIX_SKIN", "mine");
  CheckBox::firstUse();
  for (const SkinnedClass& skinned : skinnedClasses()) EXPECT_TRUE(skinned.isLoaded()) << skinned.fileName;
  forEachPart([](const char* name) { EXPECT_EQ(countOf(name), 1) << name; });
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 2);
}

SKIN_TEST(TheSkinOfTheSettingsIsCalledDefault) {
  const EnvironmentVariable home("ARBORAHOME", sourceDir().c_str());
  Root::loadFontProperties();
  EXPECT_TRUE(NkDialogCheckBox::isSkinLoaded());
}

SKIN_TEST(DefaultMayLieInTheCurrentDirectory) {
  makeSkin("default", 2);
  Root::loadFontProperties();
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 2);
}

SKIN_TEST(FilesMayLieInTheCurrentDirectory) {
  writeFile("DialogCheckBox.arb", checkBoxText(2));
  CheckBox::firstUse();
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 2);
}

SKIN_TEST(AProgramMayPutItsOwnTextInThePlaceOfABuiltInOne) {
  const std::string text = checkBoxText(2);
  NkDialogCheckBox::DialogCheckBox = text.c_str();
  CheckBox::firstUse();
  EXPECT_EQ(takeMessages().size(), 1U);
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 2);
}

namespace {

/// A dialog of a label, a separator, a push button and a check box, built in 3D.
class Panel {
public:
  Panel() {
    auto* label = new Opened<NkDialogLabel>;
    auto* separator = new Opened<NkDialogSeparator>;
    label->label = "text";
    m_dialog->addChild(label);
    auto* button = new Opened<NkDialogPushButton>;
    auto* box = new Opened<NkDialogCheckBox>;
    m_dialog->addChild(separator);
    m_dialog->addChild(button);
    m_dialog->addChild(box);
    NbVec2i32 none(0, 0);
    m_dialog->buildWidget(nullptr, none, none, 0);
    for (const char* name : {"frame", "minReleased", "minPressed", "labelProp"})
      m_parts.push_back(m_dialog->part(name));
    for (const char* name : {"edgeStyleNone", "edgeStyleShadowIn", "edgeStyleShadowOut", "labelProp"})
      m_parts.push_back(label->part(name));
    for (const char* name : {"edgeStyleNone", "vFrame", "hFrame"}) m_parts.push_back(separator->part(name));
    for (const char* name : {"labelProp", "released", "pressed", "buttonLabelProp"})
      m_parts.push_back(button->part(name));
    for (const char* name : {"frame", "labelProp", "stateOff", "stateOn", "onOffStringProp"})
      m_parts.push_back(box->part(name));
  }

  NkTopLevelDialog* dialog() { return m_dialog.get(); }
  /// The nodes that came from the skin.
  const std::vector<NkNode*>& parts() const { return m_parts; }
  std::vector<std::string> looks() const {
    std::vector<std::string> texts;
    for (NkNode* each : m_parts) texts.push_back(writeTree(each, false));
    return texts;
  }

private:
  template <class Component>
  struct Opened : Component {
    NkNode* part(const char* name) { return this->getAnyPart(name, false); }
  };

  const Ref<Opened<NkTopLevelDialog>> m_dialog{new Opened<NkTopLevelDialog>};
  std::vector<NkNode*> m_parts;
};

/// Colours of all that is drawn, sorted.
class Screen {
public:
  Screen() { m_action.setBackend(&m_backend); }
  std::vector<std::uint32_t> colours(NkNode* scene) {
    m_action.apply(scene);
    std::vector<std::uint32_t> all;
    for (const arbora::Instance& instance : m_backend.getDrawnInstances()) all.push_back(instance.diffuse);
    std::sort(all.begin(), all.end());
    return all;
  }

private:
  arbora::RecordingBackend m_backend;
  NkGLRenderAction m_action{NbViewportRegion(100, 100)};
};

} // namespace

SKIN_TEST(ThePanelOfAProgramWithoutASkinIsBuiltIn) {
  const Panel panel;
  // The files in the order in which their parts are wanted, the explanation with the first.
  EXPECT_EQ(takeMessages(), (Messages{notFound("TextProperties.arb") + kExplanation, notFound("TopLevelDialog.arb"),
                                      notFound("DialogComponent.arb"), notFound("DialogSeparator.arb"),
                                      notFound("DialogPushButton.arb"), notFound("DialogCheckBox.arb")}));
  const std::vector<std::string> looks = panel.looks();
  for (NkNode* each : panel.parts()) {
    ASSERT_NE(each, nullptr);
    EXPECT_GT(static_cast<NkGroup*>(each)->getNumChildren(), 0) << each->getName().getString();
  }
  const Panel second;
  EXPECT_EQ(second.looks(), looks);
  EXPECT_EQ(takeMessages(), Messages());
}

SKIN_TEST(AFormWhoseSkinHasNoPartsShowsNothingThere) {
  copyDefaultSkin("empty");
  for (const SkinnedClass& skinned : skinnedClasses())
    writeFile("empty/" + std::string(skinned.fileName), "#Arbora V2.1 ascii\n");
  writeFile("empty/TextProperties.arb", "#Arbora V2.1 ascii\n");
  NkPanelix::setSkin("empty");
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  for (const char* name : {"NkDialogComponent", "NkDialogLabel", "NkDialogSeparator", "NkDialogPushButton",
                           "NkDialogCheckBox", "NkDialogPushButtonLauncher", "NkDialogCheckBoxLauncher"})
    dialog->addChild(static_cast<NkDialogComponent*>(NkType::fromName(name).createInstance()));
  NbVec2i32 none(0, 0);
  dialog->buildWidget(nullptr, none, none, 0);
  for (int i = 0; i < dialog->getNumChildren(); ++i) EXPECT_TRUE(dialog->getChild(i)->isBuilt3D());
  const Ref<NkSeparator> scene(new NkSeparator);
  scene->addChild(dialog.get());
  EXPECT_EQ(Screen().colours(scene.get()).size(), 0U);
  // The fields work as ever.
  static_cast<NkDialogCheckBox*>(dialog->getChild(4))->state = true;
  static_cast<NkDialogPushButton*>(dialog->getChild(3))->buttonLabel = "other";
  dialog->minimized = true;
  dialog->minimized = false;
}

// Exchange

SKIN_TEST(APanelOnShowChangesItsLookByItself) {
  NkPanelix::setSkin(skinDir("default").c_str());
  Panel panel;
  const Ref<NkSeparator> scene(new NkSeparator);
  scene->addChild(panel.dialog());
  NkGetBoundingBoxAction box;
  box.apply(scene.get());
  const NbBox3f before = box.getBoundingBox();
  const std::vector<NkNode*> parts = panel.parts();
  const std::vector<std::string> looks = panel.looks();
  Screen screen;
  const std::vector<std::uint32_t> colours = screen.colours(scene.get());
  NkPanelix::setSkin(skinDir("dark").c_str());
  EXPECT_NE(screen.colours(scene.get()), colours);
  EXPECT_EQ(screen.colours(scene.get()), Screen().colours(scene.get())) << "nothing of the old look stays";
  const std::vector<std::string> darkLooks = panel.looks();
  for (std::size_t i = 0; i < parts.size(); ++i) EXPECT_NE(darkLooks[i], looks[i]) << parts[i]->getName().getString();
  const Panel fresh;
  EXPECT_EQ(fresh.parts(), parts) << "a panel that comes later shows the same nodes";
  EXPECT_EQ(fresh.looks(), darkLooks);
  box.apply(scene.get());
  EXPECT_EQ(box.getBoundingBox(), before) << "both skins fill the same frames";
  NkPanelix::setSkin(skinDir("default").c_str());
  EXPECT_EQ(panel.looks(), looks);
  EXPECT_EQ(screen.colours(scene.get()), colours);
}

SKIN_TEST(ScenesKeepThePartsAndTheyChange) {
  NkPanelix::setSkin(skinDir("default").c_str());
  std::map<std::string, NkNode*> nodes;
  std::map<std::string, std::string> looks;
  forEachPart([&](const char* name) {
    nodes[name] = NkNode::getByName(name);
    looks[name] = partAsText(name);
  });
  NkPanelix::setSkin(skinDir("dark").c_str());
  forEachPart([&](const char* name) {
    EXPECT_EQ(NkNode::getByName(name), nodes[name]) << name;
    EXPECT_EQ(countOf(name), 1) << name;
    EXPECT_NE(partAsText(name), looks[name]) << name;
  });
  NkPanelix::setSkin(skinDir("default").c_str());
  forEachPart([&](const char* name) {
    EXPECT_EQ(NkNode::getByName(name), nodes[name]) << name;
    EXPECT_EQ(partAsText(name), looks[name]) << name;
  });
}

SKIN_TEST(BuiltInPartsAreExchangedToo) {
  const Ref<NkSeparator> scene(new NkSeparator);
  CheckBox::firstUse();
  Root::loadFontProperties();
  takeMessages();
  NkGroup* const frame = part("DialogCheckBoxFrame");
  scene->addChild(frame);
  NkGetBoundingBoxAction box;
  box.apply(scene.get());
  EXPECT_EQ(box.getBoundingBox().getMax()[0], 0.5F);
  makeSkin("mine", 3);
  NkPanelix::setSkin("mine");
  EXPECT_EQ(part("DialogCheckBoxFrame"), frame);
  box.apply(scene.get());
  EXPECT_EQ(box.getBoundingBox().getMax()[0], 1.5F);
}

SKIN_TEST(AnExchangeFindsTheSkinOfTheSettings) {
  CheckBox::firstUse();
  takeMessages();
  NkGroup* const frame = part("DialogCheckBoxFrame");
  makeSkin("default", 2);
  NkDialogCheckBox::change3DSkin();
  EXPECT_EQ(part("DialogCheckBoxFrame"), frame);
  EXPECT_EQ(countOf("DialogCheckBoxFrame"), 1);
  EXPECT_EQ(widthOf(frame), 2);
  for (const SkinnedClass& skinned : skinnedClasses()) EXPECT_TRUE(skinned.isLoaded()) << skinned.fileName;
}

SKIN_TEST(FirstUseOfAnotherClassFindsASkinThatHasCome) {
  CheckBox::firstUse();
  takeMessages();
  NkGroup* const frame = part("DialogCheckBoxFrame");
  makeSkin("default", 2);
  PushButton::firstUse();
  EXPECT_EQ(part("DialogCheckBoxFrame"), frame);
  EXPECT_EQ(widthOf(frame), 2);
  EXPECT_EQ(countOf("DialogPushButtonReleased"), 1);
}

SKIN_TEST(ClassesChangeInOneOrder) {
  std::filesystem::create_directory("empty");
  NkPanelix::setSkin("empty");
  Messages expected;
  for (const SkinnedClass& skinned : skinnedClasses()) expected.push_back(notFound(skinned.fileName));
  expected.front() += kExplanation;
  EXPECT_EQ(takeMessages(), expected);
}

SKIN_TEST(PartsAreEmptiedAndFilledInOneOrder) {
  NkPanelix::setSkin(skinDir("default").c_str());
  Messages noted;
  const auto note = [](void* data, NkSensor* sensor) {
    auto& changes = *static_cast<Messages*>(data);
    auto* const group = static_cast<NkGroup*>(static_cast<NkNodeSensor*>(sensor)->getAttachedNode());
    const std::string change =
        group->getName().getString() + std::string(group->getNumChildren() ? " filled" : " emptied");
    if (changes.empty() || changes.back() != change) changes.push_back(change);
  };
  std::vector<std::unique_ptr<NkNodeSensor>> sensors;
  forEachPart([&](const char* name) {
    sensors.push_back(std::make_unique<NkNodeSensor>(note, &noted));
    sensors.back()->setPriority(0);
    sensors.back()->attach(part(name));
  });
  for (const SkinnedClass& skinned : skinnedClasses()) {
    if (skinned.isLoaded == &NkPanelix::isSkinLoaded) continue;
    Messages expected;
    for (const char* change : {" emptied", " filled"}) {
      for (const char* name : skinned.parts) expected.push_back(std::string("_Rmx_Tmp_") + name + change);
    }
    noted.clear();
    skinned.change();
    EXPECT_EQ(noted, expected) << skinned.fileName;
  }
}

SKIN_TEST(AClassCanChangeAlone) {
  makeSkin("mine", 2);
  NkPanelix::setSkin("mine");
  NkNode* const button = part("DialogPushButtonReleased")->getChild(0);
  writeFile("mine/DialogCheckBox.arb", checkBoxText(3));
  NkDialogCheckBox::setSkinLoaded(0);
  NkDialogCheckBox::change3DSkin();
  EXPECT_TRUE(NkDialogCheckBox::isSkinLoaded());
  EXPECT_EQ(widthOf("DialogCheckBoxStateOn"), 3);
  EXPECT_EQ(part("DialogPushButtonReleased")->getChild(0), button);
}

SKIN_TEST(ChildrenKeepTheirOrder) {
  makeSkin("mine", 2);
  NkPanelix::setSkin("mine");
  writeFile("mine/DialogCheckBox.arb",
            checkBoxText(1) + "DEF DialogCheckBoxFrame Separator { Cube { } Sphere { } Cone { } }");
  NkDialogCheckBox::change3DSkin();
  const NkGroup* const frame = part("DialogCheckBoxFrame");
  ASSERT_EQ(frame->getNumChildren(), 3);
  EXPECT_EQ(frame->getChild(0)->getTypeId().getName(), "Cube");
  EXPECT_EQ(frame->getChild(1)->getTypeId().getName(), "Sphere");
  EXPECT_EQ(frame->getChild(2)->getTypeId().getName(), "Cone");
}

SKIN_TEST(TheHalvesOfAnExchange) {
  const Ref<NkGroup> old(new NkGroup);
  old->setName("Part");
  old->addChild(new NkCube);
  NkPanelix::load3DSkin("Part");
  EXPECT_EQ(old->getNumChildren(), 1);
  NkPanelix::free3DSkin("Part");
  EXPECT_EQ(old->getName(), "_Rmx_Tmp_Part");
  EXPECT_EQ(old->getNumChildren(), 0);
  NkPanelix::load3DSkin("Part");
  EXPECT_EQ(old->getName(), "_Rmx_Tmp_Part");
  const Ref<NkGroup> fresh(new NkGroup);
  fresh->setName("Part");
  fresh->addChild(new NkCube);
  NkPanelix::load3DSkin("Part");
  EXPECT_EQ(old->getName(), "Part");
  EXPECT_EQ(fresh->getName(), "");
  ASSERT_EQ(old->getNumChildren(), 1);
  EXPECT_EQ(old->getChild(0), fresh->getChild(0));
  NkPanelix::free3DSkin("Unknown");
}

SKIN_TEST(APartMayBeASingleShape) {
  makeSkin("mine", 2);
  NkPanelix::setSkin("mine");
  NkGroup* const frame = part("DialogCheckBoxFrame");
  makeSkin("shapes", 0);
  writeFile("shapes/DialogCheckBox.arb", "DEF DialogCheckBoxFrame Cube { width 5 }");
  NkPanelix::setSkin("shapes");
  EXPECT_EQ(part("DialogCheckBoxFrame"), frame);
  EXPECT_EQ(widthOf(frame), 5);
}

SKIN_TEST(AShapeThatWasReadFirstGivesWayToTheNewPart) {
  makeSkin("shapes", 0);
  writeFile("shapes/DialogCheckBox.arb", "DEF DialogCheckBoxFrame Cube { width 5 }");
  NkPanelix::setSkin("shapes");
  EXPECT_TRUE(NkNode::getByName("DialogCheckBoxFrame"));
  makeSkin("mine", 2);
  NkPanelix::setSkin("mine");
  EXPECT_EQ(countOf("DialogCheckBoxFrame"), 1);
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 2);
}

SKIN_TEST(PartsOutliveTheLibrary) {
  NkPanelix::setSkin(skinDir("default").c_str());
  NkGroup* const frame = part("DialogCheckBoxFrame");
  NkPanelix::finish();
  NkPanelix::init();
  EXPECT_EQ(part("DialogCheckBoxFrame"), frame);
  EXPECT_EQ(widthOf(frame), 1);
  makeSkin("mine", 2);
  NkPanelix::setSkin("mine");
  EXPECT_EQ(part("DialogCheckBoxFrame"), frame);
  EXPECT_EQ(widthOf(frame), 2);
}

SKIN_TEST(ADragGoesOnWhileItsPartIsExchanged) {
  NkPanelix::setSkin(skinDir("default").c_str());
  const Ref<NkSeparator> root(new NkSeparator);
  auto* camera = new NkOrthographicCamera;
  camera->position.setValue(0, 0, 50);
  camera->height = 10;
  camera->farDistance = 100;
  root->addChild(camera);
  auto* dragger = new NkPlaneDragger;
  dragger->setPart("geometry", part("DialogCheckBoxFrame"));
  root->addChild(dragger);
  dragger->addMotionCallback([](void*, NkDragger*) { NkPanelix::setSkin(skinDir("dark").c_str()); }, nullptr);

  NkHandleEventAction action(NbViewportRegion(100, 100));
  const auto send = [&](NkEvent& event, int x) {
    event.setPosition(NbVec2i32(x, 50));
    action.setEvent(&event);
    action.apply(root.get());
  };
  NkMouseButtonEvent button;
  button.setButton(NkMouseButtonEvent::BUTTON1);
  button.setState(NkButtonEvent::DOWN);
  NkLocation2Event motion;
  send(button, 50);
  ASSERT_TRUE(dragger->isActive.getValue());
  send(motion, 60);
  NkPanelix::setSkin(skinDir("default").c_str());
  send(motion, 70);
  button.setState(NkButtonEvent::UP);
  send(button, 70);
  EXPECT_FALSE(dragger->isActive.getValue());
  EXPECT_NEAR(dragger->translation.getValue()[0], 2, 1e-3);
}

/// Sets the skin "third" as soon as the first cube of a part is of that width, while "second" takes the place of
/// "first".
void setSkinDuringExchange(float width) {
  makeSkin("first", 2);
  makeSkin("second", 3);
  makeSkin("third", 4);
  NkPanelix::setSkin("first");
  NkGroup* const frame = part("DialogCheckBoxFrame");
  struct Watch {
    NkGroup* frame;
    float width;
    bool isDone = false;
  } watch{frame, width};
  NkNodeSensor sensor(
      [](void* data, NkSensor*) {
        auto& w = *static_cast<Watch*>(data);
        if (widthOf(w.frame) == w.width && !std::exchange(w.isDone, true)) NkPanelix::setSkin("third");
      },
      &watch);
  sensor.setPriority(0);
  sensor.attach(frame);
  NkPanelix::setSkin("second");
  EXPECT_TRUE(watch.isDone);
  EXPECT_EQ(part("DialogCheckBoxFrame"), frame);
  forEachPart([](const char* name) { EXPECT_EQ(countOf(name), 1) << name; });
  for (const char* name : {"DialogCheckBoxFrame", "DialogCheckBoxStateOff", "DialogCheckBoxStateOn"})
    EXPECT_EQ(widthOf(name), 4) << name;
}

SKIN_TEST(ASkinThatIsSetWhileAPartIsEmptyFollows) { setSkinDuringExchange(0); }

SKIN_TEST(ASkinThatIsSetWhileAPartIsFilledFollows) { setSkinDuringExchange(3); }

SKIN_TEST(TheHandlerOfAMessageMaySetAnotherSkin) {
  makeSkin("holed", 2);
  makeSkin("whole", 3);
  std::filesystem::remove("holed/DialogCheckBox.arb");
  NkPanelix::setSkin("whole");
  NkGroup* const frame = part("DialogCheckBoxFrame");
  void* data = nullptr;
  NkDebugError::Handler* const handler = NkDebugError::setHandler(
      [](int, const char*, const char*, void*) { NkPanelix::setSkin("whole"); }, nullptr, &data);
  NkPanelix::setSkin("holed");
  NkDebugError::setHandler(handler, data);
  EXPECT_EQ(part("DialogCheckBoxFrame"), frame);
  EXPECT_EQ(widthOf(frame), 3);
  EXPECT_EQ(countOf("DialogCheckBoxFrame"), 1);
}

SKIN_TEST(AFirstUseDuringAnExchangeDoesntEndIt) {
  PushButton::firstUse();
  takeMessages();
  NkGroup* const button = part("DialogPushButtonReleased");
  makeSkin("mine", 2);
  void* data = nullptr;
  NkDebugError::Handler* const handler = NkDebugError::setHandler(
      [](int, const char*, const char*, void*) {
        NkDebugError::setHandler([](int, const char*, const char*, void*) {}, nullptr);
        CheckBox::firstUse();
        NkPanelix::setSkin("mine");
      },
      nullptr, &data);
  NkDialogPushButton::change3DSkin();
  NkDebugError::setHandler(handler, data);
  EXPECT_EQ(part("DialogPushButtonReleased"), button);
  EXPECT_EQ(widthOf(button), 1);
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 2);
  forEachPart([](const char* name) { EXPECT_EQ(countOf(name), 1) << name; });
}

// Failures

SKIN_TEST(AMissingFileConcernsItsClassAlone) {
  makeSkin("mine", 2);
  NkPanelix::setSkin("mine");
  makeSkin("holed", 3);
  std::filesystem::remove("holed/DialogPushButton.arb");
  NkPanelix::setSkin("holed");
  EXPECT_EQ(takeMessages(), Messages{notFound("DialogPushButton.arb") + kExplanation});
  EXPECT_EQ(widthOf("DialogPushButtonReleased"), 1);
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 3);
  NkPanelix::setSkin("holed");
  EXPECT_EQ(takeMessages(), Messages{notFound("DialogPushButton.arb")});
}

SKIN_TEST(AFileMayStandForADirectory) {
  writeFile("file", "no skin");
  NkPanelix::setSkin("file");
  EXPECT_EQ(takeMessages().size(), skinnedClasses().size());
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 1);
}

SKIN_TEST(ABrokenFileIsToldAndNotUsed) {
  makeSkin("mine", 2);
  NkPanelix::setSkin("mine");
  NkGroup* const frame = part("DialogCheckBoxFrame");
  writeFile("mine/DialogCheckBox.arb", checkBoxText(7) + "Cube { width");
  NkPanelix::setSkin("mine");
  const Messages messages = takeMessages();
  ASSERT_GE(messages.size(), 2U);
  EXPECT_EQ(messages.front().rfind("mine/DialogCheckBox.arb:4:", 0), 0U) << messages.front();
  EXPECT_EQ(messages.back(), notFound("DialogCheckBox.arb") + kExplanation);
  EXPECT_EQ(part("DialogCheckBoxFrame"), frame);
  EXPECT_EQ(widthOf(frame), 1);
  EXPECT_EQ(countOf("DialogCheckBoxFrame"), 1);
}

SKIN_TEST(APartThatIsMissingShowsNothingUntilItIsBack) {
  makeSkin("mine", 2);
  NkPanelix::setSkin("mine");
  const Ref<NkGroup> on(part("DialogCheckBoxStateOn"));
  makeSkin("holed", 3);
  writeFile("holed/DialogCheckBox.arb", "DEF DialogCheckBoxFrame Group { Cube { width 3 } }");
  NkPanelix::setSkin("holed");
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 3);
  EXPECT_EQ(countOf("DialogCheckBoxStateOn"), 0);
  EXPECT_EQ(on->getName(), "_Rmx_Tmp_DialogCheckBoxStateOn");
  EXPECT_EQ(on->getNumChildren(), 0);
  NkPanelix::setSkin("mine");
  EXPECT_EQ(part("DialogCheckBoxStateOn"), on.get());
  EXPECT_EQ(widthOf(on.get()), 2);
}

SKIN_TEST(APartThatIsMissingAtFirstUseIsNotThere) {
  makeSkin("default", 3);
  writeFile("default/DialogCheckBox.arb", "");
  CheckBox::firstUse();
  EXPECT_EQ(countOf("DialogCheckBoxFrame"), 0);
  EXPECT_TRUE(NkDialogCheckBox::isSkinLoaded());
}

// Readers of other files

SKIN_TEST(TheDirectoriesOfReadersStayAsTheyAre) {
  const auto directories = [] {
    std::vector<std::string> names;
    for (int i = 0; i < NkInput::getDirectories().getLength(); ++i)
      names.push_back(NkInput::getDirectories()[i]->toUtf8());
    return names;
  };
  NkInput::addDirectoryLast("zebra");
  NkInput::addDirectoryLast("ape");
  NkInput::addDirectoryFirst("zebra");
  const std::vector<std::string> expected = directories();
  ASSERT_EQ(expected, (std::vector<std::string>{"zebra", ".", "zebra", "ape"}));
  Root::loadFontProperties();
  EXPECT_EQ(directories(), expected);
  takeMessages();
  copyDefaultSkin("default");
  CheckBox::firstUse();
  EXPECT_EQ(directories(), expected);
  std::filesystem::remove("default/MenuBar.arb");
  writeFile("default/MenuItem.arb", "}");
  NkPanelix::setSkin("default");
  EXPECT_EQ(takeMessages().size(), 3U);
  EXPECT_EQ(directories(), expected);
  NkInput::clearDirectories();
  NkDialogCheckBox::change3DSkin();
  EXPECT_EQ(directories(), std::vector<std::string>());
}

SKIN_TEST(FilesOfOtherDirectoriesAreNoSkin) {
  makeSkin("other", 2);
  NkInput::addDirectoryFirst("other");
  makeSkin("mine", 3);
  std::filesystem::remove("mine/DialogCheckBox.arb");
  NkPanelix::setSkin("mine");
  EXPECT_EQ(takeMessages().size(), 1U);
  EXPECT_EQ(widthOf("DialogCheckBoxFrame"), 1);
}

// The skins that come with the library

using SkinFiles = DialogTest;

TEST_F(SkinFiles, TheDefaultSkinIsThatOfTheBuiltInTexts) {
  for (const SkinnedClass& skinned : skinnedClasses()) {
    const std::string text = readFile(skinDir("default") + "/" + skinned.fileName);
    EXPECT_EQ(text.rfind("#Arbora V2.1 ascii\n", 0), 0U) << skinned.fileName;
    const Ref<NkSeparator> file = read(text);
    const Ref<NkSeparator> builtIn = read(*skinned.builtInText);
    ASSERT_TRUE(file && builtIn) << skinned.fileName;
    EXPECT_EQ(difference(file.get(), builtIn.get()), "") << skinned.fileName;
  }
}

TEST_F(SkinFiles, LengthOfTheLongTexts) {
  EXPECT_EQ(std::strlen(NkTopLevelDialog::TopLevelDialog), 2471U);
  EXPECT_EQ(std::strlen(NkTabDialog::TabDialog), 3138U);
}

TEST_F(SkinFiles, EverySkinHasEveryPartAtItsSize) {
  for (const char* skin : {"default", "dark"}) {
    for (const SkinnedClass& skinned : skinnedClasses()) {
      const Ref<NkSeparator> file = read(readFile(skinDir(skin) + "/" + skinned.fileName));
      ASSERT_TRUE(file) << skin << ' ' << skinned.fileName;
      for (const char* name : skinned.parts) {
        auto* const group = dynamic_cast<NkGroup*>(NkNode::getByName(name));
        ASSERT_TRUE(group) << skin << ' ' << name;
        EXPECT_GT(group->getNumChildren(), 0) << skin << ' ' << name;
        if (skinned.isLoaded == &NkPanelix::isSkinLoaded) continue;
        NkGetBoundingBoxAction box;
        box.apply(group);
        const float width = box.getBoundingBox().getMax()[0] - box.getBoundingBox().getMin()[0];
        EXPECT_NEAR(box.getBoundingBox().getMin()[0], -0.5 * width, 1e-3) << skin << ' ' << name;
        EXPECT_LE(width, 1.001F) << skin << ' ' << name;
        EXPECT_GE(width, 0.5F) << skin << ' ' << name;
      }
    }
  }
}

TEST_F(SkinFiles, TextsAreBlackOnTheDefaultSkinInElevenPixels) {
  const Ref<NkSeparator> root = read(NkPanelix::TextProperties);
  const auto* group = static_cast<NkGroup*>(root->getChild(0));
  ASSERT_EQ(group->getNumChildren(), 3);
  const auto* font = dynamic_cast<NkFont*>(group->getChild(2));
  ASSERT_TRUE(font);
  EXPECT_EQ(font->size.getValue(), 11);
  EXPECT_EQ(font->name.getValue(), "Tahoma");
}

} // namespace
