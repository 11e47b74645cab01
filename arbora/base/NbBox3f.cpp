#include "arbora/base/NbBox3f.h"

#include "arbora/base/NbMatrix.h"

#include <algorithm>

void NbBox3f::getSize(float& x, float& y, float& z) const { getSize().getValue(x, y, z); }

NbVec3f NbBox3f::getSize() const { return isEmpty() ? NbVec3f() : m_max - m_min; }

NbVec3f NbBox3f::getCenter() const {
  // Halved first: the sum of two great values would overflow.
  return isEmpty() ? NbVec3f() : m_min * 0.5F + m_max * 0.5F;
}

void NbBox3f::extendBy(const NbVec3f& point) {
  if (isEmpty()) {
    setBounds(point, point);
    return;
  }
  for (int i = 0; i < 3; ++i) {
    m_min[i] = std::min(m_min[i], point[i]);
    m_max[i] = std::max(m_max[i], point[i]);
  }
}

void NbBox3f::extendBy(const NbBox3f& box) {
  if (box.isEmpty()) {
    return;
  }
  extendBy(box.m_min);
  extendBy(box.m_max);
}

bool NbBox3f::intersect(const NbVec3f& point) const {
  for (int i = 0; i < 3; ++i) {
    if (!(point[i] >= m_min[i] && point[i] <= m_max[i])) {
      return false;
    }
  }
  return true;
}

bool NbBox3f::intersect(const NbBox3f& box) const {
  if (isEmpty() || box.isEmpty()) {
    return false;
  }
  for (int i = 0; i < 3; ++i) {
    if (box.m_max[i] < m_min[i] || box.m_min[i] > m_max[i]) {
      return false;
    }
  }
  return true;
}

void NbBox3f::transform(const NbMatrix& matrix) {
  if (isEmpty()) {
    return;
  }
  NbBox3f result;
  if (matrix.isAffine()) {
    // Each value of the new box is a sum over the old axes, of the smaller or the greater product.
    for (int to = 0; to < 3; ++to) {
      float low = matrix[3][to];
      float high = low;
      for (int from = 0; from < 3; ++from) {
        const float a = m_min[from] * matrix[from][to];
        const float b = m_max[from] * matrix[from][to];
        low += std::min(a, b);
        high += std::max(a, b);
      }
      result.m_min[to] = low;
      result.m_max[to] = high;
    }
  } else {
    for (unsigned corner = 0; corner < 8; ++corner) {
      NbVec3f point((corner & 1U) ? m_max[0] : m_min[0], (corner & 2U) ? m_max[1] : m_min[1],
                    (corner & 4U) ? m_max[2] : m_min[2]);
      matrix.multVecMatrix(point, point);
      result.extendBy(point);
    }
  }
  *this = result;
}
