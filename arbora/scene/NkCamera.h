#pragma once

#include "arbora/base/NbViewVolume.h"
#include "arbora/scene/NkSubNode.h"

class NbBox3f;
class NbViewportRegion;

/// Base of the nodes that look at the scene behind them. Without a rotation a camera looks along -z, y is up. A parent
/// space may move, turn and scale it; a scale that differs between the axes counts with its mean.
class ARBORA_API NkCamera : public NkNode {
  NK_NODE_ABSTRACT_HEADER(NkCamera);

public:
  NkSFVec3f position;       // (0, 0, 1).
  NkSFRotation orientation; // None.
  NkSFFloat aspectRatio;    // Width by height where no viewport is known; 1.
  NkSFFloat nearDistance;   // 1.
  NkSFFloat farDistance;    // 10.
  NkSFFloat focalDistance;  // Of the point that is looked at; 5.

  /// Moves the camera, without turning it, so that it sees all of the scene, and puts the near and the far plane
  /// `slack` radii of the scene's bounding sphere from its middle. A scene without anything visible changes nothing.
  /// The camera may stand in the scene, else it is taken to stand beside it.
  void viewAll(NkNode* root, const NbViewportRegion& viewport, float slack = 1.0F);
  /// Turns the camera to a point of its own space; nothing happens for the point where it stands.
  void pointAt(const NbVec3f& target, const NbVec3f& up = NbVec3f(0, 1, 0));

  /// What the camera sees, in its own space. An `aspect` of 0 stands for the field. Where the aspect is below 1, the
  /// view grows upwards and downwards instead of losing its sides.
  NbViewVolume getViewVolume(float aspect = 0.0F) const;

  /// The same in the space that `model` leads to.
  NbViewVolume getViewVolumeUnder(const NbMatrix& model, float aspect) const;

  void doAction(NkAction* action) override;
  void GLRender(NkGLRenderAction* action) override;

protected:
  NkCamera();
  ~NkCamera() override;

  /// How far from the middle of a sphere of this radius the camera must stand to see it; writes what else it takes.
  virtual float frameSphere(float radius) = 0;
  /// What is seen from the origin, unturned, with all distances and sizes scaled.
  virtual NbViewVolume getUnplacedViewVolume(float aspect, float scale) const = 0;
  /// A distance or a size as it counts: within what can be projected, and 0 for what isn't a number.
  static float usableLength(float length);

  bool dropCaches(NkNotification& notification) override;

private:
  float usedAspect(float aspect) const;
};
