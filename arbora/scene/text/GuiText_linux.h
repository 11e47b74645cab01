#pragma once

#include "arbora/scene/export.h"

namespace arbora {

struct PixelExtent {
  int width;
  int height;
};

/// What a line of text measures in the font of dialog controls: Tahoma of 8 points at 96 dots per inch, hinted to the
/// pixels, as the controls of a window system show it; the system's sans serif without it. UTF-32.
ARBORA_API PixelExtent measureGuiText(const wchar_t* text, int length);

} // namespace arbora
