#pragma once
// Storage types of one pixel component. Each holds the stored value and knows the exact per-pixel
// conversions to and from float.

#include <orn/pluginAPI/half.h>

#include <cstdint>

namespace Orn {

// Byte 0..255 standing for 0.0..1.0.
struct IxPixelCompUInt8 {
  using Storage = std::uint8_t;
  static constexpr int DEPTH = 8;

  // The byte times the float with bits 0x3B808081 (not a division by 255).
  static float toFloat(Storage v) { return float(v) * 0.003921569f; }
  // v * 255 + 0.5 as two single-precision operations, clamped to [0, 255] (NaN gives 0), truncated.
  static Storage fromFloat(float v) {
    float const scaled = v * 255.f;
    float const shifted = scaled + 0.5f;
    float const low = shifted > 0.f ? shifted : 0.f;
    float const clamped = low < 255.f ? low : 255.f;
    return Storage(clamped);
  }

  float get() const { return toFloat(value); }
  void set(float v) { value = fromFloat(v); }

  Storage value;
};

// 16-bit half float.
struct IxPixelCompFloat16 {
  using Storage = Half::Bits;
  static constexpr int DEPTH = 16;

  static float toFloat(Storage v) { return Half::toFloat(v); }
  static Storage fromFloat(float v) { return Half::fromFloat(v); }

  float get() const { return toFloat(value); }
  void set(float v) { value = fromFloat(v); }

  Storage value;
};

// IEEE single, not clamped.
struct IxPixelCompFloat32 {
  using Storage = float;
  static constexpr int DEPTH = 32;

  static float toFloat(Storage v) { return v; }
  static Storage fromFloat(float v) { return v; }

  float get() const { return value; }
  void set(float v) { value = v; }

  Storage value;
};

}  // namespace Orn
