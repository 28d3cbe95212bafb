#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixGenericLut.h>

#include <iomanip>
#include <type_traits>

namespace Orn {

namespace {

// Calls visitor(std::type_identity<Comp>()) for the depth, or aborts.
template <class Visitor>
void switchComp(IxPixelFormat::Depth depth, Visitor&& visitor) {
  switch (int(depth)) {
    case IxPixelFormat::UINT8: visitor(std::type_identity<IxPixelCompUInt8>()); return;
    case IxPixelFormat::FLOAT16: visitor(std::type_identity<IxPixelCompFloat16>()); return;
    case IxPixelFormat::FLOAT32: visitor(std::type_identity<IxPixelCompFloat32>()); return;
    default: Assertions::throwProgramAborted("ixGenericLut", __LINE__, nullptr);
  }
}

// Calls visitor(std::type_identity<IxLut<Out, In>>()) for the pair of depths, or aborts.
template <class Visitor>
void switchLut(IxPixelFormat::Depth out, IxPixelFormat::Depth in, Visitor&& visitor) {
  switchComp(out, [&]<class Out>(std::type_identity<Out>) {
    switchComp(in, [&]<class In>(std::type_identity<In>) { visitor(std::type_identity<IxLut<Out, In>>()); });
  });
}

// Checks both depths before allocating, so that a refused pair allocates nothing.
void* allocate(IxPixelFormat::Depth out, IxPixelFormat::Depth in, void const* copyFrom) {
  void* table = nullptr;
  switchLut(out, in, [&]<class Lut>(std::type_identity<Lut>) {
    Lut* const lut = copyFrom ? new Lut(*static_cast<Lut const*>(copyFrom)) : new Lut;
    if (!copyFrom) lut->setTrailer();
    table = lut;
  });
  return table;
}

void release(IxPixelFormat::Depth out, IxPixelFormat::Depth in, void* table) {
  switchLut(out, in, [&]<class Lut>(std::type_identity<Lut>) { delete static_cast<Lut*>(table); });
}

}  // namespace

IxGenericLut::IxGenericLut(IxTile const& out, IxTile const& in)
    : IxGenericLut(out.getPixelFormat(), in.getPixelFormat()) {}

IxGenericLut::IxGenericLut(IxPixelFormat const& out, IxPixelFormat const& in)
    : _outDepth(out.getDepth()), _inDepth(in.getDepth()), _table(allocate(_outDepth, _inDepth, nullptr)) {}

IxGenericLut::IxGenericLut(IxGenericLut const& other)
    : _outDepth(other._outDepth), _inDepth(other._inDepth), _table(allocate(_outDepth, _inDepth, other._table)) {}

IxGenericLut& IxGenericLut::operator=(IxGenericLut const& other) {
  if (this != &other) {
    void* const table = allocate(other._outDepth, other._inDepth, other._table);
    release(_outDepth, _inDepth, _table);
    _outDepth = other._outDepth;
    _inDepth = other._inDepth;
    _table = table;
  }
  return *this;
}

IxGenericLut::~IxGenericLut() { release(_outDepth, _inDepth, _table); }

int IxGenericLut::getNbEntries() const {
  int n = 0;
  switchLut(_outDepth, _inDepth, [&]<class Lut>(std::type_identity<Lut>) { n = Lut::SIZE; });
  return n;
}

void IxGenericLut::checkDepths(int outDepth, int inDepth) const {
  ORN_ASSERT(outDepth == int(_outDepth) && inDepth == int(_inDepth));
}

void IxGenericLut::dump(std::ostream& out) const {
  switchLut(_outDepth, _inDepth, [&]<class Lut>(std::type_identity<Lut>) {
    if constexpr (std::is_same_v<typename Lut::InputComp, IxPixelCompFloat16>) {
      ORN_ASSERT_TEXT(false, "Not implemented yet");
    } else {
      Lut const& lut = *static_cast<Lut const*>(_table);
      for (int i = 0; i < Lut::SIZE; ++i) {
        out << "lut( " << std::setw(6) << i << " ) = ";
        if constexpr (std::is_same_v<typename Lut::OutputComp, IxPixelCompUInt8>)
          out << int(lut.entries[i]);
        else
          out << Lut::toValue(lut.entries[i]);
        out << '\n';
      }
    }
  });
}

}  // namespace Orn
