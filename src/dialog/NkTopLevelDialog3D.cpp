#include "Panelix/NkMenuBar.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/scene/NkEvent.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkState.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTranslation.h"
#include "src/dialog/support/SensorPause.h"
#include "src/dialog/support/TopLevelLayout.h"

using panelix::writeChange;

// The 3D form: a panel with a title and a button that folds it to a strip. One scene unit is one pixel; the fields
// count y downwards, the scene upwards.

namespace {

constexpr float kTitleInset = 12;
constexpr float kStripHeight = 20;
constexpr float kButtonSize = 14;
/// From the corner of the panel to the children: what the frame and the caption take in 2D.
constexpr float kChildrenX = 4;
constexpr float kChildrenY = 23;
constexpr float kMenuBarHeight = 18;

constexpr int kReleased = 0;
constexpr int kPressed = 1;

float half(const NkSFInt32& field) { return static_cast<float>(field.getValue()) / 2; }

/// The middle of a box on one axis, doubled.
float sumOf(const NbBox3f& box, int axis) { return box.getMax()[axis] + box.getMin()[axis]; }

} // namespace

void NkTopLevelDialog::create3DTopLevelDialog() {
  loadFontProperties();
  useSkin(s_skin);
  setPartAsDefault("frame", "TopLevelDialogFrame", true);
  setPartAsDefault("labelProp", "DialogTextProperties", true);
  setPartAsDefault("minReleased", "TopLevelDialogMinReleased", true);
  setPartAsDefault("minPressed", "TopLevelDialogMinPressed", true);
  NkGroup* geometry = groupPart("geomSwitch");

  m_frameScale = arbora::Ref<NkScale>(new NkScale);
  groupPart("frameSep")->insertChild(m_frameScale.get(), 0);
  m_panelTranslation = arbora::Ref<NkTranslation>(new NkTranslation);
  geometry->insertChild(m_panelTranslation.get(), 0);
  NkGroup* title = groupPart("labelSep");
  m_undoTransform = arbora::Ref<NkTransform>(new NkTransform);
  geometry->insertChild(m_undoTransform.get(), geometry->findChild(title));

  m_labelTranslation = arbora::Ref<NkTranslation>(new NkTranslation);
  title->insertChild(m_labelTranslation.get(), 0);
  m_labelText = arbora::Ref<NkText3>(new NkText3);
  m_labelText->parts = NkText3::FRONT;
  title->addChild(m_labelText.get());
  change3DLabel();

  NkGroup* button = groupPart("minSep");
  auto* buttonScale = new NkScale;
  buttonScale->scaleFactor = NbVec3f(kButtonSize, kButtonSize, 1);
  button->insertChild(buttonScale, 0);
  m_minTranslation = arbora::Ref<NkTranslation>(new NkTranslation);
  button->insertChild(m_minTranslation.get(), 0);
  setSwitchValue(minSwtch.getValue(), kReleased);

  addStartCallback(startCB3D);
  addMotionCallback(motionCB3D);
  addFinishCallback(finishCB3D);
  setBuilt3D(1);
  m_depth3D = kDepthNotMeasured;
  m_firstMinimize = 1;
  m_holdUpdates = 0;
  show3D(1);
}

void NkTopLevelDialog::update3DTopLevelDialog() {
  const float x = half(width);
  const float y = half(height);
  const NbVec3f corner = position3D.getValue();
  writeChange(m_frameScale->scaleFactor, NbVec3f(2 * x, 2 * y, 1));
  writeChange(m_panelTranslation->translation, NbVec3f(corner[0] + x, -corner[1] - y, corner[2]));
  writeChange(m_minTranslation->translation, NbVec3f(x - kTitleInset, y - kTitleInset, 0));
  undoFrame();
  update3DLabel();
}

void NkTopLevelDialog::undoFrame() { undoTransformMatrix(frameSep.getValue(), m_undoTransform.get(), m_measuredFrame); }

void NkTopLevelDialog::update3DLabel() {
  if (!isLabelCachedBBox()) setLabelCacheBBox(measure3DText(labelProp.getValue(), m_labelText.get()));
  float y = -sumOf(getLabelCachedBBox(), 1) / 2;
  if (!minimized.getValue()) y += half(height) - kTitleInset;
  writeChange(m_labelTranslation->translation, NbVec3f(-half(width) + kTitleInset, y, 0));
}

void NkTopLevelDialog::change3DLabel() {
  NkPanelix::change3DLabel();
  if (m_labelText) m_labelText->string.setValue(convertToCString(label.getValue()));
}

NbVec3f NkTopLevelDialog::getTopLevelSize() const {
  return m_frameScale ? m_frameScale->scaleFactor.getValue() : NbVec3f(1, 1, 1);
}

// Children

NbVec3f NkTopLevelDialog::childrenTranslation() {
  const NbVec3f corner = position3D.getValue();
  const float menuHeight = widgetHasMenuBar() ? kMenuBarHeight : 0;
  NbVec3f translation(corner[0] + kChildrenX, -corner[1] - kChildrenY - menuHeight, corner[2]);
  apply3DTranslation(frameSep.getValue(), m_depth3D, translation);
  return translation;
}

void NkTopLevelDialog::update3DChildren() {
  NbVec3f translation = childrenTranslation();
  placeChildren([&](NkTopComponent* child, NbVec2i32& size, NbVec2i32& corner, bool) {
    child->set3DParentTranslation(translation);
    child->buildWidget(nullptr, size, corner, 0);
  });
}

void NkTopLevelDialog::update3DChildrenPosition() {
  NbVec3f translation = childrenTranslation();
  forEachChild([&](NkTopComponent* child) {
    child->set3DParentTranslation(translation);
    child->change3DPosition();
  });
}

void NkTopLevelDialog::show3DChildren(int on) {
  forEachChild([on](NkTopComponent* child) { child->show3D(on); });
}

void NkTopLevelDialog::show3D(int on) {
  show3DChildren(on);
  NkPanelix::show3D(on);
}

// Places

void NkTopLevelDialog::change3DPosition() {
  if (!m_panelTranslation) return;
  const auto halfWidth = static_cast<float>(width.getValue() / 2);
  const auto halfHeight = static_cast<float>(height.getValue() / 2);
  const bool isStrip = minimized.getValue();
  const NbVec3f corner = (isStrip ? minimized3DPosition : position3D).getValue();
  m_panelTranslation->translation =
      NbVec3f(corner[0] + halfWidth, -corner[1] - (isStrip ? kStripHeight / 2 : halfHeight), corner[2]);
  if (!isStrip && !hideChildren.getValue()) update3DChildrenPosition();
}

void NkTopLevelDialog::connectPositions(bool connect) {
  // The position that is dragged leads, the other follows.
  const bool isStrip = minimized.getValue();
  NkSFVec3f& leader = isStrip ? minimized3DPosition : position3D;
  NkSFVec3f& follower = isStrip ? position3D : minimized3DPosition;
  leader.disconnect(&follower);
  if (connect)
    follower.connectFrom(&leader);
  else
    follower.disconnect(&leader);
}

void NkTopLevelDialog::changeIndependentMinimizedPosition() {
  connectPositions(!independentMinimizedPosition.getValue());
}

void NkTopLevelDialog::updateMinimizedState() {
  const bool isStrip = minimized.getValue();
  if (m_firstMinimize) {
    minimized3DPosition = position3D.getValue();
    m_firstMinimize = 0;
  }
  if (!independentMinimizedPosition.getValue()) connectPositions(true);
  show3DChildren(isStrip);
  if (isStrip)
    minimize3DDialog();
  else
    restore3DDialog();
  show3DChildren(!isStrip);
}

void NkTopLevelDialog::minimize3DDialog() {
  const float x = half(width);
  const NbVec3f corner = minimized3DPosition.getValue();
  m_frameScale->scaleFactor = NbVec3f(2 * x, kStripHeight, 1);
  m_panelTranslation->translation = NbVec3f(corner[0] + x, -corner[1] - kStripHeight / 2, corner[2]);
  undoFrame();
  m_minTranslation->translation = NbVec3f(x - kTitleInset, 0, 0);
  update3DLabel();
}

void NkTopLevelDialog::restore3DDialog() {
  update3DTopLevelDialog();
  if (!hideChildren.getValue()) update3DChildrenPosition();
}

// Dragging

void NkTopLevelDialog::startCB3D(void*, NkDragger* dragger) {
  static_cast<NkTopLevelDialog*>(dragger)->draggerStartCallback3D();
}

void NkTopLevelDialog::motionCB3D(void*, NkDragger* dragger) {
  static_cast<NkTopLevelDialog*>(dragger)->draggerMotionCallback3D();
}

void NkTopLevelDialog::finishCB3D(void*, NkDragger* dragger) {
  static_cast<NkTopLevelDialog*>(dragger)->draggerFinishCallback3D();
}

void NkTopLevelDialog::draggerStartCallback3D() {
  if (!getPickPath()) return;
  if (isPicked(minSep)) {
    setSwitchValue(minSwtch.getValue(), kPressed);
  } else if (isPicked(frameSep)) {
    m_dragWorldPoint = getWorldStartingPoint();
    m_planeProjector.setPlane(NbPlane(NbVec3f(0, 0, 1), getLocalStartingPoint()));
    if (NkViewVolumeElement::isSet(getHandleEventAction()->getState())) m_planeProjector.setViewVolume(getViewVolume());
    m_dragStartPosition = (minimized.getValue() ? minimized3DPosition : position3D).getValue();
    if (!minimized.getValue() && hideChildren.getValue()) show3DChildren(0);
  }
  set3DCurrentActive(this);
}

void NkTopLevelDialog::draggerMotionCallback3D() {
  if (!isPicked(frameSep)) return;
  m_planeProjector.setWorkingSpace(getLocalToWorldMatrix());
  NbVec3f point;
  const bool hit = getEvent()->isTrackerEvent() ? m_planeProjector.intersect(getTrackerRay(), point)
                                                : m_planeProjector.project(getNormalizedLocaterPosition(), point);
  // Where the line of sight runs along the panel there is no place to drag it to.
  if (!hit) return;
  getLocalToWorldMatrix().multVecMatrix(point, m_dragWorldPoint);
  const NbVec3f way = point - getLocalStartingPoint();
  const NbVec3f target = m_dragStartPosition + NbVec3f(way[0], -way[1], way[2]);
  if (minimized.getValue())
    minimized3DPosition = target;
  else
    position3D = target;
  change3DPosition();
}

void NkTopLevelDialog::draggerFinishCallback3D() {
  if (!isPicked(minSep)) return;
  setSwitchValue(minSwtch.getValue(), kReleased);
  const bool wasStrip = minimized.getValue();
  show3DChildren(wasStrip);
  if (hideChildren.getValue() && !wasStrip) update3DChildrenPosition();
  minimized = !wasStrip;
}

void NkTopLevelDialog::getBoundingBox(NkGetBoundingBoxAction* action) {
  if (!isBuilt3D()) {
    const bool wasEnabled = enableNotify(false);
    setChildrenLabelSize();
    setChildrenComponentSize();
    const int wasVisible = m_visible3D;
    NbVec2i32 size(0, 0);
    NbVec2i32 corner(0, 0);
    buildWidget(nullptr, size, corner, 0);
    show3D(wasVisible);
    enableNotify(wasEnabled);
  }
  NkDragger::getBoundingBox(action);
}
