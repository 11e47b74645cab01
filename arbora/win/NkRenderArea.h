#pragma once

#include <memory>

#include "arbora/base/NbColor.h"
#include "arbora/base/NbString.h"
#include "arbora/base/NbVec2i32.h"
#include "arbora/win/export.h"
#include "src/platform/Win32.h"

class NkCamera;
class NkNode;

/// A window that shows a scene and lets the user act in it. It draws again by itself when the scene changes, and keeps
/// the camera's clipping planes around the scene.
///
/// In picking mode, the mode to begin with, what the user does goes to the scene: mouse buttons, motion, wheel and
/// keys. In viewing mode a drag with the left button turns the camera about the point that it looks at, one with the
/// middle button, or with the left one and Shift, moves it aside, and the wheel moves it nearer and farther. Escape
/// changes the mode.
///
/// It may be deleted inside any of its own callbacks and inside those of the scene.
class ARBORAWIN_API NkRenderArea {
public:
  /// Makes the window, hidden, 640 by 480 pixels; in a parent it is a child window of the parent's size. Where no
  /// window can be made, one message says what to do about it and `isOpen` is false; everything else works without
  /// effect.
  explicit NkRenderArea(HWND parent = nullptr, const NbString& title = NbString());
  ~NkRenderArea();
  NkRenderArea(const NkRenderArea&) = delete;
  NkRenderArea& operator=(const NkRenderArea&) = delete;

  /// A scene without a camera gets one that looks at all of it from the front, and a light if it has none.
  void setSceneGraph(NkNode* scene);
  NkNode* getSceneGraph() const;
  /// A camera of the scene, or one that's put ahead of it; NULL stands for the scene's first, or else one of its own.
  void setCamera(NkCamera* camera);
  NkCamera* getCamera() const;

  void setBackgroundColor(const NbColor& color);
  const NbColor& getBackgroundColor() const;

  /// Moves the camera, without turning it, so that it sees the whole scene.
  void viewAll();
  void saveHomePosition();
  void resetToHomePosition();

  void setViewing(bool flag);
  bool isViewing() const;

  void setTitle(const NbString& title);
  const NbString& getTitle() const;
  /// The drawn area, in pixels.
  void setSize(const NbVec2i32& size);
  NbVec2i32 getSize() const;
  void show();
  void hide();
  bool isVisible() const;
  /// False once the window is closed or its parent is gone.
  bool isOpen() const;
  /// NULL where windows have no such handle.
  HWND getWindow() const;

  /// Called after the user has closed the window. Without a callback that ends the main loop with 0.
  using CloseCallback = void(void* data, NkRenderArea* area);
  void setCloseCallback(CloseCallback* callback, void* data = nullptr);

  /// Draws now instead of when the loop comes to it.
  void redraw();

private:
  class Content;
  std::shared_ptr<Content> m_content;
};
