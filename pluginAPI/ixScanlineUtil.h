#pragma once
// Plain arithmetic on scanlines, component by component. No padding and no conversion.
//
// Every operation takes an optional interval of image positions: null means the whole interval
// of the first (output) line. The interval must lie inside every line taking part; an empty
// interval does nothing. Output and input lines may be the same line.
// The templates exist for float, CoRgbaColorTyped<float> and std::complex<float> lines.

#include <orn/pluginAPI/ixScanline.h>

#include <type_traits>

namespace Orn {

class IxScanlineUtil {
public:
  using Rgba = CoRgbaColorTyped<float>;

  // line[x] = value.
  template <class T>
  static void set(IxScanline<T>& line, std::type_identity_t<T> const& value, GeInterval<int> const* interval = nullptr);
  // dst[x] = src[x].
  template <class T>
  static void copy(IxScanline<T>& dst, IxScanline<T> const& src, GeInterval<int> const* interval = nullptr);
  // out[x] = a[x] + b[x].
  template <class T>
  static void addScanlines(IxScanline<T>& out, IxScanline<T> const& a, IxScanline<T> const& b,
                           GeInterval<int> const* interval = nullptr);
  // out[x] = a[x] - b[x].
  template <class T>
  static void subtractScanlines(IxScanline<T>& out, IxScanline<T> const& a, IxScanline<T> const& b,
                                GeInterval<int> const* interval = nullptr);
  // acc[x] += src[x].
  template <class T>
  static void accumulateScanline(IxScanline<T>& acc, IxScanline<T> const& src, GeInterval<int> const* interval = nullptr);

  // Premultiplies: r, g and b times a; alpha unchanged.
  static void multiplyByAlpha(IxScanline<Rgba>& line, GeInterval<int> const* interval = nullptr);
  static void multiplyByAlpha(IxScanline<Rgba>& out, IxScanline<Rgba> const& in, GeInterval<int> const* interval = nullptr);
  // Unpremultiplies: r, g and b divided by a. A pixel whose alpha is exactly 0 keeps its colour
  // (it is copied unchanged), so that a fully transparent pixel never turns into infinities.
  static void divideByAlpha(IxScanline<Rgba>& line, GeInterval<int> const* interval = nullptr);
  static void divideByAlpha(IxScanline<Rgba>& out, IxScanline<Rgba> const& in, GeInterval<int> const* interval = nullptr);

  // A 1-D filter with a centred kernel of odd size n = 2r + 1:
  //   out[x] = sum over k = 0 .. n-1 of kernel[k] * in[x + k - r],
  // summed from k = 0 upward starting at zero. kernel[0] weights the leftmost neighbour: the
  // kernel is applied as written, not flipped (the same thing for the usual symmetric kernels).
  // `in` must hold [min - r, max + r) of the interval; out must not be the same line as in.
  template <class T>
  static void convolve1D(IxScanline<T>& out, IxScanline<T> const& in, float const* kernel, int kernelSize,
                         GeInterval<int> const* interval = nullptr);
};

}  // namespace Orn
