#pragma once
// The typed tables behind IxGenericLut: N entries of the output component's storage type
// followed by a trailer of two values, the lower bound and the scale of the index.
//
//   input     N       trailer (lower, scale)
//   UINT8     256     0, 255 as 32-bit integers
//   FLOAT16   8192    0.0, 8191.0
//   FLOAT32   16384   0.0, 16383.0
//
// A byte indexes the table directly. A float v is looked up by linear interpolation at
// u = (v - lower) * scale; outside 0..1 the first or last segment is extended, so a table keeps
// its slope beyond its range. Entries read as floats: bytes as 0..255, halves by the exact
// conversion, floats as they are.

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/ixPixelComp.h>

#include <cstdint>
#include <type_traits>

namespace Orn {

template <class InComp>
struct IxLutIndex;

template <>
struct IxLutIndex<IxPixelCompUInt8> {
  using Trailer = std::int32_t;
  static constexpr int SIZE = 256;
  static constexpr Trailer LOWER = 0;
  static constexpr Trailer SCALE = 255;
};

template <>
struct IxLutIndex<IxPixelCompFloat16> {
  using Trailer = float;
  static constexpr int SIZE = 8192;
  static constexpr Trailer LOWER = 0.f;
  static constexpr Trailer SCALE = 8191.f;
};

template <>
struct IxLutIndex<IxPixelCompFloat32> {
  using Trailer = float;
  static constexpr int SIZE = 16384;
  static constexpr Trailer LOWER = 0.f;
  static constexpr Trailer SCALE = 16383.f;
};

template <class OutComp, class InComp>
struct IxLut {
  using OutputComp = OutComp;
  using InputComp = InComp;
  using Entry = typename OutComp::Storage;
  using Trailer = typename IxLutIndex<InComp>::Trailer;
  static constexpr int SIZE = IxLutIndex<InComp>::SIZE;

  void setTrailer() {
    lower = IxLutIndex<InComp>::LOWER;
    scale = IxLutIndex<InComp>::SCALE;
  }

  // An entry as a float in the output's working range (bytes stay 0..255).
  static float toValue(Entry e) {
    if constexpr (std::is_same_v<OutComp, IxPixelCompUInt8>)
      return float(e);
    else
      return OutComp::toFloat(e);
  }

  // The table's value for a source component. Half sources are not served.
  float lookup(typename InComp::Storage v) const {
    if constexpr (std::is_same_v<InComp, IxPixelCompUInt8>) {
      return toValue(entries[v]);
    } else if constexpr (std::is_same_v<InComp, IxPixelCompFloat32>) {
      return interpolate(v);
    } else {
      ORN_ASSERT_TEXT(false, "!\"Not implemented yet\"");
      return 0.f;
    }
  }

  // Linear interpolation at (v - lower) * scale, extended beyond both ends.
  float interpolate(float v) const requires(!std::is_same_v<InComp, IxPixelCompUInt8>) {
    float const u = (v - lower) * scale;
    // i = u truncated: i < 0 exactly when u <= -1, and i < N - 1 when u < N - 1 (tested on u so
    // that no out-of-range conversion happens; NaN falls through to the last branch).
    if (u <= -1.f) {
      float const t0 = toValue(entries[0]);
      return t0 + u * (toValue(entries[1]) - t0);
    }
    if (u < float(SIZE - 1)) {
      std::int32_t const i = std::int32_t(u);
      float const ti = toValue(entries[i]);
      return ti + (u - float(i)) * (toValue(entries[i + 1]) - ti);
    }
    float const last = toValue(entries[SIZE - 1]);
    return last + (u - scale) * (last - toValue(entries[SIZE - 2]));
  }

  Entry entries[SIZE];
  Trailer lower;
  Trailer scale;
};

static_assert(sizeof(IxLut<IxPixelCompUInt8, IxPixelCompUInt8>) == 264);
static_assert(sizeof(IxLut<IxPixelCompFloat16, IxPixelCompFloat16>) == 8192 * 2 + 8);
static_assert(sizeof(IxLut<IxPixelCompFloat32, IxPixelCompFloat32>) == 65544);

}  // namespace Orn
