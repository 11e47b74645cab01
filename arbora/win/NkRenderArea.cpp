#include "arbora/win/NkRenderArea.h"

#include "arbora/base/NkDebugError.h"
#include "arbora/gl/GLBackend.h"
#include "arbora/gl/NkGLContext.h"
#include "arbora/scene/NkCamera.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkNodeSensor.h"
#include "arbora/win/EventLoop.h"
#include "arbora/win/NativeView.h"
#include "arbora/win/NkWin.h"
#include "arbora/win/ViewController.h"

namespace {

const NbVec2i32 kDefaultSize(640, 480);
/// Behind the sensors of applications, so that what they change is drawn at once with what set them off.
constexpr unsigned kRedrawPriority = 10000;

} // namespace

/// All of the area. It outlives the area where the area is deleted inside a call that comes from here.
class NkRenderArea::Content final : public arbora::NativeViewClient, public std::enable_shared_from_this<Content> {
public:
  explicit Content(NkRenderArea* area) : m_area(area), m_sensor(sceneChanged, this) {
    m_sensor.setPriority(kRedrawPriority);
    m_sensor.attach(controller.getRoot());
  }

  void open(HWND parent, const NbString& title) {
    m_title = title;
    NbString why;
    m_view = arbora::NativeView::create(*this, parent, title, kDefaultSize, why);
    if (!m_view) {
      NkDebugError::post("NkRenderArea::NkRenderArea", "%s", why.toLatin1().c_str());
      return;
    }
    resizeView();
  }

  /// The area is gone.
  void abandon() {
    m_area = nullptr;
    m_sensor.detach();
    closeWindow();
  }

  void paintView() override {
    const auto keep = shared_from_this();
    m_isPainting = true;
    if (prepareAction()) {
      controller.updateClipping();
      m_action->setViewportRegion(controller.getViewport());
      m_action->setBackgroundColor(background);
      m_action->apply(controller.getRoot());
      // The planes, and what building unbuilt parts changed, are in the picture already.
      m_sensor.unschedule();
    }
    m_isPainting = false;
    if (m_isClosing) closeWindow();
  }

  void resizeView() override {
    controller.setViewport(NbViewportRegion(m_view->getSize()));
    m_view->requestPaint();
  }

  void handleViewEvent(const NkEvent& event) override {
    const auto keep = shared_from_this();
    controller.handleEvent(event);
  }

  void closeView() override {
    const auto keep = shared_from_this();
    closeWindow();
    if (closeCallback) {
      closeCallback(closeData, m_area);
    } else {
      NkWin::exitMainLoop(0);
    }
  }

  arbora::NativeView* getView() const { return m_isClosing ? nullptr : m_view.get(); }
  const NbString& getTitle() const { return m_title; }

  void setTitle(const NbString& title) {
    m_title = title;
    if (m_view) m_view->setTitle(title);
  }

  arbora::ViewController controller;
  NbColor background;
  CloseCallback* closeCallback = nullptr;
  void* closeData = nullptr;

private:
  bool prepareAction() {
    if (m_action) return true;
    if (!arbora::loadGL()) return false;
    m_backend = std::make_unique<arbora::GLBackend>();
    m_action = std::make_unique<NkGLRenderAction>(controller.getViewport());
    m_action->setBackend(m_backend.get());
    return true;
  }

  void closeWindow() {
    if (!m_view) return;
    m_isClosing = true;
    // What draws just now must not go under its own feet.
    if (m_isPainting) return;
    m_view->close([this] {
      m_action.reset();
      m_backend.reset();
    });
    m_view.reset();
    m_isClosing = false;
  }

  static void sceneChanged(void* data, NkSensor* /*sensor*/) {
    const auto* content = static_cast<Content*>(data);
    if (arbora::NativeView* view = content->getView()) view->requestPaint();
  }

  NkRenderArea* m_area;
  std::shared_ptr<arbora::NativeView> m_view;
  NbString m_title;
  NkNodeSensor m_sensor;
  std::unique_ptr<arbora::GLBackend> m_backend;
  std::unique_ptr<NkGLRenderAction> m_action;
  bool m_isPainting = false;
  bool m_isClosing = false;
};

NkRenderArea::NkRenderArea(HWND parent, const NbString& title) : m_content(std::make_shared<Content>(this)) {
  arbora::prepareLoop();
  m_content->open(parent, title);
}

NkRenderArea::~NkRenderArea() { m_content->abandon(); }

void NkRenderArea::setSceneGraph(NkNode* scene) { m_content->controller.setScene(scene); }

NkNode* NkRenderArea::getSceneGraph() const { return m_content->controller.getScene(); }

void NkRenderArea::setCamera(NkCamera* camera) { m_content->controller.setCamera(camera); }

NkCamera* NkRenderArea::getCamera() const { return m_content->controller.getCamera(); }

void NkRenderArea::setBackgroundColor(const NbColor& color) {
  m_content->background = color;
  if (isOpen()) m_content->getView()->requestPaint();
}

const NbColor& NkRenderArea::getBackgroundColor() const { return m_content->background; }

void NkRenderArea::viewAll() { m_content->controller.viewAll(); }

void NkRenderArea::saveHomePosition() { m_content->controller.saveHomePosition(); }

void NkRenderArea::resetToHomePosition() { m_content->controller.resetToHomePosition(); }

void NkRenderArea::setViewing(bool flag) { m_content->controller.setViewing(flag); }

bool NkRenderArea::isViewing() const { return m_content->controller.isViewing(); }

void NkRenderArea::setTitle(const NbString& title) { m_content->setTitle(title); }

const NbString& NkRenderArea::getTitle() const { return m_content->getTitle(); }

void NkRenderArea::setSize(const NbVec2i32& size) {
  if (isOpen()) m_content->getView()->setSize(size);
}

NbVec2i32 NkRenderArea::getSize() const { return isOpen() ? m_content->getView()->getSize() : NbVec2i32(0, 0); }

void NkRenderArea::show() {
  if (isOpen()) m_content->getView()->show();
}

void NkRenderArea::hide() {
  if (isOpen()) m_content->getView()->hide();
}

bool NkRenderArea::isVisible() const { return isOpen() && m_content->getView()->isVisible(); }

bool NkRenderArea::isOpen() const { return m_content->getView() != nullptr; }

HWND NkRenderArea::getWindow() const { return isOpen() ? m_content->getView()->getWindow() : nullptr; }

void NkRenderArea::setCloseCallback(CloseCallback* callback, void* data) {
  m_content->closeCallback = callback;
  m_content->closeData = data;
}

void NkRenderArea::redraw() {
  if (isOpen()) m_content->getView()->paint();
}
