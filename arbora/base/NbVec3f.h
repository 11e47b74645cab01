#pragma once

#include "arbora/base/VecOps.h"
#include "arbora/base/export.h"

/// Three floats: a point, a direction or a size in space.
class ARBORABASE_API NbVec3f : public arbora::FloatVecOps<NbVec3f, 3> {
public:
  constexpr NbVec3f() = default;
  constexpr NbVec3f(float x, float y, float z) : m_v{x, y, z} {}
  constexpr explicit NbVec3f(const float* v) : m_v{v[0], v[1], v[2]} {}

  constexpr NbVec3f& setValue(float x, float y, float z) {
    m_v[0] = x;
    m_v[1] = y;
    m_v[2] = z;
    return *this;
  }
  constexpr NbVec3f& setValue(const float* v) { return setValue(v[0], v[1], v[2]); }

  constexpr const float* getValue() const { return m_v; }
  constexpr void getValue(float& x, float& y, float& z) const {
    x = m_v[0];
    y = m_v[1];
    z = m_v[2];
  }

  constexpr float& operator[](int i) { return m_v[i]; }
  constexpr const float& operator[](int i) const { return m_v[i]; }

  constexpr NbVec3f cross(const NbVec3f& v) const {
    return NbVec3f(m_v[1] * v[2] - m_v[2] * v[1], m_v[2] * v[0] - m_v[0] * v[2], m_v[0] * v[1] - m_v[1] * v[0]);
  }

  constexpr void negate() { *this = -*this; }

private:
  float m_v[3] = {0, 0, 0};
};
