#include "EveryField.h"

NK_NODE_SOURCE(NkEveryField, NkGroup, "EveryField");

NkEveryField::NkEveryField() {
  NK_NODE_CONSTRUCTOR(NkEveryField);
  NK_NODE_DEFINE_ENUM_VALUE(Flavour, SWEET);
  NK_NODE_DEFINE_ENUM_VALUE(Flavour, SOUR);
  NK_NODE_DEFINE_ENUM_VALUE(Flavour, BITTER);
  NK_NODE_DEFINE_ENUM_VALUE(Corner, NONE);
  NK_NODE_DEFINE_ENUM_VALUE(Corner, LEFT);
  NK_NODE_DEFINE_ENUM_VALUE(Corner, RIGHT);
  NK_NODE_DEFINE_ENUM_VALUE(Corner, TOP);
  NK_NODE_DEFINE_ENUM_VALUE(Corner, ALL);
  NK_NODE_ADD_FIELD(sfBool, (false));
  NK_NODE_ADD_FIELD(sfInt32, (0));
  NK_NODE_ADD_FIELD(sfFloat, (0.0F));
  NK_NODE_ADD_FIELD(sfString, (""));
  NK_NODE_ADD_FIELD(sfPath, (""));
  NK_NODE_ADD_FIELD(sfName, (""));
  NK_NODE_ADD_FIELD(sfEnum, (SWEET));
  NK_NODE_SET_SF_ENUM_TYPE(sfEnum, Flavour);
  NK_NODE_ADD_FIELD(sfBitMask, (NONE));
  NK_NODE_SET_SF_ENUM_TYPE(sfBitMask, Corner);
  NK_NODE_ADD_FIELD(sfVec2i32, (0, 0));
  NK_NODE_ADD_FIELD(sfVec2f, (0, 0));
  NK_NODE_ADD_FIELD(sfVec3f, (0, 0, 0));
  NK_NODE_ADD_FIELD(sfColor, (0, 0, 0));
  NK_NODE_ADD_FIELD(sfRotation, (NbRotation()));
  NK_NODE_ADD_FIELD(sfMatrix, (NbMatrix()));
  NK_NODE_ADD_FIELD(sfPlane, (NbPlane()));
  NK_NODE_ADD_FIELD(sfImage, (arbora::Image()));
  NK_NODE_ADD_FIELD(sfNode, (nullptr));
  NK_NODE_ADD_FIELD(mfInt32, (0));
  NK_NODE_ADD_FIELD(mfFloat, (0.0F));
  NK_NODE_ADD_FIELD(mfString, (""));
  NK_NODE_ADD_FIELD(mfVec2f, (NbVec2f()));
  NK_NODE_ADD_FIELD(mfVec3f, (NbVec3f()));
  NK_NODE_ADD_FIELD(mfColor, (NbColor()));
  NK_NODE_ADD_FIELD(mfNode, (nullptr));
}

NkEveryField::~NkEveryField() = default;
