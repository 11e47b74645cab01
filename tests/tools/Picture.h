#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

/// A PNG file.
struct Picture {
  /// Of size 0 if the file is no whole PNG file.
  explicit Picture(const std::string& path);

  using Pixel = std::array<int, 3>;
  /// Counted from the upper left corner.
  Pixel at(int x, int y) const;
  /// How many pixels are of a kind.
  int count(const std::function<bool(Pixel)>& isOfKind) const;
  int countOther(Pixel background) const;

  int width = 0;
  int height = 0;
  std::vector<unsigned char> pixels;
};
