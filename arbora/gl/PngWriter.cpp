#include "arbora/gl/PngWriter.h"

#include <cstddef>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#pragma GCC diagnostic ignored "-Wunused-function"
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>
#pragma GCC diagnostic pop

std::vector<unsigned char> arbora::encodePng(const unsigned char* pixels, int width, int height, int components) {
  std::vector<unsigned char> bytes;
  const int stride = width * components;
  const auto append = [](void* context, void* data, int size) {
    const auto* first = static_cast<const unsigned char*>(data);
    auto* target = static_cast<std::vector<unsigned char>*>(context);
    target->insert(target->end(), first, first + size);
  };
  // The file's first row is the top one.
  const unsigned char* top = pixels + static_cast<std::ptrdiff_t>(stride) * (height - 1);
  if (!stbi_write_png_to_func(append, &bytes, width, height, components, top, -stride)) bytes.clear();
  return bytes;
}
