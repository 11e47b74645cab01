#include "arbora/base/NbMatrix.h"

#include "arbora/base/NbLine.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// The decomposition works in double precision: floats give products without rounding there.
using Vec3d = std::array<double, 3>;
using Mat3d = std::array<Vec3d, 3>;

double dot(const Vec3d& a, const Vec3d& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

Vec3d cross(const Vec3d& a, const Vec3d& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Vec3d withoutPart(const Vec3d& v, const Vec3d& unit) {
  const double part = dot(v, unit);
  return {v[0] - part * unit[0], v[1] - part * unit[1], v[2] - part * unit[2]};
}

Vec3d divided(const Vec3d& v, double divisor) { return {v[0] / divisor, v[1] / divisor, v[2] / divisor}; }

double det(const Mat3d& m) { return dot(m[0], cross(m[1], m[2])); }

// The rows of the upper left part, each multiplied by `sign`.
NbRotation rotationOf(const Mat3d& rows, double sign) {
  NbMatrix m;
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      m[i][j] = static_cast<float>(sign * rows[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)]);
    }
  }
  return NbRotation(m);
}

Mat3d product(const Mat3d& a, const Mat3d& b) {
  Mat3d result{};
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      result[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j];
    }
  }
  return result;
}

Mat3d transposed(const Mat3d& m) {
  return {{{m[0][0], m[1][0], m[2][0]}, {m[0][1], m[1][1], m[2][1]}, {m[0][2], m[1][2], m[2][2]}}};
}

// Turns the rows of `a` among themselves until they stand square to each other: the result is `axes` * a. Rows that are
// square but for rounding are left alone, so that a plain scale keeps its own axes.
Mat3d squareRows(Mat3d& a) {
  constexpr double kSquare = 4e-6;
  constexpr int kMaxSweeps = 30;
  Mat3d axes{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
  bool turned = true;
  for (int sweep = 0; turned && sweep < kMaxSweeps; ++sweep) {
    turned = false;
    for (std::size_t p = 0; p < 2; ++p) {
      for (std::size_t q = p + 1; q < 3; ++q) {
        const double pp = dot(a[p], a[p]);
        const double qq = dot(a[q], a[q]);
        const double pq = dot(a[p], a[q]);
        if (std::fabs(pq) <= kSquare * std::sqrt(pp * qq)) {
          continue;
        }
        turned = true;
        const double zeta = (qq - pp) / (2 * pq);
        const double t = (zeta < 0 ? -1.0 : 1.0) / (std::fabs(zeta) + std::hypot(1.0, zeta));
        const double c = 1 / std::hypot(1.0, t);
        const double s = c * t;
        for (Mat3d* m : {&a, &axes}) {
          for (std::size_t k = 0; k < 3; ++k) {
            const double x = (*m)[p][k];
            const double y = (*m)[q][k];
            (*m)[p][k] = c * x - s * y;
            (*m)[q][k] = s * x + c * y;
          }
        }
      }
    }
  }
  return axes;
}

// Makes square rows a set of unit vectors. Rows of length 0 get directions that complete a right-handed set.
void completeUnitRows(Mat3d& rows, const Vec3d& lengths) {
  constexpr double kIndependent = 1e-3;
  std::array<std::size_t, 3> order{0, 1, 2};
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return lengths[a] > lengths[b]; });
  for (std::size_t done = 0; done < 3; ++done) {
    const std::size_t row = order[done];
    const auto squared = [&](Vec3d v) {
      for (std::size_t k = 0; k < done; ++k) {
        v = withoutPart(v, rows[order[k]]);
      }
      return v;
    };
    Vec3d candidate = lengths[row] > 0 ? squared(divided(rows[row], lengths[row])) : Vec3d{};
    const bool missing = dot(candidate, candidate) < kIndependent;
    for (std::size_t axis = 0; axis < 3 && dot(candidate, candidate) < kIndependent; ++axis) {
      Vec3d unit{};
      unit[(row + axis) % 3] = 1;
      candidate = squared(unit);
    }
    rows[row] = divided(candidate, std::sqrt(dot(candidate, candidate)));
    if (missing && done == 2 && det(rows) < 0) {
      rows[row] = divided(rows[row], -1);
    }
  }
}

} // namespace

NbMatrix::NbMatrix(float a00, float a01, float a02, float a03, float a10, float a11, float a12, float a13, float a20,
                   float a21, float a22, float a23, float a30, float a31, float a32, float a33)
    : m_rows{{a00, a01, a02, a03}, {a10, a11, a12, a13}, {a20, a21, a22, a23}, {a30, a31, a32, a33}} {}

NbMatrix::NbMatrix(const float (&rows)[4][4]) { std::copy(&rows[0][0], &rows[0][0] + 16, &m_rows[0][0]); }

void NbMatrix::setTranslate(const NbVec3f& translation) {
  makeIdentity();
  for (int i = 0; i < 3; ++i) {
    m_rows[3][i] = translation[i];
  }
}

void NbMatrix::setScale(float factor) { setScale(NbVec3f(factor, factor, factor)); }

void NbMatrix::setScale(const NbVec3f& factors) {
  makeIdentity();
  for (int i = 0; i < 3; ++i) {
    m_rows[i][i] = factors[i];
  }
}

void NbMatrix::setRotate(const NbRotation& rotation) {
  float x = 0;
  float y = 0;
  float z = 0;
  float w = 0;
  rotation.getValue(x, y, z, w);
  *this = NbMatrix(1 - 2 * (y * y + z * z), 2 * (x * y + w * z), 2 * (x * z - w * y), 0, //
                   2 * (x * y - w * z), 1 - 2 * (x * x + z * z), 2 * (y * z + w * x), 0, //
                   2 * (x * z + w * y), 2 * (y * z - w * x), 1 - 2 * (x * x + y * y), 0, //
                   0, 0, 0, 1);
}

void NbMatrix::setTransform(const NbVec3f& translation, const NbRotation& rotation, const NbVec3f& scale) {
  setRotate(rotation);
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      m_rows[i][j] *= scale[i];
    }
    m_rows[3][i] = translation[i];
  }
}

void NbMatrix::setTransform(const NbVec3f& translation, const NbRotation& rotation, const NbVec3f& scale,
                            const NbRotation& scaleOrientation) {
  setTransform(translation, rotation, scale);
  if (scaleOrientation == NbRotation()) {
    return;
  }
  // The scale orientation is undone, the scale acts, the orientation is turned back and then the rotation acts.
  NbMatrix undo;
  NbMatrix act;
  undo.setRotate(scaleOrientation.inverse());
  act.setTransform(translation, scaleOrientation * rotation, scale);
  *this = undo * act;
}

void NbMatrix::setTransform(const NbVec3f& translation, const NbRotation& rotation, const NbVec3f& scale,
                            const NbRotation& scaleOrientation, const NbVec3f& center) {
  setTransform(translation, rotation, scale, scaleOrientation);
  // The centre goes to itself, plus the translation.
  NbVec3f moved;
  multDirMatrix(center, moved);
  for (int i = 0; i < 3; ++i) {
    m_rows[3][i] += center[i] - moved[i];
  }
}

void NbMatrix::getTransform(NbVec3f& translation, NbRotation& rotation, NbVec3f& scale,
                            NbRotation& scaleOrientation) const {
  translation.setValue(0, 0, 0);
  scale.setValue(1, 1, 1);
  rotation = scaleOrientation = NbRotation();
  if (!std::all_of(getValue(), getValue() + 16, [](float value) { return std::isfinite(value); })) {
    return;
  }
  translation.setValue(m_rows[3]);
  if (isStretched()) {
    scale.setValue(m_rows[0][0], m_rows[1][1], m_rows[2][2]);
    return;
  }

  Mat3d a{};
  for (std::size_t i = 0; i < 3; ++i) {
    std::copy(m_rows[i], m_rows[i] + 3, a[i].begin());
  }
  // a = transposed(axes) * diagonal(lengths) * unit rows; and so a scale along the axes, then a rotation.
  Mat3d axes = squareRows(a);
  const Vec3d lengths{std::sqrt(dot(a[0], a[0])), std::sqrt(dot(a[1], a[1])), std::sqrt(dot(a[2], a[2]))};
  completeUnitRows(a, lengths);
  const Mat3d turn = product(transposed(axes), a);
  const double sign = det(turn) < 0 ? -1 : 1;
  for (int i = 0; i < 3; ++i) {
    scale[i] = static_cast<float>(sign * lengths[static_cast<std::size_t>(i)]);
  }
  rotation = rotationOf(turn, sign);
  scaleOrientation = rotationOf(axes, 1);
}

void NbMatrix::getTransform(NbVec3f& translation, NbRotation& rotation, NbVec3f& scale, NbRotation& scaleOrientation,
                            const NbVec3f& center) const {
  getTransform(translation, rotation, scale, scaleOrientation);
  NbVec3f moved;
  multDirMatrix(center, moved);
  translation += moved - center;
}

NbMatrix& NbMatrix::multRight(const NbMatrix& m) { return *this = *this * m; }

NbMatrix& NbMatrix::multLeft(const NbMatrix& m) { return *this = m * *this; }

NbMatrix operator*(const NbMatrix& a, const NbMatrix& b) {
  NbMatrix result;
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) {
      result[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j] + a[i][3] * b[3][j];
    }
  }
  return result;
}

NbMatrix NbMatrix::inverse() const {
  NbMatrix result;
  invert(result);
  return result;
}

bool NbMatrix::invert(NbMatrix& result) const {
  // Gauss and Jordan with row exchange, in double precision, on rows scaled to like size.
  constexpr double kSingular = 1e-10;
  double work[4][8] = {};
  const bool affine = isAffine();
  for (int i = 0; i < 4; ++i) {
    double greatest = 0;
    for (int j = 0; j < 4; ++j) {
      greatest = std::max(greatest, std::fabs(static_cast<double>(m_rows[i][j])));
    }
    if (!(greatest > 0) || !std::isfinite(greatest)) {
      return false;
    }
    if (affine && i == 3) {
      greatest = 1; // how great the translation is says nothing about whether the matrix is singular
    }
    for (int j = 0; j < 4; ++j) {
      work[i][j] = m_rows[i][j] / greatest;
    }
    work[i][4 + i] = 1 / greatest;
  }
  for (int column = 0; column < 4; ++column) {
    int pivot = column;
    for (int i = column + 1; i < 4; ++i) {
      if (std::fabs(work[i][column]) > std::fabs(work[pivot][column])) {
        pivot = i;
      }
    }
    if (!(std::fabs(work[pivot][column]) > kSingular)) {
      return false;
    }
    if (pivot != column) {
      std::swap_ranges(work[pivot], work[pivot] + 8, work[column]);
    }
    const double divisor = work[column][column];
    for (double& value : work[column]) {
      value /= divisor;
    }
    for (int i = 0; i < 4; ++i) {
      const double factor = i == column ? 0 : work[i][column];
      for (int j = 0; factor != 0 && j < 8; ++j) {
        work[i][j] -= factor * work[column][j];
      }
    }
  }
  NbMatrix inverse;
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) {
      const auto value = static_cast<float>(work[i][4 + j]);
      if (!std::isfinite(value)) {
        return false;
      }
      inverse[i][j] = value;
    }
  }
  result = inverse;
  return true;
}

float NbMatrix::det3() const {
  Mat3d a{};
  for (std::size_t i = 0; i < 3; ++i) {
    std::copy(m_rows[i], m_rows[i] + 3, a[i].begin());
  }
  return static_cast<float>(det(a));
}

float NbMatrix::det4() const {
  // Along the last column.
  double sum = 0;
  for (std::size_t skip = 0; skip < 4; ++skip) {
    Mat3d minor{};
    for (std::size_t i = 0; i < 3; ++i) {
      const std::size_t row = i < skip ? i : i + 1;
      std::copy(m_rows[row], m_rows[row] + 3, minor[i].begin());
    }
    const double part = m_rows[skip][3] * det(minor);
    sum += skip % 2 == 0 ? -part : part;
  }
  return static_cast<float>(sum);
}

NbMatrix NbMatrix::transpose() const {
  NbMatrix result;
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) {
      result[i][j] = m_rows[j][i];
    }
  }
  return result;
}

bool NbMatrix::isAffine() const {
  return m_rows[0][3] == 0 && m_rows[1][3] == 0 && m_rows[2][3] == 0 && m_rows[3][3] == 1;
}

bool NbMatrix::isStretched() const {
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      if (i == j ? m_rows[i][j] <= 0 : m_rows[i][j] != 0) return false;
    }
  }
  return true;
}

bool NbMatrix::isIdentity() const { return *this == NbMatrix(); }

void NbMatrix::multVecMatrix(const NbVec3f& source, NbVec3f& result) const {
  NbVec4f point(source[0], source[1], source[2], 1);
  multVecMatrix(point, point);
  result.setValue(point.getValue());
  if (point[3] != 1 && point[3] != 0) {
    result /= point[3];
  }
}

void NbMatrix::multVecMatrix(const NbVec4f& source, NbVec4f& result) const {
  const NbVec4f v = source;
  for (int j = 0; j < 4; ++j) {
    result[j] = v[0] * m_rows[0][j] + v[1] * m_rows[1][j] + v[2] * m_rows[2][j] + v[3] * m_rows[3][j];
  }
}

void NbMatrix::multDirMatrix(const NbVec3f& source, NbVec3f& result) const {
  const NbVec3f v = source;
  for (int j = 0; j < 3; ++j) {
    result[j] = v[0] * m_rows[0][j] + v[1] * m_rows[1][j] + v[2] * m_rows[2][j];
  }
}

void NbMatrix::multLineMatrix(const NbLine& source, NbLine& result) const {
  NbVec3f position;
  NbVec3f direction;
  multVecMatrix(source.getPosition(), position);
  if (isAffine()) {
    multDirMatrix(source.getDirection(), direction);
  } else {
    multVecMatrix(source.getPosition() + source.getDirection(), direction);
    direction -= position;
  }
  result.setPosDir(position, direction);
}

bool operator==(const NbMatrix& a, const NbMatrix& b) {
  return std::equal(a.getValue(), a.getValue() + 16, b.getValue());
}

bool NbMatrix::equals(const NbMatrix& m, float tolerance) const {
  return std::equal(getValue(), getValue() + 16, m.getValue(),
                    [tolerance](float a, float b) { return std::fabs(a - b) <= tolerance; });
}
