#include <orn/pluginAPI/ixScanlineUtil.h>

#include <orn/base/except/assertions.h>

#include <complex>

namespace Orn {

namespace {

using Rgba = CoRgbaColorTyped<float>;

// Component-wise arithmetic: colours have no operators of their own.
template <class T>
inline T add(T const& a, T const& b) {
  return a + b;
}
template <>
inline Rgba add(Rgba const& a, Rgba const& b) {
  return Rgba(a.r + b.r, a.g + b.g, a.b + b.b, a.a + b.a);
}
template <class T>
inline T subtract(T const& a, T const& b) {
  return a - b;
}
template <>
inline Rgba subtract(Rgba const& a, Rgba const& b) {
  return Rgba(a.r - b.r, a.g - b.g, a.b - b.b, a.a - b.a);
}
template <class T>
inline T scale(T const& a, float k) {
  return a * k;
}
template <>
inline Rgba scale(Rgba const& a, float k) {
  return Rgba(a.r * k, a.g * k, a.b * k, a.a * k);
}

// The interval to work on: the given one, or the whole of the output line.
template <class T>
GeInterval<int> resolve(IxScanline<T> const& out, GeInterval<int> const* interval) {
  GeInterval<int> const region = interval ? *interval : out.getInterval();
  ORN_ASSERT_TEXT(region.isEmpty() || out.getInterval().contains(region), "line.getInterval().contains( interval )");
  return region;
}

template <class T>
void checkInside(IxScanline<T> const& line, GeInterval<int> const& region) {
  ORN_ASSERT_TEXT(region.isEmpty() || line.getInterval().contains(region), "line.getInterval().contains( interval )");
}

}  // namespace

template <class T>
void IxScanlineUtil::set(IxScanline<T>& line, std::type_identity_t<T> const& value, GeInterval<int> const* interval) {
  GeInterval<int> const r = resolve(line, interval);
  T* const p = line.getOrigin();
  for (int x = r.min; x < r.max; ++x) p[x] = value;
}

template <class T>
void IxScanlineUtil::copy(IxScanline<T>& dst, IxScanline<T> const& src, GeInterval<int> const* interval) {
  GeInterval<int> const r = resolve(dst, interval);
  checkInside(src, r);
  T* const d = dst.getOrigin();
  T const* const s = src.getOrigin();
  for (int x = r.min; x < r.max; ++x) d[x] = s[x];
}

template <class T>
void IxScanlineUtil::addScanlines(IxScanline<T>& out, IxScanline<T> const& a, IxScanline<T> const& b,
                                  GeInterval<int> const* interval) {
  GeInterval<int> const r = resolve(out, interval);
  checkInside(a, r);
  checkInside(b, r);
  T* const o = out.getOrigin();
  T const* const pa = a.getOrigin();
  T const* const pb = b.getOrigin();
  for (int x = r.min; x < r.max; ++x) o[x] = add(pa[x], pb[x]);
}

template <class T>
void IxScanlineUtil::subtractScanlines(IxScanline<T>& out, IxScanline<T> const& a, IxScanline<T> const& b,
                                       GeInterval<int> const* interval) {
  GeInterval<int> const r = resolve(out, interval);
  checkInside(a, r);
  checkInside(b, r);
  T* const o = out.getOrigin();
  T const* const pa = a.getOrigin();
  T const* const pb = b.getOrigin();
  for (int x = r.min; x < r.max; ++x) o[x] = subtract(pa[x], pb[x]);
}

template <class T>
void IxScanlineUtil::accumulateScanline(IxScanline<T>& acc, IxScanline<T> const& src, GeInterval<int> const* interval) {
  GeInterval<int> const r = resolve(acc, interval);
  checkInside(src, r);
  T* const o = acc.getOrigin();
  T const* const s = src.getOrigin();
  for (int x = r.min; x < r.max; ++x) o[x] = add(o[x], s[x]);
}

void IxScanlineUtil::multiplyByAlpha(IxScanline<Rgba>& line, GeInterval<int> const* interval) {
  multiplyByAlpha(line, line, interval);
}

void IxScanlineUtil::multiplyByAlpha(IxScanline<Rgba>& out, IxScanline<Rgba> const& in, GeInterval<int> const* interval) {
  GeInterval<int> const r = resolve(out, interval);
  checkInside(in, r);
  Rgba* const o = out.getOrigin();
  Rgba const* const s = in.getOrigin();
  for (int x = r.min; x < r.max; ++x) {
    Rgba const c = s[x];
    o[x] = Rgba(c.r * c.a, c.g * c.a, c.b * c.a, c.a);
  }
}

void IxScanlineUtil::divideByAlpha(IxScanline<Rgba>& line, GeInterval<int> const* interval) {
  divideByAlpha(line, line, interval);
}

void IxScanlineUtil::divideByAlpha(IxScanline<Rgba>& out, IxScanline<Rgba> const& in, GeInterval<int> const* interval) {
  GeInterval<int> const r = resolve(out, interval);
  checkInside(in, r);
  Rgba* const o = out.getOrigin();
  Rgba const* const s = in.getOrigin();
  for (int x = r.min; x < r.max; ++x) {
    Rgba const c = s[x];
    o[x] = c.a == 0.f ? c : Rgba(c.r / c.a, c.g / c.a, c.b / c.a, c.a);
  }
}

template <class T>
void IxScanlineUtil::convolve1D(IxScanline<T>& out, IxScanline<T> const& in, float const* kernel, int kernelSize,
                                GeInterval<int> const* interval) {
  ORN_ASSERT(kernelSize > 0 && kernelSize % 2 == 1);
  ORN_ASSERT(kernel != nullptr);
  ORN_ASSERT(&out != &in);
  GeInterval<int> const r = resolve(out, interval);
  if (r.isEmpty()) return;
  int const radius = kernelSize / 2;
  ORN_ASSERT_TEXT(in.getInterval().contains(GeInterval<int>(r.min - radius, r.max + radius)),
                  "in.getInterval().contains( interval widened by the kernel radius )");
  T* const o = out.getOrigin();
  T const* const s = in.getOrigin();
  for (int x = r.min; x < r.max; ++x) {
    T const* const window = s + (x - radius);
    T sum = T();
    for (int k = 0; k < kernelSize; ++k) sum = add(sum, scale(window[k], kernel[k]));
    o[x] = sum;
  }
}

#define ORN_SCANLINE_UTIL_INSTANTIATE(T)                                                                     \
  template void IxScanlineUtil::set<T>(IxScanline<T>&, std::type_identity_t<T> const&, GeInterval<int> const*); \
  template void IxScanlineUtil::copy<T>(IxScanline<T>&, IxScanline<T> const&, GeInterval<int> const*);          \
  template void IxScanlineUtil::addScanlines<T>(IxScanline<T>&, IxScanline<T> const&, IxScanline<T> const&,    \
                                                GeInterval<int> const*);                                       \
  template void IxScanlineUtil::subtractScanlines<T>(IxScanline<T>&, IxScanline<T> const&,                     \
                                                     IxScanline<T> const&, GeInterval<int> const*);            \
  template void IxScanlineUtil::accumulateScanline<T>(IxScanline<T>&, IxScanline<T> const&,                    \
                                                      GeInterval<int> const*);                                 \
  template void IxScanlineUtil::convolve1D<T>(IxScanline<T>&, IxScanline<T> const&, float const*, int,         \
                                              GeInterval<int> const*);

ORN_SCANLINE_UTIL_INSTANTIATE(float)
ORN_SCANLINE_UTIL_INSTANTIATE(CoRgbaColorTyped<float>)
ORN_SCANLINE_UTIL_INSTANTIATE(std::complex<float>)

#undef ORN_SCANLINE_UTIL_INSTANTIATE

}  // namespace Orn
