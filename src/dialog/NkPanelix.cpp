#include "Panelix/NkPanelix.h"

#include "Panelix/NkAuditor.h"
#include "Panelix/NkDialogGroup.h"
#include "Panelix/NkTopLevelDialog.h"
#include "Panelix/Vocabulary.h"
#include "arbora/base/NkModule.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkInteraction.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkNodeKit.h"
#include "arbora/scene/NkNotification.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkPickStyle.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/scene/NkWriteAction.h"
#include "fanout/FanoutInitModuleCmd.h"

NK_KIT_SOURCE(NkPanelix, NkDragger, "Panelix");

namespace {

const NkModule s_module("Panelix", PANELIX_VERSION, __FILE__);

NbThreadMutex s_initMutex;
int s_initRefCount = 0;

/// A file that was read, which later calls get again.
struct CachedFile {
  NbString fileName;
  arbora::Ref<NkGroup> root;
};
// Made by the first file, so that it can't outlive the scene library at the end of the process.
std::unique_ptr<std::vector<CachedFile>> s_cachedFiles;

/// Calls `use` with each toolkit node among a group's children, until one gives true.
template <class Use>
NkPanelix* findComponent(const NkGroup& root, Use&& use) {
  for (int i = 0; i < root.getNumChildren(); ++i) {
    NkNode* child = root.getChild(i);
    if (child->isOfType(NkPanelix::getClassTypeId()) && use(static_cast<NkPanelix*>(child)))
      return static_cast<NkPanelix*>(child);
  }
  return nullptr;
}

} // namespace

const NbBox3f NkPanelix::kNotMeasured(-1, -1, -1, -1, -1, -1);
HFONT NkPanelix::m_font = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
NkPanelix* NkPanelix::m_lastActive = nullptr;

NkPanelix::NkPanelix() : m_labelCachedBBox(kNotMeasured) {
  NK_KIT_CONSTRUCTOR(NkPanelix);
  NK_NODE_ADD_FIELD(enable, (TRUE));
  NK_NODE_ADD_FIELD(label, (""));
  NK_NODE_ADD_FIELD(auditorID, (""));
  NK_NODE_ADD_FIELD(labelAlignment, (RIGHT));
  NK_NODE_DEFINE_ENUM_VALUE(LabelAlignment, LEFT);
  NK_NODE_DEFINE_ENUM_VALUE(LabelAlignment, CENTER);
  NK_NODE_DEFINE_ENUM_VALUE(LabelAlignment, RIGHT);
  NK_NODE_SET_SF_ENUM_TYPE(labelAlignment, LabelAlignment);
  NK_KIT_ADD_CATALOG_ENTRY(geomSwitch, NkSwitch, true, "geomSeparator", "", false);
  NK_KIT_INIT_INSTANCE();
}

NkPanelix::~NkPanelix() {
  NkPanelix::set3DInactive();
  setParent(nullptr);
  for (NkPanelix* child : m_pointingHere) child->m_parent = nullptr;
}

// The library

void NkPanelix::init() {
  const NbThreadAutoLock lock(&s_initMutex);
  NkDB::init();
  NkNodeKit::init();
  NkInteraction::init();
  if (s_initRefCount == 0) {
    for (const panelix::VocabularyRow& row : panelix::vocabulary()) row.initClass();
    NkAuditor::initClasses();
    FanoutInitModuleCmd::Instance().serialize("Panelix");
  }
  ++s_initRefCount;
}

void NkPanelix::finish() {
  if (s_initRefCount == 0) return;
  if (--s_initRefCount == 0) {
    // The nodes look themselves up in the cache while they go.
    s_cachedFiles.reset();
    NkAuditor::exitClasses();
    const auto rows = panelix::vocabulary();
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) row->exitClass();
  }
  NkInteraction::finish();
  NkNodeKit::finish();
  NkDB::finish();
}

bool NkPanelix::isInitialized() { return s_initRefCount > 0; }

const char* NkPanelix::getProductName() { return "Panelix"; }

const char* NkPanelix::getVersion() { return PANELIX_VERSION; }

NkPanelix* NkPanelix::loadFromFile(NbString fileName, NbString id) {
  if (!s_cachedFiles) s_cachedFiles = std::make_unique<std::vector<CachedFile>>();
  arbora::Ref<NkGroup> root;
  for (const CachedFile& file : *s_cachedFiles) {
    if (file.fileName == fileName) root = file.root;
  }
  if (!root) {
    NkInput in;
    if (!in.openFile(fileName)) return nullptr;
    root = arbora::Ref<NkGroup>(NkDB::readAll(&in));
    if (!root) return nullptr;
    s_cachedFiles->push_back({fileName, root});
  }
  NkPanelix* found =
      findComponent(*root, [&](NkPanelix* child) { return id.isEmpty() || child->auditorID.getValue() == id; });
  if (found) {
    found->ref();
    return found;
  }
  NbString message("Cannot find any Panelix component ");
  if (!id.isEmpty()) {
    message += "with auditorID = \"";
    message += id;
    message += "\" ";
  }
  message += "in Arbora file \"";
  message += fileName;
  message += "\".";
  NkDebugError::post("NkPanelix::loadFromFile", "%s", message.toUtf8().c_str());
  return nullptr;
}

void NkPanelix::destroy() {
  destroyByRef(this);
  NkBase::destroy();
}

void NkPanelix::destroyByRef(NkPanelix* node) {
  if (!s_cachedFiles) return;
  for (auto file = s_cachedFiles->begin(); file != s_cachedFiles->end(); ++file) {
    if (!findComponent(*file->root, [&](NkPanelix* child) { return child == node; })) continue;
    const arbora::Ref<NkGroup> root = std::move(file->root);
    s_cachedFiles->erase(file);
    return;
  }
}

int NkPanelix::existWidget(HWND window) { return IsWindow(window) ? 1 : 0; }

// The tree

void NkPanelix::setParent(NkPanelix* parent) {
  if (m_parent) {
    std::vector<NkPanelix*>& siblings = m_parent->m_pointingHere;
    siblings.back()->m_indexInParent = m_indexInParent;
    siblings[static_cast<std::size_t>(m_indexInParent)] = siblings.back();
    siblings.pop_back();
  }
  m_parent = parent;
  if (!m_parent) return;
  m_indexInParent = static_cast<int>(m_parent->m_pointingHere.size());
  m_parent->m_pointingHere.push_back(this);
}

NkPanelix* NkPanelix::getFirstTopParent(int ignoreTraversal, int orSelf) {
  if (m_parent) {
    if (!m_parent->canBeTraversed() && !ignoreTraversal) return orSelf ? this : nullptr;
    if (m_parent->isOfType(NkTopLevelDialog::getClassTypeId())) return m_parent;
    return m_parent->getFirstTopParent(ignoreTraversal, orSelf);
  }
  return orSelf && isOfType(NkDialogGroup::getClassTypeId()) ? this : nullptr;
}

// Building

void NkPanelix::buildWidget(HWND parent, NbVec2i32&, NbVec2i32&, int is2D) {
  if (is2D) {
    m_built2D = is2D;
    m_parentWidget = parent;
  } else if (!m_pickStyle) {
    create3DPanelix();
  }
  if (m_labelAlignmentSensor) return;
  attachSensor(m_enableSensor, enable);
  attachSensor(m_labelSensor, label);
  attachSensor(m_labelAlignmentSensor, labelAlignment);
}

void NkPanelix::destroyWidget() { m_built2D = 0; }

void NkPanelix::create3DPanelix() {
  m_pickStyle = arbora::Ref<NkPickStyle>(new NkPickStyle);
  m_disableMaterial = arbora::Ref<NkMaterial>(new NkMaterial);
  m_labelCachedBBox = kNotMeasured;
}

void NkPanelix::attachSensor(std::unique_ptr<NkFieldSensor>& sensor, NkField& field) {
  if (!sensor) {
    sensor = std::make_unique<NkFieldSensor>(fieldChangedCB, this);
    sensor->setPriority(0);
  }
  if (sensor->getAttachedField() != &field) sensor->attach(&field);
}

// Fields

void NkPanelix::fieldChangedCB(void* data, NkSensor* sensor) {
  static_cast<NkPanelix*>(data)->updateFromSensor(sensor);
}

void NkPanelix::updateFromSensor(NkSensor* sensor) {
  // What a change calls may end the life of the node.
  const arbora::KeepAlive alive(this);
  const bool in2D = m_built2D != 0;
  const bool in3D = isLive3D();
  if (sensor == m_enableSensor.get()) {
    if (in2D) changeEnable();
    if (in3D) change3DEnable();
  } else if (sensor == m_labelSensor.get()) {
    if (in2D) changeLabel();
    if (in3D) change3DLabel();
  } else if (sensor == m_labelAlignmentSensor.get()) {
    if (in2D) changeLabelAlignment();
    if (in3D) change3DLabelAlignment();
  }
}

void NkPanelix::applyAuditor(NkPanelix*) {}

void NkPanelix::resetSize() {}

void NkPanelix::changeEnable() {}

void NkPanelix::changeLabel() {}

void NkPanelix::changeLabelAlignment() {}

// Auditors

void NkPanelix::addAuditor(NkAuditor* auditor) {
  if (!m_auditors) m_auditors = std::make_unique<NbPList>();
  if (m_auditors->find(auditor) < 0) m_auditors->append(auditor);
}

void NkPanelix::removeAuditor(NkAuditor* auditor) {
  if (m_auditors) m_auditors->removeItem(auditor);
}

void*& NkPanelix::getAuditor(int index) {
  if (!m_auditors) m_auditors = std::make_unique<NbPList>();
  return (*m_auditors)[index];
}

int NkPanelix::getAuditorListLength() const { return m_auditors ? m_auditors->getLength() : 0; }

void NkPanelix::forEachAuditor(const std::function<void(NkAuditor*)>& call) {
  if (!m_auditors) return;
  const arbora::KeepAlive alive(this);
  const NbPList auditors = *m_auditors;
  for (int i = 0; i < auditors.getLength(); ++i) {
    auto* auditor = static_cast<NkAuditor*>(auditors.get(i));
    if (m_auditors->find(auditor) >= 0) call(auditor);
  }
}

// Copies

bool NkPanelix::isCopied(const NkField& field) const {
  // What a build has made or found out, the copy's own build makes and finds out.
  return NkDragger::isCopied(field) && isWritten(field);
}

// 3D form

bool NkPanelix::dropCaches(NkNotification& notification) {
  // What a field says is drawn by way of the parts.
  const NkField* field = notification.origin == this ? notification.field : nullptr;
  if (isBuilt3D() && field && field->getTypeId() != NkSFNode::getClassTypeId()) notification.drawn = true;
  return NkDragger::dropCaches(notification);
}

void NkPanelix::GLRender(NkGLRenderAction* action) {
  if (isBuilt3D())
    doAction(action);
  else
    NkDragger::GLRender(action);
}

void NkPanelix::show3D(int on) {
  NkInteractionKit::setSwitchValue(geomSwitch.getValue(), on ? NK_SWITCH_ALL : NK_SWITCH_NONE);
  m_visible3D = on;
}

void NkPanelix::set3DParentTranslation(NbVec3f& translation) {
  m_parentTranslation = translation;
  if (m_parentTranslationNode && m_parentTranslationNode->translation.getValue() != translation)
    m_parentTranslationNode->translation = translation;
}

NkGroup* NkPanelix::groupPart(const NbName& name) { return static_cast<NkGroup*>(getAnyPart(name, true)); }

void NkPanelix::apply3DParentTranslation() {
  m_parentTranslationNode = arbora::Ref<NkTranslation>(new NkTranslation);
  groupPart("geomSeparator")->insertChild(m_parentTranslationNode.get(), 0);
  m_parentTranslationNode->translation = m_parentTranslation;
}

void NkPanelix::change3DPosition() {}

namespace {

const NbColor kBlack(0, 0, 0);
const NbColor kGrey(0.5F, 0.5F, 0.5F);

void showEnabled(NkPickStyle* pickStyle, NkMaterial* material, bool isEnabled, int styleOfEnabled) {
  if (pickStyle) pickStyle->style = isEnabled ? styleOfEnabled : NkPickStyle::UNPICKABLE;
  if (material) material->emissiveColor = isEnabled ? kBlack : kGrey;
}

} // namespace

void NkPanelix::change3DWidgetEnable(int on) {
  showEnabled(m_pickStyle.get(), m_disableMaterial.get(), on && enable.getValue(), NkPickStyle::SHAPE);
}

void NkPanelix::change3DEnable() {
  // Other than what the parent enables, what the application enables is picked by its box.
  showEnabled(m_pickStyle.get(), m_disableMaterial.get(), enable.getValue(), NkPickStyle::BOUNDING_BOX);
}

void NkPanelix::change3DLabel() { m_labelCachedBBox = kNotMeasured; }

void NkPanelix::change3DLabelAlignment() {}

void NkPanelix::set3DInactive() {
  if (m_lastActive == this) m_lastActive = nullptr;
}

void NkPanelix::set3DCurrentActive(NkPanelix* component) {
  if (m_lastActive && m_lastActive != component) m_lastActive->set3DInactive();
  m_lastActive = component;
}

bool NkPanelix::isPicked(const NkSFNode& part) const {
  const NkPath* path = getPickPath();
  return path && part.getValue() && path->containsNode(part.getValue());
}

int NkPanelix::isLabelCachedBBox() const { return m_labelCachedBBox != kNotMeasured; }

namespace {

/// An action for one measuring. It keeps its memory for the next one; a measuring inside a measuring gets its own.
template <class Action>
class Measuring {
public:
  Measuring() : m_action(std::move(spare())) {
    if (!m_action) m_action = std::make_unique<Action>();
  }
  ~Measuring() { spare() = std::move(m_action); }
  Measuring(const Measuring&) = delete;
  Measuring& operator=(const Measuring&) = delete;
  Action* operator->() const { return m_action.get(); }

private:
  static std::unique_ptr<Action>& spare() {
    thread_local std::unique_ptr<Action> s_spare;
    return s_spare;
  }
  std::unique_ptr<Action> m_action;
};

/// Where the end of a subgraph lies and how it is turned.
struct End {
  NbVec3f translation;
  NbRotation rotation;
};

End endOf(NkNode* node) {
  const Measuring<NkGetMatrixAction> matrix;
  matrix->applyToEnd(node);
  End end;
  NbVec3f scale;
  NbRotation scaleOrientation;
  matrix->getMatrix().getTransform(end.translation, end.rotation, scale, scaleOrientation);
  return end;
}

} // namespace

NbBox3f NkPanelix::measure3D(NkNode* node) {
  const Measuring<NkGetBoundingBoxAction> action;
  action->apply(node);
  return action->getBoundingBox();
}

NbBox3f NkPanelix::measure3DText(NkNode* properties, NkText3* text) {
  const arbora::Ref<NkGroup> scratch(new NkGroup);
  if (properties) scratch->addChild(properties);
  scratch->addChild(text);
  return measure3D(scratch.get());
}

void NkPanelix::measure3DText(NbBox3f& box, NkNode* properties, NkText3* text) {
  if (box == kNotMeasured) box = measure3DText(properties, text);
}

void NkPanelix::undoTransformMatrix(NkNode* node, NkTransform* result) {
  const End end = endOf(node);
  NbMatrix matrix;
  matrix.setTransform(end.translation, end.rotation, NbVec3f(1, 1, 1));
  result->setMatrix(matrix);
}

void NkPanelix::undoTransformMatrix(NkNode* node, NkTransform* result, std::uint64_t& measured) {
  if (measured == node->getNodeId()) return;
  undoTransformMatrix(node, result);
  measured = node->getNodeId();
}

float NkPanelix::compute3DDepth(NkNode* node) { return endOf(node).translation[2]; }

void NkPanelix::apply3DTranslation(NkNode* node, float& depth, NbVec3f& translation) {
  if (depth == kDepthNotMeasured) depth = compute3DDepth(node);
  translation += NbVec3f(0, 0, depth);
  translation += m_parentTranslation;
}

void NkPanelix::writeNode(const char* fileName) {
  NkOutput out;
  if (!out.openFile(fileName)) return;
  NkWriteAction action(&out);
  action.apply(getAnyPart("topSeparator", true));
  out.closeFile();
}
