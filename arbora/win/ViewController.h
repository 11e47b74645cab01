#pragma once

#include <memory>

#include "arbora/base/NbMatrix.h"
#include "arbora/base/NbRotation.h"
#include "arbora/base/NbVec2i32.h"
#include "arbora/base/NbVec3f.h"
#include "arbora/base/NbViewportRegion.h"
#include "arbora/scene/NkRefCounter.h"
#include "arbora/win/export.h"

class NkCamera;
class NkEvent;
class NkHandleEventAction;
class NkLocation2Event;
class NkMouseButtonEvent;
class NkNode;
class NkPath;
class NkSeparator;

namespace arbora {

/// What a render area does, apart from its window: it puts a camera to a scene, moves it with the mouse, keeps its
/// clipping planes around the scene, and hands events to the scene. Camera nodes must be registered.
class ARBORAWIN_API ViewController {
public:
  ViewController();
  ~ViewController();
  ViewController(const ViewController&) = delete;
  ViewController& operator=(const ViewController&) = delete;

  /// Takes the scene's own camera if it has one, otherwise one that looks at all of it from the front; where it stands
  /// then is the home position.
  void setScene(NkNode* scene);
  NkNode* getScene() const { return m_scene.get(); }

  /// A camera of the scene, or one that's put ahead of it. NULL stands for the one that `setScene` takes.
  void setCamera(NkCamera* camera);
  NkCamera* getCamera() const { return m_camera.get(); }

  /// What is to be drawn: the scene, with a camera ahead of it where it has none.
  NkNode* getRoot() const;

  void setViewport(const NbViewportRegion& viewport);
  const NbViewportRegion& getViewport() const { return m_viewport; }

  /// Whether the mouse moves the camera or is handed to the scene.
  void setViewing(bool flag) { m_viewing = flag; }
  bool isViewing() const { return m_viewing; }

  /// Escape changes between viewing and picking. A drag ends where it began, with the camera or with the scene. True if
  /// the event was used. A callback in the scene may end the render area, but not this object.
  bool handleEvent(const NkEvent& event);

  void viewAll();
  void saveHomePosition();
  void resetToHomePosition();

  /// Puts the camera's clipping planes close around the scene; where nothing of it lies ahead they stay.
  void updateClipping();

private:
  enum class Motion { NONE, TURN, PAN };
  struct Home {
    NbVec3f position;
    NbRotation orientation;
    float focalDistance = 0;
    float height = 0; // Of an orthographic camera.
  };

  void useCamera(NkCamera* camera, NkPath* path);
  bool moveCamera(const NkEvent& event);
  bool sendToScene(const NkEvent& event);
  void turn(const NbVec2i32& pixels);
  void pan(const NbVec2i32& from, const NbVec2i32& to);
  void dolly(float notches);
  /// From the space in which the camera stands to that of the scene.
  NbMatrix getCameraPlace();

  Ref<NkSeparator> m_root;
  Ref<NkNode> m_scene;
  Ref<NkCamera> m_camera;
  Ref<NkPath> m_cameraPath; // From the root; NULL if the camera stands directly in it.
  NbViewportRegion m_viewport;
  Home m_home;
  bool m_viewing = false;
  unsigned m_pressed = 0;       // A bit for each mouse button that's down.
  bool m_dragIsViewing = false; // What the first of them found.
  Motion m_motion = Motion::NONE;
  NbVec2i32 m_lastPosition;
  std::unique_ptr<NkHandleEventAction> m_eventAction;
};

} // namespace arbora
