#pragma once

#include <memory>

#include "arbora/base/NbColor.h"
#include "arbora/base/NbString.h"
#include "arbora/base/NbViewportRegion.h"
#include "arbora/gl/export.h"

class NkGLRenderAction;
class NkNode;
class NkPath;

/// Makes pictures of scenes without a window. It keeps its context and what it has compiled of the scenes, so that the
/// next picture of a scene costs only what changed.
class ARBORAGL_API NkOffscreenRenderer {
public:
  /// What each pixel of the picture has, one byte each.
  enum Components { RGB = 3, RGBA = 4 };

  /// The picture has the size of the window; the scene is drawn into the viewport.
  explicit NkOffscreenRenderer(const NbViewportRegion& viewport);
  ~NkOffscreenRenderer();
  NkOffscreenRenderer(const NkOffscreenRenderer&) = delete;
  NkOffscreenRenderer& operator=(const NkOffscreenRenderer&) = delete;

  void setViewportRegion(const NbViewportRegion& viewport);
  const NbViewportRegion& getViewportRegion() const;
  /// Black to begin with. `alpha` is the picture's where nothing is drawn.
  void setBackgroundColor(const NbColor& color, float alpha = 1.0f);
  /// RGBA to begin with.
  void setComponents(Components components);
  Components getComponents() const;
  /// Samples of a pixel, for smooth edges: 4 to begin with, 1 for none; at most what the graphics card has.
  void setNumSamples(int samples);

  /// False, with a message the first time, if there is no OpenGL or no memory for the picture.
  bool render(NkNode* root);
  bool render(NkPath* path);

  /// The last picture, rows from the bottom up without gaps; NULL before the first.
  const unsigned char* getBuffer() const;
  /// Writes the last picture as a PNG file. False, with a message, if that fails.
  bool writePng(const NbString& path) const;

  /// What draws the scenes; its back end is set once a picture was made.
  NkGLRenderAction* getGLRenderAction() const;

private:
  struct Target;
  template <class What>
  bool renderAny(What* what);
  std::unique_ptr<Target> m_target;
};
