#pragma once

#include "arbora/base/VecOps.h"
#include "arbora/base/export.h"

/// Two floats: a point or direction in a plane, or a normalized screen position.
class ARBORABASE_API NbVec2f : public arbora::FloatVecOps<NbVec2f, 2> {
public:
  constexpr NbVec2f() = default;
  constexpr NbVec2f(float x, float y) : m_v{x, y} {}
  constexpr explicit NbVec2f(const float* v) : m_v{v[0], v[1]} {}

  constexpr NbVec2f& setValue(float x, float y) {
    m_v[0] = x;
    m_v[1] = y;
    return *this;
  }
  constexpr NbVec2f& setValue(const float* v) { return setValue(v[0], v[1]); }

  constexpr const float* getValue() const { return m_v; }
  constexpr void getValue(float& x, float& y) const {
    x = m_v[0];
    y = m_v[1];
  }

  constexpr float& operator[](int i) { return m_v[i]; }
  constexpr const float& operator[](int i) const { return m_v[i]; }

private:
  float m_v[2] = {0, 0};
};
