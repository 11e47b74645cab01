#pragma once

#include "arbora/scene/NkGroup.h"

/// Node with a field of every kind, and children.
class NkEveryField : public NkGroup {
  NK_NODE_HEADER(NkEveryField);

public:
  enum Flavour { SWEET, SOUR = 5, BITTER = -3 };
  enum Corner { NONE = 0, LEFT = 1, RIGHT = 2, TOP = 4, ALL = 7 };

  NkSFBool sfBool;
  NkSFInt32 sfInt32;
  NkSFFloat sfFloat;
  NkSFString sfString;
  NkSFFilePathString sfPath;
  NkSFName sfName;
  NkSFEnum sfEnum;
  NkSFBitMask sfBitMask;
  NkSFVec2i32 sfVec2i32;
  NkSFVec2f sfVec2f;
  NkSFVec3f sfVec3f;
  NkSFColor sfColor;
  NkSFRotation sfRotation;
  NkSFMatrix sfMatrix;
  NkSFPlane sfPlane;
  NkSFImage sfImage;
  NkSFNode sfNode;
  NkMFInt32 mfInt32;
  NkMFFloat mfFloat;
  NkMFString mfString;
  NkMFVec2f mfVec2f;
  NkMFVec3f mfVec3f;
  NkMFColor mfColor;
  NkMFNode mfNode;

  NkEveryField();

protected:
  ~NkEveryField() override;
};
