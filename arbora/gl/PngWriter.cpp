#include "arbora/gl/PngWriter.h"

#include <cstddef>
#include <cstdio>
#include <vector>

#include "arbora/base/NbFileHelper.h"
#include "arbora/base/NkDebugError.h"

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#pragma GCC diagnostic ignored "-Wunused-function"
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>
#pragma GCC diagnostic pop

namespace {

/// Empty if it can't be made.
std::vector<unsigned char> encode(const unsigned char* pixels, const NbVec2i32& size, int components) {
  std::vector<unsigned char> bytes;
  const int stride = size[0] * components;
  const auto append = [](void* context, void* data, int length) {
    const auto* first = static_cast<const unsigned char*>(data);
    auto* target = static_cast<std::vector<unsigned char>*>(context);
    target->insert(target->end(), first, first + length);
  };
  // The file's first row is the top one.
  const unsigned char* top = pixels + static_cast<std::ptrdiff_t>(stride) * (size[1] - 1);
  if (!stbi_write_png_to_func(append, &bytes, size[0], size[1], components, top, -stride)) bytes.clear();
  return bytes;
}

} // namespace

bool arbora::writePng(const NbString& path, const unsigned char* pixels, const NbVec2i32& size, int components,
                      const char* location) {
  std::FILE* file = NbFileHelper::open(path, "wb");
  if (!file) {
    NkDebugError::post(location, "%s can't be written", path.toUtf8().c_str());
    return false;
  }
  const std::vector<unsigned char> bytes = encode(pixels, size, components);
  const bool written = !bytes.empty() && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  if (std::fclose(file) != 0 || !written) {
    NkDebugError::post(location, "%s can't be written to its end", path.toUtf8().c_str());
    return false;
  }
  return true;
}
