#include "arbora/scene/FieldIO.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "arbora/scene/ListIO.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkOutput.h"

namespace arbora {

namespace {

constexpr std::size_t kNumberSize = 4; // In the binary form.

template <class Number, std::size_t N>
bool readNumbers(NkInput* in, std::array<Number, N>& numbers) {
  return std::all_of(numbers.begin(), numbers.end(), [in](Number& number) { return in->read(number); });
}

template <class Number>
void writeNumbers(NkOutput* out, const Number* numbers, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) out->writeRaw(" ");
    out->write(numbers[i]);
  }
}

using Quaternion = std::array<float, 4>;
using AxisAngle = std::array<double, 4>;

NbRotation makeRotation(const Quaternion& q) { return NbRotation(q[0], q[1], q[2], q[3]); }

// In double precision: an angle near a full turn has too few digits as a float.
NbRotation makeRotation(const AxisAngle& numbers) {
  const double length = std::hypot(numbers[0], numbers[1], numbers[2]);
  if (!(length > 0)) return NbRotation();
  const double scale = std::sin(numbers[3] / 2) / length;
  return makeRotation(Quaternion{static_cast<float>(numbers[0] * scale), static_cast<float>(numbers[1] * scale),
                                 static_cast<float>(numbers[2] * scale), static_cast<float>(std::cos(numbers[3] / 2))});
}

// With an angle from 0 to two pi: each half belongs to one of two opposite quaternions.
AxisAngle toAxisAngle(const Quaternion& q) {
  const AxisAngle d{q[0], q[1], q[2], q[3]};
  const double sine = std::hypot(d[0], d[1], d[2]);
  if (sine == 0) return {0, 0, 1, 0};
  return {d[0] / sine, d[1] / sine, d[2] / sine, 2 * std::atan2(sine, d[3])};
}

// The number with no more digits than a float needs.
double shortened(double number) {
  char text[32];
  const char* end = std::to_chars(text, text + sizeof(text), static_cast<float>(number)).ptr;
  std::from_chars(text, end, number);
  return number;
}

} // namespace

// Single values

bool readFieldValue(NkInput* in, bool& value) { return in->read(value); }

void writeFieldValue(NkOutput* out, const bool& value) { out->write(value); }

bool readFieldValue(NkInput* in, int& value) { return in->read(value); }

void writeFieldValue(NkOutput* out, const int& value) { out->write(value); }

bool readFieldValue(NkInput* in, float& value) { return in->read(value); }

void writeFieldValue(NkOutput* out, const float& value) { out->write(value); }

bool readFieldValue(NkInput* in, NbString& value) {
  std::string_view text;
  if (!in->read(text)) return false;
  value = NbString::fromUtf8(text);
  return true;
}

void writeFieldValue(NkOutput* out, const NbString& value) {
  const std::string_view narrow = value.latin1View();
  const bool isAscii = !value.isUnicode() && std::all_of(narrow.begin(), narrow.end(),
                                                         [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  if (isAscii)
    out->writeText(narrow);
  else
    out->writeText(value.toUtf8());
}

bool readFieldValue(NkInput* in, NbName& value) {
  std::string_view text;
  if (!in->read(text)) return false;
  value = NbName(text);
  return true;
}

void writeFieldValue(NkOutput* out, const NbName& value) { out->writeText(value.getView()); }

bool readFieldValue(NkInput* in, NbVec2i32& value) { return in->read(value[0]) && in->read(value[1]); }

void writeFieldValue(NkOutput* out, const NbVec2i32& value) {
  out->write(value[0]);
  out->writeRaw(" ");
  out->write(value[1]);
}

bool readFieldValue(NkInput* in, NbVec2f& value) { return in->read(value[0]) && in->read(value[1]); }

void writeFieldValue(NkOutput* out, const NbVec2f& value) { writeNumbers(out, value.getValue(), 2); }

bool readFieldValue(NkInput* in, NbVec3f& value) {
  return in->read(value[0]) && in->read(value[1]) && in->read(value[2]);
}

void writeFieldValue(NkOutput* out, const NbVec3f& value) { writeNumbers(out, value.getValue(), 3); }

bool readFieldValue(NkInput* in, NbColor& value) {
  return in->read(value[0]) && in->read(value[1]) && in->read(value[2]);
}

void writeFieldValue(NkOutput* out, const NbColor& value) { writeNumbers(out, value.getValue(), 3); }

// In text an axis and an angle in radians, or the quaternion in brackets; in the binary form the quaternion.

bool readFieldValue(NkInput* in, NbRotation& value) {
  const bool isBracketed = !in->isBinary() && in->take('(');
  if (in->isBinary() || isBracketed) {
    Quaternion numbers;
    if (!readNumbers(in, numbers)) return false;
    if (isBracketed && !in->take(')')) {
      in->error("')' expected, found %s", in->describeNext().c_str());
      return false;
    }
    value = makeRotation(numbers);
    return true;
  }
  AxisAngle numbers;
  if (!readNumbers(in, numbers)) return false;
  value = makeRotation(numbers);
  return true;
}

void writeFieldValue(NkOutput* out, const NbRotation& value) {
  const float* parts = value.getValue();
  if (out->isBinary()) {
    writeNumbers(out, parts, 4);
    return;
  }
  // The first of these that gives the very value again: short numbers, long ones, the quaternion.
  const AxisAngle numbers = toAxisAngle({parts[0], parts[1], parts[2], parts[3]});
  AxisAngle brief;
  std::transform(numbers.begin(), numbers.end(), brief.begin(), shortened);
  if (makeRotation(brief) == value) {
    writeNumbers(out, brief.data(), brief.size());
  } else if (makeRotation(numbers) == value) {
    writeNumbers(out, numbers.data(), numbers.size());
  } else {
    out->writeRaw("(");
    writeNumbers(out, parts, 4);
    out->writeRaw(")");
  }
}

bool readFieldValue(NkInput* in, NbMatrix& value) {
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      if (!in->read(value[row][column])) return false;
    }
  }
  return true;
}

void writeFieldValue(NkOutput* out, const NbMatrix& value) {
  for (int row = 0; row < 4; ++row) {
    if (row > 0) out->writeRaw("  ");
    writeNumbers(out, value[row], 4);
  }
}

bool readFieldValue(NkInput* in, NbPlane& value) {
  std::array<float, 4> numbers;
  if (!readNumbers(in, numbers)) return false;
  value = NbPlane(NbVec3f(numbers[0], numbers[1], numbers[2]), numbers[3]);
  return true;
}

void writeFieldValue(NkOutput* out, const NbPlane& value) {
  writeNumbers(out, value.getNormal().getValue(), 3);
  out->writeRaw(" ");
  out->write(value.getDistanceFromOrigin());
}

// Images: in text one number for each pixel, with the first component in the highest byte; in the binary form the
// bytes.

bool readFieldValue(NkInput* in, Image& value) {
  if (!in->read(value.width) || !in->read(value.height) || !in->read(value.components)) return false;
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
    if (!in->readBytes(value.pixels.size(), bytes)) return false;
    std::copy_n(bytes, value.pixels.size(), value.pixels.begin());
    return true;
  }
  for (std::size_t i = 0; i < pixels; ++i) {
    int number = 0;
    if (!in->read(number)) return false;
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
  if (!fits) return;
  if (out->isBinary()) {
    out->writeBytes(value.pixels.data(), value.pixels.size());
    return;
  }
  for (std::size_t i = 0; i < pixels; ++i) {
    unsigned pixel = 0;
    for (std::size_t c = 0; c < components; ++c) pixel = pixel << 8U | value.pixels[i * components + c];
    out->separate();
    out->writeHexadecimal(pixel);
  }
}

// Lists

#define ARBORA_DEFINE_LIST_IO(Type, bytesEach)                                                       \
  bool readFieldValues(NkInput* in, std::vector<Type>& values) {                                     \
    return readList(in, values, bytesEach, [in](Type& value) { return readFieldValue(in, value); }); \
  }                                                                                                  \
  void writeFieldValues(NkOutput* out, const std::vector<Type>& values) {                            \
    writeList(out, values, [out](const Type& value) { writeFieldValue(out, value); });               \
  }                                                                                                  \
  static_assert(true)

ARBORA_DEFINE_LIST_IO(int, kNumberSize);
ARBORA_DEFINE_LIST_IO(float, kNumberSize);
ARBORA_DEFINE_LIST_IO(NbString, kNumberSize);
ARBORA_DEFINE_LIST_IO(NbVec2f, 2 * kNumberSize);
ARBORA_DEFINE_LIST_IO(NbVec3f, 3 * kNumberSize);
ARBORA_DEFINE_LIST_IO(NbColor, 3 * kNumberSize);

#undef ARBORA_DEFINE_LIST_IO

} // namespace arbora
