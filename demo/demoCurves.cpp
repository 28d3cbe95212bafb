// Time curves: one plot of value against time per extrapolation type. The keyed range is shaded,
// the keys are marked, and the curve is the library's own tessellation for a view of the plot.

#include "demoSections.h"
#include "pngWriter.h"

#include <orn/base/viewing/vwViewerBasic.h>
#include <orn/base/viewing/vwViewing2DBasic.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/primitives/timeCurves/tcTimeCurve.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

using namespace Orn;

namespace OrnDemo {

namespace {

constexpr int WIDTH = 800;
constexpr int HEIGHT = 300;
// The world shown: times and values.
constexpr double T_MIN = -7.0;
constexpr double T_MAX = 11.0;
constexpr double V_MIN = -1.25;
constexpr double V_MAX = 2.25;

struct Rgb {
  unsigned char r, g, b;
};

// Drawing on an 8-bit RGBA tile in world coordinates, value up.
class Plot {
public:
  explicit Plot(IxTile const& tile) : _guard(tile) {}

  int toX(double t) const { return int(std::lround((t - T_MIN) / (T_MAX - T_MIN) * WIDTH)); }
  int toY(double v) const { return int(std::lround((V_MAX - v) / (V_MAX - V_MIN) * HEIGHT)); }

  void pixel(int x, int y, Rgb c) {
    if (x < 0 || y < 0 || x >= WIDTH || y >= HEIGHT) return;
    unsigned char* p = _guard.getOriginAddress() + std::size_t(y) * _guard.getTile().getRowBytes() + 4 * x;
    p[0] = c.r;
    p[1] = c.g;
    p[2] = c.b;
    p[3] = 255;
  }

  void fill(int x1, int x2, int y1, int y2, Rgb c) {
    for (int y = y1; y < y2; ++y)
      for (int x = x1; x < x2; ++x) pixel(x, y, c);
  }

  // A line two pixels thick, stepped along its longer axis.
  void line(GePoint2<double> const& a, GePoint2<double> const& b, Rgb c) {
    double const x0 = (a.x - T_MIN) / (T_MAX - T_MIN) * WIDTH;
    double const y0 = (V_MAX - a.y) / (V_MAX - V_MIN) * HEIGHT;
    double const x1 = (b.x - T_MIN) / (T_MAX - T_MIN) * WIDTH;
    double const y1 = (V_MAX - b.y) / (V_MAX - V_MIN) * HEIGHT;
    int const steps = std::max(1, int(std::ceil(std::max(std::fabs(x1 - x0), std::fabs(y1 - y0)))));
    for (int i = 0; i <= steps; ++i) {
      double const s = double(i) / steps;
      int const x = int(std::floor(x0 + (x1 - x0) * s));
      int const y = int(std::floor(y0 + (y1 - y0) * s));
      fill(x, x + 2, y, y + 2, c);
    }
  }

private:
  IxWriteGuard _guard;
};

// A view whose window is the plot: the library tessellates for it.
VwView makeView() {
  RCShdPtr<VwViewerBasic> const viewer = new VwViewerBasic();
  viewer->setTargetSize(GeVector2<float>(float(WIDTH), float(HEIGHT)));
  RCShdPtr<VwViewing2DBasic> const viewing = new VwViewing2DBasic();
  viewing->setUserZoom(GeVector2<float>(float(2.0 * WIDTH / HEIGHT / (T_MAX - T_MIN)), float(2.0 / (V_MAX - V_MIN))));
  viewing->setPan(GeVector2<float>(float(0.5 * (T_MIN + T_MAX)), float(0.5 * (V_MIN + V_MAX))));
  return VwView(viewer, viewing);
}

RCShdPtr<TcTimeCurve> makeCurve() {
  RCShdPtr<TcTimeCurve> curve = new TcTimeCurve(TmAnimTypes::INTERPOLATION_BEZIER);
  curve->addKeyframe(0.0, 0.0);
  curve->addKeyframe(1.5, 1.0);
  curve->addKeyframe(3.0, 0.3);
  curve->addKeyframe(4.0, 0.5);
  // A steep start and a flat, long-handled end show the handles' effect on the linear ends.
  curve->setOutTangent(0.0, GePoint2<double>(0.4, 0.8), 1.0);
  curve->setInTangent(4.0, GePoint2<double>(3.2, 0.5), 1.0);
  return curve;
}

void plot(TcTimeCurve& curve, VwView const& view, std::string const& path) {
  IxTile const tile(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::UINT8), GeRectangle<int>(0, WIDTH, 0, HEIGHT),
                    CoRgbaColorTyped<float>(1.0f, 1.0f, 1.0f, 1.0f));
  {
    Plot p(tile);
    p.fill(0, WIDTH, 0, HEIGHT, Rgb{255, 255, 255});
    p.fill(p.toX(curve.getFirstKeyframe()->getTime()), p.toX(curve.getLastKeyframe()->getTime()), 0, HEIGHT,
           Rgb{232, 238, 248});
    for (int t = int(T_MIN); t <= int(T_MAX); ++t) p.fill(p.toX(t), p.toX(t) + 1, 0, HEIGHT, Rgb{220, 220, 220});
    p.fill(0, WIDTH, p.toY(0.0), p.toY(0.0) + 1, Rgb{150, 150, 150});
    p.fill(0, WIDTH, p.toY(1.0), p.toY(1.0) + 1, Rgb{220, 220, 220});

    GeRectangle<double> rect;
    double const tolerance = TcTimeCurve::computeTessellationData(view, 0.5, rect);
    RCProxyPvtEngPtr<TcTimeCurve::Polylines> const polylines = curve.tessellate(rect, tolerance);
    for (TcTimeCurve::Polyline const& polyline : *polylines)
      for (std::size_t i = 0; i + 1 < polyline.size(); ++i) p.line(polyline[i], polyline[i + 1], Rgb{30, 70, 160});

    for (auto it = curve.begin(); it != curve.end(); ++it) {
      int const x = p.toX((*it)->getTime());
      int const y = p.toY((*it)->getValue());
      p.fill(x - 4, x + 5, y - 4, y + 5, Rgb{200, 30, 30});
    }
  }
  writePng(IxReadGuard(tile), path);
  std::printf("  wrote %s\n", path.c_str());
}

void runCurves(std::string const& outDir) {
  struct Type {
    TmAnimTypes::ExtrapolationType type;
    char const* name;
  };
  VwView const view = makeView();
  RCShdPtr<TcTimeCurve> const curve = makeCurve();
  for (Type t : {Type{TmAnimTypes::EXTRAPOLATION_CONSTANT, "constant"}, Type{TmAnimTypes::EXTRAPOLATION_LINEAR, "linear"},
                 Type{TmAnimTypes::EXTRAPOLATION_LOOP, "loop"}, Type{TmAnimTypes::EXTRAPOLATION_PING_PONG, "pingpong"},
                 Type{TmAnimTypes::EXTRAPOLATION_RELATIVE, "relative"},
                 Type{TmAnimTypes::EXTRAPOLATION_KEY_LINEAR, "keylinear"}}) {
    curve->setExtrapolationType(t.type);
    plot(*curve, view, outDir + "/curve_extrapolation_" + t.name + ".png");
  }
}

SectionRegistration const curves("Time curves: one plot per extrapolation type", runCurves);

}  // namespace

}  // namespace OrnDemo
