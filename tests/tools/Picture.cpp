#include "tests/tools/Picture.h"

#include <memory>

#include <stb/stb_image.h>

#include "tests/tools/Program.h"

Picture::Picture(const std::string& path) {
  const std::string bytes = readFile(path);
  int channels = 0;
  const std::unique_ptr<stbi_uc, void (*)(void*)> decoded(
      stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(bytes.data()), static_cast<int>(bytes.size()), &width,
                            &height, &channels, 3),
      &stbi_image_free);
  if (decoded) pixels.assign(decoded.get(), decoded.get() + 3 * width * height);
}

Picture::Pixel Picture::at(int x, int y) const {
  if (pixels.empty() || x < 0 || x >= width || y < 0 || y >= height) return {-1, -1, -1};
  const unsigned char* pixel = pixels.data() + 3 * (y * width + x);
  return {pixel[0], pixel[1], pixel[2]};
}

int Picture::count(const std::function<bool(Pixel)>& isOfKind) const {
  int found = 0;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) found += isOfKind(at(x, y)) ? 1 : 0;
  }
  return found;
}

int Picture::countOther(Pixel background) const {
  return count([=](Pixel pixel) { return pixel != background; });
}
