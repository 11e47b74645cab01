#include "arbora/scene/ImageFile.h"

#include <algorithm>
#include <climits>
#include <memory>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_NO_STDIO
#define STBI_ONLY_JPEG
#define STBI_ONLY_PNG
#define STBI_MAX_DIMENSIONS 16384
#include <stb/stb_image.h>

namespace arbora {

bool decodeImage(const std::string& bytes, Image& image, std::string& why) {
  image = Image();
  if (bytes.size() > INT_MAX) {
    why = "the file is too large";
    return false;
  }
  int width = 0;
  int height = 0;
  int components = 0;
  const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
      stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(bytes.data()), static_cast<int>(bytes.size()), &width,
                            &height, &components, 0),
      &stbi_image_free);
  if (!pixels) {
    why = stbi_failure_reason() ? stbi_failure_reason() : "it is no PNG or JPEG image";
    return false;
  }
  image.width = width;
  image.height = height;
  image.components = components;
  // Files hold the upper row first, images the lower one.
  const std::size_t row = static_cast<std::size_t>(width) * static_cast<std::size_t>(components);
  image.pixels.resize(row * static_cast<std::size_t>(height));
  for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
    std::copy_n(pixels.get() + y * row, row, image.pixels.end() - static_cast<std::ptrdiff_t>((y + 1) * row));
  }
  return true;
}

} // namespace arbora
