// Time curve of 100 Bezier keys: evaluation at random times, tessellation and per-pixel sampling
// for a 1920 x 1080 view of the whole curve. The allocation counter counts operator new calls
// per evaluation.

#include <orn/base/viewing/vwViewerBasic.h>
#include <orn/base/viewing/vwViewing2DBasic.h>
#include <orn/primitives/timeCurves/tcTimeCurve.h>

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <random>
#include <vector>

namespace {

std::atomic<long> nbAllocations{0};

}  // namespace

// The replacement pair below is malloc and free, which GCC cannot see as a matching pair.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"

void* operator new(std::size_t size) {
  nbAllocations.fetch_add(1, std::memory_order_relaxed);
  if (void* p = std::malloc(size ? size : 1)) return p;
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

using namespace Orn;

namespace {

constexpr int NB_KEYS = 100;

// Keys one time unit apart with random values in [-1, 1] and automatic handles.
RCShdPtr<TcTimeCurve> makeCurve() {
  RCShdPtr<TcTimeCurve> curve = new TcTimeCurve(TmAnimTypes::INTERPOLATION_BEZIER);
  std::mt19937 random(1);
  std::uniform_real_distribution<double> value(-1.0, 1.0);
  for (int i = 0; i < NB_KEYS; ++i) curve->addKeyframe(double(i), value(random));
  return curve;
}

// A 1920 x 1080 view of times 0 to 99 and values -1.5 to 1.5.
VwView makeView() {
  RCShdPtr<VwViewerBasic> const viewer = new VwViewerBasic();
  viewer->setTargetSize(GeVector2<float>(1920.0f, 1080.0f));
  RCShdPtr<VwViewing2DBasic> const viewing = new VwViewing2DBasic();
  double const span = NB_KEYS - 1;
  viewing->setUserZoom(GeVector2<float>(float(2.0 * (1920.0 / 1080.0) / span), float(2.0 / 3.0)));
  viewing->setPan(GeVector2<float>(float(span / 2.0), 0.0f));
  return VwView(viewer, viewing);
}

void evaluate(benchmark::State& state) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve();
  std::mt19937 random(2);
  std::uniform_real_distribution<double> time(0.0, NB_KEYS - 1.0);
  std::vector<double> times(4096);
  for (double& t : times) t = time(random);
  std::size_t i = 0;
  long const before = nbAllocations.load();
  for (auto _ : state) {
    benchmark::DoNotOptimize(curve->evaluate(times[i]));
    i = (i + 1) & (times.size() - 1);
  }
  state.counters["allocations/call"] =
      benchmark::Counter(double(nbAllocations.load() - before), benchmark::Counter::kAvgIterations);
  state.SetItemsProcessed(state.iterations());
}

void tessellate(benchmark::State& state) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve();
  VwView const view = makeView();
  std::size_t points = 0;
  for (auto _ : state) {
    GeRectangle<double> rect;
    double const tolerance = TcTimeCurve::computeTessellationData(view, 1.0, rect);
    RCProxyPvtEngPtr<TcTimeCurve::Polylines> const polylines = curve->tessellate(rect, tolerance);
    points = 0;
    for (TcTimeCurve::Polyline const& p : *polylines) points += p.size();
    benchmark::DoNotOptimize(points);
  }
  state.counters["points"] = double(points);
}

void sample(benchmark::State& state) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve();
  VwView const view = makeView();
  std::size_t points = 0;
  for (auto _ : state) {
    RCProxyPvtEngPtr<TcTimeCurve::Polyline> const samples = curve->sample(view, 1.0);
    points = samples->size();
    benchmark::DoNotOptimize(points);
  }
  state.counters["points"] = double(points);
}

}  // namespace

BENCHMARK(evaluate);
BENCHMARK(tessellate)->Unit(benchmark::kMicrosecond);
BENCHMARK(sample)->Unit(benchmark::kMicrosecond);
