#pragma once

#include "arbora/base/NbString.h"
#include "arbora/base/NbVec2i32.h"
#include "arbora/gl/export.h"

namespace arbora {

/// Writes an image whose rows run from the bottom up as a PNG file; `components` is 1 to 4. False if that fails, with a
/// message under `location`.
ARBORAGL_API bool writePng(const NbString& path, const unsigned char* pixels, const NbVec2i32& size, int components,
                           const char* location);

} // namespace arbora
