#pragma once
// N interleaved components: red, green, blue, alpha in memory order. A one-component pixel holds
// alpha.

#include <orn/pluginAPI/ixPixelComp.h>

#include <ostream>
#include <type_traits>

namespace Orn {

template <class Comp, int N>
struct IxPixel {
  using CompType = Comp;
  static constexpr int NB_COMPS = N;

  Comp& operator[](int i) { return comps[i]; }
  Comp const& operator[](int i) const { return comps[i]; }

  void dump(std::ostream& out) const {
    for (int i = 0; i < N; ++i) {
      if (i) out << ' ';
      if constexpr (std::is_same_v<Comp, IxPixelCompUInt8>)
        out << int(comps[i].value);
      else
        out << comps[i].get();
    }
  }

  Comp comps[N];
};

static_assert(sizeof(IxPixel<IxPixelCompUInt8, 3>) == 3);
static_assert(sizeof(IxPixel<IxPixelCompFloat16, 4>) == 8);
static_assert(sizeof(IxPixel<IxPixelCompFloat32, 4>) == 16);

}  // namespace Orn
