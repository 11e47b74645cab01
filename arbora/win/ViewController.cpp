#include "arbora/win/ViewController.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <numbers>

#include "arbora/base/NbBox3f.h"
#include "arbora/base/NbViewVolume.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkKeyboardEvent.h"
#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/scene/NkMouseWheelEvent.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkPerspectiveCamera.h"
#include "arbora/scene/NkSearchAction.h"
#include "arbora/scene/NkSeparator.h"

namespace arbora {
namespace {

/// A drag over the height of the window turns by this.
constexpr float kTurnOverHeight = std::numbers::pi_v<float>;
/// What is left of the distance to the focal point after one notch of the wheel towards it.
constexpr float kDollyPerNotch = 0.9F;
/// Room in front of and behind the scene, as a share of its depth, so that planes don't cut into its surface.
constexpr float kClippingSlack = 0.01F;
/// Of the far distance: what depth buffers can tell apart.
constexpr float kNearestShare = 0.001F;

/// Row of a camera's turned axes.
NbVec3f forwardOf(const NkCamera& camera) { return camera.orientation.getValue().multVec(NbVec3f(0, 0, -1)); }

NbVec3f focalPointOf(const NkCamera& camera) {
  return camera.position.getValue() + forwardOf(camera) * camera.focalDistance.getValue();
}

NkOrthographicCamera* asOrthographic(NkCamera* camera) {
  return camera->isOfType(NkOrthographicCamera::getClassTypeId()) ? static_cast<NkOrthographicCamera*>(camera)
                                                                  : nullptr;
}

Ref<NkPath> findPath(NkNode* root, NkNode* node) {
  NkSearchAction search;
  search.setNode(node);
  search.apply(root);
  return search.getPath();
}

template <class Field>
void setIfDifferent(Field& field, float value) {
  if (field.getValue() != value) field = value;
}

} // namespace

ViewController::ViewController() : m_root(new NkSeparator), m_eventAction(std::make_unique<NkHandleEventAction>()) {
  setScene(nullptr);
}

ViewController::~ViewController() = default;

NkNode* ViewController::getRoot() const { return m_root.get(); }

void ViewController::setScene(NkNode* scene) {
  m_scene = scene;
  setCamera(nullptr);
}

void ViewController::setCamera(NkCamera* camera) {
  const Ref<NkCamera> wanted = camera;
  m_root->removeAllChildren();
  if (m_scene) m_root->addChild(m_scene.get());

  Ref<NkPath> path;
  if (wanted) {
    path = findPath(m_root.get(), wanted.get());
  } else {
    NkSearchAction search;
    search.setType(NkCamera::getClassTypeId());
    search.apply(m_root.get());
    path = search.getPath();
  }
  if (path) {
    m_camera = static_cast<NkCamera*>(path->full()->getTail());
    m_cameraPath = path;
  } else {
    m_camera = wanted ? wanted : Ref<NkCamera>(new NkPerspectiveCamera);
    m_cameraPath = nullptr;
    m_root->insertChild(m_camera.get(), 0);
    if (!wanted) viewAll();
  }
  saveHomePosition();
}

void ViewController::setViewport(const NbViewportRegion& viewport) {
  m_viewport = viewport;
  m_eventAction->setViewportRegion(viewport);
}

void ViewController::viewAll() { m_camera->viewAll(m_root.get(), m_viewport); }

void ViewController::saveHomePosition() {
  const NkOrthographicCamera* orthographic = asOrthographic(m_camera.get());
  m_home = {m_camera->position.getValue(), m_camera->orientation.getValue(), m_camera->focalDistance.getValue(),
            orthographic ? orthographic->height.getValue() : 0.0F};
}

void ViewController::resetToHomePosition() {
  m_camera->position = m_home.position;
  m_camera->orientation = m_home.orientation;
  m_camera->focalDistance = m_home.focalDistance;
  if (NkOrthographicCamera* orthographic = asOrthographic(m_camera.get())) orthographic->height = m_home.height;
}

// Events

bool ViewController::handleEvent(const NkEvent& event) {
  if (m_pressed == 0 && NkKeyboardEvent::isKeyPressEvent(&event, NkKeyboardEvent::ESCAPE)) {
    m_viewing = !m_viewing;
    return true;
  }
  bool isViewing = m_pressed != 0 ? m_dragIsViewing : m_viewing;
  if (event.isOfType(NkMouseButtonEvent::getClassTypeId())) {
    const auto& button = static_cast<const NkMouseButtonEvent&>(event);
    if (m_pressed == 0) m_dragIsViewing = isViewing = m_viewing;
    const unsigned bit = 1U << button.getButton();
    m_pressed = button.getState() == NkButtonEvent::DOWN ? m_pressed | bit : m_pressed & ~bit;
  }
  return isViewing ? moveCamera(event) : sendToScene(event);
}

bool ViewController::sendToScene(const NkEvent& event) {
  m_eventAction->setEvent(&event);
  m_eventAction->apply(m_root.get());
  m_eventAction->setEvent(nullptr);
  return m_eventAction->isHandled();
}

bool ViewController::moveCamera(const NkEvent& event) {
  const NbVec2i32 position = event.getPosition();
  if (NkMouseButtonEvent::isButtonPressEvent(&event, NkMouseButtonEvent::BUTTON1)) {
    m_motion = event.wasShiftDown() ? Motion::PAN : Motion::TURN;
  } else if (NkMouseButtonEvent::isButtonPressEvent(&event, NkMouseButtonEvent::BUTTON2)) {
    m_motion = Motion::PAN;
  } else if (NkMouseButtonEvent::isButtonReleaseEvent(&event, NkMouseButtonEvent::ANY)) {
    if (m_pressed == 0) m_motion = Motion::NONE;
  } else if (event.isOfType(NkLocation2Event::getClassTypeId())) {
    if (m_motion == Motion::NONE) return false;
    if (m_motion == Motion::TURN) turn(position - m_lastPosition);
    if (m_motion == Motion::PAN) pan(m_lastPosition, position);
  } else if (event.isOfType(NkMouseWheelEvent::getClassTypeId())) {
    const int delta = static_cast<const NkMouseWheelEvent&>(event).getDelta();
    dolly(static_cast<float>(delta) / NkMouseWheelEvent::kNotch);
    return true;
  } else {
    return false;
  }
  m_lastPosition = position;
  return true;
}

/// About the focal point, around the camera's own axes; the scene follows the pointer.
void ViewController::turn(const NbVec2i32& pixels) {
  const float perPixel = kTurnOverHeight / static_cast<float>(m_viewport.getViewportSizePixels()[1]);
  const NbVec3f focalPoint = focalPointOf(*m_camera);
  const NbRotation aside(NbVec3f(0, 1, 0), static_cast<float>(-pixels[0]) * perPixel);
  const NbRotation upwards(NbVec3f(1, 0, 0), static_cast<float>(pixels[1]) * perPixel);
  m_camera->orientation = aside * upwards * m_camera->orientation.getValue();
  m_camera->position = focalPoint - forwardOf(*m_camera) * m_camera->focalDistance.getValue();
}

/// What lies at the focal distance stays under the pointer.
void ViewController::pan(const NbVec2i32& from, const NbVec2i32& to) {
  const NbViewVolume volume = m_camera->getViewVolume(m_viewport.getViewportAspectRatio());
  const NbVec2i32& size = m_viewport.getViewportSizePixels();
  const auto pointAt = [&](const NbVec2i32& pixel) {
    return volume.getPlanePoint(m_camera->focalDistance.getValue(),
                                NbVec2f(static_cast<float>(pixel[0]) / static_cast<float>(size[0]),
                                        static_cast<float>(pixel[1]) / static_cast<float>(size[1])));
  };
  m_camera->position = m_camera->position.getValue() + pointAt(from) - pointAt(to);
}

void ViewController::dolly(float notches) {
  const float factor = std::pow(kDollyPerNotch, notches);
  if (NkOrthographicCamera* orthographic = asOrthographic(m_camera.get())) {
    orthographic->height = orthographic->height.getValue() * factor;
    return;
  }
  const NbVec3f focalPoint = focalPointOf(*m_camera);
  m_camera->focalDistance = m_camera->focalDistance.getValue() * factor;
  m_camera->position = focalPoint - forwardOf(*m_camera) * m_camera->focalDistance.getValue();
}

// Clipping planes

NbMatrix ViewController::getCameraPlace() {
  // The camera may have moved elsewhere in the scene; one that has left it stands nowhere in particular.
  if (m_cameraPath && !m_cameraPath->isIntact()) m_cameraPath = findPath(m_root.get(), m_camera.get());
  if (!m_cameraPath) return NbMatrix::identity();
  NkGetMatrixAction action(m_viewport);
  action.apply(m_cameraPath.get());
  return action.getMatrix();
}

void ViewController::updateClipping() {
  NkGetBoundingBoxAction measure(m_viewport);
  measure.apply(m_root.get());
  const NbBox3f& box = measure.getBoundingBox();
  if (box.isEmpty()) return;

  const NbMatrix toCamera = getCameraPlace().inverse();
  const NbVec3f forward = forwardOf(*m_camera);
  float nearest = FLT_MAX;
  float farthest = -FLT_MAX;
  for (int corner = 0; corner < 8; ++corner) {
    NbVec3f point((corner & 1 ? box.getMax() : box.getMin())[0], (corner & 2 ? box.getMax() : box.getMin())[1],
                  (corner & 4 ? box.getMax() : box.getMin())[2]);
    toCamera.multVecMatrix(point, point);
    const float distance = forward.dot(point - m_camera->position.getValue());
    if (!std::isfinite(distance)) return;
    nearest = std::min(nearest, distance);
    farthest = std::max(farthest, distance);
  }
  // A flat scene has no depth of its own to take a share of.
  const float slack = kClippingSlack * std::max(farthest - nearest, kClippingSlack * std::fabs(farthest));
  nearest -= slack;
  farthest += slack;
  if (m_camera->getViewVolume().getProjectionType() == NbViewVolume::PERSPECTIVE) {
    if (farthest <= 0) return;
    nearest = std::max(nearest, farthest * kNearestShare);
  }
  if (!(nearest < farthest)) return;
  setIfDifferent(m_camera->nearDistance, nearest);
  setIfDifferent(m_camera->farDistance, farthest);
}

} // namespace arbora
