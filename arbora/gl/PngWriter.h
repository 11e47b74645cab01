#pragma once

#include <vector>

namespace arbora {

/// A PNG file of an image whose rows run from the bottom up; empty if it can't be made. `components` is 1 to 4.
std::vector<unsigned char> encodePng(const unsigned char* pixels, int width, int height, int components);

} // namespace arbora
