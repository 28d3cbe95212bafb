#pragma once
// Square matrix arithmetic on row-major arrays, shared by the matrix classes.

#include <cmath>
#include <limits>
#include <utility>

namespace Orn {

class GeMatrixOps {
public:
  // out = a * b; out may not alias a or b.
  template <class T, int N>
  static void multiply(T const* a, T const* b, T* out) {
    for (int r = 0; r < N; ++r) {
      for (int c = 0; c < N; ++c) {
        T sum = T(0);
        for (int k = 0; k < N; ++k) sum += a[r * N + k] * b[k * N + c];
        out[r * N + c] = sum;
      }
    }
  }

  template <class T, int N>
  static void transpose(T const* a, T* out) {
    for (int r = 0; r < N; ++r)
      for (int c = 0; c < N; ++c) out[c * N + r] = a[r * N + c];
  }

  // Gauss-Jordan elimination with partial pivoting. A singular matrix gives false and an output
  // filled with NaN.
  template <class T, int N>
  static bool invert(T const* a, T* out) {
    T work[N * N];
    for (int i = 0; i < N * N; ++i) {
      work[i] = a[i];
      out[i] = T(0);
    }
    for (int i = 0; i < N; ++i) out[i * N + i] = T(1);

    for (int col = 0; col < N; ++col) {
      int pivot = col;
      T best = std::fabs(work[col * N + col]);
      for (int r = col + 1; r < N; ++r) {
        T const v = std::fabs(work[r * N + col]);
        if (v > best) {
          best = v;
          pivot = r;
        }
      }
      if (!(best > T(0))) {
        fillNaN<T, N>(out);
        return false;
      }
      if (pivot != col) {
        for (int c = 0; c < N; ++c) {
          std::swap(work[col * N + c], work[pivot * N + c]);
          std::swap(out[col * N + c], out[pivot * N + c]);
        }
      }
      T const inv = T(1) / work[col * N + col];
      for (int c = 0; c < N; ++c) {
        work[col * N + c] *= inv;
        out[col * N + c] *= inv;
      }
      for (int r = 0; r < N; ++r) {
        if (r == col) continue;
        T const f = work[r * N + col];
        if (f == T(0)) continue;
        for (int c = 0; c < N; ++c) {
          work[r * N + c] -= f * work[col * N + c];
          out[r * N + c] -= f * out[col * N + c];
        }
      }
    }
    return true;
  }

  template <class T, int N>
  static void fillNaN(T* out) {
    for (int i = 0; i < N * N; ++i) out[i] = std::numeric_limits<T>::quiet_NaN();
  }

  template <class T, int N>
  static void setIdentity(T* out) {
    for (int r = 0; r < N; ++r)
      for (int c = 0; c < N; ++c) out[r * N + c] = r == c ? T(1) : T(0);
  }

  template <class T, int N>
  static bool equal(T const* a, T const* b) {
    for (int i = 0; i < N * N; ++i)
      if (!(a[i] == b[i])) return false;
    return true;
  }
};

}  // namespace Orn
