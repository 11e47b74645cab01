#pragma once

#include <functional>
#include <memory>

#include "arbora/base/NbString.h"
#include "arbora/base/NbVec2i32.h"
#include "src/platform/Win32.h"

class NkEvent;

namespace arbora {

/// What a native view tells its owner.
class NativeViewClient {
public:
  /// The whole view is to be drawn. The view's OpenGL context is current; what is drawn is shown afterwards.
  virtual void paintView() = 0;
  virtual void resizeView() = 0;
  virtual void handleViewEvent(const NkEvent& event) = 0;
  /// The user wants the window to close, or the window around it is gone.
  virtual void closeView() = 0;

protected:
  ~NativeViewClient() = default;
};

/// A window of the system with an OpenGL 3.3 context, without any logic of its own: the seam between NkRenderArea and
/// the window systems. Kept by shared pointers, as it may be let go of inside a call to its owner.
class NativeView : public std::enable_shared_from_this<NativeView> {
public:
  /// NULL if there can be no such window, with the reason and what to do in `why`. A parent makes it a child window,
  /// where the system has such.
  static std::shared_ptr<NativeView> create(NativeViewClient& client, HWND parent, const NbString& title,
                                            const NbVec2i32& size, NbString& why);

  virtual ~NativeView() = default;
  NativeView(const NativeView&) = delete;
  NativeView& operator=(const NativeView&) = delete;

  /// Runs `free` with the view's context current, to give back what was made in it; then takes the window off the
  /// screen for good. The owner isn't called any more.
  virtual void close(const std::function<void()>& free) = 0;
  /// NULL where windows have no such handle.
  virtual HWND getWindow() const = 0;
  virtual void show() = 0;
  virtual void hide() = 0;
  virtual bool isVisible() const = 0;
  virtual void setTitle(const NbString& title) = 0;
  /// The drawn area, in pixels.
  virtual void setSize(const NbVec2i32& size) = 0;
  virtual NbVec2i32 getSize() const = 0;

  /// Has the owner paint soon.
  virtual void requestPaint() = 0;
  /// Has the owner paint now.
  virtual void paint() = 0;

protected:
  explicit NativeView(NativeViewClient& client) : m_client(&client) {}
  NativeViewClient* m_client; // NULL once closed.
};

} // namespace arbora
