#pragma once

#include "arbora/base/VecOps.h"
#include "arbora/base/export.h"

#include <cstdint>

/// Two 32-bit integers: a size or a position in pixels. Arithmetic wraps around.
class ARBORABASE_API NbVec2i32 : public arbora::VecOps<NbVec2i32, std::int32_t, 2> {
public:
  constexpr NbVec2i32() = default;
  constexpr NbVec2i32(std::int32_t x, std::int32_t y) : m_v{x, y} {}
  constexpr explicit NbVec2i32(const std::int32_t* v) : m_v{v[0], v[1]} {}

  constexpr NbVec2i32& setValue(std::int32_t x, std::int32_t y) {
    m_v[0] = x;
    m_v[1] = y;
    return *this;
  }
  constexpr NbVec2i32& setValue(const std::int32_t* v) { return setValue(v[0], v[1]); }

  constexpr const std::int32_t* getValue() const { return m_v; }
  constexpr void getValue(std::int32_t& x, std::int32_t& y) const {
    x = m_v[0];
    y = m_v[1];
  }

  constexpr std::int32_t& operator[](int i) { return m_v[i]; }
  constexpr const std::int32_t& operator[](int i) const { return m_v[i]; }

private:
  std::int32_t m_v[2] = {0, 0};
};
