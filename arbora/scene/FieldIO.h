#pragma once

#include <vector>

#include "arbora/base/NbColor.h"
#include "arbora/base/NbMatrix.h"
#include "arbora/base/NbName.h"
#include "arbora/base/NbPlane.h"
#include "arbora/base/NbRotation.h"
#include "arbora/base/NbString.h"
#include "arbora/base/NbVec2f.h"
#include "arbora/base/NbVec2i32.h"
#include "arbora/base/NbVec3f.h"
#include "arbora/scene/export.h"

class NkInput;
class NkOutput;

namespace arbora {

/// Pixels of a texture.
struct Image {
  int width = 0;
  int height = 0;
  int components = 0; // 1 grey, 2 grey and alpha, 3 RGB, 4 RGBA
  std::vector<unsigned char> pixels;
  friend bool operator==(const Image&, const Image&) = default;
};

// Each value type of the fields in both file forms. Reading gives false, with a message, for a value of another kind.
#define ARBORA_FIELD_IO(Type)                               \
  ARBORA_API bool readFieldValue(NkInput* in, Type& value); \
  ARBORA_API void writeFieldValue(NkOutput* out, const Type& value)
ARBORA_FIELD_IO(bool);
ARBORA_FIELD_IO(int);
ARBORA_FIELD_IO(float);
ARBORA_FIELD_IO(NbString);
ARBORA_FIELD_IO(NbName);
ARBORA_FIELD_IO(NbVec2i32);
ARBORA_FIELD_IO(NbVec2f);
ARBORA_FIELD_IO(NbVec3f);
ARBORA_FIELD_IO(NbColor);
ARBORA_FIELD_IO(NbRotation);
ARBORA_FIELD_IO(NbMatrix);
ARBORA_FIELD_IO(NbPlane);
ARBORA_FIELD_IO(Image);
#undef ARBORA_FIELD_IO

// Lists: `[ a, b, c ]`, with or without commas, or one bare value.
#define ARBORA_FIELD_LIST_IO(Type)                                         \
  ARBORA_API bool readFieldValues(NkInput* in, std::vector<Type>& values); \
  ARBORA_API void writeFieldValues(NkOutput* out, const std::vector<Type>& values)
ARBORA_FIELD_LIST_IO(int);
ARBORA_FIELD_LIST_IO(float);
ARBORA_FIELD_LIST_IO(NbString);
ARBORA_FIELD_LIST_IO(NbVec2f);
ARBORA_FIELD_LIST_IO(NbVec3f);
ARBORA_FIELD_LIST_IO(NbColor);
#undef ARBORA_FIELD_LIST_IO

} // namespace arbora
