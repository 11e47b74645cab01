// Bytes become changes to a handful of components: children come and go, fields are written, forms are built and taken
// down, the pointer clicks and drags, auditors interfere, and what stands is written and read back, which must give the
// same.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogAuditor.h"
#include "Panelix/NkDialogCheckBoxAuditor.h"
#include "Panelix/NkDialogCheckBoxLauncher.h"
#include "Panelix/NkDialogChoice.h"
#include "Panelix/NkDialogEditText.h"
#include "Panelix/NkDialogIntegerSlider.h"
#include "Panelix/NkDialogPushButtonLauncher.h"
#include "Panelix/NkDialogRealSlider.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkMenuCheckBoxLauncher.h"
#include "Panelix/NkMenuFileSelection.h"
#include "Panelix/NkMenuPushButtonLauncher.h"
#include "Panelix/NkMenuRadioButtons.h"
#include "Panelix/NkTabDialog.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkDBImpl.h"
#include "arbora/scene/NkFieldData.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/win/NkWin.h"
#include "tests/scene/Trees.h"

namespace {

using arbora::Ref;

constexpr int kMostNodes = 200;
constexpr std::size_t kMostTrees = 8;
constexpr int kSceneSize = 256; // In pixels, each as large as a unit.

/// The input; zeros behind its end.
class Bytes {
public:
  Bytes(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

  bool isEmpty() const { return m_size == 0; }
  int next() {
    if (m_size == 0) return 0;
    --m_size;
    return *m_data++;
  }
  int below(int count) { return count > 0 ? next() % count : 0; }
  bool flag() { return next() % 2 != 0; }

  /// Mostly small, so that it often means something.
  int integer() {
    constexpr int kEdges[] = {-2147483647 - 1, -1, 2147483647, 65536};
    const int byte = next();
    return byte < 250 ? byte % 16 - 2 : kEdges[byte % 4];
  }
  float real() {
    const int byte = next();
    if (byte < 200) return static_cast<float>(byte % 32 - 8) / 4;
    std::uint32_t bits = 0;
    for (int i = 0; i < 4; ++i) bits = bits << 8 | static_cast<std::uint32_t>(next());
    float value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return std::isfinite(value) ? value : 0;
  }
  NbString text() {
    constexpr const char* kTexts[] = {"", "a", "b", "&Open\\tCtrl+O", "\"", "\\", "\\\"", "two\nlines", "%s%n", "1.5"};
    const int byte = next();
    if (byte < 200) return NbString(kTexts[byte % 10]);
    std::string text;
    for (int i = byte - 200; i > 0; --i) text += static_cast<char>(next());
    return NbString::fromUtf8(text);
  }

private:
  const std::uint8_t* m_data;
  std::size_t m_size;
};

Ref<NkSeparator> read(const std::string& file) {
  NkInput in;
  in.setBuffer(file.data(), file.size());
  return Ref<NkSeparator>(NkDB::readAll(&in));
}

void writeField(NkField* field, Bytes& bytes) {
  if (auto* truth = dynamic_cast<NkSFBool*>(field)) {
    *truth = bytes.flag();
  } else if (auto* number = dynamic_cast<NkSFInt32*>(field)) {
    *number = bytes.integer();
  } else if (auto* real = dynamic_cast<NkSFFloat*>(field)) {
    *real = bytes.real();
  } else if (auto* text = dynamic_cast<NkSFString*>(field)) {
    text->setValue(bytes.text());
  } else if (auto* choice = dynamic_cast<NkSFEnum*>(field)) {
    const std::vector<int>& values = choice->getEnums()->values;
    *choice = values[static_cast<std::size_t>(bytes.below(static_cast<int>(values.size())))];
  } else if (auto* pair = dynamic_cast<NkSFVec2i32*>(field)) {
    pair->setValue(NbVec2i32(bytes.integer(), bytes.integer()));
  } else if (auto* place = dynamic_cast<NkSFVec3f*>(field)) {
    place->setValue(NbVec3f(bytes.real(), bytes.real(), bytes.real()));
  } else if (auto* texts = dynamic_cast<NkMFString*>(field)) {
    if (bytes.flag())
      texts->set1Value(bytes.below(8), bytes.text());
    else
      texts->deleteValues(bytes.below(texts->getNum() + 1));
  } else if (auto* colors = dynamic_cast<NkMFColor*>(field)) {
    colors->set1Value(bytes.below(4), NbColor(bytes.real(), bytes.real(), bytes.real()));
  }
}

/// Calls `use` with a node as the container that it is; false if it is none.
template <class Use>
bool asContainer(NkNode* node, Use&& use) {
  const auto as = [&](auto* container) {
    if (container) use(*container);
    return container != nullptr;
  };
  return as(dynamic_cast<NkDialogGroup*>(node)) || as(dynamic_cast<NkTopLevelDialog*>(node)) ||
         as(dynamic_cast<NkMenuBar*>(node)) || as(dynamic_cast<NkMenuPopup*>(node)) ||
         as(dynamic_cast<NkDialogCheckBoxLauncher*>(node)) || as(dynamic_cast<NkDialogPushButtonLauncher*>(node)) ||
         as(dynamic_cast<NkMenuCheckBoxLauncher*>(node)) || as(dynamic_cast<NkMenuPushButtonLauncher*>(node));
}

bool isContainer(NkNode* node) {
  return asContainer(node, [](auto&) {});
}

bool stands(const NkPanelix* node, const NkPanelix* above) {
  while (node && node != above) node = node->getParent();
  return node != nullptr;
}

class Run {
public:
  Run(Bytes& bytes, int before)
      : m_bytes(bytes), m_before(before), m_listener(*this), m_boxListener(*this),
        m_pointer(NbViewportRegion(kSceneSize, kSceneSize)), m_scene(new NkSeparator) {
    auto* camera = new NkOrthographicCamera;
    camera->position.setValue(kSceneSize / 2.0F, -kSceneSize / 2.0F, 500);
    camera->height = kSceneSize;
    camera->farDistance = 1000;
    m_scene->addChild(camera);
  }
  ~Run() {
    while (!m_nodes.empty()) drop();
    m_scene->removeAllChildren();
  }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  void step() {
    act();
    if (m_hasInterfered) return;
    for (const Ref<NkPanelix>& node : m_nodes) checkSwitches(node.get());
  }

private:
  /// Opens the parts of a kit.
  struct Parts : NkBaseKit {
    static NkNode* get(NkBaseKit* kit, const char* name) {
      return (kit->*&Parts::getAnyPart)(name, false, false, false);
    }
  };

  /// Where a check box stands in the scene, its marker shows its state, unless an auditor was at it.
  static void checkSwitches(NkPanelix* node) {
    auto* box = dynamic_cast<NkDialogCheckBox*>(node);
    if (box && box->isBuilt3D()) {
      const auto* choice = static_cast<NkSwitch*>(Parts::get(box, "stateSwitch"));
      if (choice->whichChild.getValue() != (box->state.getValue() ? 1 : 0)) std::abort();
    }
    asContainer(node, [](auto& container) {
      for (int i = 0; i < container.getNumChildren(); ++i) checkSwitches(container.getChild(i));
    });
  }

  void act() {
    switch (m_bytes.below(16)) {
      case 0:
        changeTrees();
        break;
      case 1:
      case 2:
        writeOneField();
        break;
      case 3:
        changeItems();
        break;
      case 4:
        changeAuditors();
        break;
      case 5:
        useAuditors();
        break;
      case 6:
        if (NkPanelix* node = anyTree()) checkFiles(node);
        break;
      case 7:
        changeScene();
        break;
      case 8:
        changeForms();
        break;
      case 9:
      case 10:
        movePointer();
        break;
      default:
        changeChildren();
    }
  }

  /// Interferes with what it hears of.
  class Listener : public NkDialogAuditor {
  public:
    explicit Listener(Run& run) : m_run(run) {}
    void dialogPushButton(NkDialogPushButton*) override { m_run.interfere(); }
    void dialogCheckBox(NkDialogCheckBox*) override { m_run.interfere(); }
    void dialogEditText(NkDialogEditText*) override { m_run.interfere(); }
    void dialogRealSlider(NkDialogRealSlider*) override { m_run.interfere(); }
    void menuCheckBox(NkMenuCheckBox*) override { m_run.interfere(); }
    void menuRadioButtons(NkMenuRadioButtons*) override { m_run.interfere(); }

  private:
    Run& m_run;
  };

  class BoxListener : public NkDialogCheckBoxAuditor {
  public:
    explicit BoxListener(Run& run) : m_run(run) {}
    void dialogCheckBox(NkDialogCheckBox* box) override {
      box->removeAuditor(this);
      m_run.interfere();
    }

  private:
    Run& m_run;
  };

  /// Inside a call to an auditor.
  void interfere() {
    if (m_bytes.isEmpty() || m_isInterfering) return;
    m_isInterfering = m_hasInterfered = true;
    act();
    m_isInterfering = false;
  }

  void changeTrees() {
    // The first one is a whole dialog, so that there is something to fill.
    const NkType type = m_nodes.empty() ? NkTopLevelDialog::getClassTypeId() : NkPanelix::getClassTypeId();
    if (m_nodes.size() == kMostTrees)
      drop();
    else if (NkPanelix* node = m_bytes.below(4) != 0 ? make(type) : copyAny())
      m_nodes.emplace_back(node);
  }

  /// One that stands by itself.
  NkPanelix* anyTree() {
    if (m_nodes.empty()) return nullptr;
    return m_nodes[static_cast<std::size_t>(m_bytes.below(static_cast<int>(m_nodes.size())))].get();
  }

  /// The same, or one below it.
  NkPanelix* any() {
    NkPanelix* node = nullptr;
    for (NkPanelix* below = anyTree(); below;) {
      node = below;
      below = nullptr;
      asContainer(node, [&](auto& container) {
        if (container.getNumChildren() > 0 && m_bytes.below(4) != 0)
          below = container.getChild(m_bytes.below(container.getNumChildren()));
      });
    }
    return node;
  }

  /// The same, or the nearest container above it.
  NkPanelix* anyContainer() {
    NkPanelix* node = any();
    while (node && !isContainer(node)) node = node->getParent();
    return node;
  }

  bool hasRoom() const { return NkBase::getLiveCount() < m_before + kMostNodes; }

  /// A new component of a class that derives from `base`; NULL if there are enough.
  NkPanelix* make(NkType base) {
    if (!hasRoom()) return nullptr;
    std::vector<NkType> types;
    NkType::getAllDerivedFrom(base, types);
    const NkType type = types[static_cast<std::size_t>(m_bytes.below(static_cast<int>(types.size())))];
    return static_cast<NkPanelix*>(type.createInstance());
  }

  NkPanelix* copyAny() {
    NkPanelix* node = any();
    return node && hasRoom() ? static_cast<NkPanelix*>(node->copy()) : nullptr;
  }

  void drop() {
    if (m_nodes.empty()) return;
    const auto place = m_nodes.begin() + m_bytes.below(static_cast<int>(m_nodes.size()));
    const Ref<NkPanelix> node = std::move(*place);
    m_nodes.erase(place);
  }

  void writeOneField() {
    NkPanelix* node = any();
    if (!node) return;
    NkFieldList fields;
    node->getFields(fields);
    NkField* field = fields[static_cast<std::size_t>(m_bytes.below(static_cast<int>(fields.size())))];
    // Tells of a drag; no file holds it.
    if (field == &node->isActive) return;
    if (m_bytes.below(8) == 0)
      field->set(m_bytes.text().toUtf8().c_str());
    else
      writeField(field, m_bytes);
  }

  /// A container stands in one place, so that the trees stay trees; other components may stand in several.
  bool canTake(const NkPanelix* container, NkPanelix* child) {
    return !child || !isContainer(child) || (child->getParents().isEmpty() && !stands(container, child));
  }

  void changeChildren() {
    const Ref<NkPanelix> node(anyContainer());
    if (node) asContainer(node.get(), [&](auto& container) { changeChildrenOf(container); });
  }

  template <class Container>
  void changeChildrenOf(Container& container) {
    using Child = std::remove_pointer_t<decltype(container.getChild(0))>;
    const int source = m_bytes.below(16);
    const Ref<NkPanelix> node(source == 0 ? nullptr : source < 10 ? make(Child::getClassTypeId()) : any());
    auto* const child = dynamic_cast<Child*>(node.get());
    if (!canTake(&container, child)) return;
    const int count = container.getNumChildren();
    const int index = m_bytes.below(count + 2) - (m_bytes.below(16) == 0 ? 1 : 0);
    switch (m_bytes.below(16)) {
      case 0:
      case 1:
      case 2:
        container.insertChild(child, index);
        break;
      case 3:
      case 4:
        container.replaceChild(index, child);
        break;
      case 5:
        container.removeChild(index);
        break;
      case 6:
        container.removeChild(child);
        break;
      case 7:
        if (m_bytes.below(8) == 0) container.removeAllChildren();
        break;
      default:
        container.addChild(child);
    }
    for (int i = 0; i < container.getNumChildren(); ++i) {
      const int found = container.findChild(container.getChild(i));
      if (found < 0 || found > i) std::abort();
    }
  }

  void changeItems() {
    auto* choice = dynamic_cast<NkDialogChoice*>(any());
    if (!choice) return;
    switch (m_bytes.below(3)) {
      case 0:
        choice->addItem(m_bytes.text());
        break;
      case 1:
        choice->insertItem(m_bytes.integer(), m_bytes.text());
        break;
      default:
        choice->removeItem(m_bytes.integer());
    }
  }

  void changeAuditors() {
    NkPanelix* node = any();
    const bool isAdded = m_bytes.below(3) != 0;
    const auto change = [&](auto* object, auto* auditor) {
      if (object && isAdded) object->addAuditor(auditor);
      if (object && !isAdded) object->removeAuditor(auditor);
    };
    change(dynamic_cast<NkDialogGroup*>(node), static_cast<NkDialogAuditor*>(&m_listener));
    change(dynamic_cast<NkTopLevelDialog*>(node), static_cast<NkDialogAuditor*>(&m_listener));
    change(dynamic_cast<NkMenuBar*>(node), static_cast<NkDialogAuditor*>(&m_listener));
    change(dynamic_cast<NkMenuPopup*>(node), static_cast<NkDialogAuditor*>(&m_listener));
    change(dynamic_cast<NkDialogCheckBox*>(node), static_cast<NkDialogCheckBoxAuditor*>(&m_boxListener));
  }

  /// As a user would, or an application.
  void useAuditors() {
    const Ref<NkPanelix> node(any());
    if (!node) return;
    const auto apply = [&](auto* component) {
      if (component) component->applyDlgCptAuditor();
    };
    const auto applyAll = [&](auto* container) {
      if (container) container->applyAuditors();
    };
    switch (m_bytes.below(3)) {
      case 0:
        applyAll(dynamic_cast<NkDialogGroup*>(node.get()));
        applyAll(dynamic_cast<NkTopLevelDialog*>(node.get()));
        applyAll(dynamic_cast<NkDialogCheckBoxLauncher*>(node.get()));
        applyAll(dynamic_cast<NkDialogPushButtonLauncher*>(node.get()));
        break;
      case 1:
        asContainer(node.get(), [&](auto& container) { container.searchForAuditorId(m_bytes.text()); });
        node->getFirstTopParent(m_bytes.below(2), m_bytes.below(2));
        break;
      default:
        apply(dynamic_cast<NkDialogPushButton*>(node.get()));
        apply(dynamic_cast<NkDialogCheckBox*>(node.get()));
        apply(dynamic_cast<NkDialogChoice*>(node.get()));
        apply(dynamic_cast<NkDialogEditText*>(node.get()));
        apply(dynamic_cast<NkDialogIntegerSlider*>(node.get()));
        apply(dynamic_cast<NkDialogRealSlider*>(node.get()));
        apply(dynamic_cast<NkTabDialog*>(node.get()));
        apply(dynamic_cast<NkMenuPushButton*>(node.get()));
        apply(dynamic_cast<NkMenuCheckBox*>(node.get()));
        apply(dynamic_cast<NkMenuRadioButtons*>(node.get()));
    }
  }

  /// Puts a tree into the scene, or takes one out.
  void changeScene() {
    const int inScene = m_scene->getNumChildren() - 1;
    if (m_bytes.below(4) == 0 && inScene > 0)
      m_scene->removeChild(1 + m_bytes.below(inScene));
    else if (NkPanelix* node = anyTree())
      if (node->getParents().isEmpty()) m_scene->addChild(node);
  }

  void changeForms() {
    m_hasForms = true;
    const Ref<NkPanelix> node(any());
    if (!node) return;
    auto* dialog = dynamic_cast<NkTopLevelDialog*>(node.get());
    auto* component = dynamic_cast<NkDialogComponent*>(node.get());
    switch (m_bytes.below(8)) {
      case 0:
        node->destroyWidget();
        break;
      case 1:
        node->resetSize();
        break;
      case 2:
        if (dialog) dialog->updateAfterSceneGraphChange();
        break;
      case 3:
        if (component) component->eventNotify(BN_CLICKED, 0);
        break;
      case 4:
        node->show3D(m_bytes.below(2));
        break;
      case 5:
        if (dialog) dialog->buildDialog(nullptr, 0);
        break;
      case 6: {
        NbVec2i32 size(m_bytes.integer(), m_bytes.integer());
        NbVec2i32 corner(m_bytes.integer(), m_bytes.integer());
        node->buildWidget(nullptr, size, corner, m_bytes.below(2));
        break;
      }
      default:
        NkGetBoundingBoxAction(m_pointer.getViewportRegion()).apply(m_scene.get());
    }
  }

  /// The three acts of a user come in any order. Whoever is clicked is built.
  void movePointer() {
    m_hasForms = true;
    NkMouseButtonEvent button;
    button.setButton(NkMouseButtonEvent::BUTTON1);
    NkLocation2Event motion;
    const int act = m_bytes.below(3);
    button.setState(act == 0 ? NkButtonEvent::DOWN : NkButtonEvent::UP);
    NkEvent& event = act == 2 ? static_cast<NkEvent&>(motion) : button;
    event.setPosition(NbVec2i32(m_bytes.next(), m_bytes.next()));
    m_pointer.setEvent(&event);
    m_pointer.apply(m_scene.get());
    m_pointer.setEvent(nullptr);
  }

  void checkFiles(NkPanelix* node) const {
    // What was written into a position that follows the other one, the reader's connection overwrites.
    const std::string text = m_hasForms ? writeTree(node, false) : std::string();
    const bool follows = text.find(".position3D") != text.npos || text.find(".minimized3DPosition") != text.npos;
    for (const bool binary : {false, true}) {
      const std::string file = writeTree(node, binary);
      const Ref<NkSeparator> again = read(file);
      if (!again || again->getNumChildren() != 1) std::abort();
      if (m_hasForms) {
        // The sizes that a layout has found aren't written.
        const std::string second = writeTree(again->getChild(0), binary);
        if (!follows && second != file) std::abort();
        const Ref<NkSeparator> third = read(second);
        if (!third || third->getNumChildren() != 1 || writeTree(third->getChild(0), binary) != second) std::abort();
        continue;
      }
      const std::string difference = treeDifference(node, again->getChild(0));
      if (difference.empty()) continue;
      std::fprintf(stderr, "%s\n", difference.c_str());
      std::abort();
    }
  }

  Bytes& m_bytes;
  const int m_before; ///< Live objects ahead of the run.
  Listener m_listener;
  BoxListener m_boxListener;
  NkHandleEventAction m_pointer;
  Ref<NkSeparator> m_scene; ///< Holds some of the trees.
  std::vector<Ref<NkPanelix>> m_nodes;
  bool m_isInterfering = false;
  bool m_hasInterfered = false;
  bool m_hasForms = false;
};

void ignore(int /*severity*/, const char* /*location*/, const char* /*text*/, void* /*data*/) {}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  NkPanelix::init();
  NkDebugError::setHandler(ignore, nullptr);
  NkWin::setErrorDialogHook([](void*, HWND, const char*, const char*, const char*) {}, nullptr);
  NkDBImpl::m_isVerra = true;
  // Skins live for the process.
  std::vector<NkType> types;
  NkType::getAllDerivedFrom(NkPanelix::getClassTypeId(), types);
  for (const NkType type : types) {
    if (!type.canCreateInstance()) continue;
    const Ref<NkNode> node(static_cast<NkNode*>(type.createInstance()));
    NkGetBoundingBoxAction().apply(node.get());
  }
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const int before = NkBase::getLiveCount();
  {
    Bytes bytes(data, size);
    Run run(bytes, before);
    while (!bytes.isEmpty()) run.step();
  }
  if (NkBase::getLiveCount() != before) std::abort();
  return 0;
}
