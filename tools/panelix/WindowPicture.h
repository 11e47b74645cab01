#pragma once

#include <vector>

#include "arbora/base/NbVec2i32.h"
#include "src/platform/Win32.h"

namespace panelix {

/// What a window shows, its frame included: red, green and blue, rows from the bottom up. Empty where there are no
/// windows.
struct WindowPicture {
  explicit WindowPicture(HWND window);

  NbVec2i32 size{0, 0};
  std::vector<unsigned char> pixels;
};

} // namespace panelix
