#pragma once

#include "arbora/base/VecOps.h"
#include "arbora/base/export.h"

/// Four floats: a homogeneous point, or a colour with its opacity.
class ARBORABASE_API NbVec4f : public arbora::FloatVecOps<NbVec4f, 4> {
public:
  constexpr NbVec4f() = default;
  constexpr NbVec4f(float x, float y, float z, float w) : m_v{x, y, z, w} {}
  constexpr explicit NbVec4f(const float* v) : m_v{v[0], v[1], v[2], v[3]} {}

  constexpr NbVec4f& setValue(float x, float y, float z, float w) {
    m_v[0] = x;
    m_v[1] = y;
    m_v[2] = z;
    m_v[3] = w;
    return *this;
  }
  constexpr NbVec4f& setValue(const float* v) { return setValue(v[0], v[1], v[2], v[3]); }

  constexpr const float* getValue() const { return m_v; }
  constexpr void getValue(float& x, float& y, float& z, float& w) const {
    x = m_v[0];
    y = m_v[1];
    z = m_v[2];
    w = m_v[3];
  }

  constexpr float& operator[](int i) { return m_v[i]; }
  constexpr const float& operator[](int i) const { return m_v[i]; }

private:
  float m_v[4] = {0, 0, 0, 0};
};
