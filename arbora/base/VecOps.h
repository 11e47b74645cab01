#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace arbora {

// Integer components wrap around like unsigned ones: sizes near 2147483647 ("unbounded") are added to and subtracted
// from all over a layout, and a signed overflow would be undefined.
template <class T>
constexpr T addWrapped(T a, T b) {
  if constexpr (std::is_integral_v<T>) {
    return static_cast<T>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
  } else {
    return a + b;
  }
}

template <class T>
constexpr T subWrapped(T a, T b) {
  if constexpr (std::is_integral_v<T>) {
    return static_cast<T>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
  } else {
    return a - b;
  }
}

template <class T>
constexpr T mulWrapped(T a, T b) {
  if constexpr (std::is_integral_v<T>) {
    return static_cast<T>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
  } else {
    return a * b;
  }
}

/// Component-wise arithmetic that all vector classes share. `Vec` has `T& operator[](int)` and `N` components.
template <class Vec, class T, int N>
class VecOps {
public:
  constexpr Vec& operator+=(const Vec& v) {
    for (int i = 0; i < N; ++i) {
      self()[i] = addWrapped(self()[i], v[i]);
    }
    return self();
  }

  constexpr Vec& operator-=(const Vec& v) {
    for (int i = 0; i < N; ++i) {
      self()[i] = subWrapped(self()[i], v[i]);
    }
    return self();
  }

  constexpr Vec& operator*=(T factor) {
    for (int i = 0; i < N; ++i) {
      self()[i] = mulWrapped(self()[i], factor);
    }
    return self();
  }

  constexpr Vec operator-() const {
    Vec result;
    for (int i = 0; i < N; ++i) {
      // Subtracting a float from 0 would turn 0 into +0 instead of -0.
      if constexpr (std::is_integral_v<T>) {
        result[i] = subWrapped(T(0), self()[i]);
      } else {
        result[i] = -self()[i];
      }
    }
    return result;
  }

  friend constexpr Vec operator+(Vec a, const Vec& b) { return a += b; }
  friend constexpr Vec operator-(Vec a, const Vec& b) { return a -= b; }
  friend constexpr Vec operator*(Vec a, T factor) { return a *= factor; }
  friend constexpr Vec operator*(T factor, Vec a) { return a *= factor; }

  friend constexpr bool operator==(const Vec& a, const Vec& b) {
    for (int i = 0; i < N; ++i) {
      if (a[i] != b[i]) {
        return false;
      }
    }
    return true;
  }
  friend constexpr bool operator!=(const Vec& a, const Vec& b) { return !(a == b); }

private:
  constexpr Vec& self() { return static_cast<Vec&>(*this); }
  constexpr const Vec& self() const { return static_cast<const Vec&>(*this); }
};

/// What only vectors of floats have.
template <class Vec, int N>
class FloatVecOps : public VecOps<Vec, float, N> {
public:
  constexpr Vec& operator/=(float divisor) { return vec() *= 1.0F / divisor; }
  friend constexpr Vec operator/(Vec a, float divisor) { return a /= divisor; }

  constexpr float dot(const Vec& v) const {
    float sum = 0;
    for (int i = 0; i < N; ++i) {
      sum += vec()[i] * v[i];
    }
    return sum;
  }

  constexpr float sqrLength() const { return dot(vec()); }

  /// Computed in double precision: components up to FLT_MAX neither overflow nor vanish.
  float length() const {
    double sum = 0;
    for (int i = 0; i < N; ++i) {
      sum += static_cast<double>(vec()[i]) * static_cast<double>(vec()[i]);
    }
    return static_cast<float>(std::sqrt(sum));
  }

  /// Scales to length 1 and gives the former length. A zero vector stays as it is.
  float normalize() {
    double sum = 0;
    for (int i = 0; i < N; ++i) {
      sum += static_cast<double>(vec()[i]) * static_cast<double>(vec()[i]);
    }
    const double size = std::sqrt(sum);
    if (size > 0) {
      for (int i = 0; i < N; ++i) {
        vec()[i] = static_cast<float>(vec()[i] / size);
      }
    }
    return static_cast<float>(size);
  }

  /// True if no component differs by more than `tolerance`.
  bool equals(const Vec& v, float tolerance) const {
    for (int i = 0; i < N; ++i) {
      if (!(std::fabs(vec()[i] - v[i]) <= tolerance)) {
        return false;
      }
    }
    return true;
  }

private:
  constexpr Vec& vec() { return static_cast<Vec&>(*this); }
  constexpr const Vec& vec() const { return static_cast<const Vec&>(*this); }
};

} // namespace arbora
