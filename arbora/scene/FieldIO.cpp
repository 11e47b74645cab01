#include "arbora/scene/FieldIO.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "arbora/scene/ListIO.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkOutput.h"

namespace arbora {

namespace {

constexpr std::size_t kNumberSize = 4;  // In the binary form.

template <std::size_t N> bool readNumbers(NkInput* in, std::array<float, N>& numbers) {
  return std::all_of(numbers.begin(), numbers.end(), [in](float& number) { return in->read(number); });
}

void writeNumbers(NkOutput* out, const float* numbers, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0)
      out->writeRaw(" ");
    out->write(numbers[i]);
  }
}

// The nearest float `steps` places up or down.
float stepped(float value, int steps) {
  const float end = steps < 0 ? -std::numeric_limits<float>::infinity() : std::numeric_limits<float>::infinity();
  for (; steps != 0; steps += steps < 0 ? 1 : -1)
    value = std::nextafter(value, end);
  return value;
}

// Values that are scaled to length 1 when they are made may come out of their own parts a last digit off. Looks among
// the neighbours of the numbers for those that give the very value; leaves the numbers if there are none.
template <std::size_t N, class GivesValue> void findExact(std::array<float, N>& numbers, GivesValue givesValue) {
  if (givesValue(numbers))
    return;
  constexpr int kReach = 3;
  for (int reach = 1; reach <= kReach; ++reach) {
    const int width = 2 * reach + 1;
    int count = 1;
    for (std::size_t i = 0; i < N; ++i)
      count *= width;
    for (int code = 0; code < count; ++code) {
      std::array<float, N> candidate = numbers;
      int rest = code;
      for (float& number : candidate) {
        number = stepped(number, rest % width - reach);
        rest /= width;
      }
      if (givesValue(candidate)) {
        numbers = candidate;
        return;
      }
    }
  }
}

NbRotation makeRotation(const std::array<float, 4>& numbers) {
  return NbRotation(NbVec3f(numbers[0], numbers[1], numbers[2]), numbers[3]);
}

NbPlane makePlane(const std::array<float, 4>& numbers) {
  return NbPlane(NbVec3f(numbers[0], numbers[1], numbers[2]), numbers[3]);
}

} // namespace

// Single values

bool readFieldValue(NkInput* in, bool& value) {
  return in->read(value);
}

void writeFieldValue(NkOutput* out, const bool& value) {
  out->write(value);
}

bool readFieldValue(NkInput* in, int& value) {
  return in->read(value);
}

void writeFieldValue(NkOutput* out, const int& value) {
  out->write(value);
}

bool readFieldValue(NkInput* in, float& value) {
  return in->read(value);
}

void writeFieldValue(NkOutput* out, const float& value) {
  out->write(value);
}

bool readFieldValue(NkInput* in, NbString& value) {
  std::string_view text;
  if (!in->read(text))
    return false;
  value = NbString::fromUtf8(text);
  return true;
}

void writeFieldValue(NkOutput* out, const NbString& value) {
  const std::string_view narrow = value.latin1View();
  const bool isAscii = !value.isUnicode() && std::all_of(narrow.begin(), narrow.end(), [](char c) {
    return static_cast<unsigned char>(c) < 0x80;
  });
  if (isAscii)
    out->writeText(narrow);
  else
    out->writeText(value.toUtf8());
}

bool readFieldValue(NkInput* in, NbName& value) {
  std::string_view text;
  if (!in->read(text))
    return false;
  value = NbName(text);
  return true;
}

void writeFieldValue(NkOutput* out, const NbName& value) {
  out->writeText(value.getView());
}

bool readFieldValue(NkInput* in, NbVec2i32& value) {
  return in->read(value[0]) && in->read(value[1]);
}

void writeFieldValue(NkOutput* out, const NbVec2i32& value) {
  out->write(value[0]);
  out->writeRaw(" ");
  out->write(value[1]);
}

bool readFieldValue(NkInput* in, NbVec2f& value) {
  return in->read(value[0]) && in->read(value[1]);
}

void writeFieldValue(NkOutput* out, const NbVec2f& value) {
  writeNumbers(out, value.getValue(), 2);
}

bool readFieldValue(NkInput* in, NbVec3f& value) {
  return in->read(value[0]) && in->read(value[1]) && in->read(value[2]);
}

void writeFieldValue(NkOutput* out, const NbVec3f& value) {
  writeNumbers(out, value.getValue(), 3);
}

bool readFieldValue(NkInput* in, NbColor& value) {
  return in->read(value[0]) && in->read(value[1]) && in->read(value[2]);
}

void writeFieldValue(NkOutput* out, const NbColor& value) {
  writeNumbers(out, value.getValue(), 3);
}

bool readFieldValue(NkInput* in, NbRotation& value) {
  std::array<float, 4> numbers;
  if (!readNumbers(in, numbers))
    return false;
  value = makeRotation(numbers);
  return true;
}

void writeFieldValue(NkOutput* out, const NbRotation& value) {
  // Not the angle from 0 to pi that the rotation tells: that one belongs to the opposite quaternion as well.
  NbVec3f axis(value.getValue());
  const float sine = axis.normalize();
  std::array<float, 4> numbers{0, 0, 1, 0};
  if (sine > 0)
    numbers = {axis[0], axis[1], axis[2], 2 * std::atan2(sine, value.getValue()[3])};
  findExact(numbers, [&value](const std::array<float, 4>& parts) { return makeRotation(parts) == value; });
  writeNumbers(out, numbers.data(), numbers.size());
}

bool readFieldValue(NkInput* in, NbMatrix& value) {
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      if (!in->read(value[row][column]))
        return false;
    }
  }
  return true;
}

void writeFieldValue(NkOutput* out, const NbMatrix& value) {
  for (int row = 0; row < 4; ++row) {
    if (row > 0)
      out->writeRaw("  ");
    writeNumbers(out, value[row], 4);
  }
}

bool readFieldValue(NkInput* in, NbPlane& value) {
  std::array<float, 4> numbers;
  if (!readNumbers(in, numbers))
    return false;
  value = makePlane(numbers);
  return true;
}

void writeFieldValue(NkOutput* out, const NbPlane& value) {
  const NbVec3f& normal = value.getNormal();
  std::array<float, 3> numbers{normal[0], normal[1], normal[2]};
  const float distance = value.getDistanceFromOrigin();
  findExact(numbers, [&](const std::array<float, 3>& parts) {
    return makePlane({parts[0], parts[1], parts[2], distance}) == value;
  });
  writeNumbers(out, numbers.data(), numbers.size());
  out->writeRaw(" ");
  out->write(distance);
}

// Images: in text one number for each pixel, with the first component in the highest byte; in the binary form the bytes.

bool readFieldValue(NkInput* in, Image& value) {
  if (!in->read(value.width) || !in->read(value.height) || !in->read(value.components))
    return false;
  if (value.width < 0 || value.height < 0 || value.components < 0 || value.components > 4) {
    in->error("an image can't have the size %d %d %d", value.width, value.height, value.components);
    return false;
  }
  const auto components = static_cast<std::size_t>(value.components);
  const std::size_t pixels =
      components == 0 ? 0 : static_cast<std::size_t>(value.width) * static_cast<std::size_t>(value.height);
  // A pixel takes a byte for each component, or a digit and a blank.
  const std::size_t bytesEach = in->isBinary() ? components : 2;
  if (pixels > 0 && pixels > (in->getRest() + 1) / bytesEach) {
    in->error("the file is too short for an image of %d by %d pixels", value.width, value.height);
    return false;
  }
  value.pixels.resize(pixels * components);
  if (in->isBinary()) {
    const unsigned char* bytes = nullptr;
    if (!in->readBytes(value.pixels.size(), bytes))
      return false;
    std::copy_n(bytes, value.pixels.size(), value.pixels.begin());
    return true;
  }
  for (std::size_t i = 0; i < pixels; ++i) {
    int number = 0;
    if (!in->read(number))
      return false;
    auto pixel = static_cast<unsigned>(number);
    for (std::size_t c = components; c-- > 0; pixel >>= 8U)
      value.pixels[i * components + c] = static_cast<unsigned char>(pixel & 0xFFU);
  }
  return true;
}

void writeFieldValue(NkOutput* out, const Image& value) {
  const auto components = static_cast<std::size_t>(std::clamp(value.components, 0, 4));
  const std::size_t pixels = components == 0 ? 0
                                             : static_cast<std::size_t>(std::max(value.width, 0)) *
                                                   static_cast<std::size_t>(std::max(value.height, 0));
  // An image whose pixels don't fit its size is written as an empty one.
  const bool fits = value.pixels.size() == pixels * components;
  out->write(fits ? value.width : 0);
  out->writeRaw(" ");
  out->write(fits ? value.height : 0);
  out->writeRaw(" ");
  out->write(fits ? value.components : 0);
  if (!fits)
    return;
  if (out->isBinary()) {
    out->writeBytes(value.pixels.data(), value.pixels.size());
    return;
  }
  for (std::size_t i = 0; i < pixels; ++i) {
    unsigned pixel = 0;
    for (std::size_t c = 0; c < components; ++c)
      pixel = pixel << 8U | value.pixels[i * components + c];
    out->separate();
    out->writeHexadecimal(pixel);
  }
}

// Lists

#define ARBORA_DEFINE_LIST_IO(Type, bytesEach)                                                          \
  bool readFieldValues(NkInput* in, std::vector<Type>& values) {                                        \
    return readList(in, values, bytesEach, [in](Type& value) { return readFieldValue(in, value); });    \
  }                                                                                                     \
  void writeFieldValues(NkOutput* out, const std::vector<Type>& values) {                               \
    writeList(out, values, [out](const Type& value) { writeFieldValue(out, value); });                  \
  }                                                                                                     \
  static_assert(true)

ARBORA_DEFINE_LIST_IO(int, kNumberSize);
ARBORA_DEFINE_LIST_IO(float, kNumberSize);
ARBORA_DEFINE_LIST_IO(NbString, kNumberSize);
ARBORA_DEFINE_LIST_IO(NbVec2f, 2 * kNumberSize);
ARBORA_DEFINE_LIST_IO(NbVec3f, 3 * kNumberSize);
ARBORA_DEFINE_LIST_IO(NbColor, 3 * kNumberSize);

#undef ARBORA_DEFINE_LIST_IO

} // namespace arbora
